// Texts of BACnet error classes, error codes, abort and reject reasons, and
// the lookups that fall back to a table's "unknown" entry for numbers out of
// range and for a null record.
#include "diag/error_texts.h"

#include <cstddef>

#include <bacfmt/diag.h>

namespace bacfmt {

const char *const errorClassStrings[kErrorClassTextCount] = {
    /*  0 */ "Device",
    /*  1 */ "Object",
    /*  2 */ "Property",
    /*  3 */ "Resources",
    /*  4 */ "Security",
    /*  5 */ "Services",
    /*  6 */ "VT",
    /*  7 */ "Communication",
    /*  8 */ "Unknown error class",
};

const char *const abortReasonStrings[kAbortReasonTextCount] = {
    /*  0 */ "Other",
    /*  1 */ "Buffer overflow",
    /*  2 */ "Invalid APDU in this state",
    /*  3 */ "Preempted by higher priority task",
    /*  4 */ "Segmentation not supported",
    /*  5 */ "Unknown abort reason",
};

const char *const rejectReasonStrings[kRejectReasonTextCount] = {
    /*  0 */ "Other",
    /*  1 */ "Buffer overflow",
    /*  2 */ "Inconsistent parameters",
    /*  3 */ "Invalid parameter data type",
    /*  4 */ "Invalid tag",
    /*  5 */ "Missing required parameter",
    /*  6 */ "Parameter out of range",
    /*  7 */ "Too many arguments",
    /*  8 */ "Undefined enumeration",
    /*  9 */ "Unrecognized service",
    /* 10 */ "Unknown reject reason",
};

// Entries 0..47 are sentence-case phrases, the later ones the standard's
// hyphenated names.
const char *const errorCodeStrings[kErrorCodeTextCount] = {
    /*   0 */ "Other",
    /*   1 */ "Authentication failed",
    /*   2 */ "Configuration in progress",
    /*   3 */ "Device busy",
    /*   4 */ "Dynamic creation not supported",
    /*   5 */ "File access denied",
    /*   6 */ "Wrong security levels",
    /*   7 */ "Invalid parameters",
    /*   8 */ "Invalid selection criteria",
    /*   9 */ "Invalid data type",
    /*  10 */ "Invalid file access",
    /*  11 */ "Invalid file start position",
    /*  12 */ "Invalid operator name",
    /*  13 */ "Invalid parameter type",
    /*  14 */ "Invalid time stamp",
    /*  15 */ "Key generation error",
    /*  16 */ "Missing parameter",
    /*  17 */ "Object not found",
    /*  18 */ "No space for object",
    /*  19 */ "No space for element",
    /*  20 */ "No space to write property",
    /*  21 */ "No VT sessions available",
    /*  22 */ "Property is not a list",
    /*  23 */ "Object deletion denied",
    /*  24 */ "Object ID already exists",
    /*  25 */ "Operational problem",
    /*  26 */ "Password failure",
    /*  27 */ "Read access denied",
    /*  28 */ "Security not supported",
    /*  29 */ "Service request denied",
    /*  30 */ "Timeout",
    /*  31 */ "Unknown object",
    /*  32 */ "Unknown property",
    /*  33 */ "Reserved - 33",
    /*  34 */ "Unknown VT class",
    /*  35 */ "Unknown VT session",
    /*  36 */ "Unsupported object type",
    /*  37 */ "Value out of range",
    /*  38 */ "VT session already closed",
    /*  39 */ "VT session termination failure",
    /*  40 */ "Write access denied",
    /*  41 */ "Character set not supported",
    /*  42 */ "Invalid array index",
    /*  43 */ "COV subscription failed",
    /*  44 */ "No COV property",
    /*  45 */ "Optional function not supported",
    /*  46 */ "Invalid configuration data",
    /*  47 */ "Datatype not supported",
    /*  48 */ "duplicate-name",
    /*  49 */ "duplicate-object-id",
    /*  50 */ "property-is-not-an-array",
    /*  51 */ "abort-buffer-overflow",
    /*  52 */ "abort-invalid-apdu-in-this-state",
    /*  53 */ "abort-preempted-by-higher-priority-task",
    /*  54 */ "abort-segmentation-not-supported",
    /*  55 */ "abort-proprietary",
    /*  56 */ "abort-other",
    /*  57 */ "invalid-tag",
    /*  58 */ "network-down",
    /*  59 */ "reject-buffer-overflow",
    /*  60 */ "reject-inconsistent-parameters",
    /*  61 */ "reject-invalid-parameter-data-type",
    /*  62 */ "reject-invalid-tag",
    /*  63 */ "reject-missing-required-parameter",
    /*  64 */ "reject-parameter-out-of-range",
    /*  65 */ "reject-too-many-arguments",
    /*  66 */ "reject-undefined-enumeration",
    /*  67 */ "reject-unrecognized-service",
    /*  68 */ "reject-proprietary",
    /*  69 */ "reject-other",
    /*  70 */ "unknown-device",
    /*  71 */ "unknown-route",
    /*  72 */ "value-not-initialized",
    /*  73 */ "invalid-event-state",
    /*  74 */ "no-alarm-configured",
    /*  75 */ "log-buffer-full",
    /*  76 */ "logged-value-purged",
    /*  77 */ "no-property-specified",
    /*  78 */ "not-configured-for-triggered-logging",
    /*  79 */ "unknown-subscription",
    /*  80 */ "parameter-out-of-range",
    /*  81 */ "list-element-not-found",
    /*  82 */ "busy",
    /*  83 */ "communication-disabled",
    /*  84 */ "success",
    /*  85 */ "access-denied",
    /*  86 */ "bad-destination-address",
    /*  87 */ "bad-destination-device-id",
    /*  88 */ "bad-signature",
    /*  89 */ "bad-source-address",
    /*  90 */ "bad-timestamp",
    /*  91 */ "cannot-use-key",
    /*  92 */ "cannot-verify-message-id",
    /*  93 */ "correct-key-revision",
    /*  94 */ "destination-device-id-required",
    /*  95 */ "duplicate-message",
    /*  96 */ "encryption-not-configured",
    /*  97 */ "encryption-required",
    /*  98 */ "incorrect-key",
    /*  99 */ "invalid-key-data",
    /* 100 */ "key-update-in-progress",
    /* 101 */ "malformed-message",
    /* 102 */ "not-key-server",
    /* 103 */ "security-not-configured",
    /* 104 */ "source-security-required",
    /* 105 */ "too-many-keys",
    /* 106 */ "unknown-authentication-type",
    /* 107 */ "unknown-key",
    /* 108 */ "unknown-key-revision",
    /* 109 */ "unknown-source-message",
    /* 110 */ "not-router-to-dnet",
    /* 111 */ "router-busy",
    /* 112 */ "unknown-network-message",
    /* 113 */ "message-too-long",
    /* 114 */ "security-error",
    /* 115 */ "addressing-error",
    /* 116 */ "write-bdt-failed",
    /* 117 */ "read-bdt-failed",
    /* 118 */ "register-foreign-device-failed",
    /* 119 */ "read-fdt-failed",
    /* 120 */ "delete-fdt-entry-failed",
    /* 121 */ "distribute-broadcast-failed",
    /* 122 */ "unknown-file-size",
    /* 123 */ "abort-apdu-too-long",
    /* 124 */ "abort-application-exceeded-reply-time",
    /* 125 */ "abort-out-of-resources",
    /* 126 */ "abort-tsm-timeout",
    /* 127 */ "abort-window-size-out-of-range",
    /* 128 */ "file-full",
    /* 129 */ "inconsistent-configuration",
    /* 130 */ "inconsistent-object-type",
    /* 131 */ "internal-error",
    /* 132 */ "not-configured",
    /* 133 */ "out-of-memory",
    /* 134 */ "value-too-long",
    /* 135 */ "abort-insufficient-security",
    /* 136 */ "abort-security-error",
    /* 137 */ "Unknown error code",
};

namespace {

// table[value] for a value below `fallback`, table[fallback] otherwise.
template <size_t N>
const char *TextOrFallback(const char *const (&table)[N], const BACnetErrorInfo *e,
                           uint32_t BACnetErrorInfo::*field, uint32_t fallback) {
    if (e == nullptr) return table[fallback];
    const uint32_t value = e->*field;
    return value < fallback ? table[value] : table[fallback];
}

}  // namespace

}  // namespace bacfmt

