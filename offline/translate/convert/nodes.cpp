// The hierarchy: a GeomNode for each node of the DCC, and one more for each further mesh of a node.
#include "convert/scene_converter.h"

namespace Translation {

// The reader puts a root of its own above the scene's nodes; it stands for nothing in the file.
bool SceneConverter::isStandInRoot(const aiNode& node) const {
    if (node.mNumMeshes != 0 || !node.mTransformation.IsIdentity()) return false;
    const std::string name = textOf(node.mName);
    switch (kind_) {
        case SceneKind::fbx:
            return name == "RootNode";
        case SceneKind::obj:
            return true;
        default:
            return name == "ROOT";
    }
}

void SceneConverter::collectNodes(const aiNode& node, bool isRoot) {
    if (!isRoot || !isStandInRoot(node)) dccNodes_.push_back(&node);
    for (unsigned i = 0; i < node.mNumChildren; ++i) collectNodes(*node.mChildren[i], false);
}

void SceneConverter::nameNodes() {
    for (const aiNode* node : dccNodes_) names_.announce(nameOr(node->mName, "node"));
    for (unsigned i = 0; i < scene_.mNumMaterials; ++i) {
        names_.announce(nameOr(scene_.mMaterials[i]->GetName(), "material"));
    }
    for (const aiNode* node : dccNodes_) {
        std::string name = names_.take(nameOr(node->mName, "node"), "node");
        nodeNames_.try_emplace(textOf(node->mName), name);
        nodeRecords_[node] = std::move(name);
    }
}

void SceneConverter::showMesh(Record& record, unsigned mesh) {
    if (mesh >= scene_.mNumMeshes || meshNames_[mesh].empty()) return;
    record.refer("geometry", {meshNames_[mesh], ""});
    const unsigned material = scene_.mMeshes[mesh]->mMaterialIndex;
    if (material < materialNames_.size() && !materialNames_[material].empty()) {
        record.refer("material", {materialNames_[material], ""});
    }
    record.setVisible();
}

void SceneConverter::addNodes() {
    for (const aiNode* node : dccNodes_) {
        const std::string& name = nodeRecords_[node];
        Record& record = nodes_.emplace_back(RecordKind::node, "GeomNode", name, textOf(node->mName));
        record.json("transform", transformText(node->mTransformation));
        const auto parent = nodeRecords_.find(node->mParent);
        if (parent != nodeRecords_.end()) record.refer("parent", {parent->second, ""});
        if (node->mNumMeshes == 1) showMesh(record, node->mMeshes[0]);
        if (node->mNumMeshes > 1) addParts(*node, name);
    }
}

// A node shows one geometry: of several meshes each gets a node below.
void SceneConverter::addParts(const aiNode& node, const std::string& name) {
    for (unsigned i = 0; i < node.mNumMeshes; ++i) {
        const std::string part = names_.take(name + "@part" + std::to_string(i + 1), "node");
        Record& record = nodes_.emplace_back(RecordKind::node, "GeomNode", part, textOf(node.mName));
        record.refer("parent", {name, ""});
        showMesh(record, node.mMeshes[i]);
    }
}

}  // namespace Translation
