// The text notation cut into its pieces, for checks that look at every
// element: words, quoted texts, bracketed groups and "[n]" tags, each with
// its place in the text. It knows nothing of datatypes, so it serves every
// family of values alike.
#ifndef BACFMT_TOOL_NOTATION_TREE_H
#define BACFMT_TOOL_NOTATION_TREE_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace bacfmt::tool {

struct NotationNode {
    enum class Kind {
        Word,    // a run of bytes up to a comma or bracket, blanks at either end cut
        Quoted,  // a text in quotes, quotes included
        Group,   // "(...)" or "{...}"; `children` are its pieces, `text` the inside
        Tag,     // "[n]" at the start of an element; `text` is what is between
    };
    Kind kind = Kind::Word;
    std::string_view text;
    std::size_t offset = 0;  // of `text` in the whole value
    std::vector<NotationNode> children;
};

// The pieces of `text` in order; commas separate them and are not kept.
// Nothing when brackets are unbalanced or nested deeper than the checks go
// (the scanners report unbalanced brackets themselves).
std::optional<std::vector<NotationNode>> ParseNotation(std::string_view text);

// Every word of the tree, depth first, in text order.
void CollectWords(const std::vector<NotationNode> &nodes, std::vector<const NotationNode *> &words);

}  // namespace bacfmt::tool

#endif  // BACFMT_TOOL_NOTATION_TREE_H
