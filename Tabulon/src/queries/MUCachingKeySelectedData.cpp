#include "Tabulon/src/queries/MUCachingKeySelectedData.h"

bool MUCachingKeySelectedData::Equals(const MUCachingKeySelectedData& other) const {
  return m_selectPart == other.m_selectPart && m_wherePart == other.m_wherePart &&
         m_valuePart == other.m_valuePart;
}

bool MUCachingKeySelectedData::LessThan(const MUCachingKeySelectedData& other) const {
  int order = m_selectPart.compare(other.m_selectPart);
  if (order == 0) order = m_wherePart.compare(other.m_wherePart);
  if (order == 0) order = m_valuePart.compare(other.m_valuePart);
  return order < 0;
}
