// Element converters of the metering values, for the two-pass scanners and
// the array scanners.
#ifndef BACFMT_CONSTRUCTED_METERING_H
#define BACFMT_CONSTRUCTED_METERING_H

#include <bacfmt/contents.h>

namespace bacfmt {

// "(datetime,present,accumulated,status)" content: the four parts.
int ReadAccumulatorRecord(char *text, BACnetAccumulatorRecord &record);
// "multiplier,modulo" content.
int ReadPrescale(char *text, BACnetPrescale &prescale);
// "[3] integer" or "[4] real".
int ReadScale(char *text, BACnetScale &scale);
// "[0] percent", "[1] level" or "[2] amount".
int ReadShedLevel(char *text, BACnetShedLevel &shedLevel);

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_METERING_H
