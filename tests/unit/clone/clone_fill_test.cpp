// Filling: which setter takes which element, nested lists in every kind of target, bounds and failures.
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

#include "check.h"
#include "param/clone/clone_param_value.h"
#include "params/nested/map_channels_param.h"
#include "pointer_set/set_memory.h"
#include "stub_plugin.h"
#include "tree_source.h"

using namespace KUtils;

namespace {

// Writes down the setter that is called, with the value's first number, the index and the time.
class Recorder : public KelmoSettableParamInterface {
  public:
    PluginBase* getPlugin() override { return nullptr; }
    void setInt(int value, int index, double time) override { note("setInt", value, index, time); }
    void setFloat(float value, int index, double time) override { note("setFloat", value, index, time); }
    void setDouble(double value, int index, double time) override { note("setDouble", value, index, time); }
    void setBool(bool value, int index, double time) override { note("setBool", value, index, time); }
    void setColor(const Color& value, int index, double time) override { note("setColor", value.r, index, time); }
    void setAColor(const AColor& value, int index, double time) override {
        note("setAColor", value.alpha, index, time);
    }
    void setString(const char* value, int index, double time) override {
        note("setString", std::strcmp(value, "text") == 0, index, time);
    }
    void setPluginOutput(PluginBase* plugin, const char* outputName, int index, double time) override {
        note(outputName != nullptr ? outputName : "setPluginOutput", plugin != nullptr, index, time);
    }
    void setPlugin(PluginBase*, int index, double time) override { note("setPlugin", 0, index, time); }
    void setVector(const Vector& value, int index, double time) override { note("setVector", value.x, index, time); }
    void setMatrix(const Matrix& value, int index, double time) override {
        note("setMatrix", value.columns[1].x, index, time);
    }
    void setTransform(const Transform& value, int index, double time) override {
        note("setTransform", value.offset.z, index, time);
    }
    void setCount(int count) override { note("setCount", count, 0, 0); }

    std::string calls;

  private:
    void note(const char* what, double value, int index, double time) {
        char line[96];
        std::snprintf(line, sizeof line, "%s%s(%g)[%d]@%g", calls.empty() ? "" : " ", what, value, index, time);
        calls += line;
    }
};

}  // namespace

TEST_CASE(theSourceTypePicksTheSetter) {
    struct Row {
        int type;
        const char* call;
    };
    const Row rows[] = {
        {0, "setInt(3)[1]@0"},
        {1, "setFloat(3)[1]@0"},
        {2, "setDouble(3)[1]@0"},
        {3, "setBool(1)[1]@0"},
        {4, "setVector(3)[1]@0"},
        {5, "setColor(3)[1]@0"},
        {6, "setAColor(0.25)[1]@0"},
        {7, "setMatrix(4)[1]@0"},
        {8, "setTransform(3)[1]@0"},
        {9, "setString(1)[1]@0"},
        {10, "text(1)[1]@0"},
        {11, ""},
        {12, ""},
        {13, ""},
        {17, ""},
        {18, ""},
        {999, ""},
        {1000, "text(1)[1]@0"},
        {1001, "text(1)[1]@0"},
        {1002, "text(1)[1]@0"},
        {1003, "text(1)[1]@0"},
        {1004, "text(1)[1]@0"},
        {1005, "text(1)[1]@0"},
        {1006, ""},
        {10000, ""},
        {-1, ""},
    };
    StubPlugin plugin;
    for (const Row& row : rows) {
        char label[32];
        std::snprintf(label, sizeof label, "type %d", row.type);
        CHECK_ROW(label);
        TreeSource source(list(0, {number(0, 9), Node{row.type, 3, "text", &plugin, false, {}}}));
        Recorder recorder;
        copyElement(recorder, source, 1);
        CHECK_TEXT(recorder.calls.c_str(), row.call);
    }
    // A source that has no output's name may leave it as it was: null.
    struct Silent : TreeSource {
        using TreeSource::TreeSource;
        PluginBase* getPlugin(int index, double time, const char**) override {
            return TreeSource::getPlugin(index, time, nullptr);
        }
    };
    TreeSource plain(list(0, {reference(10, &plugin)}));
    Silent silent(list(0, {reference(10, &plugin)}));
    for (TreeSource* source : {&plain, static_cast<TreeSource*>(&silent)}) {
        Recorder recorder;
        copyElement(recorder, *source, 0);
        CHECK_TEXT(recorder.calls.c_str(), "setPluginOutput(1)[0]@0");
    }
}

