// bacfmt units, status, error, abort, reject: the texts of the unit and
// diagnostics tables, one lookup or the whole table.
#include <cstdio>
#include <string>

#include <bacfmt/bacfmt.h>

#include "commands.h"
#include "names.h"

namespace bacfmt::tool {
namespace {

// The numbers each table is listed over. Status codes have gaps: those
// answered with the text of an unused code are left out of the listing.
constexpr uint32_t kLastUnit = 141;
constexpr uint32_t kLastStatus = 255;
constexpr uint32_t kLastErrorClass = 7;
constexpr uint32_t kLastErrorCode = 136;
constexpr uint32_t kLastAbortReason = 4;
constexpr uint32_t kLastRejectReason = 9;
constexpr uint32_t kUnusedStatus = 0xFFFFFFFFu;
constexpr uint32_t kUnitsTable = 117;  // the units property names the units

// The diagnostics texts take a record whose second word is the class or
// reason and whose third is the error code.
BACnetErrorInfo ErrorRecord(uint32_t classOrReason, uint32_t code = 0) {
    return BACnetErrorInfo{0, classOrReason, code};
}

const char *ErrorClassText(uint32_t n) {
    const BACnetErrorInfo e = ErrorRecord(n);
    return BACnetErrorClassString(&e);
}
const char *ErrorCodeText(uint32_t n) {
    const BACnetErrorInfo e = ErrorRecord(0, n);
    return BACnetErrorCodeString(&e);
}
const char *AbortText(uint32_t n) {
    const BACnetErrorInfo e = ErrorRecord(n);
    return BACnetAbortReasonString(&e);
}
const char *RejectText(uint32_t n) {
    const BACnetErrorInfo e = ErrorRecord(n);
    return BACnetRejectReasonString(&e);
}
const char *StatusText(uint32_t n) { return BACnetStatusString(n); }

// Rows "N<TAB>text", or "LABEL<TAB>N<TAB>text" when a label is given.
void ListTexts(const char *(*text)(uint32_t), uint32_t last, const char *label = nullptr,
               const char *skip = nullptr) {
    for (uint32_t n = 0; n <= last; ++n) {
        const char *t = text(n);
        if (skip != nullptr && std::string(t) == skip) continue;
        if (label != nullptr) std::printf("%s\t", label);
        std::printf("%u\t%s\n", n, t);
    }
}

// Reads the operand `text` as a number; a usage error otherwise.
std::optional<uint32_t> NumberOperand(const Command &self, const std::string &what,
                                      const std::string &text, int &status) {
    const auto number = ParseNumber(text);
    if (!number) status = UsageError(self.name, "invalid " + what + " '" + text + "'");
    return number;
}

// The shared frame of the one-number tables: no operand lists the table,
// one operand prints its text.
int RunTextTable(const Command &self, int argc, char **argv, const char *what,
                 const char *(*text)(uint32_t), uint32_t last, const char *skip = nullptr) {
    int status = kExitOk;
    const auto operands = OperandsOnly(self, argc, argv, status);
    if (!operands) return status;
    if (operands->empty()) {
        ListTexts(text, last, nullptr, skip);
        return kExitOk;
    }
    if (operands->size() > 1) return UsageError(self.name, "too many arguments");
    const auto n = NumberOperand(self, what, operands->front(), status);
    if (!n) return status;
    std::printf("%s\n", text(*n));
    return kExitOk;
}

int RunStatus(const Command &self, int argc, char **argv) {
    return RunTextTable(self, argc, argv, "status code", StatusText, kLastStatus,
                        StatusText(kUnusedStatus));
}
int RunAbort(const Command &self, int argc, char **argv) {
    return RunTextTable(self, argc, argv, "abort reason", AbortText, kLastAbortReason);
}
int RunReject(const Command &self, int argc, char **argv) {
    return RunTextTable(self, argc, argv, "reject reason", RejectText, kLastRejectReason);
}

int RunError(const Command &self, int argc, char **argv) {
    int status = kExitOk;
    const auto operands = OperandsOnly(self, argc, argv, status);
    if (!operands) return status;
    if (operands->empty()) {
        ListTexts(ErrorClassText, kLastErrorClass, "class");
        ListTexts(ErrorCodeText, kLastErrorCode, "code");
        return kExitOk;
    }
    if (operands->size() != 2) return UsageError(self.name, "give both CLASS and CODE");
    const auto errorClass = NumberOperand(self, "error class", (*operands)[0], status);
    if (!errorClass) return status;
    const auto errorCode = NumberOperand(self, "error code", (*operands)[1], status);
    if (!errorCode) return status;
    // The same "class, code" line the library's own diagnostics write.
    std::printf("%s, %s\n", ErrorClassText(*errorClass), ErrorCodeText(*errorCode));
    return kExitOk;
}

// Units list as "N<TAB>symbol<TAB>name"; one unit, by number or name,
// prints its symbol.
int RunUnits(const Command &self, int argc, char **argv) {
    int status = kExitOk;
    const auto operands = OperandsOnly(self, argc, argv, status);
    if (!operands) return status;
    if (operands->empty()) {
        for (uint32_t n = 0; n <= kLastUnit; ++n) {
            std::printf("%u\t%s\t%s\n", n, BACnetUnit2IsoUnitString(n),
                        BACnetEnumString(n, BACNET_ENUM_ANY_OBJECT, kUnitsTable));
        }
        return kExitOk;
    }
    if (operands->size() > 1) return UsageError(self.name, "too many arguments");
    const auto unit = EnumValueFromText(operands->front(), kUnitsTable);
    if (!unit) return UsageError(self.name, "unknown unit '" + operands->front() + "'");
    std::printf("%s\n", BACnetUnit2IsoUnitString(*unit));
    return kExitOk;
}

}  // namespace

const Command kUnitsCommand{
    "units", "symbols of engineering units",
    "Usage: bacfmt units [UNIT]\n"
    "\n"
    "Prints the symbol of UNIT (a number or a name such as degrees-celsius),\n"
    "or, without UNIT, every unit as NUMBER<TAB>SYMBOL<TAB>NAME.\n"
    "\n"
    "Options:\n"
    "  -h, --help   show this help\n",
    RunUnits};

const Command kStatusCommand{
    "status", "texts of the stack's status codes",
    "Usage: bacfmt status [CODE]\n"
    "\n"
    "Prints the text of status CODE, or, without CODE, every status code in\n"
    "use as CODE<TAB>TEXT.\n"
    "\n"
    "Options:\n"
    "  -h, --help   show this help\n",
    RunStatus};

const Command kErrorCommand{
    "error", "texts of BACnet error classes and codes",
    "Usage: bacfmt error [CLASS CODE]\n"
    "\n"
    "Prints \"class text, code text\" for an error, or, without arguments,\n"
    "the classes as class<TAB>N<TAB>TEXT and the codes as code<TAB>N<TAB>TEXT.\n"
    "\n"
    "Options:\n"
    "  -h, --help   show this help\n",
    RunError};

const Command kAbortCommand{
    "abort", "texts of BACnet abort reasons",
    "Usage: bacfmt abort [REASON]\n"
    "\n"
    "Prints the text of abort REASON, or, without REASON, every reason as\n"
    "N<TAB>TEXT.\n"
    "\n"
    "Options:\n"
    "  -h, --help   show this help\n",
    RunAbort};

const Command kRejectCommand{
    "reject", "texts of BACnet reject reasons",
    "Usage: bacfmt reject [REASON]\n"
    "\n"
    "Prints the text of reject REASON, or, without REASON, every reason as\n"
    "N<TAB>TEXT.\n"
    "\n"
    "Options:\n"
    "  -h, --help   show this help\n",
    RunReject};

}  // namespace bacfmt::tool
