#include "child/json_depth.h"

#include <unistd.h>

#include <algorithm>
#include <vector>

namespace Translation {
namespace {

struct Scanner {
    int depth = 0;
    bool inText = false;
    bool escaped = false;

    void take(char byte) {
        if (escaped) {
            escaped = false;
        } else if (inText) {
            escaped = byte == '\\';
            inText = byte != '"';
        } else if (byte == '"') {
            inText = true;
        } else if (byte == '[' || byte == '{') {
            ++depth;
        } else if (byte == ']' || byte == '}') {
            --depth;
        }
    }
};

}  // namespace

bool jsonDepthBounded(int descriptor, std::uint64_t offset, std::uint64_t bytes) {
    Scanner scanner;
    std::vector<char> block(65536);
    while (bytes > 0) {
        const std::size_t wanted = static_cast<std::size_t>(std::min<std::uint64_t>(bytes, block.size()));
        const ssize_t got = pread(descriptor, block.data(), wanted, static_cast<off_t>(offset));
        if (got <= 0) return true;
        for (ssize_t i = 0; i < got; ++i) {
            scanner.take(block[static_cast<std::size_t>(i)]);
            if (scanner.depth > MAX_JSON_DEPTH) return false;
        }
        offset += static_cast<std::uint64_t>(got);
        bytes -= static_cast<std::uint64_t>(got);
    }
    return true;
}

}  // namespace Translation
