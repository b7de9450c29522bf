#include "tests/Tabulon/reading/NaiveReader.h"

#include <wx/convauto.h>
#include <wx/log.h>
#include <wx/textfile.h>
#include <wx/tokenzr.h>

#include <cmath>
#include <fstream>
#include <iterator>
#include <list>

#include "Tabulon/src/text/MUUtilitarianFunctions.h"

namespace NaiveReader {

namespace {

const wchar_t* const FIXED_COLUMNS[] = {L"Participant\nGroup",
                                        L"Participant\nName",
                                        L"Block\nName",
                                        L"Trial\nName",
                                        L"Event\nName",
                                        L"Participant\nResponse",
                                        L"Key",
                                        L"Correct\nResponse",
                                        L"Error\nCode",
                                        L"Reaction\nTime",
                                        L"Reaction Time\n(Trial Variable)",
                                        L"Font Color\n(Trial Variable)",
                                        L"ISI Durations\n(Trial Variable)",
                                        L"Screen Location\n(Trial Variable)",
                                        L"Screen Location II\n(Trial Variable)"};

wxString Trimmed(wxString text) { return text.Trim(true).Trim(false); }

std::vector<wxString> CellsOf(const wxString& line) {
  std::vector<wxString> cells;
  wxStringTokenizer tokens(line, wxT("\t"), wxTOKEN_RET_EMPTY);
  while (tokens.HasMoreTokens()) cells.push_back(tokens.GetNextToken());
  return cells;
}

double HashOf(const wxString& piece) {
  double sum = 0.0;
  for (std::size_t i = 0; i < 6; ++i) {
    const unsigned long character = i < piece.length() ? piece[i].GetValue() & 0xFF : 32;
    sum += static_cast<double>(character) * std::pow(256.0, 7.0 - static_cast<double>(i));
  }
  return sum;
}

wxString UniqueAmong(const wxString& name, const std::vector<wxString>& names) {
  return MUUtilitarianFunctions::GetUniqueNameToInsertForGivenListContents(
      name, std::list<wxString>(names.begin(), names.end()));
}

// Columns from the heading lines; trimRight is what the in-memory reader does to each cell.
std::vector<wxString> ColumnsOf(const wxString& first, const wxString& second, bool trimRight) {
  std::vector<wxString> names;
  for (wxString cell : CellsOf(first)) names.push_back(trimRight ? cell.Trim(true) : cell);
  std::size_t position = 0;
  for (wxString cell : CellsOf(second)) {
    if (trimRight) cell.Trim(true);
    if (position < names.size())
      names[position] += wxT("\n") + cell;
    else
      names.push_back(wxT("\t\n") + cell);
    ++position;
  }
  std::vector<wxString> finished;
  for (const wxString& name : names) finished.push_back(UniqueAmong(Trimmed(name), finished));
  return finished;
}

void AddRow(const wxString& line, const NaiveRow& start, NaiveFile* file) {
  NaiveRow row = start;
  std::size_t position = 0;
  wxString key;
  for (wxString text : CellsOf(line)) {
    TranslateInPasses(text);
    if (position >= file->columns.size()) {
      file->columns.push_back(UniqueAmong(wxT("[Missing\nCol Name]"), file->columns));
    }
    key = file->columns[position++];
    row.m_cells.insert({key, text});
    row.m_hash01.insert({key, HashOf(text.Mid(0, 6))});
    row.m_hash02.insert({key, HashOf(text.Mid(6, 6))});
    row.m_hash03.insert({key, HashOf(text.Mid(12, 6))});
    row.m_textFitsInHash.insert({key, text.length() < 19});
  }
  for (; position < file->columns.size(); ++position) {
    row.m_hash01.insert({key, 0});
    row.m_hash02.insert({key, 0});
    row.m_hash03.insert({key, 0});
    row.m_textFitsInHash.insert({key, true});
    row.m_cells.insert({file->columns[position], wxString()});
  }
  const auto reaction = row.m_cells.find(wxT("Reaction\nTime"));
  double number = 0;
  if (reaction != row.m_cells.end() && reaction->second.ToDouble(&number)) {
    row.m_reactionTime = number;
  }
  file->rows.push_back(row);
}

}  // namespace

void TranslateInPasses(wxString& text) {
  for (unsigned int c = 64; c <= 95; ++c) {
    text.Replace(wxString(wxUniChar(27)) + wxString(wxUniChar(c)),
                 wxString::Format(wxT("0x1B 0x%.2x"), c));
  }
  for (unsigned int c = 1; c <= 31; ++c) {
    text.Replace(wxString(wxUniChar(c)), wxString(wxT("^")) + wxString(wxUniChar(c + 64)));
  }
  text.Replace(wxString(wxUniChar(127)), wxT("^?"));
  for (unsigned int c = 128; c <= 159; ++c) {
    text.Replace(wxString(wxUniChar(c)), wxString::Format(wxT("0x%.2x"), c));
  }
}

NaiveFile ReadByName(const wxString& path, bool hasHeader) {
  NaiveFile file;
  const wxLogNull silence;
  wxTextFile text;
  if (!text.Open(path, wxConvAuto())) return file;
  std::size_t firstRow = 0;
  wxString participant;
  if (hasHeader) {
    if (text.GetLineCount() < 7) return file;
    participant = Trimmed(text[0]);
    file.title = Trimmed(text[1]);
    file.date = text[2];
    file.columns = ColumnsOf(text[4], text[5], false);
    if (file.columns.empty()) return file;
    firstRow = 6;
  } else {
    file.columns.assign(std::begin(FIXED_COLUMNS), std::end(FIXED_COLUMNS));
  }
  file.good = true;
  NaiveRow start;
  start.m_cells = {{wxT("PNPNPN_PNPNPN_01zx"), participant},
                   {wxT("FFFFF1"), path},
                   {wxT("SFSFSF1"), path.AfterLast(wxT('/'))},
                   {wxT("EXPEXPEXPEXPEXP"), file.title},
                   {wxT("EXPDT_EXPDT_EXPDT_"), file.date}};
  for (std::size_t i = firstRow; i < text.GetLineCount(); ++i) AddRow(text[i], start, &file);
  return file;
}

NaiveFile ReadOpenFile(const wxString& path) {
  NaiveFile file;
  std::ifstream stream(path.fn_str(), std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  const wxString text(bytes.data(), wxConvAuto(), bytes.size());
  const bool isDosFile = text.Contains(wxT("\r\n"));
  std::vector<wxString> lines;
  wxStringTokenizer tokens(text, isDosFile ? wxT("\r\n") : wxT("\n"), wxTOKEN_RET_DELIMS);
  while (tokens.HasMoreTokens()) {
    const wxString line = tokens.GetNextToken();
    if (!isDosFile || tokens.GetLastDelimiter() == wxT('\r')) lines.push_back(line);
  }
  if (lines.size() < 7) return file;
  file.title = Trimmed(lines[1]);
  file.date = lines[2];
  file.columns = ColumnsOf(lines[4], lines[5], true);
  file.good = !file.columns.empty();
  if (!file.good) return file;
  for (std::size_t i = 6; i < lines.size(); ++i) AddRow(lines[i], NaiveRow(), &file);
  return file;
}

}  // namespace NaiveReader
