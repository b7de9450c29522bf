#include "host/results/VerificationRecorder.h"

#include <utility>

#include "host/results/ThisMachine.h"

namespace OmbreliaHost {

VerificationRecorder::VerificationRecorder(MachineKind machine) : m_machine(machine) {
  SetCurrent(this);
}

VerificationRecorder::~VerificationRecorder() { SetCurrent(nullptr); }

void VerificationRecorder::NewTestSuite(const wxString&) {}

void VerificationRecorder::AddPassingTestResult(const wxString& testName) {
  RecordedCheck check;
  check.name = testName;
  Keep(std::move(check));
}

void VerificationRecorder::AddFailingTestResult(const wxString& testName, const wxString& subject,
                                                const wxString& location, const wxString& message) {
  RecordedCheck check;
  check.name = testName;
  check.failed = true;
  check.subject = subject;
  check.location = location;
  check.message = message;
  Keep(std::move(check));
}

void VerificationRecorder::Keep(RecordedCheck check) {
  if (m_table) check.reads = m_table->TakeReads();
  check.comparisons = std::exchange(m_comparisons, {});
  m_checks.push_back(std::move(check));
}

boost::shared_ptr<MUExperimentTextReaderMultiFile> VerificationRecorder::NewTable() {
  m_table.reset(new RecordingTable(this));
  return m_table;
}

bool VerificationRecorder::RunsOnMachine(const wxString& hostNameText) {
  return IsKnownBy(m_machine, hostNameText);
}

void VerificationRecorder::OnLength(const wxString& columnName,
                                    const std::vector<wxString>& expected) {
  m_comparisons.push_back(LengthComparison{columnName, expected});
}

void VerificationRecorder::OnCells(const wxString& columnName, int firstRow,
                                   const std::vector<wxString>& expected) {
  // A positional rule has told it already.
  const auto* const scan =
      m_comparisons.empty() ? nullptr : std::get_if<ScanComparison>(&m_comparisons.back());
  if (scan != nullptr && scan->rule.RuleKind() == Ombrelia::RowScan::Kind::POSITIONAL &&
      scan->column == columnName && firstRow == 0 && scan->rule.Texts() == expected)
    return;
  m_comparisons.push_back(CellsComparison{columnName, firstRow, expected});
}

void VerificationRecorder::OnScan(const wxString& columnName, const Ombrelia::RowScan& rule) {
  m_comparisons.push_back(ScanComparison{columnName, rule});
}

void VerificationRecorder::OnBound(int column, int min, int max, long actual) {
  m_comparisons.push_back(BoundComparison{column, min, max, actual});
}

void VerificationRecorder::OnStimAreas(const std::vector<Ombrelia::StimAreaData>& actual,
                                       const std::vector<Ombrelia::StimAreaData>& expected) {
  m_comparisons.push_back(AreasComparison{actual, expected});
}

void VerificationRecorder::OnDataFileInputReports(
    std::list<MUInterfaceExperimentDataFileInputReader::DataFileInputError> reports) {
  for (const auto& report : reports) {
    if (report.code == MUInterfaceExperimentDataFileInputReader::MU_INPUT_SUCCESS) {
      m_datafileWasRead = true;
    } else {
      m_wordsOfReader.push_back(report.message);
    }
  }
}

}  // namespace OmbreliaHost
