// bacfmt check: reads value files, scans each value with the datatype the
// catalogue gives its property, and writes the file back normalised.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <variant>

#include <bacfmt/bacfmt.h>

#include "commands.h"
#include "names.h"
#include "scan_words.h"
#include "value_codec.h"
#include "value_line.h"

namespace bacfmt::tool {
namespace {

// Multiplicity markers of the catalogue: a single character string, an
// array and a list of any length.
constexpr uint32_t kSingleText = 253;
constexpr uint32_t kFirstUnboundedMarker = 254;

// How many elements a value of this shape must have; 0 for any number.
int32_t ExpectedCount(uint32_t shape) {
    const uint32_t multiplicity = OBJPROP_MULTIPLICITY(shape);
    if (multiplicity == 0 || multiplicity == kSingleText) return 1;
    if (multiplicity >= kFirstUnboundedMarker) return 0;
    return static_cast<int32_t>(multiplicity);
}

// A value scanned and printed the way check writes it: a single character
// string in quotes whatever the property, so that the line reads back as
// one string even when it holds commas, brackets or blanks at either end.
PrintedValue Render(const std::string &text, const ScanRequest &scan, const PrintRequest &print) {
    const ScannedValue value = ScanValue(text, scan);
    if (!value.ok()) return PrintedValue{value.code, {}};
    const BACnetContents &record = value.record();
    if (record.type == CT_CHARACTER_STRING && record.count == 1) {
        return PrintedValue{0, PrintQuotedString(*static_cast<const BACnetCharString *>(record.data))};
    }
    PrintedValue printed = PrintValue(record, print);
    if (printed.code < 0) printed.code = kPrintFailed;
    return printed;
}

// What is wrong with a value line, and the text that shows it.
struct Problem {
    std::string what;
    std::string offending;
};

// The line check writes for a good value, or what is wrong with it.
std::variant<std::string, Problem> Normalise(const ValueLine &line, const std::string &text) {
    if (line.kind == ValueLine::Kind::Malformed) return Problem{line.problem, text};

    const auto objectType = ObjectTypeFromText(line.objectType);
    if (!objectType) return Problem{"unknown object type", line.objectType};
    const auto instance = ParseNumber(line.instance);
    if (!instance || *instance > kMaxInstance) {
        return Problem{"invalid instance number", line.instance};
    }
    const auto property = PropertyFromText(line.property);
    if (!property) return Problem{"unknown property", line.property};

    // A property the catalogue does not know, or one whose value brings its
    // own type, is guessed from the text with no hint, so that names of any
    // table and a leading "[n]" tag are understood; it prints with its tag
    // so that the type survives the next reading.
    ScanRequest scan;
    const ObjPropDescription *row = GetObjPropDescription(*objectType, *property);
    const bool guessed = row == nullptr || row->datatype == BACNET_DATATYPE_FROM_VALUE;
    if (!guessed) {
        scan.datatype = row->datatype;
        scan.expectedCount = ExpectedCount(row->shape);
        scan.hint = static_cast<int32_t>(*property);
    }
    const std::string propertyName = BACnetPropIDString(*property);
    const std::string reading = " (" + propertyName + " as " +
                                (guessed ? std::string("guessed type") : DatatypeName(scan.datatype)) +
                                ")";

    const PrintRequest print{*property, true, static_cast<uint8_t>(guessed ? 1 : 0)};

    const PrintedValue first = Render(line.value, scan, print);
    if (first.code < 0) return Problem{ScanCodeWords(first.code) + reading, line.value};
    // Some texts have no written form that reads back as the same value (a
    // string holding both quote kinds, one ending in a backslash): refuse
    // them rather than write a file that drifts on every check.
    const PrintedValue second = Render(first.text, scan, print);
    if (second.code < 0 || second.text != first.text) {
        return Problem{"value does not read back as written" + reading, line.value};
    }
    return FormatValueLine(BACnetObjTypeString(*objectType), *instance, propertyName,
                           first.text);
}

class Checker {
public:
    explicit Checker(bool quiet) : quiet_(quiet) {}

    void CheckStream(std::istream &in, const std::string &file) {
        std::string text;
        for (unsigned number = 1; std::getline(in, text); ++number) {
            const ValueLine line = ParseValueLine(text);
            if (line.kind == ValueLine::Kind::Nothing) {
                Echo(text);
                continue;
            }
            ++values_;
            auto result = Normalise(line, text);
            if (const auto *problem = std::get_if<Problem>(&result)) {
                // A bad line stays in the output unchanged, for the user to mend.
                ++errors_;
                std::cerr << file << ':' << number << ": " << problem->what << ": "
                          << problem->offending << '\n';
                Echo(text);
            } else {
                Echo(std::get<std::string>(result));
            }
        }
    }

    unsigned values() const { return values_; }
    unsigned errors() const { return errors_; }

private:
    void Echo(const std::string &text) {
        if (!quiet_) std::cout << text << '\n';
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
        if (file == "-") {
            checker.CheckStream(std::cin, "<stdin>");
            continue;
        }
        std::ifstream in(file);
        if (!in) {
            PrintError(self.name, "cannot open '" + file + "': " + std::strerror(errno));
            status = kExitUsage;
            continue;
        }
        checker.CheckStream(in, file);
    }
    std::cout.flush();
    std::cerr << "bacfmt check: " << checker.values() << " values read, " << checker.errors()
              << " errors found\n";
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
    "A value whose printed form would not read back as the same value is\n"
    "reported as bad, so that the output checks to itself.\n"
    "\n"
    "Standard output receives the file normalised: comments and blank lines\n"
    "as they were, good values printed back, bad lines unchanged. Standard\n"
    "error receives one line FILE:LINE: problem: text per bad line and a\n"
    "summary.\n"
    "\n"
    "Options:\n"
    "  -q, --quiet   write only the error lines and the summary\n"
    "  -h, --help    show this help\n"
    "\n"
    "Exit status: 0 all values good, 1 some value bad, 2 usage error or\n"
    "unreadable file.\n",
    RunCheck};

}  // namespace bacfmt::tool
