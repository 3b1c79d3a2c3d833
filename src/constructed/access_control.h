// Element converters of the access control values, for the two-pass
// scanners and the array scanners, and the release of a factor's octets.
#ifndef BACFMT_CONSTRUCTED_ACCESS_CONTROL_H
#define BACFMT_CONSTRUCTED_ACCESS_CONTROL_H

#include <bacfmt/contents.h>

#include "constructed/nested_frame.h"

namespace bacfmt {

// "type,class,0xoctets": the octets held by the element; returns the bytes
// they add, or a negative code.
int ReadAuthenticationFactor(char *text, BACnetAuthenticationFactor &factor, NestedParts &parts);
int ReadFactorFormat(char *const (&part)[3], BACnetAuthenticationFactorFormat &format);
int ReadAssignedAccessRights(char *const (&part)[2], BACnetAssignedAccessRights &rights);
int ReadAccessRule(char *const (&part)[5], BACnetAccessRule &rule);
int ReadPortPermission(char *const (&part)[2], BACnetPortPermission &permission);

// "(entries),order enforced,timeout": the entries in an array of their own.
int ReadPolicyParts(char *const (&part)[3], BACnetAuthenticationPolicy &policy, NestedParts &parts);

void ReleaseAuthenticationFactors(void *factors, uint32_t count);
void ReleaseCredentialAuthenticationFactors(void *factors, uint32_t count);
void ReleaseAuthenticationPolicies(void *policies, uint32_t count);

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_ACCESS_CONTROL_H
