// Runs the tests of a program in a process that is set up as a console host would set it up.
#include <gtest/gtest.h>
#include <wx/init.h>

#include "tests/support/TodayIs.h"

namespace {

class EachTestOnAnOrdinaryDay : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo&) override { Tests::SetOrdinaryDay(); }
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const wxInitializer wx;
  if (!wx.IsOk()) return 1;
  testing::UnitTest::GetInstance()->listeners().Append(new EachTestOnAnOrdinaryDay);
  return RUN_ALL_TESTS();
}
