// A cell's text without the blanks around it.
#ifndef TABULON_SRC_MUTRIMMEDTEXT_H
#define TABULON_SRC_MUTRIMMEDTEXT_H

#include "Tabulon/src/MUCellText.h"

// What wxString::Trim would leave after trimming both sides, as a part of the same borrowed text.
MUCellText TrimmedText(const MUCellText& text);

#endif
