#include "tests/support/DataFile.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "plugin/DataHookOutputTestingPluginImpl.h"
#include "plugin/Interface_SpecificIndividualTestVerifier.h"
#include "tests/BuildPaths.h"
#include "tests/support/Files.h"
#include "tests/support/RecordingPrinter.h"

namespace Tests {

namespace {

const char* const EXPANSION = "Expansion Time(ms): ";
const char* const DURATION = "Cumulative\nTime";

[[noreturn]] void Stop(const std::string& what) { throw std::runtime_error(what); }

std::vector<std::string> Split(const std::string& text, char delimiter) {
  std::vector<std::string> pieces(1);
  for (const char c : text) {
    if (c == delimiter) {
      pieces.emplace_back();
    } else {
      pieces.back() += c;
    }
  }
  return pieces;
}

std::string Join(const std::vector<std::string>& pieces, char delimiter) {
  std::string text;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i > 0) text += delimiter;
    text += pieces[i];
  }
  return text;
}

std::vector<std::string> LinesOfFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) Stop("cannot read " + path);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::vector<Ombrelia::StimAreaData> AreasOfFile(const std::string& path) {
  std::vector<Ombrelia::StimAreaData> areas;
  if (!std::filesystem::exists(path)) return areas;
  const std::vector<std::string> lines = LinesOfFile(path);
  for (std::size_t i = 1; i < lines.size(); ++i) {
    const std::vector<std::string> cells = Split(lines[i], '\t');
    if (cells.size() != 6) Stop("not six cells in a line of " + path);
    areas.push_back({std::stoi(cells[0]), std::stoi(cells[1]), std::stoi(cells[2]),
                     std::stoi(cells[3]), wxString::FromUTF8(cells[5].c_str()),
                     std::stoi(cells[4])});
  }
  return areas;
}

void VerifyBytesOn(Ombrelia::FakeJUnitPrinter& printer, const std::string& experiment,
                   const std::string& bytes, const std::vector<Ombrelia::StimAreaData>& areas,
                   const std::string& machine) {
  const ScratchFolder folder;
  const std::string path = folder / (experiment + " 1.txt");
  std::ofstream(path, std::ios::binary) << bytes;
  const wxString file = wxString::FromUTF8(path.c_str());
  auto& registry = Ombrelia::DataHookOutputTestingPlugin::PrivateImpl::m_static_verifiers();
  const auto found = registry.find(Ombrelia::LookupKeyOfDatafile(file));
  if (found == registry.end()) Stop("no verifier for " + experiment);
  const HostNameIs here(machine);
  found->second.verifier->VerifyDatafile(file, areas, &printer);
}

}  // namespace

std::string Fail(const std::string& name, const std::string& subject, const std::string& experiment,
                 int line, const std::string& message) {
  return "FAIL " + name + " | " + subject + " | Whichever/File/Focuses/On/Verifying/" + experiment +
         ":" + std::to_string(line) + " | " + message;
}

Lines FailuresOf(const Lines& lines) {
  Lines failures;
  for (const std::string& line : lines) {
    if (line.rfind("FAIL ", 0) == 0) failures.push_back(line);
  }
  return failures;
}

DataFile DataFile::Sample(const std::string& experiment, int run) {
  const char* const folder = std::getenv("OMBRELIA_SAMPLES");
  const std::string stem =
      (folder ? std::string(folder) : std::string(OMBRELIA_SOURCE_DIR) + "/samples/datafiles") +
      "/" + experiment + " " + std::to_string(run);
  const std::vector<std::string> lines = LinesOfFile(stem + ".txt");
  if (lines.size() < 6) Stop("the sample of " + experiment + " has no heading rows");
  DataFile file;
  file.m_experiment = experiment;
  file.m_header.assign(lines.begin(), lines.begin() + 4);
  std::vector<std::string> upper = Split(lines[4], '\t');
  std::vector<std::string> lower = Split(lines[5], '\t');
  if (upper.size() < lower.size()) Stop("the sample of " + experiment + " has a ragged heading");
  lower.resize(upper.size());
  for (std::size_t i = 0; i < upper.size(); ++i) {
    file.m_columns.push_back(lower[i].empty() ? upper[i] : upper[i] + "\n" + lower[i]);
  }
  for (std::size_t i = 6; i < lines.size(); ++i) {
    std::vector<std::string> cells = Split(lines[i], '\t');
    if (cells.size() > file.m_columns.size()) Stop("a row of " + experiment + " is too long");
    cells.resize(file.m_columns.size());
    file.m_rows.push_back(cells);
  }
  file.m_areas = AreasOfFile(stem + ".stimareas.tsv");
  return file;
}

