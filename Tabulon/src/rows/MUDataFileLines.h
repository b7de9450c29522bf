// The lines of one data file: those of the header as texts, the data rows in a block.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUDATAFILELINES_H
#define OMBRELIA_TABULON_SRC_ROWS_MUDATAFILELINES_H

#include <wx/string.h>

#include <cstddef>
#include <vector>

#include "Tabulon/src/rows/MUDataFileBlock.h"

// What a reader has of a file once it is opened. Copies share the block.
struct MUDataFileLines {
  // Lines of both kinds.
  std::size_t Count() const { return header.size() + (block ? block->RowCount() : 0); }

  std::vector<wxString> header;  // the first lines of the file, as many as its kind has
  MUDataFileBlockPtr block;      // all further lines
};

#endif
