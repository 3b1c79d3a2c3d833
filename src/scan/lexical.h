// The lexical layer of the text notation: character tests and the routines
// that cut a writable text into elements in place. Every scanner rests on
// these; none of them converts a value.
//
// Notation: values separated by commas, groups in "(" ")" or "{" "}",
// strings in quotes, an optional leading choice tag "[n]", and the one-byte
// words "?" (unknown), "*" (unspecified) and "-" (void).
#ifndef BACFMT_SCAN_LEXICAL_H
#define BACFMT_SCAN_LEXICAL_H

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace bacfmt {

// Scratch copies of a scanner's text, taken before the first in-place split
// and copied back when the text has to be split a second way. Shared by all
// scanners: scanning is not reentrant.
inline constexpr std::size_t kBackupStringSize = 1000;
inline constexpr std::size_t kStrBackupSize = 100000;
extern char backupString[kBackupStringSize];
extern char strBackup[kStrBackupSize];

// Copies `text` into `backup`. Texts of the buffer's size or longer are not
// supported by the scanners that back up; the copy is cut so that it stays
// terminated, which makes such texts fail instead of reading past the copy.
template <std::size_t N>
void SaveText(char (&backup)[N], const char *text) {
    std::size_t length = std::strlen(text);
    if (length >= N) length = N - 1;
    std::memcpy(backup, text, length);
    backup[length] = '\0';
}

// Copies a backup taken of this same text back over it. The backup is never
// longer than the text it was taken from, so the text's storage holds it.
template <std::size_t N>
void RestoreText(char *text, const char (&backup)[N]) {
    std::memcpy(text, backup, std::strlen(backup) + 1);
}

// Case-insensitive comparison (ASCII case, whatever the locale): 0 when
// equal; else the difference of the first differing upper-cased bytes, or
// of the lengths when one text is a prefix of the other.
int str_i_cmp(const char *a, const char *b);

// Leading spaces are skipped (the space only); trailing spaces, CR and LF
// are overwritten with NUL. Null stays null.
char *KillTrailLeadSpace(char *text);

// Character tests: the byte itself (as 0..255) when it belongs to the
// class, else 0.
int IsQuote(char c);            // '"' and '\''
int IsEscapeQuote(char c);      // '\\'
int IsOpeningBracket(char c);   // '('
int IsClosingBracket(char c);   // ')'

// Drops leading spaces, an opening quote and every unescaped trailing quote
// of a quoted text, in place. An unquoted text comes back unchanged.
char *KillQuote(char *text);

// Copies the content of the first bracketed group into `dst` and returns the
// position behind its ")"; a text without brackets is copied whole. Null for
// a destination too small, an unclosed group or a stray ")".
char *ParseBrackets(char *text, char *dst, int dstSize);

// Strips the outermost round brackets in place and returns the content; a
// text without brackets, or with a choice tag outside them, comes back as is.
char *DeBracket(char *text);

// Splits off the first top-level element: its start goes to `*first` (NUL
// terminated in place), the text behind the first top-level comma to `*rest`
// (null when there is none). A single bracketed group is counted by its
// content. Returns the number of top-level elements, -1 for unbalanced
// brackets, -2 for bad arguments. With both out pointers null it only
// counts, on a private copy.
int ParseElement(char *text, char **first, char **rest);

// Reads a leading "[tag]": the tag's number (by name through `selector`, or
// 515 for "ASN1" under selector -1), `*after` behind the "]". -2 when the
// text does not begin with a complete tag, -1 without `after`.
int ParseChoice(char *text, int32_t selector, char **after);

// Substring tests on the trimmed text (which they trim in place).
int IsUnknownString(char *text);      // '?' when it holds a '?'
int IsUnspecifiedString(char *text);  // '*' when it holds a '*'; its first byte when a '?'
int IsVoidString(char *text);         // '-' when it holds a '-'

// Hexadecimal byte pairs after an optional "0x"/"X'" prefix into `dst`, at
// most `maxCount`; invalid digits are not reported. Returns bytes stored.
int SScanHexByte(const char *text, uint8_t *dst, int maxCount);

// First occurrence of `pattern` outside quotes, or null.
char *my_str_str(char *text, const char *pattern);

// The content of a text that is one plain group, "(a,b)": a "(" first, a
// ")" last and nothing between that brackets or quotes, at least one byte
// of content, shorter than the backup buffer. Its closer is cut, as
// DeBracket cuts it; null (nothing cut) for any other text. The group
// scanners take such a text directly instead of splitting it, restoring it
// and stripping its brackets, which leaves the same content.
char *PlainGroupContent(char *text);

// The element walk that the scanners share. It splits like ParseElement,
// descending into a single bracketed group, but remembers the level where
// the elements were counted, so that the elements of "(1,2,3)" can be
// walked one after the other. Later elements are split off one level at a
// time: a bracketed element comes back as its content. Counting and walking
// every element costs time linear in the text, whatever the number of
// elements and the depth of the nesting.
class ElementList {
public:
    explicit ElementList(char *text);

    // Number of elements, -1 for unbalanced brackets, -2 for a null text.
    int count() const { return count_; }
    // Whether the first element was written as a bracketed group.
    bool firstIsGroup() const { return firstIsGroup_; }
    // The first element's text (a group's content).
    char *first() const { return first_; }
    // The text behind the first element's comma, untouched by the walk
    // until Next() reaches it; null for a single element.
    char *rest() const { return rest_; }
    // Each element in turn, starting with first(); null when the list is
    // exhausted or a later element does not split.
    char *Next();

private:
    int count_ = 0;
    bool firstIsGroup_ = false;
    bool started_ = false;
    char *first_ = nullptr;
    char *rest_ = nullptr;
    // The terminator of the text behind rest_: later elements are split
    // off without measuring the rest again, which keeps the walk linear.
    // Between calls of Next() the caller leaves the text behind the element
    // it got as the walk left it (writing the original bytes back is
    // noticed and measured again).
    char *end_ = nullptr;
};

}  // namespace bacfmt

#endif  // BACFMT_SCAN_LEXICAL_H
