// In which forms results are written.
#include "tests/Tabulon/cli/CliRun.h"

namespace {

using Tests::Arguments;
using Tests::Finished;
using Tests::WriteFile;

class Formats : public Tests::CliRun {
 protected:
  // The rows of a text with quoted cells, as RFC 4180 describes it.
  static std::vector<std::vector<std::string>> ReadCsv(const std::string& text) {
    std::vector<std::vector<std::string>> rows = {{""}};
    bool isQuoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
      std::string& cell = rows.back().back();
      if (isQuoted && text[i] == '"' && i + 1 < text.size() && text[i + 1] == '"') {
        cell += text[++i];
      } else if (text[i] == '"') {
        isQuoted = !isQuoted;
      } else if (!isQuoted && text[i] == ',') {
        rows.back().emplace_back();
      } else if (!isQuoted && text[i] == '\n') {
        rows.push_back({""});
      } else {
        cell += text[i];
      }
    }
    rows.pop_back();
    return rows;
  }
  // Runs the program on a terminal with this number of columns; returns what it says on either stream.
  std::string OnTerminal(int width, const std::string& arguments) {
    const std::string command = "cd '" + m_folder.Path() + "' && script -qec \"stty cols " +
                                std::to_string(width) + " rows 24; " + OMBRELIA_TABULON_CLI + " " +
                                arguments + "\" /dev/null < /dev/null";
    std::string out = Tests::RunProgram({"/bin/sh", "-c", command}).out;
    std::string text;
    for (const char byte : out) {
      if (byte != '\r') text += byte;
    }
    return text;
  }
};

TEST_F(Formats, CsvQuotesWhatNeedsIt) {
  WriteFile(m_folder / "q.txt", "p\nt\nd\n\nA,1\tB\n\nsay \"hi\"\t,\n\"\t plain \n");
  const std::string csv = Output({"show", "q.txt", "--no-origin", "--format", "csv"});
  EXPECT_EQ(csv, "\"A,1\",B\n\"say \"\"hi\"\"\",\",\"\n\"\"\"\", plain \n");
  EXPECT_EQ(ReadCsv(csv), (std::vector<std::vector<std::string>>{
                              {"A,1", "B"}, {"say \"hi\"", ","}, {"\"", " plain "}}));
}

TEST_F(Formats, AnEmptyCellAloneOnItsLineIsStillARow) {
  EXPECT_EQ(Output({"show", "a.txt", "--columns", "Note", "--rows", "0:0", "--format", "csv"}),
            "Note\n\"\"\n");
}

TEST_F(Formats, JsonWritesNumbersWhereTheWholeColumnHoldsThem) {
  WriteFile(m_folder / "n.txt",
            "p\nt\nd\n\nWhole\tMixed\tCode\tPart\tNone\n\n12\t1\t007\t-1.5e2\t\n 3\tx\t7\t \t\n");
  EXPECT_EQ(
      Output({"show", "n.txt", "--no-origin", "--format", "json"}),
      "[\n"
      "  {\"Whole\": 12, \"Mixed\": \"1\", \"Code\": \"007\", \"Part\": -1.5e2, \"None\": \"\"},\n"
      "  {\"Whole\": 3, \"Mixed\": \"x\", \"Code\": \"7\", \"Part\": null, \"None\": \"\"}\n"
      "]\n");
}

TEST_F(Formats, JsonCarriesTheOrigin) {
  EXPECT_EQ(Output({"show", "b.txt", "--format", "json"}),
            "[\n  {\"file\": \"b.txt\", \"line\": 7, \"title\": \"Second\", \"date\": \"Tue\", "
            "\"participant\": \"B\xC3\xA9n\xC3\xA9\", \"Event Name\": \"w\xC3\xA4it\", \"Key\": "
            "\"k\", \"Code\": 7}\n]\n");
}

TEST_F(Formats, MarkdownEscapesItsOwnSigns) {
  WriteFile(m_folder / "q.txt", "p\nt\nd\n\nA|1\tB\n\nx|y\tz\n");
  EXPECT_EQ(Output({"show", "q.txt", "--format", "md"}),
            "| A\\|1 | B |\n| --- | --- |\n| x\\|y | z |\n");
}

TEST_F(Formats, LineWritesOneFieldPerLine) {
  EXPECT_EQ(Output({"show", "a.txt", "--format", "line", "--columns",
                    "Event Name,Note,Reaction Time", "--limit", "2"}),
            "   Event Name = go\n         Note = \nReaction Time = 12\n\n"
            "   Event Name = stop\n         Note =  \nReaction Time = 5\n");
}

TEST_F(Formats, LimitAndLastCutTheWindow) {
  const auto events = [this](Arguments options) {
    options.insert(options.begin(),
                   {"show", "a.txt", "--columns", "Reaction Time", "--format", "csv"});
    return Output(options);
  };
  EXPECT_EQ(events({"--limit", "2"}), "Reaction Time\n12\n5\n");
  EXPECT_EQ(events({"--last", "2"}), "Reaction Time\n5\n300\n");
  EXPECT_EQ(events({"--last", "2", "--limit", "1"}), "Reaction Time\n5\n");
  EXPECT_EQ(events({"--rows", ":1", "--last", "1"}), "Reaction Time\n5\n");
  EXPECT_EQ(events({"--last", "99"}), "Reaction Time\n12\n5\n300\n");
  EXPECT_EQ(events({"--limit", "0"}), "Reaction Time\n12\n5\n300\n");
  EXPECT_EQ(Output({"show", "a.txt", "--columns", "Reaction Time", "--limit", "1"}),
            "Reaction\nTime\n--------\n12\n1 of 3 rows, 1 column\n");
  EXPECT_EQ(
      Complaint({"show", "a.txt", "--limit", "x"}),
      "--limit: \"x\" is no number of rows or columns\nRun with --help for more information.\n");
}

