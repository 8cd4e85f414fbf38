#include "core/plugin/offline_plugin.h"

#include <cstring>
#include <string>

#include "catalogue/test_catalogue.h"
#include "core/base/counters.h"
#include "core/core_api.h"
#include "core/scene/name_table.h"
#include "kelmo/param/texture.h"
#include "support/check.h"
#include "test_value.h"

using namespace Offline;
using namespace KUtils;

namespace KUtils {
class ShadingContext {};
}  // namespace KUtils

namespace {

// One plugin of a type of the test catalogue.
class OnePlugin {
  public:
    OnePlugin(const char* typeName, const char* name) {
        addTestTypes(catalogue);
        plugin = OfflinePlugin::make(*catalogue.find(typeName), name, NameTable::hash(name));
    }
    ~OnePlugin() { OfflinePlugin::destroy(plugin); }
    OnePlugin(const OnePlugin&) = delete;
    OnePlugin& operator=(const OnePlugin&) = delete;
    OfflinePlugin* operator->() { return plugin; }

    Catalogue catalogue;
    OfflinePlugin* plugin;
};

}  // namespace

TEST_CASE(theContractReadsThePluginWhereItExpects) {
    OnePlugin one("Shade", "clay");
    Plugin* plugin = one.plugin;
    const auto* bytes = reinterpret_cast<const unsigned char*>(plugin);
    const char* name;
    std::memcpy(&name, bytes + 24, sizeof name);
    CHECK_TEXT(name, "clay");
    CHECK(static_cast<const void*>(static_cast<ParamHolder*>(plugin)) == bytes + 32);
    PluginDescriptor* descriptor;
    std::memcpy(&descriptor, bytes + 40, sizeof descriptor);
    CHECK(descriptor == one.catalogue.find("Shade"));
    KelmoParameterList* list;
    std::memcpy(&list, bytes + 48, sizeof list);
    CHECK(list == static_cast<ParameterList*>(one.plugin));
}

TEST_CASE(theThreeRoadsToTheDescriptorMeet) {
    OnePlugin one("Shade", "clay");
    PluginDescriptor* descriptor = one.catalogue.find("Shade");
    CHECK(one->getPluginDescriptor() == descriptor);
    CHECK(static_cast<Plugin*>(one.plugin)->descriptor == descriptor);
    PluginInterface* found = one->getInterface(PLUGIN_DESC_INTERFACE_ID);
    CHECK(found != nullptr);
    PluginDescriptor* throughInterface;
    std::memcpy(&throughInterface, reinterpret_cast<unsigned char*>(found) + 8, sizeof throughInterface);
    CHECK(throughInterface == descriptor);
    CHECK_EQ(found->getInterfaceID(), PLUGIN_DESC_INTERFACE_ID);
    CHECK(found->getPlugin() == static_cast<PluginBase*>(static_cast<Plugin*>(one.plugin)));
    CHECK_TEXT(pluginTypeName(static_cast<Plugin*>(one.plugin)), "Shade");
    CHECK_TEXT(pluginName(static_cast<Plugin*>(one.plugin)), "clay");
}

TEST_CASE(pluginsOfferWhatTheirTypeSays) {
    struct Row {
        const char* label;
        const char* type;
        InterfaceID id;
        bool offered;
    };
    const Row rows[] = {
        {"Plain: descriptor", "Plain", PLUGIN_DESC_INTERFACE_ID, true},
        {"Plain: texture", "Plain", EXT_TEXTURE, false},
        {"Plain: unique", "Plain", UNIQUE_PLUGIN_INTERFACE_ID, false},
        {"Shade: texture", "Shade", EXT_TEXTURE, true},
        {"Shade: float", "Shade", EXT_TEXTURE_FLOAT, true},
        {"Shade: int", "Shade", EXT_TEXTURE_INT, false},
        {"Shade: cloneable", "Shade", EXT_CLONEABLE_PARAM, false},
        {"Shade: nothing", "Shade", 0, false},
        {"Shade: texture, upper half not defined", "Shade", EXT_TEXTURE | 0xabcd00000000, true},
        {"Only: unique", "Only", UNIQUE_PLUGIN_INTERFACE_ID, true},
        {"Only: unique, cut to 32 bits", "Only", UNIQUE_PLUGIN_INTERFACE_ID & 0xffffffff, false},
        {"Only: unique, written in decimal", "Only", 2011042200, false},
        {"Only: descriptor", "Only", PLUGIN_DESC_INTERFACE_ID, true},
        {"Bare: descriptor", "Bare", PLUGIN_DESC_INTERFACE_ID, false},
        {"Bare: int", "Bare", EXT_TEXTURE_INT, true},
        {"Bare: vector", "Bare", EXT_TEXTURE_VECTOR, true},
        {"Bare: matrix", "Bare", EXT_TEXTURE_MATRIX, true},
        {"Bare: transform", "Bare", EXT_TEXTURE_TRANSFORM, true},
        {"Bare: texture", "Bare", EXT_TEXTURE, false},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        OnePlugin one(row.type, "n");
        PluginInterface* found = one->getInterface(row.id);
        CHECK_EQ(found != nullptr, row.offered);
        if (found == nullptr || row.id == UNIQUE_PLUGIN_INTERFACE_ID) continue;
        CHECK_EQ(found->getInterfaceID(), static_cast<std::uint32_t>(row.id));
        CHECK(found->getPlugin() == static_cast<PluginBase*>(static_cast<Plugin*>(one.plugin)));
    }
}

