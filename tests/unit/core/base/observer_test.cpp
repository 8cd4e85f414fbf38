#include <string>

#include "catalogue/test_catalogue.h"
#include "core/base/call_line.h"
#include "core/core_api.h"
#include "core/scene/plugin_manager.h"
#include "plugin/test_value.h"
#include "support/check.h"

using namespace Offline;

namespace {

void collect(void* user, const char* text, std::size_t length) {
    static_cast<std::string*>(user)->append(text, length).append("\n");
}

class GoOn final : public KUtils::EnumPluginCallback, public KUtils::EnumParamsCallback {
  public:
    int process(KUtils::Plugin*) override { return 1; }
    int process(KUtils::KelmoPluginParameter*) override { return 1; }
};

}  // namespace

TEST_CASE(everyCallFromOutsideIsReported) {
    std::string lines;
    OfflinePluginManager manager;
    addTestTypes(manager.catalogue);
    TestValue amount("amount", KUtils::PARAM_FLOAT);
    TestValue nameless(nullptr, KUtils::PARAM_FLOAT);
    GoOn goOn;
    CHECK(!isObserved());
    setObserver(collect, &lines);
    CHECK(isObserved());
    {
        KUtils::KelmoScene scene(&manager, nullptr, 0);
        scene.getManager();
        KUtils::Plugin* plugin = scene.newPlugin("Shade", "a \"b\"", 0);
        scene.findPlugin("x\\y\n");
        scene.findPlugin(nullptr);
        plugin->setParameter(&amount);
        plugin->setParameter(&nameless);
        plugin->setParameter(nullptr);
        plugin->getParameter("amount");
        plugin->paramList->enumParams(&goOn);
        manager.getPluginDescriptor("Only");
        manager.enumPlugins(&goOn);
        textOf(scene.readFile(nullptr, 0, 1, "text"));
        scene.attachParameter(&amount);
        scene.deletePlugin(plugin, true);
        KUtils::KelmoScene none(nullptr, nullptr, 7);
        textOf(none.readFile("a.kscene", 0, 1, nullptr));
    }
    setObserver(nullptr, nullptr);
    CHECK(!isObserved());
    manager.getPluginDescriptor("Only");
    CHECK_TEXT(lines.c_str(),
               "KelmoScene(manager, null, 0)\n"
               "scene.getManager()\n"
               "scene.newPlugin(\"Shade\", \"a \\\"b\\\"\", 0)\n"
               "scene.findPlugin(\"x\\\\y\\x0a\")\n"
               "scene.findPlugin(null)\n"
               "plugin(\"a \\\"b\\\"\").setParameter(\"amount\")\n"
               "plugin(\"a \\\"b\\\"\").setParameter(null)\n"
               "plugin(\"a \\\"b\\\"\").setParameter(null)\n"
               "plugin(\"a \\\"b\\\"\").getParameter(\"amount\")\n"
               "plugin(\"a \\\"b\\\"\").enumParams()\n"
               "manager.getPluginDescriptor(\"Only\")\n"
               "manager.enumPlugins()\n"
               "scene.readFile(null, 0, 1, \"text\")\n"
               "scene.attachParameter(\"amount\")\n"
               "scene.deletePlugin(\"a \\\"b\\\"\", true)\n"
               "KelmoScene(null, null, 7)\n"
               "scene.readFile(\"a.kscene\", 0, 1, null)\n");
}

TEST_CASE(misuseIsReported) {
    std::string lines;
    setObserver(collect, &lines);
    kelmo_free(kelmo_malloc(8), 9);
    setObserver(nullptr, nullptr);
    CHECK_TEXT(lines.c_str(), "misuse: kelmo_free with the size 9 of a block of 8 bytes\n");
}

TEST_CASE(linesHoldNumbers) {
    std::string lines;
    setObserver(collect, &lines);
    CallLine("host.createPlugin(").quoted("\x01").text(", ").number(-9000000000LL).text(")");
    setObserver(nullptr, nullptr);
    CHECK_TEXT(lines.c_str(), "host.createPlugin(\"\\x01\", -9000000000)\n");
}
