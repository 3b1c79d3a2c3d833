#include "scan/lexical.h"

#include <cstdlib>
#include <cstring>

#include <bacfmt/contents.h>
#include <bacfmt/scan.h>

#include "scan/numbers.h"

namespace bacfmt {

char backupString[kBackupStringSize];
char strBackup[kStrBackupSize];

namespace {

constexpr int32_t kAnySelector = -1;
constexpr int kAsn1ChoiceCode = CT_ASN1_FIRST + 3;

unsigned char Byte(char c) { return static_cast<unsigned char>(c); }

unsigned char AsciiUpper(unsigned char c) {
    return c >= 'a' && c <= 'z' ? static_cast<unsigned char>(c - 'a' + 'A') : c;
}

// Bytes that end a word while splitting; blanks and everything else belong
// to the word, so "a b" and "don't" stay one element.
bool EndsWord(char c) {
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
};

// Counts the top-level elements of `text` and marks the first one. Cuts in
// place: the first top-level comma, and the closer of a leading group that
// is not preceded by a word. The length is taken once, so the NUL bytes it
// writes do not end the walk. `continued` scans the rest of a list behind
// a comma, only up to the next comma: its first byte is not the start of
// the text, so a single quote there does not open a string either.
Level ScanLevel(char *text, bool continued = false) {
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

// The splitter with its descent: while a level holds one element that does
// not start at the level's first byte (a group, or blanks before it), the
// count is that of the element's own content. The outermost level gives
// ParseElement's pointers, the innermost the elements to walk.
struct Split {
    int count = 0;
    Level outer;
    Level inner;
};

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

// The number of a choice tag's text.
int ChoiceNumber(char *tag, int32_t selector) {
    if (selector == kAnySelector)
        return std::strstr(tag, "ASN1") != nullptr ? kAsn1ChoiceCode : TextToSigned(tag);
    const int32_t value = BACnetGetEnumValue(tag, static_cast<uint32_t>(selector), 0, 0);
    return value == BACNET_ENUM_UNKNOWN ? TextToSigned(tag) : value;
}

// The shared body of the three substring words: trim, then look for `c`.
bool TrimmedHolds(char *&text, char c) {
    text = KillTrailLeadSpace(text);
    return text != nullptr && std::strchr(text, c) != nullptr;
}

}  // namespace

int str_i_cmp(const char *a, const char *b) {
    // One walk over the common part; the lengths are measured only when one
    // text turns out to be a prefix of the other.
    std::size_t i = 0;
    for (; a[i] != '\0' && b[i] != '\0'; ++i) {
        const int difference = AsciiUpper(Byte(a[i])) - AsciiUpper(Byte(b[i]));
        if (difference != 0) return difference;
    }
    return static_cast<int>(std::strlen(a + i)) - static_cast<int>(std::strlen(b + i));
}

char *KillTrailLeadSpace(char *text) {
    if (text == nullptr) return nullptr;
    while (*text == ' ') ++text;
    for (std::size_t end = std::strlen(text); end > 0; --end) {
        const char c = text[end - 1];
        if (c != ' ' && c != '\n' && c != '\r') break;
        text[end - 1] = '\0';
    }
    return text;
}

int IsQuote(char c) {
    if (c == QuoteString[0] || c == SingleQuoteString[0]) return Byte(c);
    // The acute accent is looked for inside the one-byte text made of `c`,
    // where its two bytes can never occur: the accent that the string
    // printer may write is not a quote for any scanner.
    const char alone[2] = {c, '\0'};
    return std::strstr(alone, AccentGraveString) != nullptr ? Byte(c) : 0;
}

int IsEscapeQuote(char c) { return c == EscapeQuoteString[0] ? Byte(c) : 0; }
int IsOpeningBracket(char c) { return c == LBraceString[0] || c == LBracketString[0] ? Byte(c) : 0; }
int IsClosingBracket(char c) { return c == RBraceString[0] || c == RBracketString[0] ? Byte(c) : 0; }

char *KillQuote(char *text) {
    if (text == nullptr) return nullptr;
    while (*text == ' ') ++text;
    if (IsQuote(*text) == 0) return text;
    char *content = ++text;
    char *end = content + std::strlen(content);
    // Every trailing quote goes, of either kind, unless escaped; the byte
    // before the content is the opening quote, never a backslash.
    while (end > content && IsQuote(end[-1]) != 0 && IsEscapeQuote(end[-2]) == 0) *--end = '\0';
    return content;
}

char *ParseBrackets(char *text, char *dst, int dstSize) {
    if (text == nullptr || dst == nullptr) return nullptr;
    const std::size_t length = std::strlen(text);
    char *trimmed = KillTrailLeadSpace(text);
    char opener = '\0';
    bool inQuotes = false;
    bool openSeen = false;
    int depth = 0;
    char *content = nullptr;
    for (char *p = trimmed; *p != '\0'; ++p) {
        if (IsQuote(*p) != 0 && (p == trimmed || IsEscapeQuote(p[-1]) == 0)) {
            if (!inQuotes) {
                inQuotes = true;
                opener = *p;
            } else if (*p == opener) {
                inQuotes = false;
            }
            continue;
        }
        if (inQuotes) continue;
        if (IsOpeningBracket(*p) != 0) {
            openSeen = true;
            if (++depth == 1) content = p + 1;
        } else if (IsClosingBracket(*p) != 0 && --depth == 0 && content != nullptr) {
            const auto contentLength = static_cast<std::size_t>(p - content);
            if (dstSize < 0 || contentLength >= static_cast<std::size_t>(dstSize)) return nullptr;
            std::memcpy(dst, content, contentLength);
            dst[contentLength] = '\0';
            return p + 1;
        }
    }
    if (openSeen || depth != 0 || dstSize <= 0 || static_cast<std::size_t>(dstSize) <= length)
        return nullptr;
    std::memcpy(dst, trimmed, std::strlen(trimmed) + 1);
    // The position is the untrimmed length past the trimmed start; after
    // leading spaces that lies beyond the text, so it stops at its end.
    char *const end = text + length;
    return trimmed + length < end ? trimmed + length : end;
}

char *DeBracket(char *text) {
    if (text == nullptr) return nullptr;
    const std::size_t length = std::strlen(text);
    char *result = text;
    bool inQuotes = false;
    int depth = 0;
    for (std::size_t i = 0; i < length; ++i) {
        const char c = text[i];
        if (i == 0 ? IsQuote(c) != 0
                   : c == '"' && text[i - 1] != '\\' && text[i - 1] != 'X') {
            inQuotes = !inQuotes;
            continue;
        }
        if (inQuotes) continue;
        if (c == '[' && depth == 0) return text;  // a choice tag is left to its scanner
        if (IsOpeningBracket(c) != 0) {
            if (++depth == 1) result = text + i + 1;
        } else if (IsClosingBracket(c) != 0) {
            if (--depth == 0) text[i] = '\0';
        }
    }
    return result;
}

int ParseElement(char *text, char **first, char **rest) {
    if (text == nullptr || (first == nullptr) != (rest == nullptr)) return -2;
    if (*text == '\0') return 0;
    const bool counting = first == nullptr;
    char *work = counting ? strdup(text) : text;
    if (work == nullptr) return -2;
    const Split split = SplitDescending(work);
    if (split.outer.count >= 0 && !counting) {
        *first = split.outer.start;
        *rest = split.outer.rest;
    }
    if (counting) std::free(work);
    return split.outer.count < 0 ? -1 : split.count;
}

int ParseChoice(char *text, int32_t selector, char **after) {
    if (after == nullptr) return -1;
    text = KillTrailLeadSpace(text);
    if (text == nullptr || text[0] != '[') return -2;
    char *close = std::strchr(text, ']');
    *after = close;
    if (close == nullptr) return -2;
    *close = '\0';
    *after = close + 1;
    return ChoiceNumber(text + 1, selector);
}

int IsUnknownString(char *text) { return TrimmedHolds(text, '?') ? '?' : 0; }

int IsUnspecifiedString(char *text) {
    if (TrimmedHolds(text, '*')) return '*';
    return std::strchr(text != nullptr ? text : "", '?') != nullptr ? Byte(text[0]) : 0;
}

int IsVoidString(char *text) { return TrimmedHolds(text, '-') ? '-' : 0; }

int SScanHexByte(const char *text, uint8_t *dst, int maxCount) {
    if (text == nullptr || dst == nullptr) return 0;
    std::size_t length = std::strlen(text);
    std::size_t at = 0;
    auto skipPrefix = [&](char mark) {
        if (std::strchr(text, mark) == nullptr) return;
        at = at + 2 < length ? at + 2 : length;
    };
    skipPrefix('x');
    skipPrefix('X');
    int stored = 0;
    for (; stored < maxCount && length - at >= 2; at += 2) dst[stored++] = HexPairValue(text + at);
    return stored;
}

char *my_str_str(char *text, const char *pattern) {
    if (text == nullptr || pattern == nullptr) return nullptr;
    const std::size_t patternLength = std::strlen(pattern);
    char opener = '\0';
    for (char *p = text; *p != '\0'; ++p) {
        if (IsQuote(*p) != 0) {
            if (opener == '\0')
                opener = *p;
            else if (*p == opener)
                opener = '\0';
        }
        if (opener == '\0' && std::strncmp(p, pattern, patternLength) == 0) return p;
    }
    return nullptr;
}

ElementList::ElementList(char *text) {
    if (text == nullptr) {
        count_ = -2;
        return;
    }
    if (*text == '\0') {
        first_ = text;
        return;
    }
    const Split split = SplitDescending(text);
    count_ = split.outer.count < 0 ? -1 : split.count;
    first_ = split.inner.start;
    rest_ = split.inner.rest;
    firstIsGroup_ = split.inner.startIsGroup;
}

char *ElementList::Next() {
    if (!started_) {
        started_ = true;
        return count_ > 0 ? first_ : nullptr;
    }
    if (rest_ == nullptr) return nullptr;
    const Level level = ScanLevel(rest_, true);
    if (level.count < 0) return nullptr;
    rest_ = level.rest;
    return level.start;
}

}  // namespace bacfmt
