// A cell's text without the blanks around it.
#ifndef OMBRELIA_TABULON_SRC_TEXT_MUTRIMMEDTEXT_H
#define OMBRELIA_TABULON_SRC_TEXT_MUTRIMMEDTEXT_H

#include "Tabulon/src/text/MUCellText.h"

// What wxString::Trim would leave after trimming both sides, as a part of the same borrowed text: valid as long
// as that. Looks only at the blanks and one character on each side. Never fails.
MUCellText TrimmedText(const MUCellText& text);

#endif
