#include "child/options.h"

#include <climits>
#include <cstdlib>
#include <string_view>

#include "defer_kinds.h"

namespace Translation {

const char* const USAGE =
    "usage: kelmo-translate SCENE --output-fd N [--report-fd M] [--defer KINDS] [--max-input BYTES]\n"
    "\n"
    "Reads SCENE (.glb, .gltf, .fbx or .obj) and writes it as an offline scene to the open descriptor N.\n"
    "What was found, renamed and left out is told as JSON Lines on the open descriptor M.\n"
    "\n"
    "  --defer KINDS      marks what nothing visible refers to as deferred; KINDS is a list of\n"
    "                     materials, textures, cameras, nodes, with commas between them\n"
    "  --max-input BYTES  the largest file that is read (default 1073741824)\n"
    "\n"
    "example: kelmo-translate studio.glb --output-fd 1 > studio.kscene\n"
    "\n"
    "exit codes: 0 done, 2 wrong usage, 4 the scene cannot be read, 5 the translation failed\n";

namespace {

bool readNumber(const char* text, std::uint64_t largest, std::uint64_t& number) {
    if (*text < '0' || *text > '9') return false;
    char* end = nullptr;
    number = std::strtoull(text, &end, 10);
    return *end == '\0' && number <= largest;
}

bool readDescriptor(const char* text, int& descriptor) {
    std::uint64_t number = 0;
    if (!readNumber(text, INT_MAX, number)) return false;
    descriptor = static_cast<int>(number);
    return true;
}

// One option with its value.
bool readOption(std::string_view name, const char* value, Options& options, std::string& problem) {
    const std::string shown = "\"" + std::string(value) + "\"";
    if (name == "--output-fd" || name == "--report-fd") {
        if (readDescriptor(value, name == "--output-fd" ? options.output : options.report)) return true;
        problem = std::string(name) + " takes the number of an open descriptor, not " + shown + ".";
        return false;
    }
    if (name == "--max-input") {
        if (readNumber(value, LLONG_MAX, options.maxInputBytes)) return true;
        problem = "--max-input takes a number of bytes, not " + shown + ".";
        return false;
    }
    std::string unknown;
    if (parseDeferKinds(value, options.deferKinds, unknown)) return true;
    problem = "--defer takes materials, textures, cameras and nodes, not \"" + unknown + "\".";
    return false;
}

bool isOption(std::string_view text) {
    return text == "--output-fd" || text == "--report-fd" || text == "--max-input" || text == "--defer";
}

}  // namespace

bool parseOptions(int count, const char* const* arguments, Options& options, std::string& problem) {
    bool onlyScene = false;
    bool haveScene = false;
    for (int i = 1; i < count; ++i) {
        const std::string_view text = arguments[i];
        if (!onlyScene && text == "--") {
            onlyScene = true;
        } else if (!onlyScene && (text == "--help" || text == "-h")) {
            options.help = true;
            return true;
        } else if (!onlyScene && isOption(text)) {
            if (i + 1 == count) {
                problem = std::string(text) + " needs a value.";
                return false;
            }
            if (!readOption(text, arguments[++i], options, problem)) return false;
        } else if (!onlyScene && text.substr(0, 1) == "-") {
            problem = "There is no option " + std::string(text) + ".";
            return false;
        } else if (haveScene) {
            problem = "There is more than one scene: \"" + options.scene + "\" and \"" + std::string(text) + "\".";
            return false;
        } else {
            options.scene = std::string(text);
            haveScene = true;
        }
    }
    if (!haveScene) problem = "There is no scene to translate.";
    if (haveScene && options.output < 0) problem = "--output-fd is missing.";
    return problem.empty();
}

}  // namespace Translation
