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

std::string Or(const char *text, const char *none = "<null>") { return text != nullptr ? text : none; }

TEST(Lexical, StrICmpComparesUpperCasedBytesThenLengths) {
    struct Case { const char *a, *b; int sign; };
    const Case cases[] = {
        {"abc", "ABC", 0},    {"", "", 0},        {"Null", "NULL", 0},
        {"abc", "abd", -1},   {"b", "A", 1},      {"ab", "abc", -1},
        {"abcd", "ab", 1},    {"\xE9", "\xC9", 1},  // bytes above 127 keep their case
    };
    for (const Case &c : cases) {
        const int result = str_i_cmp(c.a, c.b);
        EXPECT_EQ((result > 0) - (result < 0), c.sign) << c.a << " vs " << c.b;
    }
    EXPECT_EQ(str_i_cmp("ab", "abcde"), -3);  // the length difference itself
}

TEST(Lexical, KillTrailLeadSpaceTrimsSpacesOnlyInFrontAndCrLfBehind) {
    struct Case { const char *in, *out; };
    const Case cases[] = {
        {"\t x \r\n", "\t x"},  // a leading TAB stays
        {"   abc   ", "abc"},
        {"a b", "a b"},
        {"    ", ""},
        {"x\t", "x\t"},         // a trailing TAB stays too
        {"", ""},
    };
    for (const Case &c : cases) {
        Text text(c.in);
        EXPECT_EQ(Or(KillTrailLeadSpace(text.get())), c.out) << c.in;
    }
    EXPECT_EQ(KillTrailLeadSpace(nullptr), nullptr);
}

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

TEST(Lexical, KillQuoteRemovesOpeningAndEveryUnescapedTrailingQuote) {
    struct Case { const char *in, *out; };
    const Case cases[] = {
        {"'abc\"", "abc"},
        {"\"a\\\"\"", "a\\\""},    // the escaped quote survives
        {"abc\"", "abc\""},        // not quoted: unchanged
        {"  \"x\"''", "x"},        // all trailing quotes go
        {"\"", ""},
        {"\"\"", ""},
        {"\"\\\"", "\\\""},
        {"\xC2\xB4x\xC2\xB4", "\xC2\xB4x\xC2\xB4"},  // the accent is no quote
    };
    for (const Case &c : cases) {
        Text text(c.in);
        EXPECT_EQ(Or(KillQuote(text.get())), c.out) << c.in;
    }
    EXPECT_EQ(KillQuote(nullptr), nullptr);
}

TEST(Lexical, ParseElementSplitsTopLevelCommas) {
    struct Case { const char *in; int count; const char *first, *rest; };
    const Case cases[] = {
        {"1, 2 ,3", 3, "1", " 2 ,3"},
        {"(1,2),(3,4)", 2, "1,2", "(3,4)"},
        {"(1,2,3)", 3, "1", nullptr},
        {"{}", 0, "", nullptr},
        {"()", 0, "", nullptr},
        {"\"a,b\",c", 2, "\"a,b\"", "c"},
        {"don't, x", 2, "don't", " x"},      // an apostrophe opens nothing
        {"a b c", 1, "a b c", nullptr},      // blanks belong to the word
        {"  7", 1, "7", nullptr},
        {",a", 2, "", "a"},
        {"abc(d)", 1, "abc(d)", nullptr},    // a group behind a word stays
        {"'a,b'", 1, "'a,b'", nullptr},      // a leading single quote does quote
        {"x,'a,b'", 3, "x", "'a,b'"},        // later ones do not
        {"\"open, never closed", 1, "\"open, never closed", nullptr},
        {"((1,2),(3,4))", 2, "(1,2", nullptr},
        {"{a,b},{c}", 2, "a,b", "{c}"},
    };
    for (const Case &c : cases) {
        Text text(c.in);
        char *first = nullptr;
        char *rest = nullptr;
        EXPECT_EQ(ParseElement(text.get(), &first, &rest), c.count) << c.in;
        EXPECT_EQ(Or(first), Or(c.first)) << c.in;
        EXPECT_EQ(Or(rest), Or(c.rest)) << c.in;
        Text again(c.in);
        EXPECT_EQ(ParseElement(again.get(), nullptr, nullptr), c.count) << "counting " << c.in;
        EXPECT_STREQ(again.get(), c.in) << "counting works on a copy";
    }
}

