// What was put into a row's maps, beside or instead of the text of its line.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUROWOVERLAYS_H
#define OMBRELIA_TABULON_SRC_ROWS_MUROWOVERLAYS_H

#include <wx/string.h>

#include <map>

// Entries of one map that stand beside the block, or, when complete, instead of it.
template <typename T>
struct MURowOverlay {
  std::map<wxString, T> m_entries;
  bool m_complete = false;
};

struct MURowOverlays {
  MURowOverlay<wxString> m_cells;
  MURowOverlay<double> m_hash01;
  MURowOverlay<double> m_hash02;
  MURowOverlay<double> m_hash03;
  MURowOverlay<bool> m_textFitsInHash;
};

#endif
