#include "report/FailureLocation.h"

#include <gtest/gtest.h>

namespace {

TEST(FailureLocation, IsAPretendedPathWithALine) {
  EXPECT_EQ(Ombrelia::FailureLocationText(162, wxT("DataHookOutputTestingPlugin")),
            wxString(wxT("Whichever/File/Focuses/On/Verifying/DataHookOutputTestingPlugin:162")));
}

TEST(FailureLocation, TakesNamesAndLinesAsTheyCome) {
  EXPECT_EQ(Ombrelia::FailureLocationText(-1, wxT("100%s \u00e4.om4")),
            wxString(wxT("Whichever/File/Focuses/On/Verifying/100%s \u00e4.om4:-1")));
}

}  // namespace
