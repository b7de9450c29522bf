#include "report/TextsForAHuman.h"

#include <gtest/gtest.h>

#include "tests/support/Files.h"

namespace {

TEST(TextOfAnUnwrittenFile, NamesTheFile) {
  EXPECT_EQ(Ombrelia::TextOfAnUnwrittenFile(wxT("./100%s/f\u00fcr.dat"), false),
            wxString(wxT("\n\nFakeJUnitPrinter failed to write to the file ./100%s/f\u00fcr.dat")));
}

TEST(TextOfAnUnwrittenFile, SaysWhatToDoIfNobodyWatches) {
  const Tests::ScratchFolder folder;
  const Tests::WorkingDirectory directory(folder.Path());
  EXPECT_EQ(Ombrelia::TextOfAnUnwrittenFile(wxT("a.xml"), true),
            wxT("\n\nFakeJUnitPrinter failed to write to the file a.xml\n\nPLEASE CREATE THAT PATH."
                "\n\nerror is reported relative to current working dir (CWD). CWD is:\n\n") +
                wxString::FromUTF8(folder.Path().c_str()) + wxT("\n\n"));
}

TEST(TextOfAFailedTest, HoldsTheFourTextsOfTheTest) {
  EXPECT_EQ(Ombrelia::TextOfAFailedTest(wxT("a"), wxT("b %s"), wxT("c:7"), wxT("d\u4e2d")),
            wxString(wxT("\n\nName of test: a\n\nSubject: b %s\n\nLocation: c:7\n\nMessage: "
                         "d\u4e2d\n\n")));
}

}  // namespace
