// Reading values of any make into Python: those that the module's own classes and the offline renderer never show.
#include "param/reading/value_to_python.h"

#include <string>

#include "check.h"
#include "clone/stub_plugin.h"
#include "clone/tree_source.h"
#include "frame/py_ref.h"

using namespace KUtils;
using namespace KUtils::Python;

namespace {

// Frees the object; its repr, or how a null came: "null" without a Python error, else the error's type.
std::string shown(PyObject* object) {
    const PyRef held = PyRef::steal(object);
    if (!held) {
        PyObject* error = PyErr_Occurred();
        const std::string text = error != nullptr ? PyExceptionClass_Name(error) : "null";
        PyErr_Clear();
        return text;
    }
    CHECK(PyErr_Occurred() == nullptr);
    const PyRef text = PyRef::steal(PyObject_Repr(held.get()));
    return PyString_AsString(text.get());
}

// As _getParam reads a carried value.
std::string read(KelmoPluginParameter& value) { return shown(valueToPython(value, value.getType(-1, 0.0), 0)); }

std::string readAs(Node tree, int code) {
    TreeSource source(std::move(tree));
    const std::string text = shown(valueToPython(source, code, 0));
    CHECK_EQ(source.depth(), 0u);
    return text;
}

struct Plug : StubPlugin {
    explicit Plug(const char* plugName) { name = plugName; }
};

int viewsReleased = 0;

void countRelease(void*, std::size_t, void*) { ++viewsReleased; }

// A list of ints, floats, vectors and colours whose views its maker frees, and which may be shorter than the count.
class ViewList final : public KelmoPluginParameter {
  public:
    ViewList(ParamType listType, int listCount, int viewCount) : type(listType), count(listCount), viewed(viewCount) {}

    const char* getName() override { return "views"; }
    int getCount(double time) override {
        CHECK_EQ(time, 0.0);
        return count;
    }
    ParamType getType(int, double) override { return type; }
    ListView<std::int32_t> getIntList(double) override { return view(ints); }
    ListView<float> getFloatList(double) override { return view(floats); }
    ListView<Vector> getVectorList(double) override { return view(vectors); }
    ListView<Color> getColorList(double) override { return view(colors); }

  private:
    template <class T>
    ListView<T> view(T (&data)[3]) {
        auto* shared = static_cast<SharedForeignArray*>(kelmo_malloc(sizeof(SharedForeignArray)));
        new (shared) SharedForeignArray{kelmo_malloc, kelmo_free, {1}, countRelease, nullptr};
        return {viewed > 0 ? data : nullptr, shared, viewed, 2};
    }

    ParamType type;
    int count;
    int viewed;
    std::int32_t ints[3] = {256, 0, -1};
    float floats[3] = {0.5f, 1.0f, 1.5f};
    Vector vectors[3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}};
    Color colors[3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}};
};

}  // namespace

TEST_CASE(singleValuesByTheirCode) {
    Plug plug("plug");
    struct Row {
        const char* label;
        Node value;
        int code;
        const char* expected;
    };
    const Row rows[] = {
        {"int", number(0, 5), 0, "(0, 5)"},
        {"float", number(1, 0.1), 1, "(1, 0.10000000149011612)"},
        {"double", number(2, 0.1), 2, "(1, 0.1)"},
        {"bool", number(3, 256), 3, "(3, True)"},
        {"vector", number(4, 1), 4, "(4, (1.0, 2.0, 3.0))"},
        {"color", number(5, 1), 5, "(5, (1.0, 2.0, 3.0))"},
        {"acolor", number(6, 1), 6, "(6, (1.0, 2.0, 3.0, 0.25))"},
        {"matrix", number(7, 1), 7, "(7, ((1.0, 2.0, 3.0), (2.0, 3.0, 1.0), (3.0, 1.0, 2.0)))"},
        {"a transform keeps its offset's precision", number(8, 1), 8,
         "(8, (((1.0, 2.0, 3.0), (2.0, 3.0, 1.0), (3.0, 1.0, 2.0)), (0.1, 0.2, 1.0)))"},
        {"string", string("text"), 9, "(9, 'text')"},
        {"a null text", string(nullptr), 9, "(9, '')"},
        {"plugin", reference(10, &plug), 10, "(10, 'plug')"},
        {"output", reference(10, &plug, "out"), 10, "(1000, ('plug', 'out'))"},
        {"no plugin", reference(10, nullptr, "out"), 10, "None"},
        {"unknown", number(10000, 5), 10000, "null"},
        {"a list's code without a list", number(12, 5), 12, "null"},
        {"an output's code", reference(1000, &plug), 1000, "null"},
        {"below the codes", number(-1, 5), -1, "null"},
        {"above the codes", number(18, 5), 18, "null"},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        CHECK_TEXT(readAs(row.value, row.code).c_str(), row.expected);
    }
    for (int code : {11, 13, 14, 15, 16, 17}) {
        CHECK_ROW("texture");
        CHECK_TEXT(readAs(reference(code, &plug, "out"), code).c_str(), "(1000, ('plug', 'out'))");
        CHECK_TEXT(readAs(reference(code, nullptr), code).c_str(), "None");
    }
}

