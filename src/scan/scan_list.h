// The frame that every list scanner shares, for both passes: settle the
// element count, check it against the expected one, then either return the
// bytes the elements need (sizing pass) or convert them one by one into the
// payload, allocating the element array when the caller's slot is empty
// (filling pass). A scanner supplies only how one element converts.
#ifndef BACFMT_SCAN_SCAN_LIST_H
#define BACFMT_SCAN_SCAN_LIST_H

#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "datatypes/unaligned.h"
#include "scan/lexical.h"

namespace bacfmt {

// Result codes shared by all scanners.
inline constexpr int kCountMismatch = -1;
inline constexpr int kSyntaxError = -2;
inline constexpr int kUnsupported = -3;
inline constexpr int kTagMismatch = -4;

// Bytes of `count` elements of `size`, or -1 when that exceeds an int.
inline int ArrayBytes(int64_t count, uint64_t size) {
    const uint64_t bytes = static_cast<uint64_t>(count) * size;
    return count < 0 || bytes > INT32_MAX ? -1 : static_cast<int>(bytes);
}

// A zeroed malloc block of at least one byte (so that an empty list still
// gets a block the caller can free).
inline void *AllocateBlock(uint64_t bytes) {
    if (bytes == 0) bytes = 1;
    void *block = std::malloc(bytes);
    if (block != nullptr) std::memset(block, 0, bytes);
    return block;
}

// An element array of `count` elements in a zeroed malloc block, with one
// more zeroed element behind them. A failed scan leaves `count` at the index
// of the failing element, which may hold blocks of its own already; the
// spare element lets BACnetFreeContents visit that index in every case.
inline void *AllocateArray(int64_t count, uint64_t elementSize) {
    return AllocateBlock(static_cast<uint64_t>(count + 1) * elementSize);
}

// One element text standing for a whole list (a single bracketed date).
class SingleElement {
public:
    explicit SingleElement(char *text) : text_(text) {}
    int count() const { return 1; }
    char *Next() {
        char *text = text_;
        text_ = nullptr;
        return text;
    }

private:
    char *text_;
};

// No element at all.
struct NoElements {
    int count() const { return 0; }
    char *Next() { return nullptr; }
};

// The frame over an element source (ElementList, SingleElement, ...):
// `convert(trimmedText, element)` returns 0 or a negative code. On a
// failing element `*count` holds its index.
template <typename Element, typename Elements, typename Convert>
int ScanElements(Elements &elements, void **payload, int32_t *count, int32_t sizeOnly,
                 Convert convert) {
    const int32_t expected = *count;
    *count = elements.count();
    if (expected > 0 && expected != *count) return kCountMismatch;
    const int bytes = ArrayBytes(*count, sizeof(Element));
    if (bytes < 0) return kSyntaxError;
    if (sizeOnly != 0) return bytes;
    if (*payload == nullptr && (*payload = AllocateArray(*count, sizeof(Element))) == nullptr)
        return kSyntaxError;
    const int32_t total = *count;
    for (int32_t i = 0; i < total; ++i) {
        char *text = elements.Next();
        // A nested payload may start at any byte: convert into an aligned copy.
        Element element = LoadElement<Element>(*payload, static_cast<size_t>(i));
        const int result = text != nullptr ? convert(KillTrailLeadSpace(text), element) : kSyntaxError;
        StoreElement(*payload, static_cast<size_t>(i), element);
        if (result < 0) {
            *count = i;
            return result;
        }
    }
    return bytes;
}

// The common case: the text is a comma list of elements.
template <typename Element, typename Convert>
int ScanList(char *text, void **payload, int32_t *count, int32_t sizeOnly, Convert convert) {
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    return ScanElements<Element>(elements, payload, count, sizeOnly, convert);
}

// Dates and object identifiers are written as groups, "(a,b)", and a list
// of them as "((a,b),(c,d))". The split counts a single group by its
// content, cutting its comma; such a group is recognised by a first element
// without a comma, restored from the backup and taken whole.
template <typename Element, typename Convert>
int ScanGroups(char *text, void **payload, int32_t *count, int32_t sizeOnly, Convert convert) {
    if (text == nullptr) return kSyntaxError;
    if (char *content = PlainGroupContent(text); content != nullptr) {
        SingleElement group(content);
        return ScanElements<Element>(group, payload, count, sizeOnly, convert);
    }
    SaveText(backupString, text);
    ElementList groups(text);
    if (groups.count() < 0) return kSyntaxError;
    if (groups.count() > 0 && std::strchr(groups.first(), ',') == nullptr) {
        RestoreText(text, backupString);
        SingleElement group(DeBracket(text));
        return ScanElements<Element>(group, payload, count, sizeOnly, convert);
    }
    return ScanElements<Element>(groups, payload, count, sizeOnly, convert);
}

// What one variable-length element adds beyond its fixed part: `reserved`
// bytes are counted in the result (and allocated in separate-list mode),
// `advance` bytes are taken at the tail in single-block mode.
struct Content {
    const char *source = nullptr;
    int32_t reserved = 0;
    int32_t advance = 0;
};

// The frame of the variable-length scanners (strings, octets): elements and
// their content in one block at the tail, or each content in a block of its
// own when the caller asks for separate lists or the scanner allocated the
// element array. `prepare(trimmedText, content)` returns 0 or a negative
// code in both passes; `store(element, contentBytes, content)` fills one
// element in the filling pass. The result counts the elements and every
// element's reserved content.
template <typename Element, typename Elements, typename Prepare, typename Store>
int ScanVariableElements(Elements &elements, void **payload, int32_t separateLists, void **tail,
                         int32_t *count, int32_t sizeOnly, Prepare prepare, Store store) {
    const int32_t expected = *count;
    *count = elements.count();
    if (expected > 0 && expected != *count) return kCountMismatch;
    const int arrayBytes = ArrayBytes(*count, sizeof(Element));
    if (arrayBytes < 0) return kSyntaxError;

    const bool filling = sizeOnly == 0;
    bool separate = separateLists != 0;
    char *cursor = nullptr;
    if (filling) {
        if (*payload == nullptr) {
            if ((*payload = AllocateArray(*count, sizeof(Element))) == nullptr) return kSyntaxError;
            separate = true;
        }
        cursor = tail != nullptr && *tail != nullptr ? static_cast<char *>(*tail)
                                                     : static_cast<char *>(*payload) + arrayBytes;
    }
    int64_t total = arrayBytes;
    const int32_t n = *count;
    for (int32_t i = 0; i < n; ++i) {
        char *text = elements.Next();
        Content content;
        const int prepared = text != nullptr ? prepare(KillTrailLeadSpace(text), content) : kSyntaxError;
        if (prepared < 0) {
            *count = i;
            return prepared;
        }
        total += content.reserved;
        if (total > INT32_MAX) {
            *count = i;
            return kSyntaxError;
        }
        if (!filling) continue;
        char *bytes = cursor;
        if (separate) {
            const int32_t blockBytes = content.reserved > content.advance ? content.reserved : content.advance;
            if ((bytes = static_cast<char *>(AllocateBlock(static_cast<uint64_t>(blockBytes)))) == nullptr) {
                *count = i;
                return kSyntaxError;
            }
        } else {
            cursor += content.advance;
        }
        Element element = LoadElement<Element>(*payload, static_cast<size_t>(i));
        store(element, bytes, content);
        StoreElement(*payload, static_cast<size_t>(i), element);
    }
    if (filling && tail != nullptr && *tail != nullptr) *tail = cursor;
    return static_cast<int>(total);
}

}  // namespace bacfmt

#endif  // BACFMT_SCAN_SCAN_LIST_H
