// Cuts what is read in pieces into lines. A line that lies in one piece is not copied.
#pragma once

#include <cstddef>
#include <cstring>
#include <string>

namespace Offline {

class LineSplitter {
  public:
    explicit LineSplitter(std::size_t longest) : longest(longest) {}

    // Calls `line(begin, end)` for every line that ends in this piece, until one answers false; false then, and when
    // a line is too long (see tooLong()).
    template <class Line>
    bool feed(const char* piece, std::size_t length, Line line) {
        const char* end = piece + length;
        while (const auto* newline =
                   static_cast<const char*>(std::memchr(piece, '\n', static_cast<std::size_t>(end - piece)))) {
            if (begun.empty()) {
                if (!line(piece, newline)) return false;
            } else {
                begun.append(piece, newline);
                const bool goOn = line(begun.data(), begun.data() + begun.size());
                begun.clear();
                if (begun.capacity() > KEPT_BYTES) begun.shrink_to_fit();
                if (!goOn) return false;
            }
            piece = newline + 1;
        }
        begun.append(piece, end);
        return !tooLong();
    }

    // The last line, when it has no end of its own.
    template <class Line>
    bool finish(Line line) {
        return begun.empty() || line(begun.data(), begun.data() + begun.size());
    }

    bool tooLong() const { return begun.size() > longest; }

  private:
    static constexpr std::size_t KEPT_BYTES = 1 << 20;

    std::size_t longest;
    std::string begun;
};

}  // namespace Offline
