// Which rows --where keeps.
#include "tests/Tabulon/cli/CliRun.h"

namespace {

using Tests::Arguments;
using Tests::WriteFile;

class Selecting : public Tests::CliRun {
 protected:
  void SetUp() override {
    CliRun::SetUp();
    WriteFile(m_folder / "t.txt",
              "p\nt\nd\n\nEvent\tReaction\tNote\nName\tTime\t\n"
              "go\t9\tx|y\n"
              "stop\t12\t/a/\n"
              "Go on\t100\tn/a\n"
              "w\xC3\xA4it\t\t-1.5e1\n");
  }
  // The events of the rows that fit all conditions, one per line.
  std::string Events(const Arguments& conditions) {
    Arguments arguments = {"distinct", "Event Name", "t.txt"};
    for (const std::string& condition : conditions) {
      arguments.push_back("--where");
      arguments.push_back(condition);
    }
    return Output(arguments);
  }
};

TEST_F(Selecting, EqualAndNotEqualCompareWholeTexts) {
  EXPECT_EQ(Events({"Event Name=go"}), "go\n");
  EXPECT_EQ(Events({"Event Name!=go"}), "stop\nGo on\nw\xC3\xA4it\n");
  EXPECT_EQ(Events({"Reaction Time="}), "w\xC3\xA4it\n");
  EXPECT_EQ(Events({"Reaction Time=12.0"}), "");
}

TEST_F(Selecting, OneOfTheValuesMustFitAndNoneWhereNoneMay) {
  EXPECT_EQ(Events({"Event Name=go|w\xC3\xA4it"}), "go\nw\xC3\xA4it\n");
  EXPECT_EQ(Events({"Event Name!=go|w\xC3\xA4it"}), "stop\nGo on\n");
  EXPECT_EQ(Events({"Event Name~top|on"}), "stop\nGo on\n");
  EXPECT_EQ(Events({"Reaction Time>50|<"}), "Go on\n");
}

TEST_F(Selecting, AnEscapedBarIsTheCharacterItself) {
  EXPECT_EQ(Events({"Note=x\\|y"}), "go\n");
  EXPECT_EQ(Events({"Note=x|y"}), "");
}

TEST_F(Selecting, SeveralConditionsMustAllFit) {
  EXPECT_EQ(Events({"Reaction Time>=12", "Event Name~o"}), "stop\nGo on\n");
}

TEST_F(Selecting, OrderIsThatOfNumbersWhereTheValueIsOne) {
  EXPECT_EQ(Events({"Reaction Time<12"}), "go\n");
  EXPECT_EQ(Events({"Reaction Time<=12"}), "go\nstop\n");
  EXPECT_EQ(Events({"Reaction Time>9"}), "stop\nGo on\n");
  EXPECT_EQ(Events({"Reaction Time>=1e2"}), "Go on\n");
  EXPECT_EQ(Events({"Note<0"}), "w\xC3\xA4it\n");
}

TEST_F(Selecting, OrderIsThatOfTextsWhereTheValueIsNoNumber) {
  EXPECT_EQ(Events({"Event Name<go"}), "Go on\n");
  EXPECT_EQ(Events({"Event Name>=stop"}), "stop\nw\xC3\xA4it\n");
}

TEST_F(Selecting, ContainedTextIsFoundInAnyWidth) {
  EXPECT_EQ(Events({"Event Name~\xC3\xA4"}), "w\xC3\xA4it\n");
  EXPECT_EQ(Events({"Event Name~o o"}), "Go on\n");
  EXPECT_EQ(Events({"Event Name~"}), "go\nstop\nGo on\nw\xC3\xA4it\n");
}

TEST_F(Selecting, PatternsAreWrittenInTwoWays) {
  EXPECT_EQ(Events({"Event Name/^[gG]o/"}), "go\nGo on\n");
  EXPECT_EQ(Events({"Event Name~/^(go|stop)$/"}), "go\nstop\n");
  EXPECT_EQ(Events({"Event Name~/^.\xC3\xA4/"}), "w\xC3\xA4it\n");
  // After an equals sign the slashes are part of the text.
  EXPECT_EQ(Events({"Note=/a/"}), "stop\n");
}

TEST_F(Selecting, ABrokenPatternIsExplained) {
  const std::string complaint = Complaint({"show", "t.txt", "--where", "Event Name/(/"});
  EXPECT_EQ(complaint.find("tabulon-cli: --where: Invalid regular expression '(': "), 0U)
      << complaint;
}

TEST_F(Selecting, AnOperatorMayStandInAColumnsName) {
  WriteFile(m_folder / "o.txt", "p\nt\nd\n\na<b\tx/y\n\n1\tu/v/\n2\tw\n");
  EXPECT_EQ(Output({"distinct", "x/y", "o.txt", "--where", "a<b<2"}), "u/v/\n");
  EXPECT_EQ(Output({"distinct", "a<b", "o.txt", "--where", "x/y/^w/"}), "2\n");
}

TEST_F(Selecting, RowsAreChosenByWhereTheyComeFrom) {
  EXPECT_EQ(Output({"distinct", "Event Name", "a.txt", "b.txt", "--where", "file~b.txt"}),
            "w\xC3\xA4it\n");
  EXPECT_EQ(Output({"distinct", "Event Name", "a.txt", "b.txt", "--where", "title=First experiment",
                    "--where", "line>=8", "--where", "line<9"}),
            "stop\n");
  EXPECT_EQ(Output({"distinct", "Event Name", "a.txt", "b.txt", "--where", "participant=Ann"}),
            "go\nstop\n");
}

TEST_F(Selecting, AConditionWithoutAKnownColumnIsRefused) {
  EXPECT_EQ(Complaint({"show", "b.txt", "--where", "key"}),
            "tabulon-cli: --where: \"key\" is not of the form COLUMN=VALUE\n");
  EXPECT_EQ(Complaint({"show", "b.txt", "--where", "Foo>=3"}),
            "tabulon-cli: no column is named \"Foo\"; the columns are:\n  Event\\nName\n  Key\n"
            "  Code\n");
}

}  // namespace