TEST_CASE(listsByTheirCode) {
    Plug plug("plug");
    struct Row {
        const char* label;
        Node value;
        int code;
        const char* expected;
    };
    const Row rows[] = {
        {"doubles", list(2, {number(2, 0.1), number(2, 2)}), 2, "(2, [0.1, 2.0])"},
        {"acolors", list(6, {number(6, 1)}), 6, "(6, [(1.0, 2.0, 3.0, 0.25)])"},
        {"matrices", list(7, {number(7, 1)}), 7, "(7, [((1.0, 2.0, 3.0), (2.0, 3.0, 1.0), (3.0, 1.0, 2.0))])"},
        {"transforms", list(8, {number(8, 1)}), 8,
         "(8, [(((1.0, 2.0, 3.0), (2.0, 3.0, 1.0), (3.0, 1.0, 2.0)), (0.1, 0.2, 1.0))])"},
        {"strings", list(9, {string("a"), string(nullptr)}), 9, "(9, ['a', ''])"},
        {"plugins", list(10, {reference(10, &plug), reference(10, &plug, "out"), reference(10, nullptr)}), 10,
         "(10, ['plug', ('plug', 'out'), None])"},
        {"empty", list(4, {}), 4, "(4, [])"},
        {"a list of lists whose elements tell their own code",
         list(12, {list(2, {number(2, 1)}), list(9, {string("a")})}), 12, "(12, [(2, [1.0]), (9, ['a'])])"},
        {"single values between lists", list(12, {number(0, 5), list(12, {number(1, 0.5)}), number(4, 1)}), 12,
         "(12, [(0, 5), (12, [(1, 0.5)]), (4, (1.0, 2.0, 3.0))])"},
        {"what has no form is a hole", list(12, {number(10000, 1), number(0, 5), number(18, 1)}), 12,
         "(12, [<NULL>, (0, 5), <NULL>])"},
        {"nothing that is referred to", list(12, {reference(10, nullptr)}), 12, "(12, [None])"},
        {"unknown", list(10000, {number(0, 5)}), 10000, "null"},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        CHECK_TEXT(readAs(row.value, row.code).c_str(), row.expected);
    }
    // There is no element of these codes; within another list None stands for the whole.
    for (int code : {-1, 11, 13, 14, 15, 16, 17, 18, 1000}) {
        CHECK_ROW("no converter");
        CHECK_TEXT(readAs(list(code, {reference(code, &plug)}), code).c_str(), "None");
        CHECK_TEXT(readAs(list(12, {list(code, {reference(code, &plug)})}), 12).c_str(), "(12, [None])");
    }
}

TEST_CASE(viewsAreReadWithinTheirLengthAndGivenBack) {
    struct Row {
        ParamType type;
        const char* whole;
        const char* cut;  // of a view with one element only
        const char* none;
    };
    const Row rows[] = {
        {PARAM_INT, "(0, [256, 0, -1])", "(0, [256, 0, 0])", "(0, [0, 0, 0])"},
        {PARAM_FLOAT, "(1, [0.5, 1.0, 1.5])", "(1, [0.5, 0.0, 0.0])", "(1, [0.0, 0.0, 0.0])"},
        {PARAM_BOOL, "(3, [True, False, True])", "(3, [True, False, False])", "(3, [False, False, False])"},
        {PARAM_VECTOR, "(4, [(1.0, 2.0, 3.0), (4.0, 5.0, 6.0), (7.0, 8.0, 9.0)])",
         "(4, [(1.0, 2.0, 3.0), (0.0, 0.0, 0.0), (0.0, 0.0, 0.0)])",
         "(4, [(0.0, 0.0, 0.0), (0.0, 0.0, 0.0), (0.0, 0.0, 0.0)])"},
        {PARAM_COLOR, "(5, [(1.0, 2.0, 3.0), (4.0, 5.0, 6.0), (7.0, 8.0, 9.0)])",
         "(5, [(1.0, 2.0, 3.0), (0.0, 0.0, 0.0), (0.0, 0.0, 0.0)])",
         "(5, [(0.0, 0.0, 0.0), (0.0, 0.0, 0.0), (0.0, 0.0, 0.0)])"},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.whole);
        viewsReleased = 0;
        ViewList whole(row.type, 3, 3), cut(row.type, 3, 1), none(row.type, 3, 0);
        CHECK_TEXT(read(whole).c_str(), row.whole);
        CHECK_EQ(viewsReleased, 3);  // a view of its own for every element
        CHECK_TEXT(read(cut).c_str(), row.cut);
        CHECK_TEXT(read(none).c_str(), row.none);
        CHECK_EQ(viewsReleased, 9);
    }
}

