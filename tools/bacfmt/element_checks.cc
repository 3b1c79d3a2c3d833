#include "element_checks.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <bacfmt/contents.h>

#include "element_rules.h"
#include "notation_tree.h"

namespace bacfmt::tool {
namespace {

using Rule = Verdict (*)(std::string_view word, int32_t hint);

// The enumeration selector of no particular table: names of any table.
constexpr int32_t kNoTable = -1;

// The datatypes whose every word is one element of a kind, and what a
// quoted text would have to be instead.
struct WordRule {
    uint32_t datatype;
    Rule rule;
    const char *noun;
};
constexpr WordRule kWordRules[] = {
    {CT_NULL, NullRule, "NULL"},
    {CT_BOOLEAN, BooleanRule, "a boolean"},
    {CT_UNSIGNED, UnsignedRule, "an unsigned number"},
    {CT_SIGNED, SignedRule, "a signed number"},
    {CT_REAL, RealRule, "a real number"},
    {CT_DOUBLE, DoubleRule, "a double"},
    {CT_OCTET_STRING, OctetsRule, "an octet string"},
    {CT_ENUMERATED, EnumeratedRule, "an enumeration value"},
    {CT_DATE, DateWordRule, "a date"},
    {CT_TIME, TimeRule, "a time"},
    {CT_DATE_TIME, DateTimeWordRule, "a date and time"},
    {CT_ASN1_FIRST, OctetsRule, "encoded octets"},
    {CT_ASN1_SECOND, OctetsRule, "encoded octets"},
    {CT_ASN1_THIRD, OctetsRule, "encoded octets"},
    {CT_ASN1_LAST, OctetsRule, "encoded octets"},
};

const WordRule *WordRuleOf(uint32_t datatype) {
    for (const WordRule &row : kWordRules) {
        if (row.datatype == datatype) return &row;
    }
    return nullptr;
}

std::string Lowered(std::string_view text) {
    std::string lower(text);
    for (char &c : lower) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    }
    return lower;
}

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The words and numbers of the value's printed forms, with names and with
// numbers: what the value holds after the scanner has read it. The
// annotations "62 => degrees-celsius" and "(0 => in-alarm|2 => overridden)"
// give their numbers and names too, T and F count as 1 and 0.
class PrintedForm {
public:
    explicit PrintedForm(const PrintedForms &forms) {
        for (const std::string_view printed : {forms.symbolic, forms.numeric}) {
            hasUnspecified_ = hasUnspecified_ || printed.find_first_of("*?") != std::string_view::npos;
            if (const auto nodes = ParseNotation(printed)) AddWords(*nodes);
        }
    }

    bool HasName(std::string_view word) const { return names_.count(Lowered(word)) != 0; }
    bool HasUnspecified() const { return hasUnspecified_; }

    // Reals print with six decimals, so a number matches within that
    // precision (and a single's, for large ones).
    bool HasNumber(double value) const {
        const double tolerance = 1e-6 + std::fabs(value) * 1e-6;
        const auto near = numbers_.lower_bound(value - tolerance);
        return near != numbers_.end() && *near <= value + tolerance;
    }

private:
    void AddWords(const std::vector<NotationNode> &nodes) {
        std::vector<const NotationNode *> words;
        CollectWords(nodes, words);
        for (const NotationNode *word : words) {
            Add(word->text);
            std::size_t start = 0;
            for (std::size_t bar; start <= word->text.size(); start = bar + 1) {
                bar = std::min(word->text.find('|', start), word->text.size());
                const std::string_view part = word->text.substr(start, bar - start);
                const std::size_t arrow = part.find("=>");
                if (arrow != std::string_view::npos) {
                    Add(Trimmed(part.substr(0, arrow)));
                    Add(Trimmed(part.substr(arrow + 2)));
                }
            }
        }
    }

    void Add(std::string_view word) {
        names_.insert(Lowered(word));
        if (word == "T") numbers_.insert(1);
        if (word == "F") numbers_.insert(0);
        if (const auto number = NotationNumber(word)) numbers_.insert(*number);
    }

