#include "convert/scene_converter.h"

#include <iterator>

#include "json_text.h"
#include "problem.h"

namespace Translation {

SceneConverter::SceneConverter(const aiScene& scene, const SceneFacts& facts, const SceneFolder& folder,
                               std::string fileName, Report& report)
    : scene_(scene),
      facts_(facts),
      kind_(facts.kind),
      folder_(folder),
      report_(report),
      fileName_(std::move(fileName)),
      names_(report) {}

std::vector<Record> SceneConverter::convert() {
    if (scene_.mRootNode == nullptr) {
        throw Failure{Problem::damaged, "\"" + fileName_ + "\" is damaged: it has no nodes."};
    }
    readFrame();
    collectNodes(*scene_.mRootNode, true);
    nameNodes();
    nameMaterials();
    nameMeshes();

    addMaterials();
    addMeshes();
    addNodes();
    addLights();
    addCameras();
    addSettings();

    reportUnused();

    std::vector<Record> all;
    for (std::vector<Record>* part : {&settings_, &textures_, &materials_, &meshes_, &nodes_, &lights_, &cameras_}) {
        all.insert(all.end(), std::make_move_iterator(part->begin()), std::make_move_iterator(part->end()));
    }
    return all;
}

// The reader passes over what no node of a glTF file leads to.
void SceneConverter::reportUnused() {
    const auto report = [this](std::optional<unsigned> inFile, unsigned translated, const char* what) {
        if (!inFile || *inFile <= translated) return;
        leftOut(std::to_string(*inFile - translated) + " of " + std::to_string(*inFile) + " " + what,
                "nothing in the file uses them");
    };
    const unsigned ofReader = scene_.mNumMaterials > 0 ? 1 : 0;  // its own, which stands last
    report(facts_.materials, scene_.mNumMaterials - ofReader, "materials");
    report(facts_.cameras, scene_.mNumCameras, "cameras");
    if (scene_.mNumAnimations != 0) leftOut("animations", "an offline scene stands still");
}

void SceneConverter::leftOut(const std::string& what, const std::string& why) {
    Report::Line(report_, "left-out").text("what", what).text("why", why);
}

std::string transformText(const aiMatrix4x4& m) {
    const float columns[3][3] = {{m.a1, m.b1, m.c1}, {m.a2, m.b2, m.c2}, {m.a3, m.b3, m.c3}};
    std::string text = "[[";
    for (int i = 0; i < 3; ++i) {
        if (i > 0) text += ',';
        appendNumbers(text, columns[i], 3);
    }
    text += "],[";
    appendNumber(text, static_cast<double>(m.a4));
    text += ',';
    appendNumber(text, static_cast<double>(m.b4));
    text += ',';
    appendNumber(text, static_cast<double>(m.c4));
    text += "]]";
    return text;
}

}  // namespace Translation
