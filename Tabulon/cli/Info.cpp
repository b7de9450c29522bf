#include "Tabulon/cli/Info.h"

#include <wx/filename.h>

#include <algorithm>
#include <deque>
#include <memory>
#include <ostream>

#include "Tabulon/cli/InputReports.h"
#include "Tabulon/cli/Text.h"
#include "Tabulon/src/reading/MUDataFileInputReaderFactory.h"
#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"

namespace fs = std::filesystem;

namespace TabulonCli {

namespace {

using Reader = MUInterfaceExperimentDataFileInputReader;

std::string KindOf(const MUColumnNamePlusProperties& column) {
  std::string kind;
  if ((column.m_columnPropertyFlags & MU_COL_FLAG_TRIAL_VARIABLE) != 0) kind = "trial variable";
  if ((column.m_columnPropertyFlags & MU_COL_FLAG_CODE_VALUE) != 0)
    kind += kind.empty() ? "code value" : ", code value";
  return kind.empty() ? "plain" : kind;
}

std::string TypeOf(const MUColumnNamePlusProperties& column) {
  switch (column.m_dataType) {
    case 1:
      return "numbers";
    case 2:
      return "text";
    case 3:
      return "date and time";
    default:
      return "unknown";
  }
}

void PrintColumns(std::ostream& out, Reader& reader) {
  // Rows first, as the table reads them: cells beyond the last heading make columns. The columns are ours
  // from the call on.
  const std::unique_ptr<std::deque<MUColumnNamePlusProperties*>> taken(
      reader.CreateAndReturnPositionallyOrderedColumnObjects());
  std::deque<std::unique_ptr<MUColumnNamePlusProperties>> columns;
  for (MUColumnNamePlusProperties* column : *taken) columns.emplace_back(column);

  std::size_t nameWidth = 4;
  std::size_t kindWidth = 4;
  for (const auto& column : columns) {
    nameWidth = std::max(nameWidth, DisplayWidth(OnOneLine(column->m_columnName)));
    kindWidth = std::max(kindWidth, KindOf(*column).size());
  }
  out << "  columns      " << columns.size() << '\n';
  for (const auto& column : columns) {
    const wxString name = OnOneLine(column->m_columnName);
    const std::string kind = KindOf(*column);
    out << "    " << Utf8(name) << std::string(nameWidth - DisplayWidth(name) + 2, ' ') << kind
        << std::string(kindWidth - kind.size() + 2, ' ') << TypeOf(*column) << '\n';
  }
}

void PrintGoodFile(std::ostream& out, Reader& reader) {
  wxString participant;
  reader.GoToDataRow(0);
  for (std::uint32_t i = 0; i < reader.GetDataRowCount(); ++i) {
    const std::unique_ptr<MUSingleRowDataPlusRowProperties> row(
        reader.CreateAndReturnCurrentRowObject(true));
    if (row != nullptr && i == 0) {
      participant = row->m_cells.ValueOrDefault(Reader::STRING_FOR_PERSONNAME_SECRET_COL);
    }
  }
  out << "  title        " << Utf8(Harmless(reader.GetExperimentTitle())) << '\n'
      << "  date         " << Utf8(Harmless(reader.GetExperimentDateTimeString())) << '\n'
      << "  participant  " << Utf8(Harmless(participant)) << '\n'
      << "  rows         " << reader.GetDataRowCount() << '\n';
  PrintColumns(out, reader);
}

}  // namespace

ExitStatus PrintInfo(std::ostream& out, const std::vector<fs::path>& files) {
  ExitStatus status = ExitStatus::Fine;
  for (const fs::path& file : files) {
    InputReports reports;
    const std::unique_ptr<Reader> reader(
        MUDataFileInputReaderFactory::GetExperimentDataFileInputReader(
            wxFileName(TextOf(file)), MU_INPUTFILE_TXT, &reports, nullptr));
    out << file.string() << '\n';
    if (!reader->ErrorStatusIsPresent()) {
      PrintGoodFile(out, *reader);
      continue;
    }
    status = ExitStatus::NoDataFile;
    out << "  no data file\n";
    for (const auto& problem : reports.Problems()) out << "  " << Utf8(problem.message) << '\n';
  }
  return status;
}

}  // namespace TabulonCli
