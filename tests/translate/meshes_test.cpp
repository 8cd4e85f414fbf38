// The translated meshes and nodes against what the scene reader reports for the same files, number by number.
#include <assimp/config.h>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <algorithm>
#include <array>
#include <assimp/Importer.hpp>
#include <cmath>
#include <cstring>
#include <map>
#include <set>

#include "helpers/translated.h"

namespace {

using rapidjson::Value;

class Meshes : public testing::TestWithParam<const char*> {
  protected:
    void SetUp() override {
        const std::string path = TestSupport::sourcePath(GetParam());
        importer_.SetPropertyBool(AI_CONFIG_IMPORT_FBX_PRESERVE_PIVOTS, false);
        expected_ = importer_.ReadFile(path, aiProcess_Triangulate);
        ASSERT_NE(expected_, nullptr) << importer_.GetErrorString();
        scene_ = std::make_unique<TestSupport::Scene>(TestSupport::translatedText(path));
    }

    Assimp::Importer importer_;
    const aiScene* expected_ = nullptr;
    std::unique_ptr<TestSupport::Scene> scene_;
};

std::vector<unsigned> corners(const aiMesh& mesh) {
    std::vector<unsigned> all;
    for (unsigned i = 0; i < mesh.mNumFaces; ++i) {
        if (mesh.mFaces[i].mNumIndices != 3) continue;
        for (unsigned k = 0; k < 3; ++k) all.push_back(mesh.mFaces[i].mIndices[k]);
    }
    return all;
}

// `values` and `places` are what the scene holds; `component(vertex, i)` what is expected at a corner.
template <class Component>
void expectCorners(const Value& values, const Value& places, const std::vector<unsigned>& all, unsigned width,
                   const Component& component, const std::string& what) {
    ASSERT_EQ(places.Size(), all.size()) << what;
    std::set<unsigned> used;
    for (unsigned i = 0; i < all.size(); ++i) {
        const unsigned place = places[i].GetUint();
        ASSERT_LT(place, values.Size()) << what;
        used.insert(place);
        ASSERT_EQ(values[place].Size(), width) << what;
        for (unsigned k = 0; k < width; ++k) {
            ASSERT_EQ(values[place][k].GetFloat(), component(all[i], k)) << what << ", corner " << i;
        }
    }
    EXPECT_EQ(used.size(), values.Size()) << what << ": a value that no corner uses";
}

// Every value stands once.
void expectDistinct(const Value& values, const std::string& what) {
    std::set<std::vector<std::uint32_t>> seen;
    for (const Value& value : values.GetArray()) {
        std::vector<std::uint32_t> bits;
        for (const Value& number : value.GetArray()) {
            const float part = number.GetFloat();
            std::uint32_t word = 0;
            std::memcpy(&word, &part, sizeof word);
            bits.push_back(word);
        }
        EXPECT_TRUE(seen.insert(bits).second) << what;
    }
}

void expectMesh(const TestSupport::Scene& scene, const std::string& name, const aiMesh& mesh) {
    const std::vector<unsigned> all = corners(mesh);
    const auto of = [](const aiVector3D* list) { return [list](unsigned v, unsigned k) { return list[v][k]; }; };
    const auto param = [&](const char* key) -> const Value& { return scene.param(name, key); };

    expectCorners(param("vertices"), param("faces"), all, 3, of(mesh.mVertices), name + ".vertices");
    expectDistinct(param("vertices"), name + ".vertices");
    EXPECT_EQ(scene.has(name, "normals"), mesh.HasNormals());
    if (mesh.HasNormals()) {
        expectCorners(param("normals"), param("face_normals"), all, 3, of(mesh.mNormals), name + ".normals");
    }
    EXPECT_EQ(scene.has(name, "colors"), mesh.HasVertexColors(0));
    if (mesh.HasVertexColors(0)) {
        const auto colour = [&mesh](unsigned v, unsigned k) { return mesh.mColors[0][v][k]; };
        expectCorners(param("colors"), param("face_colors"), all, 4, colour, name + ".colors");
    }
    EXPECT_EQ(scene.has(name, "map_channels"), mesh.GetNumUVChannels() > 0);
    if (mesh.GetNumUVChannels() == 0) return;
    const Value& channels = param("map_channels");
    ASSERT_EQ(channels.Size(), mesh.GetNumUVChannels()) << name;
    for (unsigned i = 0; i < channels.Size(); ++i) {
        EXPECT_EQ(channels[i]["channel"].GetUint(), i);
        expectCorners(channels[i]["vertices"], channels[i]["faces"], all, 3, of(mesh.mTextureCoords[i]),
                      name + ".map_channels");
    }
}

TEST_P(Meshes, HoldEveryCornerOfEveryMesh) {
    const std::vector<std::string> names = scene_->names("GeomStaticMesh");
    std::size_t next = 0;
    for (unsigned i = 0; i < expected_->mNumMeshes; ++i) {
        const aiMesh& mesh = *expected_->mMeshes[i];
        if (corners(mesh).empty()) continue;
        ASSERT_LT(next, names.size());
        EXPECT_EQ(names[next], std::string(mesh.mName.C_Str()) + "@mesh");
        expectMesh(*scene_, names[next], mesh);
        ++next;
    }
    EXPECT_EQ(next, names.size());
    EXPECT_GT(next, 0u);
}

struct Expected {
    const aiNode* node;
    const aiNode* parent;  // null: none, or the reader's own root
};

void collect(const aiNode* node, const aiNode* parent, std::vector<Expected>& all) {
    all.push_back({node, parent});
    for (unsigned i = 0; i < node->mNumChildren; ++i) collect(node->mChildren[i], node, all);
}

void expectTransform(const Value& transform, const aiMatrix4x4& matrix, const std::string& what) {
    for (unsigned column = 0; column < 3; ++column) {
        for (unsigned row = 0; row < 3; ++row) {
            EXPECT_EQ(transform[0][column][row].GetFloat(), matrix[row][column]) << what;
        }
        EXPECT_EQ(transform[1][column].GetDouble(), static_cast<double>(matrix[column][3])) << what;
    }
}

TEST_P(Meshes, StandInTheHierarchyOfTheFile) {
    std::vector<Expected> all;
    const aiNode* root = expected_->mRootNode;
    for (unsigned i = 0; i < root->mNumChildren; ++i) collect(root->mChildren[i], nullptr, all);

    std::vector<std::string> names;
    for (const std::string& name : scene_->names("GeomNode")) {
        if (name.find("@part") == std::string::npos) names.push_back(name);
    }
    ASSERT_EQ(names.size(), all.size());
    std::map<const aiNode*, std::string> nameOf;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const aiNode& node = *all[i].node;
        const std::string& name = names[i];
        nameOf[&node] = name;
        const Value& line = scene_->plugin(name);
        EXPECT_EQ(std::string(line.HasMember("node") ? line["node"].GetString() : name), node.mName.C_Str());
        expectTransform(scene_->param(name, "transform"), node.mTransformation, name);
        EXPECT_EQ(scene_->has(name, "parent"), all[i].parent != nullptr) << name;
        if (all[i].parent != nullptr) {
            EXPECT_EQ(scene_->param(name, "parent").GetString(), nameOf.at(all[i].parent)) << name;
        }
        if (node.mNumMeshes != 1 || corners(*expected_->mMeshes[node.mMeshes[0]]).empty()) continue;
        const aiMesh& mesh = *expected_->mMeshes[node.mMeshes[0]];
        const std::string geometry = scene_->param(name, "geometry").GetString();
        EXPECT_EQ(geometry, std::string(mesh.mName.C_Str()) + "@mesh");
        const Value& material = scene_->plugin(scene_->param(name, "material").GetString());
        EXPECT_EQ(std::string((material.HasMember("node") ? material["node"] : material["name"]).GetString()),
                  expected_->mMaterials[mesh.mMaterialIndex]->GetName().C_Str());
    }
}

