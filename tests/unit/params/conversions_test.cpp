// The conversions between numbers and colours at their edges.
#include <cmath>
#include <initializer_list>
#include <limits>

#include "check.h"
#include "helpers/value_classes.h"

using namespace value_classes;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

struct Truncation {
    const char* label;
    double from;
    int expected;
};

const Truncation truncations[] = {
    {"toward zero from below", -2.7, -2},
    {"toward zero from above", 2.7, 2},
    {"largest int", 2147483647.0, 2147483647},
    {"below the next one", 2147483647.9, 2147483647},
    {"one too large", 2147483648.0, INT32_MIN},
    {"smallest int", -2147483648.0, INT32_MIN},
    {"above the one below", -2147483648.9, INT32_MIN},
    {"one too small", -2147483649.0, INT32_MIN},
    {"huge", 1e300, INT32_MIN},
    {"infinity", infinity, INT32_MIN},
    {"negative infinity", -infinity, INT32_MIN},
    {"not a number", nan, INT32_MIN},
};

struct Truth {
    const char* label;
    double value;
    bool asFloat;
    bool asDouble;
};

const Truth truths[] = {
    {"zero", 0.0, false, false},
    {"negative zero", -0.0, false, false},
    {"1e-13", 1e-13, false, false},
    {"the single-precision 1e-12", 9.999999960041972e-13, true, true},
    {"between it and 1e-12", 9.99999998e-13, true, true},
    {"just below it", 9.99999996e-13, true, false},
    {"-1e-12", -1e-12, true, true},
    {"one", 1.0, true, true},
    {"infinity", infinity, true, true},
    {"not a number", nan, false, false},
};

}  // namespace

TEST_CASE(numbersAreTruncatedAsTheHardwareDoes) {
    for (const Truncation& row : truncations) {
        CHECK_ROW(row.label);
        DefDoubleParam fromDouble("a", row.from, false);
        CHECK_EQ(fromDouble.getInt(0, 0.0), row.expected);
        DefIntParam into("a", 99, false);
        into.setDouble(row.from, 0, 0.0);
        CHECK_EQ(into.getInt(0, 0.0), row.expected);
        // Only what a float holds exactly is the same number there.
        if (static_cast<double>(static_cast<float>(row.from)) == row.from || std::isnan(row.from)) {
            DefFloatParam fromFloat("a", static_cast<float>(row.from), false);
            CHECK_EQ(fromFloat.getInt(0, 0.0), row.expected);
            into.setFloat(static_cast<float>(row.from), 0, 0.0);
            CHECK_EQ(into.getInt(0, 0.0), row.expected);
        }
    }
}

TEST_CASE(aNumberIsTrueFromItsEpsilonOn) {
    for (const Truth& row : truths) {
        CHECK_ROW(row.label);
        DefFloatParam single("a", static_cast<float>(row.value), false);
        DefDoubleParam wide("a", row.value, false);
        CHECK_EQ(single.getBool(0, 0.0), row.asFloat);
        CHECK_EQ(wide.getBool(0, 0.0), row.asDouble);
        DefFloatListParam singles("a", false);
        DefDoubleListParam wides("a", false);
        settableOf(singles).setFloat(static_cast<float>(row.value), 0, 0.0);
        settableOf(wides).setDouble(row.value, 0, 0.0);
        CHECK_EQ(singles.getBool(0, 0.0), row.asFloat);
        CHECK_EQ(wides.getBool(0, 0.0), row.asDouble);
    }
}

TEST_CASE(theIntIsTrueAsAWhole) {
    for (int value : {0, 1, -1, 256, 65536, INT32_MIN}) {
        DefIntParam param("a", value, false);
        CHECK_EQ(param.getBool(0, 0.0), value != 0);
    }
}

