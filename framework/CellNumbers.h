// Reading whole numbers from the texts of cells and headings.
#ifndef OMBRELIA_FRAMEWORK_CELLNUMBERS_H
#define OMBRELIA_FRAMEWORK_CELLNUMBERS_H

#include <wx/string.h>

namespace Ombrelia {

// Reads the whole text as a base-10 number into value; leading blanks are allowed. Returns false and
// leaves value unchanged if the text is no such number or does not fit a long.
bool ReadLong(const wxString& text, long& value);

}  // namespace Ombrelia

#endif
