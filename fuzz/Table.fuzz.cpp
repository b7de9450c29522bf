// Whatever two data files hold and a viewer asks for, in whatever order, the table stays in one piece.
//
// An input is two files with a form feed between them, or one file; its last bytes choose the requests.
#include <fuzzer/FuzzedDataProvider.h>
#include <wx/filename.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "Tabulon/src/queries/MUInterfaceRowTruthDecider.h"
#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/rows/MUPropertyFlags.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "fuzz/ScratchFile.h"

namespace {

using Table = MUExperimentTextReaderMultiFile;

constexpr std::size_t MOST_BYTES_OF_REQUESTS = 64;

void Require(bool holds, const char* what) {
  if (holds) return;
  std::cerr << "The table contradicts itself: " << what << std::endl;
  std::abort();
}

class EveryOtherRow : public MUInterfaceRowTruthDecider {
 public:
  int DecideRow(MUSingleRowDataPlusRowProperties*) override { return ++m_calls % 2; }
  bool ResultMayBeCached() override { return false; }
  wxString GetIdentityString() override { return wxString(); }

 private:
  int m_calls = 0;
};

class Viewer {
 public:
  Viewer(FuzzedDataProvider& choices, std::vector<wxString> files)
      : m_choices(choices), m_files(std::move(files)) {}

  void Run() {
    m_table.SimultaneousFileRequestsAddAndRemove({{m_files.front(), true}});
    while (m_choices.remaining_bytes() > 0) {
      Request();
      if (m_choices.ConsumeBool()) BecomeIdle();
    }
    BecomeIdle();
    RequireOneAnswer();
  }

 private:
  void Request();
  void Ask();
  void BecomeIdle() {
    while (m_table.IdleWorkRemains()) m_table.OnIdle();
  }
  // With nothing pending, the same question in two ways.
  void RequireOneAnswer();

  wxString File() {
    return m_files[m_choices.ConsumeIntegralInRange<std::size_t>(0, m_files.size() - 1)];
  }
  // One past both ends is a question, too.
  int Row() { return m_choices.ConsumeIntegralInRange(-1, m_table.GetNumberOfDataRows()); }
  wxString Column() {
    return m_table.GetColumnNameText(
        m_choices.ConsumeIntegralInRange(-1, m_table.GetNumberOfDataColumns()));
  }
  wxString Cell(const wxString& column) {
    return m_table.GetDataCellValue(Row(), m_table.GetColumnPositionNumberFromText(column));
  }

  FuzzedDataProvider& m_choices;
  const std::vector<wxString> m_files;
  Table m_table{nullptr};
};

void Viewer::Request() {
  const wxString column = Column();
  switch (m_choices.ConsumeIntegralInRange(0, 13)) {
    case 0:
      return m_table.SimultaneousFileRequestsAddAndRemove({{File(), m_choices.ConsumeBool()}});
    case 1:
      return m_table.SimultaneousFileRequestsSuppressAndUnsuppress(
          {{File(), m_choices.ConsumeBool()}});
    case 2:
      // Twice the same file is legal.
      m_table.AddExperimentOcurrence(wxFileName(File()), true);
      return;
    case 3:
      return m_table.SetSortColumn(column, m_choices.ConsumeBool());
    case 4:
      return m_table.RevertAnyAndAllSortOptions();
    case 5:
      return m_table.HideOneSingleRowPerArbitraryUserRequest(static_cast<unsigned long>(Row()));
    case 6:
      return m_table.RemoveUserDesignatedRowHiddennessBasedOnCurrentlyActiveFiles();
    case 7:
      return m_table.HideOneSingleColumnPerArbitraryUserRequest(column);
    case 8:
      for (const wxString& name :
           m_table.FindColumnNamesByPropertyFlag(MU_COL_FLAG_HIDDEN_BY_USER)) {
        m_table.UnhideOneSingleColumnPerArbitraryUserRequest(name);
      }
      return;
    case 9:
      return m_table.MoveColumnPosition(column, Column(), m_choices.ConsumeBool());
    case 10:
      return m_table.HideEmptyColumnsBasedOnCurrentlyShownRows();
    case 11:
      return m_table.ToggleRowFlag(Row());
    case 12:
      m_table.DeleteAllRows_WhereField_Y_Matches_Z(column, Cell(column));
      return;
    default:
      return Ask();
  }
}

void Viewer::Ask() {
  const wxString column = Column();
  const wxString value = Cell(column);
  const bool all = m_choices.ConsumeBool();
  const auto set = all ? Table::ALL_ROWS : Table::ACTIVE_SHOWN_AND_ACTIVE_SEMIHIDDEN;
  std::vector<wxString> values;
  m_table.SelectDistinctPerColumn(column, values, set, m_choices.ConsumeBool());
  m_table.GetAllFromCol_X_WhereField_Y_Matches_Z(Column(), column, value, all);
  m_table.GetAllFromMultiCols_X_WhereField_Y_Matches_Z({column, Column()}, column, value, all);
  EveryOtherRow decider;
  const std::list<unsigned long> found =
      *m_table.FindCurrentRowIndicesMatchingRowTruthPredicateWithinRange(&decider, all, Row(),
                                                                         Row());
  m_table.FindCurrentRowIndicesMatchingRowTruthPredicateWithinGivenIndices(&decider, found, all);
  m_table.FindCurrentRowIndicesByPropertyFlag(MU_ROW_FLAG_RED_FLAG, set);
  m_table.FindColumnInformationWherePropertyFlagIsAbsent(MU_NOT_FULLY_SHOWN_MASK);
}

void Viewer::RequireOneAnswer() {
  const int rows = m_table.GetNumberOfDataRows();
  const int columns = m_table.GetNumberOfDataColumns();
  Require(m_table.FindCurrentRowIndicesWherePropertyFlagIsAbsent(MU_NOT_FULLY_SHOWN_MASK,
                                                                 Table::ALL_ROWS)
                  .size() == static_cast<std::size_t>(rows),
          "number of shown rows");
  const auto& names = *m_table.GetNamesOfAllCurrentlyDisplayedColumns();
  Require(names.size() == static_cast<std::size_t>(columns), "number of shown columns");

  const auto& cells = *m_table.GetAllFromMultiCols_X_WhereField_Y_Matches_Z(
      {names.begin(), names.end()}, wxString(), Table::SPECIAL_CODE_TO_REQUEST_MATCH_ALL_ROWS,
      false);
  Require(cells.size() == static_cast<std::size_t>(rows), "number of selected rows");
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      Require(m_table.GetDataCellValue(row, column) ==
                  cells[static_cast<std::size_t>(row)]->at(names[static_cast<std::size_t>(column)]),
              "a cell");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  Fuzz::PrepareProcess();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::uint8_t* const end = data + size;
  const std::uint8_t* const endOfFirst = std::find(data, end, '\f');
  const std::uint8_t* const second = endOfFirst == end ? data : endOfFirst + 1;
  const Fuzz::ScratchFile firstFile("first", data, static_cast<std::size_t>(endOfFirst - data));
  const Fuzz::ScratchFile secondFile("second", second, static_cast<std::size_t>(end - second));
  const std::size_t requests = std::min(size, MOST_BYTES_OF_REQUESTS);
  FuzzedDataProvider choices(end - requests, requests);
  Viewer(choices, {firstFile.Path(), secondFile.Path()}).Run();
  return 0;
}
