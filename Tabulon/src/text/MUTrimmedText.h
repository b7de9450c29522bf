// A cell's text without the blanks around it.
#ifndef OMBRELIA_TABULON_SRC_TEXT_MUTRIMMEDTEXT_H
#define OMBRELIA_TABULON_SRC_TEXT_MUTRIMMEDTEXT_H

#include "Tabulon/src/text/MUCellText.h"

// Effect: what wxString::Trim would leave after trimming both sides, as a part of the same text.
// Cost: a look at the blanks and one character on each side.
// Lifetime: the result is valid as long as the characters of the text.
// Threads: any number.
// Failure: none.
MUCellText TrimmedText(const MUCellText& text);

#endif
