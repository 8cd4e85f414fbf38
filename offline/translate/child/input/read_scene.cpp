#include "child/input/read_scene.h"

#include <assimp/BaseImporter.h>
#include <assimp/config.h>
#include <assimp/postprocess.h>

#include <algorithm>
#include <assimp/Importer.hpp>
#include <memory>
#include <new>
#include <set>
#include <string>

#include "child/input/scene_folder.h"
#include "child/input/scene_kind.h"
#include "convert/output/deferral.h"
#include "convert/scene_converter.h"
#include "core/scene_file/json/utf8.h"
#include "json_text.h"
#include "problem.h"

namespace Translation {
namespace {

constexpr std::size_t MAX_COMPLAINT_BYTES = 300;

const char* extensionOf(SceneKind kind) {
    switch (kind) {
        case SceneKind::glb:
            return "glb";
        case SceneKind::gltf:
            return "gltf";
        case SceneKind::fbx:
            return "fbx";
        default:
            return "obj";
    }
}

// Only the readers of this kind: what the contents look like must not choose another one.
void keepReaders(Assimp::Importer& importer, SceneKind kind) {
    const std::string extension = extensionOf(kind);
    for (std::size_t i = importer.GetImporterCount(); i-- > 0;) {
        Assimp::BaseImporter* const reader = importer.GetImporter(i);
        std::set<std::string> extensions;
        reader->GetExtensionList(extensions);
        if (extensions.count(extension) != 0) continue;
        importer.UnregisterLoader(reader);
        const std::unique_ptr<Assimp::BaseImporter> ours(reader);  // no longer the importer's
    }
}

// What the reader complains of, as the end of a sentence.
std::string complaint(const std::string& text) {
    std::string clean;
    for (std::size_t i = 0; i < text.size() && clean.size() < MAX_COMPLAINT_BYTES;) {
        const std::size_t length = Offline::utf8Length(text.data() + i, text.data() + text.size());
        const bool readable = length > 0 && static_cast<unsigned char>(text[i]) >= 0x20;
        clean += readable ? text.substr(i, length) : "?";
        i += length > 0 ? length : 1;
    }
    while (!clean.empty() && (clean.back() == '.' || clean.back() == ' ')) clean.pop_back();
    return clean.empty() ? "the reader does not say why" : clean;
}

// Why the reader gave up, or what it read although it should not have.
void checkFiles(const Options& options, const SceneFolder& folder, bool needsThemAll) {
    const std::string shown = "\"" + options.scene + "\"";
    if (!folder.outside().empty()) {
        throw Failure{Problem::outside, shown + " cannot be read: it refers to \"" + folder.outside().front() +
                                            "\", which lies outside of its folder."};
    }
    if (!folder.tooLarge().empty()) {
        throw Failure{Problem::tooLarge, shown + " cannot be read: the file \"" + folder.tooLarge().front() +
                                             "\" that belongs to it has more than " +
                                             std::to_string(options.maxInputBytes) + " bytes."};
    }
    if (needsThemAll && !folder.missing().empty()) {
        throw Failure{Problem::damaged,
                      shown + " is damaged: it refers to \"" + folder.missing().front() + "\", which does not exist."};
    }
}

const aiScene& readWithReader(Assimp::Importer& importer, const Options& options, SceneKind kind,
                              const SceneFolder& folder) {
    keepReaders(importer, kind);
    // Pivots are folded into the nodes, so that the hierarchy is the DCC's.
    importer.SetPropertyBool(AI_CONFIG_IMPORT_FBX_PRESERVE_PIVOTS, false);
    const aiScene* scene = importer.ReadFile(folder.scene(), aiProcess_Triangulate);
    // An OBJ file can do without its materials; what is wrong with it then is something else.
    checkFiles(options, folder, scene == nullptr && kind != SceneKind::obj);
    if (scene == nullptr) {
        const std::string why = complaint(importer.GetErrorString());
        if (why.find("bad_alloc") != std::string::npos) throw std::bad_alloc();
        throw Failure{Problem::damaged, "\"" + options.scene + "\" is damaged: " + why + "."};
    }
    return *scene;
}

void writeHeader(SceneOutput& out, const SceneFrame& frame, const std::string& fileName) {
    std::string& text = out.text();
    text += "{\"kelmo-scene\":1";
    if (!frame.up.empty()) {
        text += ",\"up\":";
        appendText(text, frame.up);
    }
    if (frame.metresPerUnit > 0) {
        text += ",\"unit\":";
        appendNumber(text, frame.metresPerUnit);
    }
    text += ",\"source\":";
    appendText(text, fileName);
    text += "}\n";
}

bool holdsAnything(const std::vector<Record>& records) {
    return std::any_of(records.begin(), records.end(), [](const Record& record) {
        return record.kind() == RecordKind::geometry || record.kind() == RecordKind::light ||
               record.kind() == RecordKind::camera;
    });
}

}  // namespace

void translateScene(const Options& options, Report& report) {
    std::uint64_t bytes = 0;
    SceneFacts facts;
    {
        const FileDescriptor file = openScene(options.scene, options.maxInputBytes, bytes);
        facts = inspectScene(file.get(), options.scene, bytes);
    }
    const std::string fileName = options.scene.substr(options.scene.rfind('/') + 1);
    Assimp::Importer importer;
    SceneFolder& folder = *new SceneFolder(options.scene, options.maxInputBytes);
    importer.SetIOHandler(&folder);  // which owns it from here
    const aiScene& scene = readWithReader(importer, options, facts.kind, folder);

    SceneConverter converter(scene, facts, folder, fileName, report);
    std::vector<Record> records = converter.convert();
    if (!holdsAnything(records)) {
        throw Failure{Problem::damaged, "\"" + options.scene + "\" is damaged: it holds no mesh, light or camera."};
    }
    for (const std::string& name : folder.missing()) Report::Line(report, "missing").text("file", name);
    const std::size_t deferred = markDeferred(records, options.deferKinds);

    SceneOutput out(options.output);
    writeHeader(out, converter.frame(), fileName);
    for (const Record& record : records) record.write(out);
    out.finish();
    Report::Line(report, "totals")
        .integer("plugins", static_cast<long long>(records.size()))
        .integer("deferred", static_cast<long long>(deferred));
}

}  // namespace Translation
