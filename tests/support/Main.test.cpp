// A failed assertion of wx or of the project must not pass unseen.
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <wx/debug.h>
#include <wx/string.h>

namespace {

TEST(Assertions, FailTheTestThatTheyHappenIn) {
  EXPECT_NONFATAL_FAILURE(wxASSERT_MSG(false, wxT("some words")), "some words");
}

TEST(Assertions, OfTheLibraryFailTheTestToo) {
  wxString bytes;
  EXPECT_NONFATAL_FAILURE(bytes = wxString::FromAscii("\xC3"), "FromAscii");
}

}  // namespace
