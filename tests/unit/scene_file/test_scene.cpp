#include "test_scene.h"

const char TEST_TYPES[] = R"({"family":"Test","types":[
{"name":"Every","kind":"other","params":[
{"name":"int","type":"int"},{"name":"float","type":"float"},{"name":"double","type":"double"},
{"name":"bool","type":"bool"},{"name":"vector","type":"vector"},{"name":"color","type":"color"},
{"name":"acolor","type":"acolor"},{"name":"matrix","type":"matrix"},{"name":"transform","type":"transform"},
{"name":"string","type":"string"},{"name":"plugin","type":"plugin"},{"name":"texture","type":"texture"},
{"name":"texture_float","type":"texture_float"},{"name":"texture_int","type":"texture_int"},
{"name":"texture_vector","type":"texture_vector"},{"name":"texture_matrix","type":"texture_matrix"},
{"name":"texture_transform","type":"texture_transform"},{"name":"out","type":"output_texture"},
{"name":"lists","type":"list"},{"name":"lists_ints","type":"list","shape":"ints"},
{"name":"lists_floats","type":"list","shape":"floats"},{"name":"lists_vectors","type":"list","shape":"vectors"},
{"name":"lists_plugins","type":"list","shape":"plugins"},{"name":"channels","type":"list","shape":"map_channels"},
{"name":"ints","type":"int","list":true},{"name":"floats","type":"float","list":true},
{"name":"doubles","type":"double","list":true},{"name":"bools","type":"bool","list":true},
{"name":"vectors","type":"vector","list":true},{"name":"colors","type":"color","list":true},
{"name":"acolors","type":"acolor","list":true},{"name":"matrices","type":"matrix","list":true},
{"name":"transforms","type":"transform","list":true},{"name":"strings","type":"string","list":true},
{"name":"plugins","type":"plugin","list":true},{"name":"textures","type":"texture","list":true},
{"name":"textures_float","type":"texture_float","list":true}]},
{"name":"Material","kind":"material","params":[{"name":"color","type":"texture"},{"name":"next","type":"plugin"}]},
{"name":"Node","kind":"node","params":[{"name":"material","type":"plugin"},{"name":"visible","type":"bool"}]}
]})";

TestScene::TestScene() : contents(ownCatalogue) {
    takeError(ownCatalogue.addText(TEST_TYPES, sizeof TEST_TYPES - 1, "types"));
}

TestScene::TestScene(TestScene& main) : contents(main.contents.catalogue(), &main.contents) {}

std::string takeError(KUtils::ErrorRecord* error) {
    std::string text;
    for (const KUtils::ErrorRecord* record = error; record != nullptr; record = record->cause) {
        if (record != error) text += " | ";
        if (record->location != nullptr) text += "[" + std::string(record->location) + "] ";
        text += record->message;
    }
    KUtils::releaseError(error);
    return text;
}

std::string TestScene::read(const std::string& text) {
    return takeError(Offline::readSceneText(contents, text.data(), text.size(), "s"));
}

std::string TestScene::text() {
    std::string text;
    Offline::saveSceneText(
        contents,
        [](void* user, const char* line, std::size_t length) { static_cast<std::string*>(user)->append(line, length); },
        &text);
    return text;
}

std::string TestScene::lines() {
    const std::string all = text();
    return all.substr(all.find('\n') + 1);
}

KUtils::KelmoPluginParameter* TestScene::value(const char* param) {
    Offline::OfflinePlugin* plugin = find("p");
    return plugin != nullptr ? plugin->find(param) : nullptr;
}
