// Release hooks of the log records, whose elements own entry arrays,
// messages, notification blocks and embedded records.
#ifndef BACFMT_CONSTRUCTED_LOG_RECORDS_H
#define BACFMT_CONSTRUCTED_LOG_RECORDS_H

#include <cstdint>

namespace bacfmt {

void ReleaseLogRecords(void *records, uint32_t count);
void ReleaseLogRecordsMultiple(void *records, uint32_t count);
void ReleaseEventLogRecords(void *records, uint32_t count);

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_LOG_RECORDS_H
