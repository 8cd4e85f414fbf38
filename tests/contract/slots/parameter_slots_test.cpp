// KelmoPluginParameter: each of its 27 operations through the raw table, and the defaults.
#include <cstring>

#include "contract/probe.h"
#include "contract/test_heap.h"
#include "kelmo/param/plugin_parameter.h"
#include "raw_slots.h"
#include "support/check.h"

using namespace KUtils;

namespace {

// The slot of an operation by its number in the contract, where 1 is the destructor.
constexpr int slot(int number) { return number - 2 + DESTRUCTOR_SLOTS; }

int destroyed = 0;
const char outputText[] = "out";
char anything[32];

PluginBase* somePlugin() { return reinterpret_cast<PluginBase*>(anything); }
PluginInterface* someInterface() { return reinterpret_cast<PluginInterface*>(anything + 8); }
void* someRecord() { return anything + 16; }

template <class T>
ListView<T> someView(int count) {
    return ListView<T>{reinterpret_cast<T*>(anything), someRecord(), count, 2};
}

class ProbeParameter : public KelmoPluginParameter {
  public:
    ~ProbeParameter() override { ++destroyed; }
    PluginInterface* getInterface(InterfaceID id) override {
        note("getInterface", static_cast<long long>(id));
        return someInterface();
    }
    void releaseInterface(PluginInterface* iface) override { note("releaseInterface", iface); }
    bool addInterface(PluginInterface* iface, std::uint32_t owned) override {
        note("addInterface", iface, owned);
        return true;
    }
    bool removeInterface(PluginInterface* iface) override {
        note("removeInterface", iface);
        return true;
    }
    const char* getName() override {
        note("getName");
        return "name";
    }
    int getCount(double time) override {
        note("getCount", time);
        return 7;
    }
    ListHandle openList(int index) override {
        note("openList", index);
        return 0x1234567890;
    }
    ListHandle openListImpl(int index) override {
        note("openListImpl", index);
        return 0x2234567890;
    }
    ListHandle closeList(ListHandle handle) override {
        note("closeList", static_cast<long long>(handle));
        return 0x3234567890;
    }
    int getInt(int index, double time) override {
        note("getInt", index, time);
        return -11;
    }
    float getFloat(int index, double time) override {
        note("getFloat", index, time);
        return 1.25f;
    }
    double getDouble(int index, double time) override {
        note("getDouble", index, time);
        return 2.5;
    }
    bool getBool(int index, double time) override {
        note("getBool", index, time);
        return true;
    }
    Vector getVector(int index, double time) override {
        note("getVector", index, time);
        return Vector{1, 2, 3};
    }
    Color getColor(int index, double time) override {
        note("getColor", index, time);
        return Color{4, 5, 6};
    }
    AColor getAColor(int index, double time) override {
        note("getAColor", index, time);
        return AColor{{7, 8, 9}, 10};
    }
    Matrix getMatrix(int index, double time) override {
        note("getMatrix", index, time);
        return Matrix{{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}};
    }
    TraceTransform getTransform(int index, double time) override {
        note("getTransform", index, time);
        return TraceTransform{{{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}}, {10, 11, 12}};
    }
    const char* getString(int index, double time) override {
        note("getString", index, time);
        return "text";
    }
    PluginBase* getPlugin(int index, double time, const char** outputName) override {
        note("getPlugin", index, time);
        *outputName = outputText;
        return somePlugin();
    }
    ListView<std::int32_t> getIntList(double time) override {
        note("getIntList", time);
        return someView<std::int32_t>(1);
    }
    ListView<float> getFloatList(double time) override {
        note("getFloatList", time);
        return someView<float>(2);
    }
    ListView<Vector> getVectorList(double time) override {
        note("getVectorList", time);
        return someView<Vector>(3);
    }
    ListView<Color> getColorList(double time) override {
        note("getColorList", time);
        return someView<Color>(4);
    }
    ParamType getType(int index, double time) override {
        note("getType", index, time);
        return PARAM_TEXTURE_TRANSFORM;
    }
    void reserved() override { note("reserved"); }
};

// Only what a parameter has to supply.
class PlainParameter : public KelmoPluginParameter {
  public:
    ~PlainParameter() override { ++destroyed; }
    const char* getName() override { return "plain"; }
};

template <class T>
bool allZero(const T& value) {
    unsigned char bytes[sizeof(T)];
    std::memcpy(bytes, &value, sizeof bytes);
    for (unsigned char byte : bytes) {
        if (byte != 0) return false;
    }
    return true;
}

template <class T>
bool isSomeView(const ListView<T>& view, int count) {
    return static_cast<const void*>(view.data) == anything && view.shared == someRecord() && view.count == count &&
           view.owned == 2;
}

}  // namespace

