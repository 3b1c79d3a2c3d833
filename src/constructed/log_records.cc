// The records of trend logs and event logs:
//   log record           "(" date-time ",[choice] " value "," flags|- ")"
//   multiple-value       "(" date-time ",[1] (" entries "))", or a status or time change
//   log data entry       "[choice] " value
//   event log record     "(" date-time ",[1] (" notification fields "))", or a status or time change
// The word each record starts with is not written.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <bacfmt/enumtext.h>
#include <bacfmt/print.h>
#include <bacfmt/scan.h>

#include "constructed/field_writer.h"
#include "constructed/fields.h"
#include "constructed/list_printers.h"
#include "constructed/log_records.h"
#include "constructed/nested_frame.h"
#include "constructed/notification.h"
#include "datatypes/release.h"
#include "print/writer.h"
#include "scan/enum_lookup.h"
#include "scan/lexical.h"
#include "scan/numbers.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

constexpr uint32_t kLogStatusKey = 131;
constexpr uint32_t kEventTypeKey = 37;
constexpr uint32_t kNotifyTypeKey = 72;
constexpr uint32_t kEventStateKey = 36;
constexpr uint32_t kNoMessage = 0xFFFFFFFFu;
constexpr uint8_t kTagged = 1;

// What a datum holds, for the choices of log records and of log data
// entries, which number them differently.
enum class Datum { LogStatus, Boolean, Real, Enumerated, Unsigned, Signed, Bits, Null, Failure, TimeChange, Any, None };
constexpr Datum kRecordData[] = {Datum::LogStatus, Datum::Boolean, Datum::Real,   Datum::Enumerated,
                                 Datum::Unsigned,  Datum::Signed,  Datum::Bits,   Datum::Null,
                                 Datum::Failure,   Datum::TimeChange, Datum::Any};
constexpr Datum kEntryData[] = {Datum::Boolean, Datum::Real, Datum::Enumerated, Datum::Unsigned, Datum::Signed,
                                Datum::Bits,    Datum::Null, Datum::Failure,    Datum::Any};

template <size_t N>
Datum DatumOf(const Datum (&table)[N], uint32_t choice) {
    return choice < N ? table[choice] : Datum::None;
}

// ---- printing ----

// The date-time printed aside, with room of its own.
struct TimeText {
    char text[50];
    int result;
    explicit TimeText(const BACnetDateTime &time) : result(BACnetSPrintDateTime(text, sizeof text, &time)) {}
};

// A datum that is written as one formatted piece with the text around it,
// or null for one that a nested printer writes.
bool FormatsInline(Datum datum) {
    return datum == Datum::Enumerated || datum == Datum::Unsigned || datum == Datum::Signed ||
           datum == Datum::Null || datum == Datum::Failure || datum == Datum::TimeChange;
}

struct DatumText {
    char text[kFixedBufferSize];
    DatumText(Datum datum, const BACnetLogDatum &value) {
        switch (datum) {
        case Datum::Enumerated:
        case Datum::Unsigned:
            std::snprintf(text, sizeof text, "%u", value.unsignedValue);
            break;
        case Datum::Signed:
            std::snprintf(text, sizeof text, "%i", value.signedValue);
            break;
        case Datum::Null:
            std::snprintf(text, sizeof text, "NULL");
            break;
        case Datum::Failure:
            std::snprintf(text, sizeof text, "%s%u,%u%s", LBraceString, value.failure.errorClass,
                          value.failure.errorCode, RBraceString);
            break;
        default:
            text[FormatFixed(text, value.real)] = '\0';
            break;
        }
    }
};

// A datum that a nested printer writes.
int PutDatum(Writer &out, Datum datum, const BACnetLogDatum &value, uint8_t names) {
    switch (datum) {
    case Datum::LogStatus:
        return out.Put(BACnetSPrintBitString, &value.bits, kLogStatusKey, names);
    case Datum::Bits:
        return out.Put(BACnetSPrintBitString, &value.bits, 0u, names);
    case Datum::Boolean:
        return out.Put(BACnetSPrintBoolean, value.boolean, names);
    case Datum::Real:
        return out.Put(BACnetSPrintReal, value.real);
    default:
        return out.Put(BACnetSPrintContents, &value.any, 0u, names, kTagged);
    }
}

