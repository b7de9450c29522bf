// The answer to a query for texts, as it is cached.
#ifndef OMBRELIA_TABULON_SRC_QUERIES_MUSELECTEDTEXTS_H
#define OMBRELIA_TABULON_SRC_QUERIES_MUSELECTEDTEXTS_H

#include <wx/string.h>

#include <cstddef>
#include <memory>
#include <vector>

#include "Tabulon/src/memory/MUScratchArray.h"
#include "Tabulon/src/text/MUCellText.h"

// Effect: holds views of the files' texts; ToTexts copies them.
// Cost: a pointer and a length per text; ToTexts makes a text each.
// Lifetime: keeper owns what the texts are borrowed from, so that the answer may outlive the rows.
// Threads: any number may read it.
// Failure: only memory can run out.
struct MUSelectedTexts {
  MULargeVector<MUCellText> texts;
  std::shared_ptr<const void> keeper;  // of what the texts are borrowed from

  std::vector<wxString> ToTexts() const {
    constexpr std::size_t TEXTS_AHEAD = 16;  // are fetched into the cache
    std::vector<wxString> copies;
    copies.reserve(texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
      if (i + TEXTS_AHEAD < texts.size()) texts[i + TEXTS_AHEAD].Prefetch();
      copies.emplace_back();
      texts[i].CopyInto(copies.back());
    }
    return copies;
  }
};

#endif