namespace {

// A value as text, read the way a reader of lists reads: scalars by their type, lists in brackets.
std::string shown(KelmoPluginParameter& value, int type, int index) {
    char text[64];
    const int count = value.getCount(0.0);
    if (count == -1) {
        switch (type) {
            case PARAM_INT:
                std::snprintf(text, sizeof text, "%d", value.getInt(index, 0.0));
                return text;
            case PARAM_FLOAT:
                std::snprintf(text, sizeof text, "%gf", static_cast<double>(value.getFloat(index, 0.0)));
                return text;
            case PARAM_VECTOR:
                std::snprintf(text, sizeof text, "v%g", static_cast<double>(value.getVector(index, 0.0).x));
                return text;
            case PARAM_STRING:
                return value.getString(index, 0.0) != nullptr ? value.getString(index, 0.0) : "null";
            case PARAM_PLUGIN:
                return value.getPlugin(index, 0.0, nullptr) != nullptr ? "plugin" : "none";
            default:
                return "-";
        }
    }
    std::string result = "[";
    for (int i = 0; i < count; ++i) {
        if (i > 0) result += ",";
        const int elementType = value.getType(i, 0.0);
        if (type == PARAM_LIST) {
            const ListHandle opened = value.openListImpl(i);
            const ListView<std::int32_t> ints = value.getIntList(0.0);
            const ListView<Vector> vectors = value.getVectorList(0.0);
            if (ints.count > 0 || vectors.count > 0) {
                result += "[";
                for (int k = 0; k < ints.count; ++k) result += (k > 0 ? "," : "") + std::to_string(ints.data[k]);
                for (int k = 0; k < vectors.count; ++k)
                    result += (k > 0 ? ",v" : "v") + std::to_string(static_cast<int>(vectors.data[k].x));
                result += "]";
            } else {
                result += shown(value, elementType, i);
            }
            value.closeList(opened);
        } else {
            const ListView<std::int32_t> ints = value.getIntList(0.0);
            result += ints.count == count ? std::to_string(ints.data[i]) : "?";
        }
    }
    return result + "]";
}

std::string cloned(Node tree, int code, const char* param, const char* pluginType) {
    StubPlugin plugin(pluginType);
    TreeSource source(std::move(tree), param);
    const OwnedValue value = cloneParamValue(&plugin, source, code, true);
    if (value == nullptr) return "refused";
    return source.depth() == 0 ? shown(*value, value->getType(-1, 0.0), 0) : "the source was left open";
}

}  // namespace

