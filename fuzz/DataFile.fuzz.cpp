// Whatever a data file holds, every verifier may fail it, and nothing more may happen.
#include "framework/StimAreaData.h"
#include "fuzz/ScratchFile.h"
#include "plugin/DataHookOutputTestingPluginImpl.h"
#include "plugin/Interface_SpecificIndividualTestVerifier.h"
#include "report/FakeJUnitPrinter.h"

namespace {

class SilentPrinter : public Ombrelia::FakeJUnitPrinter {
 public:
  void NewTestSuite(const wxString&) override {}
  void AddPassingTestResult(const wxString&) override {}
  void AddFailingTestResult(const wxString&, const wxString&, const wxString&,
                            const wxString&) override {}
};

// By its design this one never ends on a file without a certain row.
const wxChar* const ENDLESS_WITHOUT_ITS_ROW = wxT("2012-12-20_TEST_RESET_THE_SUBSET.OM5");

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  Fuzz::PrepareProcess();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Fuzz::ScratchFile file("datafile", data, size);
  SilentPrinter printer;
  for (const auto& [key, info] :
       Ombrelia::DataHookOutputTestingPlugin::PrivateImpl::m_static_verifiers()) {
    if (key != ENDLESS_WITHOUT_ITS_ROW) {
      info.verifier->VerifyDatafile(file.Path(), {}, &printer);
    }
  }
  return 0;
}
