// bacfmt summary: the one-line trace summary of a service request, given
// by its fields, as the library writes it for a stack's trace.
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include <bacfmt/bacfmt.h>

#include "commands.h"
#include "names.h"

namespace bacfmt::tool {
namespace {

// Room for any single-request summary: the longest is under 200 bytes.
constexpr int kSummaryRoom = 256;
constexpr int32_t kNoIndex = -1;

using Operands = std::vector<std::string>;

// Reads the fields a request is given by; the first bad one is reported.
class FieldReader {
public:
    FieldReader(const Command &self, const Operands &operands) : self_(self), operands_(operands) {}

    bool failed() const { return failed_; }
    bool more() const { return next_ < operands_.size(); }

    ObjectIdInfo Object() {
        const std::string text = Take("an object (TYPE,INSTANCE)");
        const auto comma = text.find(',');
        std::optional<uint32_t> type;
        std::optional<uint32_t> instance;
        if (comma != std::string::npos) {
            type = ObjectTypeFromText(text.substr(0, comma));
            instance = ParseNumber(text.substr(comma + 1));
        }
        if (!failed_ && (!type || !instance || *type > kMaxObjectType || *instance > kMaxInstance))
            Fail("not an object identifier: '" + text + "'");
        return ObjectIdInfo{type.value_or(0), instance.value_or(0)};
    }
    uint32_t Property() {
        const std::string text = Take("a property");
        const auto property = PropertyFromText(text);
        if (!failed_ && !property) Fail("unknown property: '" + text + "'");
        return property.value_or(0);
    }
    uint32_t Number(const char *what) {
        const std::string text = Take(what);
        const auto number = ParseNumber(text);
        if (!failed_ && !number) Fail(std::string("not a number for ") + what + ": '" + text + "'");
        return number.value_or(0);
    }
    // A signed number ("-1" for none).
    int32_t Signed(const char *what) {
        if (more() && operands_[next_].rfind('-', 0) == 0) {
            const auto magnitude = ParseNumber(operands_[next_].substr(1));
            ++next_;
            if (!magnitude || *magnitude > 0x80000000u) Fail(std::string("not a number for ") + what);
            return static_cast<int32_t>(-static_cast<int64_t>(magnitude.value_or(0)));
        }
        return static_cast<int32_t>(Number(what));
    }
    int32_t OptionalIndex() { return more() ? Signed("the array index") : kNoIndex; }
    // One of two words; true for the first.
    bool Either(const char *first, const char *second) {
        const std::string text = Take(first);
        if (!failed_ && text != first && text != second)
            Fail("'" + text + "' is neither " + first + " nor " + second);
        return text == first;
    }
    BACnetDateTime DateTime() {
        std::string text = Take("a date and time");
        BACnetDateTime value{};
        void *slot = &value;
        int32_t one = 1;
        if (!failed_ && BACnetSScanDateTime(text.data(), &slot, &one, 0) < 0)
            Fail("not a date and time: '" + text + "'");
        return value;
    }
    // Fails when operands are left over.
    bool Done() {
        if (!failed_ && more()) Fail("too many arguments");
        return !failed_;
    }

private:
    std::string Take(const char *what) {
        if (failed_) return {};
        if (!more()) {
            Fail(std::string("missing ") + what);
            return {};
        }
        return operands_[next_++];
    }
    void Fail(const std::string &message) {
        if (!failed_) UsageError(self_.name, message);
        failed_ = true;
    }

