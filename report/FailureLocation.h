// The text that stands in the report as the source position of a failure.
#ifndef OMBRELIA_REPORT_FAILURELOCATION_H
#define OMBRELIA_REPORT_FAILURELOCATION_H

#include <wx/string.h>

namespace Ombrelia {

// Returns "Whichever/File/Focuses/On/Verifying/", fileName, ":" and line in decimal. It only looks like a
// path: callers pass an experiment's file name or a class's name, and a constant that identifies the
// check.
wxString FailureLocationText(long line, const wxString& fileName);

}  // namespace Ombrelia

#endif
