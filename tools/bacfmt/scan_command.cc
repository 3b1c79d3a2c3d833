// bacfmt scan: scans texts typed at the console and prints them back,
// optionally with the record and payload bytes.
#include <algorithm>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include <bacfmt/bacfmt.h>

#include "accept_value.h"
#include "catalogue_type.h"
#include "array_read.h"
#include "notification_scan.h"
#include "commands.h"
#include "input_file.h"
#include "names.h"
#include "text_checks.h"
#include "value_codec.h"

namespace bacfmt::tool {
namespace {

// Property used for printing when none is given: it names no table and is
// in no bracket rule, so nothing changes the value's plain form.
constexpr uint32_t kNoProperty = 0xFFFFFFFFu;
constexpr uint8_t kLastPrefixMode = 2;

struct ScanOptions {
    bool notification = false;  // --type notification-parameters
    bool arrays = false;        // --array
    ScanRequest scan;
    PrintRequest print{kNoProperty, true, 0};
    bool dump = false;
    // Where the datatype comes from, for the dump.
    std::string datatypeSource = "guess";
};

// "type", "from", "count", "size" and the bytes the filling pass used
// behind the record, sixteen to a line, each line "payload<TAB>offset<TAB>bytes".
void Dump(const ScannedValue &value, const std::string &source) {
    const BACnetContents &record = value.record();
    std::printf("type\t%u\t%s\nfrom\t%s\ncount\t%u\nsize\t%d\n", record.type,
                DatatypeName(record.type).c_str(), source.c_str(), record.count, record.size);
    const auto *begin = static_cast<const unsigned char *>(record.data);
    const unsigned char *blockEnd = value.block.get() + std::min<std::size_t>(
        static_cast<std::size_t>(value.code), value.blockSize);
    if (begin < value.block.get() || begin > blockEnd) return;  // not in the block
    constexpr std::size_t kBytesPerLine = 16;
    const std::size_t length = static_cast<std::size_t>(blockEnd - begin);
    for (std::size_t line = 0; line < length; line += kBytesPerLine) {
        std::printf("payload\t%04zx\t", line);
        for (std::size_t i = line; i < std::min(length, line + kBytesPerLine); ++i) {
            std::printf(i == line ? "%02x" : " %02x", begin[i]);
        }
        std::printf("\n");
    }
}

// `where` is "" for a text from the command line, "FILE:LINE: " for one
// read from standard input.
bool ScanOne(const Command &self, std::string_view text, const std::string &where,
             const ScanOptions &options) {
    if (options.arrays) {
        const auto reading = ReadThroughArrays(options.scan.datatype, text, options.print.symbolic);
        if (!reading) {
            PrintError(self.name, "no array scanner for " + DatatypeName(options.scan.datatype));
            return false;
        }
        std::printf("%s\nerror\t%d\n", reading->printed.c_str(), reading->error);
        return reading->error == 0;
    }
    if (options.notification) {
        if (const auto printed = ScanNotificationParameters(text, options.print.symbolic)) {
            std::printf("%s", printed->c_str());
            return true;
        }
        const std::string message = "not notification parameters, or they do not read back: " + QuoteForMessage(text);
        if (where.empty()) {
            PrintError(self.name, message);
        } else {
            std::fprintf(stderr, "%s%s\n", where.c_str(), message.c_str());
        }
        return false;
    }
    AcceptRequest request{options.scan, options.print, false};
    auto result = AcceptValue(text, request);
    if (const auto *problem = std::get_if<ValueProblem>(&result)) {
        const std::string as = options.scan.datatype == kGuessDatatype
                                   ? std::string()
                                   : " (as " + DatatypeName(options.scan.datatype) + ")";
        const std::string column =
            problem->offset ? "column " + std::to_string(*problem->offset + 1) + ": " : "";
        const std::string message = column + problem->what + as + ": " + QuoteForMessage(text);
        std::fflush(stdout);
        if (where.empty()) {
            PrintError(self.name, message);
        } else {
            std::fprintf(stderr, "%s%s\n", where.c_str(), message.c_str());
        }
        return false;
    }
    const AcceptedValue &accepted = std::get<AcceptedValue>(result);
    std::printf("%s\n", accepted.printed.c_str());
    if (options.dump) {
        const bool tagged = !text.empty() && text.find_first_not_of(" \t") != std::string_view::npos &&
                            text[text.find_first_not_of(" \t")] == '[';
        Dump(accepted.value, options.scan.datatype == kGuessDatatype && tagged
                                 ? "tag"
                                 : options.datatypeSource);
    }
    return true;
}

// Texts one a line from standard input; blank lines carry none.
bool ScanStandardInput(const Command &self, const ScanOptions &options, int &status) {
    std::string error;
    const auto text = ReadInput("-", error);
    if (!text) {
        PrintError(self.name, "cannot read '<stdin>': " + error);
        status = kExitUsage;
        return false;
    }
    bool allGood = true;
    unsigned number = 0;
    for (std::string_view line : SplitLines(*text)) {
        ++number;
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        if (line.find_first_not_of(" \t") == std::string_view::npos) continue;
        allGood = ScanOne(self, line, "<stdin>:" + std::to_string(number) + ": ", options) && allGood;
    }
    return allGood;
}

// The datatype of -p from the catalogue: the one of -o's object type, or
// the one every object type gives the property.
int SettleCatalogueType(const Command &self, std::optional<uint32_t> objectType, ScanOptions &options) {
    const auto property = static_cast<uint32_t>(options.scan.hint);
    const std::string name = BACnetPropIDString(property);
    const CatalogueType row = objectType ? CatalogueTypeOf(*objectType, property)
                                         : CatalogueTypeOf(property);
    const std::string where = objectType ? std::string(BACnetObjTypeString(*objectType))
                                         : std::string("every object type");
    switch (row.kind) {
        case CatalogueType::Kind::Known:
            options.scan.datatype = row.datatype;
            options.scan.expectedCount = row.expectedCount;
            options.datatypeSource = "catalogue\t" + name + " of " + where;
            return kExitOk;
        case CatalogueType::Kind::FromValue:
            options.datatypeSource = "guess\t" + name + " of " + where + " takes its type from the value";
            return kExitOk;
        case CatalogueType::Kind::Differs:
            options.datatypeSource = "guess\t" + name + " differs by object type; -o selects one";
            return kExitOk;
        case CatalogueType::Kind::Unknown:
            if (objectType) {
                return UsageError(self.name, where + " has no " + name + " in the catalogue");
            }
            options.datatypeSource = "guess\t" + name + " is in no object type of the catalogue";
            return kExitOk;
    }
    return kExitOk;
}

int RunScan(const Command &self, int argc, char **argv) {
    ScanOptions options;
    bool typeGiven = false;
    bool propertyGiven = false;
    std::optional<uint32_t> objectType;
    OptionParser parser(self, argc, argv, "t:p:o:nP:da",
                        {{"type", required_argument, nullptr, 't'},
                         {"property", required_argument, nullptr, 'p'},
                         {"object-type", required_argument, nullptr, 'o'},
                         {"numbers", no_argument, nullptr, 'n'},
                         {"prefix", required_argument, nullptr, 'P'},
                         {"dump", no_argument, nullptr, 'd'},
                         {"array", no_argument, nullptr, 'a'}});
    for (int c; (c = parser.Next()) != -1;) {
        const std::string argument = parser.Argument() != nullptr ? parser.Argument() : "";
        switch (c) {
            case 'h': return kExitOk;
            case 't':
                if (argument == kNotificationParametersType) {
                    options.notification = true;
                    typeGiven = true;
                    break;
                }
                if (const auto code = DatatypeFromText(argument)) {
                    options.scan.datatype = *code;
                    typeGiven = true;
                    break;
                }
                return UsageError(self.name, "unknown datatype '" + argument + "'");
            case 'p':
                if (const auto property = PropertyFromText(argument)) {
                    options.scan.hint = static_cast<int32_t>(*property);
                    options.print.property = *property;
                    propertyGiven = true;
                    break;
                }
                return UsageError(self.name, "unknown property '" + argument + "'");
            case 'o':
                if ((objectType = ObjectTypeFromText(argument))) break;
                return UsageError(self.name, "unknown object type '" + argument + "'");
            case 'n': options.print.symbolic = false; break;
            case 'P':
                if (const auto mode = ParseNumber(argument); mode && *mode <= kLastPrefixMode) {
                    options.print.prefixMode = static_cast<uint8_t>(*mode);
                    break;
                }
                return UsageError(self.name, "prefix mode must be 0, 1 or 2, not '" + argument + "'");
            case 'd': options.dump = true; break;
            case 'a': options.arrays = true; break;
            default: return kExitUsage;
        }
    }
    if (objectType && !propertyGiven) return UsageError(self.name, "-o needs a property (-p)");
    if (options.arrays && !typeGiven) return UsageError(self.name, "--array needs a datatype (-t)");
    if (typeGiven) {
        options.datatypeSource = "--type";
    } else if (propertyGiven) {
        if (const int status = SettleCatalogueType(self, objectType, options); status != kExitOk) {
            return status;
        }
    }
    const std::vector<std::string> texts = parser.Operands();
    if (texts.empty()) return UsageError(self.name, "no text given");
    bool allGood = true;
    int status = kExitOk;
    for (const std::string &text : texts) {
        const bool good = text == "-" ? ScanStandardInput(self, options, status)
                                      : ScanOne(self, text, "", options);
        allGood = good && allGood;
    }
    if (status != kExitOk) return status;
    return allGood ? kExitOk : kExitFailed;
}

}  // namespace

const Command kScanCommand{
    "scan", "scan texts and print them back",
    "Usage: bacfmt scan [OPTION]... TEXT...\n"
    "\n"
    "Scans each TEXT into a value and prints it back, one line each. A TEXT\n"
    "of - reads texts from standard input, one a line. The datatype comes\n"
    "from --type, else from the catalogue when --property is given and the\n"
    "property has one datatype (in every object type, or in the one of\n"
    "--object-type), else from a leading [n] tag, else it is guessed from the\n"
    "text. Put -- before texts that begin with -.\n"
    "\n"
    "A text is accepted only when every number in it is a whole number of\n"
    "the notation in range for its datatype, every name is one the tables\n"
    "know, the text is UTF-8 without NUL bytes, and the printed value reads\n"
    "back as the same value. Errors name the element and its column.\n"
    "\n"
    "Options:\n"
    "  -t, --type T          datatype by code or name (64, CT_REAL, real,\n"
    "                        date-time), or notification-parameters\n"
    "  -p, --property P      property by name or number: its enumeration\n"
    "                        names are read and printed, its list rules\n"
    "                        apply, its catalogue datatype is used\n"
    "  -o, --object-type O   object type whose catalogue row gives the\n"
    "                        datatype of --property\n"
    "  -n, --numbers         print enumerations, object types and booleans as\n"
    "                        numbers\n"
    "  -P, --prefix 0|1|2    datatype tag before the value: none, primitive\n"
    "                        values only, every value\n"
    "  -d, --dump            also show the record (type, where the datatype\n"
    "                        came from, count, size) and the payload bytes in\n"
    "                        hex\n"
    "  -a, --array           read through the array scanners instead (as a\n"
    "                        stack with arrays of its own would): the\n"
    "                        elements, then \"error<TAB>N\" with the error\n"
    "                        number (0, 22); needs --type\n"
    "  -h, --help            show this help\n"
    "\n"
    "Exit status: 0 all texts scanned, 1 some text failed, 2 usage error or\n"
    "unreadable standard input.\n",
    RunScan};

}  // namespace bacfmt::tool
