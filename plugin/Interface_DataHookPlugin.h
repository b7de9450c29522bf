// What the host sees of a data-hook plug-in.
#ifndef OMBRELIA_PLUGIN_INTERFACE_DATAHOOKPLUGIN_H
#define OMBRELIA_PLUGIN_INTERFACE_DATAHOOKPLUGIN_H

#include <wx/string.h>

#include <vector>

#include "hostsdk/OMSdkBase.h"

namespace Ombrelia {

struct StimAreaData;

// The host calls one operation at a time, from one thread, after an experiment has ended. No operation
// throws: an exception out of a verifier or a library becomes a failing test in the suite that is open,
// or is lost if memory does not even suffice for that. Where wx itself allows no exception, in its file
// functions and formatting, memory that runs out ends the process.
class Interface_DataHookPlugin : public OmbreliaSDK::OMSdkBase {
 public:
  // Has the verifier of the data file's experiment check it. A file without a verifier and a file that
  // cannot be read give a failing test. dataFilePath: native format. stimAreas: the on-screen areas that
  // responses could be attached to, borrowed for the call. Results stay in memory until FlushTestOutput
  // or process exit.
  virtual void PerformPostProcessing(const wxString& dataFilePath,
                                     const std::vector<StimAreaData>& stimAreas) = 0;
  // Records a failing test in the suite that is open. Returns true.
  virtual bool LogAssertionFailureAsTestFailure(const wxString& assertionText) = 0;
  // Writes the report. A second call in a row does nothing; a later result starts a new report,
  // which replaces this one. If memory does not suffice to put the report together, nothing is written,
  // all results are kept, and the next call or the end of the process writes them.
  virtual void FlushTestOutput() = 0;
};

}  // namespace Ombrelia

#endif
