// bacfmt scan: scans texts typed at the console and prints them back,
// optionally with the record and payload bytes.
#include <algorithm>
#include <cstdio>
#include <string>

#include <bacfmt/bacfmt.h>

#include "commands.h"
#include "names.h"
#include "scan_words.h"
#include "value_codec.h"

namespace bacfmt::tool {
namespace {

// Property used for printing when none is given: it names no table and is
// in no bracket rule, so nothing changes the value's plain form.
constexpr uint32_t kNoProperty = 0xFFFFFFFFu;
constexpr uint8_t kLastPrefixMode = 2;

struct ScanOptions {
    ScanRequest scan;
    PrintRequest print{kNoProperty, true, 0};
    bool dump = false;
};

// "type", "count", "size" and the bytes the filling pass used behind the
// record, sixteen to a line, each line "payload<TAB>offset<TAB>bytes".
void Dump(const ScannedValue &value) {
    const BACnetContents &record = value.record();
    std::printf("type\t%u\t%s\ncount\t%u\nsize\t%d\n", record.type,
                DatatypeName(record.type).c_str(), record.count, record.size);
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

bool ScanOne(const Command &self, const std::string &text, const ScanOptions &options) {
    const ScannedValue value = ScanValue(text, options.scan);
    const std::string as = options.scan.datatype == kGuessDatatype
                               ? std::string()
                               : " (as " + DatatypeName(options.scan.datatype) + ")";
    if (!value.ok()) {
        PrintError(self.name, std::string(ScanCodeWords(value.code)) + as + ": " + text);
        return false;
    }
    const PrintedValue printed = PrintValue(value.record(), options.print);
    if (printed.code < 0) {
        PrintError(self.name, std::string(ScanCodeWords(kPrintFailed)) + as + ": " + text);
        return false;
    }
    std::printf("%s\n", printed.text.c_str());
    if (options.dump) Dump(value);
    return true;
}

int RunScan(const Command &self, int argc, char **argv) {
    ScanOptions options;
    OptionParser parser(self, argc, argv, "t:p:nP:d",
                        {{"type", required_argument, nullptr, 't'},
                         {"property", required_argument, nullptr, 'p'},
                         {"numbers", no_argument, nullptr, 'n'},
                         {"prefix", required_argument, nullptr, 'P'},
                         {"dump", no_argument, nullptr, 'd'}});
    for (int c; (c = parser.Next()) != -1;) {
        const std::string argument = parser.Argument() != nullptr ? parser.Argument() : "";
        switch (c) {
            case 'h': return kExitOk;
            case 't':
                if (const auto code = DatatypeFromText(argument)) {
                    options.scan.datatype = *code;
                    break;
                }
                return UsageError(self.name, "unknown datatype '" + argument + "'");
            case 'p':
                if (const auto property = PropertyFromText(argument)) {
                    options.scan.hint = static_cast<int32_t>(*property);
                    options.print.property = *property;
                    break;
                }
                return UsageError(self.name, "unknown property '" + argument + "'");
            case 'n': options.print.symbolic = false; break;
            case 'P':
                if (const auto mode = ParseNumber(argument); mode && *mode <= kLastPrefixMode) {
                    options.print.prefixMode = static_cast<uint8_t>(*mode);
                    break;
                }
                return UsageError(self.name, "prefix mode must be 0, 1 or 2, not '" + argument + "'");
            case 'd': options.dump = true; break;
            default: return kExitUsage;
        }
    }
    const std::vector<std::string> texts = parser.Operands();
    if (texts.empty()) return UsageError(self.name, "no text given");
    bool allGood = true;
    for (const std::string &text : texts) {
        allGood = ScanOne(self, text, options) && allGood;
    }
    return allGood ? kExitOk : kExitFailed;
}

}  // namespace

const Command kScanCommand{
    "scan", "scan texts and print them back",
    "Usage: bacfmt scan [OPTION]... TEXT...\n"
    "\n"
    "Scans each TEXT into a value and prints it back, one line each. The\n"
    "datatype comes from --type, else from a leading [n] tag, else it is\n"
    "guessed from the text. Put -- before texts that begin with -.\n"
    "\n"
    "Options:\n"
    "  -t, --type T        datatype by code or name (64, CT_REAL, real,\n"
    "                      date-time)\n"
    "  -p, --property P    property by name or number: its enumeration names\n"
    "                      are read and printed, its list rules apply\n"
    "  -n, --numbers       print enumerations, object types and booleans as\n"
    "                      numbers\n"
    "  -P, --prefix 0|1|2  datatype tag before the value: none, primitive\n"
    "                      values only, every value\n"
    "  -d, --dump          also show the record (type, count, size) and the\n"
    "                      payload bytes in hex\n"
    "  -h, --help          show this help\n"
    "\n"
    "Exit status: 0 all texts scanned, 1 some text failed, 2 usage error.\n",
    RunScan};

}  // namespace bacfmt::tool
