// Releasing a record that the scanners built block by block: every row of
// the datatype table says which blocks its elements own, nested records are
// released through the same function.
#include <cstdlib>

#include <bacfmt/scan.h>

#include "datatypes/release.h"
#include "datatypes/table.h"
#include "datatypes/unaligned.h"

namespace bacfmt {

void ReleasePayload(BACnetContents &record) {
    if (record.data == nullptr) return;
    const DatatypeInfo *row = FindDatatype(record.type);
    // Element arrays carry one zeroed element behind the last, so that the
    // element a failed scan stopped at (its index is the count) is visited
    // too; on a complete array that spare element owns nothing.
    if (row != nullptr && row->release != nullptr) row->release(record.data, record.count + 1);
    std::free(record.data);
    record.data = nullptr;
}

void ReleaseEmbedded(void *recordAddress) {
    auto record = LoadUnaligned<BACnetContents>(recordAddress);
    ReleasePayload(record);
    StoreUnaligned(recordAddress, record);
}

}  // namespace bacfmt

extern "C" void BACnetFreeContentsPayload(BACnetContents *contents) {
    if (contents != nullptr) bacfmt::ReleasePayload(*contents);
}

extern "C" void BACnetFreeContents(BACnetContents *contents) {
    if (contents == nullptr) return;
    bacfmt::ReleasePayload(*contents);
    std::free(contents);
}
