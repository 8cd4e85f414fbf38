// What the host bridge takes from this system: variables, and libraries that are whole and keep their names to
// themselves.
#include <dlfcn.h>

#include <cstdlib>
#include <string>

#include "check.h"
#include "host/error_text.h"
#include "host/system/system.h"
#include "kelmo/scene/host_exports.h"

using namespace KUtils;
using namespace KUtils::Python;

TEST_CASE(aLibraryKeepsItsNamesToItself) {
    ErrorRecord* error = nullptr;
    LibraryHandle library = loadLib(MODULE_TEST_HOST, &error);
    CHECK(library != nullptr);
    CHECK(error == nullptr);
    if (library == nullptr) return;
    CHECK(findSymbol(library, HOST_GET_SCENES) != nullptr);
    CHECK(findSymbol(library, "noSuchExport") == nullptr);
    CHECK(dlsym(RTLD_DEFAULT, HOST_GET_SCENES) == nullptr);
    freeLibrary(library);
}

TEST_CASE(whatIsNoWholeLibraryIsRefused) {
    struct Row {
        const char* path;
        const char* reason;
    };
    const Row rows[] = {
        {"/nowhere/kelmoformaya.mll", "No such file or directory"},
        {"/", "cannot read file data: Is a directory"},
        {__FILE__, "invalid ELF header"},
        // At once, and not when the missing function is called.
        {MODULE_TEST_UNRESOLVED, "undefined symbol: aFunctionThatNobodyHas"},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.path);
        ErrorRecord* record = nullptr;
        CHECK(loadLib(row.path, &record) == nullptr);
        const ErrorRef error(record);
        CHECK(error != nullptr);
        if (error == nullptr) continue;
        CHECK_TEXT(error->location, "loadLib");
        const std::string start = "LoadLibrary failed (0): " + std::string(row.path) + ": ";
        CHECK_TEXT(std::string(error->message).substr(0, start.size()).c_str(), start.c_str());
        CHECK(std::string(error->message).find(row.reason) != std::string::npos);
        CHECK_EQ(error->code, 0u);
        CHECK(error->cause == nullptr);
        CHECK_EQ(error->references, 1);
    }
}

TEST_CASE(anEmptyVariableIsUnset) {
    const char* name = "MODULE_TEST_VARIABLE";
    unsetenv(name);
    CHECK(readEnvironment(name) == nullptr);
    for (const char* value : {"", "a value", "d\xc3\xa9j\xc3\xa0", "\xff\xfe"}) {
        CHECK_ROW(value);
        setenv(name, value, 1);
        const TextRef text(readEnvironment(name));
        CHECK_TEXT(charactersOf(text.get()), value[0] != 0 ? value : nullptr);
    }
    unsetenv(name);
}
