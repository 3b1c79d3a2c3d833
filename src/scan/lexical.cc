#include "scan/lexical.h"

#include <array>
#include <cstdlib>
#include <cstring>

#include <bacfmt/contents.h>
#include <bacfmt/scan.h>

#include "scan/element_walk.h"
#include "scan/numbers.h"

namespace bacfmt {

char backupString[kBackupStringSize];
char strBackup[kStrBackupSize];
std::size_t elementWalkBytes = 0;
bool useReferencePaths = false;

namespace {

constexpr int32_t kAnySelector = -1;
constexpr int kAsn1ChoiceCode = CT_ASN1_FIRST + 3;

unsigned char Byte(char c) { return static_cast<unsigned char>(c); }

unsigned char AsciiUpper(unsigned char c) {
    return c >= 'a' && c <= 'z' ? static_cast<unsigned char>(c - 'a' + 'A') : c;
}

bool IsBlank(char c) { return c == '\t' || c == '\n' || c == '\r' || c == ' '; }
bool IsOpener(char c) { return c == '(' || c == '{'; }
bool IsTrimmedTail(char c) { return c == ' ' || c == '\n' || c == '\r'; }

// KillTrailLeadSpace on a level's text whose terminator is at `end`, without
// measuring it again: trailing spaces, CR and LF become NUL (and `end` moves
// back over them); returns the first byte that is not a space.
char *TrimLevel(char *text, char *&end) {
    char *trimmed = text;
    while (*trimmed == ' ') ++trimmed;
    char *const before = end;
    while (end > trimmed && IsTrimmedTail(end[-1])) *--end = '\0';
    elementWalkBytes += static_cast<std::size_t>(trimmed - text) + static_cast<std::size_t>(before - end);
    return trimmed;
}

// The tail trim alone, for a level whose first byte is known not to matter:
// the trim stops at the level's closer long before its first byte.
void TrimTail(char *&end) {
    char *const before = end;
    while (IsTrimmedTail(end[-1])) *--end = '\0';
    elementWalkBytes += static_cast<std::size_t>(before - end);
}

// Where a nesting of leading groups goes, as the first level's walk sees it
// ("( (a,b),c)": two levels below the first). Filled only for the first
// level of a split.
struct Chain {
    int levels = 0;            // leading openers, blanks between them allowed
    char *firstContent = nullptr;  // behind the first of them
    int minDepth = 0;          // the lowest depth reached behind them
    int commaLevel = 0;        // the shallowest level below the first with a comma; 0: none
};

// The walk of one level in the way reference::ScanLevel does it, over the
// text up to `end`, its terminator (`end` moves back when the level's tail
// is trimmed). With `chain` it also notes the nesting of leading groups,
// so that the levels below need not be walked again one by one.
template <bool kContinued>
Level WalkLevel(char *text, char *&end, Chain *chain) {
    enum class Mode { Outside, Word, Quoted };
    Level level;
    Mode mode = Mode::Outside;
    char closer = '\0';
    int depth = 0;
    bool commaSeen = false;
    bool groupClosed = false;
    const std::size_t length = static_cast<std::size_t>(end - text);

    if (!kContinued && chain != nullptr) {
        for (char *p = text; p < end && (IsBlank(*p) || IsOpener(*p)); ++p) {
            if (!IsOpener(*p)) continue;
            if (chain->levels++ == 0) chain->firstContent = p + 1;
        }
        chain->minDepth = chain->levels;
    }
    auto mark = [&](std::size_t at) {
        if (level.start == nullptr) level.start = text + at;
    };
    // A quote ends at its own unescaped quote character or at a line end.
    auto closesQuote = [&](std::size_t at) {
        return (text[at] == closer && text[at - 1] != '\\') || text[at] == '\r' || text[at] == '\n';
    };
    std::size_t i = 0;
    for (; i < length; ++i) {
        if (mode == Mode::Word) {
            while (i < length && !EndsWord(text[i])) ++i;
            if (i == length) break;
            mode = Mode::Outside;  // the same byte is examined outside
        } else if (mode == Mode::Quoted) {
            while (i < length && !closesQuote(i)) ++i;
            if (i == length) break;
            mode = Mode::Outside;
            continue;
        }
        const char c = text[i];
        switch (c) {
        case '\t': case '\n': case '\r': case ' ':
            break;
        case '\'':
            if (i > 0 || kContinued) {
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
                elementWalkBytes += i + 1;
                return level;
            }
            if (!kContinued && chain != nullptr && depth < chain->minDepth) chain->minDepth = depth;
            if (depth == 0 && !commaSeen && !groupClosed) {
                if (TrimLevel(text, end) != level.start) {
                    text[i] = '\0';
                    level.cut = text + i;
                }
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
                    if (kContinued) {
                        mark(i);
                        elementWalkBytes += i + 1;
                        return level;
                    }
                }
            } else if (!kContinued && chain != nullptr && depth == chain->minDepth &&
                       depth < chain->levels) {
                chain->commaLevel = depth;  // later commas of this kind are shallower
            }
            mark(i);
            break;
        default:
            mode = Mode::Word;
            mark(i);
            break;
        }
    }
    elementWalkBytes += i;
    if (depth != 0) level.count = -1;
    if (level.start == nullptr) level.start = text;
    return level;
}

// The levels of a nesting of leading groups below the first, as walking
// them one after the other would leave them, in one more walk over the
// first group's content. Each of these levels holds one element, a group
// starting at its first non-blank byte, whose closer it cuts after trimming
// its own tail; the descent ends at the first level with a comma of its own
// (counted here, its first comma cut) or at the innermost level, which the
// caller walks itself. Every level of the nesting sees the same quotes and
// brackets as the first one: only a single quote at a level's first byte
// would differ, and no level of the nesting starts with one.
//
// `contentEnd` is the first level's cut. Returns the last level that this
// walk settles, with `levelEnd` its terminator; with no comma level, a level
// whose start is the innermost level's text and whose cut is its end.
Level DescendNesting(const Chain &chain, char *contentEnd, char *&levelEnd) {
    const int last = chain.commaLevel != 0 ? chain.commaLevel : chain.levels - 1;
    char *const text = chain.firstContent;
    // Level 1's tail ends at the first level's cut.
    char *end = contentEnd;
    TrimTail(end);
    char *lastEnd = end;

    enum class Mode { Outside, Word, Quoted };
    Mode mode = Mode::Outside;
    char closer = '\0';
    int depth = 1;
    int minDepth = chain.levels;
    char *innermost = nullptr;      // the innermost level's text
    char *innermostEnd = nullptr;   // its terminator
    Level found;                    // the comma level, when there is one
    const std::size_t length = static_cast<std::size_t>(contentEnd - text);
    std::size_t i = 0;
    for (; i < length; ++i) {
        const char c = text[i];
        if (mode == Mode::Word) {
            if (!EndsWord(c)) continue;
            mode = Mode::Outside;
        } else if (mode == Mode::Quoted) {
            if ((c == closer && text[i - 1] != '\\') || c == '\r' || c == '\n') mode = Mode::Outside;
            continue;
        }
        switch (c) {
        case '\t': case '\n': case '\r': case ' ':
            break;
        case '"': case '`': case '\'':
            // A single quote here is never a level's first byte (see above).
            if (c != '\'') {
                mode = Mode::Quoted;
                closer = c;
            }
            break;
        case '(': case '{':
            // Depths are first reached in the leading openers: their contents
            // are the levels' texts.
            if (++depth == chain.levels && innermost == nullptr) innermost = text + i + 1;
            if (depth == last + 1 && found.start == nullptr) found.start = text + i + 1;
            break;
        case ')': case '}':
            if (--depth >= minDepth) break;
            minDepth = depth;  // this closer ends level depth + 1
            if (depth + 1 <= last) {
                // Level depth + 1 trimmed its tail, which ends here.
                char *tailEnd = text + i;
                TrimTail(tailEnd);
                if (depth + 1 == last) lastEnd = tailEnd;
            }
            if (depth + 1 == chain.levels) innermostEnd = text + i;
            if (depth <= last) text[i] = '\0';  // level depth cuts its group's closer
            if (depth == last) found.cut = text + i;
            break;
        case ',':
            if (depth == minDepth && depth == chain.commaLevel) {
                if (found.rest == nullptr) {
                    text[i] = '\0';
                    found.rest = text + i + 1;
                }
                ++found.count;
            }
            break;
        default:
            mode = Mode::Word;
            break;
        }
    }
    elementWalkBytes += i;
    if (chain.commaLevel != 0) {
        found.startIsGroup = true;
        levelEnd = lastEnd;
        return found;
    }
    Level innermostGroup;
    innermostGroup.start = innermost;
    innermostGroup.startIsGroup = true;
    innermostGroup.cut = innermostEnd;
    levelEnd = innermostEnd;
    return innermostGroup;
}

// The splitter with its descent (see Split), linear in the text: the first
// level is walked once, a nesting of leading groups once more, and at most
// two levels below it again.
Split SplitLinear(char *text, char *end) {
    Split split;
    Chain chain;
    split.outer = WalkLevel<false>(text, end, &chain);
    split.inner = split.outer;
    split.count = split.outer.count;
    char *levelText = text;
    char *levelEnd = end;
    if (split.count == 1 && chain.levels >= 2 && split.outer.start == chain.firstContent &&
        split.outer.cut != nullptr) {
        split.inner = DescendNesting(chain, split.outer.cut, levelEnd);
        split.count = split.inner.count;
    }
    while (split.count == 1 && split.inner.start != levelText) {
        if (split.inner.cut != nullptr) levelEnd = split.inner.cut;
        levelText = split.inner.start;
        if (*levelText == '\0') {
            split.count = 0;
            split.inner = Level{0, levelText, nullptr, false};
            break;
        }
        split.inner = WalkLevel<false>(levelText, levelEnd, nullptr);
        split.count = split.inner.count;
    }
    split.innerEnd = levelEnd;
    return split;
}

// The bytes that make a text more than one plain element (a comma and
// every bracket or quote), and those that make a group more than a plain
// comma list (a bracket or quote).
constexpr uint8_t kListStructure = 1;
constexpr uint8_t kGroupStructure = 2;

constexpr std::array<uint8_t, 256> kStructureOf = [] {
    std::array<uint8_t, 256> table{};
    for (unsigned char c : {'(', ')', '{', '}', '"', '\'', '`'}) table[c] = kListStructure | kGroupStructure;
    table[static_cast<unsigned char>(',')] = kListStructure;
    return table;
}();

// The length of the text before its first byte of `kind` (strcspn with a
// table made once: the C library may build its table on every call).
std::size_t PlainLength(const char *text, uint8_t kind) {
    const char *p = text;
    while (*p != '\0' && (kStructureOf[Byte(*p)] & kind) == 0) ++p;
    return static_cast<std::size_t>(p - text);
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
    // printer may write is not a quote for any scanner. That search, done
    // by the accent's length: an empty accent is found in any text, a
    // one-byte accent only as that byte, a longer one never.
    const char accent = AccentGraveString[0];
    if (accent == '\0') return Byte(c);
    return AccentGraveString[1] == '\0' && c == accent ? Byte(c) : 0;
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
    const Split split = useReferencePaths ? reference::SplitDescending(work)
                                         : SplitLinear(work, work + std::strlen(work));
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

char *PlainGroupContent(char *text) {
    if (useReferencePaths || text == nullptr || text[0] != '(') return nullptr;
    const std::size_t closer = 1 + PlainLength(text + 1, kGroupStructure);
    elementWalkBytes += closer;
    if (closer < 2 || text[closer] != ')' || text[closer + 1] != '\0' || closer + 1 >= kBackupStringSize)
        return nullptr;
    text[closer] = '\0';
    return text + 1;
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
    // A text without commas, brackets or quotes is one element: the walk
    // would find it starting at its first non-blank byte and cut nothing.
    const std::size_t plain = PlainLength(text, kListStructure);
    if (text[plain] == '\0' && !useReferencePaths) {
        elementWalkBytes += plain;
        count_ = 1;
        first_ = text;
        while (IsBlank(*first_)) ++first_;
        if (*first_ == '\0') first_ = text;
        return;
    }
    char *const end = text + plain + std::strlen(text + plain);
    const Split split = useReferencePaths ? reference::SplitDescending(text) : SplitLinear(text, end);
    count_ = split.outer.count < 0 ? -1 : split.count;
    first_ = split.inner.start;
    rest_ = split.inner.rest;
    end_ = split.innerEnd;
    firstIsGroup_ = split.inner.startIsGroup;
}

char *ElementList::Next() {
    if (!started_) {
        started_ = true;
        return count_ > 0 ? first_ : nullptr;
    }
    if (rest_ == nullptr) return nullptr;
    Level level;
    if (useReferencePaths) {
        level = reference::ScanLevel(rest_, true);
    } else {
        // The terminator found so far still ends the rest, unless the caller
        // wrote the text back in between; then it is measured again.
        if (end_ == nullptr || *end_ != '\0') end_ = rest_ + std::strlen(rest_);
        level = WalkLevel<true>(rest_, end_, nullptr);
    }
    if (level.count < 0) return nullptr;
    rest_ = level.rest;
    return level.start;
}

}  // namespace bacfmt
