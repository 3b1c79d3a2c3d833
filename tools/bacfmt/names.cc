#include "names.h"

#include <strings.h>

#include <algorithm>
#include <array>
#include <vector>

#include <bacfmt/bacfmt.h>

#include "cli.h"

namespace bacfmt::tool {
namespace {

// The highest datatype code; every code up to it is asked for its name.
constexpr uint32_t kLastDatatypeCode = CT_ASN1_LAST;

std::optional<uint32_t> NumberOrName(std::string_view text, uint32_t table, uint32_t max) {
    if (const auto number = ParseNumber(text)) {
        return *number <= max ? number : std::nullopt;
    }
    // The lookup trims and may cut its text: give it a copy.
    std::string copy(text);
    if (copy.empty()) return std::nullopt;
    const int32_t value = BACnetGetEnumValue(copy.data(), table, 0, 0);
    if (value == BACNET_ENUM_UNKNOWN || value < 0 || static_cast<uint32_t>(value) > max) {
        return std::nullopt;
    }
    return static_cast<uint32_t>(value);
}

struct TableWord {
    const char *word;
    uint32_t table;
};
constexpr std::array<TableWord, 4> kTableWords{{
    {"weekdays", BACNET_TABLE_WEEKDAYS},
    {"months", BACNET_TABLE_MONTHS},
    {"property-identifiers", BACNET_TABLE_PROPERTIES},
    {"object-types", BACNET_TABLE_OBJECT_TYPES},
}};

}  // namespace

std::optional<uint32_t> ObjectTypeFromText(std::string_view text) {
    return NumberOrName(text, BACNET_TABLE_OBJECT_TYPES, kMaxObjectType);
}

std::optional<uint32_t> PropertyFromText(std::string_view text) {
    return NumberOrName(text, BACNET_TABLE_PROPERTIES, kMaxProperty);
}

std::optional<uint32_t> EnumValueFromText(std::string_view text, uint32_t table) {
    return NumberOrName(text, table, UINT32_MAX);
}

namespace {

std::optional<uint32_t> LookUp(std::string_view name, uint32_t table) {
    std::string copy(name);  // the lookup trims in place
    if (copy.empty()) return std::nullopt;
    const int32_t value = BACnetGetEnumValue(copy.data(), table, 0, 0);
    if (value == BACNET_ENUM_UNKNOWN || value < 0) return std::nullopt;
    return static_cast<uint32_t>(value);
}

// Identifiers of every table, in the order the scanners search them.
std::vector<uint32_t> TableIds() {
    std::vector<uint32_t> ids;
    const BACnetStringTableInfo *info = nullptr;
    BACnetGetStringTableInfo(&info);
    if (info == nullptr) return ids;
    for (uint32_t i = 0; i < info->tableCount; ++i) ids.push_back(info->tables[i].tableId);
    return ids;
}

}  // namespace

std::optional<uint32_t> NameValue(std::string_view name, int32_t selector) {
    if (selector >= 0) return LookUp(name, static_cast<uint32_t>(selector));
    for (const uint32_t table : TableIds()) {
        if (const auto value = LookUp(name, table)) return value;
    }
    return std::nullopt;
}

bool NameHasValue(std::string_view name, int32_t selector, uint32_t value) {
    if (selector >= 0) return LookUp(name, static_cast<uint32_t>(selector)) == value;
    for (const uint32_t table : TableIds()) {
        if (LookUp(name, table) == value) return true;
    }
    return false;
}

std::optional<uint32_t> DatatypeFromText(std::string_view text) {
    if (const auto number = ParseNumber(text)) return number;
    // "date-time" reads as "DATE_TIME": hyphens are easier to type.
    std::string wanted(text);
    std::replace(wanted.begin(), wanted.end(), '-', '_');
    for (uint32_t code = 0; code <= kLastDatatypeCode; ++code) {
        const char *name = BACnetContentsTypeName(code);
        if (name == nullptr) continue;
        const bool full = strcasecmp(name, wanted.c_str()) == 0;
        const bool bare = std::string_view(name).starts_with("CT_") &&
                          strcasecmp(name + 3, wanted.c_str()) == 0;
        if (full || bare) return code;
    }
    return std::nullopt;
}

std::string DatatypeName(uint32_t code) {
    if (code == BACNET_DATATYPE_FROM_VALUE) return "from-value";
    const char *name = BACnetContentsTypeName(code);
    return name != nullptr ? name : "?";
}

const BACnetStringTable *EnumTableById(uint32_t id) {
    const BACnetStringTableInfo *info = nullptr;
    BACnetGetStringTableInfo(&info);
    if (info == nullptr) return nullptr;
    for (uint32_t i = 0; i < info->tableCount; ++i) {
        if (info->tables[i].tableId == id) return &info->tables[i];
    }
    return nullptr;
}

std::string EnumTableLabel(uint32_t id) {
    for (const TableWord &word : kTableWords) {
        if (id == word.table) return word.word;
    }
    return BACnetPropIDString(id);
}

const BACnetStringTable *EnumTableFromText(std::string_view key) {
    for (const TableWord &word : kTableWords) {
        if (key == word.word) return EnumTableById(word.table);
    }
    if (const auto id = ParseNumber(key)) return EnumTableById(*id);
    if (const auto property = PropertyFromText(key)) return EnumTableById(*property);
    return nullptr;
}

}  // namespace bacfmt::tool