TEST_CASE(parameterDestructor) {
    destroyed = 0;
    alignas(ProbeParameter) unsigned char storage[sizeof(ProbeParameter)];
    destroyThroughTable(::new (storage) ProbeParameter);
    CHECK_EQ(destroyed, 1);
    CHECK_EQ(testHeap().live, 0);

    auto* parameter = new ProbeParameter;
    CHECK_EQ(testHeap().live, 1);
    destroyThroughTable(parameter);
    CHECK_EQ(destroyed, 2);
    CHECK_EQ(testHeap().live, 1);
    ::new (parameter) ProbeParameter;
    deleteThroughTable(parameter);
    CHECK_EQ(destroyed, 3);
    CHECK_EQ(testHeap().live, 0);
    CHECK_EQ(testHeap().freedSize, sizeof(ProbeParameter));
}

TEST_CASE(parameterBaseOperations) {
    ProbeParameter probe;
    void* object = &probe;
    CHECK_EQ(callSlot<PluginInterface*>(object, slot(2), InterfaceID{0x2011042200}), someInterface());
    CHECK_CALLED("getInterface", 0x2011042200ll);
    callSlot<void>(object, slot(3), someInterface());
    CHECK_CALLED("releaseInterface", static_cast<const void*>(someInterface()));
    CHECK(callSlot<bool>(object, slot(4), someInterface(), std::uint32_t{0xBABADED3}));
    CHECK_CALLED("addInterface", static_cast<const void*>(someInterface()), std::uint32_t{0xBABADED3});
    CHECK(callSlot<bool>(object, slot(5), someInterface()));
    CHECK_CALLED("removeInterface", static_cast<const void*>(someInterface()));
}

TEST_CASE(parameterWalkOperations) {
    ProbeParameter probe;
    void* object = &probe;
    CHECK_TEXT(callSlot<const char*>(object, slot(6)), "name");
    CHECK_CALLED("getName");
    CHECK_EQ(callSlot<int>(object, slot(7), 0.5), 7);
    CHECK_CALLED("getCount", 0.5);
    CHECK_EQ(callSlot<ListHandle>(object, slot(8), 3), ListHandle{0x1234567890});
    CHECK_CALLED("openList", 3);
    CHECK_EQ(callSlot<ListHandle>(object, slot(9), 4), ListHandle{0x2234567890});
    CHECK_CALLED("openListImpl", 4);
    CHECK_EQ(callSlot<ListHandle>(object, slot(10), ListHandle{0x4234567890}), ListHandle{0x3234567890});
    CHECK_CALLED("closeList", 0x4234567890ll);
    CHECK_EQ(callSlot<int>(object, slot(26), -1, 0.75), 17);
    CHECK_CALLED("getType", -1, 0.75);
    callSlot<void>(object, slot(27));
    CHECK_CALLED("reserved");
}

TEST_CASE(parameterScalarOperations) {
    ProbeParameter probe;
    void* object = &probe;
    CHECK_EQ(callSlot<int>(object, slot(11), 2, 0.5), -11);
    CHECK_CALLED("getInt", 2, 0.5);
    CHECK_EQ(callSlot<float>(object, slot(12), 3, 1.5), 1.25f);
    CHECK_CALLED("getFloat", 3, 1.5);
    CHECK_EQ(callSlot<double>(object, slot(13), 4, 2.5), 2.5);
    CHECK_CALLED("getDouble", 4, 2.5);
    CHECK(callSlot<bool>(object, slot(14), 5, 3.5));
    CHECK_CALLED("getBool", 5, 3.5);
    CHECK_TEXT(callSlot<const char*>(object, slot(20), 6, 4.5), "text");
    CHECK_CALLED("getString", 6, 4.5);
    const char* outputName = nullptr;
    CHECK_EQ(callSlot<PluginBase*>(object, slot(21), 7, 5.5, &outputName), somePlugin());
    CHECK_CALLED("getPlugin", 7, 5.5);
    CHECK_TEXT(outputName, outputText);
}

