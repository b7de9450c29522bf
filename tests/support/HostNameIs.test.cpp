#include "tests/support/HostNameIs.h"

#include <gtest/gtest.h>

#include "framework/RunTimes.h"
#include "plugin/LocalHostName.h"

namespace Tests {
namespace {

using Ombrelia::RunTimes::RunningOnMacServer;
using Ombrelia::RunTimes::RunningOnSmallTestBox;

TEST(HostNameIs, HoldsWhileTheObjectLives) {
  EXPECT_EQ(Halvex::LocalHostName(), wxString::FromUTF8(ORDINARY_MACHINE));
  {
    const HostNameIs here("some-host");
    EXPECT_EQ(Halvex::LocalHostName(), wxT("some-host"));
    {
      const HostNameIs inner("another");
      EXPECT_EQ(Halvex::LocalHostName(), wxT("another"));
    }
    EXPECT_EQ(Halvex::LocalHostName(), wxT("some-host"));
  }
  EXPECT_EQ(Halvex::LocalHostName(), wxString::FromUTF8(ORDINARY_MACHINE));
}

// Every test of bounds stands on this, under whatever names the build is configured with.
TEST(HostNameIs, TellsTheFourKindsOfMachineApart) {
  {
    const HostNameIs here(ORDINARY_MACHINE);
    EXPECT_FALSE(RunningOnMacServer());
    EXPECT_FALSE(RunningOnSmallTestBox());
  }
  {
    const HostNameIs here(SERVER_MACHINE);
    EXPECT_TRUE(RunningOnMacServer());
    EXPECT_FALSE(RunningOnSmallTestBox());
  }
  {
    const HostNameIs here(TESTBOX_MACHINE);
    EXPECT_FALSE(RunningOnMacServer());
    EXPECT_TRUE(RunningOnSmallTestBox());
  }
  {
    const HostNameIs here(BOTH_MACHINES);
    EXPECT_TRUE(RunningOnMacServer());
    EXPECT_TRUE(RunningOnSmallTestBox());
  }
}

}  // namespace
}  // namespace Tests
