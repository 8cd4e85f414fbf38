// Lights and cameras. Both stand in the space of the node that carries them and look along -z with +y up.
#include <cmath>

#include "convert/scene_converter.h"

namespace Translation {
namespace {

constexpr double DEGREES = 180 / 3.14159265358979323846;

struct LightRow {
    aiLightSourceType source;
    const char* type;
};

// What the reader cannot tell is an area light in the files that are read.
constexpr LightRow LIGHTS[] = {
    {aiLightSource_DIRECTIONAL, "LightDirectional"},
    {aiLightSource_POINT, "LightPoint"},
    {aiLightSource_SPOT, "LightSpot"},
    {aiLightSource_AMBIENT, "LightAmbient"},
    {aiLightSource_AREA, "LightArea"},
    {aiLightSource_UNDEFINED, "LightArea"},
};

const char* lightType(aiLightSourceType source) {
    for (const LightRow& row : LIGHTS) {
        if (row.source == source) return row.type;
    }
    return "LightArea";
}

aiVector3D cross(const aiVector3D& a, const aiVector3D& b) { return a ^ b; }

aiVector3D normalized(const aiVector3D& v) {
    const float length = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
    return length > 0 ? aiVector3D(v.x / length, v.y / length, v.z / length) : aiVector3D();
}

// The axis that stands most upright on a direction.
aiVector3D anyUp(const aiVector3D& direction) {
    return std::fabs(direction.y) < 0.9f ? aiVector3D(0, 1, 0) : aiVector3D(0, 0, 1);
}

// The space of what looks along `direction`; without a direction only the place is taken.
aiMatrix4x4 lookSpace(const aiVector3D& position, const aiVector3D& direction, const aiVector3D& up) {
    aiMatrix4x4 space;
    const aiVector3D back = normalized(direction) * -1.0f;
    if (back.SquareLength() > 0) {
        aiVector3D right = normalized(cross(up, back));
        if (!(right.SquareLength() > 0)) right = normalized(cross(anyUp(back), back));
        const aiVector3D top = cross(back, right);
        space =
            aiMatrix4x4(right.x, top.x, back.x, 0, right.y, top.y, back.y, 0, right.z, top.z, back.z, 0, 0, 0, 0, 1);
    }
    space.a4 = position.x;
    space.b4 = position.y;
    space.c4 = position.z;
    return space;
}

// A zero without a sign reads better, and means the same in a transform.
aiMatrix4x4 withoutNegativeZeros(aiMatrix4x4 matrix) {
    for (unsigned row = 0; row < 4; ++row) {
        for (unsigned column = 0; column < 4; ++column) matrix[row][column] += 0.0f;
    }
    return matrix;
}

float degrees(float radians) { return static_cast<float>(radians * DEGREES); }

// The reader multiplies the vertical angle of a glTF camera with the aspect to get the horizontal one; the
// relation is one of tangents.
float horizontalFov(const aiCamera& camera, bool isGltf) {
    if (!isGltf || !(camera.mAspect > 0)) return degrees(camera.mHorizontalFOV);
    const double vertical = static_cast<double>(camera.mHorizontalFOV) / static_cast<double>(camera.mAspect);
    return static_cast<float>(2 * std::atan(std::tan(vertical / 2) * static_cast<double>(camera.mAspect)) * DEGREES);
}

}  // namespace

void SceneConverter::carry(Record& record, const std::string& dccName) {
    const auto node = nodeNames_.find(dccName);
    if (node != nodeNames_.end()) record.refer("parent", {node->second, ""});
}

void SceneConverter::addLights() {
    for (unsigned i = 0; i < scene_.mNumLights; ++i) {
        const aiLight& light = *scene_.mLights[i];
        const std::string dccName = nameOr(light.mName, "light");
        Record& record = lights_.emplace_back(RecordKind::light, lightType(light.mType),
                                              names_.take(dccName + "@light", "light"), textOf(light.mName));
        if (light.mType == aiLightSource_UNDEFINED) {
            Report::Line(report_, "derived")
                .text("what", "the kind of the light \"" + dccName + "\"")
                .text("how", "written as an area light: the file does not make it clear");
        }
        record.json("transform",
                    transformText(withoutNegativeZeros(lookSpace(light.mPosition, light.mDirection, light.mUp))));
        carry(record, textOf(light.mName));
        const aiColor3D& colour = light.mType == aiLightSource_AMBIENT ? light.mColorAmbient : light.mColorDiffuse;
        const float rgba[4] = {colour.r, colour.g, colour.b, 1};
        record.numbers("color", rgba, 4);
        if (light.mType == aiLightSource_SPOT) {
            record.real("inner_angle", degrees(light.mAngleInnerCone));
            record.real("outer_angle", degrees(light.mAngleOuterCone));
        }
        if (light.mType == aiLightSource_AREA) {
            record.real("size_u", light.mSize.x);
            record.real("size_v", light.mSize.y);
        }
        if (light.mType != aiLightSource_DIRECTIONAL && light.mType != aiLightSource_AMBIENT) {
            const float attenuation[3] = {light.mAttenuationConstant, light.mAttenuationLinear,
                                          light.mAttenuationQuadratic};
            record.numbers("attenuation", attenuation, 3);
        }
    }
}

void SceneConverter::addCameras() {
    const bool isGltf = kind_ == SceneKind::glb || kind_ == SceneKind::gltf;
    for (unsigned i = 0; i < scene_.mNumCameras; ++i) {
        const aiCamera& camera = *scene_.mCameras[i];
        const std::string dccName = nameOr(camera.mName, "camera");
        const bool flat = camera.mOrthographicWidth > 0;
        Record& record = cameras_.emplace_back(RecordKind::camera, flat ? "CameraOrthographic" : "CameraPerspective",
                                               names_.take(dccName + "@camera", "camera"), textOf(camera.mName));
        // A glTF camera stands at the origin of its node; the reader repeats the place of the node.
        const aiVector3D position = isGltf ? aiVector3D() : camera.mPosition;
        record.json("transform", transformText(withoutNegativeZeros(lookSpace(position, camera.mLookAt, camera.mUp))));
        carry(record, textOf(camera.mName));
        record.real("clip_near", camera.mClipPlaneNear);
        record.real("clip_far", camera.mClipPlaneFar);
        record.real("aspect", camera.mAspect);
        if (flat) {
            record.real("width", 2 * camera.mOrthographicWidth);
        } else {
            record.real("fov", horizontalFov(camera, isGltf));
        }
    }
}

}  // namespace Translation
