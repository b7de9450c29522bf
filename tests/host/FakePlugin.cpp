// A data-hook plug-in for the tests of the host's stand-in. Environment variables choose what it does:
//
//   FAKE_CALLS         file to which each call adds a line with its arguments
//   FAKE_REPORT        file that the flush copies to where the report belongs; none: no report
//   FAKE_STALE_REPORT  file that loading copies to where the report belongs
//   FAKE_ASSERTION     set: loading and processing fail an assertion each
//   FAKE_NULL          set: the library gives no object
//   FAKE_EXCEPTION     set: processing throws
#include <unistd.h>
#include <wx/debug.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "framework/StimAreaData.h"
#include "plugin/Interface_DataHookPlugin.h"

namespace {

void Tell(const std::string& call) {
  if (const char* file = std::getenv("FAKE_CALLS"))
    std::ofstream(file, std::ios::app) << call << "\n";
}

void CopyToReport(const char* variable) {
  const char* const source = std::getenv(variable);
  if (source == nullptr) return;
  std::filesystem::copy_file(
      source,
      "scons-out/opt/tests/auto_experiment_tests/FakeUnitTestsDataHookExperimentRunning_" +
          std::to_string(getpid()) + ".xml",
      std::filesystem::copy_options::overwrite_existing);
}

class FakePlugin : public Ombrelia::Interface_DataHookPlugin {
 public:
  FakePlugin() {
    CopyToReport("FAKE_STALE_REPORT");
    if (std::getenv("FAKE_ASSERTION")) wxASSERT_MSG(false, wxT("while loading"));
  }
  int GetPlugInID() const override { return 0; }
  void GetString(int, wxString&) const override {}

  void PerformPostProcessing(const wxString& dataFilePath,
                             const std::vector<Ombrelia::StimAreaData>& stimAreas) override {
    std::string call = "process " + dataFilePath.utf8_string();
    for (const Ombrelia::StimAreaData& area : stimAreas) {
      call += " [" + std::to_string(area.x) + "," + std::to_string(area.y) + "," +
              std::to_string(area.width) + "," + std::to_string(area.height) + "," +
              std::to_string(area.response_id) + "," + area.area_name.utf8_string() + "]";
    }
    Tell(call);
    if (std::getenv("FAKE_ASSERTION")) wxASSERT_MSG(false, wxT("while processing"));
    if (std::getenv("FAKE_EXCEPTION")) throw std::runtime_error("thrown by the plug-in");
  }
  bool LogAssertionFailureAsTestFailure(const wxString& assertionText) override {
    Tell("assertion " + assertionText.utf8_string());
    // Must not come back here.
    if (std::getenv("FAKE_ASSERTION")) wxASSERT_MSG(false, wxT("while recording an assertion"));
    return true;
  }
  void FlushTestOutput() override {
    Tell("flush");
    CopyToReport("FAKE_REPORT");
  }
};

FakePlugin object;

}  // namespace

extern "C" __attribute__((visibility("default"))) void* OMSdkGetObjectPtr() {
  if (std::getenv("FAKE_NULL")) return nullptr;
  return static_cast<OmbreliaSDK::OMSdkBase*>(&object);
}
