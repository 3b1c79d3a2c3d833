// bacfmt check: reads value files, scans each value with the datatype the
// catalogue gives its property, and writes the file back normalised.
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include <bacfmt/bacfmt.h>

#include "accept_value.h"
#include "catalogue_type.h"
#include "commands.h"
#include "input_file.h"
#include "names.h"
#include "text_checks.h"
#include "value_line.h"

namespace bacfmt::tool {
namespace {

// What is wrong with a value line, the text that shows it and the column
// (counted in bytes from 1) where the fault lies, when one place is to blame.
struct Problem {
    std::string what;
    std::string_view offending;
    std::optional<std::size_t> column;
};

// The line check writes for a good value, or what is wrong with it.
std::variant<std::string, Problem> Normalise(const ValueLine &line, std::string_view text) {
    if (line.kind == ValueLine::Kind::Malformed) return Problem{line.problem, text, {}};

    const auto objectType = ObjectTypeFromText(line.objectType);
    if (!objectType) return Problem{"unknown object type", line.objectType, {}};
    const auto instance = ParseNumber(line.instance);
    if (!instance || *instance > kMaxInstance) {
        return Problem{"invalid instance number", line.instance, {}};
    }
    const auto property = PropertyFromText(line.property);
    if (!property) return Problem{"unknown property", line.property, {}};

    // A property the catalogue does not know, or one whose value brings its
    // own type, is guessed from the text with no hint, so that names of any
    // table and a leading "[n]" tag are understood; it prints with its tag
    // so that the type survives the next reading.
    AcceptRequest request;
    const CatalogueType catalogue = CatalogueTypeOf(*objectType, *property);
    const bool guessed = catalogue.kind != CatalogueType::Kind::Known;
    if (!guessed) {
        request.scan.datatype = catalogue.datatype;
        request.scan.expectedCount = catalogue.expectedCount;
        request.scan.hint = static_cast<int32_t>(*property);
    }
    request.print = PrintRequest{*property, true, static_cast<uint8_t>(guessed ? 1 : 0)};
    request.quoteSingleString = true;

    const std::string propertyName = BACnetPropIDString(*property);
    auto result = AcceptValue(line.value, request);
    if (const auto *problem = std::get_if<ValueProblem>(&result)) {
        const std::string reading =
            " (" + propertyName + " as " +
            (guessed ? std::string("guessed type") : DatatypeName(request.scan.datatype)) + ")";
        std::optional<std::size_t> column;
        if (problem->offset) column = line.valueOffset + *problem->offset + 1;
        return Problem{problem->what + reading, line.value, column};
    }
    return FormatValueLine(BACnetObjTypeString(*objectType), *instance, propertyName,
                           std::get<AcceptedValue>(result).printed);
}

class Checker {
public:
    explicit Checker(bool quiet) : quiet_(quiet) {}

    void CheckText(std::string_view text, const std::string &file) {
        unsigned number = 0;
        for (const std::string_view line : SplitLines(text)) {
            ++number;
            const ValueLine parsed = ParseValueLine(line);
            if (parsed.kind == ValueLine::Kind::Nothing) {
                Echo(line);
                continue;
            }
            ++values_;
            auto result = Normalise(parsed, line);
            if (const auto *problem = std::get_if<Problem>(&result)) {
                // A bad line stays in the output unchanged, for the user to mend.
                ++errors_;
                std::string where = file + ':' + std::to_string(number) + ": ";
                if (problem->column) where += "column " + std::to_string(*problem->column) + ": ";
                std::fprintf(stderr, "%s%s: %s\n", where.c_str(), problem->what.c_str(),
                             QuoteForMessage(problem->offending).c_str());
                Echo(line);
            } else {
                Echo(std::get<std::string>(result));
            }
        }
    }

    unsigned values() const { return values_; }
    unsigned errors() const { return errors_; }

private:
    void Echo(std::string_view text) {
        if (quiet_) return;
        std::fwrite(text.data(), 1, text.size(), stdout);
        std::fputc('\n', stdout);
    }

    bool quiet_;
    unsigned values_ = 0;
    unsigned errors_ = 0;
};

int RunCheck(const Command &self, int argc, char **argv) {
    bool quiet = false;
    OptionParser parser(self, argc, argv, "q", {{"quiet", no_argument, nullptr, 'q'}});
    for (int c; (c = parser.Next()) != -1;) {
        if (c == 'h') return kExitOk;
        if (c == '?') return kExitUsage;
        if (c == 'q') quiet = true;
    }
    const std::vector<std::string> files = parser.Operands();
    if (files.empty()) return UsageError(self.name, "no value file given (use - for standard input)");

    Checker checker(quiet);
    int status = kExitOk;
    for (const std::string &file : files) {
        std::string error;
        const auto text = ReadInput(file, error);
        if (!text) {
            std::fflush(stdout);
            PrintError(self.name, "cannot read '" + InputName(file) + "': " + error);
            status = kExitUsage;
            continue;
        }
        checker.CheckText(*text, InputName(file));
    }
    std::fflush(stdout);
    std::fprintf(stderr, "bacfmt check: %u values read, %u errors found\n", checker.values(),
                 checker.errors());
    if (status == kExitOk && checker.errors() > 0) status = kExitFailed;
    return status;
}

}  // namespace

const Command kCheckCommand{
    "check", "check value files and print them normalised",
    "Usage: bacfmt check [-q] FILE...\n"
    "\n"
    "Reads value files (- is standard input), one value a line:\n"
    "\n"
    "    OBJECT-TYPE,INSTANCE PROPERTY = VALUE\n"
    "\n"
    "Object types and properties go by name or number. Lines whose first\n"
    "non-blank character is # are comments; blank lines are ignored. Each\n"
    "value is scanned with the datatype the property catalogue gives the\n"
    "property (guessed from the text when the catalogue does not know the\n"
    "property or the value carries its own type) and printed back with names.\n"
    "\n"
    "The check is stricter than the library's scanners: every number must be\n"
    "a whole number of the notation in range for its datatype (no word where\n"
    "a number belongs, no trailing characters, no 4294967296 or -1 for an\n"
    "unsigned), every name one the tables know, the line UTF-8 text without\n"
    "NUL bytes, and the printed value must read back as the same value, so\n"
    "that the output checks to itself.\n"
    "\n"
    "Standard output receives the file normalised: comments and blank lines\n"
    "as they were, good values printed back, bad lines unchanged. Standard\n"
    "error receives one line FILE:LINE: problem: text per bad line (with\n"
    "\"column N: \" after the line number where one element is to blame;\n"
    "the text cut to 80 characters) and a summary.\n"
    "\n"
    "Options:\n"
    "  -q, --quiet   write only the error lines and the summary\n"
    "  -h, --help    show this help\n"
    "\n"
    "Exit status: 0 all values good, 1 some value bad, 2 usage error or\n"
    "unreadable file (a directory, no permission).\n",
    RunCheck};

}  // namespace bacfmt::tool
