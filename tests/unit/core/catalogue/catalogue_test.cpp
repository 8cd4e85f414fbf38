#include "core/catalogue/catalogue.h"

#include <string>

#include "core/base/counters.h"
#include "core/catalogue/type_writer.h"
#include "support/check.h"
#include "test_catalogue.h"

using namespace Offline;

TEST_CASE(typesAreFoundByName) {
    Catalogue catalogue;
    addTestTypes(catalogue);
    CHECK_EQ(catalogue.count(), std::size_t{4});
    CHECK_TEXT(catalogue.at(0).getTypeName(), "Plain");
    CHECK_TEXT(catalogue.at(3).getTypeName(), "Bare");
    CHECK(catalogue.find("Shade") == &catalogue.at(1));
    CHECK(catalogue.find("shade") == nullptr);
    CHECK(catalogue.find("") == nullptr);
    CHECK_TEXT(catalogue.nearest("Shde"), "Shade");
    CHECK_TEXT(catalogue.nearest("Unheard of"), nullptr);
    CHECK_TEXT(catalogue.find("Shade")->nearestParam("colour"), "color");
    CHECK_TEXT(catalogue.find("Shade")->nearestParam("frequency"), nullptr);
}

TEST_CASE(aLaterTypeReplacesAnEarlierOne) {
    Catalogue catalogue;
    CHECK_TEXT(addTypesText(catalogue, R"({"types":[{"name":"A","doc":"old"},{"name":"B"}]})").c_str(), "");
    PluginType* old = catalogue.find("A");
    CHECK_TEXT(addTypesText(catalogue, R"({"types":[{"name":"C"},{"name":"A","doc":"new"}]})").c_str(), "");
    CHECK_EQ(catalogue.count(), std::size_t{3});
    CHECK(catalogue.find("A") == &catalogue.at(0));
    CHECK_TEXT(catalogue.at(0).doc.c_str(), "new");
    CHECK_TEXT(catalogue.at(2).getTypeName(), "C");
    // A plugin may still point to the old one.
    CHECK(old != catalogue.find("A"));
    CHECK_TEXT(old->doc.c_str(), "old");
    CHECK_TEXT(old->getTypeName(), "A");
}

TEST_CASE(aFileWithAnErrorAddsNothing) {
    const Counters before = counters;
    Catalogue catalogue;
    CHECK_TEXT(addTypesText(catalogue, R"({"types":[{"name":"A"},{"name":"B","kind":"no"}]})").c_str(),
               "[t.json] the plugin types cannot be read | types[1] \"B\".kind: unknown kind \"no\"");
    CHECK_EQ(catalogue.count(), std::size_t{0});
    CHECK_EQ(counters.liveBlocks, before.liveBlocks);
}

TEST_CASE(foldersAreReadInTheOrderOfTheirNames) {
    Catalogue catalogue;
    CHECK_TEXT(textOf(catalogue.addFolder(CORE_TEST_TYPES)).c_str(), "");
    CHECK_EQ(catalogue.count(), std::size_t{3});
    CHECK_TEXT(catalogue.at(0).getTypeName(), "Shared");
    CHECK_TEXT(catalogue.at(0).doc.c_str(), "From the second file.");
    CHECK_TEXT(catalogue.at(0).family.c_str(), "Second");
    CHECK_TEXT(catalogue.at(1).getTypeName(), "Early");
    CHECK_TEXT(catalogue.at(2).getTypeName(), "Late");
}

TEST_CASE(aFolderThatIsNotThereIsAnError) {
    Catalogue catalogue;
    const std::string folder = std::string(CORE_TEST_TYPES) + "/nowhere";
    const std::string expected =
        "[" + folder + "] the folder of plugin types cannot be read: No such file or directory";
    CHECK_TEXT(textOf(catalogue.addFolder(folder.c_str())).c_str(), expected.c_str());
}

// The types that are shipped: read without an error, and written as they could be read again.
TEST_CASE(theShippedCatalogueIsRead) {
    Catalogue catalogue;
    CHECK_TEXT(textOf(catalogue.addFolder(SHIPPED_TYPES)).c_str(), "");
    for (const char* name : {"GeomStaticMesh", "GeomStaticNURBS", "SettingsOutput", "SettingsLightLinker"}) {
        CHECK_ROW(name);
        CHECK(catalogue.find(name) != nullptr);
    }
    for (std::size_t i = 0; i < catalogue.count(); ++i) {
        const PluginType& type = catalogue.at(i);
        CHECK_ROW(type.typeName().c_str());
        const std::string written = typeAsJson(type);
        std::string file = written;
        const std::string family = "\"family\":\"" + type.family + "\",";
        CHECK(file.find(family) != std::string::npos);
        file.erase(file.find(family), family.size());
        Catalogue again;
        CHECK_TEXT(addTypesText(again, ("{" + family + "\"types\":[" + file + "]}").c_str()).c_str(), "");
        CHECK_EQ(again.count(), std::size_t{1});
        if (again.count() == 1) CHECK_TEXT(typeAsJson(again.at(0)).c_str(), written.c_str());
    }
    CHECK_ROW(nullptr);
}
