// An open file as the scene reader wants it. Reading only.
#pragma once

#include <assimp/IOStream.hpp>
#include <cstdint>

#include "file_descriptor.h"

namespace Translation {

class FileStream : public Assimp::IOStream {
  public:
    FileStream(FileDescriptor file, std::uint64_t bytes) : file_(std::move(file)), bytes_(bytes) {}

    size_t Read(void* buffer, size_t size, size_t count) override;
    size_t Write(const void*, size_t, size_t) override { return 0; }
    aiReturn Seek(size_t offset, aiOrigin origin) override;
    size_t Tell() const override;
    size_t FileSize() const override { return bytes_; }
    void Flush() override {}

  private:
    FileDescriptor file_;
    std::uint64_t bytes_;
};

}  // namespace Translation
