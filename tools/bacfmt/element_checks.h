// The tool's strict reading of a value's elements. The library's scanners
// are lenient by contract: a word where a number belongs reads as 0, "4.5x"
// as 4.5, 4294967296 or -1 as some other unsigned. Before the tool accepts
// a value it checks every element of the text itself: numbers whole and in
// range for their datatype, names known to the tables.
//
// Elements of the primitive datatypes are checked by the datatype's own
// rule. Inside a constructed value, whose layout the tool does not know,
// every element is checked by its shape: a number must be a number of the
// notation that the value's printed form holds too (a typo or an
// out-of-range number reads as something else), a name must be one the
// printed form shows (a name in a number's place reads as some number).
#ifndef BACFMT_TOOL_ELEMENT_CHECKS_H
#define BACFMT_TOOL_ELEMENT_CHECKS_H

#include <cstdint>
#include <optional>
#include <string_view>

#include "text_checks.h"

namespace bacfmt::tool {

// The scanned value printed back with names and, for values checked by
// shape, with numbers (a property written as 85 prints as present-value).
struct PrintedForms {
    std::string_view symbolic;
    std::string_view numeric;
};

// Whether the elements of `datatype` are checked by their shape against
// the printed forms, which then needs the numeric one too.
bool ChecksByShape(uint32_t datatype);

// `value` as the user wrote it, scanned as `datatype` with the enumeration
// selector `hint` (-1: any table). The first element that fails, with its
// offset in `value`.
std::optional<TextProblem> CheckElements(std::string_view value, uint32_t datatype, int32_t hint,
                                         const PrintedForms &printed);

}  // namespace bacfmt::tool

#endif  // BACFMT_TOOL_ELEMENT_CHECKS_H
