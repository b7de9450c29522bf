// How columns are named, chosen, merged and told apart.
#include "tests/Tabulon/cli/CliRun.h"

namespace {

using Tests::WriteFile;

class ColumnsOfTheCli : public Tests::CliRun {};

TEST_F(ColumnsOfTheCli, OriginTellsWhereARowComesFrom) {
  EXPECT_EQ(
      Output({"show", "a.txt", "b.txt", "--origin", "--columns", "Event Name"}),
      "file   line  title             date             participant  Event\n"
      "                                                             Name\n"
      "-----  ----  ----------------  ---------------  -----------  -----\n"
      "a.txt  7     First experiment  Mon Apr 02 2012  Ann          go\n"
      "a.txt  8     First experiment  Mon Apr 02 2012  Ann          stop\n"
      "a.txt  9     First experiment  Mon Apr 02 2012  Ann          go\n"
      "b.txt  7     Second            Tue              B\xC3\xA9n\xC3\xA9         w\xC3\xA4it\n"
      "4 rows, 6 columns\n");
}

TEST_F(ColumnsOfTheCli, MachineReadableFormatsHaveTheOriginUnlessToldOtherwise) {
  EXPECT_EQ(Output({"show", "b.txt", "--format", "csv"}),
            "file,line,title,date,participant,Event Name,Key,Code\n"
            "b.txt,7,Second,Tue,B\xC3\xA9n\xC3\xA9,w\xC3\xA4it,k,7\n");
  EXPECT_EQ(Output({"show", "b.txt", "--format", "csv", "--no-origin"}),
            "Event Name,Key,Code\nw\xC3\xA4it,k,7\n");
  EXPECT_EQ(Output({"show", "b.txt", "--format", "csv", "--columns", "line,Key"}),
            "line,Key\n7,k\n");
  EXPECT_EQ(Output({"show", "b.txt", "--format", "md"}).find("file"), std::string::npos);
}

TEST_F(ColumnsOfTheCli, ADataColumnKeepsItsNameBesideOneOfOrigin) {
  WriteFile(m_folder / "f.txt", "p\nt\nd\n\nfile\tDate\n\nmine\ttoday\n");
  EXPECT_EQ(Output({"show", "f.txt", "--format", "csv"}),
            "file#,line,title,date#,participant,file,Date\nf.txt,7,t,d,p,mine,today\n");
  EXPECT_EQ(Output({"distinct", "file", "f.txt"}), "mine\n");
  EXPECT_EQ(Output({"distinct", "file#", "f.txt"}), "f.txt\n");
}

TEST_F(ColumnsOfTheCli, PatternsChooseAndHideSeveral) {
  EXPECT_EQ(Output({"show", "a.txt", "--columns", "*e", "--format", "csv", "--rows", "0"}),
            "Event Name,Reaction Time,Note\ngo,12,\n");
  EXPECT_EQ(
      Output({"show", "a.txt", "--hide", "*e", "--no-origin", "--format", "csv", "--rows", "0"}),
      "Font (Trial Variable)\nred\n");
  EXPECT_EQ(
      Output({"show", "a.txt", "--columns", "f?nt*,event*", "--format", "csv", "--rows", "0"}),
      "Font (Trial Variable),Event Name\nred,go\n");
  EXPECT_EQ(Complaint({"show", "a.txt", "--columns", "x*"})
                .find("tabulon-cli: no column is named \"x*\""),
            0U);
}

TEST_F(ColumnsOfTheCli, ANameInAnotherCaseIsFoundIfOnlyOneReadsSo) {
  EXPECT_EQ(Output({"distinct", "event name", "a.txt"}), "go\nstop\n");
  EXPECT_EQ(Output({"distinct", "EVENT\\nNAME", "a.txt"}), "go\nstop\n");
  WriteFile(m_folder / "c.txt", "p\nt\nd\n\nAB C\tx\nd\ty\n1\t2\n");
  WriteFile(m_folder / "d.txt", "p\nt\nd\n\nab C\tx\nd\ty\n3\t4\n");
  EXPECT_EQ(Output({"distinct", "ab C d", "c.txt", "d.txt"}), "\n3\n");
  EXPECT_EQ(Complaint({"distinct", "ab c d", "c.txt", "d.txt"})
                .find("tabulon-cli: more than one column reads \"ab c d\" on one line"),
            0U);
}

TEST_F(ColumnsOfTheCli, ANameThatIsNearlyRightIsSuggested) {
  EXPECT_EQ(
      Complaint({"distinct", "Evnt Name", "b.txt"}),
      "tabulon-cli: no column is named \"Evnt Name\"; did you mean \"Event Name\"? The columns "
      "are:\n  Event\\nName\n  Key\n  Code\n");
}

TEST_F(ColumnsOfTheCli, EmptyNamesAreNoNames) {
  EXPECT_EQ(
      Complaint({"show", "b.txt", "--columns", ""}).find("tabulon-cli: no column is named \"\""),
      0U);
  EXPECT_EQ(Complaint({"show", "b.txt", "--hide", ""}).find("tabulon-cli: no column is named \"\""),
            0U);
  EXPECT_EQ(Complaint({"show", "b.txt", "--rows", ""}),
            "--rows: \"\" is not of the form N:M\nRun with --help for more information.\n");
}

TEST_F(ColumnsOfTheCli, HeadingsThatBeginAlikeBecomeOneColumn) {
  WriteFile(m_folder / "m1.txt", "p\nt\nd\n\nA\tExpansion Time(ms): 27\tB\n\n1\t-\t2\n");
  WriteFile(m_folder / "m2.txt", "p\nt\nd\n\nA\tB\tExpansion Time(ms): 31\n\n3\t4\tx\n");
  EXPECT_EQ(Output({"show", "m1.txt", "m2.txt", "--merge-headings",
                    "Expansion Time(ms): ", "--no-origin", "--format", "csv"}),
            "A,Expansion Time(ms),B\n1,-,2\n3,x,4\n");
  EXPECT_EQ(Output({"distinct", "Expansion", "m1.txt", "m2.txt", "--merge-headings", "Expansion",
                    "--where", "Expansion!=x"}),
            "-\n");
  EXPECT_EQ(Complaint({"show", "a.txt", "--merge-headings", "Foo"}),
            "tabulon-cli: --merge-headings: no column's name begins with \"Foo\"\n");
}

TEST_F(ColumnsOfTheCli, TwoNamesThatReadAlikeOnOneLineAreTold) {
  WriteFile(m_folder / "amb.txt", "p\nt\nd\n\nA\tA B\nB C\tC\n3\t4\n");
  EXPECT_EQ(Output({"show", "amb.txt", "--no-origin", "--format", "csv"}), "A B C,A B C#\n3,4\n");
  EXPECT_EQ(Output({"distinct", "A B C#", "amb.txt"}), "4\n");
}

}  // namespace
