#include "Tabulon/cli/FileDescription.h"

#include <wx/filename.h>

#include <deque>
#include <memory>

#include "Tabulon/cli/InputReports.h"
#include "Tabulon/cli/Numbers.h"
#include "Tabulon/cli/PlainTable.h"
#include "Tabulon/cli/Text.h"
#include "Tabulon/src/reading/MUDataFileInputReaderFactory.h"
#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUColumnReader.h"

namespace TabulonCli {

namespace {

using Reader = MUInterfaceExperimentDataFileInputReader;
using Rows = std::vector<std::unique_ptr<MUSingleRowDataPlusRowProperties>>;

std::string KindOf(const MUColumnNamePlusProperties& column) {
  std::string kind;
  if ((column.m_columnPropertyFlags & MU_COL_FLAG_TRIAL_VARIABLE) != 0) kind = "trial variable";
  if ((column.m_columnPropertyFlags & MU_COL_FLAG_CODE_VALUE) != 0)
    kind += kind.empty() ? "code value" : ", code value";
  return kind.empty() ? "plain" : kind;
}

std::string KindOfCellsIn(const wxString& column, const Rows& rows) {
  MUColumnReader cells(column);
  std::size_t empty = 0;
  std::size_t numbers = 0;
  for (const auto& row : rows) {
    const MUCellText text = cells.TextOf(*row);
    if (IsBlank(text)) ++empty;
    if (NumberIn(text)) ++numbers;
  }
  return KindOfCells(rows.size(), empty, numbers);
}

Rows ReadRows(Reader& reader) {
  Rows rows;
  reader.GoToDataRow(0);
  for (std::uint32_t i = 0; i < reader.GetDataRowCount(); ++i) {
    rows.emplace_back(reader.CreateAndReturnCurrentRowObject(true));
    if (rows.back() == nullptr) rows.pop_back();
  }
  return rows;
}

void DescribeContent(Reader& reader, FileDescription& description) {
  // Rows first, as the table reads them: cells beyond the last heading make columns. The columns are ours
  // from the call on.
  const Rows rows = ReadRows(reader);
  const std::unique_ptr<std::deque<MUColumnNamePlusProperties*>> taken(
      reader.CreateAndReturnPositionallyOrderedColumnObjects());
  std::deque<std::unique_ptr<MUColumnNamePlusProperties>> columns;
  for (MUColumnNamePlusProperties* column : *taken) columns.emplace_back(column);

  wxString participant;
  if (!rows.empty()) {
    participant = rows.front()->m_cells.ValueOrDefault(Reader::STRING_FOR_PERSONNAME_SECRET_COL);
  }
  const wxString date = reader.GetExperimentDateTimeString();
  if (IsPlainTable(participant, date)) {
    description.problems.push_back(Utf8(PLAIN_TABLE_MESSAGE));
    return;
  }
  description.title = Utf8(Harmless(reader.GetExperimentTitle()));
  description.date = Utf8(Harmless(date));
  description.participant = Utf8(Harmless(participant));
  description.rows = reader.GetDataRowCount();
  for (const auto& column : columns) {
    description.columns.push_back({Utf8(OnOneLine(column->m_columnName)), KindOf(*column),
                                   KindOfCellsIn(column->m_columnName, rows)});
  }
}

}  // namespace

FileDescription Describe(const std::filesystem::path& file, const Inputs& inputs) {
  FileDescription description;
  description.name = inputs.NameOf(file);
  InputReports reports;
  const std::unique_ptr<Reader> reader(
      MUDataFileInputReaderFactory::GetExperimentDataFileInputReader(
          wxFileName(TextOf(file)), MU_INPUTFILE_TXT, &reports, nullptr));
  if (!reader->ErrorStatusIsPresent()) DescribeContent(*reader, description);
  for (const auto& problem : reports.Problems())
    description.problems.push_back(Utf8(problem.message));
  return description;
}

}  // namespace TabulonCli
