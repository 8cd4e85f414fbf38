// The settable interfaces: identifiers, names, every operation through the raw table, and what is not overridden.
#include "interface_slots.h"
#include "kelmo/param/settable.h"

using namespace KUtils;

namespace {

template <class Interface>
class ProbeSettable : public Owned<Interface> {
  public:
    void setInt(int value, int index, double time) override { note("setInt", value, index, time); }
    void setFloat(float value, int index, double time) override { note("setFloat", double{value}, index, time); }
    void setDouble(double value, int index, double time) override { note("setDouble", value, index, time); }
    void setBool(bool value, int index, double time) override { note("setBool", value, index, time); }
    void setColor(const Color& value, int index, double time) override { note("setColor", &value, index, time); }
    void setAColor(const AColor& value, int index, double time) override { note("setAColor", &value, index, time); }
    void setString(const char* value, int index, double time) override {
        note("setString", static_cast<const void*>(value), index, time);
    }
    void setPluginOutput(PluginBase* plugin, const char* outputName, int index, double time) override {
        note("setPluginOutput", plugin, static_cast<const void*>(outputName), index, time);
    }
    void setVector(const Vector& value, int index, double time) override { note("setVector", &value, index, time); }
    void setMatrix(const Matrix& value, int index, double time) override { note("setMatrix", &value, index, time); }
    void setTransform(const Transform& value, int index, double time) override {
        note("setTransform", &value, index, time);
    }
    void reservedSet1() override { note("reservedSet1"); }
    void reservedSet2() override { note("reservedSet2"); }
    void reservedSet3() override { note("reservedSet3"); }
    void reservedSet4() override { note("reservedSet4"); }
    void setCount(int count) override { note("setCount", count); }
    void reserve(int capacity) override { note("reserve", capacity); }
};

class ProbeSettable2 : public ProbeSettable<KelmoSettableParamInterface2> {
  public:
    void reservedSet5() override { note("reservedSet5"); }
    void reservedSet6() override { note("reservedSet6"); }
    void reservedSet7() override { note("reservedSet7"); }
    void setDoubleList(const ListView<double>& values) override { note("setDoubleList", &values); }
    ListView<double> getDoubleList() override {
        note("getDoubleList");
        return ListView<double>{reinterpret_cast<double*>(anything), anything + 8, 5, 1};
    }
    void setTransformList(const ListView<Transform>& values) override { note("setTransformList", &values); }
    ListView<TraceTransform> getTransformList() override {
        note("getTransformList");
        return ListView<TraceTransform>{reinterpret_cast<TraceTransform*>(anything), anything + 8, 6, 1};
    }
};

void checkSettable(void* object) {
    const Color color{};
    const AColor acolor{};
    const Vector vector{};
    const Matrix matrix{};
    const Transform transform{};
    const char* text = "text";
    const void* plugin = somePlugin();
    callSlot<void>(object, slot(6), -3, 1, 0.5);
    CHECK_CALLED("setInt", -3, 1, 0.5);
    callSlot<void>(object, slot(7), 1.25f, 2, 0.5);
    CHECK_CALLED("setFloat", 1.25, 2, 0.5);
    callSlot<void>(object, slot(8), 2.25, 3, 0.5);
    CHECK_CALLED("setDouble", 2.25, 3, 0.5);
    callSlot<void>(object, slot(9), true, 4, 0.5);
    CHECK_CALLED("setBool", true, 4, 0.5);
    callSlot<void>(object, slot(10), &color, 5, 0.5);
    CHECK_CALLED("setColor", &color, 5, 0.5);
    callSlot<void>(object, slot(11), &acolor, 6, 0.5);
    CHECK_CALLED("setAColor", &acolor, 6, 0.5);
    callSlot<void>(object, slot(12), text, 7, 0.5);
    CHECK_CALLED("setString", static_cast<const void*>(text), 7, 0.5);
    callSlot<void>(object, slot(13), plugin, text, 8, 0.5);
    CHECK_CALLED("setPluginOutput", plugin, static_cast<const void*>(text), 8, 0.5);
    callSlot<void>(object, slot(14), plugin, 9, 0.75);
    CHECK_CALLED("setPluginOutput", plugin, static_cast<const void*>(nullptr), 9, 0.75);
    callSlot<void>(object, slot(15), &vector, 10, 0.5);
    CHECK_CALLED("setVector", &vector, 10, 0.5);
    callSlot<void>(object, slot(16), &matrix, 11, 0.5);
    CHECK_CALLED("setMatrix", &matrix, 11, 0.5);
    callSlot<void>(object, slot(17), &transform, 12, 0.5);
    CHECK_CALLED("setTransform", &transform, 12, 0.5);
    const char* const reserved[] = {"reservedSet1", "reservedSet2", "reservedSet3", "reservedSet4"};
    for (int i = 0; i < 4; ++i) {
        callSlot<void>(object, slot(18 + i));
        CHECK_CALLED(reserved[i]);
    }
    callSlot<void>(object, slot(22), 13);
    CHECK_CALLED("setCount", 13);
    callSlot<void>(object, slot(23), 14);
    CHECK_CALLED("reserve", 14);
}

}  // namespace

