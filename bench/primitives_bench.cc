// Every primitive datatype printed and scanned through the dispatchers,
// beside the limit (std::to_chars / std::from_chars, or a hand-written
// digit writer where no standard routine writes the text) and beside the
// naive routes (measure-then-snprintf for printing, strtoul/strtod over the
// same fields for scanning). The program's main prints the ratios after the
// runs (see ratio_report.cc).
#include <charconv>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>

#include <bacfmt/bacfmt.h>


namespace {

// ---- printing ---------------------------------------------------------------

// Two decimal digits, as a digit writer of dates and times writes them.
char *TwoDigits(char *at, unsigned value) {
    at[0] = static_cast<char>('0' + value / 10);
    at[1] = static_cast<char>('0' + value % 10);
    return at + 2;
}

char *Copy(char *at, std::string_view text) {
    std::memcpy(at, text.data(), text.size());
    return at + text.size();
}

template <typename Body>
void Register(const std::string &name, Body body) {
    benchmark::RegisterBenchmark(name.c_str(), [body](benchmark::State &state) {
        for (auto _ : state) {
            benchmark::DoNotOptimize(body());
            benchmark::ClobberMemory();
        }
    });
}

// One printed primitive: the record and the three ways to its text.
template <typename Limit, typename Naive>
void RegisterPrint(const char *type, BACnetContents record, uint32_t property, uint8_t symbolic,
                   Limit limit, Naive naive) {
    static char text[512];
    Register(std::string("print/") + type + "/bacfmt", [record, property, symbolic] {
        return BACnetSPrintContents(text, sizeof text, &record, property, symbolic, 0);
    });
    Register(std::string("print/") + type + "/limit", [limit] { return limit(text); });
    Register(std::string("print/") + type + "/snprintf", [naive] { return naive(text); });
}

// The naive printer: measure the pattern, then write it.
__attribute__((format(printf, 2, 3))) int MeasureThenPrint(char *text, const char *format, ...) {
    va_list args;
    va_start(args, format);
    va_list measure;
    va_copy(measure, args);
    const int length = std::vsnprintf(nullptr, 0, format, measure);
    va_end(measure);
    const int written = std::vsnprintf(text, static_cast<size_t>(length) + 1, format, args);
    va_end(args);
    return written;
}

uint8_t boolValue = 1;
uint32_t unsignedValue = 4194303;
int32_t signedValue = -86400;
float realValue = 1013.25f;
double doubleValue = -12345.678;
uint32_t enumValue = 62;  // degrees-celsius under units
BACnetDate dateValue = {2026, 11, 21, 6};
BACnetTime timeValue = {7, 5, 0, 0};
BACnetObjectID oidValue = {8, 1234};
char stringChars[] = "Room 1.23 supply air";
BACnetCharString stringValue = {0, 0, sizeof stringChars, stringChars};
uint8_t octets[] = {0x0a, 0x0b, 0xc0, 0xff};
BACnetOctetString octetValue = {octets, sizeof octets, sizeof octets};

void RegisterPrints() {
    RegisterPrint("boolean", {CT_BOOLEAN, 1, &boolValue, 0, {0, 0}}, 85, 1,
                  [](char *t) { t[0] = 'T'; t[1] = '\0'; return 1; },
                  [](char *t) { return MeasureThenPrint(t, "%s", "T"); });
    RegisterPrint("unsigned", {CT_UNSIGNED, 1, &unsignedValue, 0, {0, 0}}, 85, 0,
                  [](char *t) {
                      char *end = std::to_chars(t, t + 16, unsignedValue).ptr;
                      *end = '\0';
                      return static_cast<int>(end - t);
                  },
                  [](char *t) { return MeasureThenPrint(t, "%u", unsignedValue); });
    RegisterPrint("signed", {CT_SIGNED, 1, &signedValue, 0, {0, 0}}, 85, 0,
                  [](char *t) {
                      char *end = std::to_chars(t, t + 16, signedValue).ptr;
                      *end = '\0';
                      return static_cast<int>(end - t);
                  },
                  [](char *t) { return MeasureThenPrint(t, "%d", signedValue); });
    RegisterPrint("real", {CT_REAL, 1, &realValue, 0, {0, 0}}, 85, 0,
                  [](char *t) {
                      char *end = std::to_chars(t, t + 64, double{realValue}, std::chars_format::fixed, 6).ptr;
                      *end = '\0';
                      return static_cast<int>(end - t);
                  },
                  [](char *t) { return MeasureThenPrint(t, "%f", double{realValue}); });
    RegisterPrint("double", {CT_DOUBLE, 1, &doubleValue, 0, {0, 0}}, 85, 0,
                  [](char *t) {
                      char *end = std::to_chars(t, t + 64, doubleValue, std::chars_format::fixed, 6).ptr;
                      *end = '\0';
                      return static_cast<int>(end - t);
                  },
                  [](char *t) { return MeasureThenPrint(t, "%f", doubleValue); });
    RegisterPrint("enum_number", {CT_ENUMERATED, 1, &enumValue, 0, {0, 0}}, 117, 0,
                  [](char *t) {
                      char *end = std::to_chars(t, t + 16, enumValue).ptr;
                      *end = '\0';
                      return static_cast<int>(end - t);
                  },
                  [](char *t) { return MeasureThenPrint(t, "%d", static_cast<int>(enumValue)); });
    static const std::string unitName = BACnetEnumString(62, BACNET_ENUM_ANY_OBJECT, 117);
    RegisterPrint("enum_name", {CT_ENUMERATED, 1, &enumValue, 0, {0, 0}}, 117, 1,
                  [](char *t) {
                      char *at = std::to_chars(t, t + 16, enumValue).ptr;
                      at = Copy(Copy(at, " => "), unitName);
                      *at = '\0';
                      return static_cast<int>(at - t);
                  },
                  [](char *t) { return MeasureThenPrint(t, "%d => %s", 62, unitName.c_str()); });
    static const std::string weekday = BACnetDayOfWeekString(dateValue.dayOfWeek);
    static const std::string month = BACnetMonthString(dateValue.month);
    RegisterPrint("date", {CT_DATE, 1, &dateValue, 0, {0, 0}}, 0, 1,
                  [](char *t) {
                      char *at = Copy(Copy(t, "("), weekday);
                      *at++ = ',';
                      at = TwoDigits(at, dateValue.day);
                      at = Copy(Copy(Copy(at, "-"), month), "-");
                      at = TwoDigits(TwoDigits(at, dateValue.year / 100), dateValue.year % 100);
                      *at++ = ')';
                      *at = '\0';
                      return static_cast<int>(at - t);
                  },
                  [](char *t) {
                      return MeasureThenPrint(t, "(%s,%2d-%s-%04d)", weekday.c_str(), dateValue.day,
                                              month.c_str(), dateValue.year);
                  });
    RegisterPrint("time", {CT_TIME, 1, &timeValue, 0, {0, 0}}, 0, 1,
                  [](char *t) {
                      char *at = TwoDigits(t, timeValue.hour);
                      *at++ = ':';
                      at = TwoDigits(at, timeValue.minute);
                      *at++ = ':';
                      at = TwoDigits(at, timeValue.second);
                      *at++ = '.';
                      at = TwoDigits(at, timeValue.hundredths);
                      *at = '\0';
                      return static_cast<int>(at - t);
                  },
                  [](char *t) {
                      return MeasureThenPrint(t, "%02d:%02d:%02d.%02d", timeValue.hour, timeValue.minute,
                                              timeValue.second, timeValue.hundredths);
                  });
    static const std::string device = BACnetObjTypeString(oidValue.type);
    RegisterPrint("object_id", {CT_OBJECT_ID, 1, &oidValue, 0, {0, 0}}, 0, 1,
                  [](char *t) {
                      char *at = Copy(Copy(t, "("), device);
                      *at++ = ',';
                      at = std::to_chars(at, at + 16, oidValue.instance).ptr;
                      *at++ = ')';
                      *at = '\0';
                      return static_cast<int>(at - t);
                  },
                  [](char *t) { return MeasureThenPrint(t, "(%s,%u)", device.c_str(), oidValue.instance); });
    RegisterPrint("string", {CT_CHARACTER_STRING, 1, &stringValue, 0, {0, 0}}, 77, 1,
                  [](char *t) {
                      char *at = Copy(Copy(Copy(t, "\""), stringChars), "\"");
                      *at = '\0';
                      return static_cast<int>(at - t);
                  },
                  [](char *t) { return MeasureThenPrint(t, "\"%s\"", stringChars); });
    RegisterPrint("octets", {CT_OCTET_STRING, 1, &octetValue, 0, {0, 0}}, 0, 1,
                  [](char *t) {
                      static constexpr char kHex[] = "0123456789ABCDEF";
                      char *at = Copy(t, "0x");
                      for (uint8_t octet : octets) {
                          *at++ = kHex[octet >> 4];
                          *at++ = kHex[octet & 15];
                      }
                      *at = '\0';
                      return static_cast<int>(at - t);
                  },
                  [](char *t) {
                      return MeasureThenPrint(t, "0x%02X%02X%02X%02X", octets[0], octets[1], octets[2], octets[3]);
                  });
}

// ---- scanning ---------------------------------------------------------------

// A field of a scanned text and how the baselines read it.
enum class Field { Unsigned, Signed, Real, Name };

struct ScanCase {
    const char *type;
    uint32_t code;
    const char *text;
    int32_t hint;
    std::vector<std::pair<std::string, Field>> fields;
};

// Both passes through the dispatcher into one caller block, or the filling
// pass alone; the text is copied before each pass since it is cut in place.
struct ScanRun {
    std::string original;
    uint32_t code;
    int32_t hint;
    char text[256];
    alignas(8) unsigned char block[1024];

