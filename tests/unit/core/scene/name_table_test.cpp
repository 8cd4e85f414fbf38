#include "core/scene/name_table.h"

#include <string>
#include <unordered_map>
#include <vector>

#include "core/plugin/offline_plugin.h"
#include "support/check.h"

using namespace Offline;

namespace {

// A reproducible stream of numbers.
struct Numbers {
    std::uint32_t state;
    std::uint32_t below(std::uint32_t end) {
        state = state * 1664525u + 1013904223u;
        return (state >> 8) % end;
    }
};

using HashFunction = std::uint32_t (*)(const char* name);

std::uint32_t constantHash(const char*) { return 0x77u; }
std::uint32_t fourHashes(const char* name) { return 13u + (NameTable::hash(name) & 3u); }

// Random insertions, removals and look-ups, against a reference.
void compareWithReference(HashFunction hash, int steps, std::uint32_t nameCount) {
    PluginType type("T");
    type.declare({});
    std::vector<OfflinePlugin*> plugins;
    for (std::uint32_t i = 0; i < nameCount; ++i) {
        const std::string name = "plugin" + std::to_string(i);
        plugins.push_back(OfflinePlugin::make(type, name.c_str(), hash(name.c_str())));
    }
    NameTable table;
    std::unordered_map<std::string, OfflinePlugin*> reference;
    Numbers numbers{12345};
    bool same = true;
    for (int step = 0; step < steps; ++step) {
        OfflinePlugin* plugin = plugins[numbers.below(nameCount)];
        const bool known = reference.count(plugin->name) != 0;
        same = same && (table.find(plugin->name, hash(plugin->name)) == plugin) == known;
        if (!known) {
            table.insert(plugin);
            reference.emplace(plugin->name, plugin);
        } else if (numbers.below(2) == 0) {
            table.erase(plugin);
            reference.erase(plugin->name);
        }
        same = same && table.size() == reference.size();
    }
    for (OfflinePlugin* plugin : plugins)
        same =
            same && (table.find(plugin->name, hash(plugin->name)) != nullptr) == (reference.count(plugin->name) != 0);
    CHECK(same);
    CHECK(!reference.empty());
    for (OfflinePlugin* plugin : plugins) OfflinePlugin::destroy(plugin);
}

}  // namespace

TEST_CASE(namesAreFoundUnderAnyHash) {
    CHECK_ROW("real hash");
    compareWithReference(NameTable::hash, 20000, 700);
    CHECK_ROW("one hash for all");
    compareWithReference(constantHash, 4000, 60);
    CHECK_ROW("four hashes");
    compareWithReference(fourHashes, 8000, 120);
}

TEST_CASE(anEmptyTableFindsNothing) {
    NameTable table;
    CHECK(table.find("x", NameTable::hash("x")) == nullptr);
    CHECK_EQ(table.size(), std::size_t{0});
}

TEST_CASE(hashesDependOnEveryByte) {
    const char* names[] = {"", "a", "b", "ab", "ba", "node_1", "node_2", "node_10", "\xff", "\x7f"};
    for (const char* a : names) {
        for (const char* b : names) {
            if (a != b) CHECK(NameTable::hash(a) != NameTable::hash(b));
        }
    }
}
