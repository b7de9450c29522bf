// The reader of an open file, difference by difference from the one that opens by name.
#include <gtest/gtest.h>
#include <unistd.h>
#include <wx/log.h>

#include "Tabulon/src/reading/MUConcreteInMemoryDataFile.h"
#include "tests/Tabulon/reading/ReaderBench.h"

using namespace ReaderBench;

namespace {

const std::string GOOD = Header("A\tB", "x\ty") + "1\t2\n3\t4\n";

wxString OneReport(const std::string& bytes) {
  RecordingHandler handler;
  const auto reader = InMemory(bytes, &handler);
  EXPECT_TRUE(reader->ErrorStatusIsPresent());
  EXPECT_EQ(1, handler.m_calls);
  EXPECT_EQ(1u, handler.m_reports.size());
  EXPECT_EQ(Reader::MU_INPUT_BAD_FORMAT, handler.m_reports.at(0).code);
  EXPECT_EQ(wxGetCwd() + wxT("/reader bench.txt"), handler.m_reports.at(0).filePath);
  EXPECT_TRUE(InMemory(bytes)->ErrorStatusIsPresent());
  return handler.m_reports.at(0).message;
}

std::vector<wxString> FirstCells(const std::string& bytes, const wxString& column) {
  std::vector<wxString> cells;
  for (const auto& row : AllRows(*InMemory(bytes))) cells.push_back(row->m_cells[column]);
  return cells;
}

TEST(InMemoryReader, PutsTheFilePositionBack) {
  const BytesOnDisk file(GOOD);
  wxFile open(file.Path());
  open.Seek(11);
  const MUConcreteInMemoryDataFile reader(&open, file.Name(), true, nullptr);
  EXPECT_EQ(11, open.Tell());
  EXPECT_TRUE(open.IsOpened());
  EXPECT_EQ(2u, reader.GetDataRowCount());
}

TEST(InMemoryReader, NeedsTheFileOnlyWhileItIsMade) {
  const BytesOnDisk file(GOOD);
  wxFile open(file.Path());
  MUConcreteInMemoryDataFile reader(&open, file.Name(), false, nullptr);
  open.Close();
  EXPECT_EQ(wxT("3"), AllRows(reader).at(1)->m_cells[wxT("A\nx")]);
}

TEST(InMemoryReader, TakesOnlyItsNamesFromTheName) {
  const BytesOnDisk file(GOOD);
  wxFile open(file.Path());
  RecordingHandler handler;
  MUConcreteInMemoryDataFile reader(&open, wxFileName(wxT("/no/such/name.dat")), true, &handler);
  EXPECT_FALSE(reader.ErrorStatusIsPresent());
  EXPECT_EQ(wxT("/no/such/name.dat"), handler.m_reports.at(0).filePath);
  EXPECT_EQ(wxT("/no/such/name.dat"),
            TakeColumns(reader)->at(0)->m_fileStatuses.front().m_fullFileName);
}

TEST(InMemoryReader, HasNoSizeLimit) {
  std::string bytes = Header("A", "x");
  while (bytes.size() < 2 * 1024 * 1024) bytes += "a cell of some length\n";
  EXPECT_TRUE(Stream(bytes)->ErrorStatusIsPresent());
  const auto reader = InMemory(bytes);
  EXPECT_FALSE(reader->ErrorStatusIsPresent());
  const auto rows = AllRows(*reader);
  EXPECT_EQ(wxT("a cell of some length^J"), rows.back()->m_cells[wxT("A\nx")]);
}

TEST(InMemoryReader, KeepsOnlyLinesThatEndInCarriageReturnIfThereIsOneDosLineEnd) {
  const std::string eol = "\r\n";
  const std::string bytes = Header("A", "x", eol) + "kept" + eol + "lost\n" + "kept too" + eol +
                            "lost as well\n" + "mac\r" + "unterminated";
  EXPECT_EQ((std::vector<wxString>{wxT("kept^M"), wxT("kept too^M"), wxT("mac^M")}),
            FirstCells(bytes, wxT("A\nx")));
}

TEST(InMemoryReader, LosesTheHeaderOfAnLfFileWithOneDosLineEnd) {
  EXPECT_EQ(wxT("missing exp name"), OneReport(Header("A", "x") + "1\r\n2\n"));
}

TEST(InMemoryReader, TakesAFileOfLoneCarriageReturnsAsOneLine) {
  EXPECT_EQ(wxT("missing exp name"), OneReport(Header("A", "x", "\r") + "1\r"));
}

TEST(InMemoryReader, KeepsAnUnterminatedLastLineOfAnLfFile) {
  EXPECT_EQ((std::vector<wxString>{wxT("1^J"), wxT("2")}),
            FirstCells(Header("A", "x") + "1\n2", wxT("A\nx")));
}

TEST(InMemoryReader, HasNoBlankLinesAtTheVeryEnd) {
  const auto reader = InMemory(Header("A", "x") + "1\n\n2\n\n\n\n");
  EXPECT_EQ(3u, reader->GetDataRowCount());
}

TEST(InMemoryReader, GivesAnEmptyLineOneCellWhereTheOtherReaderGivesNone) {
  const std::string bytes = Header("A\tB\t", "x\ty\t") + "\n1\t2\n";
  const auto row = std::move(AllRows(*InMemory(bytes)).at(0));
  EXPECT_EQ(wxT("^J"), row->m_cells[wxT("A\nx")]);
  EXPECT_EQ(1u, row->m_hash01.size());
  EXPECT_EQ(0u, row->m_hash01.count(wxString()));
  const auto streamed = std::move(AllRows(*Stream(bytes)).at(0));
  EXPECT_EQ(wxString(), streamed->m_cells[wxT("A\nx")]);
  EXPECT_EQ(1u, streamed->m_hash01.count(wxString()));
}

TEST(InMemoryReader, GivesATrailingTabOneCellMore) {
  const std::string bytes = Header("A\tB\tC", "") + "1\t2\t\n";
  const auto row = std::move(AllRows(*InMemory(bytes)).at(0));
  EXPECT_EQ(wxT("2"), row->m_cells[wxT("B")]);
  EXPECT_EQ(wxT("^J"), row->m_cells[wxT("C")]);
  EXPECT_EQ(wxString(), AllRows(*Stream(bytes)).at(0)->m_cells[wxT("C")]);
}

TEST(InMemoryReader, MakesAColumnOfAHeadingLinesTrailingTab) {
  const std::string bytes = Header("A\tB\t", "x\ty") + "1\t2\n";
  EXPECT_EQ((std::vector<wxString>{wxT("A\nx"), wxT("B\ny")}),
            ColumnNamesAfterRows(*Stream(bytes)));
  EXPECT_EQ((std::vector<wxString>{wxT("A\nx"), wxT("B\ny"), wxT("")}),
            ColumnNamesAfterRows(*InMemory(bytes)));
}

TEST(InMemoryReader, NeedsSevenLines) {
  EXPECT_EQ(wxT("file too short"), OneReport(Header("A", "x")));
  EXPECT_EQ(1u, InMemory(Header("A", "x") + "1\n")->GetDataRowCount());
  EXPECT_EQ(0u, InMemory(Header("A", "x"))->GetDataRowCount());
}

TEST(InMemoryReader, ReportsInFixedWords) {
  EXPECT_EQ(wxT("missing exp name"), OneReport(""));
  EXPECT_EQ(wxT("missing exp name"), OneReport("one\n"));
  EXPECT_EQ(wxT("missing date"), OneReport("one\ntwo\n"));
  EXPECT_EQ(wxT("file too short"), OneReport("one\ntwo\nthree\n"));
}

TEST(InMemoryReader, KeepsTheTerminatorInTheDateAndNowhereElseInTheHeader) {
  const auto reader = InMemory(" Anna \n Title \n Monday \n\nA\nx\n1\n");
  EXPECT_EQ(wxT("Title"), reader->GetExperimentTitle());
  EXPECT_EQ(wxT(" Monday \n"), reader->GetExperimentDateTimeString());
  const auto dos = InMemory("Anna\r\nTitle\r\nMonday\r\n\r\nA\r\nx\r\n1\r\n");
  EXPECT_EQ(wxT("Title"), dos->GetExperimentTitle());
  EXPECT_EQ(wxT("Monday\r"), dos->GetExperimentDateTimeString());
  EXPECT_EQ((std::vector<wxString>{wxT("A\nx")}), ColumnNamesAfterRows(*dos));
}

TEST(InMemoryReader, ReadsNoReactionTimeFromTheLastCell) {
  const auto timeOf = [](const std::string& first, const std::string& second,
                         const std::string& line) {
    return AllRows(*InMemory(Header(first, second) + line + "\n")).at(0)->m_reactionTime;
  };
  EXPECT_EQ(-999999.0, timeOf("A\tReaction", "x\tTime", "1\t523"));
  EXPECT_EQ(523.0, timeOf("Reaction\tA", "Time\tx", "523\t1"));
}

TEST(InMemoryReader, NeverSetsFlagsOrTypes) {
  const auto reader =
      InMemory(Header("Reaction\tFont Color", "Time\t(Trial Variable)\tcode") + "1\n");
  const auto columns = TakeColumns(*reader);
  ASSERT_EQ(3u, columns->size());
  EXPECT_EQ(wxT("code"), columns->at(2)->m_columnName);
  for (const MUColumnNamePlusProperties* column : *columns) {
    EXPECT_EQ(0u, column->m_columnPropertyFlags);
    EXPECT_EQ(0, column->m_dataType);
  }
}

TEST(InMemoryReader, GivesRowsNoHiddenCells) {
  const auto row = std::move(AllRows(*InMemory(GOOD)).at(0));
  EXPECT_EQ(2u, row->m_cells.size());
  EXPECT_EQ(0u, row->m_cells.count(Hidden::STRING_FOR_FILENAME_SECRET_COL));
}

TEST(InMemoryReaderDeathTest, LogsAFatalMessageIfItCannotSeek) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_DEATH(
      {
        // A line on the byte-oriented stream would make the library's wide one on it say nothing.
        const wxLogNull silence;
        int ends[2];
        if (::pipe(ends) == 0) {
          wxFile unseekable(ends[0]);
          const MUConcreteInMemoryDataFile reader(&unseekable, wxFileName(wxT("x")), true, nullptr);
        }
      },
      "Seek failed");
}

TEST(InMemoryReaderDeathTest, LogsAFatalMessageIfItCannotRead) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_DEATH(
      {
        const wxLogNull silence;
        const BytesOnDisk file(GOOD);
        wxFile writeOnly(file.Path(), wxFile::write_append);
        const MUConcreteInMemoryDataFile reader(&writeOnly, file.Name(), true, nullptr);
      },
      "Failed to slurp into string\\.");
}

}  // namespace
