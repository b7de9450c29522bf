// The text that stands in the report as the source position of a failure.
#ifndef OMBRELIA_REPORT_FAILURELOCATION_H
#define OMBRELIA_REPORT_FAILURELOCATION_H

#include <wx/string.h>

namespace Ombrelia {

// "Whichever/File/Focuses/On/Verifying/" fileName ":" line. The path is a pretence: callers pass an
// experiment's file name or a class's name, and fixed line numbers that identify the check.
wxString FailureLocationText(long line, const wxString& fileName);

}  // namespace Ombrelia

#endif
