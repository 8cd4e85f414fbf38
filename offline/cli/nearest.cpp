#include "nearest.h"

#include <algorithm>
#include <numeric>

namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Letters to insert, remove or replace until one text is the other.
size_t editDistance(const std::string& a, const std::string& b) {
    std::vector<size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), size_t{0});
    for (size_t i = 0; i < a.size(); ++i) {
        size_t diagonal = row[0];
        row[0] = i + 1;
        for (size_t j = 0; j < b.size(); ++j) {
            const size_t replaced = diagonal + (lower(a[i]) == lower(b[j]) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row[b.size()];
}

}  // namespace

std::string nearestName(const std::string& name, const std::vector<std::string>& candidates) {
    std::string best;
    size_t bestDistance = std::max<size_t>(1, name.size() / 3) + 1;
    for (const std::string& candidate : candidates) {
        const size_t distance = editDistance(name, candidate);
        if (distance < bestDistance) {
            best = candidate;
            bestDistance = distance;
        }
    }
    return best;
}

std::string suggestion(const std::string& name, const std::vector<std::string>& candidates) {
    const std::string best = nearestName(name, candidates);
    return best.empty() ? std::string() : "; did you mean \"" + best + "\"?";
}
