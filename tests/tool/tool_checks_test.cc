// The tool's strict reading, piece by piece: the byte checks, the notation
// cut into elements, the element rules, and the check by shape of values
// whose layout the tool does not know, against printed forms given here.
#include <gtest/gtest.h>

#include <string>

#include <bacfmt/contents.h>

#include "element_checks.h"
#include "element_rules.h"
#include "notation_tree.h"
#include "text_checks.h"

namespace bacfmt::tool {
namespace {

// "ok", or the offset and the message of the problem.
std::string Rendered(const std::optional<TextProblem> &problem) {
    return problem ? std::to_string(problem->offset) + ": " + problem->what : "ok";
}

TEST(ToolTextChecks, BadBytesAndTheirOffsets) {
    struct Case { std::string text; std::string want; };
    const Case cases[] = {
        {"plain \xc3\xa9t\xc3\xa9 \xe2\x82\xac \xf0\x9f\x98\x80", "ok"},
        {std::string("ab\0cd", 5), "2: NUL byte"},
        {"ab\xfc\x80\x80\x80\x80\x80", "2: invalid UTF-8"},  // six-byte form
        {"\xc0\xaf", "0: invalid UTF-8"},                    // overlong "/"
        {"x\xe0\x80\xaf", "1: invalid UTF-8"},               // overlong, three bytes
        {"\xed\xa0\x80", "0: invalid UTF-8"},                // surrogate
        {"\xf4\x90\x80\x80", "0: invalid UTF-8"},            // above U+10FFFF
        {"caf\xe9", "3: invalid UTF-8"},                     // Latin-1
        {"\xe2\x82", "0: invalid UTF-8"},                    // cut short
    };
    for (const Case &c : cases) EXPECT_EQ(Rendered(FindBadByte(c.text)), c.want) << c.text;
}

TEST(ToolTextChecks, QuotesEightyCharactersAtMost) {
    EXPECT_EQ(QuoteForMessage("a\tb\xff"), "a\\x09b\\xFF");
    EXPECT_EQ(QuoteForMessage(std::string(80, 'x')), std::string(80, 'x'));
    EXPECT_EQ(QuoteForMessage(std::string(79, 'x') + "\xc3\xa9" + "yz"),
              std::string(79, 'x') + "\xc3\xa9... (83 bytes)");
}

TEST(ToolNotationTree, CutsElementsWithTheirOffsets) {
    const auto nodes = ParseNotation(" [4] (a, (b,c)) \"x,\\\"y\" , w o rd's ");
    ASSERT_TRUE(nodes);
    ASSERT_EQ(nodes->size(), 4u);
    EXPECT_EQ((*nodes)[0].kind, NotationNode::Kind::Tag);
    EXPECT_EQ((*nodes)[0].text, "4");
    EXPECT_EQ((*nodes)[1].kind, NotationNode::Kind::Group);
    EXPECT_EQ((*nodes)[1].children[1].children[1].text, "c");
    EXPECT_EQ((*nodes)[1].children[1].children[1].offset, 12u);
    EXPECT_EQ((*nodes)[2].text, "\"x,\\\"y\"");
    EXPECT_EQ((*nodes)[3].text, "w o rd's");

    EXPECT_FALSE(ParseNotation("(a"));
    EXPECT_FALSE(ParseNotation("a)"));
    EXPECT_TRUE(ParseNotation(std::string(64, '(') + std::string(64, ')')));
    EXPECT_FALSE(ParseNotation(std::string(100000, '(') + std::string(100000, ')')));
}

TEST(ToolElementRules, NumbersWholeAndInRange) {
    struct Case { Verdict (*rule)(std::string_view, int32_t); const char *word; bool good; };
    const Case cases[] = {
        {UnsignedRule, "4294967295", true},  {UnsignedRule, "4294967296", false},
        {UnsignedRule, "0xFFFFFFFF", true},  {UnsignedRule, "0x100000000", false},
        {UnsignedRule, "0", true},           {UnsignedRule, "010", false},
        {UnsignedRule, "-1", false},         {UnsignedRule, "7x", false},
        {UnsignedRule, "", false},           {UnsignedRule, "99999999999999999999999", false},
        {SignedRule, "-2147483648", true},   {SignedRule, "-2147483649", false},
        {SignedRule, "+2147483647", true},   {SignedRule, "2147483648", false},
        {SignedRule, "0x10", false},         {SignedRule, "-", false},
        {RealRule, "4.5", true},             {RealRule, "4.5x", false},
        {RealRule, ".5", true},              {RealRule, "5.", true},
        {RealRule, "-1e-3", true},           {RealRule, "1e", false},
        {RealRule, "3.4e38", true},          {RealRule, "3.5e38", false},
        {RealRule, "1e-50", false},          {RealRule, "-inf", true},
        {RealRule, "NaN", true},             {RealRule, "+1.INF", false},
        {RealRule, "0x1p3", false},          {RealRule, ".", false},
        {DoubleRule, "1e300", true},         {DoubleRule, "1e400", false},
        {BooleanRule, "TRUE", true},         {BooleanRule, "1x", false},
        {BooleanRule, "?", false},           {BitRule, "t", false},
        {TimeRule, "23:59:59.99", true},     {TimeRule, "24:00:00.00", false},
        {TimeRule, "*:30:*.*", true},        {TimeRule, "12:30:00", false},
        {TimeRule, "300:00:00.00", false},   {DateWordRule, "34-14-65535", true},
        {DateWordRule, "1-may-2026", true},  {DateWordRule, "35-may-2026", false},
        {DateWordRule, "1-mai-2026", false}, {DateWordRule, "wensday", false},
        {OctetsRule, "X'0A0B'", true},       {OctetsRule, "0x0a0", false},
        {OctetsRule, "0x0g", false},         {OctetsRule, "0A0B", false},
        {ObjectTypeRule, "1023", true},      {ObjectTypeRule, "1024", false},
        {ObjectTypeRule, "proprietary-600", true}, {ObjectTypeRule, "analog-3", false},
        {InstanceRule, "4194303", true},     {InstanceRule, "4194304", false},
    };
    for (const Case &c : cases) EXPECT_EQ(!c.rule(c.word, -1), c.good) << c.word;
}

TEST(ToolElementRules, EnumerationNamesOfTheirTable) {
    constexpr int32_t kUnits = 117;
    EXPECT_FALSE(EnumeratedRule("degrees-celsius", kUnits));
    EXPECT_FALSE(EnumeratedRule("62 => degrees-celsius", kUnits));
    EXPECT_FALSE(EnumeratedRule("proprietary-300", kUnits));
    EXPECT_TRUE(EnumeratedRule("62 => degrees-fahrenheit", kUnits));
    EXPECT_TRUE(EnumeratedRule("degree-celsius", kUnits));
    EXPECT_TRUE(EnumeratedRule("foo-3", kUnits));
    EXPECT_TRUE(EnumeratedRule("?", kUnits));
    EXPECT_TRUE(EnumeratedRule("2147483648", kUnits));
}

// Values checked by shape: what the user wrote against what the value
// printed as, with names and with numbers.
TEST(ToolElementChecks, ShapesAgainstThePrintedForms) {
    struct Case { const char *written, *symbolic, *numeric, *want; };
    const Case cases[] = {
        {"((analog-input,1),present-value)", "((analog-input,1),present-value)", "((0,1),85)", "ok"},
        {"((0,1),85)", "((analog-input,1),present-value)", "((0,1),85)", "ok"},
        {"((analog-input,1),presnt-value)", "((analog-input,1),?)", "((0,1),0)",
         "18: 'presnt-value' is not a name that the value reads as (a typo, or a name where a "
         "number belongs)"},
        {"(active,3)", "(0,3)", "(0,3)", "1: 'active' is not a name that the value reads as (a "
         "typo, or a name where a number belongs)"},
        {"(1,-1)", "(1,4294967295)", "(1,4294967295)",
         "3: '-1' does not read as that number (out of range or the wrong kind of number where it stands)"},
        {"(4.5x,1)", "(4.5,1)", "(4.5,1)", "1: '4.5x' is not a number of the notation"},
        {"(1.5,true,0x10)", "(1.500000,T,16)", "(1.500000,1,16)", "ok"},
        {"(*,1)", "(0,1)", "(0,1)", "1: '*' reads as a value, not as unspecified"},
        {"(12:00:00.00,[4] 21.5x)", "", "", "17: '21.5x' is not a real number"},
        {"(12:00:00.00,[9] degrees-celsius)", "", "", "ok"},
        {"(\"any text\",[x] 1)", "", "", "13: [x] is not a datatype tag"},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(Rendered(CheckElements(c.written, CT_TIME_VALUE, -1, {c.symbolic, c.numeric})), c.want)
            << c.written;
    }
    EXPECT_TRUE(ChecksByShape(CT_TIME_VALUE));
    EXPECT_FALSE(ChecksByShape(CT_REAL));
    EXPECT_FALSE(ChecksByShape(CT_OBJECT_ID));
}

}  // namespace
}  // namespace bacfmt::tool
