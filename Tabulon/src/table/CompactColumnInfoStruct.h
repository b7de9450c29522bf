#ifndef OMBRELIA_TABULON_SRC_TABLE_COMPACTCOLUMNINFOSTRUCT_H
#define OMBRELIA_TABULON_SRC_TABLE_COMPACTCOLUMNINFOSTRUCT_H

#include <wx/string.h>

// What a list of columns for the user needs of one column.
struct CompactColumnInfoStruct {
  wxString m_columnName;
  bool m_hidden = false;  // for whichever reason the column is not displayed
};

#endif
