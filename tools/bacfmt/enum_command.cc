// bacfmt enum: the names of an enumeration table, or one lookup in either
// direction, through the same tables the scanners read.
#include <cstdio>
#include <string>

#include <bacfmt/bacfmt.h>

#include "commands.h"
#include "names.h"

namespace bacfmt::tool {
namespace {

void ListTables() {
    const BACnetStringTableInfo *info = nullptr;
    BACnetGetStringTableInfo(&info);
    if (info == nullptr) return;
    for (uint32_t i = 0; i < info->tableCount; ++i) {
        const BACnetStringTable &table = info->tables[i];
        std::printf("%u\t%s\t%u\n", table.tableId, EnumTableLabel(table.tableId).c_str(),
                    table.nameCount);
    }
}

void ListNames(const BACnetStringTable &table) {
    for (uint32_t value = 0; value < table.nameCount; ++value) {
        if (table.names[value] != nullptr) std::printf("%u\t%s\n", value, table.names[value]);
    }
}

int LookUp(const Command &self, const BACnetStringTable &table, const std::string &text) {
    if (const auto value = ParseNumber(text)) {
        if (*value < table.nameCount && table.names[*value] != nullptr) {
            std::printf("%s\n", table.names[*value]);
            return kExitOk;
        }
        PrintError(self.name, "no name for " + text + " in table " +
                                  std::to_string(table.tableId));
        return kExitFailed;
    }
    std::string copy = text;  // the lookup trims its text in place
    const int32_t value = BACnetGetEnumValue(copy.data(), table.tableId, 0, 0);
    if (value == BACNET_ENUM_UNKNOWN) {
        PrintError(self.name, "unknown name '" + text + "' in table " +
                                  std::to_string(table.tableId));
        return kExitFailed;
    }
    std::printf("%d\n", value);
    return kExitOk;
}

int RunEnum(const Command &self, int argc, char **argv) {
    int status = kExitOk;
    const auto operands = OperandsOnly(self, argc, argv, status);
    if (!operands) return status;
    if (operands->empty()) {
        ListTables();
        return kExitOk;
    }
    if (operands->size() > 2) return UsageError(self.name, "too many arguments");
    const std::string &key = operands->front();
    const BACnetStringTable *table = EnumTableFromText(key);
    if (table == nullptr) return UsageError(self.name, "no enumeration table for '" + key + "'");
    if (operands->size() == 1) {
        ListNames(*table);
        return kExitOk;
    }
    return LookUp(self, *table, (*operands)[1]);
}

}  // namespace

const Command kEnumCommand{
    "enum", "names of enumeration tables",
    "Usage: bacfmt enum [KEY [VALUE|NAME]]\n"
    "\n"
    "KEY picks an enumeration table: its number, the name of the property\n"
    "it belongs to (units, event-state, ...), or one of weekdays, months,\n"
    "property-identifiers, object-types.\n"
    "\n"
    "  bacfmt enum                 the tables: KEY<TAB>LABEL<TAB>SIZE\n"
    "  bacfmt enum KEY             the names: VALUE<TAB>NAME\n"
    "  bacfmt enum KEY VALUE       the name of VALUE\n"
    "  bacfmt enum KEY NAME        the value of NAME\n"
    "\n"
    "Options:\n"
    "  -h, --help   show this help\n"
    "\n"
    "Exit status: 0 found, 1 no such value or name, 2 usage error.\n",
    RunEnum};

}  // namespace bacfmt::tool
