#include "child/input/json_check.h"

#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace Translation {
namespace {

// The bytes of the part, a block at a time; zero behind its end.
class FilePart {
  public:
    using Ch = char;

    FilePart(int descriptor, std::uint64_t offset, std::uint64_t bytes)
        : descriptor_(descriptor), offset_(offset), left_(bytes), block_(65536) {
        fill();
    }

    char Peek() const { return place_ < size_ ? block_[place_] : '\0'; }
    char Take() {
        const char byte = Peek();
        if (place_ < size_) {
            ++place_;
            ++taken_;
        }
        if (place_ == size_) fill();
        return byte;
    }
    std::size_t Tell() const { return taken_; }

    // Never called: the reader does not parse in place.
    static char* PutBegin() { return nullptr; }
    static void Put(char) {}
    static std::size_t PutEnd(char*) { return 0; }

  private:
    void fill() {
        const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(left_, block_.size()));
        const ssize_t got = pread(descriptor_, block_.data(), wanted, static_cast<off_t>(offset_));
        size_ = got > 0 ? static_cast<std::size_t>(got) : 0;
        place_ = 0;
        offset_ += size_;
        left_ -= size_;
    }

    int descriptor_;
    std::uint64_t offset_;
    std::uint64_t left_;
    std::vector<char> block_;
    std::size_t size_ = 0;
    std::size_t place_ = 0;
    std::size_t taken_ = 0;
};

// Follows the nesting; false ends the reading.
class Nesting : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Nesting> {
  public:
    bool StartObject() {
        if (depth_ == 2 && inList_) ++*current_;
        return enter();
    }
    bool StartArray() {
        if (depth_ == 1) inList_ = true;
        return enter();
    }
    bool EndObject(rapidjson::SizeType) { return leave(); }
    bool EndArray(rapidjson::SizeType) { return leave(); }
    bool Key(const char* text, rapidjson::SizeType length, bool) {
        if (depth_ == 1) current_ = &lists_[std::string(text, length)];
        return true;
    }

    bool tooDeep() const { return depth_ > MAX_JSON_DEPTH; }
    std::map<std::string, unsigned>& lists() { return lists_; }

  private:
    bool enter() { return ++depth_ <= MAX_JSON_DEPTH; }
    bool leave() {
        --depth_;
        if (depth_ == 1) inList_ = false;
        return true;
    }

    int depth_ = 0;
    bool inList_ = false;
    std::map<std::string, unsigned> lists_;
    unsigned* current_ = nullptr;
};

// The reader's reason as the end of a sentence: without its full stop, and beginning small.
std::string reasonText(rapidjson::ParseErrorCode code) {
    std::string text = rapidjson::GetParseError_En(code);
    while (!text.empty() && text.back() == '.') text.pop_back();
    if (!text.empty() && text[0] >= 'A' && text[0] <= 'Z') text[0] = static_cast<char>(text[0] - 'A' + 'a');
    return text;
}

}  // namespace

JsonFacts checkJson(int descriptor, std::uint64_t offset, std::uint64_t bytes) {
    FilePart part(descriptor, offset, bytes);
    Nesting nesting;
    rapidjson::Reader reader;
    reader.Parse<rapidjson::kParseIterativeFlag>(part, nesting);

    JsonFacts facts;
    facts.lists = std::move(nesting.lists());
    if (nesting.tooDeep()) {
        facts.error = "its JSON is nested deeper than " + std::to_string(MAX_JSON_DEPTH) + " levels";
    } else if (reader.HasParseError()) {
        facts.error = "its JSON breaks at byte " + std::to_string(reader.GetErrorOffset()) + ": " +
                      reasonText(reader.GetParseErrorCode());
    }
    return facts;
}

}  // namespace Translation
