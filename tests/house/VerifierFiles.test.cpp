// What the configuration says when the manifest of the verifiers and the files beside it do not agree.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "tests/BuildPaths.h"
#include "tests/support/Files.h"
#include "tests/support/Process.h"

namespace Tests {
namespace {

namespace fs = std::filesystem;

class VerifierFiles : public testing::Test {
 protected:
  void SetUp() override {
    fs::create_directories(m_folder / "verifiers");
    fs::create_directories(m_folder / "tests/verifiers");
    fs::create_directories(m_folder / "samples/datafiles");
    WriteFile(m_folder / "verifiers/manifest.json",
              R"({"verifiers": [{"class": "Bells", "experiment": "two bells.om5"}]})");
    WriteFile(m_folder / "verifiers/Bells.cpp",
              "namespace Ombrelia {}\n\nOMBRELIA_DEFINE_VERIFIER(Bells, false);\n");
    WriteFile(m_folder / "tests/verifiers/Bells.test.cpp", "");
    WriteFile(m_folder / "samples/datafiles/two bells.om5 1.txt", "");
  }

  // The words of the check on standard error, with runs of white space folded; empty if it found nothing.
  std::string Problems() {
    const Finished finished =
        RunProgram({OMBRELIA_CMAKE_COMMAND, "-D", "ROOT=" + m_folder.Path(), "-P",
                    std::string(OMBRELIA_SOURCE_DIR) + "/cmake/CheckVerifierFiles.cmake"},
                   ProcessSetup());
    EXPECT_EQ(finished.status == 0, finished.err.empty());
    std::string folded;
    for (const char c : finished.err) {
      const bool blank = c == ' ' || c == '\n';
      if (!blank) folded += c;
      if (blank && !folded.empty() && folded.back() != ' ') folded += ' ';
    }
    return folded;
  }
  void ExpectProblem(const std::string& sentence) {
    EXPECT_NE(Problems().find(sentence), std::string::npos) << Problems();
  }

  ScratchFolder m_folder;
};

TEST_F(VerifierFiles, ThatAreAllThereAreNoProblem) { EXPECT_EQ(Problems(), ""); }

TEST_F(VerifierFiles, AnEntryWithoutItsSourceIsNamed) {
  fs::remove(m_folder / "verifiers/Bells.cpp");
  ExpectProblem(
      "verifiers/manifest.json lists Bells, whose source verifiers/Bells.cpp is missing.");
}

TEST_F(VerifierFiles, AnEntryWithoutItsTestIsNamed) {
  fs::remove(m_folder / "tests/verifiers/Bells.test.cpp");
  ExpectProblem(
      "verifiers/manifest.json lists Bells, whose test tests/verifiers/Bells.test.cpp is missing.");
}

TEST_F(VerifierFiles, AnEntryWithoutItsSampleIsNamed) {
  fs::remove(m_folder / "samples/datafiles/two bells.om5 1.txt");
  ExpectProblem("whose sample samples/datafiles/two bells.om5 1.txt is missing.");
}

TEST_F(VerifierFiles, ASourceWithoutItsEntryIsNamed) {
  WriteFile(m_folder / "verifiers/Gong.cpp", "OMBRELIA_DEFINE_VERIFIER(Gong, false);\n");
  ExpectProblem("verifiers/Gong.cpp has no entry of class Gong in verifiers/manifest.json.");
}

TEST_F(VerifierFiles, ASourceWithoutItsLastMacroIsNamed) {
  WriteFile(m_folder / "verifiers/Bells.cpp", "OMBRELIA_DEFINE_VERIFIER(Gong, false);\n");
  ExpectProblem("verifiers/Bells.cpp does not end with OMBRELIA_DEFINE_VERIFIER(Bells, ...)");
}

// What the manifest says of the tests that chance may fail.
class ChanceInTheManifest : public VerifierFiles {
 protected:
  void Say(const std::string& members) {
    WriteFile(
        m_folder / "verifiers/manifest.json",
        R"({"verifiers": [{"class": "Bells", "experiment": "two bells.om5", )" + members + "}]}");
  }
  void SayChance(const std::string& members) {
    Say(R"("tolerated_failures": "", "chance_failures": [{)" + members + "}]");
  }
};

TEST_F(ChanceInTheManifest, IsNoProblemWhereItIsWhole) {
  Say(R"("tolerated_failures": "A, B", "chance_failures": [)"
      R"({"test": "A", "probability": "1/14", "at_least": "0/1", "derivation": "Of 14; one [fails]."},)"
      R"({"test": "B", "by_rows": "fair coin", "derivation": "By chance."}])");
  EXPECT_EQ(Problems(), "");
}

TEST_F(ChanceInTheManifest, IsMissedForAToleratedFailure) {
  Say(R"("tolerated_failures": "A, B", "chance_failures": [)"
      R"({"test": "A", "probability": "1/14", "derivation": "Of 14."}])");
  ExpectProblem(
      "verifiers/manifest.json: Bells tolerates B, whose chance is not among its "
      "chance_failures.");
  Say(R"("tolerated_failures": "A")");
  ExpectProblem("Bells tolerates A, whose chance is not among its chance_failures.");
}

TEST_F(ChanceInTheManifest, HasATestAndADerivation) {
  SayChance(R"("probability": "1/14", "derivation": "Of 14.")");
  ExpectProblem("Bells, the chance of \"\" lacks its test or its derivation.");
  SayChance(R"("test": "A", "probability": "1/14", "derivation": "")");
  ExpectProblem("the chance of \"A\" lacks its test or its derivation.");
}

TEST_F(ChanceInTheManifest, IsAFractionOrGoesByTheRows) {
  for (const std::string wrong : {"0.07", "1/0", "1:14", "x1/14", "1/14 "}) {
    SayChance(R"("test": "A", "derivation": "d", "probability": ")" + wrong + "\"");
    ExpectProblem("the chance of \"A\" is no fraction such as 1/14: \"" + wrong + "\".");
  }
  SayChance(R"("test": "A", "derivation": "d")");
  ExpectProblem("the chance of \"A\" is no fraction such as 1/14: \"\".");
  SayChance(R"("test": "A", "derivation": "d", "probability": "1/2", "by_rows": "fair coin")");
  ExpectProblem("the chance of \"A\" has both a probability and one by rows.");
  SayChance(R"("test": "A", "derivation": "d", "probability": "1/2", "at_least": "none")");
  ExpectProblem("the chance of \"A\" is at least no fraction such as 1/14: \"none\".");
}

}  // namespace
}  // namespace Tests
