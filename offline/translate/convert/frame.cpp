// How the numbers of the scene are meant, and the settings that every scene has.
#include <cmath>

#include "convert/scene_converter.h"
#include "core/scene_file/numbers/numbers.h"

namespace Translation {
namespace {

constexpr double CENTIMETRES_PER_METRE = 100;

// The reader keeps with single precision what the file says with double: the shortest number that it can be.
double asWritten(float number) {
    char text[Offline::NUMBER_TEXT_BYTES];
    double value = 0;
    return Offline::readDouble(text, Offline::writeFloat(text, number), value) ? value : 0;
}

struct AxisRow {
    const char* name;
    float direction[3];
};

constexpr AxisRow AXES[] = {{"x", {1, 0, 0}}, {"y", {0, 1, 0}}, {"z", {0, 0, 1}}};

}  // namespace

void SceneConverter::readFrame() {
    const char* unitSource = "the file does not say";
    const char* upSource = "the file does not say";
    const aiMetadata* facts = scene_.mMetaData;

    if (kind_ == SceneKind::glb || kind_ == SceneKind::gltf) {
        frame_.metresPerUnit = 1;
        frame_.up = "y";
        unitSource = upSource = "always so in glTF";
    } else if (kind_ == SceneKind::fbx && facts != nullptr) {
        float centimetres = 0;
        if (facts->Get("UnitScaleFactor", centimetres) && std::isfinite(centimetres) && centimetres > 0) {
            frame_.metresPerUnit = asWritten(centimetres) / CENTIMETRES_PER_METRE;
            unitSource = "the settings of the file";
        }
        int32_t axis = -1;
        int32_t sign = 1;
        facts->Get("UpAxisSign", sign);
        if (facts->Get("UpAxis", axis) && axis >= 0 && axis < 3) {
            if (sign > 0) frame_.up = AXES[axis].name;
            upSource = sign > 0 ? "the settings of the file" : "the file names a negative axis, which a scene cannot";
        }
    }
    aiString generator;
    if (facts != nullptr && facts->Get("SourceAsset_Generator", generator)) frame_.generator = textOf(generator);

    reportFrame(unitSource, upSource);
}

void SceneConverter::reportFrame(const char* unitSource, const char* upSource) {
    {
        Report::Line source(report_, "source");
        source.text("file", fileName_).text("kind", sceneKindName(kind_));
        if (!frame_.generator.empty()) source.text("generator", frame_.generator);
    }
    {
        Report::Line unit(report_, "unit");
        frame_.metresPerUnit > 0 ? unit.number("metres", frame_.metresPerUnit) : unit.nothing("metres");
        unit.text("why", unitSource);
    }
    {
        Report::Line up(report_, "up");
        frame_.up.empty() ? up.nothing("axis") : up.text("axis", frame_.up);
        up.text("why", upSource);
    }
}

void SceneConverter::addSettings() {
    const auto add = [this](const char* type, const char* name) -> Record& {
        return settings_.emplace_back(RecordKind::settings, type, names_.take(name, "settings"), "");
    };
    add("SettingsOutput", "settings@output").json("frames", "[[1]]");
    add("SettingsLightLinker", "settings@lights");

    Record& scene = add("SettingsScene", "settings@scene");
    if (frame_.metresPerUnit > 0) scene.precise("meters_per_unit", frame_.metresPerUnit);
    for (const AxisRow& axis : AXES) {
        if (frame_.up == axis.name) scene.numbers("up_axis", axis.direction, 3);
    }
    scene.text("source", fileName_);
}

}  // namespace Translation
