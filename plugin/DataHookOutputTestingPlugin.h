// The plug-in object: dispatches each finished data file to the verifier of its experiment.
#ifndef OMBRELIA_PLUGIN_DATAHOOKOUTPUTTESTINGPLUGIN_H
#define OMBRELIA_PLUGIN_DATAHOOKOUTPUTTESTINGPLUGIN_H

#include <boost/shared_ptr.hpp>

#include "plugin/Interface_DataHookPlugin.h"
#include "plugin/VerifierRegistrationInfo.h"

namespace Ombrelia {

class DataHookOutputTestingPlugin : public Interface_DataHookPlugin {
 public:
  // Makes the report writer at once, so that its flag file is on disk as soon as the library is loaded.
  DataHookOutputTestingPlugin();
  ~DataHookOutputTestingPlugin() override;

  int GetPlugInID() const override;                          // -7654
  void GetString(int index, wxString& text) const override;  // has no texts: leaves text as it is

  void PerformPostProcessing(const wxString& dataFilePath,
                             const std::vector<StimAreaData>& stimAreas) override;
  bool LogAssertionFailureAsTestFailure(const wxString& assertionText) override;
  void FlushTestOutput() override;

  // Enters a verifier under its experiment's name in capitals. If that name is there already, the first
  // verifier stays and the second one is dropped without a message. Called by static initialisers, in
  // any order of translation units.
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