TEST_CASE(settableIdentities) {
    ProbeSettable<KelmoSettableParamInterface> settable;
    ProbeSettable2 settable2;
    checkIdentity(&settable, 3132808915u, "EXT_SETTABLE_PARAM");
    checkIdentity(&settable2, 2013102979u, "EXT_SETTABLE_PARAM2");
}

TEST_CASE(settableOperations) {
    ProbeSettable<KelmoSettableParamInterface> settable;
    checkSettable(&settable);
    ProbeSettable2 settable2;
    checkSettable(&settable2);
}

TEST_CASE(settable2Operations) {
    ProbeSettable2 settable;
    void* object = &settable;
    const char* const reserved[] = {"reservedSet5", "reservedSet6", "reservedSet7"};
    for (int i = 0; i < 3; ++i) {
        callSlot<void>(object, slot(24 + i));
        CHECK_CALLED(reserved[i]);
    }
    const ListView<double> doubles{};
    callSlot<void>(object, slot(27), &doubles);
    CHECK_CALLED("setDoubleList", &doubles);
    const auto view = callSlot<ListView<double>>(object, slot(28));
    CHECK_CALLED("getDoubleList");
    CHECK(view.shared == anything + 8 && view.count == 5 && view.owned == 1);
    const ListView<Transform> transforms{};
    callSlot<void>(object, slot(29), &transforms);
    CHECK_CALLED("setTransformList", &transforms);
    const auto transformView = callSlot<ListView<TraceTransform>>(object, slot(30));
    CHECK_CALLED("getTransformList");
    CHECK(transformView.shared == anything + 8 && transformView.count == 6 && transformView.owned == 1);
}

// Every setter that is not overridden does nothing, and the getters answer an empty view.
TEST_CASE(settableDefaults) {
    Owned<KelmoSettableParamInterface2> plain;
    void* object = &plain;
    const Transform value{};
    callSlot<void>(object, slot(6), 1, 0, 0.0);
    callSlot<void>(object, slot(7), 1.0f, 0, 0.0);
    callSlot<void>(object, slot(8), 1.0, 0, 0.0);
    callSlot<void>(object, slot(9), true, 0, 0.0);
    for (int number : {10, 11, 12, 15, 16, 17}) callSlot<void>(object, slot(number), &value, 0, 0.0);
    callSlot<void>(object, slot(13), somePlugin(), "out", 0, 0.0);
    callSlot<void>(object, slot(14), somePlugin(), 0, 0.0);
    for (int number : {18, 19, 20, 21, 24, 25, 26}) callSlot<void>(object, slot(number));
    for (int number : {22, 23}) callSlot<void>(object, slot(number), 1);
    const ListView<double> values{};
    for (int number : {27, 29}) callSlot<void>(object, slot(number), &values);
    CHECK_TEXT(lastCall().c_str(), "");
    const auto doubles = callSlot<ListView<double>>(object, slot(28));
    CHECK(doubles.data == nullptr && doubles.shared == nullptr && doubles.count == 0 && doubles.owned == 0);
    const auto transforms = callSlot<ListView<TraceTransform>>(object, slot(30));
    CHECK(transforms.data == nullptr && transforms.shared == nullptr && transforms.count == 0 && transforms.owned == 0);
}
