// What kind of scene a file is, judged by its name and by its first bytes, and what can be said of its
// soundness before the reader sees it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace Translation {

enum class SceneKind { glb, gltf, fbx, obj };

struct SceneFacts {
    SceneKind kind{};
    // How many the file says it has; nothing when it does not say.
    std::optional<unsigned> materials;
    std::optional<unsigned> cameras;
};

// The name of a kind for people and reports: "GLB", "glTF", "FBX", "OBJ".
const char* sceneKindName(SceneKind kind);

// Looks at an open scene of `bytes` bytes; the place in the file is at its beginning before and after.
// Throws Failure: otherKind when name or contents are of no kind that is read, damaged when the frame of the
// file does not hold together.
SceneFacts inspectScene(int descriptor, const std::string& path, std::uint64_t bytes);

}  // namespace Translation
