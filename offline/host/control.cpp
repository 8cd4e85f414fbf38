// The control table: each entry guards the border, so that no exception leaves it and every failure has
// its words.
#include "host/control.h"

#include <new>

#include "core/scene_file/scene_file_api.h"
#include "host/export.h"
#include "host/host.h"
#include "host/report/error_chain.h"

namespace Offline {

namespace {

// Never destroyed, as everything here that somebody may ask for late.
std::string& lastErrorText() {
    static std::string& text = *new std::string;
    return text;
}

int failed(const std::string& why) {
    lastErrorText() = why;
    return 1;
}

// Runs one call: work(host) returns the status, and has called failed() when it is not 0.
template <class Work>
int guarded(const char* name, Work work) {
    try {
        lastErrorText().clear();
        Host& host = Host::get();
        host.noteCall(name);
        return work(host);
    } catch (const std::bad_alloc&) {
        return failed("there is not enough memory");
    }
}

// As guarded(), for what needs a scene.
template <class Work>
int onScene(const char* name, Work work) {
    return guarded(name, [&](Host& host) {
        if (host.hasEnded()) return failed("the host has ended; only reset may follow");
        return work(host);
    });
}

int statusOf(KUtils::ErrorRecord* error) { return error == nullptr ? 0 : failed(takeErrorText(error)); }

const char* lastError() { return lastErrorText().c_str(); }

// Types

int addTypes(const char* directory) {
    return onScene("addTypes", [=](Host& host) { return statusOf(host.addTypes(directory)); });
}

int types(const char* typeName, OfflineTextSink sink, void* user) {
    return onScene("types", [=](Host& host) {
        KUtils::PluginManager* manager = host.manager.pluginManager;
        if (describeTypes(manager, typeName, sink, user)) return 0;
        std::string why = std::string("there is no plugin type \"") + typeName + "\"";
        const char* nearest = nearestType(manager, typeName);
        if (nearest != nullptr) why.append("; did you mean \"").append(nearest).append("\"?");
        return failed(why);
    });
}

// Scenes

int open(const char* path, const char* shownName) {
    return onScene("open", [=](Host& host) { return statusOf(readScene(host.contents(), path, shownName)); });
}

int openText(const char* text, std::size_t length, const char* shownName) {
    return onScene("openText",
                   [=](Host& host) { return statusOf(readSceneText(host.contents(), text, length, shownName)); });
}

int save(const char* path) {
    return onScene("save", [=](Host& host) { return statusOf(saveScene(host.contents(), path)); });
}

int saveText(OfflineTextSink sink, void* user) {
    return onScene("saveText", [=](Host& host) {
        saveSceneText(host.contents(), sink, user);
        return 0;
    });
}

int saveExtraText(int index, OfflineTextSink sink, void* user) {
    return onScene("saveExtraText", [=](Host& host) {
        KUtils::KelmoScene* scene = extraScene(host.scenes, index);
        if (scene == nullptr) return failed("there is no extra scene " + std::to_string(index));
        saveSceneText(contentsOf(scene), sink, user);
        return 0;
    });
}

int snapshot() {
    return onScene("snapshot", [](Host& host) {
        host.changes.remember(host.contents(), host.scenes);
        return 0;
    });
}

int changes(OfflineTextSink sink, void* user) {
    return onScene("changes", [=](Host& host) {
        if (!host.changes.hasRemembered()) return failed("there is no snapshot to compare with");
        host.changes.report(host.contents(), host.scenes, sink, user);
        return 0;
    });
}

// Life

int reset() {
    return guarded("reset", [](Host& host) { return host.reset() ? 0 : failed("there is not enough memory"); });
}

int end(OfflineTextSink sink, void* user) {
    return onScene("end", [=](Host& host) {
        host.end();
        const std::string report = host.report();
        if (sink != nullptr) sink(user, report.data(), report.size());
        return host.leaks() ? failed("something is still alive: " + report) : 0;
    });
}

// What the tests and the program listen to

void observe(OfflineTextSink sink, void* user) {
    guarded("observe", [=](Host&) {
        setObserver(sink, user);
        return 0;
    });
}

void warnings(OfflineTextSink sink, void* user) {
    guarded("warnings", [=](Host& host) {
        // By index: the sink may make the host warn.
        // NOLINTNEXTLINE(modernize-loop-convert)
        for (std::size_t i = 0; i < host.warnings.texts().size(); ++i) {
            const std::string text = host.warnings.texts()[i];
            sink(user, text.data(), text.size());
        }
        return 0;
    });
}

void clearWarnings() {
    guarded("clearWarnings", [](Host& host) {
        host.warnings.clear();
        return 0;
    });
}

void echoWarnings(int echo) {
    guarded("echoWarnings", [=](Host& host) {
        host.warnings.echo = echo != 0;
        return 0;
    });
}

void counters(OfflineCounterSink sink, void* user) {
    guarded("counters", [=](Host& host) {
        host.enumCounters(sink, user);
        return 0;
    });
}

void injectFailure(std::uint64_t nth, int persistent) {
    guarded("failAllocation", [=](Host&) {
        failAllocation(nth, persistent != 0);
        return 0;
    });
}

constexpr OfflineControl TABLE = {
    OFFLINE_CONTROL_VERSION,
    sizeof(OfflineControl),
    lastError,
    addTypes,
    types,
    open,
    openText,
    save,
    saveText,
    saveExtraText,
    snapshot,
    changes,
    reset,
    end,
    observe,
    warnings,
    clearWarnings,
    echoWarnings,
    counters,
    injectFailure,
};

}  // namespace

}  // namespace Offline

extern "C" OFFLINE_EXPORT const OfflineControl* kelmoOfflineControl(std::uint32_t version) {
    return version == OFFLINE_CONTROL_VERSION ? &Offline::TABLE : nullptr;
}
