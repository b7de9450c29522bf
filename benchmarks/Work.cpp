// bench-work WORK ARGUMENT...: does one work in a fresh process and prints what it took, as lines of a
// name and a number. Started by the benchmark programs, and under callgrind by scripts/bench. The counted works take
// the same instructions in every run: nothing in them depends on addresses, on time or on the number of cores.
#include <wx/init.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "benchmarks/DataFileMaker.h"
#include "benchmarks/ProcessMemory.h"
#include "benchmarks/ReportWork.h"
#include "benchmarks/ScratchFolder.h"
#include "benchmarks/TableWork.h"
#include "benchmarks/peers/DuckDb.h"

// Callgrind counts the instructions below this function and no others.
extern "C" __attribute__((noinline, visibility("default"))) void MeasuredWork(
    const std::function<void()>& work) {
  work();
  asm volatile("");  // keeps the call from becoming a jump
}

namespace {

using Arguments = std::vector<std::string>;
using namespace Bench;

void Print(const char* name, double number) { std::printf("%s %.9g\n", name, number); }

void PrintSeconds(const char* name, const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  MeasuredWork(work);
  Print(name, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
}

// The first count files of the folder, in the order of their names; all if there are no more.
Files FilesIn(const Arguments& arguments) {
  Files files;
  for (const auto& entry : std::filesystem::directory_iterator(arguments.at(0))) {
    files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  if (arguments.size() > 1)
    files.resize(std::min<std::size_t>(files.size(), std::stoul(arguments[1])));
  return files;
}

// What a process does only once, such as setting up the conversion of texts, shall not count.
void LoadSmallFile() {
  const ScratchFolder folder;
  WriteDataFile(folder.Path() / "small.txt", MakeDataFile(2000, 1));
  OpenAlone({folder.Path() / "small.txt"});
  LoadOne(folder.Path() / "small.txt")->SetSortColumn(FEW_VALUES, false);
}

void OpenFiles(const Arguments& arguments) {
  const Files files = FilesIn(arguments);
  PrintSeconds("seconds", [&] { OpenAlone(files); });
}

void LoadFilesInBatch(const Arguments& arguments) {
  const Files files = FilesIn(arguments);
  std::unique_ptr<Table> table;
  PrintSeconds("seconds", [&] { table = LoadBatch(files); });
}

void LoadFilesNotified(const Arguments& arguments) {
  const Files files = FilesIn(arguments);
  std::unique_ptr<Table> table;
  PrintSeconds("seconds", [&] { table = LoadNotified(files); });
}

void LoadFilesNotifiedIntoViewer(const Arguments& arguments) {
  const Files files = FilesIn(arguments);
  std::unique_ptr<Table> table;
  PrintSeconds("seconds", [&] { table = LoadNotifiedIntoViewer(files); });
}

void LoadFilesIntoDuckDb(const Arguments& arguments) {
  DuckDb database;
  PrintSeconds("seconds", [&] { database.Load(arguments.at(0)); });
}

// What tabulon-cli is asked, as DuckDB answers it best: it reads only the columns that it needs.
void AnswerWithDuckDb(const Arguments& arguments) {
  const std::map<std::string, std::string> queries = {
      {"sort", "SELECT * FROM t ORDER BY Stimulus"},
      {"where", "SELECT * FROM t WHERE Condition = 'condition_07'"},
      {"distinct", "SELECT Condition, count(*) FROM t GROUP BY Condition"},
      {"mean", "SELECT Condition, avg(try_cast(\"Time\" AS DOUBLE)) FROM t GROUP BY Condition"},
  };
  std::string query = queries.at(arguments.at(1));
  query.replace(query.find(" t "), 3, " " + DuckDb::Source(arguments.at(0)) + " ");
  DuckDb().Run("COPY (" + query + ") TO '/dev/null' (DELIMITER '\t', HEADER)");
}

void MeasurePeakMemory(const Arguments& arguments, const std::function<void()>& work) {
  LoadSmallFile();
  ForgetPeak();
  const auto before = static_cast<double>(ResidentBytes());
  work();
  Print("bytes_per_byte", (static_cast<double>(PeakResidentBytes()) - before) /
                              static_cast<double>(std::filesystem::file_size(arguments.at(0))));
}

void PeakMemoryOfOpen(const Arguments& arguments) {
  MeasurePeakMemory(arguments, [&] { OpenAlone({arguments.at(0)}); });
}

void PeakMemoryOfLoad(const Arguments& arguments) {
  MeasurePeakMemory(arguments, [&] { LoadOne(arguments.at(0)); });
}

// Loading a growing number of files.
std::unique_ptr<Table> Grow(const Arguments& arguments) {
  LoadSmallFile();
  const Files files = FilesIn(arguments);
  std::unique_ptr<Table> table;
  PrintSeconds("load_seconds", [&] { table = LoadBatch(files); });
  Print("rows", table->GetNumberOfDataRows());
  return table;
}

void GrowOnly(const Arguments& arguments) { Grow(arguments); }

void GrowAndSort(const Arguments& arguments) {
  const auto table = Grow(arguments);
  PrintSeconds("sort_few_seconds", [&] { table->SetSortColumn(FEW_VALUES, false); });
  PrintSeconds("sort_many_seconds", [&] { table->SetSortColumn(MANY_VALUES, false); });
}

// The fixed works whose instructions are counted.

void CountLoad(Spelling spelling) {
  LoadSmallFile();
  const ScratchFolder folder;
  const std::filesystem::path file = folder.Path() / "large.txt";
  WriteDataFile(file, MakeDataFile(LARGEST_FILE, 1, spelling));
  MeasuredWork([&] { LoadOne(file); });
}

// The files are small, so that the notifications weigh as much as the loads.
void CountNotifiedLoads() {
  LoadSmallFile();
  const ScratchFolder folder;
  const Files files = WriteDataFiles(folder.Path(), 100, 8192);
  MeasuredWork([&] { LoadNotified(files); });
}

// So many and so small that what a load does for each file before it would outweigh the rows.
void CountBatchOfSmallFiles() {
  LoadSmallFile();
  const ScratchFolder folder;
  const Files files = WriteDataFiles(folder.Path(), 1000, 2000);
  MeasuredWork([&] { LoadBatch(files); });
}

// On a table of some forty thousand rows that was asked nothing before, except what prepare asks.
void CountOnTable(const std::function<void(Table&)>& work,
                  const std::function<void(Table&)>& prepare = nullptr) {
  LoadSmallFile();
  const ScratchFolder folder;
  const auto table = LoadBatch(WriteDataFiles(folder.Path(), 20, MANY_FILES_SIZE));
  if (prepare) prepare(*table);
  MeasuredWork([&] { work(*table); });
}

void CountReport() {
  const ReportFolder folder;
  MeasuredWork([] { WriteReport(10000); });
}

const std::map<std::string, std::function<void()>>& CountedWorks() {
  static const std::map<std::string, std::function<void()>> works = {
      {"load-ascii", [] { CountLoad(Spelling::Ascii); }},
      {"load-utf8", [] { CountLoad(Spelling::Utf8Accents); }},
      {"load-latin1", [] { CountLoad(Spelling::Latin1Accents); }},
      {"load-utf16", [] { CountLoad(Spelling::Utf16); }},
      {"load-control", [] { CountLoad(Spelling::ControlCharacters); }},
      {"load-notified", CountNotifiedLoads},
      {"load-small-files", CountBatchOfSmallFiles},
      {"sort-few", [] { CountOnTable([](Table& t) { t.SetSortColumn(FEW_VALUES, false); }); }},
      {"sort-many", [] { CountOnTable([](Table& t) { t.SetSortColumn(MANY_VALUES, false); }); }},
      {"distinct", [] { CountOnTable([](Table& t) { AskDistinct(t, FEW_VALUES); }); }},
      {"where", [] { CountOnTable(AskWhere); }},
      {"read-column",
       [] {
         CountOnTable([](Table& t) { ReadColumn(t, MANY_VALUES); },
                      [](Table& t) { t.SetSortColumn(FEW_VALUES, false); });
       }},
      {"report", CountReport},
  };
  return works;
}

void Count(const Arguments& arguments) { CountedWorks().at(arguments.at(0))(); }

void ListCountedWorks(const Arguments&) {
  for (const auto& work : CountedWorks()) std::printf("%s\n", work.first.c_str());
}

int Run(int argc, char** argv) {
  const std::map<std::string, void (*)(const Arguments&)> works = {
      {"open-files", OpenFiles},
      {"load-batch", LoadFilesInBatch},
      {"load-notified", LoadFilesNotified},
      {"load-notified-viewer", LoadFilesNotifiedIntoViewer},
      {"load-duckdb", LoadFilesIntoDuckDb},
      {"answer-duckdb", AnswerWithDuckDb},
      {"peak-memory-open", PeakMemoryOfOpen},
      {"peak-memory-load", PeakMemoryOfLoad},
      {"grow", GrowOnly},
      {"grow-and-sort", GrowAndSort},
      {"count", Count},
      {"list-counted", ListCountedWorks},
  };
  const auto work = argc > 1 ? works.find(argv[1]) : works.end();
  if (work == works.end()) {
    std::cerr << "bench-work WORK ARGUMENT...; the works are";
    for (const auto& known : works) std::cerr << " " << known.first;
    std::cerr << std::endl;
    return 2;
  }
  work->second(Arguments(argv + 2, argv + argc));
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const wxInitializer wx;
  return wx.IsOk() ? Run(argc, argv) : 1;
}
