// The key of every cached query: three texts that together say what was asked.
#ifndef OMBRELIA_TABULON_SRC_QUERIES_MUCACHINGKEYSELECTEDDATA_H
#define OMBRELIA_TABULON_SRC_QUERIES_MUCACHINGKEYSELECTEDDATA_H

#include <wx/string.h>

// Effect: an immutable value that orders the maps of cached answers.
// Cost: three texts; a comparison reads them up to the first difference.
// Lifetime: it owns its texts.
// Threads: any number may read one key.
// Failure: any texts make a key, empty ones too.
class MUCachingKeySelectedData {
 public:
  MUCachingKeySelectedData(const wxString& selectPart, const wxString& wherePart,
                           const wxString& valuePart)
      : m_selectPart(selectPart), m_wherePart(wherePart), m_valuePart(valuePart) {}

  bool Equals(const MUCachingKeySelectedData& other) const;
  // Part by part in the order of wxString::compare, each part deciding unless equal.
  bool LessThan(const MUCachingKeySelectedData& other) const;

 private:
  wxString m_selectPart;
  wxString m_wherePart;
  wxString m_valuePart;
};

inline bool operator<(const MUCachingKeySelectedData& left, const MUCachingKeySelectedData& right) {
  return left.LessThan(right);
}

#endif