TEST_CASE(addedInterfacesAreFoundBehindTheOwnOnes) {
    class Extra final : public PluginInterface {
      public:
        std::uint32_t getInterfaceID() override { return id; }
        PluginBase* getPlugin() override { return nullptr; }
        std::uint32_t id = 0;
    };
    OnePlugin one("Shade", "clay");
    Extra own, texture, truncated;
    own.id = 4711;
    texture.id = EXT_TEXTURE;
    truncated.id = static_cast<std::uint32_t>(UNIQUE_PLUGIN_INTERFACE_ID);
    CHECK(one->addInterface(&own, 0));
    CHECK(one->addInterface(&texture, 0));
    CHECK(one->addInterface(&truncated, 0));
    CHECK(one->getInterface(4711) == &own);
    CHECK(one->getInterface(EXT_TEXTURE) != &texture);
    CHECK(one->getInterface(UNIQUE_PLUGIN_INTERFACE_ID) == nullptr);
}

TEST_CASE(texturesAnswerTheirPluginsConstants) {
    OnePlugin one("Shade", "clay");
    const ShadingContext context;
    auto* color = static_cast<TextureInterface*>(one->getInterface(EXT_TEXTURE));
    auto* number = static_cast<TextureFloatInterface*>(one->getInterface(EXT_TEXTURE_FLOAT));
    CHECK_EQ(color->getTexColor(context).color.g, 0.5f);
    CHECK_EQ(number->getTexFloat(context), 0.5f);
    TestValue carriedColor("color", PARAM_COLOR), carriedNumber("amount", PARAM_INT);
    carriedColor.number = 2;
    carriedNumber.number = 3;
    CHECK(one->carry(&carriedColor));
    CHECK(one->carry(&carriedNumber));
    CHECK_EQ(color->getTexColor(context).color.g, 2.0f);
    AColor low{}, high{};
    color->getTexColorBounds(low, high);
    CHECK_EQ(low.color.r, 2.0f);
    CHECK_EQ(high.alpha, 1.0f);
    CHECK_EQ(number->getTexFloat(context), 3.0f);
    CHECK_EQ(color->getTexExtra().words[0] | color->getTexExtra().words[1], std::uint64_t{0});

    OnePlugin bare("Bare", "b");
    CHECK_EQ(static_cast<TextureIntInterface*>(bare->getInterface(EXT_TEXTURE_INT))->getTexInt(context), 0);
    auto* transform = static_cast<TextureTransformInterface*>(bare->getInterface(EXT_TEXTURE_TRANSFORM));
    CHECK_EQ(transform->getTexTransform(context).lanes[3][2], 0.0f);
}

TEST_CASE(pluginsRefuseWhatTheyCannotCarry) {
    OnePlugin one("Shade", "clay");
    ParamHolder* holder = one.plugin;
    TestValue nameless(nullptr, PARAM_INT), strange("other", PARAM_INT), text("amount", PARAM_STRING);
    TestValue list("amount", PARAM_FLOAT, 2), output("out", PARAM_COLOR), single("sizes", PARAM_INT);
    TestValue good("amount", PARAM_FLOAT), sizes("sizes", PARAM_INT, 0), again("amount", PARAM_BOOL);
    struct Row {
        const char* label;
        TestValue* value;
        int taken;
    };
    const Row rows[] = {
        {"null", nullptr, 0},        {"no name", &nameless, 0}, {"not declared", &strange, 0},
        {"another kind", &text, 0},  {"a list", &list, 0},      {"an output", &output, 0},
        {"no list", &single, 0},     {"a float", &good, 1},     {"an empty list", &sizes, 1},
        {"a bool again", &again, 1},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        CHECK_EQ(holder->setParameter(row.value), row.taken);
    }
    CHECK_EQ(one->count(), 2);
    CHECK(holder->getParameter("amount") == &again);
    CHECK(holder->getParameter("sizes") == &sizes);
    CHECK(holder->getParameter("color") == nullptr);
    CHECK(holder->getParameter(nullptr) == nullptr);

    TestValue label("label", PARAM_STRING), color("color", PARAM_PLUGIN);
    CHECK_EQ(holder->setParameter(&label), 1);
    CHECK_EQ(holder->setParameter(&color), 1);
    CHECK_EQ(one->count(), 4);
}

TEST_CASE(aPluginRefusesWhenItsListCannotGrow) {
    OnePlugin one("Shade", "clay");
    TestValue value("amount", PARAM_FLOAT);
    failAllocation(1, false);
    CHECK_EQ(one->setParameter(&value), 0);
    failAllocation(0, false);
    CHECK(one->getParameter("amount") == nullptr);
    CHECK_EQ(one->setParameter(&value), 1);
}

TEST_CASE(aPluginIsOneSmallBlock) {
    Catalogue catalogue;
    addTestTypes(catalogue);
    const Counters before = counters;
    OfflinePlugin* plugin = OfflinePlugin::make(*catalogue.find("Plain"), "a_name_of_twenty_byte", 0);
    CHECK_EQ(counters.liveBlocks - before.liveBlocks, std::uint64_t{1});
    CHECK(counters.liveBytes - before.liveBytes <= 160);
    OfflinePlugin::destroy(plugin);
    CHECK_EQ(counters.liveBlocks, before.liveBlocks);
    CHECK_EQ(counters.wrongSizes, before.wrongSizes);
    CHECK_EQ(counters.pluginsMade - before.pluginsMade, std::uint64_t{1});
    CHECK_EQ(counters.pluginsFreed - before.pluginsFreed, std::uint64_t{1});
    failAllocation(1, false);
    CHECK(OfflinePlugin::make(*catalogue.find("Plain"), "x", 0) == nullptr);
    CHECK_EQ(counters.pluginsMade - before.pluginsMade, std::uint64_t{1});
}