// "(" date-time ",[choice] " datum "," flags ")".
int PrintRecord(char *dst, int size, const BACnetLogRecord &record, uint8_t names) {
    const Datum datum = DatumOf(kRecordData, record.choice);
    if (datum == Datum::None) return 0;
    const TimeText time(record.timestamp);
    if (time.result < 0) return time.result;
    char flags[1000];
    int result = BACnetSPrintString(flags, sizeof flags, HyphenString);
    if (record.statusFlagsPresent != 0)
        result = BACnetSPrintBitString(flags, sizeof flags, &record.statusFlags, kStatusFlagsProperty, names);
    if (result < 0) return result;
    Writer out(dst, size);
    if (FormatsInline(datum)) {
        const DatumText value(datum, record.datum);
        return out.Format("%s%s,[%u] %s,%s%s", LBraceString, time.text, record.choice, value.text, flags, RBraceString);
    }
    return out.Sequence([&] { return out.Format("%s%s,[%u] ", LBraceString, time.text, record.choice); },
                        [&] { return PutDatum(out, datum, record.datum, names); },
                        [&] { return out.Format(",%s%s", flags, RBraceString); });
}

int PrintEntry(char *dst, int size, const BACnetLogDataEntry &entry, uint8_t names) {
    const Datum datum = DatumOf(kEntryData, entry.choice);
    if (datum == Datum::None) return 0;
    Writer out(dst, size);
    if (FormatsInline(datum)) {
        const DatumText value(datum, entry.datum);
        return out.Format("[%u] %s", entry.choice, value.text);
    }
    return out.Sequence([&] { return out.Format("[%u] ", entry.choice); },
                        [&] { return PutDatum(out, datum, entry.datum, names); });
}

// The status and time-change forms that multiple-value and event log
// records share.
int PrintStatusOrTimeChange(Writer &out, const char *time, uint32_t choice, const BACnetBitString &status,
                            float timeChange, uint8_t names) {
    if (choice == 0) {
        return out.Sequence([&] { return out.Format("%s%s,[%u] ", LBraceString, time, choice); },
                            [&] { return out.Put(BACnetSPrintBitString, &status, kLogStatusKey, names); },
                            [&] { return out.Text(RBraceString); });
    }
    char change[kFixedBufferSize];
    change[FormatFixed(change, timeChange)] = '\0';
    return out.Format("%s%s,[%u] %s%s", LBraceString, time, choice, change, RBraceString);
}

// The fields of a logged notification; those of a missing block are left
// out.
int PutNotification(Writer &out, const BACnetEventLogRecord &record, uint8_t names) {
    const auto &notification = record.u.notification;
    const bool hasHeader = notification.header != nullptr;
    const bool hasState = notification.state != nullptr;
    BACnetEventLogHeader header{};
    BACnetEventLogState state{};
    if (hasHeader) header = LoadUnaligned<BACnetEventLogHeader>(notification.header);
    if (hasState) state = LoadUnaligned<BACnetEventLogState>(notification.state);
    auto number = [&out](uint32_t value) { return [&out, value] { return out.Format("%u", value); }; };
    Fields fields(out, names);
    if (hasHeader) fields.Add(number(header.processId));
    fields.Add([&] { return out.Put(BACnetSPrintObjectID, &notification.initiatingDevice, names); })
        .Add([&] { return out.Put(BACnetSPrintObjectID, &notification.eventObject, names); });
    if (hasHeader) {
        fields.Add([&] { return out.Put(BACnetSPrintTimeStamp, &header.timeStamp); })
            .Add(number(header.notificationClass))
            .Add(number(header.priority))
            .Enum(header.eventType, kEventTypeKey);
    }
    fields.Add([&] {
        if (notification.message.charSet == kNoMessage) return out.Text(HyphenString);
        if (out.room() <= 0) return kNoRoom;
        return out.Step(BACnetSPrintAnyString(out.at(), static_cast<uint32_t>(out.room()), &notification.message, names, 0));
    });
    if (hasHeader) fields.Enum(header.notifyType, kNotifyTypeKey);
    if (hasState) {
        fields.Add([&] { return out.Put(BACnetSPrintBoolean, state.ackRequired, names); })
            .Enum(state.fromState, kEventStateKey)
            .Enum(state.toState, kEventStateKey)
            .Add([&] { return out.Put(BACnetSPrintNotificationParameters, &state.parameters, names); });
    }
    return fields.Result();
}

// ---- scanning ----

