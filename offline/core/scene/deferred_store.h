// The records of a scene that wait until somebody asks for them, each kept as the line that it was read from.
//
// Pointers to records stay valid until the store is cleared.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Offline {

class OfflinePlugin;

struct DeferredRecord {
    std::string name;
    std::string node;  // empty: the same as the name
    std::string type;
    std::string line;              // as it was read, without the line's end
    std::uint64_t lineNumber = 0;  // from 1; 0: not read from a file
    std::string source;            // the shown name of the file, for messages
    OfflinePlugin* after =
        nullptr;         // the plugin (perhaps dead by now) that the scene ended in when this was read; null: none
    bool taken = false;  // materialised: no longer part of the store
};

class DeferredStore {
  public:
    // Null when a waiting record of this name is there already.
    DeferredRecord* add(DeferredRecord&& record);

    DeferredRecord* findByName(std::string_view name) const;  // waiting ones only
    // The waiting record that stands for this DCC node: the first whose node it is, else the one of this name.
    DeferredRecord* findByNode(std::string_view node) const;
    // The same among those for which accepts(record) is true.
    template <class Accepts>
    DeferredRecord* findByNode(std::string_view node, Accepts accepts) const;

    // Takes a record out: it is found no more, and its line is let go.
    void take(DeferredRecord& record);

    // All records ever added, in their order; look at `taken`.
    std::size_t size() const { return records.size(); }
    DeferredRecord& at(std::size_t index) const { return *records[index]; }
    std::size_t waiting() const { return waitingCount; }

    void clear();

  private:
    std::vector<std::unique_ptr<DeferredRecord>> records;
    std::unordered_map<std::string_view, DeferredRecord*> byName;
    std::unordered_map<std::string_view, std::vector<DeferredRecord*>> byNode;
    std::size_t waitingCount = 0;
};

template <class Accepts>
DeferredRecord* DeferredStore::findByNode(std::string_view node, Accepts accepts) const {
    const auto found = byNode.find(node);
    if (found != byNode.end()) {
        for (DeferredRecord* record : found->second) {
            if (!record->taken && accepts(*record)) return record;
        }
    }
    DeferredRecord* named = findByName(node);
    return named != nullptr && accepts(*named) ? named : nullptr;
}

}  // namespace Offline
