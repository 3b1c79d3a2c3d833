// The scan dispatcher: settles the datatype of a text (given by the
// caller's record, by a leading "[n]" tag, or guessed from the text's
// shape), then runs the scanner that the datatype table names for it and
// accounts for the bytes of the record and its payload.
#include <cstdlib>
#include <cstring>

#include <bacfmt/scan.h>

#include "datatypes/table.h"
#include "scan/guess.h"
#include "scan/lexical.h"
#include "scan/scan_entry.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

constexpr int32_t kNoHint = -1;
constexpr int32_t kTypeUnknown = -2;
constexpr int32_t kTypeUnset = -1;
constexpr int32_t kNullPayloadBytes = sizeof "NULL";

bool IsPrimitiveCode(int32_t code) { return code >= CT_NULL && code <= CT_OBJECT_ID && code % 16 == 0; }

// Constructed codes whose tag the dispatcher checks itself.
bool IsCheckedReference(int32_t code) {
    return code == CT_OBJ_PROP_REFERENCE || code == CT_DEV_OBJ_PROP_REFERENCE ||
           code == CT_DEV_OBJ_REFERENCE;
}

// A tag's number as a datatype code: application tags are scaled by 16.
int32_t CodeOfTag(int tag) {
    return tag < 16 ? static_cast<int32_t>(static_cast<uint32_t>(tag) * 16u) : tag;
}

// Reads a leading "[n]" and moves `text` behind it; the text stays where it
// was when the tag is incomplete (-2, which is also what "[-2]" reads as).
int32_t ReadTag(char *&text) {
    char *after = nullptr;
    const int tag = ParseChoice(text, kNoHint, &after);
    if (tag == kSyntaxError) return kSyntaxError;
    text = after;
    return CodeOfTag(tag);
}

// A second tag must name the code already settled.
int CheckTag(char *&text, int32_t code) {
    return ReadTag(text) == code ? 0 : kTagMismatch;
}

int32_t RecordType(const BACnetContents *record) {
    if (record == nullptr) return kTypeUnknown;
    const auto type = static_cast<int32_t>(record->type);
    return type == kTypeUnset ? kTypeUnknown : type;
}

// One call's view of the record under construction.
struct ScanState {
    char *text;
    BACnetContents *record;
    bool filling;
    bool separate;  // payloads in malloc blocks of their own
    int32_t hint;
};

// Steps of settling the code; returns the code, or a negative result code
// through `failure`.
int32_t SettleCode(ScanState &s, int &failure) {
    failure = 0;
    int32_t code;
    if (s.hint == kNoHint && s.text[0] == '[') {
        code = ReadTag(s.text);
        if (code == kSyntaxError) {
            if (s.separate) return failure = kUnsupported;
            code = RecordType(s.record);
        }
    } else {
        // A record made here can only learn its type from a tag.
        if (s.separate) return failure = kUnsupported;
        code = RecordType(s.record);
    }
    if (s.filling) s.record->type = static_cast<uint32_t>(code);

    if (code == kTypeUnknown) {
        code = s.text[0] == '[' ? ReadTag(s.text) : GuessValueType(s.text, s.hint);
        if (code < 0) return failure = kUnsupported;
        code = CodeOfTag(code);
        if (s.filling && static_cast<int32_t>(s.record->type) == kTypeUnknown)
            s.record->type = static_cast<uint32_t>(code);
        if (s.text[0] == '[' && IsPrimitiveCode(code)) failure = CheckTag(s.text, code);
    } else if (s.text[0] == '[' && (IsPrimitiveCode(code) || IsCheckedReference(code))) {
        failure = CheckTag(s.text, code);
    }
    return code;
}

// Bytes the sizing pass counts for a scanner's result.
int64_t SizingBytes(ScanKind kind, int result, int32_t count, uint32_t elementSize) {
    const int64_t elements = int64_t{count} * elementSize;
    switch (kind) {
    case ScanKind::FixedDoubleSizing:
        return 2 * int64_t{result} + elements;  // an over-estimate that callers rely on
    case ScanKind::Variable:
    case ScanKind::VariableArrayCursor:
        return int64_t{result} + elements;
    default:
        return result;
    }
}

