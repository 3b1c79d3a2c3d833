// Access control values:
//   authentication factor format  "(" format type "," vendor|- "," vendor format|- ")"
//   authentication factor         "(" format type "," format class "," octets ")"
//   assigned access rights        "(" (device|-,access rights object) "," enabled ")"
//   access rule                   "(" time range specifier "," time range|- ","
//                                 location specifier "," location|- "," enabled ")"
//   port permission               "(" port "," enabled ")"
// A specifier 0 is "specified" by the reference that follows; 1 is
// "always" (any time) or "all" (any location), with "-" for the reference.
#include <cstdlib>
#include <cstring>

#include <bacfmt/print.h>
#include <bacfmt/scan.h>

#include "constructed/access_control.h"
#include "constructed/fields.h"
#include "constructed/list_printers.h"
#include "constructed/tuples.h"
#include "datatypes/release.h"
#include "print/writer.h"
#include "scan/lexical.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

constexpr uint32_t kSpecified = 0;

int PutOptionalNumber(Writer &out, const char *before, uint32_t number) {
    if (number == BACNET_ABSENT_U32) return out.Format("%s-", before);
    return out.Format("%s%u", before, number);
}

// The octets of a factor, held by the element: in single-block mode at the
// tail, else in a block of their own.
int ReadFactorParts(char *const (&part)[3], BACnetAuthenticationFactor &factor, NestedParts &parts) {
    int result = ReadNumberField(part[0], factor.formatType);
    if (result < 0 || (result = ReadNumberField(part[1], factor.formatClass)) < 0) return result;
    return parts.InlineElement(CT_OCTET_STRING, part[2], &factor.value, sizeof factor.value);
}

// "((device|-,object),index)" entries of a policy.
int ScanPolicyEntries(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanTuples<BACnetAuthenticationPolicyEntry, 2>(
        text, payload, count, sizeOnly, LastIsPlain<2>,
        [](char *const (&part)[2], BACnetAuthenticationPolicyEntry &entry) {
            const int result = ScanOneElement(BACnetSScanDevObjReference, part[0], entry.credentialDataInput);
            return result < 0 ? result : ReadNumberField(part[1], entry.index);
        });
}

}  // namespace

int ReadAuthenticationFactor(char *text, BACnetAuthenticationFactor &factor, NestedParts &parts) {
    char *part[3];
    if (!SplitParts(text, part)) return kSyntaxError;
    return ReadFactorParts(part, factor, parts);
}

int ReadFactorFormat(char *const (&part)[3], BACnetAuthenticationFactorFormat &format) {
    int result = ReadNumberField(part[0], format.formatType);
    if (result < 0 || (result = ReadOptionalNumberField(part[1], format.vendorId)) < 0) return result;
    return ReadOptionalNumberField(part[2], format.vendorFormat);
}

int ReadAssignedAccessRights(char *const (&part)[2], BACnetAssignedAccessRights &rights) {
    const int result = ScanOneElement(BACnetSScanDevObjReference, part[0], rights.accessRights);
    return result < 0 ? result : ReadBooleanField(part[1], rights.enable);
}

int ReadAccessRule(char *const (&part)[5], BACnetAccessRule &rule) {
    int result = ReadNumberField(part[0], rule.timeRangeSpecifier);
    if (result < 0) return result;
    rule.timeRange = BACnetDevObjPropReference{};
    if (rule.timeRangeSpecifier == kSpecified &&
        (result = ScanOneElement(BACnetSScanDevObjPropReference, part[1], rule.timeRange)) < 0)
        return result;
    if ((result = ReadNumberField(part[2], rule.locationSpecifier)) < 0) return result;
    rule.location = BACnetDevObjReference{};
    if (rule.locationSpecifier == kSpecified &&
        (result = ScanOneElement(BACnetSScanDevObjReference, part[3], rule.location)) < 0)
        return result;
    return ReadBooleanField(part[4], rule.enable);
}

int ReadPortPermission(char *const (&part)[2], BACnetPortPermission &permission) {
    const int result = ReadNumberField(part[0], permission.portId);
    return result < 0 ? result : ReadBooleanField(part[1], permission.enabled);
}

