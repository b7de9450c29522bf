#include "host/results/FailingTests.h"

#include <wx/string.h>

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "framework/RowScan.h"
#include "framework/VerificationListener.h"
#include "host/results/ThisMachine.h"
#include "host/results/WideText.h"
#include "plugin/DataHookOutputTestingPluginImpl.h"
#include "report/FakeJUnitPrinter.h"

namespace OmbreliaHost {

namespace {

// Listens for its own life, for the kind of machine.
class FailureCollector : public Ombrelia::FakeJUnitPrinter, private Ombrelia::VerificationListener {
 public:
  explicit FailureCollector(MachineKind machine) : m_machine(machine) { SetCurrent(this); }
  ~FailureCollector() override { SetCurrent(nullptr); }
  FailureCollector(const FailureCollector&) = delete;
  FailureCollector& operator=(const FailureCollector&) = delete;

  const std::vector<std::string>& Names() const { return m_names; }

  void NewTestSuite(const wxString&) override {}
  void AddPassingTestResult(const wxString&) override {}
  void AddFailingTestResult(const wxString& testName, const wxString&, const wxString&,
                            const wxString&) override {
    m_names.push_back(Utf8OfText(testName));
  }

 private:
  boost::shared_ptr<MUExperimentTextReaderMultiFile> NewTable() override {
    return boost::shared_ptr<MUExperimentTextReaderMultiFile>(
        new MUExperimentTextReaderMultiFile(nullptr));
  }
  bool RunsOnMachine(const wxString& hostNameText) override {
    return IsKnownBy(m_machine, hostNameText);
  }
  void OnLength(const wxString&, const std::vector<wxString>&) override {}
  void OnCells(const wxString&, int, const std::vector<wxString>&) override {}
  void OnScan(const wxString&, const Ombrelia::RowScan&) override {}
  void OnBound(int, int, int, long) override {}
  void OnStimAreas(const std::vector<Ombrelia::StimAreaData>&,
                   const std::vector<Ombrelia::StimAreaData>&) override {}

  MachineKind m_machine;
  std::vector<std::string> m_names;
};

}  // namespace

std::vector<std::string> FailingTestsOf(const std::filesystem::path& absoluteDatafile,
                                        const std::vector<Ombrelia::StimAreaData>& areas,
                                        MachineKind machine) {
  FailureCollector collector(machine);
  Ombrelia::DispatchDatafile(TextOfPath(absoluteDatafile), areas, &collector);
  return collector.Names();
}

}  // namespace OmbreliaHost
