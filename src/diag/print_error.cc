// The full diagnostic of a service outcome: the status text and, for a
// BACnet error, reject or abort that came with a record, the numbers and
// texts from that record. One form writes into a caller's buffer, the other
// sends the same lines to the stack's log.
#include <cstdio>
#include <cstring>

#include <bacfmt/diag.h>
#include <bacfmt/enumtext.h>

namespace {

// The detail lines, shared by both forms so that they cannot drift apart.
constexpr char kRejectHeader[] = "BACnet Reject Reason %d:\n";
constexpr char kAbortHeader[] = "BACnet Abort Reason %d:\n";
constexpr char kErrorHeader[] = "BACnet Error Class, Code %d, %d:\n";
constexpr char kTextLine[] = "%s\n";
constexpr char kClassAndCodeLine[] = "%s, %s\n";

// The log form names the status on a line of its own.
constexpr char kStatusHeader[] = "BACnet Status Code %d:\n";

// Numbers print as signed, as they always have: a huge reason reads negative.
int AsPrinted(uint32_t value) { return static_cast<int>(value); }

}  // namespace

// The appends after the status text are not checked against `size`: the
// caller gives room for the longest diagnostic. Only the status text is
// dropped when it does not fit, and then without even a terminator.
extern "C" unsigned BACnetSPrintError(char *dst, unsigned size, unsigned status,
                                      const BACnetErrorInfo *e) {
    const char *statusText = BACnetStatusString(status);
    const size_t statusLength = std::strlen(statusText);
    unsigned count = 0;
    if (statusLength + 2 < size) {
        std::memcpy(dst, statusText, statusLength);
        std::memcpy(dst + statusLength, ": ", 3);
        count = static_cast<unsigned>(statusLength + 2);
    }
    if (e == nullptr) return count;

    auto append = [&](int written) {
        if (written > 0) count += static_cast<unsigned>(written);
    };
    switch (status) {
    case BACNET_STATUS_REJECT:
        append(std::sprintf(dst + count, kRejectHeader, AsPrinted(e->errorClass)));
        append(std::sprintf(dst + count, kTextLine, BACnetRejectReasonString(e)));
        break;
    case BACNET_STATUS_ABORT:
        append(std::sprintf(dst + count, kAbortHeader, AsPrinted(e->errorClass)));
        append(std::sprintf(dst + count, kTextLine, BACnetAbortReasonString(e)));
        break;
    case BACNET_STATUS_ERROR:
        append(std::sprintf(dst + count, kErrorHeader, AsPrinted(e->errorClass),
                            AsPrinted(e->errorCode)));
        append(std::sprintf(dst + count, kClassAndCodeLine, BACnetErrorClassString(e),
                            BACnetErrorCodeString(e)));
        break;
    default:
        break;
    }
    return count;
}

extern "C" int BACnetPrintError(unsigned status, const BACnetErrorInfo *e,
                                const void * /*ignored*/) {
    PAppPrint(0, kStatusHeader, AsPrinted(status));
    int result = PAppPrint(0, kTextLine, BACnetStatusString(status));
    if (e == nullptr) return result;

    switch (status) {
    case BACNET_STATUS_REJECT:
        PAppPrint(0, kRejectHeader, AsPrinted(e->errorClass));
        result = PAppPrint(0, kTextLine, BACnetRejectReasonString(e));
        break;
    case BACNET_STATUS_ABORT:
        PAppPrint(0, kAbortHeader, AsPrinted(e->errorClass));
        result = PAppPrint(0, kTextLine, BACnetAbortReasonString(e));
        break;
    case BACNET_STATUS_ERROR:
        PAppPrint(0, kErrorHeader, AsPrinted(e->errorClass), AsPrinted(e->errorCode));
        result = PAppPrint(0, kClassAndCodeLine, BACnetErrorClassString(e),
                           BACnetErrorCodeString(e));
        break;
    default:
        break;
    }
    return result;
}
