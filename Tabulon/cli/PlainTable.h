// Telling a data file from a plain table.
#ifndef OMBRELIA_TABULON_CLI_PLAINTABLE_H
#define OMBRELIA_TABULON_CLI_PLAINTABLE_H

#include <wx/string.h>

namespace TabulonCli {

extern const wxString PLAIN_TABLE_MESSAGE;

// Whether what a reader took for the participant, the first line, and for the date, the third, are rows of a
// tab-separated table with one heading line, such as this program writes. No host puts a tab there. A table of
// one column cannot be told from a data file.
inline bool IsPlainTable(const wxString& participant, const wxString& date) {
  return participant.find(wxT('\t')) != wxString::npos && date.find(wxT('\t')) != wxString::npos;
}

}  // namespace TabulonCli

#endif