TEST_F(Formats, RowNumbersAreThoseThatRowsAndFlagUnderstand) {
  EXPECT_EQ(Output({"show", "a.txt", "--row-numbers", "--last", "1", "--columns", "Event Name"}),
            "row  Event\n     Name\n---  -----\n2    go\n1 of 3 rows, 1 column\n");
  EXPECT_EQ(Output({"show", "a.txt", "--rows", "2", "--columns", "Event Name"}),
            "Event\nName\n-----\ngo\n1 of 3 rows, 1 column\n");
}

TEST_F(Formats, ATableIsFittedIntoAWidthAndWhatWasCutIsTold) {
  const Finished finished = Run({"show", "a.txt", "--width", "16"});
  EXPECT_EQ(finished.out,
            "Event  Reaction\n"
            "Name   Time\n"
            "-----  --------\n"
            "go     12\n"
            "stop   5\n"
            "go     300\n"
            "3 rows, 2 of 4 columns\n");
  EXPECT_EQ(finished.err,
            "tabulon-cli: shown are 3 of 3 rows, 2 of 4 columns; --limit and --width set other "
            "limits, 0 none\n");
}

TEST_F(Formats, ACellThatIsTooWideIsShortened) {
  WriteFile(m_folder / "w.txt", "p\nt\nd\n\nA\tB\n\n\xC3\xA4" + std::string(30, 'x') + "\ty\n");
  const Finished finished = Run({"show", "w.txt", "--width", "10"});
  EXPECT_EQ(finished.out, "A\n\n----------\n\xC3\xA4xxxxxxxx\xE2\x80\xA6\n1 row, 1 of 2 columns\n");
  EXPECT_EQ(
      finished.err,
      "tabulon-cli: shown are 1 of 1 rows, 1 of 2 columns; 1 cells are shortened; --limit and "
      "--width set other limits, 0 none\n");
}

TEST_F(Formats, ATerminalGetsAsMuchAsFits) {
  if (!Tests::Exists("/usr/bin/script")) GTEST_SKIP() << "no program that makes a terminal";
  EXPECT_EQ(OnTerminal(16, "show a.txt"),
            "Event  Reaction\nName   Time\n-----  --------\ngo     12\nstop   5\ngo     300\n"
            "3 rows, 2 of 4 columns\n"
            "tabulon-cli: shown are 3 of 3 rows, 2 of 4 columns; --limit and --width set other "
            "limits, 0 none\n");
  std::string many = "p\nt\nd\n\nA\n\n";
  for (int i = 0; i < 1100; ++i) many += std::to_string(i) + "\n";
  WriteFile(m_folder / "many.txt", many);
  const std::string shown = OnTerminal(80, "show many.txt");
  EXPECT_NE(
      shown.find("\n39\n40 of 1100 rows, 1 column\ntabulon-cli: shown are 40 of 1,100 rows, 1 of 1 "
                 "columns; --limit and --width set other limits, 0 none\n"),
      std::string::npos)
      << shown;
  EXPECT_NE(OnTerminal(80, "show many.txt --limit 0").find("\n1099\n1100 rows, 1 column\n"),
            std::string::npos);
}

TEST_F(Formats, InfoIsShortOnRequest) {
  const Finished finished = Run({"info", "--short", "a.txt", "bad.txt", "--format", "csv"});
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.out,
            "file,title,date,participant,rows,columns,problem\n" + m_folder / "a.txt" +
                ",First experiment,Mon Apr 02 2012,Ann,3,4,\n" + m_folder / "bad.txt" +
                ",,,,0,0,Input file is missing information about the time the experiment was run.  "
                "The second line of the file should contain this information.\n");
  const std::string table = Output({"info", "--short", "a.txt"});
  EXPECT_NE(table.find(m_folder / "a.txt" +
                       "  First experiment  Mon Apr 02 2012  Ann          3     4\n"),
            std::string::npos)
      << table;
}

TEST_F(Formats, InfoIsJsonOnRequest) {
  EXPECT_EQ(Output({"info", "b.txt", "--format", "json"}),
            "[\n  {\"file\":\"" + m_folder / "b.txt" +
                "\",\"title\":\"Second\",\"date\":\"Tue\",\"participant\":\"B\xC3\xA9n\xC3\xA9\","
                "\"rows\":1,\"columns\":["
                "{\"name\":\"Event Name\",\"kind\":\"plain\",\"cells\":\"text\"},"
                "{\"name\":\"Key\",\"kind\":\"plain\",\"cells\":\"text\"},"
                "{\"name\":\"Code\",\"kind\":\"code value\",\"cells\":\"numbers\"}]}\n]\n");
}

}  // namespace
