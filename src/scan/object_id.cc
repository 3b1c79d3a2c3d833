// Object identifiers "(type,instance)": the type by number or by name
// ("analog-input", "multistate-value", "proprietary-600").
#include <cstring>

#include <bacfmt/enumtext.h>
#include <bacfmt/scan.h>

#include "scan/lexical.h"
#include "scan/numbers.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

// The digits after the last "-" that a digit follows ("proprietary-600"),
// or the whole type when there is no such hyphen.
char *NumberAfterHyphen(char *type) {
    char *number = type;
    for (char *p = type; *p != '\0'; ++p)
        if (*p == '-' && IsDecimalDigit(p[1])) number = p + 1;
    return number;
}

int ReadObjectId(char *group, BACnetObjectID &oid) {
    char *instance = std::strchr(group, ',');
    if (instance == nullptr) return kSyntaxError;
    *instance++ = '\0';
    char *type = NumberAfterHyphen(KillTrailLeadSpace(group));
    if (IsDecimalDigit(type[0])) {
        oid.type = static_cast<uint32_t>(TextToSigned(type));
    } else {
        const int32_t named = BACnetGetEnumValue(type, BACNET_TABLE_OBJECT_TYPES, 0, 0);
        if (named == BACNET_ENUM_UNKNOWN) return kSyntaxError;
        oid.type = static_cast<uint32_t>(named);
    }
    oid.instance = static_cast<uint32_t>(TextToSigned(instance));
    return 0;
}

}  // namespace
}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSScanObjectID(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanGroups<BACnetObjectID>(text, payload, count, sizeOnly, ReadObjectId);
}