TEST(Lexical, ParseElementRejectsUnbalancedBracketsAndBadArguments) {
    for (const char *in : {"1)", "(1", "((a)", "a)(", "{(}"}) {
        Text text(in);
        char *first;
        char *rest;
        EXPECT_EQ(ParseElement(text.get(), &first, &rest), -1) << in;
    }
    Text text("a,b");
    char *first = nullptr;
    EXPECT_EQ(ParseElement(nullptr, nullptr, nullptr), -2);
    EXPECT_EQ(ParseElement(text.get(), &first, nullptr), -2);
    EXPECT_EQ(ParseElement(text.get(), nullptr, &first), -2);
    Text empty("");
    EXPECT_EQ(ParseElement(empty.get(), nullptr, nullptr), 0);
}

TEST(Lexical, ElementListWalksTheElementsOfAList) {
    struct Case { const char *in; std::vector<std::string> elements; bool firstIsGroup; };
    const Case cases[] = {
        {"1,2,3", {"1", "2", "3"}, false},
        {"(1, 2 ,3)", {"1", "2 ", "3"}, false},  // later elements start at their first byte
        {"((1,0),(1,1))", {"1,0", "1,1"}, true},
        {"(1,0),(1,1)", {"1,0", "1,1"}, true},
        {"((a),b),((c),d)", {"(a),b", "(c),d"}, true},
        {"1,", {"1", ""}, false},
        {"  x  ", {"x  "}, false},
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
    struct Case { const char *in; int size; const char *copied; const char *after; };
    const Case cases[] = {
        {"(a,b) rest", 10, "a,b", " rest"},
        {"x(a(b)c)y", 10, "a(b)c", "y"},
        {"(\")\")z", 10, "\")\"", "z"},   // a bracket inside quotes does not count
        {"()", 10, "", ""},
        {"(abc)", 3, nullptr, nullptr},     // content not smaller than the room
        {"(abc", 10, nullptr, nullptr},     // unclosed
        {")(a)", 10, nullptr, nullptr},     // a stray closer first
        {"plain", 10, "plain", ""},         // no group: the whole text
        {"plain", 5, nullptr, nullptr},     // room not larger than the text
    };
    for (const Case &c : cases) {
        Text text(c.in);
        char dst[16] = "untouched";
        char *after = ParseBrackets(text.get(), dst, c.size);
        EXPECT_EQ(Or(after), Or(c.after)) << c.in;
        if (c.copied != nullptr) {
            EXPECT_STREQ(dst, c.copied) << c.in;
        }
    }
}

TEST(Lexical, ParseBracketsAfterLeadingSpacesStopsAtTheTextsEnd) {
    Text text("   abc");
    char dst[16];
    char *after = ParseBrackets(text.get(), dst, sizeof dst);
    EXPECT_STREQ(dst, "abc");
    EXPECT_EQ(after, text.get() + 6);  // the terminator, not beyond it
}

TEST(Lexical, DeBracketStripsTheOutermostGroups) {
    struct Case { const char *in, *out; };
    const Case cases[] = {
        {"(a,b)", "a,b"},
        {"((a),b)", "(a),b"},
        {"(a)(b)", "b"},                  // every closed group is cut; the last wins
        {"plain", "plain"},
        {"[3](a)", "[3](a)"},             // a choice tag is left alone
        {"(\"x)\")", "\"x)\""},
        {"(X\"a)\")", "X\"a"},            // a quote after X opens nothing
    };
    for (const Case &c : cases) {
        Text text(c.in);
        EXPECT_EQ(Or(DeBracket(text.get())), c.out) << c.in;
    }
}

TEST(Lexical, ParseChoiceReadsALeadingTag) {
    struct Case { const char *in; int result; const char *after; };
    const Case cases[] = {
        {"[3] 12", 3, " 12"},
        {"  [258](x)", 258, "(x)"},
        {"[ASN1]0102", 515, "0102"},
        {"[abc]x", 0, "x"},               // neither a name nor a number: 0
        {"x[3]", -2, "unset"},
        {"[3", -2, "<null>"},
        {"", -2, "unset"},
    };
    for (const Case &c : cases) {
        Text text(c.in);
        char unset[] = "unset";
        char *after = unset;
        EXPECT_EQ(ParseChoice(text.get(), -1, &after), c.result) << c.in;
        EXPECT_EQ(Or(after), c.after) << c.in;
    }
    Text text("[1]");
    EXPECT_EQ(ParseChoice(text.get(), -1, nullptr), -1);
}

TEST(Lexical, WordTestsLookForTheirCharacterAnywhere) {
    struct Case { const char *in; int unknown, unspecified, isVoid; };
    const Case cases[] = {
        {"?", '?', '?', 0},
        {"12?", '?', '1', 0},
        {"a*b", 0, '*', 0},
        {"*?", '?', '*', 0},
        {"2000-1-1", 0, 0, '-'},
        {"  -  ", 0, 0, '-'},
        {"", 0, 0, 0},
        {"value", 0, 0, 0},
    };
    for (const Case &c : cases) {
        Text a(c.in), b(c.in), d(c.in);
        EXPECT_EQ(IsUnknownString(a.get()), c.unknown) << c.in;
        EXPECT_EQ(IsUnspecifiedString(b.get()), c.unspecified) << c.in;
        EXPECT_EQ(IsVoidString(d.get()), c.isVoid) << c.in;
    }
}

TEST(Lexical, SScanHexByteReadsPairsBehindThePrefix) {
    struct Case { const char *in; int max; std::vector<int> bytes; };
    const Case cases[] = {
        {"0x0A1B", 10, {0x0A, 0x1B}},
        {"0x0A1B", 1, {0x0A}},
        {"X'0a1b'", 10, {0x0A, 0x1B}},
        {"0x1g2", 10, {0x01}},            // "1g" reads 1; the odd digit is ignored
        {"0xg1", 10, {0x00}},
        {"ab", 10, {0xAB}},
        {"x", 10, {}},                    // the prefix skip stops at the end
        {"xX", 10, {}},
    };
    for (const Case &c : cases) {
        uint8_t out[16] = {};
        const int stored = SScanHexByte(c.in, out, c.max);
        ASSERT_EQ(stored, static_cast<int>(c.bytes.size())) << c.in;
        for (int i = 0; i < stored; ++i) EXPECT_EQ(out[i], c.bytes[i]) << c.in << " byte " << i;
    }
}

TEST(Lexical, MyStrStrSkipsQuotedStretches) {
    struct Case { const char *in, *pattern; int at; };
    const Case cases[] = {
        {"a,b", ",", 1},
        {"\"a,b\",c", ",", 5},
        {"'x\"y',z", ",", 5},   // the other quote kind does not close
        {"\"never closed,", ",", -1},
        {"abc", "d", -1},
    };
    for (const Case &c : cases) {
        Text text(c.in);
        char *found = my_str_str(text.get(), c.pattern);
        EXPECT_EQ(found == nullptr ? -1 : static_cast<int>(found - text.get()), c.at) << c.in;
    }
    EXPECT_EQ(my_str_str(nullptr, ","), nullptr);
}

TEST(Lexical, BackupOfAnOverlongTextStaysTerminated) {
    std::string longText(1500, 'a');
    SaveText(backupString, longText.c_str());
    EXPECT_EQ(std::strlen(backupString), kBackupStringSize - 1);
    Text text(longText);
    RestoreText(text.get(), backupString);
    EXPECT_EQ(std::strlen(text.get()), kBackupStringSize - 1);
}

}  // namespace
}  // namespace bacfmt
