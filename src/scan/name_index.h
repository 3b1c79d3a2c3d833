// Names to values in one table of the text services. The straightforward
// search compares the name with every entry in turn; the indexed one finds
// it by binary search in the table's names sorted once (case-insensitively,
// ties by value), with the same answers: the lowest value whose name
// matches.
#ifndef BACFMT_SCAN_NAME_INDEX_H
#define BACFMT_SCAN_NAME_INDEX_H

#include <cstddef>
#include <cstdint>

#include <bacfmt/enumtext.h>
#include <bacfmt/scan.h>

namespace bacfmt {

// The value of `text` in `table` (exactCase: byte for byte, else in any
// ASCII case), or BACNET_ENUM_UNKNOWN. Entries without a name never match.
int32_t LinearNameLookup(const BACnetStringTable &table, const char *text, bool exactCase);

// The same answer through the index of the `tableNumber`th table of the
// set, built on first use in a fixed pool. Tables that do not fit the pool,
// or that changed since their index was built, are searched linearly.
int32_t IndexedNameLookup(std::size_t tableNumber, const BACnetStringTable &table, const char *text,
                          bool exactCase);

// The numbers of the tables of `set` whose identifier is `id`, in the set's
// order, through an index of the identifiers built on first use: [*first,
// *last). False for a set too large for the index (or another set than the
// one indexed): the caller then loops over the set itself.
bool TablesWithId(const BACnetStringTableInfo &set, uint32_t id, const uint16_t **first,
                  const uint16_t **last);

}  // namespace bacfmt

#endif  // BACFMT_SCAN_NAME_INDEX_H
