// The release of what a security key set owns: its key identifiers.
#ifndef BACFMT_CONSTRUCTED_NETWORK_SECURITY_H
#define BACFMT_CONSTRUCTED_NETWORK_SECURITY_H

#include <cstdint>

namespace bacfmt {

void ReleaseSecurityKeySets(void *sets, uint32_t count);

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_NETWORK_SECURITY_H
