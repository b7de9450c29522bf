#include "report/FailureLocation.h"

#include <string>

namespace Ombrelia {

wxString FailureLocationText(long line, const wxString& fileName) {
  return wxT("Whichever/File/Focuses/On/Verifying/") + fileName + wxT(":") + std::to_wstring(line);
}

}  // namespace Ombrelia
