#include "param/lookup_param_desc.h"

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

// Eight bytes at a time; the last eight overlap those before.
std::uint64_t hashOf(const char* name) {
    constexpr std::uint64_t FACTOR = 0x9e3779b97f4a7c15;
    std::size_t left = std::strlen(name);
    std::uint64_t hash = left;
    std::uint64_t word = 0;
    if (left < sizeof word) {
        for (; left > 0; --left) word = word << 8 | static_cast<unsigned char>(*name++);
    } else {
        for (; left > sizeof word; left -= sizeof word, name += sizeof word) {
            std::memcpy(&word, name, sizeof word);
            hash = (hash ^ word) * FACTOR;
        }
        std::memcpy(&word, name + left - sizeof word, sizeof word);
    }
    return (hash ^ word) * FACTOR;
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
