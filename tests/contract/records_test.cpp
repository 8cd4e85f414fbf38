// List views, error records, the exception's text and the type codes.
#include <string>

#include "contract/test_heap.h"
#include "kelmo/core/error_record.h"
#include "kelmo/core/exception_msg.h"
#include "kelmo/param/list_view.h"
#include "kelmo/param/param_type.h"
#include "support/check.h"

using namespace KUtils;

namespace {

std::string freed;

// A record's own free function; the sizes that it was given, in order.
void noteFree(void* block, std::size_t size) {
    freed += std::to_string(size) + " ";
    kelmo_free(block, size);
}

SharedArray* makeSharedArray(int references) {
    auto* record = static_cast<SharedArray*>(kelmo_malloc(sizeof(SharedArray)));
    record->allocate = kelmo_malloc;
    record->free = noteFree;
    ::new (&record->references) std::atomic<std::int32_t>(references);
    return record;
}

struct Release {
    void* data;
    std::size_t bytes;
    void* user;
};
Release lastRelease;

void noteRelease(void* data, std::size_t bytes, void* user) { lastRelease = Release{data, bytes, user}; }

SharedForeignArray* makeForeignArray(int references) {
    auto* record = static_cast<SharedForeignArray*>(kelmo_malloc(sizeof(SharedForeignArray)));
    record->allocate = kelmo_malloc;
    record->free = noteFree;
    ::new (&record->references) std::atomic<std::int32_t>(references);
    record->release = noteRelease;
    record->user = &lastRelease;
    return record;
}

std::string chain;

void deleteError(ErrorRecord* record) {
    chain += record->message;
    releaseError(record->cause);
    kelmo_free(record, sizeof(ErrorRecord));
}

ErrorRecord* makeError(const char* message, ErrorRecord* cause) {
    auto* record = static_cast<ErrorRecord*>(kelmo_malloc(sizeof(ErrorRecord)));
    *record = ErrorRecord{nullptr, {}, 0, cause, deleteError, 1};
    std::snprintf(record->message, sizeof record->message, "%s", message);
    return record;
}

}  // namespace

TEST_CASE(ownedViews) {
    SharedArray* record = makeSharedArray(2);
    auto* data = static_cast<double*>(kelmo_malloc(5 * sizeof(double)));
    const ListView<double> view{data, record, 5, 1};
    freed.clear();
    releaseView(view);
    CHECK_EQ(testHeap().live, 2);
    CHECK_EQ(record->references.load(), 1);
    releaseView(view);
    CHECK_EQ(testHeap().live, 0);
    CHECK_TEXT(freed.c_str(), ("40 " + std::to_string(sizeof(SharedArray)) + " ").c_str());
}

TEST_CASE(foreignViews) {
    SharedForeignArray* record = makeForeignArray(2);
    float data[5];
    const ListView<float> view{data, record, 5, 2};
    freed.clear();
    releaseView(view);
    CHECK_EQ(record->references.load(), 1);
    CHECK_EQ(static_cast<const void*>(lastRelease.data), nullptr);
    releaseView(view);
    CHECK_EQ(static_cast<const void*>(lastRelease.data), static_cast<const void*>(data));
    CHECK_EQ(lastRelease.bytes, std::size_t{20});
    CHECK_EQ(static_cast<const void*>(lastRelease.user), static_cast<const void*>(&lastRelease));
    CHECK_TEXT(freed.c_str(), (std::to_string(sizeof(SharedForeignArray)) + " ").c_str());
    CHECK_EQ(testHeap().live, 0);

    lastRelease = Release{};
    SharedForeignArray* silent = makeForeignArray(1);
    silent->release = nullptr;
    releaseView(ListView<float>{data, silent, 5, 2});
    CHECK_EQ(static_cast<const void*>(lastRelease.data), nullptr);
    CHECK_EQ(testHeap().live, 0);
}

TEST_CASE(viewsThatOwnNothing) {
    int data[2] = {1, 2};
    releaseView(borrowedView(data, 2));
    releaseView(emptyView<int>());
    for (int owned : {0, 3, -1}) {
        SharedArray* record = makeSharedArray(1);
        releaseView(ListView<int>{data, record, 2, owned});
        CHECK_EQ(record->references.load(), 1);
        CHECK_EQ(testHeap().live, 1);
        kelmo_free(record, 0);
    }
    const auto view = borrowedView(data, 2);
    CHECK(view.data == data && view.shared == nullptr && view.count == 2 && view.owned == 0);
    CHECK_EQ(static_cast<const void*>(borrowedView(data, 0).data), nullptr);
}

TEST_CASE(errorChains) {
    chain.clear();
    ErrorRecord* error = makeError("outer ", makeError("inner", nullptr));
    ++error->references;
    releaseError(error);
    CHECK_TEXT(chain.c_str(), "");
    releaseError(error);
    CHECK_TEXT(chain.c_str(), "outer inner");
    CHECK_EQ(testHeap().live, 0);
    releaseError(nullptr);
    ErrorRecord still{nullptr, {}, 0, nullptr, nullptr, 1};
    releaseError(&still);
    CHECK_EQ(still.references, 0);
}

TEST_CASE(exceptionTextIsCut) {
    const struct {
        const char* label;
        std::size_t given, kept;
    } rows[] = {{"empty", 0, 0}, {"fits", 1023, 1023}, {"one too many", 1024, 1023}, {"long", 5000, 1023}};
    for (const auto& row : rows) {
        CHECK_ROW(row.label);
        const std::string text(row.given, 'x');
        const ExceptionMsg message("%s", text.c_str());
        CHECK_EQ(std::string(message.getMessage()).size(), row.kept);
        const ExceptionMsg copy(message);
        CHECK_TEXT(copy.getMessage(), message.getMessage());
    }
    try {
        throw ExceptionMsg("%d%%", 5);
    } catch (const ExceptionMsg& message) {
        CHECK_TEXT(message.getMessage(), "5%");
    }
}

TEST_CASE(typeCodes) {
    const ParamType codes[] = {PARAM_INT,
                               PARAM_FLOAT,
                               PARAM_DOUBLE,
                               PARAM_BOOL,
                               PARAM_VECTOR,
                               PARAM_COLOR,
                               PARAM_ACOLOR,
                               PARAM_MATRIX,
                               PARAM_TRANSFORM,
                               PARAM_STRING,
                               PARAM_PLUGIN,
                               PARAM_TEXTURE,
                               PARAM_LIST,
                               PARAM_TEXTURE_FLOAT,
                               PARAM_TEXTURE_INT,
                               PARAM_TEXTURE_VECTOR,
                               PARAM_TEXTURE_MATRIX,
                               PARAM_TEXTURE_TRANSFORM};
    int expected = 0;
    for (ParamType code : codes) CHECK_EQ(static_cast<int>(code), expected++);
    CHECK_EQ(static_cast<int>(PARAM_UNKNOWN), 10000);
    CHECK_EQ(static_cast<int>(PARAM_OUTPUT_TEXTURE_TRANSFORM), 1005);
    for (int code : {11, 13, 14, 15, 16, 17}) CHECK(isTextureType(code));
    for (int code : {-1, 0, 10, 12, 18, 1000, 10000}) CHECK(!isTextureType(code));
    for (int code : {1000, 1001, 1002, 1003, 1004, 1005}) CHECK(isOutputType(code));
    for (int code : {-1, -2147483647, 0, 999, 1006, 10000}) CHECK(!isOutputType(code));
}
