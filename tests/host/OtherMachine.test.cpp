// What another kind of machine would say. These tests run on an ordinary one.
#include "host/results/ThisMachine.h"
#include "tests/host/VerifyDatafiles.h"

namespace Tests {
namespace {

class OtherMachineTest : public VerifyDatafilesTest {
 protected:
  void SetUp() override {
    if (OmbreliaHost::ThisMachine() != OmbreliaHost::MachineKind::Ordinary) {
      GTEST_SKIP() << "not an ordinary machine";
    }
  }
  // The run took that many milliseconds. The bounds end at 900, on a small machine at 880, on a large one at 860.
  Finished VerifyDuration(const std::string& milliseconds, const std::string& machine) {
    const std::string name = "2012_3_9_tolmey_2668_macro_exit_experiment.om4 1.txt";
    File(name,
         "Robot\nMacro exit\nMon Apr 02 2012 10:41:07\nOmbrelia data file\n"
         "Event\tCumulative\tExpansion Time(ms): 23\nName\tTime\t\nevent 1\t" +
             milliseconds + "\t-\n");
    return Verify({"--machine", machine, name});
  }
};

TEST_F(OtherMachineTest, ItsFailureIsARemarkAndNoFailureHere) {
  const Finished finished = VerifyDuration("870", "large");
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_NE(finished.out.find("7 passed, 0 failed\n    On a machine of the kind large fails "),
            std::string::npos)
      << finished.out;
  EXPECT_NE(finished.out.find("\nMachine: ordinary\n"), std::string::npos) << finished.out;
}

TEST_F(OtherMachineTest, ThereIsNoRemarkWhereItWouldSayTheSame) {
  for (const char* machine : {"small", "ordinary"}) {
    const Finished finished = VerifyDuration("870", machine);
    EXPECT_EQ(finished.status, 0) << finished.err;
    EXPECT_EQ(finished.out.find("On a machine"), std::string::npos) << finished.out;
  }
}

TEST_F(OtherMachineTest, AFailureHereThatItHasInOtherWordsIsNamedBothWays) {
  const Finished finished = VerifyDuration("950", "small");
  EXPECT_EQ(finished.status, 1);
  EXPECT_NE(finished.out.find("On a machine of the kind small fails "), std::string::npos)
      << finished.out;
}

}  // namespace
}  // namespace Tests