TEST_CASE(aBoolIsWrittenAsOneOrZero) {
    for (const bool value : {true, false}) {
        DefIntParam whole("a", 5, false);
        DefFloatParam single("a", 5.0f, false);
        DefDoubleParam wide("a", 5.0, false);
        for (KelmoSettableParamInterface* settable : {&settableOf(whole), &settableOf(single), &settableOf(wide)}) {
            settable->setBool(value, 0, 0.0);
        }
        CHECK_EQ(whole.getInt(0, 0.0), value ? 1 : 0);
        CHECK_EQ(single.getFloat(0, 0.0), value ? 1.0f : 0.0f);
        CHECK_EQ(wide.getDouble(0, 0.0), value ? 1.0 : 0.0);
    }
}

// The grey value: the sum in this order, in single precision, without a fused multiply and add.
TEST_CASE(aColorsMeanIsComputedInOneOrder) {
    const Color colors[] = {{0.3f, 0.6f, 0.9f},          {1e8f, -1e8f, 1.0f},  {1.0f, 1e8f, -1e8f},
                            {-1e8f, 1.0f, 1e8f},         {0.1f, 0.2f, 0.3f},   {3.0e38f, -3.0e38f, 1.0f},
                            {16777216.0f, 1.0f, 1.0f},   {0.0f, 0.0f, 0.0f},   {0.7f, 0.11f, 0.13f},
                            {1.1754944e-38f, 0.f, -0.f}, {5e-39f, 5e-39f, 1.f}};
    for (const Color& color : colors) {
        volatile float sum = color.g + color.r;
        sum = sum + color.b;
        volatile float mean = sum * 0.33333334f;
        DefColorParam plain("a", color, false);
        CHECK_EQ(plain.getFloat(0, 0.0), static_cast<float>(mean));
        DefAColorParam withAlpha("a", AColor{color, 1000.0f}, false);
        CHECK_EQ(withAlpha.getFloat(0, 0.0), static_cast<float>(mean));
        CHECK_EQ(plain.getDouble(0, 0.0), 0.0);
        CHECK_EQ(withAlpha.getDouble(0, 0.0), 0.0);
        CHECK_EQ(plain.getInt(0, 0.0), 0);
    }
    DefColorParam example("a", Color{0.3f, 0.6f, 0.9f}, false);
    CHECK(std::fabs(example.getFloat(0, 0.0) - 0.6f) < 1e-6f);
}

TEST_CASE(aDoubleIsNarrowedOnItsWayToAColor) {
    DefDoubleParam param("a", 0.1, false);
    CHECK_EQ(param.getFloat(0, 0.0), 0.1f);
    CHECK_EQ(param.getColor(0, 0.0).g, 0.1f);
    CHECK_EQ(param.getAColor(0, 0.0).color.b, 0.1f);
    CHECK_EQ(param.getAColor(0, 0.0).alpha, 1.0f);
    DefFloatParam single("a", 0.1f, false);
    CHECK_EQ(single.getDouble(0, 0.0), static_cast<double>(0.1f));
    DefIntParam large("a", 16777217, false);
    CHECK_EQ(large.getFloat(0, 0.0), 16777216.0f);
    CHECK_EQ(large.getDouble(0, 0.0), 16777217.0);
}

// A class that gives a type and one getter, to see which getter each conversion asks.
namespace {

class Probe : public DefParamBase {
  public:
    Probe() : DefParamBase("probe", false) {}
    ParamType getType(int index, double time) override {
        passedOn = passedOn && index == 4 && time == 2.5;
        return type;
    }
    int getInt(int, double) override { return 256; }
    double getDouble(int, double) override { return 0.5; }
    ParamType type = PARAM_UNKNOWN;
    bool passedOn = true;
};

// One that gives the colour of its type, and leaves the other to the base.
class ColorProbe final : public Probe {
  public:
    Color getColor(int index, double time) override {
        return type == PARAM_COLOR ? Color{0.25f, 0.5f, 0.75f} : Probe::getColor(index, time);
    }
    AColor getAColor(int index, double time) override {
        return type == PARAM_ACOLOR ? AColor{{0.25f, 0.5f, 0.75f}, 0.125f} : Probe::getAColor(index, time);
    }
};

}  // namespace

