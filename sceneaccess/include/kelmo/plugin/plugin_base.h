// PluginBase and PluginInterface: objects that carry a list of numbered interfaces.
//
// Ownership: an interface record belongs to its PluginBase; the interface itself belongs to whoever
// made it, and is asked to release itself when its owner dies and it was added with owned 1.
// Threads: none; the list is not locked.
#pragma once

#include <cstddef>
#include <cstdint>

#include "kelmo/core/allocator.h"
#include "kelmo/plugin/interface_ids.h"

namespace KUtils {

class PluginBase;

// An optional interface. Every interface begins with these five operations.
class PluginInterface {
  public:
    virtual ~PluginInterface() {}
    virtual std::uint32_t getInterfaceID() = 0;
    virtual PluginBase* getPlugin() = 0;  // the object that owns this interface
    virtual const char* getInterfaceName() { return nullptr; }
    virtual void release();
};

// One link of the interface list.
struct InterfaceRecord {
    PluginInterface* iface;
    std::uint32_t owned;  // exactly 1: released with the plugin
    InterfaceRecord* next;
};

class PluginBase {
  public:
    // Objects are freed by the renderer through slot 0, so they live in its heap. noexcept makes a
    // failed allocation yield null instead of a constructor run on null.
    static void* operator new(std::size_t size) noexcept { return kelmo_malloc(size); }
    static void operator delete(void* object, std::size_t size) noexcept { kelmo_free(object, size); }

    PluginBase() : interfaces(nullptr) {}
    // A copy has its own, empty list: the records belong to the source.
    PluginBase(const PluginBase&) : interfaces(nullptr) {}
    PluginBase& operator=(const PluginBase&) = delete;

    // Releases the interfaces oldest first: each record goes after the rest of the chain behind it.
    virtual ~PluginBase();

    // The interface with this identifier, or null. The list is compared by its low 32 bits.
    virtual PluginInterface* getInterface(InterfaceID id);

    virtual void releaseInterface(PluginInterface*) {}

    // Puts a record at the head; always true. When the record cannot be allocated the head becomes
    // null all the same and the records that were there are dropped.
    virtual bool addInterface(PluginInterface* iface, std::uint32_t owned);

    // Unlinks and frees the first record that holds this pointer; the interface is not released.
    virtual bool removeInterface(PluginInterface* iface);

  private:
    InterfaceRecord* interfaces;
};

inline void PluginInterface::release() { getPlugin()->releaseInterface(this); }

inline PluginBase::~PluginBase() {
    InterfaceRecord* oldest = nullptr;
    while (interfaces != nullptr) {
        InterfaceRecord* next = interfaces->next;
        interfaces->next = oldest;
        oldest = interfaces;
        interfaces = next;
    }
    while (oldest != nullptr) {
        InterfaceRecord* next = oldest->next;
        if (oldest->owned == 1 && oldest->iface != nullptr) oldest->iface->release();
        kelmo_free(oldest, sizeof(InterfaceRecord));
        oldest = next;
    }
}

inline PluginInterface* PluginBase::getInterface(InterfaceID id) {
    for (InterfaceRecord* record = interfaces; record != nullptr; record = record->next) {
        if (record->iface != nullptr && record->iface->getInterfaceID() == static_cast<std::uint32_t>(id))
            return record->iface;
    }
    return nullptr;
}

inline bool PluginBase::addInterface(PluginInterface* iface, std::uint32_t owned) {
    auto* record = static_cast<InterfaceRecord*>(kelmo_malloc(sizeof(InterfaceRecord)));
    if (record != nullptr) *record = InterfaceRecord{iface, owned, interfaces};
    interfaces = record;
    return true;
}

inline bool PluginBase::removeInterface(PluginInterface* iface) {
    for (InterfaceRecord** link = &interfaces; *link != nullptr; link = &(*link)->next) {
        InterfaceRecord* record = *link;
        if (record->iface != iface) continue;
        *link = record->next;
        kelmo_free(record, sizeof(InterfaceRecord));
        return true;
    }
    return false;
}

}  // namespace KUtils
