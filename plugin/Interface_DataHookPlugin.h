// The face that the host sees of a data-hook plug-in.
#ifndef OMBRELIA_PLUGIN_INTERFACE_DATAHOOKPLUGIN_H
#define OMBRELIA_PLUGIN_INTERFACE_DATAHOOKPLUGIN_H

#include <wx/string.h>

#include <vector>

#include "hostsdk/OMSdkBase.h"

namespace Ombrelia {

struct StimAreaData;

// Called by the host from its one thread, one operation at a time, after an experiment has ended.
class Interface_DataHookPlugin : public OmbreliaSDK::OMSdkBase {
 public:
  // dataFilePath: a finished data file; stimAreas: the on-screen areas that responses could be
  // attached to. Results stay in memory until FlushTestOutput or process exit.
  virtual void PerformPostProcessing(const wxString& dataFilePath,
                                     const std::vector<StimAreaData>& stimAreas) = 0;
  // Records a failing test in the suite that is open. Returns true.
  virtual bool LogAssertionFailureAsTestFailure(const wxString& assertionText) = 0;
  // Writes the report. A second call in a row does nothing; a later result starts a new report,
  // which replaces this one.
  virtual void FlushTestOutput() = 0;
};

}  // namespace Ombrelia

#endif
