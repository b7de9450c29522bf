#include "Tabulon/src/queries/MUQueryCachingBroker.h"

MUQueryCachingBroker::MultiSelect* MUQueryCachingBroker::GetSharedPointerToMultiSelect(
    const MUCachingKeySelectedData& key) const {
  const auto found = m_multiSelects.find(key);
  return found == m_multiSelects.end() ? nullptr : found->second;
}

void MUQueryCachingBroker::HoldThisDataMultiSelect(const MUCachingKeySelectedData& key,
                                                   MultiSelect* result) {
  m_multiSelects.emplace(key, result);
}

void MUQueryCachingBroker::EmptyAllCachedData() {
  for (const auto& entry : m_multiSelects) {
    for (const auto* row : *entry.second) delete row;
    delete entry.second;
  }
  m_multiSelects.clear();
}
