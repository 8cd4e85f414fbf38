// The catalogue of plugin types, read from JSON files (docs/plugin-types.md).
//
// Ownership: the catalogue owns its types; pointers to them stay valid as long as it lives. Errors are chains of
// records: the file, then the path to the key.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/catalogue/plugin_type.h"
#include "kelmo/core/error_record.h"

namespace Offline {

class Catalogue {
  public:
    Catalogue() = default;
    Catalogue(const Catalogue&) = delete;
    Catalogue& operator=(const Catalogue&) = delete;

    // Adds the types of every *.json file of a folder, by the order of the file names. Null on success. A file
    // with an error adds nothing; the files before it stay added.
    KUtils::ErrorRecord* addFolder(const char* directory);

    // Adds the types of one text. `shownName` names it in messages.
    KUtils::ErrorRecord* addText(const char* text, std::size_t length, const char* shownName);

    // Adds a type, or replaces the one of the same name in its place.
    void add(std::unique_ptr<PluginType> type);

    PluginType* find(std::string_view name) const;  // null: no such type
    // The type's name that is nearest to `name`, or null when none is near.
    const char* nearest(const char* name) const;

    std::size_t count() const { return order.size(); }
    PluginType& at(std::size_t index) const { return *order[index]; }

  private:
    std::vector<std::unique_ptr<PluginType>> types;  // replaced ones too: plugins may still point to them
    std::vector<PluginType*> order;
    std::unordered_map<std::string_view, std::size_t> placeByName;  // into `order`
};

}  // namespace Offline
