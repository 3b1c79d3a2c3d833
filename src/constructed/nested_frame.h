// The frame of the scanners whose elements own nested parts (embedded
// records, arrays of time values): both passes, the two layouts, the tail.
//
// Single-block layout: the element array lies at the payload slot, nested
// parts follow it at the tail, and a caller's non-null tail gets the
// advanced cursor back. Separate-list layout (asked for, or because the
// scanner allocated the element array): every nested part lives in a malloc
// block of its own. The result counts the element array and whatever each
// element's conversion adds.
#ifndef BACFMT_CONSTRUCTED_NESTED_FRAME_H
#define BACFMT_CONSTRUCTED_NESTED_FRAME_H

#include <cstddef>
#include <cstdint>

#include <bacfmt/scan.h>

#include "datatypes/unaligned.h"
#include "scan/scan_list.h"

namespace bacfmt {

// A scanner of the six-argument form (text, payload, separateLists, tail,
// count, sizeOnly).
using NestedScanner = int (*)(char *, void **, int32_t, void **, int32_t *, int32_t);

// What one element's conversion sees of the frame.
class NestedParts {
public:
    NestedParts(bool sizing, bool separate, char *tail)
        : sizing_(sizing), separate_(separate), tail_(tail) {}

    bool sizing() const { return sizing_; }
    bool separate() const { return separate_; }
    char *tail() const { return tail_; }
    void Advance(int64_t bytes) { tail_ += bytes; }

    // Scans an embedded value into `record` through the scan dispatcher, in
    // the frame's pass and layout: in single-block mode its payload goes at
    // the tail, which moves behind it. Nothing is written in the sizing
    // pass. Returns the dispatcher's result: the record's size plus its
    // payload, or a negative code.
    int Value(char *text, BACnetContents &record) {
        BACnetContents *target = sizing_ ? nullptr : &record;
        void *separateCursor = nullptr;
        void **cursor = !sizing_ && !separate_ ? reinterpret_cast<void **>(&tail_) : &separateCursor;
        return BACnetSScanContent(text, &target, 0, separate_ ? 1 : 0, cursor, sizing_ ? 1 : 0);
    }

    // Runs a nested scanner for an array that an element points to: in the
    // filling pass `array` becomes the tail (single block) or a block of its
    // own; the array's own nested parts follow it (the nested scanner gets
    // a tail of its own that starts empty). `count` gets the number found,
    // or after a failure the failing element's index, so that a release
    // reaches every block the array already owns. The tail does not move:
    // the caller says whether it does. Returns the nested scanner's result.
    template <typename Element, typename Count>
    int Array(NestedScanner scanner, char *text, Element *&array, Count &count) {
        void *slot = ArraySlot();
        void *ownTail = nullptr;
        int32_t found = 0;
        const int result = scanner(text, &slot, separate_ ? 1 : 0, &ownTail, &found, sizing_ ? 1 : 0);
        Keep(slot, array, found, count);
        return result;
    }

    // The same for an array of elements without nested parts, read by a
    // scanner of the four-argument form.
    template <typename Element, typename Count>
    int Array(int (*scanner)(char *, void **, int32_t *, int32_t), char *text, Element *&array,
              Count &count) {
        void *slot = ArraySlot();
        int32_t found = 0;
        const int result = scanner(text, &slot, &found, sizing_ ? 1 : 0);
        Keep(slot, array, found, count);
        return result;
    }

    // Array(), with the tail moved past the array in single-block mode: a
    // list that the element's next list follows.
    template <typename Scanner, typename Element, typename Count>
    int ArrayAtTail(Scanner scanner, char *text, Element *&array, Count &count) {
        const int result = Array(scanner, text, array, count);
        if (result >= 0 && !sizing_ && !separate_) Advance(result);
        return result;
    }

    // Scans the text of one element of datatype `code` straight into
    // `element` with the table's scanner for that code (a value held in an
    // element rather than behind a record: a channel value, a priority
    // array slot). Its nested content (a string's characters) goes at the
    // tail in single-block mode, which moves behind it. Returns the bytes
    // the content adds beyond the element, or a negative code; -3 for a
    // code without scanner or whose element does not fit in `room` bytes
    // (the text chooses the code, the holder's union is fixed).
    int InlineElement(uint32_t code, char *text, void *element, size_t room);

private:
    template <typename Element, typename Count>
    void Keep(void *slot, Element *&array, int32_t found, Count &count) const {
        if (sizing_) return;
        array = static_cast<Element *>(slot);
        count = static_cast<Count>(found);
    }

    // Where a nested array goes: at the tail in one block, in a block of
    // its own (the nested scanner allocates it) otherwise.
    void *ArraySlot() const { return !sizing_ && !separate_ ? tail_ : nullptr; }

    bool sizing_;
    bool separate_;
    char *tail_;
};

// What allocating the element array does: switch to separate blocks, keep
// the caller's layout, or make room for one element only (and switch to
// separate blocks), refusing a list of more.
enum class WhenAllocated { Separate, KeepLayout, RoomForOne };

// The frame over an element source (ElementList, SingleElement, ...):
// `convert(text, element, parts)` returns the bytes its nested parts add
// (0 or more) or a negative code. Each element is converted in an aligned
// copy and stored back, also when it fails, so that the blocks it already
// owns stay reachable. On a failing element `*count` holds its index.
template <typename Element, typename Elements, typename Convert>
int ScanNestedElements(Elements &elements, void **payload, int32_t separateLists, void **tail,
                       int32_t *count, int32_t sizeOnly, Convert convert,
                       WhenAllocated whenAllocated = WhenAllocated::Separate) {
    const int32_t expected = *count;
    *count = elements.count();
    if (expected > 0 && expected != *count) return kCountMismatch;
    const int arrayBytes = ArrayBytes(*count, sizeof(Element));
    if (arrayBytes < 0) return kSyntaxError;

    const bool sizing = sizeOnly != 0;
    bool separate = separateLists != 0;
    char *cursor = nullptr;
    if (!sizing) {
        if (*payload == nullptr) {
            const bool one = whenAllocated == WhenAllocated::RoomForOne;
            if (one && *count > 1) return kSyntaxError;  // the one element would overflow
            if ((*payload = AllocateArray(*count, sizeof(Element))) == nullptr) return kSyntaxError;
            if (whenAllocated != WhenAllocated::KeepLayout) separate = true;
        }
        cursor = tail != nullptr && *tail != nullptr ? static_cast<char *>(*tail)
                                                     : static_cast<char *>(*payload) + arrayBytes;
    }
    NestedParts parts(sizing, separate, cursor);
    int64_t total = arrayBytes;
    const int32_t n = *count;
    for (int32_t i = 0; i < n; ++i) {
        char *text = elements.Next();
        Element element{};
        if (!sizing) element = LoadElement<Element>(*payload, static_cast<size_t>(i));
        const int result = text != nullptr ? convert(KillTrailLeadSpace(text), element, parts)
                                           : kSyntaxError;
        if (!sizing) StoreElement(*payload, static_cast<size_t>(i), element);
        if (result < 0) {
            *count = i;
            return result;
        }
        total += result;
        if (total > INT32_MAX) {
            *count = i;
            return kSyntaxError;
        }
    }
    if (!sizing && tail != nullptr && *tail != nullptr) *tail = parts.tail();
    return static_cast<int>(total);
}

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_NESTED_FRAME_H
