#include "host/run/Arrivals.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "tests/support/Files.h"

namespace Tests {
namespace {

namespace fs = std::filesystem;
using OmbreliaHost::Arrivals;
using Names = std::vector<std::string>;

// The files' own clock shows another time, so that the clock of the looks alone decides.
class ArrivalsTest : public testing::Test {
 protected:
  void Write(const std::string& name, const std::string& content) {
    WriteFile(m_folder / name, content);
    Date(name, std::chrono::hours(1));
  }
  void Date(const std::string& name, std::chrono::seconds fromNow) {
    fs::last_write_time(m_folder / name, fs::file_time_type::clock::now() + fromNow);
  }
  // What is taken at a look at this time.
  Names TakenAt(double now) {
    m_arrivals.Look(now);
    return m_arrivals.Take(now);
  }

  ScratchFolder m_folder;
  Arrivals m_arrivals{m_folder.Path(), {}};
};

TEST_F(ArrivalsTest, TakesADatafileThatHasNotChangedForASecondOnce) {
  Write("a.txt", "x");
  EXPECT_EQ(TakenAt(10), Names());
  EXPECT_EQ(m_arrivals.Waiting(), Names{"a.txt"});
  EXPECT_EQ(TakenAt(10.9), Names());
  EXPECT_EQ(TakenAt(11), Names{"a.txt"});
  EXPECT_EQ(m_arrivals.Waiting(), Names());
  EXPECT_EQ(TakenAt(20), Names());
}

TEST_F(ArrivalsTest, WaitsWhileADatafileGrows) {
  Write("a.txt", "x");
  EXPECT_EQ(TakenAt(10), Names());
  Write("a.txt", "xx");
  EXPECT_EQ(TakenAt(10.9), Names());
  Write("a.txt", "xxx");
  EXPECT_EQ(TakenAt(11.8), Names());
  EXPECT_EQ(TakenAt(12.8), Names{"a.txt"});
}

TEST_F(ArrivalsTest, TakesAtOnceWhatWasLastChangedBefore) {
  Write("moved.txt", "x");
  Date("moved.txt", std::chrono::seconds(-60));
  EXPECT_EQ(TakenAt(10), Names{"moved.txt"});
}

TEST_F(ArrivalsTest, TakesAgainWhatIsWrittenAgain) {
  Write("a.txt", "x");
  TakenAt(10);
  EXPECT_EQ(TakenAt(11), Names{"a.txt"});
  Write("a.txt", "y");  // as long as before
  EXPECT_EQ(TakenAt(12), Names());
  EXPECT_EQ(TakenAt(13), Names{"a.txt"});
}

TEST_F(ArrivalsTest, TakesARenamedDatafileByItsNewName) {
  Write("a.txt", "x");
  TakenAt(10);
  EXPECT_EQ(TakenAt(11), Names{"a.txt"});
  fs::rename(m_folder / "a.txt", m_folder / "b.txt");
  EXPECT_EQ(TakenAt(12), Names());
  EXPECT_EQ(TakenAt(13), Names{"b.txt"});
}

TEST_F(ArrivalsTest, ForgetsWhatVanishes) {
  Write("a.txt", "x");
  EXPECT_EQ(TakenAt(10), Names());
  fs::remove(m_folder / "a.txt");
  EXPECT_EQ(TakenAt(11), Names());
  EXPECT_EQ(m_arrivals.Waiting(), Names());
}

TEST_F(ArrivalsTest, WaitsForStimulusAreasAndTakesAgainWhenTheyChange) {
  Write("a.txt", "x");
  EXPECT_EQ(TakenAt(10), Names());
  Write("a.stimareas.tsv", "x");
  EXPECT_EQ(TakenAt(11), Names());
  EXPECT_EQ(TakenAt(12), Names{"a.txt"});
  Write("a.stimareas.tsv", "xx");
  EXPECT_EQ(TakenAt(13), Names());
  EXPECT_EQ(TakenAt(14), Names{"a.txt"});
}

TEST_F(ArrivalsTest, PassesOverWhatIsThereUntilItChanges) {
  Write("a.txt", "x");
  m_arrivals.Look(10);
  m_arrivals.PassOver();
  EXPECT_EQ(TakenAt(20), Names());
  Write("a.txt", "xx");
  TakenAt(21);
  EXPECT_EQ(TakenAt(22), Names{"a.txt"});
}

TEST_F(ArrivalsTest, WaitsAnewForWhatChangedAsItWasTaken) {
  Write("a.txt", "x");
  TakenAt(10);
  EXPECT_EQ(TakenAt(11), Names{"a.txt"});
  EXPECT_TRUE(m_arrivals.IsAsTaken("a.txt"));
  Write("a.txt", "xx");
  EXPECT_FALSE(m_arrivals.IsAsTaken("a.txt"));
  m_arrivals.PutBack("a.txt", 11);
  EXPECT_EQ(TakenAt(11.5), Names());
  EXPECT_EQ(TakenAt(12), Names{"a.txt"});
  fs::remove(m_folder / "a.txt");
  EXPECT_FALSE(m_arrivals.IsAsTaken("a.txt"));
  m_arrivals.PutBack("a.txt", 12);
  EXPECT_EQ(m_arrivals.Waiting(), Names());
}

TEST_F(ArrivalsTest, LeavesOutWhatIsNoDatafileOfTheFolder) {
  for (const char* name : {".hidden.txt", "a.dat", "a.txt.part"}) Write(name, "x");
  fs::create_directory(m_folder / "below.txt");
  Write("below.txt/b.txt", "x");
  EXPECT_EQ(TakenAt(10), Names());
  EXPECT_EQ(m_arrivals.Waiting(), Names());
}

TEST_F(ArrivalsTest, TakesOnlyWhatMatches) {
  Write("bells.om5 1.txt", "x");
  Write("rings.om5 1.txt", "x");
  Arrivals bells(m_folder.Path(), {"bells*"});
  bells.Look(10);
  EXPECT_EQ(bells.Waiting(), Names{"bells.om5 1.txt"});
}

TEST_F(ArrivalsTest, SurvivesThatTheFolderGoesAndComes) {
  const std::string folder = m_folder / "run";
  Arrivals arrivals(folder, {});
  arrivals.Look(10);
  fs::create_directory(folder);
  WriteFile(folder + "/a.txt", "x");
  arrivals.Look(11);
  EXPECT_EQ(arrivals.Waiting(), Names{"a.txt"});
  fs::remove_all(folder);
  arrivals.Look(12);
  EXPECT_EQ(arrivals.Waiting(), Names());
}

}  // namespace
}  // namespace Tests
