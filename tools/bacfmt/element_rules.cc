#include "element_rules.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <vector>

#include <bacfmt/enumtext.h>

#include "names.h"
#include "text_checks.h"

namespace bacfmt::tool {
namespace {

constexpr uint64_t kMaxUnsigned = UINT32_MAX;
constexpr uint64_t kMaxSignedMagnitude = uint64_t{1} << 31;  // of -2147483648
constexpr uint64_t kMaxEnumerated = INT32_MAX;  // the scanner converts with atoi
constexpr uint32_t kAsn1Datatype = 515;
constexpr uint32_t kFirstConstructedCode = 16;  // tags below it are application tags

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

int HexDigitValue(char c) {
    if (IsDigit(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
        if (lower(a[i]) != lower(b[i])) return false;
    }
    return true;
}

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

// Digits only, in base 10 or 16, value capped so that it cannot wrap.
struct Digits {
    bool valid = false;
    uint64_t value = 0;
};
Digits ReadDigits(std::string_view text, int base) {
    constexpr uint64_t kCap = uint64_t{1} << 40;  // above every range checked here
    Digits digits{!text.empty(), 0};
    for (const char c : text) {
        const int d = base == 16 ? HexDigitValue(c) : (IsDigit(c) ? c - '0' : -1);
        if (d < 0) return Digits{};
        digits.value = std::min(kCap, digits.value * static_cast<uint64_t>(base) + static_cast<uint64_t>(d));
    }
    return digits;
}

// A decimal field whose value lies in [low, high], or * or ?.
bool FieldInRange(std::string_view field, uint64_t low, uint64_t high) {
    if (IsUnspecifiedWord(field)) return true;
    const Digits digits = ReadDigits(field, 10);
    return digits.valid && digits.value >= low && digits.value <= high;
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (std::size_t start = 0;;) {
        const std::size_t end = text.find(separator, start);
        parts.push_back(text.substr(start, end == std::string_view::npos ? end : end - start));
        if (end == std::string_view::npos) return parts;
        start = end + 1;
    }
}

// The scanners of enumerations and object types read a name holding "-"
// and a digit as the number after its last "-", not as the name. That is
// right for "proprietary-300", and for any name of the table that stands
// for that very number; any other such word would be read as a number the
// user did not mean.
Verdict NumberedName(std::string_view word, uint32_t table, const char *what) {
    const std::size_t dash = word.rfind('-');
    if (dash == std::string_view::npos || dash + 1 >= word.size() || !IsDigit(word[dash + 1])) {
        if (NameValue(word, static_cast<int32_t>(table))) return std::nullopt;
        return Cited(word) + " is not " + what;
    }
    const Digits digits = ReadDigits(word.substr(dash + 1), 10);
    if (!digits.valid || !NameHasValue(word, static_cast<int32_t>(table), static_cast<uint32_t>(digits.value))) {
        return Cited(word) + " reads as the number after its last '-', not as a name";
    }
    return std::nullopt;
}

Verdict RealNumber(std::string_view word, bool single) {
    const char *kind = single ? "a real" : "a double";
    std::string_view rest = word;
    if (!rest.empty() && (rest.front() == '+' || rest.front() == '-')) rest.remove_prefix(1);
    if (EqualsIgnoringCase(rest, "nan") || EqualsIgnoringCase(rest, "inf") || word == "1.#QNAN0") {
        return std::nullopt;
    }
    if (rest == "1.INF") return Cited(word) + " reads as a NaN, not as infinity: write inf or -inf";
    // digits [. digits] [e [sign] digits], at least one digit before the exponent
    std::size_t at = 0;
    std::size_t mantissaDigits = 0;
    while (at < rest.size() && IsDigit(rest[at])) ++at, ++mantissaDigits;
    if (at < rest.size() && rest[at] == '.') {
        ++at;
        while (at < rest.size() && IsDigit(rest[at])) ++at, ++mantissaDigits;
    }
    bool good = mantissaDigits > 0;
    if (good && at < rest.size() && (rest[at] == 'e' || rest[at] == 'E')) {
        ++at;
        if (at < rest.size() && (rest[at] == '+' || rest[at] == '-')) ++at;
        const std::size_t exponentStart = at;
        while (at < rest.size() && IsDigit(rest[at])) ++at;
        good = at > exponentStart;
    }
    if (!good || at != rest.size()) return Cited(word) + " is not " + kind + " number";
    // from_chars reads as the C locale does, whatever the process locale.
    double value = 0;
    const std::string_view digits = word.front() == '+' ? word.substr(1) : word;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    (void)end;
    const bool outOfRange = error != std::errc{} ||
                            (single && std::isinf(static_cast<float>(value)));
    if (outOfRange) return Cited(word) + " is out of range for " + kind;
    if (single && value != 0 && static_cast<float>(value) == 0) {
        return Cited(word) + " is too small for a real: it reads as 0";
    }
    return std::nullopt;
}

}  // namespace

std::string Cited(std::string_view text) { return "'" + QuoteForMessage(text) + "'"; }

bool IsUnspecifiedWord(std::string_view word) { return word == "*" || word == "?"; }

Verdict UnsignedRule(std::string_view word, int32_t) {
    const bool hex = word.size() > 2 && word[0] == '0' && (word[1] == 'x' || word[1] == 'X');
    const Digits digits = hex ? ReadDigits(word.substr(2), 16) : ReadDigits(word, 10);
    if (!digits.valid) return Cited(word) + " is not an unsigned number";
    if (!hex && word.size() > 1 && word[0] == '0') {
        return Cited(word) + " has a leading 0, which makes it octal to the scanner";
    }
    if (digits.value > kMaxUnsigned) return Cited(word) + " is out of range for an unsigned (0 to 4294967295)";
    return std::nullopt;
}

Verdict SignedRule(std::string_view word, int32_t) {
    const bool negative = !word.empty() && word.front() == '-';
    const bool sign = negative || (!word.empty() && word.front() == '+');
    const Digits digits = ReadDigits(word.substr(sign ? 1 : 0), 10);
    if (!digits.valid) return Cited(word) + " is not a signed number";
    if (digits.value > (negative ? kMaxSignedMagnitude : kMaxSignedMagnitude - 1)) {
        return Cited(word) + " is out of range for a signed (-2147483648 to 2147483647)";
    }
    return std::nullopt;
}

Verdict RealRule(std::string_view word, int32_t) { return RealNumber(word, true); }
Verdict DoubleRule(std::string_view word, int32_t) { return RealNumber(word, false); }

Verdict EnumeratedRule(std::string_view word, int32_t hint) {
    const std::string table = hint < 0 ? std::string("any table")
                                       : "the " + EnumTableLabel(static_cast<uint32_t>(hint)) + " table";
    if (word.empty() || !IsDigit(word.front())) {
        if (word.find('-') != std::string_view::npos && hint >= 0) {
            return NumberedName(word, static_cast<uint32_t>(hint), ("a name in " + table).c_str());
        }
        if (NameValue(word, hint)) return std::nullopt;
        return Cited(word) + " is not a name in " + table;
    }
    // "62" or the printed "62 => degrees-celsius"
    const std::size_t arrow = word.find("=>");
    const std::string_view number = Trimmed(word.substr(0, arrow));
    const Digits digits = ReadDigits(number, 10);
    if (!digits.valid) return Cited(word) + " is not an enumeration value";
    if (digits.value > kMaxEnumerated) return Cited(word) + " is out of range for an enumeration";
    if (arrow == std::string_view::npos) return std::nullopt;
    const std::string_view name = Trimmed(word.substr(arrow + 2));
    if (!NameHasValue(name, hint, static_cast<uint32_t>(digits.value))) {
        return Cited(name) + " is not the name of " + std::string(number) + " in " + table;
    }
    return std::nullopt;
}

Verdict BooleanRule(std::string_view word, int32_t) {
    for (const char *spelling : {"T", "F", "true", "false", "1", "0"}) {
        if (EqualsIgnoringCase(word, spelling)) return std::nullopt;
    }
    return Cited(word) + " is not a boolean (T, F, true, false, 1 or 0)";
}

Verdict BitRule(std::string_view word, int32_t) {
    if (word == "T" || word == "F" || word == "1" || word == "0") return std::nullopt;
    if (word == "t" || word == "f") {
        return Cited(word) + " reads as a bit not given: write T or F";
    }
    return Cited(word) + " is not a bit (T, F, 1 or 0)";
}

Verdict NullRule(std::string_view word, int32_t) {
    if (EqualsIgnoringCase(word, "NULL")) return std::nullopt;
    return Cited(word) + " is not NULL";
}

Verdict TimeRule(std::string_view word, int32_t) {
    const std::size_t dot = word.rfind('.');
    const std::vector<std::string_view> fields =
        Split(word.substr(0, dot == std::string_view::npos ? word.size() : dot), ':');
    const bool good = dot != std::string_view::npos && fields.size() == 3 &&
                      FieldInRange(fields[0], 0, 23) && FieldInRange(fields[1], 0, 59) &&
                      FieldInRange(fields[2], 0, 59) && FieldInRange(word.substr(dot + 1), 0, 99);
    if (good) return std::nullopt;
    return Cited(word) + " is not a time (hh:mm:ss.hh: hour 0 to 23, minute and second 0 to 59, "
                         "hundredths 0 to 99, or *)";
}

Verdict DateWordRule(std::string_view word, int32_t) {
    if (word.find('-') == std::string_view::npos) {
        if (IsUnspecifiedWord(word) || NameValue(word, BACNET_TABLE_WEEKDAYS)) return std::nullopt;
        return Cited(word) + " is not a weekday";
    }
    const std::vector<std::string_view> fields = Split(word, '-');
    // Days 32 to 34 are the last, odd and even days of the month; months 13
    // and 14 the odd and even months; year 65535 is the unspecified year.
    const bool good = fields.size() == 3 && FieldInRange(fields[0], 1, 34) &&
                      (FieldInRange(fields[1], 1, 14) || NameValue(fields[1], BACNET_TABLE_MONTHS)) &&
                      FieldInRange(fields[2], 0, 65535);
    if (good) return std::nullopt;
    return Cited(word) + " is not a date (day-month-year: day 1 to 34, month 1 to 14 or its "
                         "name, year 0 to 65535, or *)";
}

Verdict DateTimeWordRule(std::string_view word, int32_t hint) {
    return word.find(':') != std::string_view::npos ? TimeRule(word, hint) : DateWordRule(word, hint);
}

Verdict OctetsRule(std::string_view word, int32_t) {
    std::string_view digits;
    if (word.size() >= 2 && word[0] == '0' && (word[1] == 'x' || word[1] == 'X')) {
        digits = word.substr(2);
    } else if (word.size() >= 3 && word[0] == 'X' && word[1] == '\'' && word.back() == '\'') {
        digits = word.substr(2, word.size() - 3);
    } else {
        return Cited(word) + " is not an octet string (0x or X'' and hexadecimal digits)";
    }
    for (const char c : digits) {
        if (HexDigitValue(c) < 0) return Cited(word) + " holds a character that is no hexadecimal digit";
    }
    if (digits.size() % 2 != 0) return Cited(word) + " has an odd number of hexadecimal digits";
    return std::nullopt;
}

Verdict ObjectTypeRule(std::string_view word, int32_t) {
    if (!word.empty() && IsDigit(word.front())) {
        const Digits digits = ReadDigits(word, 10);
        if (!digits.valid) return Cited(word) + " is not an object type";
        if (digits.value > kMaxObjectType) return Cited(word) + " is out of range for an object type (0 to 1023)";
        return std::nullopt;
    }
    if (const Verdict wrong = NumberedName(word, BACNET_TABLE_OBJECT_TYPES, "an object type")) return wrong;
    if (NameValue(word, BACNET_TABLE_OBJECT_TYPES).value_or(0) > kMaxObjectType) {
        return Cited(word) + " is out of range for an object type (0 to 1023)";
    }
    return std::nullopt;
}

Verdict InstanceRule(std::string_view word, int32_t) {
    const Digits digits = ReadDigits(word, 10);
    if (!digits.valid) return Cited(word) + " is not an instance number";
    if (digits.value > kMaxInstance) return Cited(word) + " is out of range for an instance (0 to 4194303)";
    return std::nullopt;
}

std::optional<double> NotationNumber(std::string_view word) {
    if (!UnsignedRule(word, -1)) {
        const bool hex = word.size() > 2 && (word[1] == 'x' || word[1] == 'X');
        return static_cast<double>(hex ? ReadDigits(word.substr(2), 16).value : ReadDigits(word, 10).value);
    }
    if (!SignedRule(word, -1)) {
        const bool negative = word.front() == '-';
        const auto magnitude = static_cast<double>(ReadDigits(word.substr(1), 10).value);
        return negative ? -magnitude : magnitude;
    }
    if (!DoubleRule(word, -1)) {
        const std::string_view digits = word.front() == '+' ? word.substr(1) : word;
        double value = 0;
        if (std::from_chars(digits.data(), digits.data() + digits.size(), value).ec == std::errc{}) {
            return value;
        }
    }
    return std::nullopt;
}

std::optional<uint32_t> TagDatatype(std::string_view tag) {
    if (tag == "ASN1") return kAsn1Datatype;
    const Digits digits = ReadDigits(Trimmed(tag), 10);
    if (!digits.valid || digits.value > UINT32_MAX) return std::nullopt;
    const auto code = static_cast<uint32_t>(digits.value);
    return code < kFirstConstructedCode ? code * 16 : code;
}

}  // namespace bacfmt::tool
