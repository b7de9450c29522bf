#include "benchmarks/ManyRows.h"

#include <chrono>

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "benchmarks/DataFileMaker.h"
#include "benchmarks/ScratchFolder.h"

namespace Bench {
namespace {

class Inputs {
 public:
  Inputs() : m_files(WriteDataFiles(m_folder.Path(), MANY_FILES, MANY_FILES_SIZE)) {}
  const Files& Paths() const { return m_files; }
  const std::filesystem::path& Folder() const { return m_folder.Path(); }

 private:
  ScratchFolder m_folder;
  Files m_files;
};

const Inputs& ManyFiles() {
  static const Inputs inputs;
  return inputs;
}

DuckDb& Peer() {
  static DuckDb database;
  static const bool loaded = (database.Load(ManyFiles().Folder()), true);
  (void)loaded;
  return database;
}

void TimeOnce(benchmark::State& state, const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  state.SetIterationTime(
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
}

}  // namespace

void RegisterOnFreshTable(const std::string& name, const std::function<void(Table&)>& work,
                          const std::function<void(Table&)>& prepare, const Files& files) {
  benchmark::RegisterBenchmark(name.c_str(),
                               [=](benchmark::State& state) {
                                 for (auto round : state) {
                                   const auto table =
                                       LoadBatch(files.empty() ? ManyFiles().Paths() : files);
                                   if (prepare) prepare(*table);
                                   TimeOnce(state, [&] { work(*table); });
                                 }
                               })
      ->UseManualTime()
      ->Iterations(1)
      ->Unit(benchmark::kMillisecond);
}

void RegisterOnDuckDb(const std::string& name, const std::function<void(DuckDb&)>& work,
                      const std::string& preparingQuery) {
  if (DuckDb::Library() == nullptr) return;
  benchmark::RegisterBenchmark(name.c_str(),
                               [=](benchmark::State& state) {
                                 DuckDb& database = Peer();
                                 if (!preparingQuery.empty()) database.Run(preparingQuery);
                                 for (auto round : state) TimeOnce(state, [&] { work(database); });
                               })
      ->UseManualTime()
      ->Iterations(1)
      ->Unit(benchmark::kMillisecond);
}

}  // namespace Bench
