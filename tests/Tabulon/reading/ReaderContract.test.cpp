// The words, values and ownership that all readers share.
#include <gtest/gtest.h>

#include "Tabulon/src/reading/MUConcreteExperimentDataFileTxt.h"
#include "Tabulon/src/reading/MUConcreteInMemoryDataFile.h"
#include "tests/Tabulon/reading/ReaderBench.h"

using namespace ReaderBench;

namespace {

const std::string GOOD = Header("A\tB", "x\ty") + "1\t2\n";

TEST(StandardStrings, AreFourHeadingsAndAnEmptyTextForAnythingElse) {
  const auto text = [](int which) {
    return Reader::GetStandardizedDataFileStringValue(static_cast<Reader::STANDARD_STRING>(which));
  };
  EXPECT_EQ(wxT("Block\nName"), text(0));
  EXPECT_EQ(wxT("Trial\nName"), text(1));
  EXPECT_EQ(wxT("Error\nCode"), text(2));
  EXPECT_EQ(wxT("Reaction\nTime"), text(3));
  EXPECT_EQ(wxString(), text(-1));
  EXPECT_EQ(wxString(), text(4));
}

TEST(ReaderConstants, HaveTheirTexts) {
  EXPECT_EQ(wxT("[Missing\nCol Name]"), Reader::COL_HEAD_STRING_VALUE_WHEN_COLNAME_IS_MISSING);
  EXPECT_EQ(wxT("PNPNPN_PNPNPN_01zx"), Reader::STRING_FOR_PERSONNAME_SECRET_COL);
  EXPECT_EQ(wxT("FFFFF1"), Reader::STRING_FOR_FILENAME_SECRET_COL);
  EXPECT_EQ(wxT("SFSFSF1"), Reader::STRING_FOR_SHORTNAME_SECRET_COL);
  EXPECT_EQ(wxT("EXPEXPEXPEXPEXP"), Reader::STRING_FOR_EXPERIMENT_SECRET_COL);
  EXPECT_EQ(wxT("EXPDT_EXPDT_EXPDT_"), Reader::STRING_FOR_EXP_DATETIME_SECRET_COL);
  EXPECT_EQ(0, Reader::MU_INPUT_SUCCESS);
  EXPECT_EQ(6, Reader::MU_INPUT_BAD_FORMAT);
  EXPECT_EQ(7, Reader::MU_INPUT_FILE_TOO_LARGE);
  EXPECT_EQ(8, Reader::MU_INPUT_LIBRARY_MESSAGE);
}

TEST(PropertyFlags, HaveTheirBits) {
  EXPECT_EQ(4u, MU_ROW_FLAG_INACTIVE_RESERVED_4);
  EXPECT_EQ(8u, MU_ROW_FLAG_SUPPRESSED_BY_FILE);
  EXPECT_EQ(16u, MU_ROW_FLAG_INACTIVE_RESERVED_16);
  EXPECT_EQ(32u, MU_ROW_FLAG_HIDDEN_BY_USER);
  EXPECT_EQ(64u, MU_ROW_FLAG_RED_FLAG);
  EXPECT_EQ(1u, MU_COL_FLAG_TRIAL_VARIABLE);
  EXPECT_EQ(2u, MU_COL_FLAG_CODE_VALUE);
  EXPECT_EQ(4u, MU_COL_FLAG_RESERVED_4);
  EXPECT_EQ(8u, MU_COL_FLAG_SUPPRESSED_BY_FILE);
  EXPECT_EQ(16u, MU_COL_FLAG_RESERVED_16);
  EXPECT_EQ(32u, MU_COL_FLAG_HIDDEN_BY_USER);
  EXPECT_EQ(28u, MU_INACTIVE_MASK);
  EXPECT_EQ(60u, MU_NOT_FULLY_SHOWN_MASK);
}

TEST(FileStatus, MatchesItsFileOnExactEqualityOnly) {
  const FileStatusStruct status(wxT("/a/File.txt"), 1);
  const wxString same = wxT("/a/File.txt");
  const wxString otherCase = wxT("/a/file.txt");
  EXPECT_TRUE(status.FullFileNameMatches(&same));
  EXPECT_FALSE(status.FullFileNameMatches(&otherCase));
  EXPECT_EQ(1, status.m_suppressed);
}

std::unique_ptr<Reader> MakeByType(const BytesOnDisk& file, int type, wxFile* open) {
  return std::unique_ptr<Reader>(MUDataFileInputReaderFactory::GetExperimentDataFileInputReader(
      file.Name(), static_cast<MU_DATAFILE_INPUTFILE_TYPE>(type), nullptr, open));
}

TEST(ReaderFactory, TakesTypeTwoAndUnknownTypesAsTypeZero) {
  const BytesOnDisk file(GOOD);
  for (const int type : {0, 2, 17, -1, 4}) {
    SCOPED_TRACE(type);
    const auto reader = MakeByType(file, type, nullptr);
    EXPECT_NE(nullptr, dynamic_cast<MUConcreteExperimentDataFileTxt*>(reader.get()));
    EXPECT_EQ(wxT("Title"), reader->GetExperimentTitle());
    EXPECT_EQ(1u, reader->GetDataRowCount());
  }
}

TEST(ReaderFactory, TypeOneHasTheFifteenKnownColumnsAndNoTitle) {
  const BytesOnDisk file(GOOD);
  const auto reader = MakeByType(file, 1, nullptr);
  EXPECT_NE(nullptr, dynamic_cast<MUConcreteExperimentDataFileTxt*>(reader.get()));
  EXPECT_EQ(wxString(), reader->GetExperimentTitle());
  EXPECT_EQ(15u, TakeColumns(*reader)->size());
}

TEST(ReaderFactory, TypeThreeReadsTheOpenFile) {
  const BytesOnDisk file(GOOD);
  wxFile open(file.Path());
  const auto reader = MakeByType(file, 3, &open);
  EXPECT_NE(nullptr, dynamic_cast<MUConcreteInMemoryDataFile*>(reader.get()));
  EXPECT_EQ(1u, reader->GetDataRowCount());
}

TEST(ReaderFactory, GivesAFailedReaderForAFileThatIsNotThere) {
  const std::unique_ptr<Reader> reader(
      MUDataFileInputReaderFactory::GetExperimentDataFileInputReader(
          wxFileName(wxT("/no/such/file.txt")), MU_INPUTFILE_TXT, nullptr, nullptr));
  ASSERT_NE(nullptr, reader);
  EXPECT_TRUE(reader->ErrorStatusIsPresent());
}

using MakeReader = std::unique_ptr<Reader> (*)(const std::string&, RecordingHandler*);
class BothReaders : public testing::TestWithParam<MakeReader> {};
INSTANTIATE_TEST_SUITE_P(Kinds, BothReaders, testing::Values(&Stream, &InMemory));

TEST_P(BothReaders, HandTheirColumnsOver) {
  OwnedColumns columns;
  {
    const auto reader = GetParam()(GOOD, nullptr);
    columns = TakeColumns(*reader);
  }
  // The reader is gone; with the address sanitizer this would not pass on freed columns.
  ASSERT_EQ(2u, columns->size());
  EXPECT_EQ(wxT("A\nx"), columns->front()->m_columnName);
  // Never taken: the leak check of the sanitizer sees to it that the reader frees them.
  GetParam()(GOOD, nullptr);
}

TEST_P(BothReaders, MakeRowsThatOutliveThem) {
  std::vector<std::unique_ptr<Row>> rows;
  {
    const auto reader = GetParam()(GOOD, nullptr);
    rows = AllRows(*reader);
  }
  EXPECT_EQ(wxT("1"), rows[0]->m_cells[wxT("A\nx")]);
}

TEST_P(BothReaders, ReadRowsAfterTheColumnsWereHandedOver) {
  const auto reader = GetParam()(Header("A", "x") + "1\t2\t3\t\n", nullptr);
  TakeColumns(*reader).reset();
  const auto rows = AllRows(*reader);
  EXPECT_EQ(wxT("2"), rows[0]->m_cells[wxT("[Missing\nCol Name]")]);
  EXPECT_EQ(wxT("3"), rows[0]->m_cells[wxT("[Missing\nCol Name]#")]);
}

TEST_P(BothReaders, KeepTheCursorWhereItWasPut) {
  const auto reader = GetParam()(Header("A\tB", "x\ty") + "1\t\n2\t\n3\t\n", nullptr);
  const auto firstCell = [&](bool advance) -> wxString {
    const std::unique_ptr<Row> row(reader->CreateAndReturnCurrentRowObject(advance));
    return row ? row->m_cells[wxT("A\nx")] : wxString(wxT("no row"));
  };
  EXPECT_EQ(wxT("1"), firstCell(false));
  EXPECT_EQ(wxT("1"), firstCell(true));
  EXPECT_EQ(wxT("2"), firstCell(true));
  EXPECT_EQ(wxT("3"), firstCell(true));
  EXPECT_EQ(wxT("no row"), firstCell(true));
  EXPECT_EQ(wxT("no row"), firstCell(true));
  reader->GoToDataRow(1);
  EXPECT_EQ(wxT("2"), firstCell(false));
  for (const int row : {-1, 3, 2147483647, -2147483647 - 1}) {
    reader->GoToDataRow(row);
    EXPECT_EQ(wxT("no row"), firstCell(true)) << row;
  }
  reader->GoToDataRow(-1);
  EXPECT_EQ(wxT("no row"), firstCell(true));
  EXPECT_EQ(wxT("no row"), firstCell(true)) << "the cursor stays where there is no row";
}

TEST_P(BothReaders, ReportSuccessOnceWithThePath) {
  RecordingHandler handler;
  const auto reader = GetParam()(GOOD, &handler);
  EXPECT_FALSE(reader->ErrorStatusIsPresent());
  ASSERT_EQ(1, handler.m_calls);
  ASSERT_EQ(1u, handler.m_reports.size());
  EXPECT_EQ(Reader::MU_INPUT_SUCCESS, handler.m_reports[0].code);
  EXPECT_EQ(wxT("Success"), handler.m_reports[0].message);
  EXPECT_EQ(wxGetCwd() + wxT("/reader bench.txt"), handler.m_reports[0].filePath);
}

TEST_P(BothReaders, NameNoColumnAfterAHiddenOne) {
  const auto reader = GetParam()(Header("A\t\tB", "\t\t\tC") + "1\t2\t3\t4\t5\t6\t7\n", nullptr);
  for (const wxString& name : ColumnNamesAfterRows(*reader)) {
    EXPECT_NE(Reader::STRING_FOR_PERSONNAME_SECRET_COL, name);
    EXPECT_NE(Reader::STRING_FOR_FILENAME_SECRET_COL, name);
    EXPECT_NE(Reader::STRING_FOR_SHORTNAME_SECRET_COL, name);
    EXPECT_NE(Reader::STRING_FOR_EXPERIMENT_SECRET_COL, name);
    EXPECT_NE(Reader::STRING_FOR_EXP_DATETIME_SECRET_COL, name);
  }
}

TEST_P(BothReaders, MakeNewRowsWithNoPlaceInAnyTable) {
  const auto reader = GetParam()(GOOD, nullptr);
  const auto rows = AllRows(*reader);
  EXPECT_EQ(0u, rows[0]->m_rowPropertyFlags);
  const unsigned long allOnes = static_cast<unsigned long>(-1);
  EXPECT_EQ(allOnes, rows[0]->m_rowKey);
  EXPECT_EQ(allOnes, rows[0]->m_indexAmongAllRows);
  EXPECT_EQ(allOnes, rows[0]->m_indexAmongActiveRows);
  EXPECT_EQ(allOnes, rows[0]->m_indexAmongShownRows);
  EXPECT_EQ(-999999.0, rows[0]->m_reactionTime);
}

// A megabyte of cells without headings would need names of half a million number signs.
TEST_P(BothReaders, RefuseFilesWhoseColumnNamesWouldOutgrowMemory) {
  std::string longLine;
  for (int i = 0; i < 250000; ++i) longLine += "a\t";
  for (const std::string& bytes :
       {Header("A", "x") + longLine + "b\n", Header(longLine, "x") + "b\n",
        Header("A", longLine) + "b\n", Header(std::string(500000, '\t') + "x", "x") + "b\n"}) {
    RecordingHandler handler;
    const auto reader = GetParam()(bytes, &handler);
    EXPECT_TRUE(reader->ErrorStatusIsPresent());
    ASSERT_EQ(1u, handler.m_reports.size());
    EXPECT_EQ(Reader::MU_INPUT_FILE_TOO_LARGE, handler.m_reports[0].code);
    EXPECT_EQ(nullptr, reader->CreateAndReturnCurrentRowObject(true));
  }
}

TEST_P(BothReaders, GiveAColumnWithoutHeadingTheShareOfTheFile) {
  const auto reader = GetParam()(Header("A", "x\tcode") + "1\t2\t3\t4\n", nullptr);
  AllRows(*reader);
  const OwnedColumns columns = TakeColumns(*reader);
  ASSERT_EQ(4u, columns->size());
  for (const MUColumnNamePlusProperties* column : *columns) {
    SCOPED_TRACE(column->m_columnName);
    ASSERT_EQ(1u, column->m_fileStatuses.size());
    EXPECT_EQ(wxGetCwd() + wxT("/reader bench.txt"), column->m_fileStatuses.front().m_fullFileName);
    EXPECT_EQ(0, column->m_fileStatuses.front().m_suppressed);
  }
}

TEST_P(BothReaders, TakeAThousandCellsBeyondTheHeadings) {
  std::string line;
  for (int i = 0; i < 1000; ++i) line += "c\t";
  const auto reader = GetParam()(Header("A\tB\t", "x\ty\t") + line + "d\n", nullptr);
  const std::vector<wxString> names = ColumnNamesAfterRows(*reader);
  ASSERT_EQ(1001u, names.size());
  EXPECT_EQ(wxT("[Missing\nCol Name]") +
                wxString(wxT('#'), names.size() - 1 - (names[2].empty() ? 3 : 2)),
            names.back());
}

// A run of tabs before the last cell makes the library's tokenizer quadratic.
TEST_P(BothReaders, ReadALineOfTabsInNoTime) {
  std::string columns;
  for (int i = 0; i < 60000; ++i) columns += "c" + std::to_string(i) + "\t";
  const auto reader = GetParam()(Header(columns, "") + std::string(50000, '\t') + "end\n", nullptr);
  ASSERT_FALSE(reader->ErrorStatusIsPresent());
  const auto rows = AllRows(*reader);
  EXPECT_EQ(wxT("end"), rows[0]->CellAt(50000).ToString().Left(3));
}

}  // namespace
