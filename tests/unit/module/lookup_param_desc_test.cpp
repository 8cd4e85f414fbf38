// Declarations are found through a memo of places; whatever happens to the tables, the answer is that of a search from
// the first declaration on.
#include "param/declaration/lookup_param_desc.h"

#include <cstdio>
#include <cstring>
#include <initializer_list>

#include "check.h"
#include "clone/stub_plugin.h"
#include "frame/problem.h"
#include "host/state.h"

using KUtils::Python::findParamDesc;
using KUtils::Python::lookupParamDesc;
using KUtils::Python::sceneAccessState;

namespace {

// The module counts as initialised while it lives.
class Initialised {
  public:
    Initialised() { sceneAccessState = &state; }
    ~Initialised() { sceneAccessState = nullptr; }

  private:
    KUtils::Python::SceneAccessState state{};
};

struct Thing : StubPlugin {
    Thing() : StubPlugin("Thing") {
        name = "thing";
        descriptor = &type;
    }
    // Where a name is found, -1 when it is not.
    int place(const char* wanted) const {
        const KUtils::ParamDesc* record = findParamDesc(this, wanted);
        return record != nullptr ? static_cast<int>(record - type.records.data()) : -1;
    }
};

}  // namespace

TEST_CASE(declarationsAreFoundByName) {
    const Initialised initialised;
    static char names[3000][16];
    Thing small, large;
    // More names than the memo has places, of all lengths around a machine word.
    for (int i = 0; i < 3000; ++i) {
        std::snprintf(names[i], sizeof names[i], "%.*s%d", i % 11, "abcdefghijk", i);
        large.type.declare(names[i], 0);
        if (i % 100 == 0) small.type.declare(names[i], 0);
    }
    for (int round = 0; round < 3; ++round) {
        for (int i = 0; i < 3000; ++i) {
            char copy[16];
            std::memcpy(copy, names[i], sizeof copy);
            CHECK_ROW(copy);
            CHECK_EQ(large.place(copy), i);
            CHECK_EQ(small.place(copy), i % 100 == 0 ? i / 100 : -1);
        }
        CHECK_EQ(large.place("absent"), -1);
        CHECK_EQ(large.place(""), -1);
    }
}

TEST_CASE(aChangedTableIsSeen) {
    const Initialised initialised;
    Thing thing;
    for (const char* name : {"first", "second", "third"}) thing.type.declare(name, 0);
    CHECK_EQ(thing.place("third"), 2);
    // The same table, in place: other names, no name, fewer records.
    thing.type.records[2].name = "other";
    CHECK_EQ(thing.place("third"), -1);
    CHECK_EQ(thing.place("other"), 2);
    thing.type.records[2].name = nullptr;
    CHECK_EQ(thing.place("other"), -1);
    CHECK_EQ(thing.place("second"), 1);
    thing.type.table.count = 1;
    CHECK_EQ(thing.place("second"), -1);
    CHECK_EQ(thing.place("first"), 0);
    thing.type.table.count = -1;
    CHECK_EQ(thing.place("first"), -1);
    thing.type.params = nullptr;
    CHECK_EQ(thing.place("first"), -1);
    thing.descriptor = nullptr;
    CHECK_EQ(thing.place("first"), -1);
}

TEST_CASE(theFirstOfTwoDeclarationsIsFound) {
    const Initialised initialised;
    Thing thing;
    for (const char* name : {"a", "twice", "b", "twice"}) thing.type.declare(name, 0);
    for (int round = 0; round < 2; ++round) CHECK_EQ(thing.place("twice"), 1);
}

TEST_CASE(anAbsentDeclarationIsAProblem) {
    const Initialised initialised;
    Thing thing;
    thing.type.declare("present", 0);
    CHECK(&lookupParamDesc(&thing, "present") == thing.type.records.data());
    const char* message = "";
    char text[KUtils::Python::PROBLEM_MESSAGE_SIZE];
    try {
        lookupParamDesc(&thing, "absent");
    } catch (const KUtils::Python::SceneAccessProblem& problem) {
        std::snprintf(text, sizeof text, "%s", problem.message);
        message = text;
    }
    CHECK_TEXT(message, "A parameter with name \"absent\" doesn't exist for plugin \"thing\".");
}
