#include <cstdio>

#include "core/base/error_maker.h"
#include "core/files/files.h"
#include "core/scene/scene_reading.h"
#include "core/scene_file/json/line_splitter.h"
#include "core/scene_file/scene_file_api.h"
#include "core/scene_file/scene_reader.h"

namespace Offline {
namespace {

constexpr std::size_t PIECE_BYTES = std::size_t{64} * 1024;
constexpr std::size_t LONGEST_LINE = std::size_t{1} << 30;

struct CloseFile {
    std::FILE* file;
    ~CloseFile() { std::fclose(file); }
};

// Reads the lines that `nextPiece(piece, length)` brings; it answers false at the end.
template <class NextPiece>
KUtils::ErrorRecord* readPieces(SceneContents& contents, const char* shownName, NextPiece nextPiece) {
    SceneReader reader(contents, shownName);
    LineSplitter splitter(LONGEST_LINE);
    KUtils::ErrorRecord* error = nullptr;
    bool any = false;
    const auto line = [&](const char* begin, const char* end) {
        any = true;
        error = reader.readLine(begin, end);
        return error == nullptr;
    };
    const char* piece;
    std::size_t length;
    bool goOn = true;
    while (goOn && nextPiece(piece, length)) goOn = splitter.feed(piece, length, line);
    if (goOn) goOn = splitter.finish(line);
    if (goOn && !any) line("", "");
    if (splitter.tooLong()) error = makeError(shownName, nullptr, "a line is longer than 1 GiB");
    KUtils::ErrorRecord* references = reader.finish();
    if (error == nullptr) return references;
    KUtils::releaseError(references);
    return error;
}

}  // namespace

KUtils::ErrorRecord* readSceneFile(SceneContents& contents, const char* path, const char* shownName) {
    if (path == nullptr) return makeError(nullptr, nullptr, "no file name");
    if (shownName == nullptr) shownName = path;
    std::string reason;
    std::FILE* file = openForReading(path, reason);
    if (file == nullptr) return makeError(shownName, nullptr, "the file cannot be read: %s", reason.c_str());
    const CloseFile closer{file};
    std::vector<char> buffer(PIECE_BYTES);
    KUtils::ErrorRecord* error = readPieces(contents, shownName, [&](const char*& piece, std::size_t& length) {
        piece = buffer.data();
        length = std::fread(buffer.data(), 1, buffer.size(), file);
        return length != 0;
    });
    if (std::ferror(file) == 0) return error;
    KUtils::releaseError(error);
    return makeError(shownName, nullptr, "the file cannot be read to its end");
}

KUtils::ErrorRecord* readScene(SceneContents& contents, const char* path, const char* shownName) {
    return readSceneFile(contents, path, shownName);
}

KUtils::ErrorRecord* readSceneText(SceneContents& contents, const char* text, std::size_t length,
                                   const char* shownName) {
    bool given = false;
    return readPieces(contents, shownName != nullptr ? shownName : "text",
                      [&](const char*& piece, std::size_t& pieceLength) {
                          if (given) return false;
                          given = true;
                          piece = text;
                          pieceLength = length;
                          return true;
                      });
}

}  // namespace Offline
