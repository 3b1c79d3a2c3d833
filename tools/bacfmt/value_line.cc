#include "value_line.h"

namespace bacfmt::tool {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view Trim(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    const auto last = text.find_last_not_of(kBlanks);
    return text.substr(first, last - first + 1);
}

ValueLine Malformed(std::string problem) {
    ValueLine line;
    line.kind = ValueLine::Kind::Malformed;
    line.problem = std::move(problem);
    return line;
}

}  // namespace

ValueLine ParseValueLine(std::string_view text) {
    const std::string_view line = Trim(text);
    if (line.empty() || line.front() == '#') return {};

    const auto equals = line.find('=');
    if (equals == std::string_view::npos) return Malformed("no \"=\" between property and value");
    const std::string_view left = Trim(line.substr(0, equals));
    const std::string_view value = Trim(line.substr(equals + 1));

    // "TYPE,INSTANCE PROPERTY", blanks allowed around the comma.
    const auto comma = left.find(',');
    if (comma == std::string_view::npos) return Malformed("no \",\" between object type and instance");
    const std::string_view type = Trim(left.substr(0, comma));
    const std::string_view rest = Trim(left.substr(comma + 1));
    const auto blank = rest.find_first_of(kBlanks);
    if (type.empty()) return Malformed("object type missing");
    if (blank == std::string_view::npos) {
        // One word after the comma is the instance when it is a number, else
        // the property with the instance left out.
        const bool number = !rest.empty() && rest.front() >= '0' && rest.front() <= '9';
        return Malformed(number ? "property missing" : "instance number missing");
    }
    const std::string_view property = Trim(rest.substr(blank));
    if (property.find_first_of(kBlanks) != std::string_view::npos) {
        return Malformed("property name holds a blank: \"" + std::string(property) + "\"");
    }
    if (value.empty()) return Malformed("value missing after \"=\"");

    ValueLine parsed;
    parsed.kind = ValueLine::Kind::Value;
    parsed.objectType = type;
    parsed.instance = rest.substr(0, blank);
    parsed.property = property;
    parsed.value = value;
    parsed.valueOffset = static_cast<std::size_t>(value.data() - text.data());
    return parsed;
}

std::string FormatValueLine(std::string_view objectType, unsigned instance,
                            std::string_view property, std::string_view value) {
    std::string line(objectType);
    line += ',';
    line += std::to_string(instance);
    line += ' ';
    line += property;
    line += " = ";
    line += value;
    return line;
}

}  // namespace bacfmt::tool
