// Runs a verifier's checks on a table that no data file gives, such as one without rows.
#ifndef OMBRELIA_TESTS_SUPPORT_CHECKSONTABLE_H
#define OMBRELIA_TESTS_SUPPORT_CHECKSONTABLE_H

#include <wx/filename.h>

#include <algorithm>
#include <set>
#include <string>
#include <utility>

#include "framework/IndividualTestCase_T.h"
#include "plugin/DataHookOutputTestingPluginImpl.h"
#include "tests/support/DataFile.h"
#include "tests/support/Files.h"
#include "tests/support/RecordingPrinter.h"

namespace Tests {

// What the checks of X, the registered verifier of this experiment, record on this table. X need not
// be complete here.
template <typename X>
Lines RecordOfChecksOn(boost::shared_ptr<MUExperimentTextReaderMultiFile> table,
                       const std::string& experiment) {
  using Frame = Ombrelia::IndividualTestCase_T<X, false>;
  struct Members : Frame {
    using Frame::m_printer;
    using Frame::m_reader;
  };
  Frame& verifier =
      static_cast<Frame&>(*Ombrelia::DataHookOutputTestingPlugin::PrivateImpl::m_static_verifiers()
                               .at(wxString::FromUTF8(experiment.c_str()).Upper())
                               .verifier);
  RecordingPrinter printer;
  const std::vector<Ombrelia::StimAreaData> noAreas;
  verifier.*(&Members::m_reader) = table;
  verifier.*(&Members::m_printer) = &printer;
  verifier.RunAllVerificationTests({table, &printer, &noAreas});
  verifier.*(&Members::m_printer) = nullptr;
  return printer.m_lines;
}

// A table that keeps which of its cells were read, by row and column.
class TableOfReads : public MUExperimentTextReaderMultiFile {
 public:
  TableOfReads() : MUExperimentTextReaderMultiFile(nullptr) {}
  wxString GetDataCellValue(int row, int column) const override {
    m_reads.emplace(row, column);
    return MUExperimentTextReaderMultiFile::GetDataCellValue(row, column);
  }

  mutable std::set<std::pair<int, int>> m_reads;
};

// How many cells of this column the checks of X read on this data file.
template <typename X>
std::size_t CellsReadByChecksOn(const DataFile& file, const std::string& experiment,
                                const std::string& column) {
  const ScratchFolder folder;
  const std::string path = folder / "table.txt";
  WriteFile(path, file.Text());
  const boost::shared_ptr<TableOfReads> table(new TableOfReads);
  table->AddExperimentOcurrence_SimulateIdleLoop_UsedWhenNoTabulonWindowIsShown(
      wxFileName(wxString::FromUTF8(path.c_str())), false, nullptr);
  table->m_reads.clear();
  RecordOfChecksOn<X>(table, experiment);
  const int place = table->GetColumnPositionNumberFromText(wxString::FromUTF8(column.c_str()));
  return static_cast<std::size_t>(
      std::count_if(table->m_reads.begin(), table->m_reads.end(),
                    [place](const std::pair<int, int>& cell) { return cell.second == place; }));
}

}  // namespace Tests

#endif