int ReadPolicyParts(char *const (&part)[3], BACnetAuthenticationPolicy &policy, NestedParts &parts) {
    policy.entries = nullptr;
    policy.count = 0;
    const int entries = parts.ArrayAtTail(ScanPolicyEntries, part[0], policy.entries, policy.count);
    if (entries < 0) return entries;
    int result = ReadBooleanField(part[1], policy.orderEnforced);
    if (result < 0 || (result = ReadNumberField(part[2], policy.timeout)) < 0) return result;
    return entries;
}

void ReleaseCredentialAuthenticationFactors(void *factors, uint32_t count) {
    ReleaseEach<BACnetCredentialAuthenticationFactor>(factors, count, [](BACnetCredentialAuthenticationFactor &value) {
        std::free(value.factor.value.octets);
        value.factor.value.octets = nullptr;
    });
}

void ReleaseAuthenticationPolicies(void *policies, uint32_t count) {
    ReleaseEach<BACnetAuthenticationPolicy>(policies, count, [](BACnetAuthenticationPolicy &policy) {
        std::free(policy.entries);
        policy.entries = nullptr;
    });
}

void ReleaseAuthenticationFactors(void *factors, uint32_t count) {
    ReleaseEach<BACnetAuthenticationFactor>(factors, count, [](BACnetAuthenticationFactor &factor) {
        std::free(factor.value.octets);
        factor.value.octets = nullptr;
    });
}

}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSPrintAuthenticationFactorFormat(char *dst, int size,
                                                      const BACnetAuthenticationFactorFormat *value,
                                                      uint8_t /*symbolic*/) {
    Writer out(dst, size);
    return out.Sequence([&] { return out.Format("%s%u", LBraceString, value->formatType); },
                        [&] { return PutOptionalNumber(out, ",", value->vendorId); },
                        [&] { return PutOptionalNumber(out, ",", value->vendorFormat); },
                        [&] { return out.Text(RBraceString); });
}

extern "C" int BACnetSPrintAuthenticationFactor(char *dst, int size, const BACnetAuthenticationFactor *value,
                                                uint8_t /*symbolic*/) {
    Writer out(dst, size);
    return out.Sequence([&] { return out.Format("%s%u,%u,", LBraceString, value->formatType, value->formatClass); },
                        [&] { return out.Put(BACnetSPrintOctetString, &value->value); },
                        [&] { return out.Text(RBraceString); });
}

extern "C" int BACnetSPrintCredentialAuthenticationFactor(char *dst, int size,
                                                          const BACnetCredentialAuthenticationFactor *value,
                                                          uint8_t symbolic) {
    Writer out(dst, size);
    return out.Sequence([&] { return out.Format("%s%u,", LBraceString, value->disable); },
                        [&] { return out.Put(BACnetSPrintAuthenticationFactor, &value->factor, symbolic); },
                        [&] { return out.Text(RBraceString); });
}

extern "C" int BACnetSPrintAuthenticationPolicy(char *dst, int size, const BACnetAuthenticationPolicy *value,
                                                uint8_t symbolic) {
    Writer out(dst, size);
    auto entries = [&] {
        return PrintEach(out, value->entries, value->count, [&](const BACnetAuthenticationPolicyEntry &entry) {
            return out.Sequence([&] { return out.Text(LBraceString); },
                                [&] { return out.Put(BACnetSPrintDevObjReference, &entry.credentialDataInput, int{symbolic}); },
                                [&] { return out.Format(",%u%s", entry.index, RBraceString); });
        });
    };
    return out.Sequence([&] { return out.Format("%s%s", LBraceString, LBraceString); }, entries,
                        [&] { return out.Format("%s,", RBraceString); },
                        [&] { return out.Put(BACnetSPrintBoolean, value->orderEnforced, uint8_t{1}); },
                        [&] { return out.Format(",%u%s", value->timeout, RBraceString); });
}

extern "C" int BACnetSPrintAssignedAccessRights(char *dst, int size, const BACnetAssignedAccessRights *value,
                                                uint8_t symbolic) {
    Writer out(dst, size);
    return out.Sequence([&] { return out.Text(LBraceString); },
                        [&] { return out.Put(BACnetSPrintDevObjReference, &value->accessRights, int{symbolic}); },
                        [&] { return out.Text(CommaString); },
                        [&] { return out.Put(BACnetSPrintBoolean, value->enable, uint8_t{1}); },
                        [&] { return out.Text(RBraceString); });
}

