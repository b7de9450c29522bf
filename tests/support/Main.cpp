// Runs the tests of a program in a process that is set up as a console host would set it up.
#include <gtest/gtest.h>
#include <wx/init.h>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const wxInitializer wx;
  if (!wx.IsOk()) return 1;
  return RUN_ALL_TESTS();
}
