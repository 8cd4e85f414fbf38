// What is the same on every system.
#include "core/files/replacing_file.h"

namespace Offline {
namespace {

constexpr std::size_t BUFFER_BYTES = std::size_t{256} * 1024;

}  // namespace

bool ReplacingFile::write(const char* data, std::size_t length, std::string& reason) {
    if (buffer.size() + length > BUFFER_BYTES && !flush(reason)) return false;
    if (length > BUFFER_BYTES) return writeThrough(data, length, reason);
    buffer.append(data, length);
    return true;
}

bool ReplacingFile::flush(std::string& reason) {
    const bool written = writeThrough(buffer.data(), buffer.size(), reason);
    buffer.clear();
    return written;
}

}  // namespace Offline
