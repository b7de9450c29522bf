// In which order --sort puts rows.
#include "tests/Tabulon/cli/CliRun.h"

namespace {

using Tests::Finished;
using Tests::WriteFile;

class Ordering : public Tests::CliRun {
 protected:
  void SetUp() override {
    CliRun::SetUp();
    WriteFile(m_folder / "s.txt",
              "p\nt\nd\n\nGroup\tSize\tName\tReaction\n\t\t\tTime\n"
              "b\t10\tn1\t30\n"
              "a\t9\tn2\t4\n"
              "b\t\tn3\t\n"
              "a\t10\tn4\t100\n"
              "b\t2\tn5\t30\n");
  }
  std::string Names(const std::string& keys) {
    const Finished finished =
        Run({"show", "s.txt", "--sort=" + keys, "--columns", "Name", "--format", "csv"});
    EXPECT_EQ(finished.status, 0) << finished.err;
    lastError = finished.err;
    std::string names = finished.out.substr(finished.out.find('\n') + 1);
    for (char& byte : names) {
      if (byte == '\n') byte = ' ';
    }
    return names;
  }
  std::string lastError;
};

TEST_F(Ordering, SeveralKeysDecideOneAfterTheOther) {
  EXPECT_EQ(Names("Group,Name"), "n2 n4 n1 n3 n5 ");
  EXPECT_EQ(Names("Group,-Name"), "n4 n2 n5 n3 n1 ");
  EXPECT_EQ(Names("-Group,Name"), "n1 n3 n5 n2 n4 ");
}

TEST_F(Ordering, AKeyIsSortedAsNumbersOnRequest) {
  EXPECT_EQ(Names("Size:n,Name"), "n5 n2 n1 n4 n3 ");
  EXPECT_EQ(lastError, "");
  // What is no number comes last in either direction.
  EXPECT_EQ(Names("-Size:n"), "n1 n4 n2 n5 n3 ");
}

TEST_F(Ordering, WithoutItTheTablesOwnOrderHolds) {
  EXPECT_EQ(Names("Size"), "n3 n1 n4 n5 n2 ");
  EXPECT_EQ(lastError,
            "tabulon-cli: --sort: \"Size\" holds only numbers and was sorted as text; \"Size:n\" "
            "sorts by number\n");
  // The reaction time sorts as a number by itself, also beside another key; a row without one is first.
  EXPECT_EQ(Names("Reaction Time"), "n3 n2 n1 n5 n4 ");
  EXPECT_EQ(lastError, "");
  EXPECT_EQ(Names("Group,Reaction Time"), "n2 n4 n3 n1 n5 ");
  EXPECT_EQ(Names("Group,-Reaction Time"), "n4 n2 n1 n5 n3 ");
}

TEST_F(Ordering, RowsThatAreEqualStayInLoadOrder) {
  EXPECT_EQ(Names("Group"), "n2 n4 n1 n3 n5 ");
  EXPECT_EQ(Names("-Group"), "n1 n3 n5 n2 n4 ");
  EXPECT_EQ(Names("Group,Group"), "n2 n4 n1 n3 n5 ");
}

TEST_F(Ordering, TextsAsOneToTheTableAreOneBesideAnotherKey) {
  WriteFile(m_folder / "s.txt", "p\nt\nd\n\nKey\tName\n\nab \t2\nab\t1\naa\t3\n");
  EXPECT_EQ(Names("Key,Name:n"), "3 1 2 ");
}

TEST_F(Ordering, RowsAreSortedByWhereTheyComeFrom) {
  EXPECT_EQ(Output({"show", "b.txt", "a.txt", "--sort", "file,-line", "--columns", "file,line",
                    "--format", "csv"}),
            "file,line\na.txt,9\na.txt,8\na.txt,7\nb.txt,7\n");
}

TEST_F(Ordering, ReverseTurnsEveryKeyRound) {
  EXPECT_EQ(Output({"show", "s.txt", "--sort", "Group,-Name", "--reverse", "--columns", "Name",
                    "--format", "csv"}),
            "Name\nn1\nn3\nn5\nn2\nn4\n");
}

TEST_F(Ordering, AColumnsWholeNameComesBeforeTheSigns) {
  WriteFile(m_folder / "s.txt", "p\nt\nd\n\n-a\tx:n\tc,d\n\n1\t10\tv\n2\t9\tu\n");
  const auto first = [this](const std::string& key) {
    return Output(
        {"show", "s.txt", "--sort=" + key, "--columns", "c,d", "--limit", "1", "--format", "csv"});
  };
  EXPECT_EQ(first("c,d"), "\"c,d\"\nu\n");
  EXPECT_EQ(first("-c,d"), "\"c,d\"\nv\n");
  EXPECT_EQ(first("x:n:n"), "\"c,d\"\nu\n");
  EXPECT_EQ(first("--a:n"), "\"c,d\"\nu\n");
}

TEST_F(Ordering, AnUnknownKeyIsNamed) {
  EXPECT_EQ(Complaint({"show", "b.txt", "--sort=Key,-Foo:n"})
                .find("tabulon-cli: no column is named \"Foo\"; the columns are:"),
            0U);
  EXPECT_EQ(Complaint({"show", "b.txt", "--sort", ""}).find("tabulon-cli: no column is named \"\""),
            0U);
}

TEST_F(Ordering, FlagsAndWindowsCountInTheSortedOrder) {
  EXPECT_EQ(Output({"show", "s.txt", "--sort", "Group,-Name", "--flag", "1", "--rows", "1:2",
                    "--row-numbers", "--columns", "Name", "--format", "csv"}),
            "Flag,row,Name\n*,1,n2\n,2,n5\n");
}

}  // namespace
