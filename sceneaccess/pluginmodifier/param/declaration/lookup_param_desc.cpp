#include "param/declaration/lookup_param_desc.h"

#include <cstdint>
#include <cstring>

#include "frame/problem.h"
#include "host/state.h"

namespace KUtils::Python {

namespace {

// The memo: where in which table a name was found. A place is only a guess, the record that stands there now is
// compared before it is believed.
struct Place {
    const ParamDesc* records;
    std::int32_t count;
    std::int32_t index;
};

constexpr std::size_t PLACES = 512;
Place memo[PLACES];

template <class Word>
std::uint64_t wordAt(const char* bytes) {
    Word word;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

// Eight bytes at a time, or four; the last ones overlap those before.
std::uint64_t hashOf(const char* name) {
    constexpr std::uint64_t FACTOR = 0x9e3779b97f4a7c15;
    std::size_t left = std::strlen(name);
    std::uint64_t hash = left;
    if (left >= 8) {
        for (; left > 8; left -= 8, name += 8) hash = (hash ^ wordAt<std::uint64_t>(name)) * FACTOR;
        hash ^= wordAt<std::uint64_t>(name + left - 8);
    } else if (left >= 4) {
        hash ^= wordAt<std::uint32_t>(name) << 32 | wordAt<std::uint32_t>(name + left - 4);
    } else {
        for (; left > 0; --left) hash = hash << 8 | static_cast<unsigned char>(*name++);
    }
    return hash * FACTOR;
}

Place& placeOf(const ParamTable& table, const char* name) {
    const std::uint64_t hash = hashOf(name) ^ reinterpret_cast<std::uintptr_t>(table.records);
    return memo[(hash ^ hash >> 32) % PLACES];
}

bool hasName(const ParamDesc& record, const char* name) {
    return record.name != nullptr && std::strcmp(record.name, name) == 0;
}

}  // namespace

const ParamDesc* findParamDesc(const Plugin* plugin, const char* name) {
    ensureInitialized();
    const ParamTable* table = plugin->descriptor != nullptr ? plugin->descriptor->params : nullptr;
    if (table == nullptr || table->count <= 0) return nullptr;
    Place& place = placeOf(*table, name);
    if (place.records == table->records && place.count == table->count && hasName(table->records[place.index], name))
        return &table->records[place.index];
    for (std::int32_t i = 0; i < table->count; ++i) {
        if (!hasName(table->records[i], name)) continue;
        place = Place{table->records, table->count, i};
        return &table->records[i];
    }
    return nullptr;
}

const ParamDesc& lookupParamDesc(const Plugin* plugin, const char* name) {
    if (const ParamDesc* record = findParamDesc(plugin, name)) return *record;
    throwError("A parameter with name \"%s\" doesn't exist for plugin \"%s\".", name, pluginName(plugin));
}

}  // namespace KUtils::Python
