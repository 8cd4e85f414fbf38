#include "core/scene/name_table.h"

#include <cstring>

#include "core/plugin/offline_plugin.h"

namespace Offline {
namespace {

constexpr std::size_t FIRST_SLOTS = 16;

}  // namespace

// FNV-1a, then a mix so that the low bits, which pick the slot, depend on every byte.
std::uint32_t NameTable::hash(const char* name) {
    std::uint32_t value = 2166136261u;
    for (; *name != '\0'; ++name) value = (value ^ static_cast<unsigned char>(*name)) * 16777619u;
    value ^= value >> 15;
    value *= 0x2c1b3c6du;
    return value ^ (value >> 12);
}

OfflinePlugin* NameTable::find(const char* name, std::uint32_t hash) const {
    if (slots.empty()) return nullptr;
    const std::size_t mask = slots.size() - 1;
    for (std::size_t i = hash & mask; slots[i] != nullptr; i = (i + 1) & mask) {
        if (slots[i]->nameHash == hash && std::strcmp(slots[i]->name, name) == 0) return slots[i];
    }
    return nullptr;
}

void NameTable::place(OfflinePlugin* plugin) {
    const std::size_t mask = slots.size() - 1;
    std::size_t i = plugin->nameHash & mask;
    while (slots[i] != nullptr) i = (i + 1) & mask;
    slots[i] = plugin;
}

void NameTable::grow() {
    std::vector<OfflinePlugin*> old(slots.empty() ? FIRST_SLOTS : slots.size() * 2, nullptr);
    old.swap(slots);
    for (OfflinePlugin* plugin : old) {
        if (plugin != nullptr) place(plugin);
    }
}

void NameTable::insert(OfflinePlugin* plugin) {
    if ((count + 1) * 4 > slots.size() * 3) grow();
    place(plugin);
    ++count;
}

// Closes the gap behind the erased slot, so that no walk from a home slot meets a hole before its plugin.
void NameTable::erase(const OfflinePlugin* plugin) {
    const std::size_t mask = slots.size() - 1;
    std::size_t hole = plugin->nameHash & mask;
    while (slots[hole] != plugin) hole = (hole + 1) & mask;
    for (std::size_t i = (hole + 1) & mask; slots[i] != nullptr; i = (i + 1) & mask) {
        const std::size_t home = slots[i]->nameHash & mask;
        if (((i - home) & mask) < ((i - hole) & mask)) continue;  // its home lies behind the hole
        slots[hole] = slots[i];
        hole = i;
    }
    slots[hole] = nullptr;
    --count;
}

void NameTable::clear() {
    slots = {};
    count = 0;
}

}  // namespace Offline
