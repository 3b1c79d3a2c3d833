// Network security values:
//   VT session               "(" local session "," remote session "," (network,0xMAC) ")"
//   network security policy  "(" port "," security level ")"
//   key identifier           "(" algorithm "," key ")"
#include <cstring>

#include <bacfmt/print.h>
#include <bacfmt/scan.h>

#include "constructed/fields.h"
#include "constructed/recipients.h"
#include "constructed/tuples.h"
#include "print/writer.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

int ReadVtSession(char *const (&part)[3], BACnetVtSession &session) {
    int result = ReadNumberField(part[0], session.localSessionId);
    if (result < 0 || (result = ReadNumberField(part[1], session.remoteSessionId)) < 0) return result;
    return ReadAddress(part[2], session.remoteAddress);
}

int ReadNumberPair(char *const (&part)[2], uint32_t &first, uint32_t &second) {
    const int result = ReadNumberField(part[0], first);
    return result < 0 ? result : ReadNumberField(part[1], second);
}

}  // namespace
}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSPrintVtSession(char *dst, int size, const BACnetVtSession *value, uint8_t /*symbolic*/) {
    Writer out(dst, size);
    return out.Sequence(
        [&] { return out.Format("%s%u,%u,", LBraceString, value->localSessionId, value->remoteSessionId); },
        [&] { return out.Put(BACnetSPrintAddress, &value->remoteAddress); },
        [&] { return out.Text(RBraceString); });
}

extern "C" int BACnetSPrintNetworkSecurityPolicy(char *dst, int size, const BACnetNetworkSecurityPolicy *value,
                                                 uint8_t /*symbolic*/) {
    Writer out(dst, size);
    return out.Format("%s%u,%u%s", LBraceString, value->portId, value->securityLevel, RBraceString);
}

extern "C" int BACnetSPrintKeyIdentifier(char *dst, int size, const BACnetKeyIdentifier *value,
                                         uint8_t /*symbolic*/) {
    Writer out(dst, size);
    return out.Format("%s%u,%u%s", LBraceString, value->algorithm, value->keyId, RBraceString);
}

// A session is told from a list by its first field, a plain number (a
// list's first element holds commas).
extern "C" int BACnetSScanVtSession(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanTuples<BACnetVtSession, 3>(
        text, payload, count, sizeOnly,
        [](char *const (&part)[3], const char *) { return part[0] != nullptr && std::strchr(part[0], ',') == nullptr; },
        ReadVtSession);
}

extern "C" int BACnetSScanNetworkSecurityPolicy(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanTuples<BACnetNetworkSecurityPolicy, 2>(
        text, payload, count, sizeOnly, LastIsPlain<2>,
        [](char *const (&part)[2], BACnetNetworkSecurityPolicy &policy) {
            return ReadNumberPair(part, policy.portId, policy.securityLevel);
        });
}

extern "C" int BACnetSScanKeyIdentifier(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanTuples<BACnetKeyIdentifier, 2>(text, payload, count, sizeOnly, LastIsPlain<2>,
                                              [](char *const (&part)[2], BACnetKeyIdentifier &key) {
                                                  return ReadNumberPair(part, key.algorithm, key.keyId);
                                              });
}
