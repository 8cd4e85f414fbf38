// Translates a scene that a DCC exported into the offline scene format, in a process of its own that can
// neither write files nor start programs nor reach the network, within limits. Whatever the file holds,
// the caller lives on and gets either the scene or one sentence.
//
// Ownership: the result owns its file. Threads: any, one translation each. Errors: in the result; nothing
// is thrown but std::bad_alloc.
#pragma once

#include <cstdint>
#include <string>

#include "translate/file_descriptor.h"
#include "translate/problem.h"

namespace Translation {

struct Limits {
    std::uint64_t memoryBytes = std::uint64_t{4} << 30;  // address space of the process; not under AddressSanitizer
    std::uint64_t inputBytes = std::uint64_t{1} << 30;   // of the scene and of each file that belongs to it
    std::uint64_t outputBytes = std::uint64_t{8} << 30;  // of the translated scene
    unsigned processorSeconds = 300;
    unsigned wallSeconds = 600;
};

struct TranslationResult {
    FileDescriptor scene;  // the translated scene, at its beginning; only without a problem
    std::string report;    // what was found, renamed and left out: JSON Lines
    Problem problem = Problem::none;
    std::string message;  // one sentence; empty without a problem

    bool ok() const { return problem == Problem::none; }
};

// `deferKinds`: "materials,textures,cameras,nodes" or a part of it; empty defers nothing.
// `program`: the translating program.
TranslationResult translate(const std::string& scenePath, const std::string& deferKinds, const Limits& limits,
                            const std::string& program);

// The translating program of the tree that the running program stands in: ../libexec/kelmo-translate, seen
// from the program's folder.
std::string translatorProgram();

// True when every kind of a list that `translate` takes is known; otherwise `unknown` is the first that is not.
bool deferKindsKnown(const std::string& deferKinds, std::string& unknown);

// True when the name ends like one of the files that can be translated (.glb, .gltf, .fbx, .obj).
bool looksTranslatable(const std::string& scenePath);

}  // namespace Translation
