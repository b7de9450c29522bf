// Which of the data files a run takes: those that match, and of these a share.
#include <sstream>

#include "tests/host/VerifyDatafiles.h"

namespace Tests {
namespace {

class SelectionTest : public VerifyDatafilesTest {
 protected:
  SelectionTest() {
    for (const char* name :
         {"a.om4 1.txt", "a.om5 1.txt", "a.om5 2.txt", "b.om5 1.txt", "c.om5 1.txt"}) {
      m_files.push_back(File(name));
    }
  }
  // The names of the data files that the plug-in got, in order, if the run ended well.
  Arguments Taken(const Arguments& options, const Arguments& environment = {}) {
    Arguments arguments = options;
    arguments.insert(arguments.end(), m_files.begin(), m_files.end());
    WriteFile(m_folder / "calls", "");
    const Finished finished = VerifyWithOwnReport(arguments, environment);
    EXPECT_EQ(finished.status, 0) << finished.err;
    Arguments names;
    std::istringstream lines(Calls());
    const std::string start = "process " + m_folder.Path() + "/";
    for (std::string line; std::getline(lines, line);) {
      if (line.compare(0, start.size(), start) == 0) names.push_back(line.substr(start.size()));
    }
    return names;
  }
  void ExpectWrongUse(const Arguments& options, const Arguments& environment,
                      const std::string& words) {
    Arguments arguments = options;
    arguments.insert(arguments.end(), m_files.begin(), m_files.end());
    const Finished finished = VerifyWithOwnReport(arguments, environment);
    EXPECT_EQ(finished.status, 2);
    EXPECT_NE(finished.err.find(words), std::string::npos) << finished.err;
    EXPECT_FALSE(AnythingRan());
  }
  Arguments m_files;
};

TEST_F(SelectionTest, AGlobMatchesTheNameOrItsPartBeforeTheBlank) {
  EXPECT_EQ(Taken({"--only", "a.om5"}), (Arguments{"a.om5 1.txt", "a.om5 2.txt"}));
  EXPECT_EQ(Taken({"--only", "* 2.txt"}), (Arguments{"a.om5 2.txt"}));
  EXPECT_EQ(Taken({"--only", "[bc]*"}), (Arguments{"b.om5 1.txt", "c.om5 1.txt"}));
}

TEST_F(SelectionTest, SeveralGlobsTakeWhatAnyMatchesInTheOrderGiven) {
  EXPECT_EQ(Taken({"--only", "c.*", "--only", "a.om4"}), (Arguments{"a.om4 1.txt", "c.om5 1.txt"}));
}

TEST_F(SelectionTest, AGlobThatMatchesNothingIsWrongUse) {
  ExpectWrongUse({"--only", "d*"}, {}, "no data file matches --only");
}

TEST_F(SelectionTest, SharesTakeTurnsAndHoldEachDataFileOnce) {
  EXPECT_EQ(Taken({"--partition", "slice:1/2"}),
            (Arguments{"a.om4 1.txt", "a.om5 2.txt", "c.om5 1.txt"}));
  EXPECT_EQ(Taken({"--partition", "slice:2/2"}), (Arguments{"a.om5 1.txt", "b.om5 1.txt"}));
}

TEST_F(SelectionTest, AShareIsOneOfWhatMatches) {
  EXPECT_EQ(Taken({"--only", "a.om5", "--partition", "slice:2/2"}), (Arguments{"a.om5 2.txt"}));
}

TEST_F(SelectionTest, AShareMayBeEmpty) {
  EXPECT_EQ(Taken({"--partition", "slice:6/6"}), Arguments{});
  EXPECT_EQ(Processes().size(), 0u) << "nothing is to be loaded";
}

TEST_F(SelectionTest, APartitionThatIsNoneIsWrongUse) {
  for (const char* partition :
       {"slice:0/2", "slice:3/2", "slice:1", "slice:1/2x", "hash:1/2", "1/2", "slice:-1/2",
        "slice:/", "slice:1/99999999999999999999999"}) {
    ExpectWrongUse({"--partition", partition}, {}, "is not slice:M/N with M from 1 to N");
  }
}

TEST_F(SelectionTest, BuildSystemsCountSharesFromZero) {
  EXPECT_EQ(Taken({}, {"TEST_TOTAL_SHARDS=2", "TEST_SHARD_INDEX=1"}),
            (Arguments{"a.om5 1.txt", "b.om5 1.txt"}));
  EXPECT_EQ(Taken({}, {"GTEST_TOTAL_SHARDS=3", "GTEST_SHARD_INDEX=0"}),
            (Arguments{"a.om4 1.txt", "b.om5 1.txt"}));
}

TEST_F(SelectionTest, BothPairsMayBeSetIfTheyAgree) {
  EXPECT_EQ(Taken({}, {"TEST_TOTAL_SHARDS=2", "TEST_SHARD_INDEX=1", "GTEST_TOTAL_SHARDS=2",
                       "GTEST_SHARD_INDEX=1"}),
            (Arguments{"a.om5 1.txt", "b.om5 1.txt"}));
}

TEST_F(SelectionTest, PairsThatDoNotAgreeAreWrongUse) {
  ExpectWrongUse(
      {},
      {"TEST_TOTAL_SHARDS=2", "TEST_SHARD_INDEX=1", "GTEST_TOTAL_SHARDS=2", "GTEST_SHARD_INDEX=0"},
      "ask for different shares");
}

TEST_F(SelectionTest, HalfAPairIsWrongUse) {
  ExpectWrongUse({}, {"TEST_TOTAL_SHARDS=2"},
                 "TEST_TOTAL_SHARDS is set and TEST_SHARD_INDEX is not");
  ExpectWrongUse({}, {"GTEST_SHARD_INDEX=0"},
                 "GTEST_SHARD_INDEX is set and GTEST_TOTAL_SHARDS is not");
}

TEST_F(SelectionTest, AnIndexBeyondTheLastShareIsWrongUse) {
  ExpectWrongUse({}, {"TEST_TOTAL_SHARDS=2", "TEST_SHARD_INDEX=2"},
                 "TEST_SHARD_INDEX is 2, which is beyond the 2 of TEST_TOTAL_SHARDS");
  ExpectWrongUse({}, {"TEST_TOTAL_SHARDS=0", "TEST_SHARD_INDEX=0"}, "beyond the 0");
  ExpectWrongUse({}, {"TEST_TOTAL_SHARDS=two", "TEST_SHARD_INDEX=0"}, "no whole number");
  ExpectWrongUse({}, {"TEST_TOTAL_SHARDS=2", "TEST_SHARD_INDEX="}, "no whole number");
}

TEST_F(SelectionTest, TheOptionCountsMoreThanTheVariables) {
  EXPECT_EQ(Taken({"--partition", "slice:5/5"}, {"TEST_TOTAL_SHARDS=2", "TEST_SHARD_INDEX=0"}),
            (Arguments{"c.om5 1.txt"}));
}

TEST_F(SelectionTest, ABuildSystemIsToldThatItsSharesAreHeeded) {
  Taken({}, {"TEST_TOTAL_SHARDS=2", "TEST_SHARD_INDEX=0",
             "TEST_SHARD_STATUS_FILE=" + (m_folder / "heeded")});
  EXPECT_TRUE(Exists(m_folder / "heeded"));
}

TEST_F(SelectionTest, AStatusFileThatCannotBeMadeIsWrongUse) {
  ExpectWrongUse({}, {"TEST_SHARD_STATUS_FILE=" + (m_folder / "no such folder/heeded")},
                 "cannot be written");
}

}  // namespace
}  // namespace Tests
