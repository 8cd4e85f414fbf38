// Reading a parameter: what the plugin and its value are asked, in order, with which index, and always at the time 0.0.
#include "param/reading/get_param.h"

#include <string>

#include "check.h"
#include "frame/py_ref.h"
#include "stub_host.h"

using namespace KUtils;
using namespace KUtils::Python;

namespace {

std::string road;

void note(const std::string& call) { road += (road.empty() ? "" : " ") + call; }

void note(const char* operation, int index, double time) {
    note(operation + ("(" + std::to_string(index)) + (time == 0.0 ? ")" : ", at another time)"));
}

void note(const char* operation, double time) { note(operation + std::string(time == 0.0 ? "" : " at another time")); }

// A value of one type: single, a list of two, or, for the code of a list, a list of two single values that are opened.
class RoadValue final : public KelmoPluginParameter {
  public:
    RoadValue(int code, bool isList, int elementCode = PARAM_UNKNOWN)
        : type(static_cast<ParamType>(code)), list(isList), elementType(static_cast<ParamType>(elementCode)) {}

    const char* getName() override { return "param"; }
    // How often it is asked is not noted.
    int getCount(double time) override {
        CHECK_EQ(time, 0.0);
        return list && depth == 0 ? 2 : -1;
    }
    ListHandle openListImpl(int index) override {
        note("open", index, 0.0);
        ++depth;
        return 70 + index;
    }
    ListHandle closeList(ListHandle handle) override {
        note("close", static_cast<int>(handle), 0.0);
        --depth;
        return 0;
    }
    ParamType getType(int index, double time) override {
        note("getType", index, time);
        return type == PARAM_LIST && index != -1 ? elementType : type;
    }
    int getInt(int index, double time) override { return asked<int>("getInt", index, time); }
    float getFloat(int index, double time) override { return asked<float>("getFloat", index, time); }
    double getDouble(int index, double time) override { return asked<double>("getDouble", index, time); }
    bool getBool(int index, double time) override { return asked<bool>("getBool", index, time); }
    Vector getVector(int index, double time) override { return asked<Vector>("getVector", index, time); }
    Color getColor(int index, double time) override { return asked<Color>("getColor", index, time); }
    AColor getAColor(int index, double time) override { return asked<AColor>("getAColor", index, time); }
    Matrix getMatrix(int index, double time) override { return asked<Matrix>("getMatrix", index, time); }
    TraceTransform getTransform(int index, double time) override {
        return asked<TraceTransform>("getTransform", index, time);
    }
    const char* getString(int index, double time) override { return asked<const char*>("getString", index, time); }
    PluginBase* getPlugin(int index, double time, const char** outputName) override {
        CHECK_TEXT(*outputName, nullptr);
        return asked<PluginBase*>("getPlugin", index, time);
    }
    ListView<std::int32_t> getIntList(double time) override { return viewed<std::int32_t>("getIntList", time); }
    ListView<float> getFloatList(double time) override { return viewed<float>("getFloatList", time); }
    ListView<Vector> getVectorList(double time) override { return viewed<Vector>("getVectorList", time); }
    ListView<Color> getColorList(double time) override { return viewed<Color>("getColorList", time); }

  private:
    template <class T>
    T asked(const char* operation, int index, double time) {
        note(operation, index, time);
        return T{};
    }
    template <class T>
    ListView<T> viewed(const char* operation, double time) {
        note(operation, time);
        return emptyView<T>();
    }

    ParamType type;
    bool list;
    ParamType elementType;
    int depth = 0;
};

class ReadPlugin final : public StubPlugin {
  public:
    KelmoPluginParameter* getParameter(const char* wanted) override {
        note(std::string("getParameter(") + wanted + ")");
        return carried;
    }
    KelmoPluginParameter* carried = nullptr;
};

}  // namespace

TEST_CASE(theRoadOfOneRead) {
    struct Row {
        int code;
        const char* single;
        const char* list;
    };
    const char* NOT_READ = "";
    const Row rows[] = {{0, "getInt(0)", "getIntList getIntList"},
                        {1, "getFloat(0)", "getFloatList getFloatList"},
                        {2, "getDouble(0)", "getDouble(0) getDouble(1)"},
                        {3, "getBool(0)", "getIntList getIntList"},
                        {4, "getVector(0)", "getVectorList getVectorList"},
                        {5, "getColor(0)", "getColorList getColorList"},
                        {6, "getAColor(0)", "getAColor(0) getAColor(1)"},
                        {7, "getMatrix(0)", "getMatrix(0) getMatrix(1)"},
                        {8, "getTransform(0)", "getTransform(0) getTransform(1)"},
                        {9, "getString(0)", "getString(0) getString(1)"},
                        {10, "getPlugin(0)", "getPlugin(0) getPlugin(1)"},
                        {11, "getPlugin(0)", NOT_READ},
                        {12, NOT_READ, "getType(0) open(0) close(70) getType(1) open(1) close(71)"},
                        {17, "getPlugin(0)", NOT_READ},
                        {18, NOT_READ, NOT_READ}};
    StubHost host;
    ReadPlugin plugin;
    host.add("plug", plugin);
    for (const Row& row : rows) {
        for (const bool isList : {false, true}) {
            const char* expected = isList ? row.list : row.single;
            CHECK_ROW(expected);
            RoadValue value(row.code, isList);
            plugin.carried = &value;
            road.clear();
            PyRef::steal(getParam("plug", "param"));
            const std::string asked = std::string("getParameter(param) getType(-1)") + (*expected != 0 ? " " : "");
            CHECK_TEXT(road.c_str(), (asked + expected).c_str());
        }
        // As an element of a list of lists it is opened, and then asked with its index all the same.
        RoadValue value(PARAM_LIST, true, row.code);
        plugin.carried = &value;
        road.clear();
        PyRef::steal(getParam("plug", "param"));
        std::string expected = "getParameter(param) getType(-1)";
        for (const char* index : {"0", "1"}) {
            std::string asked = row.single;
            if (!asked.empty()) asked.replace(asked.find('0'), 1, index).insert(0, " ");
            const std::string in = std::string("(") + index + ")", out = std::string("(7") + index + ")";
            expected += " getType" + in + " open" + in + asked + " close" + out;
        }
        CHECK_TEXT(road.c_str(), expected.c_str());
    }
}

TEST_CASE(theDeclarationIsAskedOnlyWhereNothingIsCarried) {
    StubHost host;
    ReadPlugin plugin;
    host.add("plug", plugin);
    RoadValue value(PARAM_INT, false);
    plugin.carried = &value;
    CHECK(static_cast<bool>(PyRef::steal(getParam("plug", "undeclared"))));
    plugin.carried = nullptr;
    plugin.type.declare("param", PARAM_INT);
    plugin.type.records[0].defaultInt = 7;
    CHECK(PyRef::steal(getParam("plug", "param")).get() == Py_None);
    plugin.type.records[0].hasDefault = 0x80;
    const PyRef pair = PyRef::steal(getParam("plug", "param"));
    CHECK_EQ(PyInt_AsLong(PyTuple_GetItem(pair.get(), 1)), 7L);
}
