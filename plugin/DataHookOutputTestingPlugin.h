// The plug-in object: dispatches each finished data file to the verifier of its experiment.
#ifndef OMBRELIA_PLUGIN_DATAHOOKOUTPUTTESTINGPLUGIN_H
#define OMBRELIA_PLUGIN_DATAHOOKOUTPUTTESTINGPLUGIN_H

#include <boost/shared_ptr.hpp>

#include "plugin/Interface_DataHookPlugin.h"
#include "plugin/VerifierRegistrationInfo.h"

namespace Ombrelia {

class DataHookOutputTestingPlugin : public Interface_DataHookPlugin {
 public:
  // Makes the report writer at once, so that its flag file stands from load time on.
  DataHookOutputTestingPlugin();
  ~DataHookOutputTestingPlugin() override;

  int GetPlugInID() const override;
  void GetString(int index, wxString& text) const override;

  void PerformPostProcessing(const wxString& dataFilePath,
                             const std::vector<StimAreaData>& stimAreas) override;
  bool LogAssertionFailureAsTestFailure(const wxString& assertionText) override;
  void FlushTestOutput() override;

  // Called from static initialisers, in any order of translation units. Of two names that differ only
  // in case the first one registered stays; the second is dropped silently.
  static void RegisterOneSingleVerifier(VerifierRegistrationInfo info);

  class PrivateImpl;

 private:
  boost::shared_ptr<PrivateImpl> m_impl;
};

}  // namespace Ombrelia

namespace OmbreliaSDK {

// The one plug-in object of the process. Its destructor, at process exit or unload, writes the report
// of a printer that was not flushed.
extern Ombrelia::DataHookOutputTestingPlugin my_dll;

}  // namespace OmbreliaSDK

#endif
