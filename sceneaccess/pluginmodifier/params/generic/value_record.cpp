#include "params/generic/value_record.h"

#include <cstring>

#include "params/base/param_base.h"

namespace KUtils {

namespace {

// A walk over a tree needs no stack: the lists that are still to be visited are linked to each other.
class PendingLists {
  public:
    void add(ListPayload* list) {
        list->next = first;
        first = list;
    }
    ListPayload* take() {
        ListPayload* list = first;
        if (list != nullptr) first = list->next;
        return list;
    }

  private:
    ListPayload* first = nullptr;
};

// The text pointer that a payload holds.
char*& textIn(const ValueRecord& record) { return *static_cast<char**>(record.payload); }

// Frees what the record owns, save the records of a list: those become pending.
void detach(ValueRecord& record, PendingLists& pending) {
    if (record.payload == nullptr) return;
    if (record.kind == PayloadKind::List) {
        pending.add(static_cast<ListPayload*>(record.payload));
    } else {
        if (record.kind == PayloadKind::PrivateText) freeText(textIn(record));
        kelmo_free(record.payload, payloadSize(record.kind));
    }
    record.payload = nullptr;
    record.kind = PayloadKind::None;
}

// Ends lists until none is left. Their records are detached here, level by level, so that releasing a
// block finds nothing more to end.
void endPending(PendingLists& pending) {
    while (ListPayload* list = pending.take()) {
        ArrayRecord<ValueRecord>& records = list->records;
        for (std::int32_t i = 0; i < records.capacity; ++i) detach(records.data[i], pending);
        kelmo_free(records.data, static_cast<std::size_t>(records.capacity) * sizeof(ValueRecord));
        kelmo_free(list, sizeof(ListPayload));
    }
}

}  // namespace

std::size_t payloadSize(PayloadKind kind) {
    switch (kind) {
        case PayloadKind::Int:
            return sizeof(std::int32_t);
        case PayloadKind::Float:
            return sizeof(float);
        case PayloadKind::Double:
            return sizeof(double);
        case PayloadKind::Vector:
            return sizeof(Vector);
        case PayloadKind::Color:
            return sizeof(Color);
        case PayloadKind::AColor:
            return sizeof(AColor);
        case PayloadKind::Matrix:
            return sizeof(Matrix);
        case PayloadKind::Transform:
            return sizeof(Transform);
        case PayloadKind::Text:
        case PayloadKind::PrivateText:
            return sizeof(char*);
        case PayloadKind::Plugin:
            return sizeof(PluginReference);
        case PayloadKind::List:
            return sizeof(ListPayload);
        case PayloadKind::None:
            break;
    }
    return 0;
}

void ElementLife<ValueRecord>::initialise(ValueRecord* first, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) first[i] = ValueRecord{};
}

void ElementLife<ValueRecord>::dispose(ValueRecord* first, std::size_t count) {
    PendingLists pending;
    for (std::size_t i = 0; i < count; ++i) detach(first[i], pending);
    endPending(pending);
}

void attachPayload(ValueRecord& record, PayloadKind kind, const void* bytes) {
    const std::size_t size = payloadSize(kind);
    void* payload = kelmo_malloc(size);
    if (payload == nullptr) return;
    std::memcpy(payload, bytes, size);
    record.payload = payload;
    record.kind = kind;
}

bool makeList(ValueRecord& record) {
    ElementLife<ValueRecord>::dispose(&record, 1);
    record.type = PARAM_LIST;
    static const ListPayload empty{};
    attachPayload(record, PayloadKind::List, &empty);
    return record.payload != nullptr;
}

bool keepPrivateTexts(ValueRecord& root) {
    bool allKept = true;
    PendingLists pending;
    const auto visit = [&](ValueRecord& record) {
        if (record.kind == PayloadKind::List) {
            pending.add(static_cast<ListPayload*>(record.payload));
        } else if (record.kind == PayloadKind::Text) {
            const char* given = textIn(record);
            textIn(record) = copyText(given);
            record.kind = PayloadKind::PrivateText;
            if (given != nullptr && textIn(record) == nullptr) allKept = false;
        }
    };
    visit(root);
    while (ListPayload* list = pending.take()) {
        for (std::int32_t i = 0; i < list->records.count; ++i) visit(list->records.data[i]);
    }
    return allKept;
}

}  // namespace KUtils
