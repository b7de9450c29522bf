// The answer to a query for texts, as it is cached.
#ifndef TABULON_SRC_MUSELECTEDTEXTS_H
#define TABULON_SRC_MUSELECTEDTEXTS_H

#include <wx/string.h>

#include <memory>
#include <vector>

#include "Tabulon/src/MUCellText.h"

// Holds the texts as they stand in the files; whoever asks gets texts of his own.
struct MUSelectedTexts {
  std::vector<MUCellText> texts;
  std::shared_ptr<const void> keeper;  // of what the texts are borrowed from

  std::vector<wxString> ToTexts() const {
    std::vector<wxString> copies;
    copies.reserve(texts.size());
    for (const MUCellText& text : texts) copies.push_back(text.ToString());
    return copies;
  }
};

#endif
