// Summaries of single service requests for traces: which object, property,
// range or file part a request touches, and the values of a COV
// notification. The write position is an 8-bit counter (summary_writer.h);
// the pieces that have always been written without looking at the room
// still are, as service.h tells the caller.
#include <algorithm>
#include <cstdio>

#include <bacfmt/enumtext.h>
#include <bacfmt/print.h>
#include <bacfmt/service.h>

#include "diag/summary_writer.h"

namespace bacfmt {
namespace {

// Up to this capacity an object identifier is not written at all; above
// it, it is written whole however long the type's name is.
constexpr int kObjectIdThreshold = 25;
constexpr int kAddressHeaderLength = 5;  // "NNNN,"
constexpr int kMacOctetBytes = 3;        // two digits and a terminator

// The value index of a COV notification is an 8-bit counter: past the
// 256th value it would start over at the first, so the values end there.
constexpr uint32_t kMaxNotifiedValues = 256;

int AsPrinted(uint32_t value) { return static_cast<int>(value); }

// The head that the read, write and read-range summaries share: "Obj:"
// (written even when there is no room for it), the object, and the
// property with its index; false when the position reached the end before
// the property.
template <typename Request>
bool WriteObjectAndProperty(ShortSummary &out, const Request &r, bool trailingComma) {
    out.Copy("Obj:");
    if (out.Reached()) return false;
    out.Put(SPrintObjectId, &r.object);
    if (out.Reached()) return false;
    const char *name = BACnetPropIDString(r.propertyId);
    if (trailingComma)
        out.Append(",Prop:%s,Idx %d,", name, r.arrayIndex);
    else
        out.Append(",Prop:%s,Idx %d", name, r.arrayIndex);
    return true;
}

// The access part of a file summary, written whole (no capacity check).
int WriteFileAccess(char *dst, int size, const ObjectIdInfo &file, uint32_t accessKind,
                    int32_t start, uint32_t count) {
    ShortSummary out(dst, size);
    out.Put(SPrintObjectId, &file);
    if (out.Reached()) return out.position();
    if (accessKind != BACNET_FILE_ACCESS_STREAM) {
        out.Copy(",accesstype:RECORD,");
        out.Write("startrecord:%d,count:%u", start, count);
    } else {
        out.Copy(",accesstype:STREAM,");
        out.Write("startpos:%d,length:%u", start, count);
    }
    return out.position();
}

}  // namespace
}  // namespace bacfmt

using namespace bacfmt;

extern "C" int SPrintObjectId(char *dst, int size, const ObjectIdInfo *r) {
    if (size <= kObjectIdThreshold) return 0;
    return static_cast<uint8_t>(
        std::sprintf(dst, "(%s,%d)", BACnetObjTypeString(r->type), AsPrinted(r->instance)));
}

extern "C" int SPrintAddress(char *dst, int size, const AddressInfo *r) {
    if (dst == nullptr || r == nullptr || size < kAddressHeaderLength) return 0;
    ShortSummary out(dst, size);
    out.Write("%04X,", r->network);
    // A length above 8 prints the 8 octets the record holds.
    const uint8_t length = std::min<uint8_t>(r->macLength, sizeof r->mac);
    for (uint8_t i = 0; i < length && !out.Reached(); ++i) {
        // An octet without room for its digits and terminator voids the
        // whole address, although the digits before it stay written.
        if (out.position() + kMacOctetBytes > size) return 0;
        out.Write("%02X", r->mac[i]);
    }
    return out.position();
}

extern "C" int SPrintDate(char *dst, int /*size*/, const BACnetDate *r) {
    return std::sprintf(dst, "%02d.%02d.%04d (%d)", r->day, AsPrinted(r->month), r->year,
                        AsPrinted(r->dayOfWeek));
}

extern "C" int SPrintTime(char *dst, int /*size*/, const BACnetTime *r) {
    return std::sprintf(dst, "%02d:%02d:%02d.%02d", r->hour, r->minute, r->second, r->hundredths);
}

extern "C" int SPrintDateTime(char *dst, int size, const BACnetDateTime *r) {
    ShortSummary out(dst, size);
    out.Add(SPrintDate(dst, size, &r->date));
    if (out.Reached()) return out.position();
    out.Append(" ");
    // The time gets the whole capacity, not what is left of it.
    if (!out.Reached()) out.Add(SPrintTime(out.at(), size, &r->time));
    return out.position();
}

extern "C" int SPrintReadInfo(char *dst, int size, const ReadInfo *r) {
    ShortSummary out(dst, size);
    WriteObjectAndProperty(out, *r, false);
    return out.position();
}

extern "C" int SPrintWriteInfo(char *dst, int size, const WriteInfo *r) {
    ShortSummary out(dst, size);
    WriteObjectAndProperty(out, *r, false);
    return out.position();
}

extern "C" int SPrintReadRangeInfo(char *dst, int size, const ReadRangeInfo *r) {
    ShortSummary out(dst, size);
    if (!WriteObjectAndProperty(out, *r, true) || out.Reached())
        return out.position();
    switch (r->rangeKind) {
    case BACNET_RANGE_BY_POSITION:
        out.Append("by ref. pos. %d, count %u", r->range.byPosition.referencePosition,
                   r->range.byPosition.count);
        break;
    case BACNET_RANGE_BY_TIME:
        out.Append("by time ");
        if (out.Reached()) break;
        out.Put(SPrintDateTime, &r->range.byTime.reference);
        if (!out.Reached()) out.Append(", count %d", r->range.byTime.count);
        break;
    default:
        out.Append("No supported range");
        break;
    }
    return out.position();
}

extern "C" int SPrintCOVNotifyInfo(char *dst, int size, const COVNotifyInfo *r) {
    ShortSummary out(dst, size);
    out.Append("Proc Id:%u, Device Id:%d, Obj:", r->processId, AsPrinted(r->device.instance));
    if (out.Reached()) return out.position();
    out.Put(SPrintObjectId, &r->object);
    if (out.Reached()) return out.position();
    out.Append(", Time:%u, Values:", r->timeRemaining);
    if (out.Reached()) return out.position();
    const uint32_t count = std::min(r->valueCount, kMaxNotifiedValues);
    for (uint32_t i = 0; i < count; ++i) {
        const BACnetPropertyValue &value = r->values[i];
        // A value that does not fit counts its -2 as 254 (two back), and
        // its comma goes there.
        out.Put(BACnetSPrintContents, &value.value, value.propertyId, uint8_t{0}, uint8_t{0});
        out.Copy(",");
        if (out.Reached()) break;
    }
    return out.position();
}

extern "C" int SPrintSubsCOVInfo(char *dst, int size, const SubsCOVInfo *r) {
    ShortSummary out(dst, size);
    out.Append("ProcID: %u, Obj:", r->processId);
    if (out.Reached()) return out.position();
    out.Put(SPrintObjectId, &r->object);
    if (out.Reached()) return out.position();
    out.Append(",confirmed:%d,lifetime:%u,subscribe:%d", r->confirmed, r->lifetime, r->subscribe);
    return out.position();
}

extern "C" int SPrintReadFileInfo(char *dst, int size, const ReadFileInfo *r) {
    return WriteFileAccess(dst, size, r->file, r->accessKind, r->start, r->count);
}

extern "C" int SPrintWriteFileInfo(char *dst, int size, const WriteFileInfo *r) {
    const uint32_t count =
        r->accessKind != BACNET_FILE_ACCESS_STREAM ? r->recordCount : r->data.length;
    return WriteFileAccess(dst, size, r->file, r->accessKind, r->start, count);
}
