// Element converters of the calendar values, for the two-pass scanners and
// the array scanners: each reads the text of one element (its own brackets
// removed by the walk) and returns 0 or a negative code.
#ifndef BACFMT_CONSTRUCTED_CALENDAR_H
#define BACFMT_CONSTRUCTED_CALENDAR_H

#include <bacfmt/contents.h>

namespace bacfmt {

// "date,date".
int ReadDateRange(char *text, BACnetDateRange &range);
// The two dates already cut apart.
int ReadDateRangeParts(char *const (&part)[2], BACnetDateRange &range);
// "month-week-weekday" (names, numbers or "*"), or X'mmwwdd'.
int ReadWeekNDay(char *text, BACnetWeekNDay &pattern);
// "[0] date", "[1] date range" or "[2] week-and-day"; -3 without a tag.
int ReadCalendarEntry(char *text, BACnetCalendarEntry &entry);
// "[0] time", "[1] number" or "[2] date-time"; -2 without a tag.
int ReadTimeStamp(char *text, BACnetTimeStamp &stamp);

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_CALENDAR_H
