// The texts that a build which serves a human would show.
//
// The writer must compose them, with these words, and show them nowhere: neither in a dialog nor in the
// log nor in the report. A build that serves a human has one place to take them from.
// Tests compare the words. No test can see whether the writer composes them, since it drops them.
#ifndef OMBRELIA_REPORT_TEXTSFORAHUMAN_H
#define OMBRELIA_REPORT_TEXTSFORAHUMAN_H

#include <wx/string.h>

namespace Ombrelia {

// Says that the file at path was not written. unattended: adds what to do about it, and the working
// directory that path is relative to.
wxString TextOfAnUnwrittenFile(const wxString& path, bool unattended);

// The four texts of a failing test, each under its name.
wxString TextOfAFailedTest(const wxString& testName, const wxString& subject,
                           const wxString& location, const wxString& message);

}  // namespace Ombrelia

#endif
