// Both readers once more, as simply as can be: the library's line and cell splitting, a tree per row
// and map, one replacing pass per control character. What the real readers give is held against it.
#ifndef OMBRELIA_TESTS_TABULON_READING_NAIVEREADER_H
#define OMBRELIA_TESTS_TABULON_READING_NAIVEREADER_H

#include <wx/string.h>

#include <map>
#include <string>
#include <vector>

namespace NaiveReader {

struct NaiveRow {
  std::map<wxString, wxString> m_cells;
  std::map<wxString, double> m_hash01;
  std::map<wxString, double> m_hash02;
  std::map<wxString, double> m_hash03;
  std::map<wxString, bool> m_textFitsInHash;
  double m_reactionTime = -999999.0;
};

struct NaiveFile {
  bool good = false;
  wxString title;
  wxString date;
  std::vector<wxString> columns;
  std::vector<NaiveRow> rows;
};

// path: the file's full path, of the form folder/name.extension.
NaiveFile ReadByName(const wxString& path, bool hasHeader);
NaiveFile ReadOpenFile(const wxString& path);

void TranslateInPasses(wxString& text);

}  // namespace NaiveReader

#endif