    int Pass(int32_t sizeOnly) {
        std::memcpy(text, original.c_str(), original.size() + 1);
        auto *record = reinterpret_cast<BACnetContents *>(block);
        *record = BACnetContents{};
        record->type = code;
        BACnetContents *slot = record;
        void *tail = nullptr;
        return BACnetSScanContents(text, &slot, 0, 0, &tail, sizeOnly, hint);
    }
};

// The limit: from_chars over the fields (a name costs a comparison of its
// length). The naive scanner: strtoul/strtod over NUL-terminated fields.
int64_t FromChars(const std::vector<std::pair<std::string, Field>> &fields) {
    int64_t sum = 0;
    for (const auto &[text, kind] : fields) {
        const char *first = text.data();
        const char *last = first + text.size();
        switch (kind) {
        case Field::Unsigned: {
            uint32_t v = 0;
            std::from_chars(first, last, v);
            sum += v;
            break;
        }
        case Field::Signed: {
            int32_t v = 0;
            std::from_chars(first + (*first == '+'), last, v);
            sum += v;
            break;
        }
        case Field::Real: {
            double v = 0;
            std::from_chars(first, last, v);
            sum += static_cast<int64_t>(v);
            break;
        }
        case Field::Name:
            sum += static_cast<int64_t>(std::strlen(first));
            break;
        }
    }
    return sum;
}

int64_t Strto(const std::vector<std::pair<std::string, Field>> &fields) {
    int64_t sum = 0;
    for (const auto &[text, kind] : fields) {
        switch (kind) {
        case Field::Unsigned: sum += static_cast<int64_t>(std::strtoul(text.c_str(), nullptr, 0)); break;
        case Field::Signed: sum += std::strtol(text.c_str(), nullptr, 10); break;
        case Field::Real: sum += static_cast<int64_t>(std::strtod(text.c_str(), nullptr)); break;
        case Field::Name: sum += static_cast<int64_t>(std::strlen(text.c_str())); break;
        }
    }
    return sum;
}

void RegisterScans() {
    const std::vector<ScanCase> cases = {
        {"boolean", CT_BOOLEAN, "T", 85, {{"1", Field::Unsigned}}},
        {"unsigned", CT_UNSIGNED, "4194303", 85, {{"4194303", Field::Unsigned}}},
        {"signed", CT_SIGNED, "-86400", 85, {{"-86400", Field::Signed}}},
        {"real", CT_REAL, "1013.250000", 85, {{"1013.250000", Field::Real}}},
        {"double", CT_DOUBLE, "-12345.678000", 85, {{"-12345.678000", Field::Real}}},
        {"enum_number", CT_ENUMERATED, "62", 117, {{"62", Field::Unsigned}}},
        {"enum_name", CT_ENUMERATED, "degrees-celsius", 117, {{"degrees-celsius", Field::Name}}},
        {"date", CT_DATE, "(saturday,21-november-2026)", 0,
         {{"saturday", Field::Name}, {"21", Field::Unsigned}, {"november", Field::Name}, {"2026", Field::Unsigned}}},
        {"date_numbers", CT_DATE, "(saturday,21-11-2026)", 0,
         {{"saturday", Field::Name}, {"21", Field::Unsigned}, {"11", Field::Unsigned}, {"2026", Field::Unsigned}}},
        {"time", CT_TIME, "07:05:00.00", 0,
         {{"07", Field::Unsigned}, {"05", Field::Unsigned}, {"00", Field::Unsigned}, {"00", Field::Unsigned}}},
        {"object_id", CT_OBJECT_ID, "(8,1234)", 0, {{"8", Field::Unsigned}, {"1234", Field::Unsigned}}},
        {"object_id_name", CT_OBJECT_ID, "(device,1234)", 0, {{"device", Field::Name}, {"1234", Field::Unsigned}}},
        {"string", CT_CHARACTER_STRING, "\"Room 1.23 supply air\"", 77, {{"Room 1.23 supply air", Field::Name}}},
        {"octets", CT_OCTET_STRING, "0x0A0BC0FF", 0, {{"0x0A0BC0FF", Field::Unsigned}}},
        {"unsigned_list", CT_UNSIGNED, "(0,42,4194303,86400)", 85,
         {{"0", Field::Unsigned}, {"42", Field::Unsigned}, {"4194303", Field::Unsigned}, {"86400", Field::Unsigned}}},
    };
    for (const ScanCase &c : cases) {
        auto *run = new ScanRun{c.text, c.code, c.hint, {}, {}};  // lives as long as the program
        const std::string prefix = std::string("scan/") + c.type + "/";
        Register(prefix + "bacfmt", [run] { return run->Pass(1) + run->Pass(0); });
        Register(prefix + "bacfmt_fill", [run] { return run->Pass(0); });
        Register(prefix + "limit", [fields = c.fields] { return FromChars(fields); });
        Register(prefix + "strto", [fields = c.fields] { return Strto(fields); });
    }
}

const bool registered = [] {
    RegisterPrints();
    RegisterScans();
    return true;
}();

}  // namespace
