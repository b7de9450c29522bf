// Makes unique names against many existing ones.
#ifndef OMBRELIA_TABULON_SRC_TEXT_MUUNIQUENAMEINDEX_H
#define OMBRELIA_TABULON_SRC_TEXT_MUUNIQUENAMEINDEX_H

#include <wx/string.h>

#include <cstddef>
#include <map>
#include <utility>
#include <vector>

// Effect: gives the same answers as MUUtilitarianFunctions::GetUniqueNameToInsertForGivenListContents for the list
// of the names added so far, in that order.
// Cost: each operation takes time in the logarithm of the number of names, where that function walks the list. What
// only repeated names need is made when the first of them comes.
// Lifetime: it keeps copies of the names.
// Threads: one at a time.
// Failure: throws std::bad_alloc.
class MUUniqueNameIndex {
 public:
  // Forgets all names.
  void Clear();
  // Adds a name, also one that is known already.
  void Add(const wxString& name);
  // Adds the name, with number signs appended if it needs them, and answers what was added.
  wxString AddUniqueForm(const wxString& name);

 private:
  // How many names have a count of number signs behind their stem, by ascending count.
  using SignCounts = std::vector<std::pair<std::size_t, std::size_t>>;

  // Without regard to case: the lower-case stem and the number of signs.
  using Caseless = std::pair<wxString, std::size_t>;

  void CountNewNames();
  wxString FormBeside(const wxString& taken, const wxString& name);

  std::vector<wxString> m_names;
  // The first name that was added of all that are equal without regard to case. They may still differ in upper case.
  std::map<Caseless, std::size_t> m_first;
  std::size_t m_counted = 0;  // names that the following knows
  std::map<wxString, SignCounts> m_countsByUpperStem;
};

#endif