TEST_CASE(parameterStructureOperations) {
    ProbeParameter probe;
    void* object = &probe;
    const auto vector = callSlot<Vector>(object, slot(15), 2, 0.5);
    CHECK_CALLED("getVector", 2, 0.5);
    CHECK(vector.x == 1 && vector.y == 2 && vector.z == 3);
    const auto color = callSlot<Color>(object, slot(16), 3, 1.5);
    CHECK_CALLED("getColor", 3, 1.5);
    CHECK(color.r == 4 && color.g == 5 && color.b == 6);
    const auto acolor = callSlot<AColor>(object, slot(17), 4, 2.5);
    CHECK_CALLED("getAColor", 4, 2.5);
    CHECK(acolor.color.r == 7 && acolor.color.g == 8 && acolor.color.b == 9 && acolor.alpha == 10);
    const auto matrix = callSlot<Matrix>(object, slot(18), 5, 3.5);
    CHECK_CALLED("getMatrix", 5, 3.5);
    CHECK(matrix.columns[0].x == 1 && matrix.columns[1].y == 5 && matrix.columns[2].z == 9);
    const auto transform = callSlot<TraceTransform>(object, slot(19), 6, 4.5);
    CHECK_CALLED("getTransform", 6, 4.5);
    CHECK(transform.matrix.columns[2].z == 9 && transform.offset[0] == 10 && transform.offset[2] == 12);
}

TEST_CASE(parameterListOperations) {
    ProbeParameter probe;
    void* object = &probe;
    CHECK(isSomeView(callSlot<ListView<std::int32_t>>(object, slot(22), 0.5), 1));
    CHECK_CALLED("getIntList", 0.5);
    CHECK(isSomeView(callSlot<ListView<float>>(object, slot(23), 1.5), 2));
    CHECK_CALLED("getFloatList", 1.5);
    CHECK(isSomeView(callSlot<ListView<Vector>>(object, slot(24), 2.5), 3));
    CHECK_CALLED("getVectorList", 2.5);
    CHECK(isSomeView(callSlot<ListView<Color>>(object, slot(25), 3.5), 4));
    CHECK_CALLED("getColorList", 3.5);
}

TEST_CASE(parameterDefaults) {
    PlainParameter plain;
    void* object = &plain;
    CHECK_EQ(callSlot<PluginInterface*>(object, slot(2), InterfaceID{1}), nullptr);
    CHECK(!callSlot<bool>(object, slot(5), someInterface()));
    CHECK_EQ(callSlot<int>(object, slot(7), 0.0), -1);
    CHECK_EQ(callSlot<ListHandle>(object, slot(8), 3), ListHandle{0});
    CHECK_EQ(callSlot<ListHandle>(object, slot(9), 3), ListHandle{0});
    callSlot<ListHandle>(object, slot(10), ListHandle{5});
    CHECK_EQ(callSlot<int>(object, slot(11), 0, 0.0), 0);
    CHECK_EQ(callSlot<float>(object, slot(12), 0, 0.0), 0.0f);
    CHECK_EQ(callSlot<double>(object, slot(13), 0, 0.0), 0.0);
    CHECK(!callSlot<bool>(object, slot(14), 0, 0.0));
    CHECK(allZero(callSlot<Vector>(object, slot(15), 0, 0.0)));
    CHECK(allZero(callSlot<Color>(object, slot(16), 0, 0.0)));
    CHECK(allZero(callSlot<AColor>(object, slot(17), 0, 0.0)));
    CHECK(allZero(callSlot<Matrix>(object, slot(18), 0, 0.0)));
    const auto transform = callSlot<TraceTransform>(object, slot(19), 0, 0.0);
    CHECK(allZero(transform.matrix));
    CHECK(transform.offset[0] == 0 && transform.offset[1] == 0 && transform.offset[2] == 0);
    CHECK_EQ(callSlot<const char*>(object, slot(20), 0, 0.0), static_cast<const char*>(nullptr));
    const char* outputName = outputText;
    CHECK_EQ(callSlot<PluginBase*>(object, slot(21), 0, 0.0, &outputName), nullptr);
    CHECK_TEXT(outputName, outputText);
    CHECK(allZero(callSlot<ListView<std::int32_t>>(object, slot(22), 0.0)));
    CHECK(allZero(callSlot<ListView<float>>(object, slot(23), 0.0)));
    CHECK(allZero(callSlot<ListView<Vector>>(object, slot(24), 0.0)));
    CHECK(allZero(callSlot<ListView<Color>>(object, slot(25), 0.0)));
    CHECK_EQ(callSlot<int>(object, slot(26), -1, 0.0), 10000);
    callSlot<void>(object, slot(27));
    callSlot<void>(object, slot(3), someInterface());
}

// openList leads to openListImpl, so that a class overrides one of them only.
TEST_CASE(openListForwards) {
    struct Opening : PlainParameter {
        ListHandle openListImpl(int index) override { return index + 100; }
    } opening;
    CHECK_EQ(callSlot<ListHandle>(&opening, slot(8), 5), ListHandle{105});
}