    const Command &self_;
    const Operands &operands_;
    size_t next_ = 1;  // behind the service
    bool failed_ = false;
};

template <typename Record>
int Show(int (*summary)(char *, int, const Record *), const Record &record) {
    char text[kSummaryRoom];
    summary(text, sizeof text, &record);
    std::printf("%s\n", text);
    return kExitOk;
}

int ReadOrWrite(FieldReader &fields, bool write) {
    const ObjectIdInfo object = fields.Object();
    const uint32_t property = fields.Property();
    const int32_t index = fields.OptionalIndex();
    if (!fields.Done()) return kExitUsage;
    if (!write) return Show(SPrintReadInfo, ReadInfo{object, property, index});
    WriteInfo info{};
    info.object = object;
    info.propertyId = property;
    info.arrayIndex = index;
    return Show(SPrintWriteInfo, info);
}

int ReadRange(FieldReader &fields) {
    ReadRangeInfo info{};
    info.object = fields.Object();
    info.propertyId = fields.Property();
    info.arrayIndex = kNoIndex;
    if (fields.Either("position", "time")) {
        info.rangeKind = BACNET_RANGE_BY_POSITION;
        info.range.byPosition.referencePosition = fields.Signed("the reference position");
        info.range.byPosition.count = fields.Number("the count");
    } else {
        info.rangeKind = BACNET_RANGE_BY_TIME;
        info.range.byTime.reference = fields.DateTime();
        info.range.byTime.count = fields.Signed("the count");
    }
    return fields.Done() ? Show(SPrintReadRangeInfo, info) : kExitUsage;
}

int SubscribeCov(FieldReader &fields) {
    SubsCOVInfo info{};
    info.subscribe = 1;
    info.processId = fields.Number("the process identifier");
    info.object = fields.Object();
    info.confirmed = fields.Either("confirmed", "unconfirmed") ? 1 : 0;
    info.lifetime = fields.Number("the lifetime");
    return fields.Done() ? Show(SPrintSubsCOVInfo, info) : kExitUsage;
}

template <typename Info>
bool FileAccess(FieldReader &fields, Info &info) {
    info.file = fields.Object();
    info.accessKind = fields.Either("stream", "record") ? BACNET_FILE_ACCESS_STREAM : BACNET_FILE_ACCESS_RECORD;
    info.start = fields.Signed("the start");
    return !fields.failed();
}

int ReadFile(FieldReader &fields) {
    ReadFileInfo info{};
    if (!FileAccess(fields, info)) return kExitUsage;
    info.count = fields.Number("the count");
    return fields.Done() ? Show(SPrintReadFileInfo, info) : kExitUsage;
}

int WriteFile(FieldReader &fields) {
    WriteFileInfo info{};
    if (!FileAccess(fields, info)) return kExitUsage;
    const uint32_t count = fields.Number("the count");
    if (info.accessKind == BACNET_FILE_ACCESS_STREAM) {
        info.data.length = count;
    } else {
        info.recordCount = count;
    }
    return fields.Done() ? Show(SPrintWriteFileInfo, info) : kExitUsage;
}

int RunSummary(const Command &self, int argc, char **argv) {
    int status = kExitOk;
    const auto operands = OperandsOnly(self, argc, argv, status);
    if (!operands) return status;
    if (operands->empty()) return UsageError(self.name, "no service given");
    FieldReader fields(self, *operands);
    const std::string &service = operands->front();
    if (service == "read") return ReadOrWrite(fields, false);
    if (service == "write") return ReadOrWrite(fields, true);
    if (service == "read-range") return ReadRange(fields);
    if (service == "subscribe-cov") return SubscribeCov(fields);
    if (service == "read-file") return ReadFile(fields);
    if (service == "write-file") return WriteFile(fields);
    return UsageError(self.name, "unknown service '" + service + "'");
}

}  // namespace

const Command kSummaryCommand{
    "summary", "trace summary of a service request",
    "Usage: bacfmt summary SERVICE FIELD...\n"
    "\n"
    "Prints the one-line summary that a stack's trace shows for a service\n"
    "request, from the request's fields. OBJECT is TYPE,INSTANCE with the\n"
    "type by name or number; PROPERTY a name or number; INDEX -1 or left\n"
    "out for none.\n"
    "\n"
    "Services:\n"
    "  read OBJECT PROPERTY [INDEX]\n"
    "  write OBJECT PROPERTY [INDEX]\n"
    "  read-range OBJECT PROPERTY position REFERENCE COUNT\n"
    "  read-range OBJECT PROPERTY time DATE-TIME COUNT\n"
    "  subscribe-cov PROCESS OBJECT confirmed|unconfirmed LIFETIME\n"
    "  read-file FILE stream|record START COUNT\n"
    "  write-file FILE stream|record START COUNT\n"
    "\n"
    "Example:\n"
    "  bacfmt summary read analog-input,1 present-value\n"
    "  Obj:(analog-input,1),Prop:present-value,Idx -1\n"
    "\n"
    "Exit status: 0 printed, 2 usage error.\n",
    RunSummary};

}  // namespace bacfmt::tool
