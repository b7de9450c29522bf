// What the committed page says of the verifiers is what the built program finds. This takes a while.
#include "Tabulon/src/machine/MUMachine.h"
#include "tests/BuildPaths.h"
#include "tests/host/VerifyDatafiles.h"

namespace Tests {
namespace {

const std::string ROOT = OMBRELIA_SOURCE_DIR;

// Through scripts/make-verifier-table, as a person would.
TEST(WatchedOfSamples, IsAsVerifiersWatchedSays) {
  if (MU_HAS_ADDRESS_SANITIZER)
    GTEST_SKIP() << "tens of thousands of verifications, in the optimised build alone";
  const ScratchFolder folder;
  const Finished run =
      RunProgram({OMBRELIA_CMAKE_COMMAND, "-D", "OUTPUT=" + (folder / "verifiers.md"), "-D",
                  "WATCHED=" + (folder / "watched.tsv"), "-D",
                  std::string("PROGRAM=") + OMBRELIA_BIN_DIR + "/verify-datafiles", "-P",
                  ROOT + "/scripts/make-verifier-table", "--watched"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(ReadFile(ROOT + "/verifiers/watched.tsv"), ReadFile(folder / "watched.tsv"))
      << "run scripts/make-verifier-table --watched";
  EXPECT_EQ(ReadFile(ROOT + "/docs/verifiers.md"), ReadFile(folder / "verifiers.md"));
}

TEST(WatchedOfSamples, ScriptSaysWhatIsMissingWithoutTheProgram) {
  const ScratchFolder folder;
  const Finished run =
      RunProgram({OMBRELIA_CMAKE_COMMAND, "-D", "OUTPUT=" + (folder / "verifiers.md"), "-D",
                  "WATCHED=" + (folder / "watched.tsv"), "-D", "PROGRAM=" + (folder / "missing"),
                  "-P", ROOT + "/scripts/make-verifier-table", "--watched"});
  EXPECT_NE(run.status, 0);
  EXPECT_NE(run.err.find("did not find out what is watched"), std::string::npos) << run.err;
  EXPECT_EQ(NamesIn(folder.Path()), std::vector<std::string>());
}

}  // namespace
}  // namespace Tests