TEST_CASE(aCountThatFallsLeavesHoles) {
    class Falling final : public TreeSource {
      public:
        Falling() : TreeSource(list(9, {string("a"), string("b"), string("c")})) {}
        int getCount(double time) override { return asked++ < 3 ? TreeSource::getCount(time) : 2; }
        int asked = 0;
    };
    Falling falling;  // the count is read anew before every element
    CHECK_TEXT(shown(valueToPython(falling, PARAM_STRING, 0)).c_str(), "(9, ['a', 'b', <NULL>])");
    class Negative final : public TreeSource {
      public:
        Negative() : TreeSource(list(9, {})) {}
        int getCount(double) override { return -2; }
    };
    Negative negative;
    CHECK_TEXT(shown(valueToPython(negative, PARAM_STRING, 0)).c_str(), "(9, [])");
    CHECK_TEXT(shown(valueToPython(negative, PARAM_LIST, 0)).c_str(), "(12, [])");
}

TEST_CASE(endlessNestingEndsWithAnError) {
    class Endless final : public TreeSource {
      public:
        Endless() : TreeSource(list(12, {})) {}
        int getCount(double) override { return 1; }
        ParamType getType(int, double) override { return PARAM_LIST; }
        ListHandle openListImpl(int) override { return ++opened; }
        ListHandle closeList(ListHandle) override { return --opened; }
        int opened = 0;
    };
    Endless endless;
    const int before = PyThreadState_GET()->recursion_depth;
    CHECK_TEXT(read(endless).c_str(), "exceptions.RuntimeError");
    CHECK_EQ(endless.opened, 0);
    CHECK_EQ(PyThreadState_GET()->recursion_depth, before);
}

TEST_CASE(declaredDefaults) {
    ParamDesc desc{};
    desc.listCount = 3;  // not looked at
    desc.hasDefault = 1;
    desc.defaultInt = 3;
    desc.defaultFloat = 0.5f;
    desc.defaultDouble = 0.1;
    desc.defaultVector = {1, 2, 3};
    desc.defaultColor = {4, 5, 6};
    desc.defaultAColor = {{7, 8, 9}, 0.5f};
    desc.defaultMatrix = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
    desc.defaultTransform = {{{{2, 0, 0}, {0, 2, 0}, {0, 0, 2}}}, {0.5f, 1, 2}};
    desc.defaultString = "text";
    struct Row {
        int type;
        const char* expected;
    };
    const char* VECTOR = "(4, (1.0, 2.0, 3.0))";
    const char* ACOLOR = "(6, (7.0, 8.0, 9.0, 0.5))";
    const char* MATRIX = "(7, ((1.0, 0.0, 0.0), (0.0, 1.0, 0.0), (0.0, 0.0, 1.0)))";
    const char* TRANSFORM = "(8, (((2.0, 0.0, 0.0), (0.0, 2.0, 0.0), (0.0, 0.0, 2.0)), (0.5, 1.0, 2.0)))";
    const Row rows[] = {{0, "(0, 3)"},   {14, "(0, 3)"},  {1, "(1, 0.5)"},    {13, "(1, 0.5)"},
                        {2, "(1, 0.1)"}, {4, VECTOR},     {15, VECTOR},       {5, "(5, (4.0, 5.0, 6.0))"},
                        {6, ACOLOR},     {11, ACOLOR},    {7, MATRIX},        {16, MATRIX},
                        {8, TRANSFORM},  {17, TRANSFORM}, {9, "(9, 'text')"}, {3, "None"},
                        {10, "None"},    {12, "None"},    {1000, "None"},     {10000, "None"},
                        {-1, "None"}};
    for (const Row& row : rows) {
        CHECK_ROW(row.expected);
        desc.type = static_cast<ParamType>(row.type);
        CHECK_TEXT(shown(defaultToPython(desc)).c_str(), row.expected);
    }
    desc.type = PARAM_STRING;
    desc.defaultString = nullptr;
    CHECK_TEXT(shown(defaultToPython(desc)).c_str(), "(9, '')");
}

TEST_CASE(aValueThatAnswersItselfIsNoPlugin) {
    class Constant final : public TreeSource {
      public:
        Constant() : TreeSource(number(PARAM_TEXTURE, 1)) {}
        PluginBase* getPlugin(int, double, const char**) override { return this; }
    };
    Constant constant;
    CHECK_TEXT(shown(valueToPython(constant, PARAM_TEXTURE, 0)).c_str(), "None");
}
