// The reader that opens a data file by name.
#include <gtest/gtest.h>
#include <wx/filefn.h>
#include <wx/log.h>

#include <algorithm>
#include <iterator>

#include "Tabulon/src/reading/MUConcreteExperimentDataFileTxt.h"
#include "tests/Tabulon/reading/ReaderBench.h"

using namespace ReaderBench;

namespace {

// The one report that a file gives.
Reader::DataFileInputError OneReport(const std::string& bytes) {
  RecordingHandler handler;
  const auto reader = Stream(bytes, &handler);
  EXPECT_TRUE(reader->ErrorStatusIsPresent());
  EXPECT_EQ(1, handler.m_calls);
  EXPECT_EQ(1u, handler.m_reports.size());
  EXPECT_EQ(wxGetCwd() + wxT("/reader bench.txt"), handler.m_reports.at(0).filePath);
  // Without a handler nothing is sent, and the flag is set all the same.
  EXPECT_TRUE(Stream(bytes)->ErrorStatusIsPresent());
  return handler.m_reports.at(0);
}

std::vector<wxString> Names(const std::string& first, const std::string& second) {
  return ColumnNamesAfterRows(*Stream(Header(first, second) + "\n"));
}

std::unique_ptr<Row> OneRow(const std::string& first, const std::string& second,
                            const std::string& line) {
  return std::move(AllRows(*Stream(Header(first, second) + line + "\n")).at(0));
}

std::string FileOfSize(std::size_t size) {
  std::string bytes = Header("A", "x");
  while (bytes.size() < size)
    bytes += std::string(std::min<std::size_t>(99, size - bytes.size() - 1), 'z') + "\n";
  return bytes;
}

TEST(StreamingReader, OpensAFileOfOneMebibyteAndRefusesOneByteMore) {
  const std::string largest = FileOfSize(1048576);
  ASSERT_EQ(1048576u, largest.size());
  const auto reader = Stream(largest);
  EXPECT_FALSE(reader->ErrorStatusIsPresent());
  EXPECT_GT(reader->GetDataRowCount(), 10000u);

  const auto report = OneReport(FileOfSize(1048577));
  EXPECT_EQ(Reader::MU_INPUT_FILE_TOO_LARGE, report.code);
  EXPECT_EQ(
      wxT("File too large.  This file is 1048577 bytes in size.  Halvex Tabulon cannot support "
          "opening such large files.  You may wish to split the file into multiple smaller files "
          "and try again."),
      report.message);
}

TEST(StreamingReader, NamesTheLowBitsOfAnEnormousSize) {
  const BytesOnDisk file("");
  {
    wxFile sparse(file.Path(), wxFile::write);
    if (sparse.Seek(wxFileOffset(5) * 1024 * 1024 * 1024 - 1) == wxInvalidOffset ||
        sparse.Write("x", 1) != 1) {
      GTEST_SKIP() << "no sparse files here";
    }
  }
  RecordingHandler handler;
  const MUConcreteExperimentDataFileTxt reader(file.Name(), true, &handler);
  ASSERT_EQ(1u, handler.m_reports.size());
  EXPECT_TRUE(handler.m_reports[0].message.StartsWith(
      wxT("File too large.  This file is 1073741824 bytes in size.  Halvex")));
}

TEST(StreamingReader, PassesOnWhatTheLibrarySaysOfAFileThatDoesNotOpen) {
  RecordingHandler handler;
  const wxLog* before = wxLog::GetActiveTarget();
  const MUConcreteExperimentDataFileTxt reader(wxFileName(wxT("/no/such/file.txt")), true,
                                               &handler);
  EXPECT_EQ(before, wxLog::GetActiveTarget());
  EXPECT_TRUE(reader.ErrorStatusIsPresent());
  ASSERT_EQ(1, handler.m_calls);
  ASSERT_EQ(1u, handler.m_reports.size());
  EXPECT_EQ(Reader::MU_INPUT_LIBRARY_MESSAGE, handler.m_reports[0].code);
  EXPECT_EQ(wxT("/no/such/file.txt"), handler.m_reports[0].filePath);
  EXPECT_EQ(wxT("can't open file '/no/such/file.txt' (error 2: No such file or directory)"),
            handler.m_reports[0].message);
  EXPECT_EQ(0u, reader.GetDataRowCount());
}

TEST(StreamingReader, RefusesADirectory) {
  RecordingHandler handler;
  const MUConcreteExperimentDataFileTxt reader(wxFileName(wxGetCwd()), true, &handler);
  EXPECT_TRUE(reader.ErrorStatusIsPresent());
  ASSERT_FALSE(handler.m_reports.empty());
  EXPECT_EQ(Reader::MU_INPUT_LIBRARY_MESSAGE, handler.m_reports[0].code);
}

TEST(StreamingReader, MissesTheExperimentNameInAFileOfOneLineOrNone) {
  for (const std::string bytes : {"", "one line", "one line\n"}) {
    const auto report = OneReport(bytes);
    EXPECT_EQ(Reader::MU_INPUT_BAD_FORMAT, report.code);
    EXPECT_EQ(wxT("Input file is missing an experiment name.  The first line of the file should "
                  "contain the title of the experiment."),
              report.message);
  }
}

TEST(StreamingReader, MissesTheTimeInAFileOfTwoLines) {
  const auto report = OneReport("name\ntitle\n");
  EXPECT_EQ(Reader::MU_INPUT_BAD_FORMAT, report.code);
  EXPECT_EQ(
      wxT("Input file is missing information about the time the experiment was run.  The second "
          "line of the file should contain this information."),
      report.message);
}

// No file can provoke it: the title is looked for first.
TEST(StreamingReader, HasWordsForAMissingParticipant) {
  EXPECT_EQ(
      wxT("Input file is missing a participant name.  The %s line of the file should contain the "
          "participant name for the experiment."),
      MUConcreteExperimentDataFileTxt::USERFRIENDLY_ERROR_TEXT_NO_PERSONNAME_NAME);
}

TEST(StreamingReader, FindsAFileOfSixLinesTooShort) {
  const auto report = OneReport(Header("A", "x"));
  EXPECT_EQ(Reader::MU_INPUT_BAD_FORMAT, report.code);
  EXPECT_EQ(
      wxT("This file does not appear long enough to be a valid datafile.  There should be 6 lines "
          "of header information followed by one or more rows of data."),
      report.message);
  EXPECT_EQ(0u, Stream(Header("A", "x"))->GetDataRowCount());
  EXPECT_EQ(OneReport("a\nb\nc\n").message, report.message);
  EXPECT_FALSE(Stream(Header("A", "x") + "\n")->ErrorStatusIsPresent());
}

TEST(StreamingReader, NeedsAHeadingInEitherRow) {
  const auto report = OneReport(Header("", "") + "1\n");
  EXPECT_EQ(Reader::MU_INPUT_BAD_FORMAT, report.code);
  EXPECT_EQ(
      wxT("This file does not appear to have any column headings.  There should be column titles "
          "populated from row 4 to row 5 of the file."),
      report.message);
  EXPECT_EQ(std::vector<wxString>{wxT("x")}, Names("", "x"));
  EXPECT_EQ(std::vector<wxString>{wxT("A")}, Names("A", ""));
}

TEST(StreamingReader, TrimsTitleAndParticipantButNotTheDate) {
  const auto reader = Stream(" \tAnna \t\n\t The title \n  Monday\t10:15 \t\nx\nA\nx\n1\n");
  EXPECT_EQ(wxT("The title"), reader->GetExperimentTitle());
  EXPECT_EQ(wxT("  Monday\t10:15 \t"), reader->GetExperimentDateTimeString());
  const auto row = std::move(AllRows(*reader).at(0));
  EXPECT_EQ(wxT("Anna"), row->m_cells[Hidden::STRING_FOR_PERSONNAME_SECRET_COL]);
}

TEST(StreamingReader, NeverLooksAtTheFourthLine) {
  for (const std::string line : {"", "\t\t", "anything\tat all"}) {
    const auto reader = Stream("p\nt\nd\n" + line + "\nA\nx\n1\n");
    ASSERT_FALSE(reader->ErrorStatusIsPresent());
    EXPECT_EQ(std::vector<wxString>{wxT("A\nx")}, ColumnNamesAfterRows(*reader));
  }
}

TEST(StreamingReader, GivesEveryRowTheFiveHiddenCells) {
  const auto reader = Stream(Header("A", "x") + "1\n\n");
  const wxString path = wxGetCwd() + wxT("/reader bench.txt");
  for (const auto& row : AllRows(*reader)) {
    EXPECT_EQ(6u, row->m_cells.size());
    EXPECT_EQ(wxT("Participant 7"), row->m_cells[wxT("PNPNPN_PNPNPN_01zx")]);
    EXPECT_EQ(path, row->m_cells[wxT("FFFFF1")]);
    EXPECT_EQ(wxT("reader bench.txt"), row->m_cells[wxT("SFSFSF1")]);
    EXPECT_EQ(wxT("Title"), row->m_cells[wxT("EXPEXPEXPEXPEXP")]);
    EXPECT_EQ(wxT("Monday, 10:15"), row->m_cells[wxT("EXPDT_EXPDT_EXPDT_")]);
    EXPECT_EQ(6u, row->m_cells.size());
    EXPECT_EQ(0u, row->m_hash01.count(wxT("FFFFF1")));
  }
}

TEST(StreamingReader, EndsTheShortNameOfAFileWithoutExtensionInADot) {
  const BytesOnDisk file(Header("A", "x") + "1\n", wxT("no extension"));
  MUConcreteExperimentDataFileTxt reader(file.Name(), true, nullptr);
  EXPECT_EQ(wxT("no extension."), AllRows(reader).at(0)->m_cells[wxT("SFSFSF1")]);
}

TEST(StreamingReader, KeepsTheHiddenTextWhereAHeadingHasAHiddenName) {
  const auto row = OneRow("SFSFSF1\tB", "", "cell text of its own\t2");
  EXPECT_EQ(wxT("reader bench.txt"), row->m_cells.ValueOrDefault(wxT("SFSFSF1")));
  EXPECT_EQ(wxT("reader bench.txt"), row->m_cells[wxT("SFSFSF1")]);
  EXPECT_EQ(MUSortableNumericHash(wxT("cell t")), row->m_hash01[wxT("SFSFSF1")]);
  EXPECT_FALSE(row->m_textFitsInHash[wxT("SFSFSF1")]);
  EXPECT_EQ(6u, row->m_cells.size());
}

TEST(StreamingReader, JoinsHeadingRowsAndMarksCodeColumns) {
  const auto reader = Stream(Header("Reaction\tKey", "Time\tx\tcode") + "1\n");
  const OwnedColumns columns = TakeColumns(*reader);
  ASSERT_EQ(3u, columns->size());
  EXPECT_EQ(wxT("Reaction\nTime"), columns->at(0)->m_columnName);
  EXPECT_EQ(0u, columns->at(0)->m_columnPropertyFlags);
  EXPECT_EQ(wxT("Key\nx"), columns->at(1)->m_columnName);
  EXPECT_EQ(wxT("code"), columns->at(2)->m_columnName);
  EXPECT_EQ(2u, columns->at(2)->m_columnPropertyFlags);
  for (const MUColumnNamePlusProperties* column : *columns) {
    ASSERT_EQ(1u, column->m_fileStatuses.size());
    EXPECT_EQ(wxGetCwd() + wxT("/reader bench.txt"), column->m_fileStatuses.front().m_fullFileName);
    EXPECT_EQ(0, column->m_fileStatuses.front().m_suppressed);
  }
}

TEST(StreamingReader, LeavesUncoveredColumnsANameOfOneLine) {
  EXPECT_EQ((std::vector<wxString>{wxT("A\nx"), wxT("B"), wxT("C")}), Names("A\tB\tC", "x"));
}

TEST(StreamingReader, DecidesTypesOnRawNamesBeforeTheTrim) {
  // "Key" with an empty cell below is "Key\n" when types are decided; a column further right makes
  // the empty cell one that the tokenizer keeps.
  const auto reader = Stream(
      Header("Reaction\tKey\tReaction Time\t Reaction", "Time\t\t(Trial Variable)\tTime") + "1\n");
  const OwnedColumns columns = TakeColumns(*reader);
  EXPECT_EQ(wxT("Key"), columns->at(1)->m_columnName);
  EXPECT_EQ(1, columns->at(0)->m_dataType);
  EXPECT_EQ(2, columns->at(1)->m_dataType);
  EXPECT_EQ(1, columns->at(2)->m_dataType);
  EXPECT_EQ(1u, columns->at(2)->m_columnPropertyFlags);
  EXPECT_EQ(wxT("Reaction\nTime#"), columns->at(3)->m_columnName);
  EXPECT_EQ(2, columns->at(3)->m_dataType) << "the raw name begins with a blank";
}

TEST(StreamingReader, KnowsTheTypesOfHiddenNamesAndOfFiveNumberColumns) {
  const auto typeOf = [](const std::string& first, const std::string& second) {
    return TakeColumns(*Stream(Header(first, second) + "1\n"))->front()->m_dataType;
  };
  EXPECT_EQ(1, typeOf("Reaction", "Time"));
  EXPECT_EQ(1, typeOf("Reaction Time", "(Trial Variable)"));
  EXPECT_EQ(2, typeOf("Font Color", "(Trial Variable)"));
  EXPECT_EQ(1, typeOf("ISI Durations", "(Trial Variable)"));
  EXPECT_EQ(1, typeOf("Screen Location", "(Trial Variable)"));
  EXPECT_EQ(1, typeOf("Screen Location II", "(Trial Variable)"));
  EXPECT_EQ(2, typeOf("Key", ""));
  EXPECT_EQ(2, typeOf("Cumulative", "Time"));
  EXPECT_EQ(2, typeOf("SFSFSF1", ""));
  EXPECT_EQ(2, typeOf("EXPEXPEXPEXPEXP", ""));
  EXPECT_EQ(3, typeOf("EXPDT_EXPDT_EXPDT_", ""));
}

TEST(StreamingReader, MayGiveAColumnBothFlags) {
  const auto columns = TakeColumns(*Stream(Header("", "(Trial Variable) x") + "1\n"));
  EXPECT_EQ(3u, columns->at(0)->m_columnPropertyFlags);
  EXPECT_EQ(wxT("(Trial Variable) x"), columns->at(0)->m_columnName);
}

TEST(StreamingReader, MakesNamesUniqueWithoutRegardToCase) {
  EXPECT_EQ((std::vector<wxString>{wxT("Event\nName"), wxT("EVENT\nName#"), wxT("event\nname##")}),
            Names("Event\tEVENT\tevent", "Name\tName\tname"));
}

TEST(StreamingReader, AddsColumnsForCellsBeyondTheHeadings) {
  const auto reader = Stream(Header("A", "x") + "1\n1\t2\t3\n1\t2\n1\t2\t3\t4\n");
  const auto rows = AllRows(*reader);
  const OwnedColumns columns = TakeColumns(*reader);
  EXPECT_EQ((std::vector<wxString>{wxT("A\nx"), wxT("[Missing\nCol Name]"),
                                   wxT("[Missing\nCol Name]#"), wxT("[Missing\nCol Name]##")}),
            NamesOf(*columns));
  EXPECT_EQ(0, columns->at(1)->m_dataType);
  EXPECT_EQ(0u, columns->at(1)->m_columnPropertyFlags);
  EXPECT_EQ(wxGetCwd() + wxT("/reader bench.txt"),
            columns->at(1)->m_fileStatuses.front().m_fullFileName);
  EXPECT_EQ(0u, rows[0]->m_cells.count(wxT("[Missing\nCol Name]"))) << "read before there was one";
  EXPECT_EQ(wxT("3"), rows[1]->m_cells[wxT("[Missing\nCol Name]#")]);
  EXPECT_EQ(wxT("2"), rows[2]->m_cells[wxT("[Missing\nCol Name]")]);
  EXPECT_EQ(1u, rows[2]->m_cells.count(wxT("[Missing\nCol Name]#"))) << "known by then, and empty";
  EXPECT_EQ(0u, rows[2]->m_hash01.count(wxT("[Missing\nCol Name]#")));
}

TEST(StreamingReader, ReadsMissingCellsAsEmptyWithoutSortKeys) {
  const auto row = OneRow("A\tB\tC", "", "1");
  for (const wxString missing : {wxT("B"), wxT("C")}) {
    EXPECT_EQ(1u, row->m_cells.count(missing));
    EXPECT_EQ(wxString(), row->m_cells[missing]);
    EXPECT_EQ(0u, row->m_hash01.count(missing));
    EXPECT_EQ(0u, row->m_hash02.count(missing));
    EXPECT_EQ(0u, row->m_hash03.count(missing));
    EXPECT_EQ(0u, row->m_textFitsInHash.count(missing));
  }
  EXPECT_EQ(1u, row->m_hash01.size());
}

TEST(StreamingReader, LeavesOneEntryUnderTheEmptyKeyForALineWithoutCells) {
  const auto row = OneRow("A\tB", "", "");
  EXPECT_EQ(7u, row->m_cells.size());
  ASSERT_EQ(1u, row->m_hash01.size());
  EXPECT_EQ(wxString(), row->m_hash01.begin()->first);
  EXPECT_EQ(0.0, row->m_hash01.begin()->second);
  EXPECT_EQ(1u, row->m_hash02.count(wxString()));
  EXPECT_EQ(1u, row->m_hash03.count(wxString()));
  ASSERT_EQ(1u, row->m_textFitsInHash.size());
  EXPECT_TRUE(row->m_textFitsInHash[wxString()]);
}

TEST(StreamingReader, TellsWhetherTheSortKeysCoverACell) {
  const auto row = OneRow("A\tB", "", std::string(18, 'a') + "\t" + std::string(19, 'a'));
  EXPECT_TRUE(row->m_textFitsInHash[wxT("A")]);
  EXPECT_FALSE(row->m_textFitsInHash[wxT("B")]);
}

TEST(StreamingReader, SortsOnTheFirstEighteenCharactersOnly) {
  const auto row =
      OneRow("A\tB\tC", "",
             "aaaaaabbbbbbccccccdddddddddddd\taaaaaabbbbbbcccccceeeeeeeeeeee\taaaaaabbbbbbcccccX");
  EXPECT_EQ(row->m_hash01[wxT("A")], row->m_hash01[wxT("B")]);
  EXPECT_EQ(row->m_hash02[wxT("A")], row->m_hash02[wxT("B")]);
  EXPECT_EQ(row->m_hash03[wxT("A")], row->m_hash03[wxT("B")]);
  EXPECT_GT(row->m_hash03[wxT("A")], row->m_hash03[wxT("C")]);
}

TEST(StreamingReader, ComputesTheSortKeyByItsPowers) {
  // 'a' is 97, a blank 32: 97*256^7 + 98*256^6 + 32*(256^5 + 256^4 + 256^3 + 256^2).
  const double expected = 97 * 72057594037927936.0 + 98 * 281474976710656.0 +
                          32 * (1099511627776.0 + 4294967296.0 + 16777216.0 + 65536.0);
  EXPECT_EQ(expected,
            MUConcreteExperimentDataFileTxt::CalculateSortableNumericHashFromString(wxT("ab")));
  EXPECT_EQ(expected, MUConcreteExperimentDataFileTxt::CalculateSortableNumericHashFromString(
                          wxT("ab    zz")));
  // Only the low eight bits of U+0161 count, which are those of 'a'.
  EXPECT_EQ(expected,
            MUConcreteExperimentDataFileTxt::CalculateSortableNumericHashFromString(L"\u0161b"));
}

TEST(StreamingReader, ReadsTheReactionTimeOfCellsThatAreNumbers) {
  const auto timeOf = [](const std::string& cell) {
    return OneRow("Reaction\tB", "Time\t", cell + "\tx")->m_reactionTime;
  };
  EXPECT_EQ(523.0, timeOf("523"));
  EXPECT_EQ(523.25, timeOf("523.25"));
  EXPECT_EQ(-7.0, timeOf("-7"));
  EXPECT_EQ(7.0, timeOf("007"));
  EXPECT_EQ(0.0, timeOf("0"));
  EXPECT_EQ(123456789012345.0, timeOf("123456789012345"));
  EXPECT_EQ(1234567890123456789.0, timeOf("1234567890123456789"));
  EXPECT_EQ(1e300, timeOf("1e300"));
  EXPECT_EQ(-999999.0, timeOf(""));
  EXPECT_EQ(-999999.0, timeOf("none"));
  EXPECT_EQ(-999999.0, timeOf("523 ms"));
  EXPECT_EQ(-999999.0, timeOf("12x"));
  EXPECT_EQ(-999999.0, OneRow("Other\tB", "Time\t", "523\t1")->m_reactionTime);
}

TEST(StreamingReader, TranslatesControlCharactersOfCellsButNotOfHeadings) {
  const auto reader = Stream(Header("A\x01"
                                    "B",
                                    "") +
                             "a\x1b[b\x07\x7f\n");
  const auto rows = AllRows(*reader);
  const std::vector<wxString> names = NamesOf(*TakeColumns(*reader));
  ASSERT_EQ(1u, names.size());
  EXPECT_EQ(wxT("A\x01"
                L"B"),
            names[0]);
  EXPECT_EQ(wxT("a0x1B 0x5bb^G^?"), rows[0]->m_cells[names[0]]);
}

TEST(StreamingReader, DropsAllEmptyCellsAtALinesEnd) {
  EXPECT_EQ(2u, ColumnNamesAfterRows(*Stream(Header("A\tB\t\t", "") + "1\t2\t\t\n")).size());
  const auto tabsAlone = OneRow("A\tB", "", "\t\t\t");
  EXPECT_EQ(1u, tabsAlone->m_hash01.size());
  EXPECT_EQ(1u, tabsAlone->m_hash01.count(wxT("A")));
}

TEST(StreamingReader, AcceptsAllLineEndsMixed) {
  const auto reader = Stream("p\rt\r\nd\n\nA\tB\rx\ty\r\n1\t2\r3\t4\r\n5\t6");
  ASSERT_FALSE(reader->ErrorStatusIsPresent());
  const auto rows = AllRows(*reader);
  ASSERT_EQ(3u, rows.size());
  EXPECT_EQ(wxT("2"), rows[0]->m_cells[wxT("B\ny")]);
  EXPECT_EQ(wxT("4"), rows[1]->m_cells[wxT("B\ny")]);
  EXPECT_EQ(wxT("6"), rows[2]->m_cells[wxT("B\ny")]);
}

TEST(StreamingReader, ReadsWithoutHeaderFromTheFirstLine) {
  const auto reader = StreamWithoutHeader("group\tname\tblock\nsecond");
  ASSERT_FALSE(reader->ErrorStatusIsPresent());
  EXPECT_EQ(2u, reader->GetDataRowCount());
  EXPECT_EQ(wxString(), reader->GetExperimentTitle());
  EXPECT_EQ(wxString(), reader->GetExperimentDateTimeString());
  const auto rows = AllRows(*reader);
  EXPECT_EQ(wxT("block"), rows[0]->m_cells[wxT("Block\nName")]);
  EXPECT_EQ(wxT("second"), rows[1]->m_cells[wxT("Participant\nGroup")]);
  EXPECT_EQ(1u, rows[0]->m_cells.count(wxT("PNPNPN_PNPNPN_01zx")));
  EXPECT_EQ(wxString(), rows[0]->m_cells[wxT("PNPNPN_PNPNPN_01zx")]);
  EXPECT_EQ(wxString(), rows[0]->m_cells[wxT("EXPEXPEXPEXPEXP")]);
  EXPECT_EQ(wxString(), rows[0]->m_cells[wxT("EXPDT_EXPDT_EXPDT_")]);
  EXPECT_EQ(wxT("reader bench.txt"), rows[0]->m_cells[wxT("SFSFSF1")]);

  const auto columns = TakeColumns(*reader);
  const struct {
    const wchar_t* name;
    int type;
    unsigned flags;
  } expected[] = {{L"Participant\nGroup", 2, 0},
                  {L"Participant\nName", 2, 0},
                  {L"Block\nName", 2, 0},
                  {L"Trial\nName", 2, 0},
                  {L"Event\nName", 2, 0},
                  {L"Participant\nResponse", 2, 0},
                  {L"Key", 2, 0},
                  {L"Correct\nResponse", 2, 0},
                  {L"Error\nCode", 2, 0},
                  {L"Reaction\nTime", 1, 0},
                  {L"Reaction Time\n(Trial Variable)", 1, 1},
                  {L"Font Color\n(Trial Variable)", 2, 1},
                  {L"ISI Durations\n(Trial Variable)", 1, 1},
                  {L"Screen Location\n(Trial Variable)", 1, 1},
                  {L"Screen Location II\n(Trial Variable)", 1, 1}};
  ASSERT_EQ(std::size(expected), columns->size());
  for (std::size_t i = 0; i < columns->size(); ++i) {
    EXPECT_EQ(expected[i].name, columns->at(i)->m_columnName);
    EXPECT_EQ(expected[i].type, columns->at(i)->m_dataType);
    EXPECT_EQ(expected[i].flags, columns->at(i)->m_columnPropertyFlags);
  }
}

TEST(StreamingReader, TakesAFileOfNoLinesWithoutHeader) {
  RecordingHandler handler;
  const auto reader = StreamWithoutHeader("", &handler);
  EXPECT_FALSE(reader->ErrorStatusIsPresent());
  EXPECT_EQ(0u, reader->GetDataRowCount());
  EXPECT_EQ(nullptr, reader->CreateAndReturnCurrentRowObject(true));
  ASSERT_EQ(1u, handler.m_reports.size());
  EXPECT_EQ(Reader::MU_INPUT_SUCCESS, handler.m_reports[0].code);
}

TEST(StreamingReader, EndsItsPatternTablesInTheSentinel) {
  using Txt = MUConcreteExperimentDataFileTxt;
  EXPECT_EQ(wxT("\n"), Txt::SYMBOL_FOR_NEWLINE);
  EXPECT_EQ(wxT("\t"), Txt::OM_COL_TEXT_DELIMITER);
  EXPECT_EQ(wxT("\t"), Txt::WHITESPACE_MARKER_NECESSARY_TO_SIGNAL_A_CODE_COLUMN);
  EXPECT_EQ(wxT("<codeval>END_OF_LISTING</codeval>"), Txt::CODE_VALUE_FOR_END_OF_ARRAY);
  EXPECT_EQ(wxT("\n(Trial Variable)"), Txt::PARALLEL_ARRAY_OF_COL_PATTERNS_FOR_FLAGS[0]);
  EXPECT_EQ(wxT("\t\n"), Txt::PARALLEL_ARRAY_OF_COL_PATTERNS_FOR_FLAGS[1]);
  EXPECT_EQ(Txt::CODE_VALUE_FOR_END_OF_ARRAY, Txt::PARALLEL_ARRAY_OF_COL_PATTERNS_FOR_FLAGS[2]);
  EXPECT_EQ(1u, Txt::PARALLEL_ARRAY_OF_COL_FLAGS[0]);
  EXPECT_EQ(2u, Txt::PARALLEL_ARRAY_OF_COL_FLAGS[1]);
  EXPECT_EQ(0u, Txt::PARALLEL_ARRAY_OF_COL_FLAGS[2]);
  EXPECT_EQ(Txt::CODE_VALUE_FOR_END_OF_ARRAY, Txt::PARALLEL_ARRAY_OF_COL_PATTERNS_FOR_TYPES[15]);
}

}  // namespace
