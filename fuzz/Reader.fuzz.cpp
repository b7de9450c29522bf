// Both readers give what the naive readers of the tests give, for any bytes.
#include <wx/convauto.h>
#include <wx/file.h>
#include <wx/filename.h>

#include <cstdlib>
#include <deque>
#include <iostream>
#include <memory>

#include "Tabulon/src/reading/MUDataFileInputReaderFactory.h"
#include "Tabulon/src/reading/MUDecodedText.h"
#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "fuzz/ScratchFile.h"
#include "tests/Tabulon/reading/NaiveReader.h"

namespace {

void Require(bool holds, const char* what) {
  if (holds) return;
  std::cerr << "The reader and the naive one differ: " << what << std::endl;
  std::abort();
}

template <typename MAP, typename MODEL>
void RequireSameMap(const MAP& map, const MODEL& model, const char* what) {
  Require(map.size() == model.size(), what);
  for (const auto& entry : model) Require(map.ValueOrDefault(entry.first) == entry.second, what);
}

void RequireSame(MUInterfaceExperimentDataFileInputReader& reader,
                 const NaiveReader::NaiveFile& model) {
  Require(reader.ErrorStatusIsPresent() != model.good, "whether it is a data file");
  if (!model.good) return;
  Require(reader.GetExperimentTitle() == model.title, "title");
  Require(reader.GetExperimentDateTimeString() == model.date, "date");
  Require(reader.GetDataRowCount() == model.rows.size(), "number of rows");
  reader.GoToDataRow(0);
  for (const NaiveReader::NaiveRow& expected : model.rows) {
    const std::unique_ptr<MUSingleRowDataPlusRowProperties> row(
        reader.CreateAndReturnCurrentRowObject(true));
    Require(row != nullptr, "a missing row");
    Require(row->m_reactionTime == expected.m_reactionTime, "reaction time");
    RequireSameMap(row->m_cells, expected.m_cells, "cells");
    RequireSameMap(row->m_hash01, expected.m_hash01, "first sort key");
    RequireSameMap(row->m_hash02, expected.m_hash02, "second sort key");
    RequireSameMap(row->m_hash03, expected.m_hash03, "third sort key");
    RequireSameMap(row->m_textFitsInHash, expected.m_textFitsInHash, "whether a text fits");
  }
  const std::unique_ptr<std::deque<MUColumnNamePlusProperties*>> columns(
      reader.CreateAndReturnPositionallyOrderedColumnObjects());
  bool same = columns->size() == model.columns.size();
  for (std::size_t i = 0; i < columns->size(); ++i) {
    same = same && (*columns)[i]->m_columnName == model.columns[i];
    delete (*columns)[i];
  }
  Require(same, "column names");
}

// Whether the decoding is the library's, for the bytes alone, which reach more of it than those of a good data file.
void RequireSameText(const std::uint8_t* data, std::size_t size) {
  const char* const first = reinterpret_cast<const char*>(data);
  MUPoolVector<char> bytes(first, first + size);
  const wxString expected(reinterpret_cast<const char*>(data), wxConvAuto(), size);
  const MUDecodedText text = MUDecode(bytes);
  Require(text.narrow.size() + text.wide.size() == expected.length(), "length of the text");
  std::size_t i = 0;
  for (const char character : text.narrow) {
    Require(expected[i++].GetValue() == static_cast<unsigned char>(character),
            "a narrow character");
  }
  for (const wchar_t character : text.wide) {
    Require(static_cast<wchar_t>(expected[i++]) == character, "a wide character");
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  Fuzz::PrepareProcess();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  RequireSameText(data, size);
  const Fuzz::ScratchFile file("reader", data, size);
  const wxFileName name(file.Path());
  const auto read = [&](MU_DATAFILE_INPUTFILE_TYPE type, wxFile* openFile) {
    return std::unique_ptr<MUInterfaceExperimentDataFileInputReader>(
        MUDataFileInputReaderFactory::GetExperimentDataFileInputReader(name, type, nullptr,
                                                                       openFile));
  };
  RequireSame(*read(MU_INPUTFILE_TXT, nullptr), NaiveReader::ReadByName(file.Path(), true));
  RequireSame(*read(MU_INPUTFILE_TXT_HEADERLESS, nullptr),
              NaiveReader::ReadByName(file.Path(), false));
  wxFile open(file.Path());
  RequireSame(*read(MU_INPUTFILE_IN_MEMORY, &open), NaiveReader::ReadOpenFile(file.Path()));
  return 0;
}
