// The rules one element of a primitive datatype must meet, one function a
// kind of element. Each answers nothing for a good element, else what is
// wrong with it in words.
#ifndef BACFMT_TOOL_ELEMENT_RULES_H
#define BACFMT_TOOL_ELEMENT_RULES_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace bacfmt::tool {

using Verdict = std::optional<std::string>;

// "'text'" for a message, cut to its first 80 characters.
std::string Cited(std::string_view text);
// "*" or "?": a field left unspecified.
bool IsUnspecifiedWord(std::string_view word);

// Whole numbers: decimal or 0x-hexadecimal up to 4294967295, with no
// leading 0 (the scanner would read octal); signed ones decimal only.
Verdict UnsignedRule(std::string_view word, int32_t hint);
Verdict SignedRule(std::string_view word, int32_t hint);
// Decimal numbers with an optional exponent, nan and inf, within the range
// of a single or a double precision number.
Verdict RealRule(std::string_view word, int32_t hint);
Verdict DoubleRule(std::string_view word, int32_t hint);
// A number, a name of the table of `hint` (-1: any table), or the printed
// "N => name" whose name stands for N.
Verdict EnumeratedRule(std::string_view word, int32_t hint);
Verdict BooleanRule(std::string_view word, int32_t hint);
// One bit of a bit string: T, F, 1 or 0.
Verdict BitRule(std::string_view word, int32_t hint);
Verdict NullRule(std::string_view word, int32_t hint);
// "hh:mm:ss.hh", any field * or ?.
Verdict TimeRule(std::string_view word, int32_t hint);
// A word of a date: the weekday, or "day-month-year".
Verdict DateWordRule(std::string_view word, int32_t hint);
// A word of a date and time: a date word or a time.
Verdict DateTimeWordRule(std::string_view word, int32_t hint);
// 0x or X'..' followed by pairs of hexadecimal digits.
Verdict OctetsRule(std::string_view word, int32_t hint);
// The two words of an object identifier.
Verdict ObjectTypeRule(std::string_view word, int32_t hint);
Verdict InstanceRule(std::string_view word, int32_t hint);

// A number of the notation that a whole-number or real rule accepts, as a
// double; nothing for anything else.
std::optional<double> NotationNumber(std::string_view word);

// The datatype code a "[n]" tag selects, as the dispatcher reads it.
std::optional<uint32_t> TagDatatype(std::string_view tag);

}  // namespace bacfmt::tool

#endif  // BACFMT_TOOL_ELEMENT_RULES_H
