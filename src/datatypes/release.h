// Releasing scanned payloads, for the release hooks of the datatype table.
#ifndef BACFMT_DATATYPES_RELEASE_H
#define BACFMT_DATATYPES_RELEASE_H

#include <cstdint>
#include <cstdlib>

#include <bacfmt/contents.h>

#include "datatypes/unaligned.h"

namespace bacfmt {

// Frees the payload blocks of a record (not the record) and clears `data`.
void ReleasePayload(BACnetContents &record);
// The same for a record embedded in an element, at any byte address.
void ReleaseEmbedded(void *recordAddress);

// A release hook over elements of type Element: `visit(element)` frees what
// one element owns. The elements may start at any byte.
template <typename Element, typename Visit>
void ReleaseEach(void *elements, uint32_t count, Visit visit) {
    for (uint32_t i = 0; i < count; ++i) {
        auto element = LoadElement<Element>(elements, i);
        visit(element);
        StoreElement(elements, i, element);
    }
}

// Frees an array that an element points to, after releasing what its own
// elements own; the array carries a spare element like every scanned array.
template <typename Element, typename Visit>
void ReleaseArray(Element *&array, uint32_t count, Visit visit) {
    if (array == nullptr) return;
    ReleaseEach<Element>(array, count + 1, visit);
    std::free(array);
    array = nullptr;
}

}  // namespace bacfmt

#endif  // BACFMT_DATATYPES_RELEASE_H
