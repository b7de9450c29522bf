#include "Tabulon/src/reading/MUDataFileColumns.h"

#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/text/MUCellSplitting.h"

MUColumnNamePlusProperties* MUNewColumn(const wxString& name, const wxString& fileName,
                                        short suppressed) {
  auto* column = new MUColumnNamePlusProperties;
  column->m_columnName = name;
  column->m_fileStatuses.emplace_back(fileName, suppressed);
  return column;
}

std::vector<wxString> MUSplitAtTabs(const wxString& line) {
  std::vector<wxString> cells;
  const auto wide = line.wc_str();
  const wchar_t* begin = wide;
  MUForEachCell(begin, begin + line.length(), [&cells](const wchar_t* cell, const wchar_t* end) {
    cells.emplace_back(cell, static_cast<std::size_t>(end - cell));
  });
  return cells;
}

void MUAddFirstHeadingRow(const std::vector<wxString>& cells, const MUColumnMaker& make,
                          MUColumns& columns) {
  for (const wxString& cell : cells) columns.push_back(make(cell));
}

void MUAddSecondHeadingRow(const std::vector<wxString>& cells, const MUColumnMaker& make,
                           MUColumns& columns) {
  const std::size_t columnsOfFirstRow = columns.size();
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i < columnsOfFirstRow)
      columns[i]->m_columnName += wxT('\n') + cells[i];
    else
      columns.push_back(make(wxT("\t\n") + cells[i]));
  }
}

bool MUTrimNamesAndMakeThemUnique(MUColumns& columns, MUUniqueNameIndex* namesInUse) {
  namesInUse->Clear();
  std::size_t appendedSigns = 0;
  for (MUColumnNamePlusProperties* column : columns) {
    wxString& name = column->m_columnName;
    name.Trim(true).Trim(false);
    const std::size_t lengthBefore = name.length();
    name = namesInUse->AddUniqueForm(name);
    appendedSigns += name.length() - lengthBefore;
    if (appendedSigns > MU_LARGEST_NUMBER_OF_APPENDED_SIGNS) return false;
  }
  return true;
}

bool MUHasTooManyCellsBeyondColumns(const MUDataFileBlock& block, std::size_t columnCount) {
  const std::size_t cells = block.LargestCellCount();
  if (cells <= columnCount) return false;
  const std::size_t beyond = cells - columnCount;
  // The first has no sign, the second one, and so on.
  return beyond * (beyond - 1) / 2 > MU_LARGEST_NUMBER_OF_APPENDED_SIGNS;
}

void MUNameColumnsOfBlock(const MUColumns& columns, MUDataFileBlock* block) {
  std::vector<wxString> names;
  names.reserve(columns.size());
  for (const MUColumnNamePlusProperties* column : columns) names.push_back(column->m_columnName);
  block->AppendColumnNames(names);
}

wxString MUWordsForNonEmptyColumns(const wxString& fileName) {
  return wxT("\n\nDoColumnHeadings was never intended for use with a NON-empty collection of "
             "column-property objects.") +
         wxString(
             wxT("\n\nThis might not be a problem if you have looked into it.  However, if you "
                 "did NOT KNOW you sent a non-empty collection, then you ")) +
         wxT("should investigate.\n\n") + fileName;
}
