#include "Tabulon/src/queries/MUQueryWords.h"

#include <wx/translation.h>

namespace {

// Three characters and no terminator: wherever the array is used, its length must be given.
const wxChar RARE_CHARS[3] = {wxT('\x07'), wxT('\x07'), wxT('\x07')};

}  // namespace

// The later ones are built from the array, not from the first text, so that none depends on another.
const wxString MUQueryWords::REALLY_RARE_CHARS_TO_USE_FOR_UNIQUENESS(RARE_CHARS,
                                                                     WXSIZEOF(RARE_CHARS));
const wxString MUQueryWords::DELIMITER_FOR_USE_IN_CONCATENATION(RARE_CHARS, WXSIZEOF(RARE_CHARS));
const wxString MUQueryWords::SPECIAL_CODE_TO_REQUEST_MATCH_ALL_ROWS(wxT("********************"));
const wxString MUQueryWords::SPECIAL_CODE_FOR_COL_INSERTION_AT_END =
    wxString(RARE_CHARS, WXSIZEOF(RARE_CHARS)) + wxT("ENDEND");
const wxString MUQueryWords::CELL_STRING_VALUE_WHEN_CELL_IS_UNDEFINED = wxGetTranslation(wxT("?"));
