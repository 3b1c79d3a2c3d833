// The straightforward element walk, kept as the definition of the results
// that the linear walk in lexical.cc must reproduce (texts, pointers and the
// NUL bytes written into the text).
#include <cstring>

#include "scan/element_walk.h"
#include "scan/lexical.h"

namespace bacfmt::reference {

// Counts the top-level elements of `text` and marks the first one. Cuts in
// place: the first top-level comma, and the closer of a leading group that
// is not preceded by a word. The length is taken once, so the NUL bytes it
// writes do not end the walk. `continued` scans the rest of a list behind
// a comma, only up to the next comma: its first byte is not the start of
// the text, so a single quote there does not open a string either.
Level ScanLevel(char *text, bool continued) {
    enum class Mode { Outside, Word, Quoted };
    Level level;
    Mode mode = Mode::Outside;
    char closer = '\0';
    int depth = 0;
    bool commaSeen = false;
    bool groupClosed = false;
    const std::size_t length = std::strlen(text);

    auto mark = [&](std::size_t at) {
        if (level.start == nullptr) level.start = text + at;
    };
    for (std::size_t i = 0; i < length; ++i) {
        const char c = text[i];
        if (mode == Mode::Word) {
            if (!EndsWord(c)) continue;
            mode = Mode::Outside;  // the same byte is examined outside
        } else if (mode == Mode::Quoted) {
            if ((c == closer && text[i - 1] != '\\') || c == '\r' || c == '\n') mode = Mode::Outside;
            continue;
        }
        switch (c) {
        case '\t': case '\n': case '\r': case ' ':
            break;
        case '\'':
            // Past the first byte a single quote is an apostrophe or the
            // X'..' octet notation, never the start of a string; it still
            // marks where an element starts.
            if (i > 0 || continued) {
                mark(i);
                break;
            }
            [[fallthrough]];
        case '"': case '`':
            mode = Mode::Quoted;
            closer = c;
            mark(i);
            break;
        case '(': case '{':
            ++depth;
            if (level.start == nullptr) {
                level.start = text + i + 1;
                level.startIsGroup = true;
            }
            break;
        case ')': case '}':
            if (--depth < 0) {
                level.count = -1;
                return level;
            }
            if (depth == 0 && !commaSeen && !groupClosed) {
                if (KillTrailLeadSpace(text) != level.start) text[i] = '\0';
                groupClosed = true;
            }
            break;
        case ',':
            if (depth == 0) {
                ++level.count;
                if (!commaSeen) {
                    commaSeen = true;
                    text[i] = '\0';
                    level.rest = text + i + 1;
                    if (continued) {
                        mark(i);
                        return level;
                    }
                }
            }
            mark(i);
            break;
        default:
            mode = Mode::Word;
            mark(i);
            break;
        }
    }
    if (depth != 0) level.count = -1;
    if (level.start == nullptr) level.start = text;
    return level;
}

Split SplitDescending(char *text) {
    Split split;
    split.outer = ScanLevel(text);
    split.inner = split.outer;
    split.count = split.outer.count;
    char *levelText = text;
    while (split.count == 1 && split.inner.start != levelText) {
        levelText = split.inner.start;
        if (*levelText == '\0') {
            split.count = 0;
            split.inner = Level{0, levelText, nullptr, false};
            break;
        }
        split.inner = ScanLevel(levelText);
        split.count = split.inner.count;
    }
    return split;
}

}  // namespace bacfmt::reference