// How far the filling pass moves the cursor past a scanner's payload.
int64_t CursorAdvance(ScanKind kind, int result, int32_t count, uint32_t elementSize) {
    const int64_t elements = int64_t{count} * elementSize;
    switch (kind) {
    case ScanKind::FixedOneByteCursor:
        return 1;
    case ScanKind::Variable:
        return elements + result;
    default:
        return elements;
    }
}

// The NULL value has no scanner: the record gets the text "NULL" itself.
int StoreNull(ScanState &s, char *&cursor) {
    if (!s.filling) return kNullPayloadBytes;
    char *payload = s.separate ? static_cast<char *>(std::malloc(kNullPayloadBytes)) : cursor;
    if (payload == nullptr) return kSyntaxError;
    std::memcpy(payload, NullString, kNullPayloadBytes);
    s.record->data = payload;
    s.record->count = 1;
    s.record->size = kNullPayloadBytes;
    cursor += kNullPayloadBytes;
    return kNullPayloadBytes;
}

}  // namespace
}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSScanContents(char *text, BACnetContents **contents, int32_t expectedCount,
                                   int32_t separateLists, void **tail, int32_t sizeOnly,
                                   int32_t hint) {
    text = KillTrailLeadSpace(text);
    if (text == nullptr || contents == nullptr) return kSyntaxError;
    void *noCursor = nullptr;
    if (tail == nullptr) tail = &noCursor;

    ScanState s{text, *contents, sizeOnly == 0, separateLists != 0, hint};
    if (s.filling && s.record == nullptr) {
        // The record is the caller's from here on, also when the scan fails.
        s.record = static_cast<BACnetContents *>(std::malloc(sizeof(BACnetContents)));
        if (s.record == nullptr) return kSyntaxError;
        std::memset(s.record, 0, sizeof(BACnetContents));
        *contents = s.record;
        s.separate = true;
    }
    int64_t total = sizeof(BACnetContents);
    char *cursor = nullptr;
    if (s.filling) {
        cursor = *tail != nullptr ? static_cast<char *>(*tail) : reinterpret_cast<char *>(s.record + 1);
        s.record->data = s.separate ? nullptr : cursor;
    }

    int failure = 0;
    const int32_t code = SettleCode(s, failure);
    if (failure < 0) return failure;
    const DatatypeInfo *row = FindDatatype(static_cast<uint32_t>(code));
    if (code < 0 || row == nullptr || row->scan.kind == ScanKind::None) return kUnsupported;

    if (row->scan.kind == ScanKind::Null) {
        const int result = StoreNull(s, cursor);
        if (result < 0) return result;
        total += result;
    } else {
        int32_t count = expectedCount;
        void *scratch = nullptr;
        void *innerTail = nullptr;
        const ScanCall call{s.text,   s.filling ? &s.record->data : &scratch,
                            s.separate ? 1 : 0, &innerTail, &count, sizeOnly != 0 ? 1 : 0,
                            hint};
        const int result = row->scan.scan(call);
        if (s.filling) {
            s.record->size = result;
            s.record->count = static_cast<uint32_t>(count);
        }
        if (result < 0) return result;
        if (s.filling) {
            cursor += CursorAdvance(row->scan.kind, result, count, row->elementSize);
            total += result;
        } else {
            total += SizingBytes(row->scan.kind, result, count, row->elementSize);
        }
    }
    if (total > INT32_MAX) return kSyntaxError;
    if (s.filling && *tail != nullptr) *tail = cursor;
    return static_cast<int>(total);
}

extern "C" int BACnetSScanContent(char *text, BACnetContents **contents, int32_t expectedCount,
                                  int32_t separateLists, void **tail, int32_t sizeOnly) {
    return BACnetSScanContents(text, contents, expectedCount, separateLists, tail, sizeOnly, kNoHint);
}
