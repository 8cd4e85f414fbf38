// Values as constant textures, and their shader text.
#include <cstring>

#include "check.h"
#include "helpers/shader_text.h"
#include "helpers/value_classes.h"
#include "kelmo/param/texture.h"

using namespace value_classes;

namespace {

// The shading point is never looked at; any address does.
const ShadingContext& nowhere() {
    static const char place = 0;
    return reinterpret_cast<const ShadingContext&>(place);
}

template <class Interface>
Interface& part(KelmoPluginParameter& value, std::uint32_t id) {
    return *static_cast<Interface*>(value.getInterface(id));
}

bool isZero(const TextureExtra& extra) { return extra.words[0] == 0 && extra.words[1] == 0; }

template <class T>
bool sameBytes(const T& a, const T& b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

void checkTexture(KelmoPluginParameter& value) {
    const AColor color = value.getAColor(0, 0.0);
    auto& texture = part<TextureInterface>(value, EXT_TEXTURE);
    AColor low{{9, 9, 9}, 9}, high{{9, 9, 9}, 9};
    texture.getTexColorBounds(low, high);
    CHECK(sameBytes(texture.getTexColor(nowhere()), color));
    CHECK(sameBytes(low, color) && sameBytes(high, color));
    CHECK(isZero(texture.getTexExtra()));

    const float number = value.getFloat(0, 0.0);
    auto& floats = part<TextureFloatInterface>(value, EXT_TEXTURE_FLOAT);
    float least = 9, most = 9;
    floats.getTexFloatBounds(least, most);
    CHECK_EQ(floats.getTexFloat(nowhere()), number);
    CHECK(least == number && most == number);
    CHECK(isZero(floats.getTexExtra()));

    CHECK_EQ(part<TextureIntInterface>(value, EXT_TEXTURE_INT).getTexInt(nowhere()), value.getInt(0, 0.0));

    const Vector vector = value.getVector(0, 0.0);
    auto& vectors = part<TextureVectorInterface>(value, EXT_TEXTURE_VECTOR);
    Vector from{9, 9, 9}, to{9, 9, 9};
    vectors.getTexVectorBounds(from, to);
    CHECK(sameBytes(vectors.getTexVector(nowhere()), vector));
    CHECK(sameBytes(from, vector) && sameBytes(to, vector));
    CHECK(isZero(vectors.getTexExtra()));

    const TraceTransform transform = value.getTransform(0, 0.0);
    const ShadingTransform lanes =
        part<TextureTransformInterface>(value, EXT_TEXTURE_TRANSFORM).getTexTransform(nowhere());
    for (int i = 0; i < 3; ++i) {
        CHECK(std::memcmp(lanes.lanes[i], &transform.matrix.columns[i], sizeof(Vector)) == 0);
        CHECK_EQ(lanes.lanes[3][i], static_cast<float>(transform.offset[i]));
    }
}

struct Context : EvaluationContext {
    explicit Context(const EvaluationState* given) : state(given) {}
    const EvaluationState* getEvaluationState() const override { return state; }
    const EvaluationState* state;
};

int write(KelmoPluginParameter& value, const char* section, ShaderText& text, const EvaluationContext* context) {
    auto& shader = part<RTTexInterface>(value, EXT_RTTEX);
    return shader.writeShaderSource(nullptr, nullptr, section, &text, context);
}

// A value that answers the time it is asked at, for index 0.
class Clock : public DefParamBase {
  public:
    Clock() : DefParamBase("clock", false) {}
    ParamType getType(int index, double time) override { return index == 0 && time == 0.0 ? type : PARAM_UNKNOWN; }
    int getInt(int index, double time) override { return static_cast<int>(getFloat(index, time)); }
    float getFloat(int index, double time) override { return index == 0 ? static_cast<float>(time) : -1.0f; }
    double getDouble(int index, double time) override { return static_cast<double>(getFloat(index, time)); }
    Color getColor(int index, double time) override {
        const float now = getFloat(index, time);
        return Color{now, now, now};
    }
    AColor getAColor(int index, double time) override { return AColor{getColor(index, time), getFloat(index, time)}; }
    ParamType type = PARAM_FLOAT;
};

}  // namespace

TEST_CASE(everyValueIsAConstantTexture) {
    const NothingLeft nothingLeft;
    for (const ValueClass& row : classes) {
        CHECK_ROW(row.label);
        const Owned scalar(row.makeScalar("size", false));
        checkTexture(*scalar);
        if (row.type == PARAM_PLUGIN) continue;
        const Owned list(row.makeList("sizes", false));
        checkTexture(*list);
        row.setSample(settableOf(*list), 0);
        row.setSample(settableOf(*list), 1);
        checkTexture(*list);
    }
    const Owned channels(makeMapChannels("map_channels", false));
    checkTexture(*channels);
}

TEST_CASE(aMatrixIsAMatrixTexture) {
    DefMatrixParam value("m", sampleMatrix, false);
    auto& texture = part<TextureMatrixInterface>(value, EXT_TEXTURE_MATRIX);
    CHECK(sameBytes(texture.getTexMatrix(nowhere()), sampleMatrix));
    value.setMatrix(Matrix{}, 0, 0.0);
    CHECK(sameBytes(texture.getTexMatrix(nowhere()), Matrix{}));
}

TEST_CASE(shaderTextShowsNumbersAndColors) {
    struct Row {
        int which;
        const char* text;
    };
    const Row rows[] = {
        {0, "color 7.000000 7.000000 7.000000 7.000000\n"},     {1, "color 2.500000 2.500000 2.500000 2.500000\n"},
        {2, "color -2.500000 -2.500000 -2.500000 -2.500000\n"}, {3, "color 0.000000 0.000000 0.000000 0.000000\n"},
        {4, "color 0.250000 0.500000 0.750000 1.000000\n"},     {5, "color 0.250000 0.500000 0.750000 0.125000\n"},
        {6, "color 0.000000 0.000000 0.000000 0.000000\n"},     {7, "color 0.000000 0.000000 0.000000 0.000000\n"},
        {8, "color 0.000000 0.000000 0.000000 0.000000\n"},     {9, "color 0.000000 0.000000 0.000000 0.000000\n"},
    };
    for (const Row& row : rows) {
        CHECK_ROW(classes[row.which].label);
        const Owned value(classes[row.which].makeScalar("size", false));
        ShaderText text;
        CHECK_EQ(write(*value, "MaterialDescriptor", text, nullptr), 1);
        CHECK_TEXT(text.text, row.text);
        CHECK_EQ(text.calls, 1);
    }
}

TEST_CASE(otherSectionsWriteNothing) {
    for (const char* section : {"ParamList", "", "materialdescriptor", "MaterialDescriptor ", "Material"}) {
        CHECK_ROW(section);
        const Owned value(classes[1].makeScalar("size", false));
        ShaderText text;
        CHECK_EQ(write(*value, section, text, nullptr), 0);
        CHECK_EQ(text.calls, 0);
    }
}

TEST_CASE(withoutASectionOrASourceNothingIsWritten) {
    const Owned value(classes[1].makeScalar("size", false));
    ShaderText text;
    auto& shader = part<RTTexInterface>(*value, EXT_RTTEX);
    CHECK_EQ(shader.writeShaderSource(nullptr, nullptr, nullptr, &text, nullptr), 0);
    CHECK_EQ(text.calls, 0);
    CHECK_EQ(shader.writeShaderSource(nullptr, nullptr, "MaterialDescriptor", nullptr, nullptr), 0);
}

TEST_CASE(theTimeOfTheContextIsPassedOn) {
    const EvaluationState state{12.5};
    const Context at(&state);
    const Context without(nullptr);
    Clock clock;
    ShaderText text;
    CHECK_EQ(write(clock, "MaterialDescriptor", text, &at), 1);
    CHECK_TEXT(text.text, "color 12.500000 12.500000 12.500000 12.500000\n");
    CHECK_EQ(write(clock, "MaterialDescriptor", text, &without), 1);
    CHECK_TEXT(text.text, "color 0.000000 0.000000 0.000000 0.000000\n");
    // The getter of the type at index 0 and time 0 is asked, with index 0 and the context's time.
    for (const ParamType type : {PARAM_INT, PARAM_FLOAT, PARAM_DOUBLE, PARAM_COLOR, PARAM_ACOLOR}) {
        clock.type = type;
        CHECK_EQ(write(clock, "MaterialDescriptor", text, &at), 1);
        CHECK_TEXT(text.text, type == PARAM_INT     ? "color 12.000000 12.000000 12.000000 12.000000\n"
                              : type == PARAM_COLOR ? "color 12.500000 12.500000 12.500000 1.000000\n"
                                                    : "color 12.500000 12.500000 12.500000 12.500000\n");
    }
    auto& shader = part<RTTexInterface>(clock, EXT_RTTEX);
    CHECK_EQ(shader.reservedQuery(), 0);
    shader.reservedNotify();
}
