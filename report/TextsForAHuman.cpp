#include "report/TextsForAHuman.h"

#include <wx/filefn.h>

namespace Ombrelia {

wxString TextOfAnUnwrittenFile(const wxString& path, bool unattended) {
  wxString text = wxT("\n\nFakeJUnitPrinter failed to write to the file ") + path;
  if (unattended) {
    text += wxT("\n\nPLEASE CREATE THAT PATH.\n\nerror is reported relative to current working dir "
                "(CWD). CWD is:\n\n") +
            wxGetCwd() + wxT("\n\n");
  }
  return text;
}

wxString TextOfAFailedTest(const wxString& testName, const wxString& subject,
                           const wxString& location, const wxString& message) {
  return wxT("\n\nName of test: ") + testName + wxT("\n\nSubject: ") + subject +
         wxT("\n\nLocation: ") + location + wxT("\n\nMessage: ") + message + wxT("\n\n");
}

}  // namespace Ombrelia
