#include "core/catalogue/plugin_type.h"

#include "core/base/nearest_name.h"
#include "core/catalogue/type_names.h"

namespace Offline {

const char* kindName(PluginKind kind) {
    for (const KindName& row : KIND_NAMES) {
        if (row.kind == kind) return row.name;
    }
    return "other";
}

void PluginType::declare(std::vector<ParamDeclaration>&& parameters) {
    declared = std::move(parameters);
    records.clear();
    records.reserve(declared.size());
    for (const ParamDeclaration& declaration : declared) {
        records.push_back(declaration.desc);
        records.back().name = declaration.name.c_str();
        records.back().defaultString = declaration.hasDefaultText ? declaration.defaultText.c_str() : nullptr;
        indexByName.emplace(declaration.name, static_cast<int>(records.size()) - 1);  // the first of a name stays
    }
    table.count = static_cast<std::int32_t>(records.size());
    table.records = records.data();
    params = &table;
}

int PluginType::paramIndex(const char* paramName) const {
    const auto found = indexByName.find(paramName);
    return found != indexByName.end() ? found->second : -1;
}

const KUtils::ParamDesc* PluginType::findParam(const char* paramName) const {
    const int index = paramIndex(paramName);
    return index >= 0 ? &records[static_cast<std::size_t>(index)] : nullptr;
}

const char* PluginType::nearestParam(const char* paramName) const {
    NearestName nearest(paramName);
    for (const KUtils::ParamDesc& record : records) nearest.offer(record.name);
    return nearest.best();
}

}  // namespace Offline
