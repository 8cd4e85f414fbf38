// The translated materials, lights and cameras against what the scene reader reports for the same files.
#include <assimp/config.h>
#include <assimp/scene.h>

#include <assimp/Importer.hpp>
#include <cmath>
#include <cstring>

#include "helpers/translated.h"

namespace {

using rapidjson::Value;

constexpr double DEGREES = 180 / 3.14159265358979323846;

class Looks : public testing::TestWithParam<const char*> {
  protected:
    void SetUp() override {
        const std::string path = TestSupport::sourcePath(GetParam());
        importer_.SetPropertyBool(AI_CONFIG_IMPORT_FBX_PRESERVE_PIVOTS, false);
        expected_ = importer_.ReadFile(path, 0);
        ASSERT_NE(expected_, nullptr) << importer_.GetErrorString();
        scene_ = std::make_unique<TestSupport::Scene>(TestSupport::translatedText(path));
    }

    // The record of a material by the name that the file gives it.
    std::string materialRecord(const std::string& dccName) const {
        for (const std::string& name : scene_->names("MtlSurface")) {
            const Value& line = scene_->plugin(name);
            if ((line.HasMember("node") ? line["node"].GetString() : name) == dccName) return name;
        }
        return {};
    }

    Assimp::Importer importer_;
    const aiScene* expected_ = nullptr;
    std::unique_ptr<TestSupport::Scene> scene_;
};

void expectColour(const Value& value, const aiColor4D& colour, const std::string& what) {
    ASSERT_EQ(value.Size(), 4u) << what;
    for (unsigned k = 0; k < 4; ++k) EXPECT_EQ(value[k].GetFloat(), colour[k]) << what;
}

TEST_P(Looks, OfMaterialsAreTheFiles) {
    unsigned colours = 0;
    unsigned images = 0;
    for (unsigned i = 0; i < expected_->mNumMaterials; ++i) {
        const aiMaterial& material = *expected_->mMaterials[i];
        const std::string dccName = material.GetName().C_Str();
        const std::string name = materialRecord(dccName.empty() ? "material" : dccName);
        if (name.empty()) {
            EXPECT_TRUE(dccName.empty() || dccName == "DefaultMaterial") << dccName;
            continue;
        }
        aiColor4D colour;
        aiString file;
        const bool textured = material.GetTexture(aiTextureType_DIFFUSE, 0, &file) == aiReturn_SUCCESS;
        ASSERT_EQ(aiGetMaterialColor(&material, AI_MATKEY_COLOR_DIFFUSE, &colour), aiReturn_SUCCESS);
        const Value& base = scene_->param(name, "base_color");
        EXPECT_EQ(base.IsString(), textured) << name;
        if (textured) {
            const std::string image = base.GetString();
            EXPECT_STREQ(scene_->plugin(image)["type"].GetString(), "TexImage");
            const std::string shown = scene_->param(image, "file").GetString();
            EXPECT_TRUE(shown == file.C_Str() || (file.data[0] == '*' && scene_->has(image, "embedded"))) << shown;
            ++images;
        } else {
            expectColour(base, colour, name);
            ++colours;
        }
        if (aiGetMaterialColor(&material, AI_MATKEY_COLOR_EMISSIVE, &colour) == aiReturn_SUCCESS) {
            expectColour(scene_->param(name, "emission_color"), colour, name);
        }
        float number = 0;
        if (material.Get(AI_MATKEY_ROUGHNESS_FACTOR, number) == aiReturn_SUCCESS &&
            scene_->param(name, "roughness").IsNumber()) {
            EXPECT_EQ(scene_->param(name, "roughness").GetFloat(), number) << name;
        }
    }
    EXPECT_GT(colours, 0u);
    EXPECT_GT(images, 0u);
}

const char* lightType(aiLightSourceType type) {
    switch (type) {
        case aiLightSource_DIRECTIONAL:
            return "LightDirectional";
        case aiLightSource_POINT:
            return "LightPoint";
        case aiLightSource_SPOT:
            return "LightSpot";
        default:
            return "LightArea";
    }
}

// A space whose -z axis is the direction, and whose axes are of length one and upright on each other.
void expectLooking(const Value& transform, const aiVector3D& direction, const std::string& what) {
    const aiVector3D unit = aiVector3D(direction).NormalizeSafe();
    for (unsigned k = 0; k < 3; ++k) EXPECT_EQ(-transform[0][2][k].GetFloat(), unit[k]) << what;
    for (unsigned a = 0; a < 3; ++a) {
        for (unsigned b = 0; b < 3; ++b) {
            float product = 0;
            for (unsigned k = 0; k < 3; ++k) {
                product += transform[0][a][k].GetFloat() * transform[0][b][k].GetFloat();
            }
            EXPECT_NEAR(product, a == b ? 1 : 0, 1e-6) << what;
        }
    }
}

TEST_P(Looks, OfLightsAreTheFiles) {
    for (unsigned i = 0; i < expected_->mNumLights; ++i) {
        const aiLight& light = *expected_->mLights[i];
        const std::string name = std::string(light.mName.C_Str()) + "@light";
        EXPECT_STREQ(scene_->plugin(name)["type"].GetString(), lightType(light.mType));
        EXPECT_STREQ(scene_->plugin(name)["node"].GetString(), light.mName.C_Str());
        EXPECT_STREQ(scene_->param(name, "parent").GetString(), light.mName.C_Str());
        const aiColor3D& colour = light.mColorDiffuse;
        expectColour(scene_->param(name, "color"), aiColor4D(colour.r, colour.g, colour.b, 1), name);
        const Value& transform = scene_->param(name, "transform");
        for (unsigned k = 0; k < 3; ++k) EXPECT_EQ(transform[1][k].GetFloat(), light.mPosition[k]) << name;
        if (light.mDirection.SquareLength() > 0) expectLooking(transform, light.mDirection, name);
        if (light.mType == aiLightSource_SPOT) {
            EXPECT_NEAR(scene_->param(name, "inner_angle").GetDouble(), light.mAngleInnerCone * DEGREES, 1e-5) << name;
            EXPECT_NEAR(scene_->param(name, "outer_angle").GetDouble(), light.mAngleOuterCone * DEGREES, 1e-5) << name;
        }
        if (light.mType != aiLightSource_DIRECTIONAL) {
            const Value& attenuation = scene_->param(name, "attenuation");
            EXPECT_EQ(attenuation[0].GetFloat(), light.mAttenuationConstant) << name;
            EXPECT_EQ(attenuation[1].GetFloat(), light.mAttenuationLinear) << name;
            EXPECT_EQ(attenuation[2].GetFloat(), light.mAttenuationQuadratic) << name;
        }
    }
    std::size_t count = 0;
    for (const char* type : {"LightDirectional", "LightPoint", "LightSpot", "LightArea", "LightAmbient"}) {
        count += scene_->names(type).size();
    }
    EXPECT_EQ(count, expected_->mNumLights);
}

TEST_P(Looks, OfCamerasAreTheFiles) {
    for (unsigned i = 0; i < expected_->mNumCameras; ++i) {
        const aiCamera& camera = *expected_->mCameras[i];
        const std::string name = std::string(camera.mName.C_Str()) + "@camera";
        EXPECT_STREQ(scene_->param(name, "parent").GetString(), camera.mName.C_Str());
        EXPECT_EQ(scene_->param(name, "clip_near").GetFloat(), camera.mClipPlaneNear);
        EXPECT_EQ(scene_->param(name, "clip_far").GetFloat(), camera.mClipPlaneFar);
        EXPECT_EQ(scene_->param(name, "aspect").GetFloat(), camera.mAspect);
        expectLooking(scene_->param(name, "transform"), camera.mLookAt, name);
        if (camera.mOrthographicWidth > 0) {
            EXPECT_EQ(scene_->param(name, "width").GetFloat(), 2 * camera.mOrthographicWidth);
        }
    }
    EXPECT_EQ(scene_->names("CameraPerspective").size() + scene_->names("CameraOrthographic").size(),
              expected_->mNumCameras);
}

INSTANTIATE_TEST_SUITE_P(Samples, Looks,
                         testing::Values("examples/scenes/studio.glb", "examples/scenes/studio.fbx",
                                         "examples/scenes/studio.obj", "tests/translate/rich.gltf"),
                         [](const auto& info) { return std::string(strrchr(info.param, '.') + 1); });

struct FovCase {
    const char* file;
    const char* camera;
    double vertical;  // radians, as the file has it
    double aspect;
};

// The angles that the files themselves hold; the reader derives the horizontal ones by different rules.
TEST(Cameras, SeeTheHorizontalAngleOfTheFile) {
    const FovCase cases[] = {
        {"examples/scenes/studio.glb", "shotCam@camera", 0.5631968779732008, 16.0 / 9},
        {"examples/scenes/studio.fbx", "shotCam@camera", 0.5631968779732008, 16.0 / 9},
        {"tests/translate/rich.gltf", "eye@camera", 0.5, 2},
    };
    for (const FovCase& row : cases) {
        const TestSupport::Scene scene(TestSupport::translatedText(TestSupport::sourcePath(row.file)));
        const double horizontal = 2 * std::atan(std::tan(row.vertical / 2) * row.aspect) * DEGREES;
        EXPECT_NEAR(scene.param(row.camera, "fov").GetDouble(), horizontal, 1e-4) << row.file;
    }
}

// The four materials of the samples have the same colours in all three files, as they come from one scene.
TEST(Materials, AgreeAmongTheFiles) {
    for (const char* file : {"studio.glb", "studio.fbx", "studio.obj"}) {
        const TestSupport::Scene scene(
            TestSupport::translatedText(TestSupport::sourcePath(std::string("examples/scenes/") + file)));
        const Value& clay = scene.param("clay", "base_color");
        EXPECT_FLOAT_EQ(clay[0].GetFloat(), 0.8f) << file;
        EXPECT_FLOAT_EQ(clay[1].GetFloat(), 0.45f) << file;
        EXPECT_FLOAT_EQ(clay[2].GetFloat(), 0.3f) << file;
        EXPECT_FLOAT_EQ(scene.param("clay", "roughness").GetFloat(), 0.5f) << file;
        EXPECT_FLOAT_EQ(scene.param("floor", "roughness").GetFloat(), 0.9f) << file;
        EXPECT_FLOAT_EQ(scene.param("steel", "roughness").GetFloat(), 0.2f) << file;
    }
}

}  // namespace
