// What was put into a row's maps, beside or instead of the text of its line.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUROWOVERLAYS_H
#define OMBRELIA_TABULON_SRC_ROWS_MUROWOVERLAYS_H

#include <wx/string.h>

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <map>

#include "Tabulon/src/rows/MUDataFileBlock.h"

// The own entries of one map. They stand beside what the block gives for other keys; once m_complete is
// set, they stand instead of it. MAPPED: the map's mapped type.
template <typename MAPPED>
struct MURowOverlay {
  std::map<wxString, MAPPED> m_entries;
  bool m_complete = false;
};

// The own entries of a row's five maps. A row has this record only after the first write or
// reference.
struct MURowOverlays {
  MURowOverlay<wxString> m_cells;
  MURowOverlay<double> m_hash01;
  MURowOverlay<double> m_hash02;
  MURowOverlay<double> m_hash03;
  MURowOverlay<bool> m_textFitsInHash;
  boost::intrusive_ptr<const MUDataFileBlock> m_block;  // the row's; null if it has none
};

#endif