DataFile DataFile::Of(const std::string& experiment, const std::vector<std::string>& columns,
                      const std::vector<std::vector<std::string>>& rows) {
  DataFile file;
  file.m_experiment = experiment;
  file.m_header = {"A participant", "A title", "A date", ""};
  file.m_columns = columns;
  file.m_rows = rows;
  return file;
}

std::size_t DataFile::ColumnIndex(const std::string& column) const {
  for (std::size_t i = 0; i < m_columns.size(); ++i) {
    if (m_columns[i] == column) return i;
  }
  Stop("no column " + column + " in the file of " + m_experiment);
}

std::string DataFile::Cell(std::size_t row, const std::string& column) const {
  return m_rows.at(row).at(ColumnIndex(column));
}

std::vector<std::string> DataFile::Column(const std::string& column) const {
  std::vector<std::string> cells;
  for (std::size_t row = 0; row < m_rows.size(); ++row) cells.push_back(Cell(row, column));
  return cells;
}

DataFile& DataFile::Set(std::size_t row, const std::string& column, const std::string& text) {
  m_rows.at(row).at(ColumnIndex(column)) = text;
  return *this;
}

DataFile& DataFile::SetColumn(const std::string& column, const std::vector<std::string>& cells) {
  if (cells.size() != m_rows.size()) Stop("not one cell for each row of " + m_experiment);
  for (std::size_t row = 0; row < cells.size(); ++row) Set(row, column, cells[row]);
  return *this;
}

DataFile& DataFile::RemoveRow(std::size_t row) {
  m_rows.erase(m_rows.begin() + static_cast<long>(row));
  return *this;
}

DataFile& DataFile::RepeatLastRow() { return RepeatRow(m_rows.size() - 1); }

DataFile& DataFile::RepeatRow(std::size_t row) {
  const std::vector<std::string> copy = m_rows.at(row);
  m_rows.insert(m_rows.begin() + static_cast<long>(row), copy);
  return *this;
}

DataFile& DataFile::KeepRows(std::size_t count) {
  m_rows.resize(count);
  return *this;
}

DataFile& DataFile::SwapRows(std::size_t a, std::size_t b) {
  std::swap(m_rows.at(a), m_rows.at(b));
  return *this;
}

DataFile& DataFile::RemoveColumn(const std::string& column) {
  const long index = static_cast<long>(ColumnIndex(column));
  m_columns.erase(m_columns.begin() + index);
  for (auto& row : m_rows) row.erase(row.begin() + index);
  return *this;
}

DataFile& DataFile::RenameColumn(const std::string& column, const std::string& name) {
  m_columns[ColumnIndex(column)] = name;
  return *this;
}

DataFile& DataFile::MoveColumnToFront(const std::string& column) {
  const long index = static_cast<long>(ColumnIndex(column));
  std::rotate(m_columns.begin(), m_columns.begin() + index, m_columns.begin() + index + 1);
  for (auto& row : m_rows) std::rotate(row.begin(), row.begin() + index, row.begin() + index + 1);
  return *this;
}

DataFile& DataFile::SetDuration(const std::string& text) {
  return Set(m_rows.size() - 1, DURATION, text);
}

DataFile& DataFile::SetExpansion(const std::string& text) {
  for (std::string& column : m_columns) {
    if (column.rfind(EXPANSION, 0) == 0) {
      column = EXPANSION + text;
      return *this;
    }
  }
  Stop("no expansion heading in the file of " + m_experiment);
}

std::string DataFile::Text() const {
  std::vector<std::string> upper;
  std::vector<std::string> lower;
  for (const std::string& column : m_columns) {
    const std::size_t feed = column.find('\n');
    upper.push_back(column.substr(0, feed));
    lower.push_back(feed == std::string::npos ? "" : column.substr(feed + 1));
  }
  std::string text =
      Join(m_header, '\n') + "\n" + Join(upper, '\t') + "\n" + Join(lower, '\t') + "\n";
  for (const auto& row : m_rows) text += Join(row, '\t') + "\n";
  return text;
}

Lines DataFile::Verify(const std::string& machine) const {
  RecordingPrinter printer;
  VerifyOn(printer, machine);
  return printer.m_lines;
}

void DataFile::VerifyOn(Ombrelia::FakeJUnitPrinter& printer, const std::string& machine) const {
  VerifyBytesOn(printer, m_experiment, Text(), m_areas, machine);
}

Lines DataFile::Failures(const std::string& machine) const { return FailuresOf(Verify(machine)); }

Lines VerifyBytes(const std::string& experiment, const std::string& bytes,
                  const std::vector<Ombrelia::StimAreaData>& areas, const std::string& machine) {
  RecordingPrinter printer;
  VerifyBytesOn(printer, experiment, bytes, areas, machine);
  return printer.m_lines;
}

}  // namespace Tests
