// What diff finds.
#include <algorithm>

#include "tests/Tabulon/cli/CliRun.h"

namespace {

using Tests::Arguments;
using Tests::Finished;
using Tests::WriteFile;

class DiffOfTheCli : public Tests::CliRun {
 protected:
  // Two files with these rows.
  void Write(const std::string& a, const std::string& b) {
    WriteFile(m_folder / "x.txt", "p\nt\nd\n\nTrial\tTime\n\n" + a);
    WriteFile(m_folder / "y.txt", "p\nt\nd\n\nTrial\tTime\n\n" + b);
  }
  std::string Differences(const Arguments& options = {}, int status = 1) {
    Arguments arguments = {"diff", "x.txt", "y.txt", "--format", "csv"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const Finished finished = Run(arguments);
    EXPECT_EQ(finished.status, status);
    EXPECT_EQ(finished.err, "");
    return finished.out.substr(finished.out.find('\n') + 1);
  }
};

TEST_F(DiffOfTheCli, EqualFilesGiveNothing) {
  Write("a\t1\n", "a\t1\n");
  EXPECT_EQ(Output({"diff", "x.txt", "y.txt"}), "");
  EXPECT_EQ(Differences({}, 0), "");
}

TEST_F(DiffOfTheCli, ACellThatDiffersIsShownWithItsPlaces) {
  Write("a\t1\nb\t2\n", "a\t1\nb\t3\n");
  const Finished finished = Run({"diff", "x.txt", "y.txt"});
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.out,
            "change  at A     at B     column  A  B\n"
            "------  -------  -------  ------  -  -\n"
            "cell    x.txt:8  y.txt:8  Time    2  3\n"
            "1 row, 6 columns\n");
}

TEST_F(DiffOfTheCli, RowsThatWerePutInOrLeftOutDoNotMoveTheOthers) {
  Write("a\t1\nb\t2\nc\t3\nd\t4\ne\t5\n", "b\t2\nc\t3\nnew\t9\nd\t4\nf\t5\n");
  EXPECT_EQ(Differences(),
            "row only in A,x.txt:7,,,a\t1,\n"
            "row only in B,,y.txt:9,,,new\t9\n"
            "cell,x.txt:11,y.txt:11,Trial,e,f\n");
  Write("b\t2\nc\t3\n", "a\t1\nb\t2\nc\t3\nz\t1\n");
  EXPECT_EQ(Differences(), "row only in B,,y.txt:7,,,a\t1\nrow only in B,,y.txt:10,,,z\t1\n");
}

TEST_F(DiffOfTheCli, RowsOfOneKeyAreCompared) {
  Write("a\t1\nb\t2\na\t3\n", "b\t5\na\t1\na\t4\nc\t7\n");
  EXPECT_EQ(Differences({"--key", "Trial"}),
            "cell,x.txt:8,y.txt:7,Time,2,5\n"
            "cell,x.txt:9,y.txt:9,Time,3,4\n"
            "row only in B,,y.txt:10,,,c\t7\n");
}

TEST_F(DiffOfTheCli, NumbersMayDifferWithinTheTolerance) {
  Write("a\t100\nb\t200\nc\tx\n", "a\t105\nb\t206\nc\ty\n");
  EXPECT_EQ(Differences({"--tolerance", "Time=5"}),
            "cell,x.txt:8,y.txt:8,Time,200,206\ncell,x.txt:9,y.txt:9,Time,x,y\n");
  Write("a\t100\n", "a\t100.0\n");
  EXPECT_EQ(Differences({"--tolerance", "Time=0"}, 0), "");
}

TEST_F(DiffOfTheCli, ColumnsOfOnlyOneSideAreTold) {
  WriteFile(m_folder / "x.txt", "p\nt\nd\n\nTrial\tTime\n\na\t1\n");
  WriteFile(m_folder / "y.txt", "p\nt\nd\n\nTrial\tNote\n\na\t2\n");
  EXPECT_EQ(Differences(), "column only in A,,,Time,,\ncolumn only in B,,,Note,,\n");
}

TEST_F(DiffOfTheCli, WhatIsChosenIsCompared) {
  Write("a\t1\nb\t2\n", "a\t1\nb\t3\n");
  EXPECT_EQ(Differences({"--where", "Trial=a"}, 0), "");
}

TEST_F(DiffOfTheCli, TroubleIsNotADifference) {
  EXPECT_EQ(Run({"diff", "a.txt", "missing.txt"}).status, 2);
  EXPECT_EQ(
      Complaint({"diff", "a.txt", "bad.txt"}).find("tabulon-cli: bad.txt: Input file is missing"),
      0U);
  EXPECT_EQ(Complaint({"diff", "a.txt", "a.txt", "--tolerance", "Note"}),
            "tabulon-cli: --tolerance: \"Note\" is not of the form COLUMN=N\n");
  EXPECT_EQ(Complaint({"diff", "a.txt", "a.txt", "--tolerance", "Note=-1"}),
            "tabulon-cli: --tolerance: \"Note=-1\" is not of the form COLUMN=N\n");
  EXPECT_EQ(Complaint({"diff", "a.txt", "b.txt", "--key", "Note"}),
            "tabulon-cli: \"Note\" is no column of both\n");
}

// The shortest way is looked for up to a limit; a rough one is found for any two files.
TEST_F(DiffOfTheCli, FilesWithoutACommonRowAreCompared) {
  std::string a;
  std::string b;
  for (int i = 0; i < 3000; ++i) {
    a += "a" + std::to_string(i) + "\t1\n";
    b += "b" + std::to_string(i) + "\t1\n";
  }
  Write(a, b);
  const std::string differences = Differences();
  EXPECT_EQ(differences.substr(0, differences.find('\n')), "cell,x.txt:7,y.txt:7,Trial,a0,b0");
  EXPECT_EQ(std::count(differences.begin(), differences.end(), '\n'), 3000);
}

}  // namespace
