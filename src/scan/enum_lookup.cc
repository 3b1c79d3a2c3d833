#include "scan/enum_lookup.h"

#include <cstring>

#include <bacfmt/scan.h>

#include "scan/lexical.h"
#include "scan/name_index.h"
#include "scan/numbers.h"

namespace bacfmt {

const BACnetStringTableInfo *pStringTableInfo = nullptr;

namespace {

// Selectors that name their values through another property's table.
struct SelectorAlias {
    uint32_t selector;
    uint32_t table;
};
constexpr SelectorAlias kSelectorAliases[] = {
    {0, 35},   {1, 35},
    {6, 85},   {38, 85},  {87, 85},  {104, 85}, {123, 85},
    {20, 117}, {27, 117}, {50, 117}, {82, 117}, {94, 117},
    {96, 79},
};

uint32_t TableOf(uint32_t selector) {
    for (const SelectorAlias &alias : kSelectorAliases)
        if (alias.selector == selector) return alias.table;
    return selector;
}

bool EnsureTables() {
    if (pStringTableInfo == nullptr) BACnetGetStringTableInfo(&pStringTableInfo);
    return pStringTableInfo != nullptr;
}

// The number that "proprietary-N" spells, or -255 when the text has no
// trailing digits after that word.
int32_t ProprietaryNumber(const char *text) {
    if (std::strstr(text, "proprietary-") == nullptr) return BACNET_ENUM_UNKNOWN;
    const char *digits = text + std::strlen(text);
    while (digits > text && IsDecimalDigit(digits[-1])) --digits;
    return *digits != '\0' ? TextToSigned(digits) : BACNET_ENUM_UNKNOWN;
}

// Spellings accepted beside a table's names; 0 when `text` is none of them.
int32_t AcceptedSpelling(uint32_t table, const char *text) {
    struct Spelling {
        uint32_t table;
        const char *text;
        int32_t value;
    };
    static constexpr Spelling kSpellings[] = {
        {BACNET_TABLE_PROPERTIES, "enable", 133},
        {BACNET_TABLE_OBJECT_TYPES, "multistate-input", 13},
        {BACNET_TABLE_OBJECT_TYPES, "multistate-output", 14},
        {BACNET_TABLE_OBJECT_TYPES, "multistate-value", 19},
    };
    for (const Spelling &spelling : kSpellings)
        if (spelling.table == table && std::strcmp(spelling.text, text) == 0) return spelling.value;
    return 0;
}

}  // namespace

int32_t GetAnyEnumValue(char *text) {
    if (!EnsureTables()) return 0;
    for (uint32_t i = 0; i < pStringTableInfo->tableCount; ++i) {
        const int32_t value = BACnetGetEnumValue(text, pStringTableInfo->tables[i].tableId, 0, 0);
        if (value != BACNET_ENUM_UNKNOWN) return value;
    }
    return BACNET_ENUM_UNKNOWN;
}

}  // namespace bacfmt

using namespace bacfmt;

extern "C" int32_t BACnetGetEnumValue(char *text, uint32_t selector, uint32_t /*unused*/,
                                      uint8_t exactCase) {
    text = KillTrailLeadSpace(text);
    int32_t value = BACNET_ENUM_UNKNOWN;
    if (text == nullptr) return value;
    const uint32_t table = TableOf(selector);
    if (!EnsureTables()) return 0;
    // Every table of the identifier in turn: its name, else "proprietary-N".
    // The accepted spellings set the value but let later tables of the same
    // identifier still answer with a name of their own.
    auto ask = [&](uint32_t i, int32_t &answer) {
        answer = IndexedNameLookup(i, pStringTableInfo->tables[i], text, exactCase != 0);
        if (answer != BACNET_ENUM_UNKNOWN) return true;
        answer = ProprietaryNumber(text);
        if (answer != BACNET_ENUM_UNKNOWN) return true;
        if (const int32_t spelled = AcceptedSpelling(table, text); spelled != 0) value = spelled;
        return false;
    };
    int32_t answer = BACNET_ENUM_UNKNOWN;
    const uint16_t *first = nullptr;
    const uint16_t *last = nullptr;
    if (TablesWithId(*pStringTableInfo, table, &first, &last)) {
        for (; first != last; ++first)
            if (ask(*first, answer)) return answer;
        return value;
    }
    for (uint32_t i = 0; i < pStringTableInfo->tableCount; ++i)
        if (pStringTableInfo->tables[i].tableId == table && ask(i, answer)) return answer;
    return value;
}
