#include "scene/search/wildcard_pattern.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "scene/search/match_wildcard.h"

namespace KUtils::Python {

namespace {

constexpr std::size_t BYTE_VALUES = 256;
constexpr std::size_t WORD_BITS = 64;

// The places that are tried one by one before all of them are tried at once.
constexpr int PLACES_TRIED = 8;

unsigned char byteAt(const char* text) { return static_cast<unsigned char>(*text); }

bool takes(char patternByte, char subjectByte) { return patternByte == subjectByte || patternByte == '?'; }

bool takesAll(const char* pattern, const char* subject, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i) {
        if (!takes(pattern[i], subject[i])) return false;
    }
    return true;
}

// The place of the byte that is least frequent in a piece, the last one of them; `length` when there is none.
std::size_t rarestPlace(const char* text, std::size_t length) {
    std::size_t counts[BYTE_VALUES] = {};
    for (std::size_t i = 0; i < length; ++i) ++counts[byteAt(text + i)];
    std::size_t rarest = length;
    for (std::size_t i = 0; i < length; ++i) {
        if (text[i] == '?') continue;
        if (rarest == length || counts[byteAt(text + i)] <= counts[byteAt(text + rarest)]) rarest = i;
    }
    return rarest;
}

}  // namespace

// The preparation

WildcardPattern::WildcardPattern(const char* wanted) : pattern(wanted), headLength(std::strcspn(wanted, "*")) {
    const char* const end = wanted + std::strlen(wanted);
    if (wanted[headLength] == 0) {
        isPrepared = true;
        return;
    }
    for (const char* star = wanted + headLength; star != end; star += 1 + std::strcspn(star + 1, "*")) {
        if (star[1] != '*' && star[1] != 0) ++middleCount;
        tail = star + 1;
    }
    tailLength = static_cast<std::size_t>(end - tail);
    if (tailLength > 0) --middleCount;
    if (middleCount > 0) middle.reset(new (std::nothrow) Piece[middleCount]);
    isPrepared = middleCount == 0 || middle != nullptr;
    if (!isPrepared) return;

    std::size_t count = 0;
    for (const char* star = wanted + headLength; star + 1 != tail;) {
        const std::size_t length = std::strcspn(star + 1, "*");
        if (length > 0) middle[count++].set(star + 1, length);
        star += 1 + length;
    }
}

void WildcardPattern::Piece::set(const char* pieceText, std::size_t pieceLength) {
    text = pieceText;
    length = pieceLength;
    rare = rarestPlace(text, length);
    hasAnyByte = std::memchr(text, '?', length) != nullptr;
}

// Matching

bool WildcardPattern::matches(const char* subject) {
    if (!isPrepared) return matchWildcard(pattern, subject);
    for (std::size_t i = 0; i < headLength; ++i) {
        if (subject[i] == 0 || !takes(pattern[i], subject[i])) return false;
    }
    subject += headLength;
    if (tail == nullptr) return *subject == 0;

    const std::size_t left = std::strlen(subject);
    if (left < tailLength) return false;
    const char* const end = subject + (left - tailLength);
    if (!takesAll(tail, end, tailLength)) return false;
    for (std::size_t i = 0; i < middleCount; ++i) {
        subject = middle[i].findIn(subject, end);
        if (subject == nullptr) return false;
    }
    return true;
}

bool WildcardPattern::Piece::standsAt(const char* place) const {
    return hasAnyByte ? takesAll(text, place, length) : std::memcmp(text, place, length) == 0;
}

const char* WildcardPattern::Piece::findIn(const char* from, const char* end) {
    if (static_cast<std::size_t>(end - from) < length) return nullptr;
    if (rare == length) return from + length;
    const char* const lastPlace = end - length;
    for (int tried = 0; tried < PLACES_TRIED || !prepareBits(); ++tried) {
        const auto places = static_cast<std::size_t>(lastPlace - from) + 1;
        const void* found = std::memchr(from + rare, text[rare], places);
        if (found == nullptr) return nullptr;
        from = static_cast<const char*>(found) - rare;
        if (standsAt(from)) return from + length;
        if (from == lastPlace) return nullptr;
        ++from;
    }
    return findByBits(from, end);
}

// All places at once

bool WildcardPattern::Piece::prepareBits() {
    if (bits != nullptr) return true;
    const std::size_t words = (length + WORD_BITS - 1) / WORD_BITS;
    const std::size_t size = (BYTE_VALUES + 1) * words;
    bits.reset(new (std::nothrow) std::uint64_t[size]);
    if (bits == nullptr) return false;
    std::fill_n(bits.get(), size, 0);
    for (std::size_t i = 0; i < length; ++i) {
        const std::uint64_t bit = std::uint64_t{1} << i % WORD_BITS;
        if (text[i] != '?') {
            bits[byteAt(text + i) * words + i / WORD_BITS] |= bit;
            continue;
        }
        for (std::size_t value = 0; value < BYTE_VALUES; ++value) bits[value * words + i / WORD_BITS] |= bit;
    }
    return true;
}

// Bit i of the state: the first i + 1 bytes of the piece stand right before the next byte of the subject.
const char* WildcardPattern::Piece::findByBits(const char* from, const char* end) {
    const std::size_t words = (length + WORD_BITS - 1) / WORD_BITS;
    const std::uint64_t complete = std::uint64_t{1} << (length - 1) % WORD_BITS;
    if (words == 1) {
        std::uint64_t state = 0;
        for (; from != end; ++from) {
            state = (state << 1 | 1) & bits[byteAt(from)];
            if ((state & complete) != 0) return from + 1;
        }
        return nullptr;
    }
    std::uint64_t* state = &bits[BYTE_VALUES * words];
    std::fill_n(state, words, 0);
    for (; from != end; ++from) {
        const std::uint64_t* taken = &bits[byteAt(from) * words];
        std::uint64_t carry = 1;
        for (std::size_t word = 0; word < words; ++word) {
            const std::uint64_t next = state[word] >> (WORD_BITS - 1);
            state[word] = (state[word] << 1 | carry) & taken[word];
            carry = next;
        }
        if ((state[words - 1] & complete) != 0) return from + 1;
    }
    return nullptr;
}

}  // namespace KUtils::Python
