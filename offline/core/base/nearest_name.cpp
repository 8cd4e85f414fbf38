#include "core/base/nearest_name.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace Offline {
namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// The number of characters to insert, leave out or replace until one name is the other. Case does not count.
std::size_t editDistance(const char* a, std::size_t aLength, const char* b, std::size_t bLength) {
    std::vector<std::size_t> row(bLength + 1);
    for (std::size_t j = 0; j <= bLength; ++j) row[j] = j;
    for (std::size_t i = 1; i <= aLength; ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= bLength; ++j) {
            const std::size_t replaced = diagonal + (lower(a[i - 1]) == lower(b[j - 1]) ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
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
