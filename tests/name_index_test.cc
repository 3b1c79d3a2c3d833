// The indexed name lookup gives the straightforward search's answers: on
// every name of every table of the text services in several spellings, on
// random words, and on a table made to test the tie rules (equal names in
// different case, unnamed values, prefixes).
#include <cctype>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bacfmt/enumtext.h>

#include "scan/name_index.h"

namespace {

using namespace bacfmt;

std::vector<std::string> Spellings(const std::string &name) {
    std::string upper = name, lower = name, mixed = name;
    for (size_t i = 0; i < name.size(); ++i) {
        upper[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[i])));
        lower[i] = static_cast<char>(std::tolower(static_cast<unsigned char>(name[i])));
        if (i % 2 == 0) mixed[i] = upper[i];
    }
    std::vector<std::string> all = {name, upper, lower, mixed, name + "x", name + "-", "x" + name};
    if (!name.empty()) all.push_back(name.substr(0, name.size() - 1));
    return all;
}

void ExpectSameAnswers(size_t tableNumber, const BACnetStringTable &table, const std::string &text) {
    for (bool exactCase : {false, true}) {
        EXPECT_EQ(IndexedNameLookup(tableNumber, table, text.c_str(), exactCase),
                  LinearNameLookup(table, text.c_str(), exactCase))
            << "table " << table.tableId << " text \"" << text << "\" exact " << exactCase;
    }
}

TEST(NameIndex, AgreesWithTheLinearSearchOnEveryTable) {
    const BACnetStringTableInfo *info = nullptr;
    BACnetGetStringTableInfo(&info);
    ASSERT_NE(info, nullptr);
    std::mt19937 random(20261124);
    const std::string letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ-_ 0123456789";
    for (uint32_t t = 0; t < info->tableCount; ++t) {
        const BACnetStringTable &table = info->tables[t];
        for (uint32_t i = 0; i < table.nameCount; ++i) {
            if (table.names[i] == nullptr) continue;
            for (const std::string &text : Spellings(table.names[i])) ExpectSameAnswers(t, table, text);
        }
        for (int i = 0; i < 50; ++i) {
            std::string word(1 + random() % 12, ' ');
            for (char &c : word) c = letters[random() % letters.size()];
            ExpectSameAnswers(t, table, word);
        }
        ExpectSameAnswers(t, table, "");
    }
}

TEST(NameIndex, KeepsTheTieRulesOfTheLinearSearch) {
    static const char *const names[] = {
        "Normal", nullptr, "normal", "NORMAL", "fault", "faults", "Fault", "f", "", "\xC3\xA9t\xC3\xA9", "ab", "aB",
    };
    const BACnetStringTable table{0, 9999, 0, names, sizeof names / sizeof names[0], 0, 0};
    const size_t privateSlot = 500;  // not a table of the text services
    for (const char *text : {"normal", "NORMAL", "Normal", "nOrMaL", "fault", "FAULT", "Fault", "faults", "f",
                             "F", "", "\xC3\xA9T\xC3\xA9", "ab", "AB", "aB", "a", "abc", "fa"}) {
        ExpectSameAnswers(privateSlot, table, text);
    }
    EXPECT_EQ(IndexedNameLookup(privateSlot, table, "NORMAL", false), 0);  // the lowest value
    EXPECT_EQ(IndexedNameLookup(privateSlot, table, "NORMAL", true), 3);   // the lowest exact one
}

TEST(NameIndex, FindsTheTablesOfAnIdentifierInTheSetsOrder) {
    const BACnetStringTableInfo *info = nullptr;
    BACnetGetStringTableInfo(&info);
    ASSERT_NE(info, nullptr);
    std::vector<uint32_t> ids = {0xFFFFFFFFu, 1000000u};  // identifiers of no table
    for (uint32_t t = 0; t < info->tableCount; ++t) ids.push_back(info->tables[t].tableId);
    for (uint32_t id : ids) {
        std::vector<uint32_t> expected;
        for (uint32_t t = 0; t < info->tableCount; ++t)
            if (info->tables[t].tableId == id) expected.push_back(t);
        const uint16_t *first = nullptr;
        const uint16_t *last = nullptr;
        ASSERT_TRUE(TablesWithId(*info, id, &first, &last));
        EXPECT_EQ(std::vector<uint32_t>(first, last), expected) << "identifier " << id;
    }
}

}  // namespace
