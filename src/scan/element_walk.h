// Inside the element walk (ElementList, ParseElement): what one pass over a
// bracket level finds, the straightforward walk that defines the results,
// and the switches that tests and the differential fuzz target use to
// compare the linear walk with it.
#ifndef BACFMT_SCAN_ELEMENT_WALK_H
#define BACFMT_SCAN_ELEMENT_WALK_H

#include <cstddef>

namespace bacfmt {

// Bytes that end a word while splitting; blanks and everything else belong
// to the word, so "a b" and "don't" stay one element.
inline bool EndsWord(char c) {
    switch (c) {
    case ',': case '{': case '}': case '`': case '"': case '\'': case '(': case ')':
        return true;
    default:
        return false;
    }
}

// One pass of the element splitter over one bracket level.
struct Level {
    int count = 1;           // top-level elements; -1 for unbalanced brackets
    char *start = nullptr;   // where the first element starts
    char *rest = nullptr;    // behind the first top-level comma
    bool startIsGroup = false;
    char *cut = nullptr;     // the closer of the leading group, cut to NUL
};

// The splitter with its descent: while a level holds one element that does
// not start at the level's first byte (a group, or blanks before it), the
// count is that of the element's own content. The outermost level gives
// ParseElement's pointers, the innermost the elements to walk; `innerEnd`
// is the terminator of the innermost level's text.
struct Split {
    int count = 0;
    Level outer;
    Level inner;
    char *innerEnd = nullptr;
};

// The straightforward walk: every level measured with strlen and walked
// whole, each level of a nesting walked again. It defines what the linear
// walk must give, byte for byte.
namespace reference {
Level ScanLevel(char *text, bool continued = false);
Split SplitDescending(char *text);
}  // namespace reference

// Bytes the linear walk has looked at since the program started. Tests read
// it to show that the walk stays linear in the text without timing it.
extern std::size_t elementWalkBytes;

// Makes the scanners take their straightforward paths instead of the
// faster ones (the walk, plain single values and groups, the name and
// table indexes, the look for special reals): the differential fuzz target
// scans every input both ways.
extern bool useReferencePaths;

}  // namespace bacfmt

#endif  // BACFMT_SCAN_ELEMENT_WALK_H