int ReadBits(NestedParts &parts, char *text, BACnetBitString &bits) {
    return parts.InlineElement(CT_BIT_STRING, text, &bits, sizeof bits);
}

// An enumeration by any table's name, or its number.
uint32_t AnyEnumeration(char *lookup, char *number) {
    const int32_t named = GetAnyEnumValue(lookup);
    return named == BACNET_ENUM_UNKNOWN ? static_cast<uint32_t>(TextToSigned(number)) : static_cast<uint32_t>(named);
}

int ReadFailure(char *text, BACnetLogDatum &datum) {
    char *part[2];
    if (!SplitParts(text, part)) return kSyntaxError;
    datum.failure.errorClass = static_cast<uint32_t>(TextToSigned(part[0]));
    datum.failure.errorCode = static_cast<uint32_t>(TextToSigned(part[1]));
    return 0;
}

// The datum of `kind` from its text; in the sizing pass only an embedded
// value is read (and sized). `lookup` is the text an enumeration's name is
// looked up in.
int ReadDatum(Datum kind, char *text, char *lookup, BACnetLogDatum &datum, NestedParts &parts) {
    if (kind == Datum::Any) {
        datum.any.type = kTypeFromText;
        const int result = parts.Value(text, datum.any);
        return result;
    }
    if (parts.sizing()) return 0;
    switch (kind) {
    case Datum::LogStatus:
    case Datum::Bits:
        return ReadBits(parts, text, datum.bits);
    case Datum::Boolean:
        return parts.InlineElement(CT_BOOLEAN, text, &datum.boolean, sizeof datum.boolean);
    case Datum::Real:
        return parts.InlineElement(CT_REAL, text, &datum.real, sizeof datum.real);
    case Datum::TimeChange:
        datum.real = static_cast<float>(TextToDouble(text));
        return 0;
    case Datum::Enumerated:
        datum.enumerated = AnyEnumeration(lookup, text);
        return 0;
    case Datum::Unsigned:
        datum.unsignedValue = TextToUnsigned(text, 0);
        return 0;
    case Datum::Signed:
        datum.signedValue = TextToSigned(text);
        return 0;
    case Datum::Failure:
        return ReadFailure(text, datum);
    default:
        return 0;  // NULL, or a choice without a datum
    }
}

// "[choice] rest": the choice, and the trimmed rest in `after`; -2 without
// a tag.
int ReadChoice(char *text, uint32_t &choice, char *&after) {
    const int tag = ParseChoice(text, -1, &after);
    if (tag < 0) return kSyntaxError;
    choice = static_cast<uint32_t>(tag);
    after = KillTrailLeadSpace(after);
    return 0;
}

int ReadTime(NestedParts &parts, char *text, BACnetDateTime &time) {
    return parts.sizing() ? 0 : ScanOneElement(BACnetSScanDateTime, text, time);
}

int ReadLogRecordParts(char *const (&part)[3], BACnetLogRecord &record, NestedParts &parts, bool inList) {
    for (char *p : part)
        if (p == nullptr) return kSyntaxError;
    char *after = nullptr;
    int result = ReadTime(parts, part[0], record.timestamp);
    if (result < 0 || (result = ReadChoice(part[1], record.choice, after)) < 0) return result;
    Datum kind = DatumOf(kRecordData, record.choice);
    if (kind == Datum::None && inList) return kUnsupported;
    // In a list a real is read plainly, and an enumeration's name is looked
    // up in the record's date-time text, as it always was.
    if (kind == Datum::Real && inList) kind = Datum::TimeChange;
    const int added = ReadDatum(kind, after, inList ? part[0] : after, record.datum, parts);
    if (added < 0 || parts.sizing()) return added;
    record.statusFlagsPresent = IsVoidString(part[2]) != 0 ? 0 : 1;
    if (record.statusFlagsPresent != 0 && (result = ReadBits(parts, part[2], record.statusFlags)) < 0) return result;
    return added;
}

int ReadLogRecord(char *text, BACnetLogRecord &record, NestedParts &parts) {
    char *part[3];
    if (!SplitParts(text, part)) return kSyntaxError;
    return ReadLogRecordParts(part, record, parts, true);
}

