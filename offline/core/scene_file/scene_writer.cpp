#include "core/scene_file/scene_writer.h"

#include "core/scene_file/json/json_writer.h"
#include "core/scene_file/records/value_writer.h"

namespace Offline {

void SceneWriter::header() {
    const SceneHeader& kept = contents.header();
    line = "{\"kelmo-scene\":1";
    if (!kept.up.empty()) appendText(line += ",\"up\":", kept.up.c_str());
    if (!kept.unit.empty()) line += ",\"unit\":" + kept.unit;
    if (!kept.source.empty()) appendText(line += ",\"source\":", kept.source.c_str());
    line += "}\n";
}

void SceneWriter::plugin(const OfflinePlugin& plugin) {
    const PluginType& type = plugin.type();
    line = "{\"type\":";
    appendText(line, type.typeName().c_str());
    appendText(line += ",\"name\":", plugin.name);
    if (plugin.nodeName() != nullptr) appendText(line += ",\"node\":", plugin.nodeName());

    std::string rigid;
    ValueWriter writer(line, contents);
    for (std::int32_t i = 0; i < plugin.count(); ++i) {
        KUtils::KelmoPluginParameter& value = *plugin.at(i);
        const int index = type.paramIndex(value.getName());
        line += i == 0 ? ",\"params\":{" : ",";
        appendText(line, value.getName());
        line += ':';
        writer.write(value, type.param(static_cast<std::size_t>(index)), type.shape(static_cast<std::size_t>(index)));
        if (value.getInterface(KUtils::EXT_CLONEABLE_PARAM) == nullptr)
            appendText(rigid += rigid.empty() ? "" : ",", value.getName());
    }
    if (plugin.count() != 0) line += '}';
    if (!rigid.empty()) line += ",\"rigid\":[" + rigid + "]";
    line += "}\n";
}

bool SceneWriter::isAnswered(const DeferredRecord& record) const {
    return record.taken || contents.find(record.name.c_str()) != nullptr;
}

const OfflinePlugin* SceneWriter::placeOf(const DeferredRecord& record, const OfflinePlugin* first) {
    return record.after == nullptr ? first : SceneContents::next(record.after);
}

}  // namespace Offline
