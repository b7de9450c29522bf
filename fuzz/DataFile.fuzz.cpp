// Whatever a data file holds, every verifier may fail it, and nothing more may happen.
#include <fcntl.h>
#include <unistd.h>
#include <wx/file.h>
#include <wx/init.h>
#include <wx/log.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "Tabulon/src/MUExperimentTextReaderMultiFile.h"
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

const std::string& FilePath() {
  static const std::string path = "/tmp/ombrelia-fuzz-" + std::to_string(getpid()) + ".txt";
  return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const wxInitializer wx;
  wxLog::EnableLogging(false);
  const int file = open(FilePath().c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600);
  if (file < 0 || write(file, data, size) != static_cast<ssize_t>(size)) std::abort();
  close(file);

  const wxString path = wxString::FromUTF8(FilePath().c_str());
  SilentPrinter printer;
  for (const auto& [key, info] :
       Ombrelia::DataHookOutputTestingPlugin::PrivateImpl::m_static_verifiers()) {
    if (key != ENDLESS_WITHOUT_ITS_ROW) info.verifier->VerifyDatafile(path, {}, &printer);
  }

  wxFile open(path);
  MUExperimentTextReaderMultiFile table(nullptr);
  table.AddExperimentOcurrence_SimulateIdleLoop_UsedWhenNoTabulonWindowIsShown(wxFileName(path),
                                                                               false, &open);
  for (int column = -1; column <= table.GetNumberOfDataColumns(); ++column) {
    table.SetSortColumn(table.GetColumnNameText(column), column % 2 == 0);
    table.GetDataCellValue(table.GetNumberOfDataRows() - 1, column);
  }
  unlink(FilePath().c_str());
  return 0;
}
