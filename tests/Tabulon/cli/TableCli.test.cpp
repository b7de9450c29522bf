// tabulon-cli as a user meets it: the program is run, and what it says is compared whole.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/BuildPaths.h"
#include "tests/Tabulon/cli/CliRun.h"

namespace {

using Tests::Arguments;
using Tests::Exists;
using Tests::Finished;
using Tests::WriteFile;
class TableCli : public Tests::CliRun {};

TEST_F(TableCli, ShowsTheTwoHeadingRowsAsTwoRows) {
  EXPECT_EQ(Output({"show", "a.txt"}),
            "Event  Reaction  Note  Font\n"
            "Name   Time            (Trial Variable)\n"
            "-----  --------  ----  ----------------\n"
            "go     12              red\n"
            "stop   5               blue\n"
            "go     300             red\n"
            "3 rows, 4 columns\n");
}

TEST_F(TableCli, MergesFilesAndWritesUtf8InAnyLocale) {
  const std::string expected =
      "Event Name\tKey\tCode\tReaction Time\tNote\tFont (Trial Variable)\n"
      "go\t\t\t12\t\tred\n"
      "stop\t\t\t5\t \tblue\n"
      "go\t\t\t300\t\tred\n"
      "w\xC3\xA4it\tk\t7\t\t\t\n";
  EXPECT_EQ(Output({"show", "a.txt", "b.txt", "--no-origin", "--format", "tsv"}), expected);
  EXPECT_EQ(Output({"show", "a.txt", "b.txt", "--no-origin", "--format", "tsv"}, {"LC_ALL=C"}),
            expected);
  EXPECT_EQ(Output({"show", "a.txt", "b.txt", "--no-origin", "--format", "tsv"},
                   {"LC_ALL=en_US.ISO-8859-1"}),
            expected);
}

TEST_F(TableCli, AlignsByWhatTheTerminalShows) {
  EXPECT_EQ(Output({"show", "b.txt"}),
            "Event  Key\n"
            "Name        Code\n"
            "-----  ---  ----\n"
            "w\xC3\xA4it   k    7\n"
            "1 row, 3 columns\n");
}

TEST_F(TableCli, AFileGivenTwiceIsLoadedOnce) {
  EXPECT_EQ(Output({"distinct", "Event Name", "a.txt", "./a.txt"}), "go\nstop\n");
  EXPECT_EQ(Output({"show", "a.txt", m_folder / "a.txt", "--rows", "5:", "--columns", "Note"}),
            "Note\n\n----\n0 of 3 rows, 1 column\n");
}

TEST_F(TableCli, SortsByNumberAndByText) {
  const auto column = [this](const Arguments& options) {
    Arguments arguments = {"show", "a.txt", "--format", "tsv", "--columns", "Reaction Time"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return Output(arguments);
  };
  EXPECT_EQ(column({"--sort", "Reaction\\nTime"}), "Reaction Time\n5\n12\n300\n");
  EXPECT_EQ(column({"--sort", "Reaction Time", "--reverse"}), "Reaction Time\n300\n12\n5\n");
  EXPECT_EQ(column({"--sort", "Event\nName"}), "Reaction Time\n12\n300\n5\n");
}

TEST_F(TableCli, HidesColumns) {
  EXPECT_EQ(Output({"show", "a.txt", "--hide-empty", "--hide", "Event Name", "--hide",
                    "Reaction\\nTime", "--no-origin", "--format", "tsv", "--rows", ":0"}),
            "Font (Trial Variable)\nred\n");
}

TEST_F(TableCli, ChoosesAndOrdersColumns) {
  EXPECT_EQ(Output({"show", "--columns", "Font (Trial Variable),Event Name", "a.txt", "--format",
                    "tsv", "--rows", "1"}),
            "Font (Trial Variable)\tEvent Name\nblue\tstop\n");
  EXPECT_EQ(Output({"show", "--columns", "Note", "--columns", "Event\\nName", "a.txt", "--format",
                    "tsv", "--rows", "1:1"}),
            "Note\tEvent Name\n \tstop\n");
}

TEST_F(TableCli, SelectsRows) {
  const std::string go = "Event Name\tReaction Time\ngo\t12\ngo\t300\n";
  const Arguments base = {"show", "a.txt",     "--format",
                          "tsv",  "--columns", "Event Name,Reaction Time"};
  const auto where = [&](const Arguments& conditions) {
    Arguments arguments = base;
    for (const std::string& condition : conditions) {
      arguments.push_back("--where");
      arguments.push_back(condition);
    }
    return Output(arguments);
  };
  EXPECT_EQ(where({"Event Name=go"}), go);
  EXPECT_EQ(where({"Font (Trial Variable)=red", "Event\\nName=go"}), go);
  EXPECT_EQ(where({"Event Name=go", "Reaction Time=300"}), "Event Name\tReaction Time\ngo\t300\n");
  EXPECT_EQ(where({"Note="}), go);
  EXPECT_EQ(where({"Event Name=nobody"}), "Event Name\tReaction Time\n");
}

TEST_F(TableCli, EmptyColumnsAreThoseOfTheSelectedRows) {
  EXPECT_EQ(Output({"show", "a.txt", "b.txt", "--where", "Key=k", "--hide-empty", "--no-origin",
                    "--format", "tsv"}),
            "Event Name\tKey\tCode\nw\xC3\xA4it\tk\t7\n");
}

TEST_F(TableCli, AnEqualsSignMayStandInAName) {
  WriteFile(m_folder / "e.txt", "p\nt\nd\n\na=b\tc,d\n\n1=2\tx\n3\ty\n");
  EXPECT_EQ(Output({"show", "e.txt", "--where", "a=b=1=2", "--format", "tsv", "--columns", "c,d"}),
            "c,d\nx\n");
}

TEST_F(TableCli, MarksRows) {
  EXPECT_EQ(Output({"show", "a.txt", "--sort", "Reaction Time", "--flag", "0", "--flag", "2",
                    "--columns", "Reaction Time"}),
            "Flag  Reaction\n"
            "      Time\n"
            "----  --------\n"
            "*     5\n"
            "      12\n"
            "*     300\n"
            "3 rows, 1 column\n");
  EXPECT_EQ(Output({"show", "a.txt", "--flag", "1", "--columns", "Event Name", "--format", "tsv"}),
            "Flag\tEvent Name\n\tgo\n*\tstop\n\tgo\n");
}

TEST_F(TableCli, WritesJsonWithOneObjectPerRow) {
  WriteFile(m_folder / "q.txt", "p\nt\nd\n\nA\"\tB\n\n\\\t\xC3\xA4\"\n\x01\ty\n");
  EXPECT_EQ(Output({"show", "q.txt", "--format", "json", "--no-origin", "--flag", "1"}),
            "[\n"
            "  {\"Flag\": false, \"A\\\"\": \"\\\\\", \"B\": \"\xC3\xA4\\\"\"},\n"
            "  {\"Flag\": true, \"A\\\"\": \"^A\", \"B\": \"y\"}\n"
            "]\n");
  EXPECT_EQ(Output({"show", "a.txt", "--format", "json", "--rows", "1:0", "--columns", "Note"}),
            "[]\n");
}

// The marks belong to the rows that are printed, whatever the window.
TEST_F(TableCli, JsonMarksTheRowsOfItsWindow) {
  EXPECT_EQ(Output({"show", "a.txt", "--format", "json", "--columns", "Event Name", "--flag", "2",
                    "--rows", "1:", "--row-numbers"}),
            "[\n"
            "  {\"Flag\": false, \"row\": 1, \"Event Name\": \"stop\"},\n"
            "  {\"Flag\": true, \"row\": 2, \"Event Name\": \"go\"}\n"
            "]\n");
}

TEST_F(TableCli, HeadingsCannotSteerTheTerminal) {
  WriteFile(m_folder / "c.txt", "p\nt\x1B[31m\nd\n\n\x1B[2J\n\x07x\nv\n");
  EXPECT_EQ(Output({"show", "c.txt"}), "0x1B 0x5b2J\n^Gx\n-----------\nv\n1 row, 1 column\n");
  EXPECT_EQ(Output({"info", "c.txt"}).find('\x1B'), std::string::npos);
}

TEST_F(TableCli, ListsDistinctTexts) {
  EXPECT_EQ(Output({"distinct", "Event\\nName", "a.txt", "b.txt"}), "go\nstop\nw\xC3\xA4it\n");
  EXPECT_EQ(Output({"distinct", "Key", "a.txt", "b.txt"}), "\nk\n");
}

TEST_F(TableCli, DescribesFiles) {
  EXPECT_EQ(Output({"info", "a.txt", "b.txt"}),
            m_folder / "a.txt" +
                "\n"
                "  title        First experiment\n"
                "  date         Mon Apr 02 2012\n"
                "  participant  Ann\n"
                "  rows         3\n"
                "  columns      4\n"
                "    Event Name             plain           text\n"
                "    Reaction Time          plain           numbers\n"
                "    Note                   plain           empty\n"
                "    Font (Trial Variable)  trial variable  text\n" +
                m_folder / "b.txt" +
                "\n"
                "  title        Second\n"
                "  date         Tue\n"
                "  participant  B\xC3\xA9n\xC3\xA9\n"
                "  rows         1\n"
                "  columns      3\n"
                "    Event Name  plain       text\n"
                "    Key         plain       text\n"
                "    Code        code value  numbers\n");
}

TEST_F(TableCli, ExplainsAFileThatIsNone) {
  const Finished info = Run({"info", "bad.txt", "a.txt"});
  EXPECT_EQ(info.status, 1);
  EXPECT_EQ(info.err, "");
  EXPECT_EQ(info.out.substr(0, info.out.find(m_folder / "a.txt")),
            m_folder / "bad.txt" +
                "\n  no data file\n"
                "  Input file is missing information about the time the experiment was run.  The "
                "second line "
                "of the file should contain this information.\n");
  EXPECT_NE(info.out.find("First experiment"), std::string::npos);
}

TEST_F(TableCli, ShowsTheGoodFilesBesideABadOne) {
  const Finished shown = Run({"show", "bad.txt", "b.txt", "--no-origin", "--format", "tsv"});
  EXPECT_EQ(shown.status, 1);
  EXPECT_EQ(shown.out, "Event Name\tKey\tCode\nw\xC3\xA4it\tk\t7\n");
  EXPECT_EQ(shown.err,
            "tabulon-cli: " + m_folder / "bad.txt" +
                ": Input file is missing information about the time the experiment was run.  The "
                "second line of the file should contain this information.\n");
  const Finished none = Run({"distinct", "Event Name", "bad.txt"});
  EXPECT_EQ(none.status, 1);
  EXPECT_EQ(none.out, "");
}

TEST_F(TableCli, ANameThatIsNoUtf8IsThatOfItsFile) {
  const std::string name = "wrong \xE4.txt";
  EXPECT_EQ(Complaint({"show", name}), "tabulon-cli: " + name + ": no such file\n");
  WriteFile(m_folder / name, Tests::ReadFile(m_folder / "b.txt"));
  for (const char* locale : {"LC_ALL=C", "LC_ALL=C.UTF-8"}) {
    EXPECT_EQ(Output({"show", name, "--no-origin", "--format", "tsv"}, {locale}),
              "Event Name\tKey\tCode\nw\xC3\xA4it\tk\t7\n");
  }
}

TEST_F(TableCli, AMissingFileIsNamedBeforeAnythingRuns) {
  EXPECT_EQ(Complaint({"show", "a.txt", "missing.txt"}),
            "tabulon-cli: missing.txt: no such file\n");
  EXPECT_EQ(Complaint({"distinct", "Key", "/dev/null"}),
            "tabulon-cli: /dev/null: is not an ordinary file\n");
}

TEST_F(TableCli, AnUnknownColumnIsAnsweredWithTheKnownOnes) {
  const std::string columns = "; the columns are:\n  Event\\nName\n  Key\n  Code\n";
  EXPECT_EQ(Complaint({"show", "b.txt", "--sort", "Foo"}),
            "tabulon-cli: no column is named \"Foo\"" + columns);
  EXPECT_EQ(Complaint({"show", "b.txt", "--hide", "Foo"}),
            "tabulon-cli: no column is named \"Foo\"" + columns);
  EXPECT_EQ(Complaint({"show", "b.txt", "--columns", "Key,Foo"}),
            "tabulon-cli: no column is named \"Foo\"" + columns);
  EXPECT_EQ(Complaint({"show", "b.txt", "--where", "Foo=x=y"}),
            "tabulon-cli: no column is named \"Foo\"" + columns);
  EXPECT_EQ(Complaint({"distinct", "Foo", "b.txt"}),
            "tabulon-cli: no column is named \"Foo\"" + columns);
}

TEST_F(TableCli, AnAmbiguousNameIsRefusedAndAnExactOneIsNot) {
  WriteFile(m_folder / "amb.txt",
            "p\nt\nd\n\nEvent\tEvent Name\tA\tA B\nName\t\tB C\tC\n1\t2\t3\t4\n");
  EXPECT_EQ(Output({"distinct", "Event Name", "amb.txt"}), "2\n");
  EXPECT_EQ(Output({"distinct", "Event\\nName", "amb.txt"}), "1\n");
  EXPECT_EQ(Output({"distinct", "A\\nB C", "amb.txt"}), "3\n");
  EXPECT_EQ(
      Complaint({"distinct", "A B C", "amb.txt"}),
      "tabulon-cli: more than one column reads \"A B C\" on one line; use \\n; the columns are:\n"
      "  Event\\nName\n  Event Name\n  A\\nB C\n  A B\\nC\n");
}

TEST_F(TableCli, WrongUseIsNamed) {
  EXPECT_EQ(Complaint({}), "A subcommand is required\nRun with --help for more information.\n");
  EXPECT_NE(Complaint({"show"}).find("files is required"), std::string::npos);
  EXPECT_NE(Complaint({"show", "a.txt", "--format", "xml"}).find("--format"), std::string::npos);
  EXPECT_NE(Complaint({"show", "a.txt", "--reverse"}).find("--sort"), std::string::npos);
  EXPECT_NE(Complaint({"show", "a.txt", "--nonsense"}).find("--nonsense"), std::string::npos);
  for (const std::string rows : {"x", "1:x", "-1:", "1:2:3", "99999999999"}) {
    EXPECT_EQ(
        Complaint({"show", "a.txt", "--rows=" + rows}),
        "--rows: \"" + rows + "\" is not of the form N:M\nRun with --help for more information.\n");
  }
  EXPECT_EQ(Complaint({"show", "a.txt", "--flag=-1"}),
            "--flag: \"-1\" is no row\nRun with --help for more information.\n");
  EXPECT_EQ(Complaint({"show", "a.txt", "--flag", "3"}),
            "tabulon-cli: --flag: there is no row 3; 3 rows are shown\n");
  EXPECT_EQ(Complaint({"show", "a.txt", "--where", "Key"}),
            "tabulon-cli: --where: \"Key\" is not of the form COLUMN=VALUE\n");
}

TEST_F(TableCli, HelpAndVersionAreNoErrors) {
  EXPECT_NE(Output({"--help"}).find("Exit status: 0 fine"), std::string::npos);
  EXPECT_NE(Output({"show", "--help"}).find("--hide-empty"), std::string::npos);
  EXPECT_EQ(Output({"--version"}).substr(0, 12), "tabulon-cli ");
}

TEST_F(TableCli, EveryCommandsHelpHasAnExampleAndTheExitStatuses) {
  const std::string help = Output({"--help"});
  for (const std::string command :
       {"show", "distinct", "count", "group", "summary", "diff", "sql", "info"}) {
    EXPECT_NE(help.find("\n  tabulon-cli " + command + " "), std::string::npos) << command;
    const std::string own = Output({command, "--help"});
    EXPECT_NE(own.find("\n  tabulon-cli " + command + " "), std::string::npos) << command;
    EXPECT_NE(own.find("Exit status: 0 fine"), std::string::npos) << command;
  }
}

TEST_F(TableCli, AFullDeviceIsNoSuccess) {
  if (!Exists("/dev/full")) GTEST_SKIP() << "no /dev/full";
  const std::string command =
      std::string(OMBRELIA_TABULON_CLI) + " show '" + m_folder / "a.txt" + "' > /dev/full";
  const Finished finished = Tests::RunProgram({"/bin/sh", "-c", command});
  EXPECT_EQ(finished.status, 3);
  EXPECT_EQ(finished.err, "tabulon-cli: the output cannot be written\n");
}

TEST_F(TableCli, OddFileNamesAreFound) {
  const std::string name = "w\xC3\xA4 \xFF.txt";
  WriteFile(m_folder / name, "p\nt\nd\n\nA\n\nv\n");
  EXPECT_EQ(Output({"distinct", "A", name}), "v\n");
}

TEST_F(TableCli, LeavesNothingBehind) {
  Output({"show", "a.txt"});
  EXPECT_EQ(Tests::NamesIn(m_folder.Path()), Arguments({"a.txt", "b.txt", "bad.txt"}));
}

}  // namespace
