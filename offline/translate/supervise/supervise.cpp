#include "supervise.h"

#include <limits.h>
#include <signal.h>
#include <strings.h>
#include <sys/mman.h>

#include <cerrno>
#include <cstring>

#include <rapidjson/document.h>

#include "child_process.h"
#include "defer_kinds.h"

namespace Translation {
namespace {

// Bytes that are not UTF-8 stand in a report as lone surrogates, which come out of the JSON reader as the
// three bytes 0xed 0xb2 (or 0xb3) and a third one: puts the bytes themselves in their place.
std::string withBytesRestored(std::string_view text) {
    std::string restored;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = [&](std::size_t k) {
            return static_cast<unsigned char>(i + k < text.size() ? text[i + k] : 0);
        };
        if (byte(0) == 0xed && (byte(1) == 0xb2 || byte(1) == 0xb3)) {
            restored += static_cast<char>((byte(1) & 3) << 6 | (byte(2) & 0x3f));
            i += 2;
        } else {
            restored += text[i];
        }
    }
    return restored;
}

// The last line of a report says how the translation ended: {"event":"done"} or
// {"event":"error","category":...,"message":...}. True when there is such a line.
bool readOutcome(const std::string& report, TranslationResult& result) {
    const std::size_t end = report.find_last_not_of('\n');
    if (end == std::string::npos) return false;
    const std::size_t begin = report.rfind('\n', end);
    const std::size_t first = begin == std::string::npos ? 0 : begin + 1;

    rapidjson::Document line;
    line.Parse(report.data() + first, end + 1 - first);
    if (line.HasParseError() || !line.IsObject()) return false;
    const auto text = [&line](const char* key) -> std::string_view {
        const auto member = line.FindMember(key);
        if (member == line.MemberEnd() || !member->value.IsString()) return {};
        return {member->value.GetString(), member->value.GetStringLength()};
    };
    if (text("event") == "done") return true;
    if (text("event") != "error") return false;
    result.problem = problemFromName(text("category"));
    result.message = withBytesRestored(text("message"));
    return true;
}

std::string signalText(int number) {
    const char* text = sigdescr_np(number);
    return text != nullptr ? std::string(text) + " (signal " + std::to_string(number) + ")"
                           : "signal " + std::to_string(number);
}

void fail(TranslationResult& result, Problem problem, const std::string& message) {
    result.problem = problem;
    result.message = message;
}

void judgeSignal(TranslationResult& result, const std::string& shown, int number, const Limits& limits) {
    const std::string start = "The translation of " + shown + " was stopped: it ";
    if (number == SIGXCPU) {
        fail(result, Problem::limit,
             start + "needed more than " + std::to_string(limits.processorSeconds) + " seconds of processor time.");
    } else if (number == SIGXFSZ) {
        fail(result, Problem::limit, start + "wrote more than " + std::to_string(limits.outputBytes) + " bytes.");
    } else {
        fail(result, Problem::died, "The translation of " + shown + " died: " + signalText(number) + ".");
    }
}

void judge(TranslationResult& result, const ProcessResult& process, const std::string& shown,
           const std::string& program, const Limits& limits) {
    switch (process.end) {
        case ProcessEnd::notStarted:
            return fail(result, Problem::notStarted,
                        shown + " was not translated: no process could be started (" + strerror(process.number) + ").");
        case ProcessEnd::timeOut:
            return fail(result, Problem::limit,
                        "The translation of " + shown + " was stopped: it took longer than " +
                            std::to_string(limits.wallSeconds) + " seconds.");
        case ProcessEnd::signalled:
            return judgeSignal(result, shown, process.number, limits);
        case ProcessEnd::exited:
            break;
    }
    if (process.number == 127) {
        return fail(result, Problem::notStarted,
                    shown + " was not translated: the program \"" + program + "\" could not be started.");
    }
    const bool told = readOutcome(process.report, result);
    if (told && (process.number == 0) == result.ok()) return;
    fail(result, Problem::died,
         "The translation of " + shown + " died: it ended with code " + std::to_string(process.number) +
             " and without a result.");
}

}  // namespace

TranslationResult translate(const std::string& scenePath, const std::string& deferKinds, const Limits& limits,
                            const std::string& program) {
    TranslationResult result;
    const std::string shown = "\"" + scenePath + "\"";
    FileDescriptor scene(memfd_create("translated scene", MFD_CLOEXEC));
    if (!scene) {
        fail(result, Problem::notStarted, shown + " was not translated: no memory file (" + strerror(errno) + ").");
        return result;
    }

    std::vector<std::string> arguments = {program,
                                          "--output-fd",
                                          std::to_string(OUTPUT_DESCRIPTOR),
                                          "--report-fd",
                                          std::to_string(REPORT_DESCRIPTOR),
                                          "--max-input",
                                          std::to_string(limits.inputBytes)};
    if (!deferKinds.empty()) arguments.insert(arguments.end(), {"--defer", deferKinds});
    arguments.insert(arguments.end(), {"--", scenePath});

    ProcessResult process = runLimited(arguments, scene.get(), limits);
    judge(result, process, shown, program, limits);
    result.report = std::move(process.report);
    if (result.ok()) {
        lseek(scene.get(), 0, SEEK_SET);
        result.scene = std::move(scene);
    }
    return result;
}

std::string translatorProgram() {
    char path[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    if (length <= 0 || length == static_cast<ssize_t>(sizeof path)) return "kelmo-translate";
    std::string folder(path, static_cast<std::size_t>(length));
    folder.resize(folder.rfind('/'));
    return folder + "/../libexec/kelmo-translate";
}

bool deferKindsKnown(const std::string& deferKinds, std::string& unknown) {
    unsigned kinds = 0;
    return parseDeferKinds(deferKinds, kinds, unknown);
}

bool looksTranslatable(const std::string& scenePath) {
    for (const char* ending : {".glb", ".gltf", ".fbx", ".obj"}) {
        const std::size_t length = strlen(ending);
        if (scenePath.size() > length && strcasecmp(scenePath.c_str() + scenePath.size() - length, ending) == 0) {
            return true;
        }
    }
    return false;
}

}  // namespace Translation
