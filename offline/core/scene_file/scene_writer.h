// Writes the contents of a scene line by line: the header, then plugins and waiting records in their order.
#pragma once

#include <string>

#include "core/scene/scene_contents.h"

namespace Offline {

class SceneWriter {
  public:
    explicit SceneWriter(SceneContents& contents) : contents(contents) {}

    // Calls `write(text)` for each line, its end included, until it answers false; false then.
    template <class Write>
    bool writeLines(Write write);

  private:
    void header();
    void plugin(const OfflinePlugin& plugin);
    // True when a plugin stands for the record: the one made of it, or another that has its name.
    bool isAnswered(const DeferredRecord& record) const;
    // The living plugin before which a record is written; null: after the last.
    static const OfflinePlugin* placeOf(const DeferredRecord& record, const OfflinePlugin* first);

    SceneContents& contents;
    std::string line;
};

template <class Write>
bool SceneWriter::writeLines(Write write) {
    header();
    if (!write(line)) return false;
    DeferredStore& records = contents.deferred();
    std::size_t record = 0;
    const OfflinePlugin* const first = contents.first();
    const OfflinePlugin* at = first;
    for (;;) {
        for (; record < records.size() && (at == nullptr || placeOf(records.at(record), first) == at); ++record) {
            if (isAnswered(records.at(record))) continue;
            line.assign(records.at(record).line).append(1, '\n');
            if (!write(line)) return false;
        }
        if (at == nullptr) return true;
        plugin(*at);
        if (!write(line)) return false;
        at = SceneContents::next(at);
    }
}

}  // namespace Offline
