// The values a schedule is written with:
//   time/value      "(" time "," [tag] value ")"
//   daily schedule  "(" time/values ")"; a week is seven of them, "()" for
//                   an empty day
//   special event   "([" choice "] " calendar entry | calendar "," "("
//                   time/values ")," priority ")"
// The values in time/value pairs are embedded records, scanned through the
// dispatcher; the pairs of a day or event are an array of their own.
#include <cstring>

#include <bacfmt/print.h>
#include <bacfmt/scan.h>

#include "constructed/fields.h"
#include "constructed/list_printers.h"
#include "constructed/nested_frame.h"
#include "constructed/schedule.h"
#include "datatypes/release.h"
#include "print/writer.h"
#include "scan/lexical.h"
#include "scan/numbers.h"
#include "scan/scan_list.h"

namespace bacfmt {
namespace {

// A time/value's value prints as the weekly schedule's own values do.
constexpr uint32_t kWeeklySchedule = 123;
constexpr uint8_t kTaggedValue = 1;

int PrintTimeValues(Writer &out, const BACnetTimeValue *values, uint32_t count, int names) {
    return PrintEach(out, values, count, [&](const BACnetTimeValue &value) {
        return out.Put(BACnetSPrintTimeValue, &value, names);
    });
}

int ReadTimeValueParts(char *const (&part)[2], BACnetTimeValue &pair, NestedParts &parts) {
    if (part[0] == nullptr || part[1] == nullptr) return kSyntaxError;
    if (!parts.sizing()) {
        const int result = ScanOneElement(BACnetSScanTime, part[0], pair.time);
        if (result < 0) return result;
    }
    pair.value.type = kTypeFromText;
    return parts.Value(part[1], pair.value);
}

// The pairs of a day or an event, in an array of their own; an empty text
// has none. In a list the tail moves past them; a lone day or event leaves
// it where it was, as it always has.
template <typename Holder>
int ReadPairs(char *text, Holder &holder, NestedParts &parts, bool inList) {
    holder.timeValues = nullptr;
    holder.count = 0;
    if (text[0] == '\0') return 0;
    const int result = parts.Array(BACnetSScanTimeValue, text, holder.timeValues, holder.count);
    if (result < 0) return result;
    if (inList && !parts.sizing() && !parts.separate()) parts.Advance(result);
    return result;
}

// The period is read in the filling pass only.
int ReadEventParts(char *const (&part)[3], BACnetSpecialEvent &event, NestedParts &parts, bool inList) {
    for (char *p : part)
        if (p == nullptr) return kSyntaxError;
    if (!parts.sizing()) {
        char *after = nullptr;
        const int choice = ParseChoice(part[0], -1, &after);
        if (choice < 0) return kSyntaxError;  // no tag
        event.periodChoice = static_cast<uint32_t>(choice);
        after = KillTrailLeadSpace(after);
        int result;
        switch (choice) {
        case BACNET_SPECIAL_EVENT_CALENDAR_ENTRY:
            result = ScanOneElement(BACnetSScanCalendarEntry, after, event.period.entry);
            break;
        case BACNET_SPECIAL_EVENT_CALENDAR_REFERENCE:
            result = ScanOneElement(BACnetSScanObjectID, after, event.period.calendar);
            break;
        default:
            return kUnsupported;
        }
        if (result < 0) return result;
    }
    const int pairs = ReadPairs(part[1], event, parts, inList);
    if (pairs < 0) return pairs;
    // Only the low eight bits of the priority are kept.
    if (!parts.sizing()) event.priority = static_cast<uint8_t>(TextToSigned(part[2]));
    return pairs;
}

}  // namespace

int ReadTimeValue(char *text, BACnetTimeValue &pair, NestedParts &parts) {
    char *part[2];
    if (!SplitParts(text, part)) return kSyntaxError;
    return ReadTimeValueParts(part, pair, parts);
}

int ReadSpecialEvent(char *text, BACnetSpecialEvent &event, NestedParts &parts) {
    char *part[3];
    if (!SplitParts(text, part)) return kSyntaxError;
    return ReadEventParts(part, event, parts, true);
}

void ReleaseTimeValues(void *values, uint32_t count) {
    ReleaseEach<BACnetTimeValue>(values, count, [](BACnetTimeValue &pair) { ReleasePayload(pair.value); });
}

void ReleaseDailySchedules(void *days, uint32_t count) {
    ReleaseEach<BACnetDailySchedule>(days, count, [](BACnetDailySchedule &day) {
        ReleaseArray(day.timeValues, day.count, [](BACnetTimeValue &pair) { ReleasePayload(pair.value); });
    });
}

void ReleaseSpecialEvents(void *events, uint32_t count) {
    ReleaseEach<BACnetSpecialEvent>(events, count, [](BACnetSpecialEvent &event) {
        ReleaseArray(event.timeValues, event.count, [](BACnetTimeValue &pair) { ReleasePayload(pair.value); });
    });
}

}  // namespace bacfmt

