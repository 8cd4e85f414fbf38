#include "host/report/change_report.h"

#include <algorithm>

#include "core/scene_file/scene_file_api.h"
#include "host/report/json_object.h"
#include "host/report/value_digest.h"
#include "host/scene/extra_scenes.h"

namespace Offline {

namespace {

// How much of a value its text shows: elements of a list, bytes of all.
constexpr int SHOWN_ELEMENTS = 8;
constexpr std::size_t SHOWN_BYTES = 240;

// enumContents and enumValues with any function that takes the element.
template <class Function>
struct PluginVisitor final : KUtils::EnumPluginCallback {
    explicit PluginVisitor(Function f) : function(f) {}
    int process(KUtils::Plugin* plugin) override {
        function(plugin);
        return 1;
    }
    Function function;
};

template <class Function>
struct ValueVisitor final : KUtils::EnumParamsCallback {
    explicit ValueVisitor(Function f) : function(f) {}
    int process(KUtils::KelmoPluginParameter* value) override {
        function(value);
        return 1;
    }
    Function function;
};

template <class Function>
void forEachPlugin(SceneContents& contents, Function function) {
    PluginVisitor<Function> visitor(function);
    enumContents(contents, &visitor);
}

template <class Function>
void forEachValue(KUtils::Plugin* plugin, Function function) {
    ValueVisitor<Function> visitor(function);
    enumValues(plugin, &visitor);
}

// A text of which only the beginning is kept.
struct CutText {
    std::string text;
    std::size_t length = 0;
};

void append(void* user, const char* text, std::size_t length) {
    auto& cut = *static_cast<CutText*>(user);
    cut.length += length;
    if (cut.text.size() < SHOWN_BYTES) cut.text.append(text, std::min(length, SHOWN_BYTES - cut.text.size()));
}

std::string shortText(KUtils::KelmoPluginParameter* value) {
    CutText cut;
    describeValue(value, SHOWN_ELEMENTS, append, &cut);
    if (cut.length <= SHOWN_BYTES) return cut.text;
    // Not within a character.
    while (!cut.text.empty() && (static_cast<unsigned char>(cut.text.back()) & 0xc0) == 0x80) cut.text.pop_back();
    if (!cut.text.empty() && static_cast<unsigned char>(cut.text.back()) >= 0xc0) cut.text.pop_back();
    return cut.text + "... " + std::to_string(cut.length) + " bytes in all";
}

JsonObject change(const char* kind, KUtils::Plugin* plugin) {
    JsonObject object;
    const char* type = KUtils::pluginTypeName(plugin);
    object.text("change", kind).text("plugin", KUtils::pluginName(plugin)).text("type", type);
    return object;
}

void send(const JsonObject& object, TextSink sink, void* user) {
    const std::string line = object.line();
    sink(user, line.data(), line.size());
}

}  // namespace

// Remembering

void ChangeReport::forget() { *this = ChangeReport(); }

std::uint32_t ChangeReport::internedName(const char* name) {
    const auto entry = nameIndex.emplace(name, static_cast<std::uint32_t>(names.size()));
    if (entry.second) names.emplace_back(name);
    return entry.first->second;
}

void ChangeReport::remember(SceneContents& contents, const KUtils::SceneList& extraScenes) {
    forget();
    plugins.reserve(pluginCount(contents));
    forEachPlugin(contents, [this](KUtils::Plugin* plugin) {
        plugins.push_back(PluginRecord{plugin, values.size()});
        forEachValue(plugin, [this](KUtils::KelmoPluginParameter* value) {
            const std::string text = shortText(value);
            values.push_back(ValueRecord{valueDigest(*value), internedName(value->getName()),
                                         static_cast<std::uint32_t>(text.size()), texts.size()});
            texts += text;
        });
    });
    extraCount = extraScenes.count;
    remembered = true;
}

// Reporting

std::vector<ChangeReport::CurrentValue> ChangeReport::valuesOf(KUtils::Plugin* plugin) {
    std::vector<CurrentValue> current;
    forEachValue(plugin, [&current](KUtils::KelmoPluginParameter* value) {
        current.push_back(CurrentValue{value->getName(), value});
    });
    return current;
}

void ChangeReport::reportPlugin(std::size_t index, TextSink sink, void* user) {
    KUtils::Plugin* plugin = plugins[index].plugin;
    if (!isAlive(plugin)) return send(change("deleted", plugin), sink, user);
    std::vector<CurrentValue> current = valuesOf(plugin);
    std::size_t at = 0;  // where the next remembered value probably is now: the order seldom changes
    for (std::size_t i = plugins[index].firstValue; i < valuesEnd(index); ++i) {
        const ValueRecord& before = values[i];
        const std::string& name = names[before.name];
        if (at >= current.size() || current[at].name != name) {
            at = 0;
            while (at < current.size() && current[at].name != name) ++at;
        }
        const bool carried = at < current.size();
        if (carried && valueDigest(*current[at].value) == before.digest) {
            current[at++].value = nullptr;
            continue;
        }
        JsonObject object = change("set", plugin);
        object.text("param", name).text("old", texts.substr(before.text, before.textLength));
        if (carried) {
            object.text("new", shortText(current[at].value));
            current[at++].value = nullptr;
        } else {
            object.text("new", nullptr);
        }
        send(object, sink, user);
    }
    for (const CurrentValue& added : current) {
        if (added.value == nullptr) continue;
        JsonObject object = change("set", plugin);
        object.text("param", added.name).text("old", nullptr).text("new", shortText(added.value));
        send(object, sink, user);
    }
}

void ChangeReport::report(SceneContents& contents, const KUtils::SceneList& extraScenes, TextSink sink, void* user) {
    std::size_t surviving = 0;
    for (std::size_t i = 0; i < plugins.size(); ++i) {
        surviving += isAlive(plugins[i].plugin) ? 1 : 0;
        reportPlugin(i, sink, user);
    }
    // A scene keeps the order of creation, so what is new stands behind what was there.
    std::size_t position = 0;
    forEachPlugin(contents, [&](KUtils::Plugin* plugin) {
        if (position++ < surviving) return;
        send(change("created", plugin), sink, user);
        for (const CurrentValue& value : valuesOf(plugin)) {
            JsonObject object = change("set", plugin);
            object.text("param", value.name).text("old", nullptr).text("new", shortText(value.value));
            send(object, sink, user);
        }
    });
    for (int index = extraScenes.count - extraCount - 1; index >= 0; --index) {
        KUtils::KelmoScene* scene = extraScene(extraScenes, index);
        JsonObject object;
        object.text("change", "scene_added").number("plugins", scene != nullptr ? pluginCount(contentsOf(scene)) : 0);
        send(object, sink, user);
    }
}

}  // namespace Offline
