#include "scan/name_index.h"

#include <algorithm>
#include <cstring>

#include "scan/element_walk.h"
#include "scan/lexical.h"

namespace bacfmt {
namespace {

// Room for the indexes of every table: no allocation, so a set larger than
// this is partly searched the straightforward way.
constexpr std::size_t kPoolEntries = 16384;
constexpr std::size_t kIndexedTables = 512;

uint16_t pool[kPoolEntries];
std::size_t poolUsed = 0;

struct TableIndex {
    bool built = false;
    bool usable = false;
    const char *const *names = nullptr;  // the table the index was built for
    uint32_t nameCount = 0;
    const uint16_t *sorted = nullptr;
    std::size_t entries = 0;
};
TableIndex indexes[kIndexedTables];

unsigned char Upper(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 'a' && byte <= 'z' ? static_cast<unsigned char>(byte - 'a' + 'A') : byte;
}

// The sign of str_i_cmp, without measuring the longer text: ASCII case
// ignored, bytes unsigned, a prefix first.
int OrderIgnoringCase(const char *a, const char *b) {
    for (;; ++a, ++b) {
        const unsigned char x = Upper(*a);
        const unsigned char y = Upper(*b);
        if (x != y) return x < y ? -1 : 1;
        if (x == 0) return 0;
    }
}

// Case-insensitive order of the names, equal names by value.
struct ByName {
    const char *const *names;
    bool operator()(uint16_t a, uint16_t b) const {
        const int order = OrderIgnoringCase(names[a], names[b]);
        return order != 0 ? order < 0 : a < b;
    }
};

void Build(TableIndex &index, const BACnetStringTable &table) {
    index.built = true;
    index.names = table.names;
    index.nameCount = table.nameCount;
    if (table.names == nullptr || table.nameCount > UINT16_MAX + 1u) return;
    std::size_t entries = 0;
    for (uint32_t i = 0; i < table.nameCount; ++i) entries += table.names[i] != nullptr ? 1 : 0;
    if (entries > kPoolEntries - poolUsed) return;
    uint16_t *sorted = pool + poolUsed;
    std::size_t at = 0;
    for (uint32_t i = 0; i < table.nameCount; ++i)
        if (table.names[i] != nullptr) sorted[at++] = static_cast<uint16_t>(i);
    std::sort(sorted, sorted + entries, ByName{table.names});
    poolUsed += entries;
    index.sorted = sorted;
    index.entries = entries;
    index.usable = true;
}

// An identifier, or the identifier of a table number (for equal_range).
uint32_t IdOf(const BACnetStringTableInfo &, uint32_t id) { return id; }
uint32_t IdOf(const BACnetStringTableInfo &set, uint16_t number) { return set.tables[number].tableId; }

// The set's tables by identifier, equal identifiers in the set's order.
const BACnetStringTableInfo *indexedSet = nullptr;
const BACnetStringTable *indexedTables = nullptr;
uint16_t tablesById[kIndexedTables];
std::size_t tablesIndexed = 0;

}  // namespace

bool TablesWithId(const BACnetStringTableInfo &set, uint32_t id, const uint16_t **first,
                  const uint16_t **last) {
    if (useReferencePaths) return false;
    if (indexedSet == nullptr) {
        if (set.tableCount > kIndexedTables) return false;
        indexedSet = &set;
        indexedTables = set.tables;
        tablesIndexed = set.tableCount;
        for (std::size_t i = 0; i < tablesIndexed; ++i) tablesById[i] = static_cast<uint16_t>(i);
        std::sort(tablesById, tablesById + tablesIndexed, [&](uint16_t a, uint16_t b) {
            const uint32_t idA = set.tables[a].tableId;
            const uint32_t idB = set.tables[b].tableId;
            return idA != idB ? idA < idB : a < b;
        });
    }
    if (indexedSet != &set || indexedTables != set.tables || tablesIndexed != set.tableCount) return false;
    const auto range = std::equal_range(tablesById, tablesById + tablesIndexed, id,
                                        [&](const auto &a, const auto &b) { return IdOf(set, a) < IdOf(set, b); });
    *first = range.first;
    *last = range.second;
    return true;
}

int32_t LinearNameLookup(const BACnetStringTable &table, const char *text, bool exactCase) {
    for (uint32_t i = 0; i < table.nameCount; ++i) {
        const char *name = table.names[i];
        if (name == nullptr) continue;  // a value without a name
        if ((exactCase ? std::strcmp(name, text) : str_i_cmp(name, text)) == 0)
            return static_cast<int32_t>(i);
    }
    return BACNET_ENUM_UNKNOWN;
}

int32_t IndexedNameLookup(std::size_t tableNumber, const BACnetStringTable &table, const char *text,
                          bool exactCase) {
    if (tableNumber >= kIndexedTables || useReferencePaths) return LinearNameLookup(table, text, exactCase);
    TableIndex &index = indexes[tableNumber];
    if (!index.built) Build(index, table);
    if (!index.usable || index.names != table.names || index.nameCount != table.nameCount)
        return LinearNameLookup(table, text, exactCase);

    const uint16_t *end = index.sorted + index.entries;
    const uint16_t *found = std::lower_bound(index.sorted, end, text, [&](uint16_t entry, const char *key) {
        return OrderIgnoringCase(table.names[entry], key) < 0;
    });
    // Equal names follow one another by value: the first is the lowest, and
    // with exact case the first that also matches byte for byte.
    for (; found != end && OrderIgnoringCase(table.names[*found], text) == 0; ++found) {
        if (!exactCase || std::strcmp(table.names[*found], text) == 0) return *found;
    }
    return BACNET_ENUM_UNKNOWN;
}

}  // namespace bacfmt
