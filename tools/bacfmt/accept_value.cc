#include "accept_value.h"

#include <utility>

#include <bacfmt/bacfmt.h>

#include "element_checks.h"
#include "scan_words.h"
#include "text_checks.h"

namespace bacfmt::tool {
namespace {

// The value printed as asked, or nothing when it does not print whole.
std::optional<std::string> Render(const BACnetContents &record, const PrintRequest &print,
                                  bool quoteSingleString) {
    if (quoteSingleString && record.type == CT_CHARACTER_STRING && record.count == 1) {
        return PrintQuotedString(*static_cast<const BACnetCharString *>(record.data));
    }
    PrintedValue printed = PrintValue(record, print);
    if (printed.code < 0) return std::nullopt;
    return std::move(printed.text);
}

ValueProblem DoesNotPrint() { return ValueProblem{ScanCodeWords(kPrintFailed), std::nullopt}; }

}  // namespace

std::variant<AcceptedValue, ValueProblem> AcceptValue(std::string_view text,
                                                      const AcceptRequest &request) {
    if (const auto bad = FindBadByte(text)) return ValueProblem{bad->what, bad->offset};

    ScannedValue value = ScanValue(text, request.scan);
    if (!value.ok()) return ValueProblem{ScanCodeWords(value.code), std::nullopt};
    const uint32_t datatype = value.record().type;

    const auto printed = Render(value.record(), request.print, request.quoteSingleString);
    if (!printed) return DoesNotPrint();
    // The element checks compare with the value's names, and the printed
    // form is read back by its datatype: both want the plain symbolic form
    // unless the output is that already (a tag before a value read without
    // a hint is read, and fine).
    const bool plain = request.print.symbolic &&
                       (request.print.prefixMode == 0 || request.scan.hint == kNoHint);
    const auto canonical = plain ? printed
                                 : Render(value.record(), PrintRequest{request.print.property, true, 0},
                                          request.quoteSingleString);
    const auto numeric = ChecksByShape(datatype)
                             ? Render(value.record(), PrintRequest{request.print.property, false, 0}, false)
                             : std::optional<std::string>("");
    if (!canonical || !numeric) return DoesNotPrint();

    if (const auto wrong = CheckElements(text, datatype, request.scan.hint, {*canonical, *numeric})) {
        return ValueProblem{wrong->what, wrong->offset};
    }
    // Some values have no written form that reads back as the same value
    // (a string holding both quote kinds, a real with more digits than the
    // six decimals keep): refuse them rather than write a file that drifts.
    const ScanRequest again{datatype, request.scan.expectedCount, request.scan.hint};
    if (!ReadsBackTheSame(value, *canonical, again)) {
        return ValueProblem{"value does not read back as written", std::nullopt};
    }
    return AcceptedValue{std::move(value), *printed};
}

}  // namespace bacfmt::tool
