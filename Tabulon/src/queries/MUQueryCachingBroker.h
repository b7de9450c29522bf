// Holds the results of the selection of several columns, which are handed out by pointer.
#ifndef OMBRELIA_TABULON_SRC_QUERIES_MUQUERYCACHINGBROKER_H
#define OMBRELIA_TABULON_SRC_QUERIES_MUQUERYCACHINGBROKER_H

#include <wx/string.h>

#include <map>
#include <vector>

#include "Tabulon/src/queries/MUCachingKeySelectedData.h"

// Effect: keeps vectors of maps under the keys of their queries.
// Cost: a look-up compares keys as a std::map does.
// Lifetime: it owns what it holds, but only EmptyAllCachedData deletes it.
// Threads: one at a time.
// Failure: an unknown key is answered with null.
class MUQueryCachingBroker {
 public:
  using MultiSelect = std::vector<std::map<wxString, wxString>*>;

  MUQueryCachingBroker() = default;
  MUQueryCachingBroker(const MUQueryCachingBroker&) = delete;
  MUQueryCachingBroker& operator=(const MUQueryCachingBroker&) = delete;
  // Deletes nothing that it holds: EmptyAllCachedData must come first.
  virtual ~MUQueryCachingBroker() = default;

  // The stored result, borrowed until EmptyAllCachedData; null if there is none.
  MultiSelect* GetSharedPointerToMultiSelect(const MUCachingKeySelectedData& key) const;
  // Takes ownership of the vector and of the maps in it. An entry that exists stays, and then the result
  // remains the caller's: look first.
  void HoldThisDataMultiSelect(const MUCachingKeySelectedData& key, MultiSelect* result);
  // Deletes all that it holds.
  void EmptyAllCachedData();

 private:
  std::map<MUCachingKeySelectedData, MultiSelect*> m_multiSelects;
};

#endif