using namespace bacfmt;

// ---- printers ----

extern "C" int BACnetSPrintTimeValue(char *dst, int size, const BACnetTimeValue *value, int names) {
    Writer out(dst, size);
    return out.Sequence(
        [&] { return out.Text(LBraceString); },
        [&] { return out.Put(BACnetSPrintTime, &value->time); },
        [&] { return out.Text(CommaString); },
        [&] { return out.Put(BACnetSPrintContents, &value->value, kWeeklySchedule, static_cast<uint8_t>(names), kTaggedValue); },
        [&] { return out.Text(RBraceString); });
}

extern "C" int BACnetSPrintDailySchedule(char *dst, int size, const BACnetDailySchedule *value,
                                         int names) {
    Writer out(dst, size);
    return out.Sequence([&] { return out.Text(LBraceString); },
                        [&] { return PrintTimeValues(out, value->timeValues, value->count, names); },
                        [&] { return out.Text(RBraceString); });
}

extern "C" int BACnetSPrintSpecialEvent(char *dst, int size, const BACnetSpecialEvent *value,
                                        int names) {
    Writer out(dst, size);
    return out.Sequence(
        [&] { return out.Format("%s[%d] ", LBraceString, static_cast<int>(value->periodChoice)); },
        [&] {
            switch (value->periodChoice) {
            case BACNET_SPECIAL_EVENT_CALENDAR_ENTRY:
                return out.Put(BACnetSPrintCalendarEntry, &value->period.entry);
            case BACNET_SPECIAL_EVENT_CALENDAR_REFERENCE:
                return out.Put(BACnetSPrintObjectID, &value->period.calendar, static_cast<uint8_t>(names));
            default:
                return out.Text(UnknownString);
            }
        },
        [&] { return out.Format(",%s", LBraceString); },
        [&] { return PrintTimeValues(out, value->timeValues, value->count, names); },
        [&] { return out.Format("%s,%u%s", RBraceString, unsigned{value->priority}, RBraceString); });
}

extern "C" int BACnetSPrintTimeValueList(char *dst, int size, const BACnetTimeValue *list,
                                         unsigned count, int names) {
    Writer out(dst, size);
    return out.Sequence([&] { return out.Text(LBraceString); },
                        [&] { return PrintTimeValues(out, list, count, names); },
                        [&] { return out.Text(RBraceString); });
}

extern "C" int BACnetSPrintDailyScheduleList(char *dst, int size, const BACnetDailySchedule *list,
                                             int /*ignored*/, int names, unsigned count) {
    Writer out(dst, size);
    return SumBracketed(out, list, count, [&](const BACnetDailySchedule &day) {
        return out.AddPut(BACnetSPrintDailySchedule, &day, names);
    });
}

extern "C" int BACnetSPrintSpecialEventList(char *dst, int size, const BACnetSpecialEvent *list,
                                            int /*ignored*/, int names, unsigned count) {
    Writer out(dst, size);
    return SumBracketed(out, list, count, [&](const BACnetSpecialEvent &event) {
        return out.AddPut(BACnetSPrintSpecialEvent, &event, names);
    });
}

// ---- scanners ----