extern "C" int BACnetSPrintAccessRule(char *dst, int size, const BACnetAccessRule *value, uint8_t symbolic) {
    Writer out(dst, size);
    const bool timed = value->timeRangeSpecifier == kSpecified;
    const bool located = value->locationSpecifier == kSpecified;
    return out.Sequence(
        [&] { return out.Format("%s%u,", LBraceString, value->timeRangeSpecifier); },
        [&] { return timed ? out.Put(BACnetSPrintDevObjPropReference, &value->timeRange, int{symbolic}) : out.Text(HyphenString); },
        [&] { return out.Format(",%u,", value->locationSpecifier); },
        [&] { return located ? out.Put(BACnetSPrintDevObjReference, &value->location, int{symbolic}) : out.Text(HyphenString); },
        [&] { return out.Text(CommaString); },
        [&] { return out.Put(BACnetSPrintBoolean, value->enable, uint8_t{1}); },
        [&] { return out.Text(RBraceString); });
}

extern "C" int BACnetSPrintPortPermission(char *dst, int size, const BACnetPortPermission *value,
                                          uint8_t /*symbolic*/) {
    Writer out(dst, size);
    return out.Sequence([&] { return out.Format("%s%u,", LBraceString, value->portId); },
                        [&] { return out.Put(BACnetSPrintBoolean, value->enabled, uint8_t{1}); },
                        [&] { return out.Text(RBraceString); });
}

extern "C" int BACnetSScanAuthenticationFactorFormat(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanTuples<BACnetAuthenticationFactorFormat, 3>(text, payload, count, sizeOnly, LastIsPlain<3>,
                                                           ReadFactorFormat);
}

extern "C" int BACnetSScanAssignedAccessRights(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanTuples<BACnetAssignedAccessRights, 2>(text, payload, count, sizeOnly, LastIsPlain<2>,
                                                     ReadAssignedAccessRights);
}

extern "C" int BACnetSScanAccessRule(char *text, void **payload, int32_t *count, int32_t sizeOnly) {
    return ScanTuples<BACnetAccessRule, 5>(text, payload, count, sizeOnly, LastIsPlain<5>, ReadAccessRule);
}

extern "C" int BACnetSScanPortPermission(char *text, void **payload, int32_t /*separateLists*/, int32_t *count,
                                         int32_t sizeOnly) {
    return ScanTuples<BACnetPortPermission, 2>(text, payload, count, sizeOnly, LastIsPlain<2>, ReadPortPermission);
}

// One factor, three fields with the octets last, or a list of them.
extern "C" int BACnetSScanAuthenticationFactor(char *text, void **payload, int32_t separateLists, void **tail,
                                               int32_t *count, int32_t sizeOnly) {
    return ScanNestedTuples<BACnetAuthenticationFactor, 3>(text, payload, separateLists, tail, count, sizeOnly,
                                                           LastIsPlain<3>, ReadFactorParts);
}

extern "C" int BACnetSScanCredentialAuthenticationFactor(char *text, void **payload, int32_t separateLists,
                                                         void **tail, int32_t *count, int32_t sizeOnly) {
    return ScanNestedTuples<BACnetCredentialAuthenticationFactor, 2>(
        text, payload, separateLists, tail, count, sizeOnly, FirstIsPlain<2>,
        [](char *const (&part)[2], BACnetCredentialAuthenticationFactor &value, NestedParts &parts) {
            const int result = ReadNumberField(part[0], value.disable);
            return result < 0 ? result : ReadAuthenticationFactor(part[1], value.factor, parts);
        });
}

extern "C" int BACnetSScanAuthenticationPolicy(char *text, void **payload, int32_t separateLists, void **tail,
                                               int32_t *count, int32_t sizeOnly) {
    return ScanNestedTuples<BACnetAuthenticationPolicy, 3>(text, payload, separateLists, tail, count, sizeOnly,
                                                           LastIsPlain<3>, ReadPolicyParts);
}
