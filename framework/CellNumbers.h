// Reading whole numbers from texts of cells and headings.
#ifndef OMBRELIA_FRAMEWORK_CELLNUMBERS_H
#define OMBRELIA_FRAMEWORK_CELLNUMBERS_H

#include <wx/string.h>

namespace Ombrelia {

// Reads the whole of text as a base-10 number into value, leading blanks allowed. On failure answers
// false and leaves value as it was: the text class's own conversion may store what it read so far.
bool ReadLong(const wxString& text, long& value);

}  // namespace Ombrelia

#endif