// One pair "(time,value)" or a list of pairs (the first element then holds
// a comma).
extern "C" int BACnetSScanTimeValue(char *text, void **payload, int32_t separateLists, void **tail,
                                    int32_t *count, int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    if (elements.count() == 0) {
        *count = 0;
        return 0;
    }
    const bool list = std::strchr(elements.first(), ',') != nullptr;
    if (!list && elements.count() != 2) return kSyntaxError;
    const int32_t found = list ? elements.count() : 1;
    if (*count > 0 && *count != found) return kCountMismatch;
    if (sizeOnly == 0 && payload == nullptr) return kUnsupported;
    if (list) {
        return ScanNestedElements<BACnetTimeValue>(elements, payload, separateLists, tail, count,
                                                   sizeOnly, ReadTimeValue);
    }
    WalkedParts<2> pair(elements);
    return ScanNestedElements<BACnetTimeValue>(pair, payload, separateLists, tail, count, sizeOnly,
                                               [&pair](char *, BACnetTimeValue &element, NestedParts &parts) {
                                                   return ReadTimeValueParts(pair.part, element, parts);
                                               });
}

// Three shapes: one day holding one tagged pair, "(time,[tag] value)"; one
// day written as its pairs, "((time,value),...)"; a list of days, whose
// first element is bracketed or empty. A lone "()" has no comma and fails.
extern "C" int BACnetSScanDailySchedule(char *text, void **payload, int32_t separateLists,
                                        void **tail, int32_t *count, int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    SaveText(backupString, text);
    ElementList elements(text);
    if (elements.count() < 0 || elements.rest() == nullptr) return kSyntaxError;
    const char *first = KillTrailLeadSpace(elements.first());
    const char *rest = KillTrailLeadSpace(elements.rest());
    const bool onePair = rest[0] == '[';
    const bool listOfDays = first[0] == '(' || first[0] == '{' || first[0] == '\0';
    if (onePair || !listOfDays) {
        if (onePair && elements.count() != 2) return kSyntaxError;
        RestoreText(text, backupString);
        SingleElement day(DeBracket(text));
        return ScanNestedElements<BACnetDailySchedule>(
            day, payload, separateLists, tail, count, sizeOnly,
            [](char *dayText, BACnetDailySchedule &element, NestedParts &parts) {
                return ReadPairs(dayText, element, parts, false);
            });
    }
    return ScanNestedElements<BACnetDailySchedule>(
        elements, payload, separateLists, tail, count, sizeOnly,
        [](char *dayText, BACnetDailySchedule &element, NestedParts &parts) {
            return ReadPairs(dayText, element, parts, true);
        });
}

// One event of three parts, or a list of them: the first element split on
// trial (on a copy) tells which.
extern "C" int BACnetSScanSpecialEvent(char *text, void **payload, int32_t separateLists,
                                       void **tail, int32_t *count, int32_t sizeOnly) {
    if (text == nullptr) return kSyntaxError;
    ElementList elements(text);
    if (elements.count() < 0) return kSyntaxError;
    SaveText(strBackup, elements.first());
    const bool list = ElementList(elements.first()).count() == 3;
    RestoreText(elements.first(), strBackup);
    if (list) {
        return ScanNestedElements<BACnetSpecialEvent>(elements, payload, separateLists, tail, count,
                                                      sizeOnly, ReadSpecialEvent);
    }
    if (elements.count() == 0) {
        *count = 0;
        return 0;
    }
    if (elements.count() != 3) return kSyntaxError;
    WalkedParts<3> event(elements);
    if (sizeOnly != 0) {
        // A lone event adds its pairs' size unchecked, a negative one too.
        if (*count > 0 && *count != 1) return kCountMismatch;
        *count = 1;
        if (event.part[1] == nullptr || event.part[1][0] == '\0')
            return static_cast<int>(sizeof(BACnetSpecialEvent));
        void *none = nullptr;
        void *zeroTail = nullptr;
        int32_t pairs = 0;
        return static_cast<int>(sizeof(BACnetSpecialEvent)) +
               BACnetSScanTimeValue(event.part[1], &none, separateLists, &zeroTail, &pairs, 1);
    }
    return ScanNestedElements<BACnetSpecialEvent>(
        event, payload, separateLists, tail, count, sizeOnly,
        [&event](char *, BACnetSpecialEvent &element, NestedParts &parts) {
            return ReadEventParts(event.part, element, parts, false);
        });
}