TEST_CASE(nestedSourcesInEveryKindOfTarget) {
    const Node vectors = list(4, {number(4, 5), number(4, 6)});
    struct Row {
        const char* label;
        Node tree;
        int code;
        const char* param;
        const char* type;
        const char* expected;
    };
    const Row rows[] = {
        {"flat: numbers convert, texts do not", list(0, {number(0, 1), number(1, 2.7), string("x")}), 0, "p", "T",
         "[1,2,0]"},
        {"flat: a list within starts over",
         list(0, {number(0, 1), list(0, {number(0, 2), number(0, 3)}), number(0, 4)}), 0, "p", "T", "[2,3,4]"},
        {"flat: a longer list within",
         list(0, {number(0, 1), list(0, {number(0, 2), number(0, 3), number(0, 4), number(0, 5)}), number(0, 7),
                  number(0, 6)}),
         0, "p", "T", "[2,3,7,6]"},
        {"flat: two lists within", list(0, {list(0, {number(0, 1), number(0, 2)}), list(0, {number(0, 3)})}), 0, "p",
         "T", "[3]"},
        {"map channels", list(12, {list(12, {number(0, 7), vectors, list(0, {number(0, 0), number(0, 1)})})}), 12,
         "map_channels", "GeomStaticMesh", "[[7,[v5,v6],[0,1]]]"},
        {"map channels: three numbers, the last one counts",
         list(12, {list(12, {number(0, 7), number(0, 8), number(0, 9)})}), 12, "map_channels", "GeomStaticMesh",
         "[[9,[],[]]]"},
        {"lists of ints: a number among the lists is nothing",
         list(12, {list(0, {number(0, 1), number(0, 2)}), number(0, 5), list(12, {number(0, 3)})}), 12, "frames",
         "SettingsOutput", "[[1,2],[],[3]]"},
        {"lists of ints: no third level", list(12, {list(12, {list(0, {number(0, 4)}), number(0, 5)})}), 12, "frames",
         "SettingsOutput", "[[0,5]]"},
        {"generic: types stay",
         list(12, {number(0, 1), list(12, {number(1, 2.5), string("a")}), number(3, 1), number(11, 0)}), 12, "p", "T",
         "[1,[2.5f,a],1,-]"},
        {"generic: an empty list within", list(12, {list(12, {}), number(0, 2)}), 12, "p", "T", "[[],2]"},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        CHECK_TEXT(cloned(row.tree, row.code, row.param, row.type).c_str(), row.expected);
    }
}

TEST_CASE(fillAsksOnceForTheCountAndPeeksAtEveryElement) {
    TreeSource source(list(0, {number(0, 1), list(0, {number(0, 2)}), number(0, 3)}));
    Recorder recorder;
    TreeSource target(number(0, 0));
    CHECK(fillList(&recorder, &target, source, 0));
    CHECK_TEXT(recorder.calls.c_str(),
               "setCount(3)[0]@0 setInt(1)[0]@0 setCount(1)[0]@0 setInt(2)[0]@0 setInt(3)[2]@0");
    CHECK_EQ(source.opens, 3 + 1 + 1);  // three peeks, one descent, one peek within
    CHECK(!fillList(nullptr, &target, source, 0));
    CHECK(!fillList(&recorder, nullptr, source, 0));
}

TEST_CASE(onlyMinusOneIsNoList) {
    struct Odd : TreeSource {
        Odd() : TreeSource(list(0, {})) {}
        int getCount(double) override { return -2; }
    };
    Odd source;
    const OwnedValue value = cloneParamValue(nullptr, source, 0, true);
    CHECK(value != nullptr);
    if (value != nullptr) CHECK_EQ(value->getCount(0.0), 0);
}

TEST_CASE(genericTextsAreTheValuesOwn) {
    char text[] = "first";
    StubPlugin plugin("T");
    TreeSource source(list(12, {string(text), list(12, {string(text)})}));
    const OwnedValue value = cloneParamValue(&plugin, source, 12, true);
    std::memset(text, 'x', 5);
    CHECK_TEXT(shown(*value, PARAM_LIST, 0).c_str(), "[first,[first]]");
}

TEST_CASE(nestingHasABound) {
    StubPlugin plugin("T");
    for (int levels : {1, 2, MAX_LIST_NESTING, MAX_LIST_NESTING + 1, 1000}) {
        Node tree = list(12, {number(0, 1)});
        for (int level = 1; level < levels; ++level) tree = list(12, {tree});
        TreeSource source(std::move(tree));
        CHECK_EQ(cloneParamValue(&plugin, source, 12, true) != nullptr, levels <= MAX_LIST_NESTING);
    }
}