int ReadMultipleParts(char *const (&part)[2], BACnetLogRecordMultiple &record, NestedParts &parts, bool inList) {
    if (part[0] == nullptr || part[1] == nullptr) return kSyntaxError;
    char *after = nullptr;
    int result = ReadTime(parts, part[0], record.timestamp);
    if (result < 0 || (result = ReadChoice(part[1], record.choice, after)) < 0) return result;
    switch (record.choice) {
    case 1: {
        auto &data = record.u.data;
        data.count = 0;
        data.entries = nullptr;
        result = parts.Array(BACnetSScanLogRecordMultipleEntry, after, data.entries, data.count);
        if (result >= 0 && inList && !parts.sizing() && !parts.separate()) parts.Advance(result);
        return result;
    }
    case 0:
        return parts.sizing() ? 0 : ReadBits(parts, after, record.u.logStatus);
    case 2:
        record.u.timeChange = static_cast<float>(TextToDouble(after));
        return 0;
    default:
        return kUnsupported;
    }
}

int ReadMultiple(char *text, BACnetLogRecordMultiple &record, NestedParts &parts) {
    char *part[2];
    if (!SplitParts(text, part, 2)) return kSyntaxError;
    return ReadMultipleParts(part, record, parts, true);
}

// Where a block of a logged notification goes: at the tail, or in a block
// of its own in separate-list mode (a block the caller can free; at the
// tail it could run past an element array the scanner allocated).
template <typename Block>
Block *PlaceBlock(NestedParts &parts) {
    if (parts.separate()) return static_cast<Block *>(AllocateBlock(sizeof(Block)));
    auto *block = reinterpret_cast<Block *>(parts.tail());
    parts.Advance(sizeof(Block));
    return block;
}

// The thirteen fields of a logged notification; the last one, the
// notification parameters, takes the rest of the text.
int ReadNotification(char *text, BACnetEventLogRecord &record, NestedParts &parts) {
    auto &notification = record.u.notification;
    constexpr int kFields = 12;
    char *field[kFields];
    ElementList fields(text);
    if (fields.count() <= kFields) return kSyntaxError;
    for (char *&f : field) {
        if ((f = fields.Next()) == nullptr) return kSyntaxError;
        f = KillTrailLeadSpace(f);
    }
    char *parameters = fields.rest();
    if (parameters == nullptr) return kSyntaxError;

    BACnetEventLogHeader header{};
    BACnetEventLogState state{};
    int added = 0;
    if (!parts.sizing()) {
        // The state block first, the header behind it; the filling pass does
        // not count them.
        if ((notification.state = PlaceBlock<BACnetEventLogState>(parts)) == nullptr) return kSyntaxError;
        if ((notification.header = PlaceBlock<BACnetEventLogHeader>(parts)) == nullptr) return kSyntaxError;
        header.processId = TextToUnsigned(field[0], 0);
        int result = ScanOneElement(BACnetSScanObjectID, field[1], notification.initiatingDevice);
        if (result < 0 || (result = ScanOneElement(BACnetSScanObjectID, field[2], notification.eventObject)) < 0 ||
            (result = ScanOneElement(BACnetSScanTimeStamp, field[3], header.timeStamp)) < 0)
            return result;
        header.notificationClass = TextToUnsigned(field[4], 0);
        header.priority = static_cast<uint8_t>(TextToUnsigned(field[5], 0));
        header.eventType = IsDecimalDigit(field[6][0])
                               ? static_cast<uint32_t>(TextToSigned(field[6]))
                               : static_cast<uint32_t>(BACnetGetEnumValue(field[6], kEventTypeKey, 0, 0));
        header.notifyType = static_cast<uint32_t>(BACnetGetEnumValue(field[8], kNotifyTypeKey, 0, 0));
        if ((result = ScanOneElement(BACnetSScanBoolean, field[9], state.ackRequired)) < 0) return result;
        state.fromState = static_cast<uint32_t>(BACnetGetEnumValue(field[10], kEventStateKey, 0, 0));
        state.toState = static_cast<uint32_t>(BACnetGetEnumValue(field[11], kEventStateKey, 0, 0));
    } else {
        added = static_cast<int>(sizeof header + sizeof state);
    }
    auto &message = notification.message;
    if (std::strcmp(field[7], HyphenString) == 0) {
        message = BACnetCharString{};
        message.charSet = kNoMessage;
    } else {
        const int result = parts.InlineElement(CT_CHARACTER_STRING, field[7], &message, sizeof message);
        if (result < 0) return result;
        added += result + static_cast<int>(sizeof message);
    }
    const int result = ReadNotificationParameters(parameters, state.parameters, parts);
    if (!parts.sizing()) {
        StoreUnaligned(notification.state, state);
        StoreUnaligned(notification.header, header);
    }
    if (result < 0) return result;
    return added + result + static_cast<int>(sizeof(BACnetNotificationParameters));
}

