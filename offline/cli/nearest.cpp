#include "nearest.h"

#include <algorithm>
#include <numeric>

namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Letters to insert, remove, replace or swap with their neighbour until one text is the other.
size_t editDistance(const std::string& a, const std::string& b) {
    // Three rows of the table: of two letters before, of the letter before, of this letter of `a`.
    std::vector<size_t> older(b.size() + 1), former(b.size() + 1), row(b.size() + 1);
    std::iota(row.begin(), row.end(), size_t{0});
    const auto same = [](char x, char y) { return lower(x) == lower(y); };
    for (size_t i = 1; i <= a.size(); ++i) {
        older.swap(former);
        former.swap(row);
        row[0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            row[j] = std::min({former[j - 1] + (same(a[i - 1], b[j - 1]) ? 0 : 1), former[j] + 1, row[j - 1] + 1});
            const bool swapped = i > 1 && j > 1 && same(a[i - 1], b[j - 2]) && same(a[i - 2], b[j - 1]);
            if (swapped) row[j] = std::min(row[j], older[j - 2] + 1);
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
