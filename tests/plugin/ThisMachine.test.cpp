// What the plug-in and verify-datafiles read of the machine that they run on. All other tests simulate it.
#include <gtest/gtest.h>
#include <unistd.h>

#include <ctime>

#include "framework/LocalDay.h"
#include "plugin/HostProbes.h"
#include "plugin/LocalHostName.h"

namespace {

using boost::gregorian::date;

TEST(ThisMachine, HasTheNameThatTheSystemGives) {
  char name[256] = {};
  ASSERT_EQ(gethostname(name, sizeof name - 1), 0);
  EXPECT_EQ(Halvex::LocalHostName(), wxString::FromAscii(name));
  EXPECT_TRUE(Halvex::CurrSystemMatchesLocalHostName(wxString::FromAscii(name)));
  EXPECT_FALSE(Halvex::CurrSystemMatchesLocalHostName(wxString::FromAscii(name) + wxT("x")));
}

date DateOfTheClock() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return date(static_cast<unsigned short>(local.tm_year + 1900),
              static_cast<unsigned short>(local.tm_mon + 1),
              static_cast<unsigned short>(local.tm_mday));
}

TEST(ThisMachine, HasTheDayOfItsClock) {
  // Midnight may pass between the two readings.
  const date before = DateOfTheClock();
  const date today = Ombrelia::TodaysLocalDate();
  const date after = DateOfTheClock();
  EXPECT_LE(before, today);
  EXPECT_LE(today, after);
}

}  // namespace