int ReadEventLogParts(char *const (&part)[2], BACnetEventLogRecord &record, NestedParts &parts) {
    if (part[0] == nullptr || part[1] == nullptr) return kSyntaxError;
    char *after = nullptr;
    int result = ReadTime(parts, part[0], record.timestamp);
    if (result < 0 || (result = ReadChoice(part[1], record.choice, after)) < 0) return result;
    switch (record.choice) {
    case 1: {
        record.u.notification.header = nullptr;
        record.u.notification.state = nullptr;
        // "(fields)" alone: the walk takes its brackets off.
        return ReadNotification(after, record, parts);
    }
    case 0:
        return parts.sizing() ? 0 : ReadBits(parts, after, record.u.logStatus);
    case 2:
        record.u.timeChange = static_cast<float>(TextToDouble(after));
        return 0;
    default:
        return kUnsupported;
    }
}

int ReadEventLog(char *text, BACnetEventLogRecord &record, NestedParts &parts) {
    char *part[2];
    if (!SplitParts(text, part, 2)) return kSyntaxError;
    return ReadEventLogParts(part, record, parts);
}

// The shape shared by the three record scanners: no top-level comma is no
// record; a rest that starts with a tag is one record of `parts` parts
// (checked when `exactParts`, at least when not, not at all when 0);
// otherwise a list.
template <typename Record, size_t N, typename ReadOne, typename ReadInList>
int ScanRecords(char *text, void **payload, int32_t separateLists, void **tail, int32_t *count, int32_t sizeOnly,
                int required, bool exact, ReadOne readOne, ReadInList readInList) {
    if (text == nullptr) return kSyntaxError;
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    if (elements.count() == 0 || elements.rest() == nullptr) {
        *count = 0;
        return 0;
    }
    if (KillTrailLeadSpace(elements.rest())[0] == '[') {
        const int found = elements.count();
        if (required > 0 && (exact ? found != required : found < required)) return kSyntaxError;
        WalkedParts<N> one(elements);
        return ScanNestedElements<Record>(one, payload, separateLists, tail, count, sizeOnly,
                                          [&one, &readOne](char *, Record &record, NestedParts &parts) {
                                              return readOne(one.part, record, parts);
                                          });
    }
    return ScanNestedElements<Record>(elements, payload, separateLists, tail, count, sizeOnly, readInList);
}

}  // namespace

void ReleaseLogRecords(void *records, uint32_t count) {
    ReleaseEach<BACnetLogRecord>(records, count, [](BACnetLogRecord &record) {
        if (DatumOf(kRecordData, record.choice) == Datum::Any) ReleasePayload(record.datum.any);
    });
}

void ReleaseLogRecordsMultiple(void *records, uint32_t count) {
    ReleaseEach<BACnetLogRecordMultiple>(records, count, [](BACnetLogRecordMultiple &record) {
        if (record.choice != 1) return;
        ReleaseArray(record.u.data.entries, record.u.data.count, [](BACnetLogDataEntry &entry) {
            if (DatumOf(kEntryData, entry.choice) == Datum::Any) ReleasePayload(entry.datum.any);
        });
    });
}

void ReleaseEventLogRecords(void *records, uint32_t count) {
    ReleaseEach<BACnetEventLogRecord>(records, count, [](BACnetEventLogRecord &record) {
        if (record.choice != 1) return;
        auto &notification = record.u.notification;
        if (notification.message.charSet != kNoMessage) {
            std::free(notification.message.chars);
            notification.message.chars = nullptr;
        }
        if (notification.state != nullptr) {
            ReleaseNotificationParameters(&notification.state->parameters, 1);
            std::free(notification.state);
            notification.state = nullptr;
        }
        std::free(notification.header);
        notification.header = nullptr;
    });
}

}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSPrintLogRecord(char *dst, int size, const BACnetLogRecord *value, int names) {
    return PrintRecord(dst, size, *value, static_cast<uint8_t>(names));
}

