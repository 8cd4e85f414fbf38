#include "core/core_api.h"

#include <string>

#include "catalogue/test_catalogue.h"
#include "plugin/test_value.h"
#include "support/check.h"

using namespace Offline;

namespace {

void collect(void* user, const char* text, std::size_t length) {
    static_cast<std::string*>(user)->append(text, length).append("\n");
}

class PluginNames final : public KUtils::EnumPluginCallback {
  public:
    int process(KUtils::Plugin* plugin) override {
        names += plugin->name;
        return 1;
    }
    std::string names;
};

class ValueNames final : public KUtils::EnumParamsCallback {
  public:
    int process(KUtils::KelmoPluginParameter* param) override {
        names += param->getName();
        return 1;
    }
    std::string names;
};

}  // namespace

TEST_CASE(theHostDrivesTheCore) {
    const std::uint64_t blocks = counter("live_blocks");
    KUtils::PluginManager* manager = makeManager();
    CHECK_TEXT(textOf(addTypes(manager, CORE_TEST_TYPES)).c_str(), "");
    CHECK_TEXT(nearestType(manager, "shered"), "Shared");

    std::string lines;
    CHECK(describeTypes(manager, "Early", collect, &lines));
    CHECK_TEXT(lines.c_str(),
               "{\"name\":\"Early\",\"family\":\"First\",\"kind\":\"camera\",\"doc\":\"\",\"unique\":false,"
               "\"interfaces\":[],\"descriptor\":true,\"params\":[]}\n");
    CHECK(!describeTypes(manager, "early", collect, &lines));
    lines.clear();
    CHECK(describeTypes(manager, nullptr, collect, &lines));
    CHECK(lines.find("{\"name\":\"Shared\"") == 0);
    CHECK(lines.find("\n{\"name\":\"Early\"") != std::string::npos);
    CHECK(lines.find("\n{\"name\":\"Late\"") != std::string::npos);

    SceneContents& contents = mainContents(manager);
    std::string calls;
    setObserver(collect, &calls);
    KUtils::Plugin* sun = createPlugin(contents, "Shared", "sun");
    KUtils::Plugin* eye = createPlugin(contents, "Early", "eye");
    CHECK(createPlugin(contents, "Nothing", "x") == nullptr);
    CHECK(createPlugin(contents, nullptr, "x") == nullptr);
    CHECK(createPlugin(contents, "Early", "sun") == nullptr);
    CHECK(findPlugin(contents, "sun") == sun);
    CHECK(findPluginOfNode(contents, "eye") == eye);
    CHECK_TEXT(kindOf(sun), "texture");
    CHECK_TEXT(kindOf(eye), "camera");
    CHECK_EQ(pluginCount(contents), std::size_t{2});
    PluginNames plugins;
    enumContents(contents, &plugins);
    CHECK_TEXT(plugins.names.c_str(), "suneye");
    ValueNames values;
    enumValues(sun, &values);
    CHECK_TEXT(values.names.c_str(), "");
    CHECK(deletePlugin(contents, sun));
    CHECK(!deletePlugin(contents, sun));
    CHECK(!isAlive(sun));
    CHECK(isAlive(eye));
    clearContents(contents);
    CHECK_EQ(pluginCount(contents), std::size_t{0});
    setObserver(nullptr, nullptr);
    CHECK_TEXT(calls.c_str(), "");  // the host's own doings are no calls from outside

    freeManager(manager);
    CHECK_EQ(counter("live_blocks"), blocks);
}
