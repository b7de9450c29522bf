// What the tests of the readers share: files written byte by byte, a handler that records, and readers
// and rows that are freed.
#ifndef OMBRELIA_TESTS_TABULON_READING_READERBENCH_H
#define OMBRELIA_TESTS_TABULON_READING_READERBENCH_H

#include <wx/file.h>
#include <wx/filename.h>
#include <wx/string.h>

#include <deque>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "Tabulon/src/reading/MUDataFileInputReaderFactory.h"
#include "Tabulon/src/reading/MUInterfaceDataFileInputErrorHandler.h"
#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"

namespace ReaderBench {

using Reader = MUInterfaceExperimentDataFileInputReader;
using Row = MUSingleRowDataPlusRowProperties;
using Hidden = Reader;

// A file in the working directory, removed by the destructor.
class BytesOnDisk {
 public:
  explicit BytesOnDisk(const std::string& bytes, const wxString& name = wxT("reader bench.txt"));
  ~BytesOnDisk();
  BytesOnDisk(const BytesOnDisk&) = delete;
  BytesOnDisk& operator=(const BytesOnDisk&) = delete;

  wxString Path() const { return m_path; }
  wxFileName Name() const { return wxFileName(m_path); }

 private:
  wxString m_path;  // absolute
};

class RecordingHandler : public MUInterfaceDataFileInputErrorHandler {
 public:
  void OnDataFileInputReports(std::list<Reader::DataFileInputError> reports) override {
    ++m_calls;
    m_reports.insert(m_reports.end(), reports.begin(), reports.end());
  }

  int m_calls = 0;
  std::vector<Reader::DataFileInputError> m_reports;
};

std::unique_ptr<Reader> ReaderOf(const BytesOnDisk& file, MU_DATAFILE_INPUTFILE_TYPE type,
                                 RecordingHandler* handler = nullptr);
// A reader of a file that stands on disk while it is made.
std::unique_ptr<Reader> Stream(const std::string& bytes, RecordingHandler* handler = nullptr);
std::unique_ptr<Reader> StreamWithoutHeader(const std::string& bytes,
                                            RecordingHandler* handler = nullptr);
std::unique_ptr<Reader> InMemory(const std::string& bytes, RecordingHandler* handler = nullptr);

std::vector<std::unique_ptr<Row>> AllRows(Reader& reader);

struct ColumnsDeleter {
  void operator()(std::deque<MUColumnNamePlusProperties*>* columns) const;
};
using OwnedColumns = std::unique_ptr<std::deque<MUColumnNamePlusProperties*>, ColumnsDeleter>;
OwnedColumns TakeColumns(Reader& reader);
std::vector<wxString> NamesOf(const std::deque<MUColumnNamePlusProperties*>& columns);
// Reads all rows first, as the reader demands.
std::vector<wxString> ColumnNamesAfterRows(Reader& reader);

// Six header lines around these two heading rows, each line ending in eol.
std::string Header(const std::string& first, const std::string& second,
                   const std::string& eol = "\n");

}  // namespace ReaderBench

#endif
