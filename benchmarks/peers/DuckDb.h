// DuckDB as a peer: an in-memory database on two threads, reached through its C functions at run time.
#ifndef OMBRELIA_BENCHMARKS_PEERS_DUCKDB_H
#define OMBRELIA_BENCHMARKS_PEERS_DUCKDB_H

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>

namespace Bench {

// Neither the build nor the tests know of DuckDB: scripts/bench installs its shared library and names it
// in the environment. A query that fails ends the program with DuckDB's message.
class DuckDb {
 public:
  // The library's path from OMBRELIA_DUCKDB_LIBRARY; null if there is none.
  static const char* Library();

  // Loads the library, which stays loaded, and opens an empty database.
  DuckDb();
  ~DuckDb();
  DuckDb(const DuckDb&) = delete;
  DuckDb& operator=(const DuckDb&) = delete;

  // Reads the data files of the folder into the table t: every cell a text, the columns of the files
  // united by name. Names are those of the second heading row.
  void Load(const std::filesystem::path& folder);
  // The same rows as a source for a query, read while the query runs.
  static std::string Source(const std::filesystem::path& folder);
  // Runs the query to its whole result, which is thrown away; returns its number of rows.
  std::size_t Run(const std::string& query);
  // Sum of the lengths of the texts in the first column of the result.
  std::size_t SumOfLengths(const std::string& query);

 private:
  struct Functions;
  std::unique_ptr<Functions> m_functions;
  void* m_database = nullptr;
  void* m_connection = nullptr;
};

}  // namespace Bench

#endif
