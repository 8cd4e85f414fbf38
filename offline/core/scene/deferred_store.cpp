#include "core/scene/deferred_store.h"

namespace Offline {

DeferredRecord* DeferredStore::add(DeferredRecord&& record) {
    if (findByName(record.name) != nullptr) return nullptr;
    records.push_back(std::make_unique<DeferredRecord>(std::move(record)));
    DeferredRecord* added = records.back().get();
    // The keys point into the records; one that was taken stays under its name until another takes the place.
    byName.erase(added->name);
    byName.emplace(added->name, added);
    if (!added->node.empty()) byNode[added->node].push_back(added);
    ++waitingCount;
    return added;
}

DeferredRecord* DeferredStore::findByName(std::string_view name) const {
    const auto found = byName.find(name);
    return found != byName.end() && !found->second->taken ? found->second : nullptr;
}

DeferredRecord* DeferredStore::findByNode(std::string_view node) const {
    return findByNode(node, [](const DeferredRecord&) { return true; });
}

void DeferredStore::take(DeferredRecord& record) {
    if (record.taken) return;
    record.taken = true;
    record.line = std::string();
    --waitingCount;
}

void DeferredStore::clear() {
    byName.clear();
    byNode.clear();
    records.clear();
    waitingCount = 0;
}

}  // namespace Offline
