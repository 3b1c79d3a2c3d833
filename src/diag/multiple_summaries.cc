// Summaries of the multiple-access requests: several lines (read) or one
// long line (write) per request, so their write position is a 16-bit
// counter (summary_writer.h).
#include <bacfmt/enumtext.h>
#include <bacfmt/print.h>
#include <bacfmt/service.h>

#include "diag/summary_writer.h"

using namespace bacfmt;

// "Obj:", ",Props:\n" and the line feed that ends a specification are
// copied whenever the position is still below the end; the property
// references are cut at the end of the buffer.
extern "C" int SPrintReadMultipleInfo(char *dst, int size, const ReadMultipleInfo *r) {
    LongSummary out(dst, size);
    for (uint32_t s = 0; s < r->specCount; ++s) {
        const ReadMultipleSpec &request = r->specifications[s];
        out.Copy("Obj:");
        if (out.Reached()) break;
        out.Put(SPrintObjectId, &request.object);
        if (out.Reached()) break;
        out.Copy(",Props:\n");
        if (out.Reached()) break;
        for (uint32_t p = 0; p < request.propertyCount; ++p) {
            const ReadMultipleProperty &property = request.properties[p];
            out.Append("(%s,Idx %d),", BACnetPropIDString(property.propertyId), property.arrayIndex);
            if (out.Reached()) return out.position();
        }
        out.Copy("\n");
        if (out.Reached()) break;
    }
    return out.position();
}

// Every piece is cut at the end of the buffer, but the values of one
// specification follow each other without a look at the position, and a
// value that does not fit steps the position back by its -2.
extern "C" int SPrintWriteMultipleInfo(char *dst, int size, const WriteMultipleInfo *r) {
    LongSummary out(dst, size);
    for (uint32_t s = 0; s < r->specCount; ++s) {
        const WriteMultipleSpec &request = r->specifications[s];
        out.Append("Obj:");
        if (out.Reached()) break;
        out.Put(SPrintObjectId, &request.object);
        if (out.Reached()) break;
        for (uint32_t v = 0; v < request.valueCount; ++v) {
            const BACnetPropertyValue &value = request.values[v];
            out.Append(",Prop:%s,Idx:%d,Value:", BACnetPropIDString(value.propertyId),
                       static_cast<int>(value.arrayIndex));
            out.Put(BACnetSPrintContents, &value.value, value.propertyId, uint8_t{0}, uint8_t{0});
        }
        if (s + 1 < r->specCount) {
            out.Append(",");
            if (out.Reached()) break;
        }
    }
    return out.position();
}
