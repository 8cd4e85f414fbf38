#include "problem.h"

namespace Translation {
namespace {

struct Row {
    Problem problem;
    const char* name;
};

constexpr Row ROWS[] = {
    {Problem::none, "none"},
    {Problem::missing, "missing"},
    {Problem::folder, "folder"},
    {Problem::unreadable, "unreadable"},
    {Problem::empty, "empty"},
    {Problem::tooLarge, "too-large"},
    {Problem::otherKind, "other-kind"},
    {Problem::damaged, "damaged"},
    {Problem::outside, "outside"},
    {Problem::limit, "limit"},
    {Problem::died, "died"},
    {Problem::notStarted, "not-started"},
};

}  // namespace

const char* problemName(Problem problem) {
    for (const Row& row : ROWS) {
        if (row.problem == problem) return row.name;
    }
    return "died";
}

Problem problemFromName(std::string_view name) {
    for (const Row& row : ROWS) {
        if (name == row.name) return row.problem;
    }
    return Problem::died;
}

}  // namespace Translation
