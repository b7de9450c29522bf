#include "tests/Tabulon/table/TableTestSupport.h"

namespace Tests {

wxString TemporaryFolder::PathOf(const std::string& name) const {
  return wxString::FromUTF8(m_folder / name);
}

wxString TemporaryFolder::Write(const std::string& name, const std::string& bytes) const {
  WriteFile(m_folder / name, bytes);
  return PathOf(name);
}

wxString TemporaryFolder::WriteData(const std::string& name,
                                    const std::vector<std::string>& columns,
                                    const Cells& rows) const {
  return Write(name, DataText(columns, rows));
}

std::string DataText(const std::vector<std::string>& columns, const Cells& rows) {
  std::string text = "Ann\nSome experiment\n2024-01-02 03:04:05\n\n";
  std::string second;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const std::size_t split = columns[i].find('\n');
    if (i > 0) {
      text += '\t';
      second += '\t';
    }
    text += columns[i].substr(0, split);
    if (split != std::string::npos) second += columns[i].substr(split + 1);
  }
  text += '\n' + second + '\n';
  for (const auto& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) text += (i > 0 ? "\t" : "") + row[i];
    text += '\n';
  }
  return text;
}

bool LoadAndShow(MUExperimentTextReaderMultiFile& table, const wxString& path) {
  return table.AddExperimentOcurrence_SimulateIdleLoop_UsedWhenNoTabulonWindowIsShown(
      wxFileName(path), false, nullptr);
}

std::vector<std::string> ColumnOf(const MUExperimentTextReaderMultiFile& table,
                                  const wxString& name) {
  std::vector<std::string> texts;
  const int column = table.GetColumnPositionNumberFromText(name);
  for (int row = 0; row < table.GetNumberOfDataRows(); ++row) {
    texts.push_back(Utf8(table.GetDataCellValue(row, column)));
  }
  return texts;
}

bool ProbeTable::Load(const wxString& path) { return LoadAndShow(*this, path); }

std::vector<std::string> ProbeTable::Column(const wxString& name) const {
  return ColumnOf(*this, name);
}

std::string ProbeTable::Cell(int row, int column) const {
  return Utf8(GetDataCellValue(row, column));
}

long RecordingStatusPrinter::PrintStatusText(const wxString& text, int slot,
                                             long replacedMessageId) {
  std::string words = Utf8(text);
  // The number in " 12 milliseconds." at the end.
  const std::size_t end = words.rfind(" milliseconds.");
  if (end != std::string::npos) {
    const std::size_t number = words.rfind(' ', end - 1) + 1;
    milliseconds.push_back(std::stoul(words.substr(number, end - number)));
    words.replace(number, end - number, "N");
  }
  lines.push_back(words + " @" + std::to_string(slot) + " ^" + std::to_string(replacedMessageId));
  return nextId++;
}

std::string Utf8(const wxString& text) { return text.ToStdString(wxConvUTF8); }

std::vector<std::string> Utf8(const std::vector<wxString>& texts) {
  std::vector<std::string> result;
  for (const wxString& text : texts) result.push_back(Utf8(text));
  return result;
}

std::vector<std::string> Utf8(const std::deque<wxString>& texts) {
  return Utf8(std::vector<wxString>(texts.begin(), texts.end()));
}

}  // namespace Tests
