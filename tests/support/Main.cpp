// Runs the tests of a program in a process that is set up as a console host would set it up.
#include <gtest/gtest.h>
#include <wx/debug.h>
#include <wx/init.h>

namespace {

// A failed assertion fails the test that it happens in; the test continues.
void FailTheTest(const wxString& file, int line, const wxString& function,
                 const wxString& condition, const wxString& message) {
  ADD_FAILURE_AT(file.utf8_str().data(), line)
      << "assertion \"" << condition.utf8_str().data() << "\" failed in "
      << function.utf8_str().data() << "(): " << message.utf8_str().data();
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const wxInitializer wx;
  if (!wx.IsOk()) return 1;
  wxSetAssertHandler(&FailTheTest);
  return RUN_ALL_TESTS();
}
