// Why a scene could not be translated: the kind of failure, and one sentence for a person that names the
// file. The translating process writes both into its report, the supervisor adds those that only it can see.
#pragma once

#include <string>
#include <string_view>

namespace Translation {

enum class Problem {
    none,
    missing,     // there is no such file
    folder,      // it is a folder
    unreadable,  // it may not be read, or is no regular file
    empty,       // it has no bytes
    tooLarge,    // it has more bytes than are read
    otherKind,   // it is not a glTF, GLB, FBX or OBJ file
    damaged,     // it is one, but its contents make no sense
    outside,     // it refers to a file outside of its own folder
    limit,       // it needed more memory, time or output than it may
    died,        // the translating process ended by a signal or without a report
    notStarted,  // the translating process could not be started or protected
};

// The name of a problem in reports: "missing", "too-large", ...
const char* problemName(Problem problem);

// The problem of that name; `died` for a name that is not known.
Problem problemFromName(std::string_view name);

// What the translating process throws; only its main function catches it.
struct Failure {
    Problem problem;
    std::string message;
};

}  // namespace Translation
