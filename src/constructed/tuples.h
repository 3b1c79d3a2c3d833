// The scan frame of the values written as one group of fields,
// "(a,b,...)", or as a list of such groups: a text of N top-level elements
// that `isOne` accepts is one value, anything else a list whose elements
// split into N fields each. `read(part, element)` converts one value's
// fields; missing fields are null.
#ifndef BACFMT_CONSTRUCTED_TUPLES_H
#define BACFMT_CONSTRUCTED_TUPLES_H

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "constructed/fields.h"
#include "constructed/nested_frame.h"
#include "scan/lexical.h"
#include "scan/scan_list.h"

namespace bacfmt {

// Reads one value's fields once every field is there.
template <typename Element, size_t N, typename Read>
int ReadAllParts(char *const (&part)[N], Element &element, Read &read) {
    for (char *p : part)
        if (p == nullptr) return kSyntaxError;
    return read(part, element);
}

template <typename Element, size_t N, typename IsOne, typename Read>
int ScanTuples(char *text, void **payload, int32_t *count, int32_t sizeOnly, IsOne isOne, Read read) {
    if (text == nullptr) return kSyntaxError;
    const char *start = text;
    SaveText(strBackup, text);
    {
        ElementList elements(text);
        if (elements.count() < 0) return kSyntaxError;
        if (elements.count() == static_cast<int>(N)) {
            WalkedParts<N> one(elements);
            if (isOne(one.part, start)) {
                return ScanElements<Element>(one, payload, count, sizeOnly,
                                             [&one, &read](char *, Element &element) { return ReadAllParts(one.part, element, read); });
            }
        }
    }
    RestoreText(text, strBackup);
    ElementList elements(text);
    return ScanElements<Element>(elements, payload, count, sizeOnly, [&read](char *element, Element &value) {
        char *part[N];
        if (!SplitParts(element, part)) return kSyntaxError;
        return ReadAllParts(part, value, read);
    });
}

// The same frame for values whose fields own nested parts:
// `read(part, element, parts)` returns the bytes they add.
template <typename Element, size_t N, typename IsOne, typename Read>
int ScanNestedTuples(char *text, void **payload, int32_t separateLists, void **tail, int32_t *count,
                     int32_t sizeOnly, IsOne isOne, Read read) {
    if (text == nullptr) return kSyntaxError;
    const char *start = text;
    SaveText(strBackup, text);
    {
        ElementList elements(text);
        if (elements.count() < 0) return kSyntaxError;
        if (elements.count() == static_cast<int>(N)) {
            WalkedParts<N> one(elements);
            if (isOne(one.part, start)) {
                return ScanNestedElements<Element>(one, payload, separateLists, tail, count, sizeOnly,
                                                   [&one, &read](char *, Element &element, NestedParts &parts) {
                                                       for (char *p : one.part)
                                                           if (p == nullptr) return kSyntaxError;
                                                       return read(one.part, element, parts);
                                                   });
            }
        }
    }
    RestoreText(text, strBackup);
    ElementList elements(text);
    return ScanNestedElements<Element>(elements, payload, separateLists, tail, count, sizeOnly,
                                       [&read](char *element, Element &value, NestedParts &parts) {
                                           char *part[N];
                                           if (!SplitParts(element, part)) return kSyntaxError;
                                           return read(part, value, parts);
                                       });
}

// One value's first field is a plain word (a list's first element holds
// commas).
template <size_t N>
bool FirstIsPlain(char *const (&part)[N], const char *) {
    return part[0] != nullptr && std::strchr(part[0], ',') == nullptr;
}

// The usual test: one value's last field is not a group of its own (a
// list's last element is).
template <size_t N>
bool LastIsPlain(char *const (&part)[N], const char *start) {
    return part[N - 1] != nullptr && !WrittenAsGroup(part[N - 1], start);
}

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_TUPLES_H
