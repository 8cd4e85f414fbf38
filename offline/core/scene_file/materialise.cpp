#include <cstring>

#include "core/scene_file/scene_builder.h"
#include "core/scene_file/scene_file_api.h"

namespace Offline {
namespace {

// Makes the plugin of a waiting record; on null the record still waits.
OfflinePlugin* build(SceneContents& contents, DeferredRecord& record, std::vector<OpenValue>& open) {
    PluginLine line;
    PluginLineReader reader;
    JsonText text(record.line.data(), record.line.data() + record.line.size());
    if (!reader.read(text, contents, line)) return nullptr;
    OfflinePlugin* plugin = buildPlugin(contents, line, record.lineNumber, open);
    if (plugin != nullptr) contents.deferred().take(record);
    return plugin;
}

// Makes a record's plugin and, one after the other, those of all waiting records that it refers to.
OfflinePlugin* buildWithReferences(SceneContents& contents, DeferredRecord& first) {
    std::vector<OpenValue> open;
    OfflinePlugin* plugin = build(contents, first, open);
    for (std::size_t i = 0; i < open.size(); ++i) {
        for (std::size_t k = 0; k < open[i].references.size(); ++k) {
            const std::string name = open[i].references[k].name;
            if (contents.find(name.c_str()) != nullptr) continue;
            DeferredRecord* record = contents.deferred().findByName(name);
            if (record != nullptr) build(contents, *record, open);
        }
    }
    for (const OpenValue& value : open) settle(contents, value, [](const OpenValue&, const OpenReference&) {});
    return plugin;
}

bool isOfKind(const PluginType* type, const char* kind) {
    return kind == nullptr || (type != nullptr && std::strcmp(kindName(type->kind), kind) == 0);
}

}  // namespace

KUtils::Plugin* materialise(SceneContents& contents, const char* node, const char* kind) {
    if (node == nullptr) return nullptr;
    OfflinePlugin* plugin = contents.findByNode(node);
    if (plugin != nullptr) return isOfKind(&plugin->type(), kind) ? plugin : nullptr;
    DeferredRecord* record = contents.deferred().findByNode(node);
    if (record == nullptr || !isOfKind(contents.catalogue().find(record->type), kind)) return nullptr;
    return buildWithReferences(contents, *record);
}

}  // namespace Offline
