#include "framework/CheckReport.h"

#include <gtest/gtest.h>

#include "tests/support/RecordingPrinter.h"

namespace Tests {
namespace {

using Lines = std::vector<std::string>;
using Ombrelia::CheckFailure;
using Ombrelia::ReportCheck;
using Ombrelia::ReportFailure;

const CheckFailure FAILURE = {wxT("A subject."), 79, wxT("A message.")};
const wxString EXPERIMENT = wxT("an_experiment.om5");
const char* const FAILED =
    "FAIL A_check | A subject. | Whichever/File/Focuses/On/Verifying/an_experiment.om5:79 | "
    "A message.";

TEST(CheckReport, RecordsAPassWithItsNameAlone) {
  RecordingPrinter printer;
  ReportCheck(&printer, EXPERIMENT, true, wxT("A_check"), FAILURE);
  EXPECT_EQ(printer.m_lines, Lines{"pass A_check"});
}

TEST(CheckReport, RecordsAFailureWithItsFourTexts) {
  RecordingPrinter printer;
  ReportCheck(&printer, EXPERIMENT, false, wxT("A_check"), FAILURE);
  ReportFailure(&printer, EXPERIMENT, wxT("A_check"), FAILURE);
  EXPECT_EQ(printer.m_lines, (Lines{FAILED, FAILED}));
}

}  // namespace
}  // namespace Tests
