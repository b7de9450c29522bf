#include "benchmarks/TableWork.h"

#include <benchmark/benchmark.h>
#include <wx/textfile.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <deque>
#include <iostream>

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "benchmarks/DataFileMaker.h"

namespace Bench {
namespace {

void Require(bool condition, const std::filesystem::path& file) {
  if (condition) return;
  std::cerr << file.string() << ": was not loaded" << std::endl;
  std::exit(1);
}

// Hooks the steps as a viewer does that counts them; the table cannot know what else they do.
class ViewerTable : public MUExperimentTextReaderMultiFile {
 public:
  using MUExperimentTextReaderMultiFile::MUExperimentTextReaderMultiFile;

  void ExtractAll(MUInterfaceExperimentDataFileInputReader* reader) override {
    ++m_steps;
    MUExperimentTextReaderMultiFile::ExtractAll(reader);
  }
  void UnsuppressColumnsBasedOnMultipleFileNames(const std::deque<wxString>& fullNames) override {
    ++m_steps;
    MUExperimentTextReaderMultiFile::UnsuppressColumnsBasedOnMultipleFileNames(fullNames);
  }
  void ResetKeysIntoCurrentRowsAll() override {
    ++m_steps;
    MUExperimentTextReaderMultiFile::ResetKeysIntoCurrentRowsAll();
  }
  void EraseAllCachedStatefulOptimizedStoredData() override {
    ++m_steps;
    MUExperimentTextReaderMultiFile::EraseAllCachedStatefulOptimizedStoredData();
  }
  void IdleTimeProcessAllNotifications() override {
    ++m_steps;
    MUExperimentTextReaderMultiFile::IdleTimeProcessAllNotifications();
  }

 private:
  std::size_t m_steps = 0;
};

std::unique_ptr<Table> LoadNotified(std::unique_ptr<Table> table, const Files& files) {
  for (const std::filesystem::path& file : files) {
    Require(table->AddExperimentOcurrence_SimulateIdleLoop_UsedWhenNoTabulonWindowIsShown(
                wxFileName(TextOf(file)), false, nullptr),
            file);
  }
  return table;
}

}  // namespace

wxString TextOf(const std::filesystem::path& path) { return wxString::FromUTF8(path.c_str()); }

void OpenAlone(const Files& files) {
  for (const std::filesystem::path& path : files) {
    wxTextFile file;
    Require(file.Open(TextOf(path), wxConvAuto()), path);
  }
}

std::unique_ptr<Table> LoadOne(const std::filesystem::path& file, wxFile* openFile) {
  auto table = std::make_unique<Table>(nullptr);
  Require(table->AddExperimentOcurrence_SimulateIdleLoop_UsedWhenNoTabulonWindowIsShown(
              wxFileName(TextOf(file)), false, openFile),
          file);
  return table;
}

std::unique_ptr<Table> LoadBatch(const Files& files) {
  auto table = std::make_unique<Table>(nullptr);
  std::deque<DichotomousFileRequest> requests;
  for (const std::filesystem::path& file : files) {
    DichotomousFileRequest request;
    request.m_fullFileName = TextOf(file);
    request.m_wanted = true;
    requests.push_back(request);
  }
  table->SimultaneousFileRequestsAddAndRemove(requests);
  table->OnIdle();
  Require(table->GetNamesOfActiveFiles().size() == files.size(), files.front());
  return table;
}

std::unique_ptr<Table> LoadNotified(const Files& files) {
  return LoadNotified(std::make_unique<Table>(nullptr), files);
}

std::unique_ptr<Table> LoadNotifiedIntoViewer(const Files& files) {
  return LoadNotified(std::make_unique<ViewerTable>(nullptr), files);
}

void AskDistinct(Table& table, const wxString& column) {
  std::vector<wxString> values;
  table.SelectDistinctPerColumn(column, values, Table::ALL_ROWS, false);
  benchmark::DoNotOptimize(values.data());
}

void AskWhere(Table& table) {
  benchmark::DoNotOptimize(table.GetAllFromCol_X_WhereField_Y_Matches_Z(MANY_VALUES, FEW_VALUES,
                                                                        ONE_OF_FEW_VALUES, true));
}

std::size_t ReadColumn(const Table& table, const wxString& column) {
  std::size_t length = 0;
  std::array<MUCellText, 1024> texts;
  const auto most = static_cast<int>(texts.size());
  const int position = table.GetColumnPositionNumberFromText(column);
  const int rows = table.GetNumberOfDataRows();
  for (int row = 0; row < rows; row += most) {
    const int count = std::min(most, rows - row);
    table.GetDataColumnTexts(position, row, count, texts.data());
    for (int i = 0; i < count; ++i) length += texts[static_cast<std::size_t>(i)].Length();
  }
  return length;
}

std::size_t ReadColumnAsTexts(const Table& table, const wxString& column) {
  std::size_t length = 0;
  const int position = table.GetColumnPositionNumberFromText(column);
  const int rows = table.GetNumberOfDataRows();
  for (int row = 0; row < rows; ++row) length += table.GetDataCellValue(row, position).length();
  return length;
}

}  // namespace Bench
