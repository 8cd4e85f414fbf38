// Turns a scene as the reader gives it into the records of an offline scene. One object for one scene; the
// parts stand in files of their own, one for each kind of record.
//
// Ownership: the reader's scene must outlive the records. Throws Failure when the scene makes no sense.
#pragma once

#include <assimp/scene.h>

#include <cstring>
#include <string>
#include <unordered_map>
#include <vector>

#include "child/input/scene_folder.h"
#include "child/input/scene_kind.h"
#include "child/report.h"
#include "convert/output/names.h"
#include "convert/output/record.h"

namespace Translation {

// How the numbers of a scene are meant; empty and 0 when the file does not say.
struct SceneFrame {
    std::string up;  // "x", "y" or "z"
    double metresPerUnit = 0;
    std::string generator;  // the program that wrote the file
};

class SceneConverter {
  public:
    // `fileName` is the scene's name without its folder.
    SceneConverter(const aiScene& scene, const SceneFacts& facts, const SceneFolder& folder, std::string fileName,
                   Report& report);

    // The records in the order in which they are written.
    std::vector<Record> convert();

    const SceneFrame& frame() const { return frame_; }

  private:
    // convert/frame.cpp
    void readFrame();
    void reportFrame(const char* unitSource, const char* upSource);
    void addSettings();

    // convert/nodes.cpp
    void collectNodes(const aiNode& node, bool isRoot);
    void nameNodes();
    void addNodes();
    bool isStandInRoot(const aiNode& node) const;
    void addParts(const aiNode& node, const std::string& name);
    void showMesh(Record& record, unsigned mesh);

    // convert/meshes.cpp
    void nameMeshes();
    void addMeshes();

    // convert/materials.cpp
    void nameMaterials();
    void addMaterials();
    bool isStandInMaterial(unsigned index) const;
    void addColours(Record& record, const aiMaterial& material);
    void addSurface(Record& record, const aiMaterial& material);

    // convert/textures.cpp: each gives the record of what a slot holds, empty when it holds nothing.
    std::string image(const aiMaterial& material, aiTextureType type);
    std::string placement(const aiMaterial& material, aiTextureType type, const std::string& image);
    std::string normalMap(const std::string& image);

    // convert/lights_cameras.cpp
    void addLights();
    void addCameras();
    void carry(Record& record, const std::string& dccName);

    void reportUnused();
    void leftOut(const std::string& what, const std::string& why);

    const aiScene& scene_;
    SceneFacts facts_;
    SceneKind kind_;
    const SceneFolder& folder_;
    Report& report_;
    std::string fileName_;
    Names names_;
    SceneFrame frame_;

    std::vector<Record> settings_, textures_, materials_, meshes_, nodes_, lights_, cameras_;
    std::vector<const aiNode*> dccNodes_;                         // parents before children, stand-ins left out
    std::unordered_map<const aiNode*, std::string> nodeRecords_;  // node to record
    std::unordered_map<std::string, std::string> nodeNames_;      // DCC name to record, the first of each
    std::vector<std::string> materialNames_;                      // by material number; empty: left out
    std::vector<std::string> meshNames_;                          // by mesh number; empty: left out
    std::unordered_map<std::string, std::string> images_;         // what an image is made of, to record
    std::unordered_map<std::string, std::string> placements_;     // what a placement is made of, to record
    std::unordered_map<std::string, std::string> normalMaps_;     // image to record
};

// A name as the reader keeps it; a zero byte ends it, as it does in a scene.
inline std::string textOf(const aiString& text) { return std::string(text.data, strnlen(text.data, text.length)); }

// A name, or `kind` for what the DCC did not name.
inline std::string nameOr(const aiString& name, const char* kind) { return textOf(name).empty() ? kind : textOf(name); }

// The JSON of a transform: three columns and the offset.
std::string transformText(const aiMatrix4x4& matrix);

}  // namespace Translation
