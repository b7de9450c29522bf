// verify-datafiles list.
#include <nlohmann/json.hpp>

#include "tests/BuildPaths.h"
#include "tests/host/VerifyDatafiles.h"

namespace {

class ListTest : public Tests::VerifyDatafilesTest {
 protected:
  nlohmann::json Manifest() const {
    return nlohmann::json::parse(Tests::ReadFile(std::string(OMBRELIA_SOURCE_DIR) +
                                                 "/verifiers/manifest.json"))["verifiers"];
  }
};

TEST_F(ListTest, ShowsEachExperimentAndWhatItProves) {
  const Tests::Finished list = Verify({"list"});
  EXPECT_EQ(list.status, 0) << list.err;
  EXPECT_EQ(list.err, "");
  std::size_t place = 0;
  for (const auto& verifier : Manifest()) {
    const std::string entry = verifier["experiment"].get<std::string>() + "\n    " +
                              verifier["proves"].get<std::string>() + "\n";
    place = list.out.find(entry, place);
    ASSERT_NE(place, std::string::npos) << entry;
  }
}

TEST_F(ListTest, ShowsOnlyWhatMatches) {
  const Tests::Finished list =
      Verify({"list", "--only", "2011-06-17*", "--only", "mac_input_settings_45_???.om4"});
  EXPECT_EQ(list.status, 0) << list.err;
  EXPECT_NE(list.out.find("mac_input_settings_45_one.om4\n"), std::string::npos);
  EXPECT_NE(list.out.find("    Its data file cannot be read.\n"), std::string::npos);
  EXPECT_NE(list.out.find("2011-06-17_test_all_randomization_for_case_983.om4\n"),
            std::string::npos);
  EXPECT_NE(list.out.find("    May fail now and then: Rand_Trials_In_Block_Every_Time\n"
                          "    May fail now and then: Rand_Events_In_Trial_Every_Time\n"),
            std::string::npos);
  EXPECT_EQ(list.out.find("two_sublists"), std::string::npos);
}

TEST_F(ListTest, EndsWithoutAMatch) {
  const Tests::Finished list = Verify({"list", "--only", "two_sublists"});
  EXPECT_EQ(list.status, 2);
  EXPECT_EQ(list.out, "");
  EXPECT_EQ(list.err, "verify-datafiles: no experiment matches\n");
}

TEST_F(ListTest, GivesJson) {
  const Tests::Finished list = Verify({"list", "--json"});
  EXPECT_EQ(list.status, 0) << list.err;
  const nlohmann::json json = nlohmann::json::parse(list.out);
  EXPECT_EQ(json["format"], 1);
  const nlohmann::json manifest = Manifest();
  ASSERT_EQ(json["experiments"].size(), manifest.size());
  for (std::size_t i = 0; i < manifest.size(); ++i) {
    const nlohmann::json& experiment = json["experiments"][i];
    EXPECT_EQ(experiment["experiment"], manifest[i]["experiment"]);
    EXPECT_EQ(experiment["proves"], manifest[i]["proves"]);
    EXPECT_EQ(experiment["verifier"], manifest[i]["class"]);
    EXPECT_EQ(experiment["expect_empty_datafile"], manifest[i]["expect_empty_datafile"]);
    std::string tolerated;
    for (const auto& test : experiment["tolerated_failures"])
      tolerated += (tolerated.empty() ? "" : ", ") + test.get<std::string>();
    EXPECT_EQ(tolerated, manifest[i]["tolerated_failures"]);
  }
}

// The verifiers are linked into the program, the plug-in object is not.
TEST_F(ListTest, LeavesNoFlagFileAndNoReport) {
  m_folder.MakeReportFolder();
  EXPECT_EQ(Verify({"list"}).status, 0);
  EXPECT_EQ(Tests::NamesIn(m_folder.ReportFolder()), std::vector<std::string>());
}

}  // namespace
