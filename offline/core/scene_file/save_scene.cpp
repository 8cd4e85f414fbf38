#include "core/base/error_maker.h"
#include "core/files/replacing_file.h"
#include "core/scene_file/records/value_writer.h"
#include "core/scene_file/scene_file_api.h"
#include "core/scene_file/scene_writer.h"

namespace Offline {

KUtils::ErrorRecord* saveScene(SceneContents& contents, const char* path) {
    if (path == nullptr || *path == '\0') return makeError(nullptr, nullptr, "no file name");
    ReplacingFile file;
    std::string reason;
    const auto writeLine = [&](const std::string& line) { return file.write(line.data(), line.size(), reason); };
    if (file.open(path, reason) && SceneWriter(contents).writeLines(writeLine) && file.commit(reason)) return nullptr;
    return makeError(path, nullptr, "the file cannot be written: %s", reason.c_str());
}

void saveSceneText(SceneContents& contents, TextSink sink, void* user) {
    SceneWriter(contents).writeLines([&](const std::string& line) {
        sink(user, line.data(), line.size());
        return true;
    });
}

void describeValue(KUtils::KelmoPluginParameter* value, int maxElements, TextSink sink, void* user) {
    std::string text;
    if (value == nullptr) {
        text = "(none)";
    } else {
        ValueWriter(text, maxElements).describe(*value);
    }
    sink(user, text.data(), text.size());
}

}  // namespace Offline
