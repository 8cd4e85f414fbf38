#include "session/scene_input.h"

#include <fmt/format.h>
#include <sys/stat.h>

#include <cstdio>
#include <cstring>

#include "output/progress.h"
#include "text/translation_notes.h"
#include "translate/supervise/supervise.h"

namespace {

bool endsWith(const std::string& text, const char* ending) {
    const size_t length = std::strlen(ending);
    return text.size() >= length && text.compare(text.size() - length, length, ending) == 0;
}

// An offline scene begins with its header line, whatever the file is called. A pipe is not looked into, since it can be
// read only once; an export cannot be one.
bool beginsLikeScene(const std::string& path) {
    struct stat facts {};
    if (stat(path.c_str(), &facts) == 0 && S_ISFIFO(facts.st_mode)) return true;
    static constexpr char start[] = "{\"kelmo-scene\"";
    char found[sizeof start - 1];
    std::FILE* file = std::fopen(path.c_str(), "r");
    if (!file) return false;
    const size_t length = std::fread(found, 1, sizeof found, file);
    std::fclose(file);
    return length == sizeof found && std::memcmp(found, start, length) == 0;
}

ExitCode exitFor(Translation::Problem problem) {
    switch (problem) {
        case Translation::Problem::limit:
        case Translation::Problem::died:
            return exitTranslation;
        case Translation::Problem::notStarted:
            return exitInstallation;
        default:
            return exitInput;
    }
}

std::string readingText(const char* what, const std::string& path) {
    const std::string size = shownSize(path);
    return fmt::format("{} {}{}", what, path, size.empty() ? "" : " (" + size + ")");
}

}  // namespace

bool isExport(const std::string& path) {
    if (Translation::looksTranslatable(path)) return true;
    return !endsWith(path, ".kscene") && !beginsLikeScene(path);
}

std::string loadScene(Host& host, const Installation& place, const std::string& path, const std::string& deferKinds) {
    if (!isExport(path)) {
        if (!deferKinds.empty()) {
            throw Failure(exitUsage, "--defer is for exports, and \"" + path + "\" is an offline scene");
        }
        const Progress progress(readingText("reading", path));
        host.open(path, path);
        return {};
    }
    Translation::TranslationResult result;
    {
        const Progress progress(readingText("translating", path));
        result = Translation::translate(path, deferKinds, Translation::Limits(), place.translator);
    }
    if (!result.ok()) throw Failure(exitFor(result.problem), result.message);
    std::fputs(translationNotes(path, result.report).c_str(), stderr);
    const Progress progress("reading the translation of " + path);
    host.open("/proc/self/fd/" + std::to_string(result.scene.get()), "the translation of " + path);
    return result.report;
}
