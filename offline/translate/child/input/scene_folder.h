// The files that a scene may be made of: those under the folder of the scene itself, links followed to where
// they really lie. Everything else is as if it were not there, and remembered.
//
// Ownership: streams belong to whoever opened them and go through Close. Errors: a stream that cannot be had
// is null; the reasons are asked for afterwards.
#pragma once

#include <assimp/IOSystem.hpp>
#include <cstdint>
#include <string>
#include <vector>

#include "file_descriptor.h"
#include "problem.h"

namespace Translation {

// Opens the scene itself and checks that it can be one: there, a regular file, readable, not empty, not
// larger than `maxBytes`. Throws Failure.
FileDescriptor openScene(const std::string& path, std::uint64_t maxBytes, std::uint64_t& bytes);

class SceneFolder : public Assimp::IOSystem {
  public:
    enum class Place { inside, missing, outside };

    // `scenePath` exists. Throws Failure when its real place cannot be found.
    SceneFolder(const std::string& scenePath, std::uint64_t maxBytes);

    // The scene with all links resolved, the path that the reader is to be given.
    const std::string& scene() const { return scene_; }

    // Where a file lies that the scene names, seen from the scene's folder.
    Place placeOf(const std::string& name) const;

    // The files that were to be opened and refused, in the order of asking; those outside also when only looked for.
    const std::vector<std::string>& outside() const { return outside_; }
    const std::vector<std::string>& tooLarge() const { return tooLarge_; }
    const std::vector<std::string>& missing() const { return missing_; }

    bool Exists(const char* file) const override;
    char getOsSeparator() const override { return '/'; }
    Assimp::IOStream* Open(const char* file, const char* mode) override;
    void Close(Assimp::IOStream* stream) override;

  private:
    Place resolve(const std::string& name, std::string& real) const;
    std::string shown(const std::string& file) const;

    std::string scene_;
    std::string folder_;  // with a slash at its end
    std::uint64_t maxBytes_;
    mutable std::vector<std::string> outside_;
    std::vector<std::string> tooLarge_;
    std::vector<std::string> missing_;
};

}  // namespace Translation
