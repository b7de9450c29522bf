#ifndef OMBRELIA_TABULON_SRC_TABLE_DICHOTOMOUSFILEREQUEST_H
#define OMBRELIA_TABULON_SRC_TABLE_DICHOTOMOUSFILEREQUEST_H

#include <wx/string.h>

// One file's part in a batch. Which of the two answers it asks for depends on the batch that receives
// it: be present or be removed, be active or be suppressed.
struct DichotomousFileRequest {
  wxString m_fullFileName;  // as wxFileName::GetFullPath gives it, compared exactly
  bool m_wanted = false;
};

#endif