TEST_P(Meshes, ReferToNothingThatIsNotThere) {
    std::set<std::string> names;
    for (std::size_t i = 1; i < scene_->lines().size(); ++i) {
        EXPECT_TRUE(names.insert(scene_->lines()[i]["name"].GetString()).second);
    }
    unsigned references = 0;
    for (const std::string& node : scene_->names("GeomNode")) {
        for (const char* key : {"parent", "geometry", "material"}) {
            if (!scene_->has(node, key)) continue;
            EXPECT_EQ(names.count(scene_->param(node, key).GetString()), 1u) << node << "." << key;
            ++references;
        }
    }
    EXPECT_GT(references, 5u);
}

INSTANTIATE_TEST_SUITE_P(Samples, Meshes,
                         testing::Values("examples/scenes/studio.glb", "examples/scenes/studio.fbx",
                                         "examples/scenes/studio.obj", "tests/translate/rich.gltf"),
                         [](const auto& info) { return std::string(strrchr(info.param, '.') + 1); });

// The positions of an OBJ file, read without the scene reader.
TEST(ObjFile, HasItsOwnVertices) {
    const std::string path = TestSupport::sourcePath("examples/scenes/studio.obj");
    std::set<std::array<float, 3>> inFile;
    const std::string text = TestSupport::readFile(path);
    for (std::size_t place = 0; place < text.size(); place = text.find('\n', place) + 1) {
        if (text.compare(place, 2, "v ") != 0) continue;
        std::array<float, 3> v{};
        ASSERT_EQ(std::sscanf(text.c_str() + place, "v %f %f %f", &v[0], &v[1], &v[2]), 3);
        inFile.insert(v);
    }
    const TestSupport::Scene scene(TestSupport::translatedText(path));
    std::set<std::array<float, 3>> inScene;
    for (const std::string& mesh : scene.names("GeomStaticMesh")) {
        for (const Value& v : scene.param(mesh, "vertices").GetArray()) {
            inScene.insert({v[0].GetFloat(), v[1].GetFloat(), v[2].GetFloat()});
        }
    }
    ASSERT_GT(inFile.size(), 4000u);
    std::size_t far = 0;
    for (const auto& v : inScene) {
        // The reader's own conversion may miss the nearest float by one step.
        const auto near = [&v](const std::array<float, 3>& w) {
            for (int k = 0; k < 3; ++k) {
                if (std::fabs(v[k] - w[k]) > 1e-6f * std::max(1.0f, std::fabs(w[k]))) return false;
            }
            return true;
        };
        auto begin = inFile.lower_bound({v[0] - 1e-5f, -1e30f, -1e30f});
        auto end = inFile.upper_bound({v[0] + 1e-5f, 1e30f, 1e30f});
        if (std::none_of(begin, end, near)) ++far;
    }
    EXPECT_EQ(far, 0u);
    EXPECT_GE(inScene.size() + 10, inFile.size());
}

}  // namespace
