// bacfmt props: the catalogue rows of one object type as a table.
#include <cstdio>
#include <string>

#include <bacfmt/bacfmt.h>

#include "commands.h"
#include "names.h"

namespace bacfmt::tool {
namespace {

int RunProps(const Command &self, int argc, char **argv) {
    int status = kExitOk;
    const auto operands = OperandsOnly(self, argc, argv, status);
    if (!operands) return status;
    if (operands->size() != 1) return UsageError(self.name, "give one OBJECT-TYPE");
    const std::string &text = operands->front();
    const auto objectType = ObjectTypeFromText(text);
    if (!objectType) return UsageError(self.name, "unknown object type '" + text + "'");

    uint32_t rows = 0;
    const ObjPropDescription *table = GetObjPropDescriptionList(*objectType, &rows);
    if (table == nullptr || rows == 0) {
        PrintError(self.name, "object type " + std::to_string(*objectType) + " (" +
                                  BACnetObjTypeString(*objectType) +
                                  ") has no properties in the catalogue");
        return kExitFailed;
    }
    for (uint32_t i = 0; i < rows; ++i) {
        const ObjPropDescription &row = table[i];
        std::printf("%u\t%s\t%u\t%s\t%u\t%u\t%u\t0x%04X\n", row.propertyId,
                    BACnetPropIDString(row.propertyId), row.datatype,
                    DatatypeName(row.datatype).c_str(), OBJPROP_ELEMENT_SIZE(row.shape),
                    OBJPROP_MULTIPLICITY(row.shape), row.access, row.flags);
    }
    return kExitOk;
}

}  // namespace

const Command kPropsCommand{
    "props", "catalogue rows of an object type",
    "Usage: bacfmt props OBJECT-TYPE\n"
    "\n"
    "Prints the catalogue rows of OBJECT-TYPE (a number or a name such as\n"
    "analog-input), one property a line, tab-separated:\n"
    "\n"
    "  PROPERTY  NAME  DATATYPE  DATATYPE-NAME  ELEMENT-SIZE  MULTIPLICITY\n"
    "  ACCESS  FLAGS\n"
    "\n"
    "DATATYPE is 4294967294 (from-value) where the value carries its own type.\n"
    "MULTIPLICITY is 0 for a single value, N for an array of N elements, 253\n"
    "for a single character string, 254 for an array and 255 for a list of\n"
    "any length. ACCESS is 2 where an operator may write the property.\n"
    "\n"
    "Options:\n"
    "  -h, --help   show this help\n"
    "\n"
    "Exit status: 0 rows printed, 1 the type has no rows, 2 usage error.\n",
    RunProps};

}  // namespace bacfmt::tool
