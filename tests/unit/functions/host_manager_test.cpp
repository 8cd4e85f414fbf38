// What the module makes of the answers that a host manager and its enumeration give: creating and duplicating.
#include <string>

#include "check.h"
#include "frame/method.h"
#include "main_scene.h"
#include "scene/duplicate.h"
#include "scene/lifecycle.h"

using namespace KUtils::Python;

namespace {

constexpr char NAME[] = "function";

PyCFunction const createFunction = method<NAME, create>;
PyCFunction const duplicateFunction = method<NAME, duplicate>;

}  // namespace

TEST_CASE(whatTheManagerAnswersOnCreation) {
    struct Row {
        const char* label;
        bool makes, tells, existedBefore;
        const char* created;
        const char* duplicated;
    };
    const char* notCreated = "Exception: A plugin \\\"new\\\" of type \\\"Light\\\" could not be created.";
    const char* notDuplicated = "Exception: A plugin \"new\" of type \"Light\" could not be created.";
    const Row rows[] = {
        {"a new plugin", true, true, false, "'new'", "'made'"},
        {"a new plugin, the flag left alone", true, false, false, "'new'", "'made'"},
        {"one that existed", true, true, true, "Exception: A plugin \\\"new\\\" already exists.",
         "Exception: A plugin \"new\" already exists."},
        {"nothing", false, true, false, notCreated, notDuplicated},
        {"nothing, the flag left alone", false, false, false, notCreated, notDuplicated},
        {"nothing, that existed", false, true, true, notCreated, notDuplicated},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        WithManager host;
        CarryingPlugin made("Light", "made");
        if (row.makes) host.scene.made = &made;
        host.manager.tells = row.tells;
        host.manager.existedBefore = row.existedBefore;
        CHECK_TEXT(host.call(createFunction, "('Light', 'new')").c_str(),
                   (std::string("create:new:Light -> ") + row.created).c_str());
        CHECK_TEXT(host.call(duplicateFunction, "('taken', 'new')").c_str(),
                   (std::string("find:taken create:new:Light -> ") + row.duplicated).c_str());
    }
}

TEST_CASE(theFirstPluginOfATypeIsAsked) {
    struct Row {
        const char* type;
        bool firstIsSingle, secondIsSingle;
        int enumerated;  // of "taken", "second" (both of type "Light") and "typeless"
        const char* answer;
    };
    const char* onlyOne = "-> Exception: Only one instance of type \\\"Light\\\" can exist.";
    const Row rows[] = {
        {"Light", true, false, 1, onlyOne},
        {"Light", true, true, 1, onlyOne},
        {"Light", false, true, 1, "create:new:Light -> 'new'"},
        {"light", true, true, 3, "create:new:light -> 'new'"},
        {"Ligh", true, true, 3, "create:new:Ligh -> 'new'"},
        {"Lights", true, true, 3, "create:new:Lights -> 'new'"},
        {"", true, true, 3, "create:new: -> 'new'"},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.type);
        WithManager host;
        CarryingPlugin second("Light", "second");
        CarryingPlugin made("Light", "made");
        host.scene.made = &made;
        host.scene.manager.plugins = {&host.taken, &second, &host.typeless};
        host.taken.isSingle = row.firstIsSingle;
        second.isSingle = row.secondIsSingle;
        const std::string arguments = std::string("('") + row.type + "', 'new')";
        CHECK_TEXT(host.call(createFunction, arguments.c_str()).c_str(), row.answer);
        CHECK_EQ(host.scene.manager.enumerated, row.enumerated);
    }
}

// A plugin whose type is found nowhere has the empty type name, and so is the one that `_create` finds for it.
TEST_CASE(aSingleInstanceWithoutADescriptor) {
    WithManager host;
    host.typeless.isSingle = true;
    CHECK_TEXT(host.call(createFunction, "('', 'new')").c_str(),
               "-> Exception: Only one instance of type \\\"\\\" can exist.");
    CHECK_TEXT(host.call(duplicateFunction, "('typeless', 'new')").c_str(),
               "find:typeless -> Exception: Only one instance of type \\\"\\\" can exist.");
}
