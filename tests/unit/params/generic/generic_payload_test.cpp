// The payloads of the generic list: what stays when a type changes, whose the texts are, deep trees.
#include <cstring>

#include "check.h"
#include "helpers/setters.h"
#include "helpers/value_classes.h"

using namespace value_classes;

// A setter over a value changes the type; the payload stays, and is read only as far as it goes.
TEST_CASE(aTypeThatChangesKeepsThePayload) {
    struct Row {
        const char* label;
        int first, second;
        int type;  // after the second
        const char* answers;
    };
    const Row rows[] = {
        {"int over int", setters::SetBool, setters::SetInt, 0, "int 1 true"},
        {"int over float", setters::SetFloat, setters::SetInt, 0, "int 1076887552 true"},
        {"int over double", setters::SetDouble, setters::SetInt, 0, ""},
        {"double over int: too short", setters::SetInt, setters::SetDouble, 2, ""},
        {"color over vector", setters::SetVector, setters::SetColor, 5, "double 8 color 7,8,9 acolor 7,8,9,1"},
        {"acolor over int: too short", setters::SetInt, setters::SetAColor, 6, ""},
        {"acolor over color: too short", setters::SetColor, setters::SetAColor, 6, ""},
        {"color over acolor", setters::SetAColor, setters::SetColor, 5, "double 5 color 4,5,6 acolor 4,5,6,1"},
        {"matrix over transform", setters::SetTransform, setters::SetMatrix, 7, "matrix 21,22,23/24,25,26/27,28,29"},
        {"transform over matrix: too short", setters::SetMatrix, setters::SetTransform, 8, ""},
        {"vector over matrix", setters::SetMatrix, setters::SetVector, 4, "vector 11,12,13"},
        {"text over double: no address", setters::SetDouble, setters::SetString, 9, ""},
        {"text over plugin: no text", setters::SetPlugin, setters::SetString, 9, ""},
        {"text over text", setters::SetString, setters::SetString, 9, "string new"},
        {"plugin over matrix: no address", setters::SetMatrix, setters::SetPlugin, 10, "no output"},
        {"plugin over text: no plugin", setters::SetString, setters::SetPluginOutput, 10, "no output"},
        {"plugin over plugin", setters::SetPlugin, setters::SetPluginOutput, 10, "plugin sphere no output"},
    };
    const NothingLeft nothingLeft;
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        GenericSettableListParam value("anything");
        setters::all[row.first].apply(settableOf(value), 0);
        setters::all[row.second].apply(settableOf(value), 0);
        CHECK_EQ(static_cast<int>(value.getType(0, 0.0)), row.type);
        CHECK_TEXT(describe::answers(value, 0).text, row.answers);
    }
    // The bits of the int 1 are the smallest float.
    GenericSettableListParam value("anything");
    settableOf(value).setInt(1, 0, 0.0);
    settableOf(value).setFloat(2.5f, 0, 0.0);
    CHECK(value.getFloat(0, 0.0) > 0.0f && value.getFloat(0, 0.0) < 1e-44f);
    CHECK_EQ(value.getDouble(0, 0.0), static_cast<double>(value.getFloat(0, 0.0)));
}

TEST_CASE(anIntOverAListKeepsTheListInMemoryOnly) {
    const NothingLeft nothingLeft;
    GenericSettableListParam value("anything");
    KelmoSettableParamInterface& settable = settableOf(value);
    settable.setCount(1);
    CHECK(value.openList(0) != 0);
    settable.setCount(4);
    settable.setFloat(1.5f, 3, 0.0);
    value.closeList(0);
    settable.setInt(5, 0, 0.0);
    CHECK_EQ(static_cast<int>(value.getType(0, 0.0)), 0);
    CHECK_TEXT(describe::answers(value, 1).text, "");
    CHECK(value.openList(0) != 0);
    CHECK_EQ(value.getCount(0.0), -1);
    settable.setString("text", 0, 0.0);
    CHECK(value.getString(0, 0.0) == nullptr);
    settable.setPlugin(&describe::lamp, 0, 0.0);
    CHECK(value.getPlugin(0, 0.0, nullptr) == nullptr);
    settable.setCount(2);  // released, and a new list
    CHECK_EQ(value.getCount(0.0), 2);
    CHECK_EQ(static_cast<int>(value.getType(1, 0.0)), 10000);
}

TEST_CASE(textsAreTheGiversUntilTheyAreKept) {
    const NothingLeft nothingLeft;
    GenericSettableListParam value("anything");
    KelmoSettableParamInterface& settable = settableOf(value);
    char outer[] = "outer";
    char inner[] = "inner";
    const char* output = "out";
    settable.setCount(4);
    settable.setString(outer, 0, 0.0);
    settable.setString(nullptr, 1, 0.0);
    settable.setPluginOutput(&describe::lamp, output, 3, 0.0);
    value.openList(2);
    settable.setCount(1);
    settable.setString(inner, 0, 0.0);
    CHECK(value.getString(0, 0.0) == inner);
    value.closeList(0);
    CHECK(value.getString(0, 0.0) == outer);

    CHECK(value.keepPrivateTexts());
    CHECK(value.keepPrivateTexts());  // a second time changes nothing
    std::memset(outer, 'x', sizeof outer - 1);
    std::memset(inner, 'x', sizeof inner - 1);
    CHECK_TEXT(value.getString(0, 0.0), "outer");
    CHECK(value.getString(1, 0.0) == nullptr);
    value.openList(2);
    CHECK_TEXT(value.getString(0, 0.0), "inner");
    value.closeList(0);
    const char* kept = nullptr;
    CHECK(value.getPlugin(3, 0.0, &kept) == &describe::lamp);
    CHECK(kept == output);
    settable.setCount(300);  // a kept text moves with its record
    CHECK_TEXT(value.getString(0, 0.0), "outer");

    GenericSettableListParam scalar("anything");
    settableOf(scalar).setString(outer, 0, 0.0);
    CHECK(scalar.keepPrivateTexts());
    CHECK(scalar.getString(0, 0.0) != outer);
    CHECK_TEXT(scalar.getString(0, 0.0), "xxxxx");
}

TEST_CASE(everyTextOfALongListIsKept) {
    const NothingLeft nothingLeft;
    GenericSettableListParam value("anything");
    char given[] = "text";
    settableOf(value).setCount(250);
    for (int i = 0; i < 250; ++i) settableOf(value).setString(given, i, 0.0);
    CHECK(value.keepPrivateTexts());
    given[0] = 'x';
    for (int i = 0; i < 250; ++i) CHECK_TEXT(value.getString(i, 0.0), "text");
}

TEST_CASE(aVeryDeepTreeIsFreedWithoutAStack) {
    const NothingLeft nothingLeft;
    GenericSettableListParam value("anything");
    for (int i = 0; i < 200000; ++i) {
        settableOf(value).setCount(1);
        CHECK(value.openList(0) != 0);
    }
    settableOf(value).setString("bottom", 0, 0.0);
    CHECK(value.keepPrivateTexts());
    CHECK_TEXT(value.getString(0, 0.0), "bottom");
}
