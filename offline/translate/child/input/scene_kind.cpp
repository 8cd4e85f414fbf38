#include "child/input/scene_kind.h"

#include <strings.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <string_view>

#include "child/input/json_check.h"
#include "problem.h"

namespace Translation {
namespace {

constexpr std::size_t FIRST_BYTES = 65536;

struct Ending {
    const char* text;
    SceneKind kind;
    const char* name;
};

constexpr Ending ENDINGS[] = {
    {".glb", SceneKind::glb, "GLB"},
    {".gltf", SceneKind::gltf, "glTF"},
    {".fbx", SceneKind::fbx, "FBX"},
    {".obj", SceneKind::obj, "OBJ"},
};

[[noreturn]] void otherKind(const std::string& path, const std::string& why) {
    throw Failure{Problem::otherKind, "\"" + path + "\" cannot be read: " + why + "."};
}

[[noreturn]] void damaged(const std::string& path, const std::string& why) {
    throw Failure{Problem::damaged, "\"" + path + "\" is damaged: " + why + "."};
}

const Ending& endingOf(const std::string& path) {
    for (const Ending& ending : ENDINGS) {
        const std::size_t length = strlen(ending.text);
        if (path.size() > length && strcasecmp(path.c_str() + path.size() - length, ending.text) == 0) return ending;
    }
    otherKind(path, "its name does not end in .glb, .gltf, .fbx or .obj");
}

std::string readAt(int descriptor, std::uint64_t offset, std::size_t count) {
    std::string text(count, '\0');
    std::size_t done = 0;
    while (done < count) {
        const ssize_t got = pread(descriptor, &text[done], count - done, static_cast<off_t>(offset + done));
        if (got <= 0) break;
        done += static_cast<std::size_t>(got);
    }
    text.resize(done);
    return text;
}

std::uint32_t word(const std::string& text, std::size_t offset) {
    std::uint32_t value = 0;
    for (int i = 3; i >= 0; --i)
        value = value << 8 | static_cast<unsigned char>(text[offset + static_cast<std::size_t>(i)]);
    return value;
}

void checkGltfJson(int descriptor, const std::string& path, std::uint64_t offset, std::uint64_t bytes,
                   SceneFacts& scene) {
    JsonFacts facts = checkJson(descriptor, offset, bytes);
    if (!facts.error.empty()) damaged(path, facts.error);
    if (!facts.has("asset")) otherKind(path, "its JSON is not that of a glTF file");
    scene.materials = facts.lists["materials"];
    scene.cameras = facts.lists["cameras"];
}

// A GLB file: a header of three words, then chunks, the first of them JSON.
void checkGlb(int descriptor, const std::string& path, std::uint64_t bytes, SceneFacts& scene) {
    const std::string start = readAt(descriptor, 0, 20);
    if (start.compare(0, 4, "glTF") != 0) otherKind(path, "it is not a GLB file");
    if (start.size() < 20) damaged(path, "it ends within its header");
    if (word(start, 4) != 2) damaged(path, "its version is " + std::to_string(word(start, 4)) + ", and only 2 is read");
    const std::uint64_t stated = word(start, 8);
    if (stated > bytes) {
        damaged(path, "it is cut off: it says that it has " + std::to_string(stated) + " bytes and has " +
                          std::to_string(bytes));
    }
    if (stated < 20) damaged(path, "it says that it has " + std::to_string(stated) + " bytes, less than its header");

    std::uint64_t place = 12;
    while (place < stated) {
        const std::string head = readAt(descriptor, place, 8);
        const std::uint64_t left = stated - place;
        if (left < 8 || word(head, 0) > left - 8) damaged(path, "a chunk reaches beyond its end");
        if (place == 12 && word(head, 4) != 0x4e4f534a) damaged(path, "its first chunk is not JSON");
        if (place == 12) checkGltfJson(descriptor, path, place + 8, word(head, 0), scene);
        place += 8 + std::uint64_t{word(head, 0)};
    }
}

void checkGltf(int descriptor, const std::string& path, std::uint64_t bytes, const std::string& start,
               SceneFacts& scene) {
    const std::size_t first = start.find_first_not_of(" \t\r\n");
    if (first == std::string::npos || start[first] != '{') otherKind(path, "it is not a glTF file");
    checkGltfJson(descriptor, path, 0, bytes, scene);
}

bool isObjKeyword(std::string_view text) {
    for (const char* keyword : {"v", "vt", "vn", "vp", "f", "l", "p", "o", "g", "s", "mtllib", "usemtl"}) {
        if (text == keyword) return true;
    }
    return false;
}

// An OBJ file is text, and some line of its beginning starts with a word of the format.
void checkObj(const std::string& path, const std::string& start) {
    if (start.find('\0') != std::string::npos) otherKind(path, "it is not an OBJ file");
    std::string_view rest = start;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::string_view line = rest.substr(0, end);
        line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
        if (isObjKeyword(line.substr(0, std::min(line.find_first_of(" \t\r"), line.size())))) return;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    otherKind(path, "it is not an OBJ file");
}

}  // namespace

const char* sceneKindName(SceneKind kind) {
    for (const Ending& ending : ENDINGS) {
        if (ending.kind == kind) return ending.name;
    }
    return "";
}

SceneFacts inspectScene(int descriptor, const std::string& path, std::uint64_t bytes) {
    SceneFacts scene;
    scene.kind = endingOf(path).kind;
    const std::string start = readAt(descriptor, 0, FIRST_BYTES);
    switch (scene.kind) {
        case SceneKind::glb:
            checkGlb(descriptor, path, bytes, scene);
            break;
        case SceneKind::gltf:
            checkGltf(descriptor, path, bytes, start, scene);
            break;
        case SceneKind::fbx:
            if (start.substr(0, 1024).find("FBX") == std::string::npos) otherKind(path, "it is not an FBX file");
            break;
        case SceneKind::obj:
            checkObj(path, start);
            break;
    }
    return scene;
}

}  // namespace Translation
