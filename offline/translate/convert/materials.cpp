// Materials: all become MtlSurface; what a file describes by older models of reflection is put into its terms.
#include <assimp/GltfMaterial.h>

#include <algorithm>
#include <cmath>

#include "convert/scene_converter.h"

namespace Translation {
namespace {

bool number(const aiMaterial& material, const char* key, float& value) {
    return material.Get(key, 0, 0, value) == aiReturn_SUCCESS;
}

// Four numbers; a colour that the file gives with three gets an alpha of 1.
bool colour(const aiMaterial& material, const char* key, float* rgba) {
    aiColor4D value;
    if (aiGetMaterialColor(&material, key, 0, 0, &value) != aiReturn_SUCCESS) return false;
    rgba[0] = value.r;
    rgba[1] = value.g;
    rgba[2] = value.b;
    rgba[3] = value.a;
    return true;
}

bool isWhite(const float* rgb) { return rgb[0] == 1 && rgb[1] == 1 && rgb[2] == 1; }

// OBJ files tell the sharpness of the highlight; DCCs write it as 1000 * (1 - roughness)^2.
float roughnessOfShininess(float shininess) {
    const double sharpness = std::min(std::max(static_cast<double>(shininess), 0.0), 1000.0);
    return static_cast<float>(1 - std::sqrt(sharpness / 1000));
}

}  // namespace

// The reader adds a material of its own, for meshes without any; it is left out when no mesh needs it.
bool SceneConverter::isStandInMaterial(unsigned index) const {
    for (unsigned i = 0; i < scene_.mNumMeshes; ++i) {
        const aiMesh& mesh = *scene_.mMeshes[i];
        if (mesh.mMaterialIndex == index && (mesh.mPrimitiveTypes & aiPrimitiveType_TRIANGLE) != 0) return false;
    }
    const std::string name = textOf(scene_.mMaterials[index]->GetName());
    return kind_ == SceneKind::obj ? index == 0 && name == AI_DEFAULT_MATERIAL_NAME
                                   : index + 1 == scene_.mNumMaterials && name.empty();
}

void SceneConverter::nameMaterials() {
    for (unsigned i = 0; i < scene_.mNumMaterials; ++i) {
        std::string name;
        if (!isStandInMaterial(i)) name = names_.take(nameOr(scene_.mMaterials[i]->GetName(), "material"), "material");
        materialNames_.push_back(name);
    }
}

void SceneConverter::addMaterials() {
    bool derived = false;
    for (unsigned i = 0; i < scene_.mNumMaterials; ++i) {
        if (materialNames_[i].empty()) continue;
        const aiMaterial& material = *scene_.mMaterials[i];
        Record& record =
            materials_.emplace_back(RecordKind::material, "MtlSurface", materialNames_[i], textOf(material.GetName()));
        addColours(record, material);
        addSurface(record, material);
        float value = 0;
        derived =
            derived || (!number(material, "$mat.roughnessFactor", value) && number(material, "$mat.shininess", value));
    }
    if (derived) {
        Report::Line(report_, "derived").text("what", "roughness").text("how", "1 - sqrt(shininess / 1000)");
    }
}

void SceneConverter::addColours(Record& record, const aiMaterial& material) {
    // In FBX a texture takes the place of the colour, elsewhere it is multiplied with it.
    const bool multiplied = kind_ != SceneKind::fbx;
    float rgba[4];

    std::string base = image(material, aiTextureType_BASE_COLOR);
    if (base.empty()) base = image(material, aiTextureType_DIFFUSE);
    const bool hasBase = colour(material, "$clr.base", rgba) || colour(material, "$clr.diffuse", rgba);
    if (!base.empty()) record.refer("base_color", {base, ""});
    if (base.empty() && hasBase) record.numbers("base_color", rgba, 4);
    if (!base.empty() && hasBase && multiplied && !isWhite(rgba)) record.numbers("base_tint", rgba, 3);

    const std::string specular = image(material, aiTextureType_SPECULAR);
    if (!specular.empty()) {
        record.refer("specular_color", {specular, ""});
    } else if (colour(material, "$clr.specular", rgba)) {
        record.numbers("specular_color", rgba, 4);
    }

    std::string emission = image(material, aiTextureType_EMISSION_COLOR);
    if (emission.empty()) emission = image(material, aiTextureType_EMISSIVE);
    const bool hasEmission = colour(material, "$clr.emissive", rgba);
    if (!emission.empty()) record.refer("emission_color", {emission, ""});
    if (emission.empty() && hasEmission) record.numbers("emission_color", rgba, 4);
    if (!emission.empty() && hasEmission && multiplied && !isWhite(rgba)) record.numbers("emission_tint", rgba, 3);
    float strength = 1;
    if (number(material, "$mat.emissiveIntensity", strength)) record.real("emission_strength", strength);
}

void SceneConverter::addSurface(Record& record, const aiMaterial& material) {
    float value = 0;
    // glTF packs roughness (green) and metalness (blue) into one image.
    const bool packs = kind_ == SceneKind::glb || kind_ == SceneKind::gltf;
    const std::string packed = packs ? image(material, aiTextureType_UNKNOWN) : std::string();
    const auto factor = [&](const char* param, const char* key, const std::string& texture, const char* output) {
        const bool given = number(material, key, value);
        if (!texture.empty()) record.refer(param, {texture, output});
        if (texture.empty() && given) record.real(param, value);
        if (!texture.empty() && given && packs && value != 1) {
            leftOut("the factor on the " + std::string(param) + " of \"" + record.name() + "\"",
                    "a texture stands in its place");
        }
        return given || !texture.empty();
    };

    factor("metalness", "$mat.metallicFactor", packed.empty() ? image(material, aiTextureType_METALNESS) : packed,
           packed.empty() ? "" : "out_blue");
    const std::string rough = packed.empty() ? image(material, aiTextureType_DIFFUSE_ROUGHNESS) : packed;
    if (!factor("roughness", "$mat.roughnessFactor", rough, packed.empty() ? "" : "out_green") &&
        number(material, "$mat.shininess", value)) {
        record.real("roughness", roughnessOfShininess(value));
    }
    // The reader says 1 for materials without an index of refraction.
    if (number(material, "$mat.refracti", value) && value != 1) record.real("ior", value);
    factor("transmission", "$mat.transmission.factor", image(material, aiTextureType_TRANSMISSION), "out_red");
    factor("coat", "$mat.clearcoat.factor", image(material, aiTextureType_CLEARCOAT), "out_red");
    factor("coat_roughness", "$mat.clearcoat.roughnessFactor", "", "");

    aiString alphaMode;
    const bool opaque =
        material.Get(AI_MATKEY_GLTF_ALPHAMODE, alphaMode) == aiReturn_SUCCESS && textOf(alphaMode) == "OPAQUE";
    const std::string opacity = image(material, aiTextureType_OPACITY);
    if (!opaque) factor("opacity", "$mat.opacity", opacity, "");

    const std::string normal = image(material, aiTextureType_NORMALS);
    if (!normal.empty()) record.refer("normal", {normalMap(normal), ""});
    const std::string bump = image(material, aiTextureType_HEIGHT);
    if (!bump.empty()) record.refer("bump", {bump, ""});

    int twoSided = 0;
    if (material.Get(AI_MATKEY_TWOSIDED, twoSided) == aiReturn_SUCCESS) record.flag("two_sided", twoSided != 0);
}

}  // namespace Translation
