#include "report/FailureLocation.h"

namespace Ombrelia {

wxString FailureLocationText(long line, const wxString& fileName) {
  return wxString::Format(wxT("%s:%ld"), wxT("Whichever/File/Focuses/On/Verifying/") + fileName,
                          line);
}

}  // namespace Ombrelia
