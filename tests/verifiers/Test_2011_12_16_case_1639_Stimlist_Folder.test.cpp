#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include "tests/support/ChecksOnTable.h"
#include "tests/support/DataFile.h"
#include "tests/support/FrameFailures.h"

namespace Ombrelia {
class Test_2011_12_16_case_1639_Stimlist_Folder;
}

namespace Tests {
namespace {

const char* const EXPERIMENT = "2011-12-16_test_for_case_1639_Stimlist_Folder.om4";

const char* const EVENT = "Event\nName";

std::string CheckFailed(const std::string& cell) {
  return Fail("Filenames show up in the data file as expected.",
              "One or more strings contained in the Event Name column of the datafile is somehow "
              "improper.",
              EXPERIMENT, 77,
              "At least one Event Name entry isn't correct. First such offending string: " + cell);
}

DataFile Sample() { return DataFile::Sample(EXPERIMENT); }

TEST(Test_2011_12_16_case_1639_Stimlist_Folder, PassesItsSampleWithoutABoundOnDuration) {
  EXPECT_EQ(
      Sample().Verify(),
      (Lines{"suite 2011-12-16_test_for_case_1639_Stimlist_Folder.om4",
             "pass VerifyDatafile_was_called_for_2011-12-16_test_for_case_1639_Stimlist_Folder.om4",
             "pass All the entries in the Event Name column are as they should be.",
             "pass Expansion_duration_2011-12-16_test_for_case_1639_Stimlist_Folder.om4",
             "pass __TIMING__TRACKING__2011-12-16_test_for_case_1639_Stimlist_Folder.om4__6054_ms",
             "pass __EXPANSION__TRACKING__"
             "2011-12-16_test_for_case_1639_Stimlist_Folder.om4__17_ms"}));
}

TEST(Test_2011_12_16_case_1639_Stimlist_Folder, TakesEachNameInEveryCase) {
  for (const char* name : {"picturestimlist_w_folder (1, 01_foreveralone.png)",
                           "picturestimlist_w_folder (2, 02_foreveralonelaugh.jpg)",
                           "picturestimlist_w_folder (3, 03_scasi.jpg)",
                           "picturestimlist_w_files (1, 01_foreveralone.png)",
                           "picturestimlist_w_files (2, 02_foreveralonelaugh.jpg)",
                           "picturestimlist_w_files (3, 03_scasi.jpg)",
                           "PICTURESTIMLIST_W_FOLDER (1, 01_FOREVERALONE.PNG)",
                           "PICTURESTIMLIST_W_FOLDER (2, 02_FOREVERALONELAUGH.JPG)",
                           "PICTURESTIMLIST_W_FOLDER (3, 03_SCASI.JPG)",
                           "PICTURESTIMLIST_W_FILES (1, 01_FOREVERALONE.PNG)",
                           "PICTURESTIMLIST_W_FILES (2, 02_FOREVERALONELAUGH.JPG)",
                           "PICTURESTIMLIST_W_FILES (3, 03_SCASI.JPG)"}) {
    DataFile file = Sample();
    for (std::size_t row = 0; row < file.RowCount(); ++row) file.Set(row, EVENT, name);
    EXPECT_EQ(file.Failures(), Lines{}) << name;
  }
}

TEST(Test_2011_12_16_case_1639_Stimlist_Folder, TakesAnyOrderAndNumberOfRows) {
  EXPECT_EQ(Sample().SwapRows(0, 5).SwapRows(1, 3).RepeatLastRow().Failures(), Lines{});
  EXPECT_EQ(Sample().KeepRows(1).Failures(), Lines{});
}

TEST(Test_2011_12_16_case_1639_Stimlist_Folder, FailsOnAnyOtherCell) {
  for (std::size_t row = 0; row < 6; ++row) {
    EXPECT_EQ(Sample().Set(row, EVENT, "PictureStimList_w_Folder (4, %s.PNG)").Failures(),
              Lines{CheckFailed("picturestimlist_w_folder (4, %s.png)")});
    EXPECT_EQ(Sample().Set(row, EVENT, "").Failures(), Lines{CheckFailed("")});
    EXPECT_EQ(Sample().Set(row, EVENT, "picturestimlist_w_files (3, 03_scasi.jpg) ").Failures(),
              Lines{CheckFailed("picturestimlist_w_files (3, 03_scasi.jpg) ")});
  }
}

TEST(Test_2011_12_16_case_1639_Stimlist_Folder, NamesTheFirstOffenderAlone) {
  EXPECT_EQ(Sample().Set(2, EVENT, "First").Set(4, EVENT, "Second").Failures(),
            Lines{CheckFailed("first")});
}

TEST(Test_2011_12_16_case_1639_Stimlist_Folder, FailsWithoutItsColumn) {
  EXPECT_EQ(Sample().RemoveColumn(EVENT).Failures(), Lines{CheckFailed("?")});
}

TEST(Test_2011_12_16_case_1639_Stimlist_Folder, ChecksTheBoundAfterAFailure) {
  EXPECT_EQ(Sample().Set(0, EVENT, "x").SetExpansion("4").SetDuration("999999").Failures(),
            (Lines{CheckFailed("x"), ExpansionOutOfBounds(EXPERIMENT, 5, 40, "4")}));
}

// A file without rows cannot be read, so the check is handed a table without rows.
TEST(Test_2011_12_16_case_1639_Stimlist_Folder, PassesOnATableWithoutRows) {
  EXPECT_EQ(RecordOfChecksOn<Ombrelia::Test_2011_12_16_case_1639_Stimlist_Folder>(
                boost::make_shared<MUExperimentTextReaderMultiFile>(nullptr), EXPERIMENT),
            Lines{"pass All the entries in the Event Name column are as they should be."});
}

}  // namespace
}  // namespace Tests
