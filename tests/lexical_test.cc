// The lexical helpers: character classes, trimming, quoting and the element
// splitter on which every scanner counts and walks its elements.
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "scan/lexical.h"

namespace bacfmt {
namespace {

// A writable copy of a test text; the helpers cut their text in place.
struct Text {
    explicit Text(const std::string &text) : bytes(text.begin(), text.end()) { bytes.push_back('\0'); }
    char *get() { return bytes.data(); }
    std::vector<char> bytes;
};

std::string Or(const char *text) { return text != nullptr ? text : "<null>"; }

// The character classes, written independently of the implementation: only
// these bytes belong to them, and the acute accent (C2 B4) never does.
TEST(Lexical, CharacterTestsOverAllBytes) {
    for (int b = 0; b < 256; ++b) {
        const char c = static_cast<char>(b);
        EXPECT_EQ(IsQuote(c), b == '"' || b == '\'' ? b : 0) << b;
        EXPECT_EQ(IsEscapeQuote(c), b == '\\' ? b : 0) << b;
        EXPECT_EQ(IsOpeningBracket(c), b == '(' ? b : 0) << b;
        EXPECT_EQ(IsClosingBracket(c), b == ')' ? b : 0) << b;
    }
}

TEST(Lexical, StrICmpComparesUpperCasedBytesThenLengths) {
    struct Case { const char *a, *b; int result; };
    const Case cases[] = {
        {"abc", "ABC", 0}, {"", "", 0}, {"abc", "abd", -1}, {"b", "A", 1},
        {"ab", "abcde", -3}, {"abcd", "ab", 2}, {"\xE9", "\xC9", 0x20},  // bytes above 127 keep their case
    };
    for (const Case &c : cases) EXPECT_EQ(str_i_cmp(c.a, c.b), c.result) << c.a << " vs " << c.b;
}

// The helpers that rewrite a text in place and return a pointer into it.
TEST(Lexical, InPlaceHelpers) {
    struct Case { char *(*helper)(char *); const char *in, *out; };
    const Case cases[] = {
        {KillTrailLeadSpace, "\t x \r\n", "\t x"},     // a leading TAB stays
        {KillTrailLeadSpace, "   abc   ", "abc"},
        {KillTrailLeadSpace, "x\t", "x\t"},             // so does a trailing one
        {KillTrailLeadSpace, "    ", ""},
        {KillQuote, "'abc\"", "abc"},
        {KillQuote, "\"a\\\"\"", "a\\\""},              // the escaped quote survives
        {KillQuote, "abc\"", "abc\""},                  // not quoted: unchanged
        {KillQuote, "  \"x\"''", "x"},                  // every trailing quote goes
        {KillQuote, "\"", ""},
        {KillQuote, "\xC2\xB4x\xC2\xB4", "\xC2\xB4x\xC2\xB4"},   // the accent is no quote
        {DeBracket, "((a),b)", "(a),b"},
        {DeBracket, "(a)(b)", "b"},                     // every closed group is cut; the last wins
        {DeBracket, "plain", "plain"},
        {DeBracket, "[3](a)", "[3](a)"},                // a choice tag is left alone
        {DeBracket, "(\"x)\")", "\"x)\""},
        {DeBracket, "(X\"a)\")", "X\"a"},               // a quote after X opens nothing
    };
    for (const Case &c : cases) {
        Text text(c.in);
        EXPECT_EQ(Or(c.helper(text.get())), c.out) << c.in;
        EXPECT_EQ(c.helper(nullptr), nullptr);
    }
}

TEST(Lexical, ParseElementSplitsTopLevelCommas) {
    struct Case { const char *in; int count; const char *first, *rest; };
    const Case cases[] = {
        {"1, 2 ,3", 3, "1", " 2 ,3"},
        {"(1,2),(3,4)", 2, "1,2", "(3,4)"},
        {"(1,2,3)", 3, "1", nullptr},
        {"((1,2),(3,4))", 2, "(1,2", nullptr},
        {"{}", 0, "", nullptr},
        {"\"a,b\",c", 2, "\"a,b\"", "c"},
        {"don't, x", 2, "don't", " x"},      // an apostrophe opens nothing
        {"'a,b'", 1, "'a,b'", nullptr},      // a leading single quote does
        {"x,'a,b'", 3, "x", "'a,b'"},
        {"a b c", 1, "a b c", nullptr},      // blanks belong to the word
        {",a", 2, "", "a"},
        {"abc(d)", 1, "abc(d)", nullptr},    // a group behind a word stays
        {"\"open, never closed", 1, "\"open, never closed", nullptr},
        {"1)", -1, "<unset>", "<unset>"},
        {"(1", -1, "<unset>", "<unset>"},
        {"{(}", -1, "<unset>", "<unset>"},
    };
    for (const Case &c : cases) {
        Text text(c.in);
        char unset[] = "<unset>";
        char *first = unset;
        char *rest = unset;
        EXPECT_EQ(ParseElement(text.get(), &first, &rest), c.count) << c.in;
        EXPECT_EQ(Or(first), Or(c.first)) << c.in;
        EXPECT_EQ(Or(rest), Or(c.rest)) << c.in;
        Text again(c.in);
        EXPECT_EQ(ParseElement(again.get(), nullptr, nullptr), c.count) << "counting " << c.in;
        EXPECT_STREQ(again.get(), c.in) << "counting works on a copy";
    }
    Text text("a,b");
    char *first = nullptr;
    EXPECT_EQ(ParseElement(nullptr, nullptr, nullptr), -2);
    EXPECT_EQ(ParseElement(text.get(), &first, nullptr), -2);
    Text empty("");
    EXPECT_EQ(ParseElement(empty.get(), &first, &first), 0);
}

TEST(Lexical, ElementListWalksTheElementsOfAList) {
    struct Case { const char *in; std::vector<std::string> elements; bool firstIsGroup; };
    const Case cases[] = {
        {"(1, 2 ,3)", {"1", "2 ", "3"}, false},    // later elements start at their first byte
        {"((1,0),(1,1))", {"1,0", "1,1"}, true},
        {"(1,0),(1,1)", {"1,0", "1,1"}, true},
        {"((a),b),((c),d)", {"(a),b", "(c),d"}, true},
        {"('x','y,z')", {"'x'", "'y", "z'"}, false},  // only a leading single quote quotes
        {"1,", {"1", ""}, false},
        {"()", {}, false},
        {"", {}, false},
    };
    for (const Case &c : cases) {
        Text text(c.in);
        ElementList list(text.get());
        ASSERT_EQ(list.count(), static_cast<int>(c.elements.size())) << c.in;
        EXPECT_EQ(list.firstIsGroup(), c.firstIsGroup) << c.in;
        for (const std::string &expected : c.elements) EXPECT_EQ(Or(list.Next()), expected) << c.in;
        EXPECT_EQ(list.Next(), nullptr) << c.in;
    }
    EXPECT_EQ(ElementList(nullptr).count(), -2);
}

TEST(Lexical, ParseBracketsCopiesTheFirstGroup) {
    struct Case { const char *in; int size; const char *copied, *after; };
    const Case cases[] = {
        {"x(a(b)c)y", 10, "a(b)c", "y"},
        {"(\")\")z", 10, "\")\"", "z"},     // a bracket inside quotes does not count
        {"()", 10, "", ""},
        {"(abc)", 3, "", nullptr},          // content not smaller than the room
        {"(abc", 10, "", nullptr},          // unclosed
        {")(a)", 10, "", nullptr},          // a stray closer first
        {"plain", 10, "plain", ""},         // no group: the whole text
        {"plain", 5, "", nullptr},          // room not larger than the text
        {"   abc", 10, "abc", ""},          // the end of the text, not beyond it
    };
    for (const Case &c : cases) {
        Text text(c.in);
        char dst[16] = "";
        EXPECT_EQ(Or(ParseBrackets(text.get(), dst, c.size)), Or(c.after)) << c.in;
        EXPECT_STREQ(dst, c.copied) << c.in;
    }
}

TEST(Lexical, ParseChoiceReadsALeadingTag) {
    struct Case { const char *in; int32_t selector; int result; const char *after; };
    const Case cases[] = {
        {"[3] 12", -1, 3, " 12"},           {"  [258](x)", -1, 258, "(x)"},
        {"[ASN1]0102", -1, 515, "0102"},    {"[abc]x", -1, 0, "x"},   // no name, no number: 0
        {"[high-limit]", 36, 3, ""},        {"[7]", 36, 7, ""},       // a name of the selector's table
        {"x[3]", -1, -2, "<unset>"},        {"[3", -1, -2, "<null>"},
    };
    for (const Case &c : cases) {
        Text text(c.in);
        char unset[] = "<unset>";
        char *after = unset;
        EXPECT_EQ(ParseChoice(text.get(), c.selector, &after), c.result) << c.in;
        EXPECT_EQ(Or(after), c.after) << c.in;
    }
    Text text("[1]");
    EXPECT_EQ(ParseChoice(text.get(), -1, nullptr), -1);
}

TEST(Lexical, WordTestsLookForTheirCharacterAnywhere) {
    struct Case { const char *in; int unknown, unspecified, isVoid; };
    const Case cases[] = {
        {"?", '?', '?', 0},    {"12?", '?', '1', 0},  {"a*b", 0, '*', 0},  {"*?", '?', '*', 0},
        {"2000-1-1", 0, 0, '-'}, {"  -  ", 0, 0, '-'}, {"", 0, 0, 0},
    };
    for (const Case &c : cases) {
        Text a(c.in), b(c.in), d(c.in);
        EXPECT_EQ(IsUnknownString(a.get()), c.unknown) << c.in;
        EXPECT_EQ(IsUnspecifiedString(b.get()), c.unspecified) << c.in;
        EXPECT_EQ(IsVoidString(d.get()), c.isVoid) << c.in;
    }
}

TEST(Lexical, SScanHexByteAndMyStrStr) {
    struct HexCase { const char *in; int max; std::vector<uint8_t> bytes; };
    const HexCase hexCases[] = {
        {"0x0A1B", 10, {0x0A, 0x1B}}, {"0x0A1B", 1, {0x0A}}, {"X'0a1b'", 10, {0x0A, 0x1B}},
        {"0x1g2", 10, {0x01}},       // "1g" reads 1; the odd digit is ignored
        {"0xg1", 10, {0x00}},        {"x", 10, {}},        // the prefix skip stops at the end
    };
    for (const HexCase &c : hexCases) {
        uint8_t out[16] = {};
        const int stored = SScanHexByte(c.in, out, c.max);
        EXPECT_EQ(std::vector<uint8_t>(out, out + stored), c.bytes) << c.in;
    }
    struct FindCase { const char *in; int at; };
    const FindCase findCases[] = {{"a,b", 1}, {"\"a,b\",c", 5}, {"'x\"y',z", 5}, {"\"never closed,", -1}};
    for (const FindCase &c : findCases) {
        Text text(c.in);
        char *found = my_str_str(text.get(), ",");
        EXPECT_EQ(found == nullptr ? -1 : static_cast<int>(found - text.get()), c.at) << c.in;
    }
}

TEST(Lexical, BackupOfAnOverlongTextStaysTerminated) {
    Text text(std::string(1500, 'a'));
    SaveText(backupString, text.get());
    EXPECT_EQ(std::strlen(backupString), kBackupStringSize - 1);
    RestoreText(text.get(), backupString);
    EXPECT_EQ(std::strlen(text.get()), kBackupStringSize - 1);
}

}  // namespace
}  // namespace bacfmt
