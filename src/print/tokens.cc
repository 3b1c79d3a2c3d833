// The one-token texts of the notation. Both bracket pairs are round on
// purpose: the scanners accept only round brackets as value groups.
#include <bacfmt/contents.h>

extern "C" {
const char UnknownString[] = "?";
const char UnspecifiedString[] = "*";
const char CommaString[] = ",";
const char QuoteString[] = "\"";
const char SingleQuoteString[] = "'";
const char AccentGraveString[] = "\xC2\xB4";
const char EscapeQuoteString[] = "\\";
const char HexQuoteString[] = "0x";
const char HexUnspecifiedString[] = "ff";
const char SpaceString[] = " ";
const char NullString[] = "NULL";
const char TrueString[] = "T";
const char FalseString[] = "F";
const char LBraceString[] = "(";
const char RBraceString[] = ")";
const char LBracketString[] = "(";
const char RBracketString[] = ")";
const char HyphenString[] = "-";
const char EqualsToString[] = " => ";
}
