// Makes unique names against many existing ones.
#ifndef OMBRELIA_TABULON_SRC_TEXT_MUUNIQUENAMEINDEX_H
#define OMBRELIA_TABULON_SRC_TEXT_MUUNIQUENAMEINDEX_H

#include <wx/string.h>

#include <cstddef>
#include <map>
#include <utility>
#include <vector>

// The same answers as MUUtilitarianFunctions::GetUniqueNameToInsertForGivenListContents for the list of
// the names added so far, in that order, without walking the list.
class MUUniqueNameIndex {
 public:
  void Clear();
  void Add(const wxString& name);
  // The name, with number signs appended if it needs them. Does not add it.
  wxString UniqueForm(const wxString& name) const;

 private:
  // How many names have a count of number signs behind their stem, by ascending count.
  using SignCounts = std::vector<std::pair<std::size_t, std::size_t>>;

  std::map<wxString, SignCounts> m_countsByUpperStem;
  // By lower-case stem and sign count, the upper-case stem of the first name that was added: two names
  // that are equal without regard to case may still differ in upper case.
  std::map<std::pair<wxString, std::size_t>, wxString> m_firstByLowerStem;
};

#endif
