// Finds the living plugins of a scene by name in constant time: open addressing over plugin pointers, 8 bytes a slot.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Offline {

class OfflinePlugin;

class NameTable {
  public:
    static std::uint32_t hash(const char* name);

    OfflinePlugin* find(const char* name, std::uint32_t hash) const;  // null: none
    void insert(OfflinePlugin* plugin);                               // its name must not be there
    void erase(const OfflinePlugin* plugin);                          // it must be there
    std::size_t size() const { return count; }
    void clear();

  private:
    void grow();
    void place(OfflinePlugin* plugin);

    std::vector<OfflinePlugin*> slots;  // a power of two; null: empty
    std::size_t count = 0;
};

}  // namespace Offline