namespace {

// A list of `width` elements, each of which is the list itself, or a wider one.
class EndlessSource : public KelmoPluginParameter {
  public:
    explicit EndlessSource(int elements) : EndlessSource(elements, elements) {}
    EndlessSource(int elements, int elementsWithin) : width(elements), widthWithin(elementsWithin) {}
    const char* getName() override { return "p"; }
    int getCount(double) override { return opens == 0 ? width : widthWithin; }
    ListHandle openListImpl(int) override {
        ++opens;
        return 1;
    }
    ParamType getType(int, double) override { return PARAM_LIST; }
    int opens = 0;

  private:
    int width;
    int widthWithin;
};

}  // namespace

TEST_CASE(endlessSourcesAreRefusedAtOnce) {
    StubPlugin plugin("T");
    for (int width : {1, 2, 100}) {
        EndlessSource source(width);
        CHECK(cloneParamValue(&plugin, source, 12, true) == nullptr);
        CHECK(source.opens <= 2 * MAX_LIST_NESTING);
    }
    // One element that is a list of more elements than any value may have.
    EndlessSource huge(1, static_cast<int>(MAX_NESTED_ELEMENTS) + 1);
    CHECK(cloneParamValue(&plugin, huge, 12, true) == nullptr);
    CHECK_EQ(huge.opens, 2);
    // Deep inside, this one answers with counts that are not those of an element.
    DefMapChannelsParam channels("p", true);
    KelmoSettableParamInterface* settable = settableOf(channels);
    settable->setCount(1);
    const ListHandle channel = channels.openListImpl(0);
    const ListHandle part = channels.openListImpl(1);
    settable->setCount(2);
    channels.closeList(part);
    channels.closeList(channel);
    CHECK(cloneParamValue(&plugin, channels, 12, true) == nullptr);
}

TEST_CASE(everyAllocationMayFail) {
    StubPlugin plugin("T");
    StubPlugin mesh("GeomStaticMesh");
    struct Row {
        const char* label;
        Node tree;
        int code;
        bool isList;
        PluginBase* target;
        const char* param;
        std::size_t vital;  // the first so many allocations: without them there is no value
    };
    const Node channel = list(12, {number(0, 7), list(4, {number(4, 1)}), list(0, {number(0, 2)})});
    const Row rows[] = {
        {"int", number(0, 5), 0, false, &plugin, "p", 1},
        {"string", string("abc"), 9, false, &plugin, "p", 1},
        {"output", reference(1000, &plugin, "out"), 10, false, &plugin, "p", 1},
        {"ints", list(0, {number(0, 1), number(0, 2)}), 0, true, &plugin, "p", 1},
        {"strings", list(9, {string("a"), string("b")}), 9, true, &plugin, "p", 1},
        {"plugins", list(10, {reference(10, &plugin)}), 10, true, &plugin, "p", 1},
        {"generic", list(12, {number(0, 1), list(12, {string("a"), number(2, 2)}), string("b")}), 12, true, &plugin,
         "p", 8},
        {"channels", list(12, {channel, channel}), 12, true, &mesh, "map_channels", 1},
    };
    SetMemory& memory = setMemory();
    const std::size_t blocks = memory.blocks;
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        TreeSource counted(row.tree, row.param);
        const std::size_t before = memory.requests;
        CHECK(cloneParamValue(row.target, counted, row.code, row.isList) != nullptr);
        const std::size_t needed = memory.requests - before;
        CHECK(needed >= 2);
        for (std::size_t n = 1; n <= needed; ++n) {
            TreeSource source(row.tree, row.param);
            memory.failFrom = memory.requests + n;
            const OwnedValue value = cloneParamValue(row.target, source, row.code, row.isList);
            memory.failFrom = 0;
            // Without the object itself there is nothing, nor without a level of a generic list; else what memory could
            // not hold is missing.
            CHECK_EQ(value != nullptr, n > row.vital);
            if (value != nullptr) shown(*value, value->getType(-1, 0.0), 0);
        }
        CHECK_EQ(memory.blocks, blocks);
    }
}

TEST_CASE(nothingIsLeftInTheHeap) {
    CHECK_EQ(setMemory().blocks, std::size_t{0});
    CHECK(setMemory().sizesAgree);
}
