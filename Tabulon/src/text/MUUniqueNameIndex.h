// Makes unique names against many existing ones.
#ifndef OMBRELIA_TABULON_SRC_TEXT_MUUNIQUENAMEINDEX_H
#define OMBRELIA_TABULON_SRC_TEXT_MUUNIQUENAMEINDEX_H

#include <wx/string.h>

#include <cstddef>
#include <map>
#include <utility>
#include <vector>

// Gives the same answers as MUUtilitarianFunctions::GetUniqueNameToInsertForGivenListContents for the list of
// the names added so far, in that order. Each operation takes time in the logarithm of the number of names,
// where that function walks the list. Keeps copies of the names. For one thread at a time; the constant
// operation writes nothing. Throws std::bad_alloc.
class MUUniqueNameIndex {
 public:
  // Forgets all names.
  void Clear();
  // Adds a name, also one that is known already.
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
