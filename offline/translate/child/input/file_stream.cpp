#include "child/input/file_stream.h"

#include <cerrno>

namespace Translation {

size_t FileStream::Read(void* buffer, size_t size, size_t count) {
    if (size == 0 || count == 0 || count > SIZE_MAX / size) return 0;
    const size_t wanted = size * count;
    size_t done = 0;
    while (done < wanted) {
        const ssize_t got = read(file_.get(), static_cast<char*>(buffer) + done, wanted - done);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        done += static_cast<size_t>(got);
    }
    return done / size;
}

aiReturn FileStream::Seek(size_t offset, aiOrigin origin) {
    const int from = origin == aiOrigin_CUR ? SEEK_CUR : origin == aiOrigin_END ? SEEK_END : SEEK_SET;
    return lseek(file_.get(), static_cast<off_t>(offset), from) < 0 ? aiReturn_FAILURE : aiReturn_SUCCESS;
}

size_t FileStream::Tell() const {
    const off_t place = lseek(file_.get(), 0, SEEK_CUR);
    return place < 0 ? 0 : static_cast<size_t>(place);
}

}  // namespace Translation