extern "C" int BACnetSPrintLogRecordMultipleLogDataEntry(char *dst, int size, const BACnetLogDataEntry *value,
                                                         int names) {
    return PrintEntry(dst, size, *value, static_cast<uint8_t>(names));
}

extern "C" int BACnetSPrintLogRecordMultiple(char *dst, int size, const BACnetLogRecordMultiple *value,
                                             int names) {
    const auto symbolic = static_cast<uint8_t>(names);
    if (value->choice > 2) return 0;
    const TimeText time(value->timestamp);
    if (time.result < 0) return time.result;
    Writer out(dst, size);
    if (value->choice != 1)
        return PrintStatusOrTimeChange(out, time.text, value->choice, value->u.logStatus, value->u.timeChange, symbolic);
    const auto &data = value->u.data;
    return out.Sequence(
        [&] { return out.Format("%s%s,[%u] %s", LBraceString, time.text, value->choice, LBraceString); },
        [&] {
            return PrintEach(out, data.entries, data.count, [&](const BACnetLogDataEntry &entry) {
                return out.Put(BACnetSPrintLogRecordMultipleLogDataEntry, &entry, names);
            });
        },
        [&] { return out.Format("%s%s", RBraceString, RBraceString); });
}

extern "C" int BACnetSPrintEventLogRecord(char *dst, int size, const BACnetEventLogRecord *value, int names) {
    const auto symbolic = static_cast<uint8_t>(names);
    if (value->choice > 2) return 0;
    const TimeText time(value->timestamp);
    if (time.result < 0) return time.result;
    Writer out(dst, size);
    if (value->choice != 1)
        return PrintStatusOrTimeChange(out, time.text, value->choice, value->u.logStatus, value->u.timeChange, symbolic);
    return out.Sequence(
        [&] { return out.Format("%s%s,[%u] %s", LBraceString, time.text, value->choice, LBraceString); },
        [&] { return PutNotification(out, *value, symbolic); },
        [&] { return out.Format("%s%s", RBraceString, RBraceString); });
}

extern "C" int BACnetSScanLogRecord(char *text, void **payload, int32_t separateLists, void **tail, int32_t *count,
                                    int32_t sizeOnly) {
    return ScanRecords<BACnetLogRecord, 3>(
        text, payload, separateLists, tail, count, sizeOnly, 3, true,
        [](char *const (&part)[3], BACnetLogRecord &record, NestedParts &parts) {
            return ReadLogRecordParts(part, record, parts, false);
        },
        ReadLogRecord);
}

extern "C" int BACnetSScanLogRecordMultiple(char *text, void **payload, int32_t separateLists, void **tail,
                                            int32_t *count, int32_t sizeOnly) {
    return ScanRecords<BACnetLogRecordMultiple, 2>(
        text, payload, separateLists, tail, count, sizeOnly, 2, false,
        [](char *const (&part)[2], BACnetLogRecordMultiple &record, NestedParts &parts) {
            return ReadMultipleParts(part, record, parts, false);
        },
        ReadMultiple);
}

extern "C" int BACnetSScanEventLogRecord(char *text, void **payload, int32_t separateLists, void **tail,
                                         int32_t *count, int32_t sizeOnly) {
    return ScanRecords<BACnetEventLogRecord, 2>(text, payload, separateLists, tail, count, sizeOnly, 0, false,
                                                ReadEventLogParts, ReadEventLog);
}

// One entry, unless the text has a rest and two elements or more.
extern "C" int BACnetSScanLogRecordMultipleEntry(char *text, void **payload, int32_t separateLists, void **tail,
                                                 int32_t *count, int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    auto readEntry = [](char *entryText, BACnetLogDataEntry &entry, NestedParts &parts) {
        char *after = nullptr;
        const int result = ReadChoice(entryText, entry.choice, after);
        if (result < 0) return result;
        return ReadDatum(DatumOf(kEntryData, entry.choice), after, after, entry.datum, parts);
    };
    text = KillTrailLeadSpace(text);
    SaveText(strBackup, text);
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    if (elements.rest() == nullptr || elements.count() < 2) {
        RestoreText(text, strBackup);
        SingleElement one(text);
        return ScanNestedElements<BACnetLogDataEntry>(one, payload, separateLists, tail, count, sizeOnly, readEntry);
    }
    return ScanNestedElements<BACnetLogDataEntry>(elements, payload, separateLists, tail, count, sizeOnly, readEntry);
}
