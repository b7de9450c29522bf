#include "benchmarks/peers/DuckDb.h"

#include <dlfcn.h>

#include <cstdint>
#include <cstdlib>
#include <iostream>

namespace Bench {
namespace {

// The few records and functions of the C interface that are needed, declared by hand.
struct Result {
  std::uint64_t columnCount;
  std::uint64_t rowCount;
  std::uint64_t rowsChanged;
  void* columns;
  char* errorMessage;
  void* internalData;
};

// A text in a vector: the length, and beside it the text if it is short, else a pointer to it. Only the
// length is read here.
struct StringCell {
  std::uint32_t length;
  char restOfIt[12];
};
static_assert(sizeof(StringCell) == 16, "a text in a vector has 16 bytes");

[[noreturn]] void Fail(const std::string& what) {
  std::cerr << "DuckDB: " << what << std::endl;
  std::exit(1);
}

template <typename FUNCTION>
void Find(void* library, const char* name, FUNCTION& function) {
  function = reinterpret_cast<FUNCTION>(dlsym(library, name));
  if (function == nullptr) Fail(std::string(name) + " is missing");
}

}  // namespace

struct DuckDb::Functions {
  int (*open)(const char*, void**);
  int (*connect)(void*, void**);
  void (*disconnect)(void**);
  void (*close)(void**);
  int (*query)(void*, const char*, Result*);
  const char* (*resultError)(Result*);
  std::uint64_t (*rowCount)(Result*);
  void (*destroyResult)(Result*);
  void* (*fetchChunk)(Result);
  std::uint64_t (*chunkSize)(void*);
  void* (*chunkVector)(void*, std::uint64_t);
  void* (*vectorData)(void*);
  void (*destroyChunk)(void**);
};

const char* DuckDb::Library() { return std::getenv("OMBRELIA_DUCKDB_LIBRARY"); }

DuckDb::DuckDb() : m_functions(std::make_unique<Functions>()) {
  void* const library = Library() == nullptr ? nullptr : dlopen(Library(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) Fail(Library() == nullptr ? "no library is named" : dlerror());
  Find(library, "duckdb_open", m_functions->open);
  Find(library, "duckdb_connect", m_functions->connect);
  Find(library, "duckdb_disconnect", m_functions->disconnect);
  Find(library, "duckdb_close", m_functions->close);
  Find(library, "duckdb_query", m_functions->query);
  Find(library, "duckdb_result_error", m_functions->resultError);
  Find(library, "duckdb_row_count", m_functions->rowCount);
  Find(library, "duckdb_destroy_result", m_functions->destroyResult);
  Find(library, "duckdb_fetch_chunk", m_functions->fetchChunk);
  Find(library, "duckdb_data_chunk_get_size", m_functions->chunkSize);
  Find(library, "duckdb_data_chunk_get_vector", m_functions->chunkVector);
  Find(library, "duckdb_vector_get_data", m_functions->vectorData);
  Find(library, "duckdb_destroy_data_chunk", m_functions->destroyChunk);
  if (m_functions->open(nullptr, &m_database) != 0) Fail("no database");
  if (m_functions->connect(m_database, &m_connection) != 0) Fail("no connection");
  Run("SET threads = 2");
}

DuckDb::~DuckDb() {
  m_functions->disconnect(&m_connection);
  m_functions->close(&m_database);
}

void DuckDb::Load(const std::filesystem::path& folder) {
  Run("CREATE OR REPLACE TABLE t AS SELECT * FROM " + Source(folder));
}

std::string DuckDb::Source(const std::filesystem::path& folder) {
  // The first five lines are skipped; with everything said there is nothing left to guess.
  return "read_csv('" + (folder / "*.txt").string() +
         "', delim = '\t', quote = '', escape = '', skip = 5, header = true, all_varchar = true, "
         "union_by_name = true)";
}

std::size_t DuckDb::Run(const std::string& query) {
  Result result{};
  if (m_functions->query(m_connection, query.c_str(), &result) != 0) {
    Fail(m_functions->resultError(&result));
  }
  const std::size_t rows = m_functions->rowCount(&result);
  m_functions->destroyResult(&result);
  return rows;
}

std::size_t DuckDb::SumOfLengths(const std::string& query) {
  Result result{};
  if (m_functions->query(m_connection, query.c_str(), &result) != 0) {
    Fail(m_functions->resultError(&result));
  }
  std::size_t sum = 0;
  while (void* chunk = m_functions->fetchChunk(result)) {
    const auto* const cells =
        static_cast<const StringCell*>(m_functions->vectorData(m_functions->chunkVector(chunk, 0)));
    const std::size_t count = m_functions->chunkSize(chunk);
    for (std::size_t i = 0; i < count; ++i) sum += cells[i].length;
    m_functions->destroyChunk(&chunk);
  }
  m_functions->destroyResult(&result);
  return sum;
}

}  // namespace Bench
