// Element printers that exist only for the dispatcher: their output depends
// on the list context rather than on the element alone.
#ifndef BACFMT_PRINT_ELEMENT_PRINTERS_H
#define BACFMT_PRINT_ELEMENT_PRINTERS_H

#include "datatypes/table.h"

namespace bacfmt {

// A character string, quoted inside brackets and for properties 38 and 123.
int PrintCharacterStringElement(char *dst, int size, const void *element,
                                const PrintContext &context);
// "[0]NULL" for the NULL choice, else "[7]" and the string, quoted inside
// brackets.
int PrintOptionalCharacterStringElement(char *dst, int size, const void *element,
                                        const PrintContext &context);

}  // namespace bacfmt

#endif  // BACFMT_PRINT_ELEMENT_PRINTERS_H
