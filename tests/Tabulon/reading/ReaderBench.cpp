#include "tests/Tabulon/reading/ReaderBench.h"

#include <wx/filefn.h>

#include <cstdio>
#include <cstdlib>

namespace ReaderBench {

namespace {

std::unique_ptr<Reader> Make(const std::string& bytes, MU_DATAFILE_INPUTFILE_TYPE type,
                             RecordingHandler* handler) {
  return ReaderOf(BytesOnDisk(bytes), type, handler);
}

}  // namespace

BytesOnDisk::BytesOnDisk(const std::string& bytes, const wxString& name)
    : m_path(wxGetCwd() + wxT("/") + name) {
  std::FILE* file = std::fopen(m_path.fn_str(), "wb");
  if (!file || std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size() ||
      std::fclose(file) != 0) {
    std::abort();
  }
}

BytesOnDisk::~BytesOnDisk() { std::remove(m_path.fn_str()); }

std::unique_ptr<Reader> ReaderOf(const BytesOnDisk& file, MU_DATAFILE_INPUTFILE_TYPE type,
                                 RecordingHandler* handler) {
  wxFile open;
  if (type == MU_INPUTFILE_IN_MEMORY && !open.Open(file.Path())) std::abort();
  return std::unique_ptr<Reader>(MUDataFileInputReaderFactory::GetExperimentDataFileInputReader(
      file.Name(), type, handler, open.IsOpened() ? &open : nullptr));
}

std::unique_ptr<Reader> Stream(const std::string& bytes, RecordingHandler* handler) {
  return Make(bytes, MU_INPUTFILE_TXT, handler);
}

std::unique_ptr<Reader> StreamWithoutHeader(const std::string& bytes, RecordingHandler* handler) {
  return Make(bytes, MU_INPUTFILE_TXT_HEADERLESS, handler);
}

std::unique_ptr<Reader> InMemory(const std::string& bytes, RecordingHandler* handler) {
  return Make(bytes, MU_INPUTFILE_IN_MEMORY, handler);
}

std::vector<std::unique_ptr<Row>> AllRows(Reader& reader) {
  std::vector<std::unique_ptr<Row>> rows;
  reader.GoToDataRow(0);
  for (std::uint32_t i = 0; i < reader.GetDataRowCount(); ++i) {
    rows.emplace_back(reader.CreateAndReturnCurrentRowObject(true));
  }
  return rows;
}

void ColumnsDeleter::operator()(std::deque<MUColumnNamePlusProperties*>* columns) const {
  for (MUColumnNamePlusProperties* column : *columns) delete column;
  delete columns;
}

OwnedColumns TakeColumns(Reader& reader) {
  return OwnedColumns(reader.CreateAndReturnPositionallyOrderedColumnObjects());
}

std::vector<wxString> NamesOf(const std::deque<MUColumnNamePlusProperties*>& columns) {
  std::vector<wxString> names;
  for (const MUColumnNamePlusProperties* column : columns) names.push_back(column->m_columnName);
  return names;
}

std::vector<wxString> ColumnNamesAfterRows(Reader& reader) {
  AllRows(reader);
  return NamesOf(*TakeColumns(reader));
}

std::string Header(const std::string& first, const std::string& second, const std::string& eol) {
  return "Participant 7" + eol + "Title" + eol + "Monday, 10:15" + eol + eol + first + eol +
         second + eol;
}

}  // namespace ReaderBench