    std::set<std::string> names_;
    std::set<double> numbers_;
    bool hasUnspecified_ = false;
};

class ElementChecker {
public:
    explicit ElementChecker(const PrintedForms &printed) : printed_(printed) {}

    const std::optional<TextProblem> &problem() const { return problem_; }

    // A value of `datatype` whose enumerations are named by the table of
    // `hint`: its words by the datatype's rule where it has one, by their
    // shape otherwise (see ChecksByShape).
    bool Value(const std::vector<NotationNode> &nodes, uint32_t datatype, int32_t hint) {
        if (datatype == CT_CHARACTER_STRING) return true;  // any text is a string
        if (datatype == CT_BIT_STRING) return BitStrings(nodes);
        if (datatype == CT_OBJECT_ID) return ObjectIds(nodes);
        if (const WordRule *row = WordRuleOf(datatype)) return EachWord(nodes, *row, hint);
        return Shapes(nodes);
    }

private:
    bool Fail(const NotationNode &node, std::string what) {
        problem_ = TextProblem{std::move(what), node.offset};
        return false;
    }

    bool Check(const NotationNode &node, Rule rule, int32_t hint = kNoTable) {
        if (const Verdict wrong = rule(node.text, hint)) return Fail(node, *wrong);
        return true;
    }

    bool EachWord(const std::vector<NotationNode> &nodes, const WordRule &row, int32_t hint) {
        for (const NotationNode &node : nodes) {
            switch (node.kind) {
                case NotationNode::Kind::Word:
                    if (!Check(node, row.rule, hint)) return false;
                    break;
                case NotationNode::Kind::Group:
                    if (!EachWord(node.children, row, hint)) return false;
                    break;
                case NotationNode::Kind::Quoted:
                    return Fail(node, "a quoted text where " + std::string(row.noun) + " belongs: " +
                                          Cited(node.text));
                case NotationNode::Kind::Tag:
                    return Fail(node, "a tag inside a list of " + std::string(row.noun) + " values: " +
                                          Cited(node.text));
            }
        }
        return true;
    }

    // A bit string is a list of bits or a list of bracketed bit lists; the
    // printer adds the names of the bits that are set as "(0 => in-alarm)",
    // which must then name the bits the value has.
    bool BitStrings(const std::vector<NotationNode> &nodes) {
        for (const NotationNode &node : nodes) {
            if (node.kind == NotationNode::Kind::Group && node.children.size() == 1 &&
                node.children[0].text.find("=>") != std::string_view::npos) {
                if (!printed_.HasName(node.children[0].text)) {
                    return Fail(node, Cited(node.text) + " does not name the bits that are set");
                }
            } else if (node.kind == NotationNode::Kind::Group) {
                if (!BitStrings(node.children)) return false;
            } else if (node.kind == NotationNode::Kind::Word) {
                if (!Check(node, BitRule)) return false;
            } else {
                return Fail(node, Cited(node.text) + " is not a bit (T, F, 1 or 0)");
            }
        }
        return true;
    }

    // "(type,instance)", or a list of such pairs.
    bool ObjectIds(const std::vector<NotationNode> &nodes) {
        const bool pair = nodes.size() == 2 && nodes[0].kind == NotationNode::Kind::Word &&
                          nodes[1].kind == NotationNode::Kind::Word;
        if (pair) return Check(nodes[0], ObjectTypeRule) && Check(nodes[1], InstanceRule);
        for (const NotationNode &node : nodes) {
            if (node.kind != NotationNode::Kind::Group) {
                return Fail(node, Cited(node.text) + " is not an object identifier (type,instance)");
            }
            if (!ObjectIds(node.children)) return false;
        }
        return true;
    }

