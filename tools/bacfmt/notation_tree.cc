#include "notation_tree.h"

namespace bacfmt::tool {
namespace {

// Deeper nesting than any value of the notation needs; the walk recurses.
constexpr int kMaxDepth = 64;

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
bool IsOpener(char c) { return c == '(' || c == '{'; }
bool IsCloser(char c) { return c == ')' || c == '}'; }
// A single quote opens a quoted text only where an element starts: "It's"
// and X'0A' keep theirs as part of the word.
bool OpensQuote(char c, bool elementStart) { return c == '"' || c == '`' || (c == '\'' && elementStart); }

class Parser {
public:
    explicit Parser(std::string_view text) : text_(text) {}

    // Pieces up to the end of the text (depth 0) or up to the closer of
    // the enclosing group, which is left for the caller.
    bool List(std::vector<NotationNode> &out, int depth) {
        if (depth > kMaxDepth) return false;
        bool elementStart = true;
        while (at_ < text_.size()) {
            const char c = text_[at_];
            if (IsBlank(c)) {
                ++at_;
            } else if (c == ',') {
                elementStart = true;
                ++at_;
            } else if (IsCloser(c)) {
                return depth > 0;
            } else if (IsOpener(c)) {
                NotationNode group{NotationNode::Kind::Group, {}, at_ + 1, {}};
                ++at_;
                if (!List(group.children, depth + 1)) return false;
                if (at_ >= text_.size()) return false;  // unclosed
                group.text = text_.substr(group.offset, at_ - group.offset);
                ++at_;
                out.push_back(std::move(group));
                elementStart = false;
            } else if (elementStart && c == '[' && Tag(out)) {
                // a tag leaves the element open for its value
            } else if (OpensQuote(c, elementStart)) {
                Quoted(out);
                elementStart = false;
            } else {
                Word(out);
                elementStart = false;
            }
        }
        return depth == 0;
    }

private:
    bool Tag(std::vector<NotationNode> &out) {
        const std::size_t close = text_.find(']', at_);
        if (close == std::string_view::npos) return false;
        out.push_back({NotationNode::Kind::Tag, text_.substr(at_ + 1, close - at_ - 1), at_ + 1, {}});
        at_ = close + 1;
        return true;
    }

    // The closing quote is the opening one not preceded by a backslash; an
    // unclosed quote runs to the end of the text, as the scanners read it.
    void Quoted(std::vector<NotationNode> &out) {
        const char quote = text_[at_];
        std::size_t end = at_ + 1;
        while (end < text_.size() && !(text_[end] == quote && text_[end - 1] != '\\')) ++end;
        if (end < text_.size()) ++end;
        out.push_back({NotationNode::Kind::Quoted, text_.substr(at_, end - at_), at_, {}});
        at_ = end;
    }

    void Word(std::vector<NotationNode> &out) {
        const std::size_t start = at_;
        while (at_ < text_.size() && text_[at_] != ',' && !IsOpener(text_[at_]) &&
               !IsCloser(text_[at_]) && !OpensQuote(text_[at_], false)) {
            ++at_;
        }
        std::size_t end = at_;
        while (end > start && IsBlank(text_[end - 1])) --end;
        out.push_back({NotationNode::Kind::Word, text_.substr(start, end - start), start, {}});
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

}  // namespace

std::optional<std::vector<NotationNode>> ParseNotation(std::string_view text) {
    std::vector<NotationNode> nodes;
    Parser parser(text);
    if (!parser.List(nodes, 0)) return std::nullopt;
    return nodes;
}

void CollectWords(const std::vector<NotationNode> &nodes, std::vector<const NotationNode *> &words) {
    for (const NotationNode &node : nodes) {
        if (node.kind == NotationNode::Kind::Word) words.push_back(&node);
        if (node.kind == NotationNode::Kind::Group) CollectWords(node.children, words);
    }
}

}  // namespace bacfmt::tool
