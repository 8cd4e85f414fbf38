// WildcardPattern: a pattern of matchWildcard prepared once, for many subjects. Its answer is matchWildcard's for every
// subject; it does not go back over a subject, however often a piece of the pattern nearly fits.
//
// The pattern falls into pieces at its stars. The first piece stands at the subject's start and the last at its end;
// each of those between is looked for from where the one before it ended, and the leftmost place is always the right
// one. A piece is looked for by the byte that is least frequent in it; where that finds too many places in vain,
// all places are tried at once, one bit each.
//
// Ownership: the pattern's text is the caller's and outlives the object. Errors: none; without memory for the
// preparation the subjects are matched without it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace KUtils::Python {

class WildcardPattern {
  public:
    explicit WildcardPattern(const char* pattern);

    bool matches(const char* subject);

  private:
    // Looks for one piece in texts without a zero.
    class Piece {
      public:
        void set(const char* text, std::size_t length);
        // Behind the leftmost place in [from, end), or null.
        const char* findIn(const char* from, const char* end);

      private:
        bool standsAt(const char* place) const;
        const char* findByBits(const char* from, const char* end);
        bool prepareBits();

        const char* text = nullptr;
        std::size_t length = 0;
        std::size_t rare = 0;  // where its least frequent byte stands; the length when it is all '?'
        bool hasAnyByte = false;
        std::unique_ptr<std::uint64_t[]> bits;  // for each byte, the places in the piece that take it; then the state
    };

    const char* pattern;
    bool isPrepared = false;
    std::size_t headLength = 0;  // up to the first star
    const char* tail = nullptr;  // behind the last star; null: there is no star
    std::size_t tailLength = 0;
    std::unique_ptr<Piece[]> middle;
    std::size_t middleCount = 0;
};

}  // namespace KUtils::Python
