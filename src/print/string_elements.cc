#include <bacfmt/print.h>

#include "datatypes/unaligned.h"
#include "print/element_printers.h"
#include "print/writer.h"

namespace bacfmt {
namespace {

// Properties whose strings are quoted even outside a bracketed list.
constexpr PropertySet kAlwaysQuoted = {38, 123};

int PrintString(Writer &out, const BACnetCharString *s, bool quote) {
    if (out.room() <= 0) return kNoRoom;
    return out.Step(BACnetSPrintAnyString(out.at(), static_cast<uint32_t>(out.room()), s, 2,
                                          quote ? 1 : 0));
}

}  // namespace

int PrintCharacterStringElement(char *dst, int size, const void *element,
                                const PrintContext &context) {
    Writer out(dst, size);
    const bool quote = context.bracketed || kAlwaysQuoted.Contains(context.propertyId);
    const auto s = LoadUnaligned<BACnetCharString>(element);
    return PrintString(out, &s, quote);
}

int PrintOptionalCharacterStringElement(char *dst, int size, const void *element,
                                        const PrintContext &context) {
    const auto string = LoadUnaligned<BACnetCharString>(element);
    const BACnetCharString *s = &string;
    Writer out(dst, size);
    if (s->charSet == static_cast<uint32_t>(BACNET_CHARSET_NULL_CHOICE))
        return out.Text("[0]NULL");
    return out.Sequence([&] { return out.Text("[7]"); },
                        [&] { return PrintString(out, s, context.bracketed); });
}

}  // namespace bacfmt
