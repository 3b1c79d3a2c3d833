// Network security values:
//   VT session               "(" local session "," remote session "," (network,0xMAC) ")"
//   network security policy  "(" port "," security level ")"
//   key identifier           "(" algorithm "," key ")"
#include <cstdlib>
#include <cstring>

#include <bacfmt/print.h>
#include <bacfmt/scan.h>

#include "constructed/fields.h"
#include "constructed/list_printers.h"
#include "constructed/network_security.h"
#include "datatypes/release.h"
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

int ReadSessionKey(char *const (&part)[2], BACnetSessionKey &key) {
    const int result = ReadOctetField(part[0], key.key, sizeof key.key, key.keyLength);
    return result < 0 ? result : ReadAddress(part[1], key.peer);
}

int ReadKeySetParts(char *const (&part)[4], BACnetSecurityKeySet &set, NestedParts &parts) {
    set.keyIds = nullptr;
    set.count = 0;
    if (!parts.sizing()) {
        int result = ReadNumberField(part[0], set.revision);
        if (result < 0 || (result = ScanOneElement(BACnetSScanDateTime, part[1], set.activation)) < 0 ||
            (result = ScanOneElement(BACnetSScanDateTime, part[2], set.expiration)) < 0)
            return result;
    }
    if (part[3][0] == '\0') return 0;  // no keys
    return parts.ArrayAtTail(BACnetSScanKeyIdentifier, part[3], set.keyIds, set.count);
}

}  // namespace

void ReleaseSecurityKeySets(void *sets, uint32_t count) {
    ReleaseEach<BACnetSecurityKeySet>(sets, count, [](BACnetSecurityKeySet &set) {
        std::free(set.keyIds);
        set.keyIds = nullptr;
    });
}

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

extern "C" int BACnetSPrintSessionKey(char *dst, int size, const BACnetSessionKey *value, uint8_t /*symbolic*/) {
    Writer out(dst, size);
    return out.Sequence([&] { return out.Text(LBraceString); },
                        [&] { return out.Put(BACnetSPrintHex, value->key, uint32_t{value->keyLength}); },
                        [&] { return out.Text(CommaString); },
                        [&] { return out.Put(BACnetSPrintAddress, &value->peer); },
                        [&] { return out.Text(RBraceString); });
}

extern "C" int BACnetSPrintSecurityKeySet(char *dst, int size, const BACnetSecurityKeySet *value,
                                          uint8_t symbolic) {
    Writer out(dst, size);
    return out.Sequence(
        [&] { return out.Format("%s%u,", LBraceString, value->revision); },
        [&] { return out.Put(BACnetSPrintDateTime, &value->activation); },
        [&] { return out.Text(CommaString); },
        [&] { return out.Put(BACnetSPrintDateTime, &value->expiration); },
        [&] { return out.Format(",%s", LBraceString); },
        [&] {
            return PrintEach(out, value->keyIds, value->count, [&](const BACnetKeyIdentifier &key) {
                return out.Put(BACnetSPrintKeyIdentifier, &key, symbolic);
            });
        },
        [&] { return out.Format("%s%s", RBraceString, RBraceString); });
}

extern "C" int BACnetSScanSessionKey(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanTuples<BACnetSessionKey, 2>(text, payload, count, sizeOnly, FirstIsPlain<2>, ReadSessionKey);
}

extern "C" int BACnetSScanSecurityKeySet(char *text, void **payload, int32_t separateLists, void **tail,
                                         int32_t *count, int32_t sizeOnly) {
    return ScanNestedTuples<BACnetSecurityKeySet, 4>(text, payload, separateLists, tail, count, sizeOnly,
                                                     FirstIsPlain<4>, ReadKeySetParts);
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
