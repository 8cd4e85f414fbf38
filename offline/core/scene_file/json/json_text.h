// Reads one line of JSON piece by piece, in the order in which it stands there.
//
// A reader of its own because a scene needs what general ones do not give: the place of every value for
// messages, numbers rounded once to the declared type, and bytes that are not UTF-8 (written \udcNN).
//
// Errors: a function that answers false for anything but a question has noted the first error; the reader then
// unwinds and asks for it.
#pragma once

#include <cstddef>
#include <string>

namespace Offline {

class JsonText {
  public:
    JsonText(const char* begin, const char* end)
        : start(begin), at(begin), limit(end), place(begin), countedTo(begin) {}

    // What comes next, blanks aside; 0 at the end.
    char peek();
    // Takes the next character if it is this one.
    bool take(char c);
    // Takes the next word (true, false, null) if it is this one.
    bool takeWord(const char* word);

    // These note an error, with what was expected in words, when something else comes.
    bool need(char c);
    bool readText(std::string& text, const char* expected);
    bool readNumber(const char*& digits, std::size_t& length, const char* expected);
    bool readFloat(float& value, const char* expected);
    bool readDouble(double& value, const char* expected);
    bool readInt(int& value, const char* expected);
    // Passes over one value without looking into it.
    bool skipValue();
    bool needEnd();

    // Calls `member(key)` for each member of an object, `element()` for each element of a list, until one answers
    // false. The key's place is that of the last token until the value is read.
    template <class Member>
    bool readObject(const char* expected, Member member);
    template <class Element>
    bool readList(const char* expected, Element element);

    // Notes the error "expected ..., found <what comes next>"; false.
    bool fail(const char* expected);
    // Notes an error at a place that mark() gave; false.
    bool failAt(const char* where, const std::string& message);

    // The place of what comes next.
    const char* mark();
    // The place where the last key, text or number began.
    const char* last() const { return place; }
    const char* position() const { return at; }
    void moveTo(const char* where) { at = where; }

    // Columns count characters from 1.
    std::size_t columnOf(const char* where) const;
    std::size_t errorColumn() const { return columnOf(errorPlace); }
    const std::string& errorMessage() const { return error; }

  private:
    void skipBlanks();
    std::string describeNext();
    bool readEscape(std::string& text);
    bool readHex(unsigned& unit);

    const char* start;
    const char* at;
    const char* limit;
    const char* place;
    mutable const char* countedTo;  // columnOf() goes on from here, so that a walk through a line is linear
    mutable std::size_t countedColumn = 1;
    const char* errorPlace = nullptr;
    std::string error;
};

// "text", cut when it is long; for messages.
std::string quoted(const std::string& text);

template <class Member>
bool JsonText::readObject(const char* expected, Member member) {
    if (!take('{')) return fail(expected);
    if (take('}')) return true;
    std::string key;
    do {
        if (!readText(key, "a key")) return false;
        const char* keyPlace = place;
        if (!need(':')) return false;
        place = keyPlace;
        if (!member(key)) return false;
    } while (take(','));
    return peek() == '}' ? take('}') : fail("\",\" or \"}\"");
}

template <class Element>
bool JsonText::readList(const char* expected, Element element) {
    if (!take('[')) return fail(expected);
    if (take(']')) return true;
    do {
        if (!element()) return false;
    } while (take(','));
    return peek() == ']' ? take(']') : fail("\",\" or \"]\"");
}

}  // namespace Offline