// Each getter that a conversion may ask answers a number of its own, and remembers what it was asked.
namespace {

class Listener : public DefParamBase {
  public:
    explicit Listener(ParamType answered) : DefParamBase("listener", false), type(answered) {}
    ParamType getType(int index, double time) override { return note(index, time, type); }
    int getInt(int index, double time) override { return note(index, time, -7); }
    float getFloat(int index, double time) override { return note(index, time, 1.5f); }
    double getDouble(int index, double time) override { return note(index, time, 2.5); }
    Color getColor(int index, double time) override { return note(index, time, Color{3, 3, 3}); }
    AColor getAColor(int index, double time) override { return note(index, time, AColor{{4, 4, 4}, 0.5f}); }
    bool passedOn = true;

  private:
    template <class T>
    T note(int index, double time, T answer) {
        passedOn = passedOn && index == 4 && time == 2.5;
        return answer;
    }
    ParamType type;
};

}  // namespace

TEST_CASE(conversionsPassOnIndexAndTime) {
    struct Row {
        ParamType type;
        float asFloat, asColor, asAColor, alpha;
    };
    const Row rows[] = {
        {PARAM_INT, 0, 0, 0, 0},   {PARAM_FLOAT, 0, 1.5f, 1.5f, 1}, {PARAM_DOUBLE, 2.5f, 2.5f, 2.5f, 1},
        {PARAM_COLOR, 3, 0, 3, 1}, {PARAM_ACOLOR, 4, 4, 0, 0},
    };
    for (const Row& row : rows) {
        Listener listener(row.type);
        CHECK_EQ(listener.DefParamBase::getFloat(4, 2.5), row.asFloat);
        CHECK_EQ(listener.DefParamBase::getColor(4, 2.5).b, row.asColor);
        CHECK_EQ(listener.DefParamBase::getAColor(4, 2.5).color.b, row.asAColor);
        CHECK_EQ(listener.DefParamBase::getAColor(4, 2.5).alpha, row.alpha);
        CHECK(listener.DefParamBase::getBool(4, 2.5));  // a negative int is true
        CHECK(listener.passedOn);
    }
}

TEST_CASE(theBaseConvertsByTheTypeItIsTold) {
    struct Row {
        const char* label;
        ParamType type;
        const char* answers;
    };
    const Row rows[] = {
        {"unknown", PARAM_UNKNOWN, "int 256 double 0.5 true self"},
        {"int", PARAM_INT, "int 256 double 0.5 true self"},
        {"double", PARAM_DOUBLE, "int 256 float 0.5 double 0.5 true color 0.5,0.5,0.5 acolor 0.5,0.5,0.5,1 self"},
        {"list", PARAM_LIST, "int 256 double 0.5 true self"},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        Probe probe;
        probe.type = row.type;
        CHECK_TEXT(describe::answers(probe, 4).text, row.answers);
        probe.passedOn = true;
        probe.getFloat(4, 2.5);
        probe.getColor(4, 2.5);
        probe.getAColor(4, 2.5);
        CHECK(probe.passedOn);
    }
    ColorProbe color;
    color.type = PARAM_COLOR;
    CHECK_TEXT(describe::answers(color, 4).text,
               "int 256 float 0.5 double 0.5 true color 0.25,0.5,0.75 acolor 0.25,0.5,0.75,1 self");
    color.type = PARAM_ACOLOR;
    CHECK_TEXT(describe::answers(color, 4).text,
               "int 256 float 0.5 double 0.5 true color 0.25,0.5,0.75 acolor 0.25,0.5,0.75,0.125 self");
    DefParamBase base("base", false);
    CHECK(static_cast<RTTexInterface&>(base).getPlugin() == &base);
    CHECK_EQ(static_cast<int>(base.getType(0, 0.0)), 10000);
    CHECK_TEXT(describe::answers(base, 0).text, "self");
}
