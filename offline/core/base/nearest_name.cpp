#include "core/base/nearest_name.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace Offline {
namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// The number of characters to insert, leave out, replace or swap with their neighbour until one name is the other. Case
// does not count.
std::size_t editDistance(const char* a, std::size_t aLength, const char* b, std::size_t bLength) {
    // Three rows of the table: of two characters before, of the one before, of this one of `a`.
    std::vector<std::size_t> older(bLength + 1), former(bLength + 1), row(bLength + 1);
    const auto same = [](char x, char y) { return lower(x) == lower(y); };
    for (std::size_t j = 0; j <= bLength; ++j) row[j] = j;
    for (std::size_t i = 1; i <= aLength; ++i) {
        older.swap(former);
        former.swap(row);
        row[0] = i;
        for (std::size_t j = 1; j <= bLength; ++j) {
            row[j] = std::min({former[j - 1] + (same(a[i - 1], b[j - 1]) ? 0 : 1), former[j] + 1, row[j - 1] + 1});
            const bool swapped = i > 1 && j > 1 && same(a[i - 1], b[j - 2]) && same(a[i - 2], b[j - 1]);
            if (swapped) row[j] = std::min(row[j], older[j - 2] + 1);
        }
    }
    return row[bLength];
}

}  // namespace

NearestName::NearestName(const char* name) : wanted(name), length(std::strlen(name)), distance(length / 3 + 1) {}

void NearestName::offer(const char* name) {
    const std::size_t offered = std::strlen(name);
    const std::size_t apart = offered > length ? offered - length : length - offered;
    if (apart >= distance) return;
    const std::size_t found = editDistance(wanted, length, name, offered);
    if (found >= distance) return;
    distance = found;
    nearest = name;
}

}  // namespace Offline
