// The object property catalogue: every table's size, common rows and
// invariants, the rows callers rely on by value, element sizes checked
// against the library's datatype table on the 32-bit target, and the
// lookups' edge cases.
#include <cstdint>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bacfmt/catalog.h>

#include "catalog/element_sizes.h"
#include "datatypes/table.h"

namespace {

constexpr bool kTarget32 = sizeof(void *) == 4;
constexpr uint32_t kProprietaryRows = 10;

struct TableCase {
    uint32_t objectType;
    const ObjPropDescription *table;
    const char *name;
    uint8_t rows;
};

#define TABLE(type, name, rows) {type, name, #name, rows}
const TableCase kTables[] = {
    TABLE(0, AllAIProps, 37),               TABLE(1, AllAOProps, 36),
    TABLE(2, AllAVProps, 35),               TABLE(3, AllBIProps, 35),
    TABLE(4, AllBOProps, 39),               TABLE(5, AllBVProps, 36),
    TABLE(6, AllCalendarProps, 8),          TABLE(7, AllCommandProps, 11),
    TABLE(8, AllDeviceProps, 60),           TABLE(9, AllEventProps, 26),
    TABLE(10, AllFileProps, 13),            TABLE(11, AllGroupProps, 8),
    TABLE(12, AllLoopProps, 46),            TABLE(13, AllMIProps, 29),
    TABLE(14, AllMOProps, 30),              TABLE(15, AllNotifyProps, 10),
    TABLE(16, AllProgramProps, 25),         TABLE(17, AllScheduleProps, 26),
    TABLE(18, AllAveragingProps, 17),       TABLE(19, AllMVProps, 30),
    TABLE(20, AllTrendlogProps, 39),        TABLE(21, AllLifeSafetyPointProps, 38),
    TABLE(22, AllLifeSafetyZoneProps, 36),  TABLE(23, AllAccumulatorProps, 39),
    TABLE(24, AllPulseConverterProps, 38),  TABLE(25, AllEventlogProps, 31),
    TABLE(26, AllGlobalGroupProps, 34),     TABLE(27, AllTrendLogMultipleProps, 37),
    TABLE(28, AllLoadControlProps, 34),     TABLE(29, AllStructuredViewProps, 10),
    TABLE(30, AllAccessDoorProps, 39),      {31, nullptr, "(none)", 0},
    TABLE(32, AllAccessCredential, 28),     TABLE(33, AllAccessPoint, 52),
    TABLE(34, AllAccessRights, 14),         TABLE(35, AllAccessUser, 17),
    TABLE(36, AllAccessZone, 39),           TABLE(37, AllCredentialDataInput, 23),
    TABLE(38, AllNetworkSecurity, 17),      TABLE(39, AllBitstringValue, 29),
    TABLE(40, AllCharacterstringValue, 28), TABLE(41, AllDatePatternValue, 14),
    TABLE(42, AllDateValue, 14),            TABLE(43, AllDateTimePatternValue, 15),
    TABLE(44, AllDateTimeValue, 15),        TABLE(45, AllIntegerValue, 35),
    TABLE(46, AllLargeAnalogValue, 35),     TABLE(47, AllOctetstringValue, 14),
    TABLE(48, AllPositiveIntegerValue, 35), TABLE(49, AllTimePatternValue, 14),
    TABLE(50, AllTimeValue, 14),            TABLE(51, AllNotificationForwarder, 15),
    TABLE(52, AllAlertEnrollment, 20),      TABLE(53, AllChannel, 27),
    TABLE(54, AllLightingOutput, 29),
};
#undef TABLE
static_assert(std::size(kTables) == BACNET_CATALOG_OBJECT_TYPES);

// Every table with rows, the proprietary one last.
std::vector<TableCase> TablesWithRows() {
    std::vector<TableCase> tables;
    for (const TableCase &t : kTables)
        if (t.rows != 0) tables.push_back(t);
    tables.push_back({55, AllProprietary, "AllProprietary", kProprietaryRows});
    return tables;
}

// Object types whose object name carries the list-entry flag.
bool NameInListEntry(uint32_t objectType) {
    return objectType <= 10 || (objectType >= 12 && objectType <= 17) ||
           (objectType >= 19 && objectType <= 22) || objectType == 25 || objectType == 27 ||
           objectType == 29;
}

TEST(CatalogTables, IndexAndCountsMatchTheNamedTables) {
    for (const TableCase &t : kTables) {
        EXPECT_EQ(pAllObjectProps[t.objectType], t.table) << t.name;
        EXPECT_EQ(nAllObjectProps[t.objectType], t.rows) << t.name;
        uint32_t count = 12345;
        EXPECT_EQ(GetObjPropDescriptionList(t.objectType, &count), t.table) << t.name;
        EXPECT_EQ(count, t.rows) << t.name;
    }
}

TEST(CatalogTables, EveryTableStartsWithTheCommonRows) {
    for (const TableCase &t : TablesWithRows()) {
        SCOPED_TRACE(t.name);
        const ObjPropDescription *rows = t.table;
        EXPECT_EQ(rows[0].propertyId, 75u);
        EXPECT_EQ(rows[0].datatype, static_cast<uint32_t>(CT_OBJECT_ID));
        EXPECT_EQ(OBJPROP_MULTIPLICITY(rows[0].shape), 0u);
        EXPECT_EQ(rows[1].propertyId, 77u);
        EXPECT_EQ(rows[1].datatype, static_cast<uint32_t>(CT_CHARACTER_STRING));
        EXPECT_EQ(OBJPROP_MULTIPLICITY(rows[1].shape), 253u);
        EXPECT_EQ(rows[1].flags, NameInListEntry(t.objectType) ? 0x2008u : 0x2000u);
        EXPECT_EQ(rows[2].propertyId, 79u);
        EXPECT_EQ(rows[2].datatype, static_cast<uint32_t>(CT_ENUMERATED));
        EXPECT_EQ(OBJPROP_MULTIPLICITY(rows[2].shape), 0u);
        for (int i : {0, 1, 2}) {
            EXPECT_EQ(rows[i].access, 1u) << "row " << i;
            if (i != 1) {
                EXPECT_EQ(rows[i].flags, 0u) << "row " << i;
            }
        }
    }
}

bool ValidMultiplicity(const ObjPropDescription &row) {
    const uint32_t m = OBJPROP_MULTIPLICITY(row.shape);
    if (m == OBJPROP_TEXT) return row.datatype == CT_CHARACTER_STRING;
    return m <= 16 || m == OBJPROP_ARRAY || m == OBJPROP_LIST;
}

TEST(CatalogTables, RowsAreWellFormed) {
    for (const TableCase &t : TablesWithRows()) {
        std::set<uint32_t> seen;
        for (uint32_t i = 0; i < t.rows; ++i) {
            const ObjPropDescription &row = t.table[i];
            SCOPED_TRACE(std::string(t.name) + " row " + std::to_string(i) + " property " +
                         std::to_string(row.propertyId));
            // Lookups compare the low 16 bits, so those must be unique.
            EXPECT_TRUE(seen.insert(row.propertyId & 0xFFFFu).second) << "duplicate property";
            if (row.datatype == BACNET_DATATYPE_FROM_VALUE) {
                EXPECT_EQ(OBJPROP_ELEMENT_SIZE(row.shape), 0u);
            } else {
                EXPECT_NE(bacfmt::FindDatatype(row.datatype), nullptr) << "datatype " << row.datatype;
                EXPECT_GT(OBJPROP_ELEMENT_SIZE(row.shape), 0u);
            }
            EXPECT_TRUE(ValidMultiplicity(row)) << "shape " << std::hex << row.shape;
            EXPECT_TRUE(row.access == 1 || row.access == 2) << "access " << row.access;
            EXPECT_EQ((row.flags & OBJPROP_FLAG_OPERATOR_WRITABLE) != 0, row.access == 2);
        }
    }
}

// Every row is what the lookup finds for its own property: the search sees
// the whole table and nothing shadows a later row.
TEST(CatalogTables, EveryRowIsFoundByItsProperty) {
    for (const TableCase &t : TablesWithRows())
        for (uint32_t i = 0; i < t.rows; ++i)
            EXPECT_EQ(GetObjPropDescription(t.objectType, t.table[i].propertyId), &t.table[i])
                << t.name << " row " << i;
}

// Element sizes are those of the 32-bit layouts: the datatype table of the
// print and scan dispatchers must agree with the catalogue on every code.
TEST(CatalogElementSizes, AgreeWithTheDatatypeTableOnTheTarget) {
    if (!kTarget32) GTEST_SKIP() << "sizes of the 32-bit target";
    for (const TableCase &t : TablesWithRows()) {
        for (uint32_t i = 0; i < t.rows; ++i) {
            const ObjPropDescription &row = t.table[i];
            const bacfmt::DatatypeInfo *info = bacfmt::FindDatatype(row.datatype);
            if (info == nullptr) continue;  // BACNET_DATATYPE_FROM_VALUE
            // A family whose layout the datatype table has not settled yet
            // says 0 there; the catalogue's size stands until it does.
            if (info->elementSize == 0) continue;
            EXPECT_EQ(OBJPROP_ELEMENT_SIZE(row.shape), info->elementSize)
                << t.name << " property " << row.propertyId << " " << info->name;
        }
    }
}

TEST(CatalogElementSizes, BuildSizesAreTheTargetSizes) {
    if (!kTarget32) GTEST_SKIP() << "sizes of the 32-bit target";
    for (const bacfmt::catalog::ElementSize &entry : bacfmt::catalog::kElementSizes) {
        EXPECT_EQ(entry.size, entry.targetSize) << "code " << entry.code;
        const bacfmt::DatatypeInfo *info = bacfmt::FindDatatype(entry.code);
        ASSERT_NE(info, nullptr) << "code " << entry.code;
        if (info->elementSize != 0) {
            EXPECT_EQ(info->elementSize, entry.targetSize) << info->name;
        }
    }
}

// The property data the tables are generated from, read independently of
// the generator: per object type the properties in the standard's order.
struct DataRow {
    uint32_t propertyId;
    std::string shape;
    bool required;
    bool later;  // came into the standard after revision 14
};

std::map<uint32_t, std::vector<DataRow>> ReadPropertyData() {
    const std::string dir = BACFMT_SOURCE_DIR "/data/object-properties/";
    std::set<std::pair<uint32_t, uint32_t>> later;
    std::ifstream additions(dir + "later-additions.tsv");
    std::string line;
    std::getline(additions, line);
    while (std::getline(additions, line)) {
        std::istringstream fields(line);
        uint32_t type = 0, property = 0;
        std::string name;
        if (fields >> type >> name >> property) later.insert({type, property});
    }
    std::map<uint32_t, std::vector<DataRow>> data;
    std::ifstream properties(dir + "object-properties.tsv");
    std::getline(properties, line);
    while (std::getline(properties, line)) {
        std::istringstream fields(line);
        uint32_t type = 0, property = 0;
        std::string typeName, propertyName, datatype, shape, conformance;
        if (!(fields >> type >> typeName >> property >> propertyName >> datatype >> shape >>
              conformance))
            continue;
        data[type].push_back({property, shape, conformance != "O",
                              later.count({type, property}) != 0});
    }
    return data;
}

uint32_t MultiplicityOf(const std::string &shape, bool characterString) {
    if (shape == "single") return characterString ? OBJPROP_TEXT : 0;
    if (shape == "array") return OBJPROP_ARRAY;
    if (shape == "list") return OBJPROP_LIST;
    return static_cast<uint32_t>(std::stoul(shape.substr(6)));  // "array[N]"
}

TEST(CatalogData, TablesFollowThePropertyData) {
    const auto data = ReadPropertyData();
    ASSERT_FALSE(data.empty()) << "data/object-properties/object-properties.tsv not read";
    for (const TableCase &t : kTables) {
        if (t.rows == 0) continue;
        SCOPED_TRACE(t.name);
        const std::vector<DataRow> &properties = data.at(t.objectType);
        // Rows appear in the data's order, each with the data's shape.
        size_t next = 0;
        std::set<uint32_t> listed;
        for (uint32_t i = 0; i < t.rows; ++i) {
            const ObjPropDescription &row = t.table[i];
            listed.insert(row.propertyId);
            while (next < properties.size() && properties[next].propertyId != row.propertyId) ++next;
            ASSERT_LT(next, properties.size())
                << "property " << row.propertyId << " out of order or not of this type";
            EXPECT_EQ(OBJPROP_MULTIPLICITY(row.shape),
                      MultiplicityOf(properties[next].shape, row.datatype == CT_CHARACTER_STRING))
                << "property " << row.propertyId;
        }
        // No required property of revision 14 is left out.
        for (const DataRow &property : properties)
            if (property.required && !property.later) {
                EXPECT_TRUE(listed.count(property.propertyId)) << "required " << property.propertyId;
            }
    }
}

struct RowCase {
    const char *what;
    uint32_t objectType;
    uint32_t propertyId;
    uint32_t datatype;
    uint32_t multiplicity;
    uint32_t elementSize;  // on the 32-bit target
    uint32_t access;
    uint32_t flags;
};

// Rows that callers depend on by value.
const RowCase kQuotedRows[] = {
    {"analog input present value", 0, 85, CT_REAL, 0, 4, 1, 0x6218},
    {"analog input out-of-service", 0, 81, CT_BOOLEAN, 0, 1, 2, 0x2118},
    {"analog input status flags", 0, 111, CT_BIT_STRING, 0, 24, 1, 0xE218},
    {"device object name", 8, 77, CT_CHARACTER_STRING, 253, 16, 1, 0x2008},
    {"accumulator object name", 23, 77, CT_CHARACTER_STRING, 253, 16, 1, 0x2000},
    {"analog output priority array", 1, 87, CT_PRI_ARRAY_ITEM, 16, 28, 1, 0x2000},
    {"analog input event time stamps", 0, 130, CT_TIME_STAMP, 3, 24, 1, 0x2000},
    {"device object list", 8, 76, CT_OBJECT_ID, 254, 8, 1, 0x2000},
    {"device address binding", 8, 30, CT_ADDRESS_BINDING, 255, 20, 1, 0x2000},
    {"schedule weekly schedule", 17, 123, CT_DAILY_SCHEDULE, 7, 8, 1, 0x2000},
    {"schedule present value", 17, 85, BACNET_DATATYPE_FROM_VALUE, 0, 0, 1, 0x6218},
    {"proprietary object identifier", 130, 75, CT_OBJECT_ID, 0, 8, 1, 0},
    {"proprietary object name", 130, 77, CT_CHARACTER_STRING, 253, 16, 1, 0x2000},
    {"proprietary present value", 130, 85, CT_TIME, 0, 4, 2, 0x6310},
    {"proprietary property list", 130, 371, CT_ENUMERATED, 254, 4, 1, 0x2000},
    {"proprietary profile name", 130, 168, CT_CHARACTER_STRING, 253, 16, 1, 9},
};

TEST(CatalogRows, QuotedRowsHoldExactly) {
    for (const RowCase &c : kQuotedRows) {
        const ObjPropDescription *row = GetObjPropDescription(c.objectType, c.propertyId);
        ASSERT_NE(row, nullptr) << c.what;
        EXPECT_EQ(row->datatype, c.datatype) << c.what;
        EXPECT_EQ(OBJPROP_MULTIPLICITY(row->shape), c.multiplicity) << c.what;
        EXPECT_EQ(row->access, c.access) << c.what;
        EXPECT_EQ(row->flags, c.flags) << c.what;
        if (kTarget32) {
            EXPECT_EQ(OBJPROP_ELEMENT_SIZE(row->shape), c.elementSize) << c.what;
        }
    }
}

TEST(CatalogRows, ProprietaryTableInOrder) {
    const uint32_t expected[kProprietaryRows] = {75, 77, 79, 28, 85, 111, 36, 103, 371, 168};
    for (uint32_t i = 0; i < kProprietaryRows; ++i)
        EXPECT_EQ(AllProprietary[i].propertyId, expected[i]) << "row " << i;
}

struct LookupCase {
    const char *what;
    uint32_t objectType;
    uint32_t propertyId;
    const ObjPropDescription *row;
};

TEST(CatalogLookup, FindsFirstMatchOnLowSixteenBits) {
    const LookupCase cases[] = {
        {"device identifier", 8, 75, &AllDeviceProps[0]},
        {"high bits ignored", 8, 0x1004B, &AllDeviceProps[0]},
        {"all high bits set", 8, 0xFFFF004Bu, &AllDeviceProps[0]},
        {"type without table", 31, 75, nullptr},
        {"property not in table", 0, 9999, nullptr},
        {"property of another type", 0, 76, nullptr},
        {"first proprietary type", 55, 85, &AllProprietary[4]},
        {"proprietary present value", 130, 85, &AllProprietary[4]},
        {"largest type", 0xFFFFFFFFu, 168, &AllProprietary[9]},
        {"proprietary high bits ignored", 130, 0x20000 + 371, &AllProprietary[8]},
        {"not a proprietary row", 130, 117, nullptr},
        {"last type with a table", 54, 75, &AllLightingOutput[0]},
    };
    for (const LookupCase &c : cases)
        EXPECT_EQ(GetObjPropDescription(c.objectType, c.propertyId), c.row) << c.what;
}

struct SupportCase {
    uint32_t objectType;
    uint8_t supported;
};

TEST(CatalogLookup, SupportedTypesAndLists) {
    const SupportCase cases[] = {{0, 255}, {30, 255}, {31, 0}, {32, 255}, {54, 255},
                                 {55, 255}, {130, 255}, {0xFFFFFFFFu, 255}};
    for (const SupportCase &c : cases)
        EXPECT_EQ(IsObjectSupportedByDriver(c.objectType), c.supported) << c.objectType;

    uint32_t count = 99;
    EXPECT_EQ(GetObjPropDescriptionList(31, &count), nullptr);
    EXPECT_EQ(count, 0u);
    for (uint32_t type : {55u, 130u, 0xFFFFFFFFu}) {
        count = 0;
        EXPECT_EQ(GetObjPropDescriptionList(type, &count), AllProprietary) << type;
        EXPECT_EQ(count, kProprietaryRows) << type;
    }
    EXPECT_EQ(GetObjPropDescriptionList(0, nullptr), AllAIProps);  // count not wanted
}

}  // namespace
