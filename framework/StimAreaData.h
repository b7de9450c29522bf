// One on-screen area that a response could be attached to, as the host hands it over.
#ifndef OMBRELIA_FRAMEWORK_STIMAREADATA_H
#define OMBRELIA_FRAMEWORK_STIMAREADATA_H

#include <wx/string.h>

namespace Ombrelia {

// In the expected record of a comparison these values match anything.
constexpr int STIM_DONT_CARE_INT = 98765;
constexpr const wxChar* STIM_DONT_CARE_STR = wxT("\t\t\t");

struct StimAreaData {
  int x;
  int y;
  int width;
  int height;
  wxString area_name;
  int response_id;

  // Does this record have what expected demands? The relation is not symmetric, because don't-care
  // values count in expected alone.
  bool SatisfiesLooseEqualityWith(const StimAreaData& expected) const;
};

}  // namespace Ombrelia

#endif
