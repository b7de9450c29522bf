// Holds the results of the selection of several columns, which are handed out by pointer.
#ifndef OMBRELIA_TABULON_SRC_QUERIES_MUQUERYCACHINGBROKER_H
#define OMBRELIA_TABULON_SRC_QUERIES_MUQUERYCACHINGBROKER_H

#include <wx/string.h>

#include <map>
#include <vector>

#include "Tabulon/src/queries/MUCachingKeySelectedData.h"

class MUQueryCachingBroker {
 public:
  using MultiSelect = std::vector<std::map<wxString, wxString>*>;

  MUQueryCachingBroker() = default;
  MUQueryCachingBroker(const MUQueryCachingBroker&) = delete;
  MUQueryCachingBroker& operator=(const MUQueryCachingBroker&) = delete;
  // Deletes nothing that it holds: EmptyAllCachedData must come first.
  virtual ~MUQueryCachingBroker() = default;

  // Borrowed until EmptyAllCachedData; null if nothing is stored under the key.
  MultiSelect* GetSharedPointerToMultiSelect(const MUCachingKeySelectedData& key) const;
  // Takes ownership of the vector and of the maps in it. An entry that exists stays, and then the result
  // remains the caller's: look first.
  void HoldThisDataMultiSelect(const MUCachingKeySelectedData& key, MultiSelect* result);
  void EmptyAllCachedData();

 private:
  std::map<MUCachingKeySelectedData, MultiSelect*> m_multiSelects;
};

#endif
