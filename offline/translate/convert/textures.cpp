// Textures: an image for each file and way of placing it, shared by the materials that use it alike.
#include <algorithm>

#include "convert/scene_converter.h"

namespace Translation {
namespace {

const char* wrapName(aiTextureMapMode mode) {
    switch (mode) {
        case aiTextureMapMode_Clamp:
            return "clamp";
        case aiTextureMapMode_Mirror:
            return "mirror";
        case aiTextureMapMode_Decal:
            return "black";
        default:
            return "repeat";
    }
}

std::string withoutFolder(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path.substr(path.rfind('/') + 1);
}

const char* placeName(SceneFolder::Place place) {
    switch (place) {
        case SceneFolder::Place::inside:
            return "found";
        case SceneFolder::Place::outside:
            return "outside the scene's folder";
        default:
            return "missing";
    }
}

// Which map channel an image is placed by, and how; what the file does not say is as it is by default.
struct Placing {
    int channel = 0;
    aiUVTransform transform;
    aiTextureMapMode wrap[2] = {aiTextureMapMode_Wrap, aiTextureMapMode_Wrap};

    bool isDefault() const {
        return channel == 0 && transform.mTranslation == aiVector2D(0, 0) && transform.mScaling == aiVector2D(1, 1) &&
               transform.mRotation == 0;
    }
};

Placing placingOf(const aiMaterial& material, aiTextureType type) {
    Placing placing;
    material.Get(AI_MATKEY_UVWSRC(type, 0), placing.channel);
    material.Get(AI_MATKEY_UVTRANSFORM(type, 0), placing.transform);
    int mode = 0;
    if (material.Get(AI_MATKEY_MAPPINGMODE_U(type, 0), mode) == aiReturn_SUCCESS) {
        placing.wrap[0] = static_cast<aiTextureMapMode>(mode);
    }
    if (material.Get(AI_MATKEY_MAPPINGMODE_V(type, 0), mode) == aiReturn_SUCCESS) {
        placing.wrap[1] = static_cast<aiTextureMapMode>(mode);
    }
    return placing;
}

constexpr double DEGREES = 180 / 3.14159265358979323846;

}  // namespace

std::string SceneConverter::placement(const aiMaterial& material, aiTextureType type, const std::string& image) {
    const Placing placing = placingOf(material, type);
    if (placing.isDefault()) return {};
    const aiUVTransform& transform = placing.transform;
    Record record(RecordKind::texture, "UvPlacement", "", "");
    record.integer("channel", placing.channel);
    const float offset[3] = {transform.mTranslation.x, transform.mTranslation.y, 0};
    const float scale[3] = {transform.mScaling.x, transform.mScaling.y, 1};
    record.numbers("offset", offset, 3);
    record.numbers("scale", scale, 3);
    record.real("rotation", static_cast<float>(transform.mRotation * DEGREES) + 0.0f);

    const auto [entry, isNew] = placements_.try_emplace(record.params());
    if (!isNew) return entry->second;
    entry->second = names_.take(image + "@placement", "texture");
    record.setName(entry->second);
    textures_.push_back(std::move(record));
    return entry->second;
}

std::string SceneConverter::image(const aiMaterial& material, aiTextureType type) {
    aiString stored;
    if (material.Get(AI_MATKEY_TEXTURE(type, 0), stored) != aiReturn_SUCCESS || stored.length == 0) return {};
    const std::string path = textOf(stored);
    const auto [embedded, number] = scene_.GetEmbeddedTextureAndIndex(path.c_str());
    std::string name = withoutFolder(embedded != nullptr ? textOf(embedded->mFilename) : path);
    if (name.empty()) name = "image" + std::to_string(number);

    const Placing placing = placingOf(material, type);
    const std::string place = placement(material, type, name);
    const std::string wrapU = wrapName(placing.wrap[0]);
    const std::string wrapV = wrapName(placing.wrap[1]);
    const std::string key = path + '\n' + place + '\n' + wrapU + '\n' + wrapV;
    const auto [entry, isNew] = images_.try_emplace(key);
    if (!isNew) return entry->second;

    entry->second = names_.take(name + "@texture", "texture");
    Record& record = textures_.emplace_back(RecordKind::texture, "TexImage", entry->second, name);
    record.text("file", embedded != nullptr ? fileName_ : path);
    if (embedded != nullptr) record.integer("embedded", number);
    if (wrapU != "repeat") record.text("wrap_u", wrapU);
    if (wrapV != "repeat") record.text("wrap_v", wrapV);
    if (!place.empty()) record.refer("placement", {place, ""});
    Report::Line(report_, "texture")
        .text("name", entry->second)
        .text("file", embedded != nullptr ? fileName_ : path)
        .text("state", embedded != nullptr ? "inside the scene" : placeName(folder_.placeOf(path)));
    return entry->second;
}

std::string SceneConverter::normalMap(const std::string& image) {
    const auto [entry, isNew] = normalMaps_.try_emplace(image);
    if (!isNew) return entry->second;
    entry->second = names_.take(image.substr(0, image.rfind('@')) + "@normal", "texture");
    textures_.emplace_back(RecordKind::texture, "TexVector", entry->second, "").refer("color", {image, ""});
    return entry->second;
}

}  // namespace Translation