    // Elements of a value whose layout the tool does not know: a "[n]" tag
    // says what the next element is (an embedded value, whose names the
    // scanner looks up in any table), or chooses between the forms of a
    // constructed value ("[1] (calendar,1)" in a special event), whose
    // element is then checked by shape; other words are checked by shape.
    bool Shapes(const std::vector<NotationNode> &nodes) {
        for (std::size_t i = 0; i < nodes.size(); ++i) {
            const NotationNode &node = nodes[i];
            if (node.kind == NotationNode::Kind::Tag) {
                const auto datatype = TagDatatype(node.text);
                if (!datatype) return Fail(node, "[" + std::string(node.text) + "] is not a datatype tag");
                if (i + 1 == nodes.size()) continue;  // the scanner decides on a tag alone
                if (!Value({nodes[i + 1]}, *datatype, kNoTable)) {
                    const std::optional<TextProblem> asDatatype = problem_;
                    problem_.reset();
                    if (!Shapes({nodes[i + 1]})) {
                        problem_ = asDatatype;
                        return false;
                    }
                }
                ++i;
            } else if (node.kind == NotationNode::Kind::Group) {
                if (!Shapes(node.children)) return false;
            } else if (node.kind == NotationNode::Kind::Word) {
                if (!ShapedWord(node)) return false;
            }
        }
        return true;
    }

    // A number must come out of the scanner as written, a name must be one
    // that the printed value shows: a typo, an out-of-range number or a
    // name where a number belongs reads as something else.
    bool ShapedWord(const NotationNode &node) {
        const std::string_view word = node.text;
        if (IsUnspecifiedWord(word)) {
            if (printed_.HasUnspecified()) return true;
            return Fail(node, Cited(word) + " reads as a value, not as unspecified");
        }
        if (const auto number = NotationNumber(word)) {
            if (printed_.HasNumber(*number)) return true;
            return Fail(node, Cited(word) + " does not read as that number (out of range or the wrong "
                                            "kind of number where it stands)");
        }
        // Times, dates and octets are checked by their own rules; a weekday
        // alone is a name like any other.
        const bool time = word.find(':') != std::string_view::npos && !TimeRule(word, kNoTable);
        const bool date = word.find('-') != std::string_view::npos && !DateWordRule(word, kNoTable);
        if (time || date || !OctetsRule(word, kNoTable)) return true;
        // Booleans print as T and F whatever their spelling.
        const std::string lower = Lowered(word);
        std::string_view canonical = word;
        if (lower == "t" || lower == "true") canonical = "T";
        if (lower == "f" || lower == "false") canonical = "F";
        if (printed_.HasName(canonical)) return true;
        const char first = word.empty() ? ' ' : word.front();
        const bool numeric = (first >= '0' && first <= '9') || first == '+' || first == '-' || first == '.';
        if (numeric) return Fail(node, Cited(word) + " is not a number of the notation");
        return Fail(node, Cited(word) + " is not a name that the value reads as (a typo, or a name "
                                        "where a number belongs)");
    }

    PrintedForm printed_;
    std::optional<TextProblem> problem_;
};

}  // namespace

bool ChecksByShape(uint32_t datatype) {
    return datatype != CT_CHARACTER_STRING && datatype != CT_BIT_STRING && datatype != CT_OBJECT_ID &&
           WordRuleOf(datatype) == nullptr;
}

std::optional<TextProblem> CheckElements(std::string_view value, uint32_t datatype, int32_t hint,
                                         const PrintedForms &printed) {
    if (datatype == CT_CHARACTER_STRING) return std::nullopt;  // any text is a string
    const auto nodes = ParseNotation(value);
    if (!nodes) return TextProblem{"brackets unbalanced or nested too deeply", 0};
    std::vector<NotationNode> elements = std::move(*nodes);
    // The leading tag is the dispatcher's; the record's datatype says what it chose.
    if (!elements.empty() && elements.front().kind == NotationNode::Kind::Tag) {
        if (!TagDatatype(elements.front().text)) {
            return TextProblem{"[" + std::string(elements.front().text) + "] is not a datatype tag",
                               elements.front().offset};
        }
        elements.erase(elements.begin());
    }
    ElementChecker checker(printed);
    checker.Value(elements, datatype, hint);
    return checker.problem();
}

}  // namespace bacfmt::tool