using bacfmt::TextOrFallback;

extern "C" const char *BACnetErrorClassString(const BACnetErrorInfo *e) {
    return TextOrFallback(bacfmt::errorClassStrings, e, &BACnetErrorInfo::errorClass,
                          bacfmt::kErrorClassTextCount - 1);
}

// The fallback is entry 136, "abort-security-error", not the last entry
// "Unknown error code": an out-of-range code has always read that way and
// callers match on it, so 137 stays in the table but is never returned.
extern "C" const char *BACnetErrorCodeString(const BACnetErrorInfo *e) {
    return TextOrFallback(bacfmt::errorCodeStrings, e, &BACnetErrorInfo::errorCode,
                          bacfmt::kErrorCodeTextCount - 2);
}

// Abort and reject reasons travel in the record's second word.
extern "C" const char *BACnetAbortReasonString(const BACnetErrorInfo *e) {
    return TextOrFallback(bacfmt::abortReasonStrings, e, &BACnetErrorInfo::errorClass,
                          bacfmt::kAbortReasonTextCount - 1);
}

extern "C" const char *BACnetRejectReasonString(const BACnetErrorInfo *e) {
    return TextOrFallback(bacfmt::rejectReasonStrings, e, &BACnetErrorInfo::errorClass,
                          bacfmt::kRejectReasonTextCount - 1);
}
