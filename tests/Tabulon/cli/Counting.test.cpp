// Counts, groups and summaries.
#include "tests/Tabulon/cli/CliRun.h"

namespace {

using Tests::Finished;
using Tests::WriteFile;

class Counting : public Tests::CliRun {
 protected:
  void SetUp() override {
    CliRun::SetUp();
    WriteFile(m_folder / "g.txt",
              "p\nt\nd\n\nBlock\tTrial\tReaction\nName\tName\tTime\n"
              "one\tx\t10\n"
              "one\ty\t20\n"
              "two\tx\t\n"
              "one\tx\t40\n"
              "two\tx\tnone\n"
              "one\tx\t 10.5 \n");
  }
  // The output of a run that has something to say on standard error, which said receives.
  std::string Told(const Tests::Arguments& arguments) {
    const Finished finished = Run(arguments);
    EXPECT_EQ(finished.status, 0) << finished.err;
    said = finished.err;
    return finished.out;
  }
  std::string said;
};

TEST_F(Counting, CountListsTheMostFrequentFirst) {
  EXPECT_EQ(Output({"count", "Block Name", "g.txt", "--format", "csv"}),
            "Block Name,n\none,4\ntwo,2\n");
  EXPECT_EQ(Output({"count", "Trial Name,Block Name", "g.txt"}),
            "Trial  Block  n\n"
            "Name   Name\n"
            "-----  -----  -\n"
            "x      one    3\n"
            "x      two    2\n"
            "y      one    1\n"
            "3 rows, 3 columns\n");
}

TEST_F(Counting, CountTellsWhichFilesHoldAnEvent) {
  EXPECT_EQ(
      Output({"count", "file", "a.txt", "b.txt", "--where", "Event Name=go", "--format", "csv"}),
      "file,n\na.txt,2\n");
}

TEST_F(Counting, CountsThatAreEqualKeepTheOrderOfFirstAppearance) {
  EXPECT_EQ(Output({"count", "Reaction Time", "g.txt", "--limit", "2", "--format", "csv"}),
            "Reaction Time,n\n10,1\n20,1\n");
}

TEST_F(Counting, DistinctTakesSeveralColumnsCountsAndFormats) {
  EXPECT_EQ(Output({"distinct", "Block Name,Trial Name", "g.txt", "--format", "csv"}),
            "Block Name,Trial Name\none,x\none,y\ntwo,x\n");
  EXPECT_EQ(Output({"distinct", "Trial Name", "g.txt", "--counts", "--format", "json"}),
            "[\n  {\"Trial Name\": \"x\", \"n\": 5},\n  {\"Trial Name\": \"y\", \"n\": 1}\n]\n");
  EXPECT_EQ(Output({"distinct", "Block Name", "g.txt", "--where", "Trial Name=x", "--limit", "1"}),
            "one\n");
  EXPECT_EQ(Output({"distinct", "line", "g.txt", "--where", "Block Name=two"}), "9\n11\n");
}

TEST_F(Counting, DistinctSaysThatTheColumnComesFirst) {
  EXPECT_EQ(Complaint({"distinct", "g.txt", "Block Name"}),
            "tabulon-cli: Block Name: no such file\n"
            "The column comes before the files, and \"g.txt\" was taken for it.\n");
}

TEST_F(Counting, GroupsHaveTheirMeans) {
  EXPECT_EQ(Told({"group", "g.txt", "--by", "Block Name,Trial Name", "--agg",
                  "mean:Reaction Time,sd:Reaction Time,n,n:Reaction Time", "--format", "csv"}),
            "Block Name,Trial Name,mean Reaction Time,sd Reaction Time,n,n Reaction Time\n"
            "one,x,20.166666666666668,17.17798979314324,3,3\n"
            "one,y,20,,1,1\n"
            "two,x,,,2,0\n");
  EXPECT_EQ(
      said,
      "tabulon-cli: Reaction Time: 2 of 6 cells are no number and stay out, 1 of them empty\n");
}

TEST_F(Counting, TheOtherAggregates) {
  EXPECT_EQ(Told({"group", "g.txt", "--by", "Block Name", "--agg", "min:Reaction Time", "--agg",
                  "max:Reaction Time,median:Reaction Time,sum:Reaction Time", "--format", "json"}),
            "[\n"
            "  {\"Block Name\": \"one\", \"min Reaction Time\": 10, \"max Reaction Time\": 40, "
            "\"median Reaction Time\": 15.25, \"sum Reaction Time\": 80.5},\n"
            "  {\"Block Name\": \"two\", \"min Reaction Time\": null, \"max Reaction Time\": null, "
            "\"median Reaction Time\": null, \"sum Reaction Time\": null}\n"
            "]\n");
}

TEST_F(Counting, WithoutAColumnAllRowsAreOneGroup) {
  EXPECT_EQ(Output({"group", "g.txt", "--agg", "n", "--format", "csv"}), "n\n6\n");
  EXPECT_EQ(
      Output({"group", "g.txt", "--where", "Block Name=three", "--agg", "n", "--format", "csv"}),
      "n\n");
}

TEST_F(Counting, AColumnOfAnAggregateMayHoldAComma) {
  WriteFile(m_folder / "c.txt", "p\nt\nd\n\na,n\tb\n\n1\tx\n3\tx\n");
  EXPECT_EQ(Output({"group", "c.txt", "--by", "b", "--agg", "mean:a,n,n", "--format", "csv"}),
            "b,\"mean a,n\",n\nx,2,2\n");
}

TEST_F(Counting, AnUnknownAggregateIsNamed) {
  EXPECT_EQ(
      Complaint({"group", "g.txt", "--agg", "mode:Block Name"}),
      "tabulon-cli: --agg: \"mode:Block Name\" is none of n, n:COLUMN, mean:COLUMN, sd:COLUMN, "
      "median:COLUMN, min:COLUMN, max:COLUMN, sum:COLUMN\n");
  EXPECT_EQ(Complaint({"group", "g.txt", "--agg", "mean:Foo"})
                .find("tabulon-cli: no column is named \"Foo\""),
            0U);
  EXPECT_NE(Complaint({"group", "g.txt"}).find("--agg is required"), std::string::npos);
}

TEST_F(Counting, SummaryDescribesEachColumn) {
  EXPECT_EQ(Output({"summary", "g.txt", "a.txt", "--format", "csv"}),
            "column,kind,rows,empty,numbers,distinct,least,median,mean,most\n"
            "Event Name,text,9,6,0,3,,,,\n"
            "Block Name,text,9,3,0,3,,,,\n"
            "Trial Name,text,9,3,0,3,,,,\n"
            "Reaction Time,numbers and text,9,1,7,9,5,12,56.785714285714285,300\n"
            "Note,empty,9,9,0,2,,,,\n"
            "Font (Trial Variable),text,9,6,0,3,,,,\n");
}

TEST_F(Counting, SummaryIsOfTheChosenRows) {
  EXPECT_EQ(Output({"summary", "g.txt", "--where", "Block Name=one", "--where", "Trial Name=x",
                    "--format", "csv"}),
            "column,kind,rows,empty,numbers,distinct,least,median,mean,most\n"
            "Block Name,text,3,0,0,1,,,,\n"
            "Trial Name,text,3,0,0,1,,,,\n"
            "Reaction Time,numbers,3,0,3,3,10,10.5,20.166666666666668,40\n");
}

}  // namespace
