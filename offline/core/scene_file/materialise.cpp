#include <cstring>
#include <utility>

#include "core/scene_file/records/line_error.h"
#include "core/scene_file/scene_builder.h"
#include "core/scene_file/scene_file_api.h"

namespace Offline {
namespace {

// The first thing that went wrong with a record. Missing memory is none: whoever asked says so in words of its own.
class Problem {
  public:
    ~Problem() { KUtils::releaseError(error); }
    void note(const DeferredRecord& record, std::size_t column, const std::string& place, const std::string& message) {
        if (error != nullptr || message == NO_MEMORY) return;
        error = lineError(record.source.c_str(), record.lineNumber, column, place, message);
    }
    KUtils::ErrorRecord* take() { return std::exchange(error, nullptr); }

  private:
    KUtils::ErrorRecord* error = nullptr;
};

// Makes the plugin of a waiting record; on null the record still waits. It could be read when the scene was; since then
// its type may have been replaced and its name been given away.
OfflinePlugin* build(SceneContents& contents, DeferredRecord& record, std::vector<OpenValue>& open, Problem& problem) {
    PluginLine line;
    PluginLineReader reader;
    JsonText text(record.line.data(), record.line.data() + record.line.size());
    if (!reader.read(text, contents, line)) {
        problem.note(record, text.errorColumn(), reader.errorPlace(line), text.errorMessage());
        return nullptr;
    }
    if (contents.find(record.name.c_str()) != nullptr) {
        problem.note(record, 1, "plugin " + quoted(record.name), "a plugin of this name stands in the scene already");
        return nullptr;
    }
    OfflinePlugin* plugin = buildPlugin(contents, line, record.lineNumber, open);
    if (plugin != nullptr) contents.deferred().take(record);
    return plugin;
}

// Makes a record's plugin and, one after the other, those of all waiting records that it refers to.
OfflinePlugin* buildWithReferences(SceneContents& contents, DeferredRecord& first, Problem& problem) {
    std::vector<OpenValue> open;
    OfflinePlugin* plugin = build(contents, first, open, problem);
    for (std::size_t i = 0; i < open.size(); ++i) {
        for (std::size_t k = 0; k < open[i].references.size(); ++k) {
            const std::string name = open[i].references[k].name;
            if (contents.find(name.c_str()) != nullptr) continue;
            DeferredRecord* record = contents.deferred().findByName(name);
            if (record != nullptr) build(contents, *record, open, problem);
        }
    }
    for (const OpenValue& value : open) settle(contents, value, [](const OpenValue&, const OpenReference&) {});
    return plugin;
}

bool isOfKind(const PluginType* type, const char* kind) {
    return kind == nullptr || (type != nullptr && std::strcmp(kindName(type->kind), kind) == 0);
}

}  // namespace

KUtils::Plugin* materialise(SceneContents& contents, const char* node, const char* kind,
                            KUtils::ErrorRecord** problem) {
    if (problem != nullptr) *problem = nullptr;
    if (node == nullptr) return nullptr;
    OfflinePlugin* plugin =
        contents.findByNode(node, [kind](const OfflinePlugin& found) { return isOfKind(&found.type(), kind); });
    if (plugin != nullptr) return plugin;
    // What is asked for by its name, and whose name another plugin has, is that plugin.
    const bool nameIsTaken = contents.find(node) != nullptr;
    DeferredRecord* record = contents.deferred().findByNode(node, [&](const DeferredRecord& waiting) {
        return isOfKind(contents.catalogue().find(waiting.type), kind) && !(nameIsTaken && waiting.name == node);
    });
    if (record == nullptr) return nullptr;
    Problem found;
    plugin = buildWithReferences(contents, *record, found);
    if (problem != nullptr) *problem = found.take();
    return plugin;
}

}  // namespace Offline
