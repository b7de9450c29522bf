// The life of one data file inside the frame of a verifier.
#include <gtest/gtest.h>

#include <functional>

#include "framework/IndividualTestCase_T.h"
#include "plugin/DataHookOutputTestingPluginImpl.h"
#include "tests/support/DataFile.h"
#include "tests/support/Files.h"
#include "tests/support/RecordingPrinter.h"

namespace Ombrelia {

namespace {
const wxString FOCUS_OF_THIS_TEST = wxT("Frame_Probe.om5");
const wxString FOCUS_OF_EMPTY_PROBE = wxT("Frame_Empty_Probe.om5");
const wxString FOCUS_OF_CARELESS_PROBE = wxT("Frame_Careless_Probe.om5");
}  // namespace

// Runs what a test asks for in place of checks.
class FrameProbe : public IndividualTestCase_T<FrameProbe, false> {
 public:
  FrameProbe() : IndividualTestCase_T(FOCUS_OF_THIS_TEST, false) {}
  void RunAllVerificationTests(VerificationNecessities necessities) override {
    ++m_runs;
    if (m_expectsTheTable) {
      EXPECT_EQ(necessities.reader.get(), m_reader.get());
      EXPECT_EQ(necessities.printer, m_printer);
    }
    m_areas = necessities.stimAreas->size();
    if (m_checks) m_checks(*this);
  }
  void OnNotifyUnableToReadDatafile(FakeJUnitPrinter* printer) override {
    ++m_notifications;
    IndividualTestCase_T::OnNotifyUnableToReadDatafile(printer);
  }
  using IndividualTestCase_T::CellAt;
  using IndividualTestCase_T::CheckEventNames;
  using IndividualTestCase_T::ColumnOf;
  using IndividualTestCase_T::GetColumnIndexFromText_StartsWith;
  using IndividualTestCase_T::GetExpansionTime;
  using IndividualTestCase_T::m_reader;
  using IndividualTestCase_T::PerformBoundsTest;
  using IndividualTestCase_T::PerformDurationBoundsTest;
  using IndividualTestCase_T::PerformDurationBoundsTest_MacServer;
  using IndividualTestCase_T::PerformDurationBoundsTest_SmallTestBox;
  using IndividualTestCase_T::PerformExpansionBoundsTest_MacServer;
  using IndividualTestCase_T::ReportCheck;
  using IndividualTestCase_T::ReportFailure;
  using IndividualTestCase_T::ReportPass;
  using IndividualTestCase_T::RowCount;

  std::function<void(FrameProbe&)> m_checks;
  bool m_expectsTheTable = true;
  int m_runs = 0;
  int m_notifications = 0;
  std::size_t m_areas = 0;
};

class FrameEmptyProbe : public IndividualTestCase_T<FrameEmptyProbe, true> {
 public:
  FrameEmptyProbe() : IndividualTestCase_T(FOCUS_OF_EMPTY_PROBE, false) {}
  void RunAllVerificationTests(VerificationNecessities necessities) override {
    necessities.printer->AddPassingTestResult(wxT("checks_ran"));
  }
  void OnNotifyUnableToReadDatafile(FakeJUnitPrinter* printer) override {
    printer->AddPassingTestResult(wxT("told_that_it_is_unreadable"));
  }
};

class FrameCarelessProbe : public IndividualTestCase_T<FrameCarelessProbe, true> {
 public:
  FrameCarelessProbe() : IndividualTestCase_T(FOCUS_OF_CARELESS_PROBE, false) {}
  void RunAllVerificationTests(VerificationNecessities) override {}
};

class FrameUnregisteredProbe : public IndividualTestCase_T<FrameUnregisteredProbe, false> {
 public:
  FrameUnregisteredProbe() : IndividualTestCase_T(wxT("Never_Registered.om5"), true) {}
  void RunAllVerificationTests(VerificationNecessities) override {}
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(FrameProbe, false);
OMBRELIA_DEFINE_VERIFIER(FrameEmptyProbe, true);
OMBRELIA_DEFINE_VERIFIER(FrameCarelessProbe, true);
OMBRELIA_DEFINE_VERIFIER(FrameUnregisteredProbe, false);

namespace Tests {
namespace {

using Ombrelia::FrameProbe;

const char* const PROBE = "Frame_Probe.om5";
const char* const TIME = "Cumulative\nTime";
const char* const WEIRD =
    "Experiment duration is weird. Too short or too long (see details below).";

FrameProbe& Probe() {
  return *Ombrelia::IndividualTestCase_T<FrameProbe, false>::m_singletonVerifier;
}

// Three rows whose last duration is 1500, with an expansion time of 40.
DataFile SomeFile() {
  return DataFile::Of(PROBE, {"Event\nName", TIME, "Expansion Time(ms): 40", "End"},
                      {{"a", "500", "", "x"}, {"b", "1000", "", "x"}, {"c", "1500", "", "x"}});
}

// What the checks record on a file: the lines between the entry test and the two tracking tests.
Lines RecordOf(const DataFile& file, const std::function<void(FrameProbe&)>& checks,
               const std::string& machine = ORDINARY_MACHINE) {
  Probe().m_checks = checks;
  Lines lines = file.Verify(machine);
  Probe().m_checks = nullptr;
  EXPECT_GE(lines.size(), 4U);
  lines.erase(lines.begin(), lines.begin() + 2);
  lines.resize(lines.size() - 2);
  return lines;
}

TEST(IndividualTestCase, LivesThroughAReadableFileInOrder) {
  const int before = Probe().m_runs;
  Probe().m_checks = [](FrameProbe& probe) { EXPECT_EQ(probe.m_reader->GetNumberOfDataRows(), 3); };
  DataFile file = SomeFile();
  file.StimAreas().resize(2);
  EXPECT_EQ(file.Verify(),
            (Lines{"suite Frame_Probe.om5", "pass VerifyDatafile_was_called_for_Frame_Probe.om5",
                   "pass __TIMING__TRACKING__Frame_Probe.om5__1500_ms",
                   "pass __EXPANSION__TRACKING__Frame_Probe.om5__40_ms"}));
  EXPECT_EQ(Probe().m_runs, before + 1);
  EXPECT_EQ(Probe().m_areas, 2U);
  Probe().m_checks = nullptr;
}

TEST(IndividualTestCase, ReportsAnUnreadableFileAndGoesNoFurther) {
  const int before = Probe().m_runs;
  EXPECT_EQ(
      VerifyBytes(PROBE, "only\nthree\nlines\n"),
      (Lines{"suite Frame_Probe.om5", "pass VerifyDatafile_was_called_for_Frame_Probe.om5",
             Fail("open_and_parse_Frame_Probe.om5 1", "this datafile was not open-able/parse-able",
                  "CommonTestHelperLogic_GetReaderOrElseLogAnError", 49,
                  "unable to construct a MUExperimentTextReaderMultiFile for this "
                  "datafile")}));
  EXPECT_EQ(Probe().m_runs, before);
  EXPECT_EQ(Probe().m_reader.get(), nullptr);
}

TEST(IndividualTestCase, ReportsAFileWhoseNameIsNotAscii) {
  RecordingPrinter printer;
  Probe().VerifyDatafile(wxT("/no/such/folder/\u00fcber \u4e2d \U0001F600.om5 7.txt"), {},
                         &printer);
  EXPECT_EQ(FailuresOf(printer.m_lines),
            Lines{Fail("open_and_parse_\xC3\xBC"
                       "ber \xE4\xB8\xAD \xF0\x9F\x98\x80.om5 7",
                       "this datafile was not open-able/parse-able",
                       "CommonTestHelperLogic_GetReaderOrElseLogAnError", 49,
                       "unable to construct a MUExperimentTextReaderMultiFile for this datafile")});
}

TEST(IndividualTestCase, ReportsAFileThatIsNotThere) {
  RecordingPrinter printer;
  Probe().VerifyDatafile(wxT("/no/such/folder/Frame_Probe.om5 7.txt"), {}, &printer);
  EXPECT_EQ(
      FailuresOf(printer.m_lines),
      Lines{Fail("open_and_parse_Frame_Probe.om5 7", "this datafile was not open-able/parse-able",
                 "CommonTestHelperLogic_GetReaderOrElseLogAnError", 49,
                 "unable to construct a MUExperimentTextReaderMultiFile for this datafile")});
}

// A second instance opens the file and records the run times; checks and notification are the
// singleton's.
TEST(IndividualTestCase, GivesChecksAndNotificationToTheSingleton) {
  FrameProbe other;
  Probe().m_checks = [](FrameProbe& probe) { EXPECT_EQ(&probe, &Probe()); };
  const int before = Probe().m_runs;
  const ScratchFolder folder;
  WriteFile(folder / "Frame_Probe.om5 1.txt", SomeFile().Text());
  const wxString readable = wxString::FromUTF8((folder / "Frame_Probe.om5 1.txt").c_str());
  RecordingPrinter printer;
  other.m_expectsTheTable = false;
  Probe().m_expectsTheTable = false;  // which the other one holds
  other.VerifyDatafile(readable, {}, &printer);
  EXPECT_EQ(other.m_runs, 0);
  EXPECT_EQ(Probe().m_runs, before + 1);
  EXPECT_TRUE(other.m_reader);
  EXPECT_EQ(printer.m_lines.size(), 4U);

  const int told = Probe().m_notifications;
  other.VerifyDatafile(wxT("/no/such/file.txt"), {}, &printer);
  EXPECT_EQ(other.m_notifications, 0);
  EXPECT_EQ(Probe().m_notifications, told + 1);
  Probe().m_expectsTheTable = true;
  Probe().m_checks = nullptr;
}

void VerifyWithoutSingleton() {
  boost::shared_ptr<FrameProbe> verifier;
  verifier.swap(Ombrelia::IndividualTestCase_T<FrameProbe, false>::m_singletonVerifier);
  RecordingPrinter printer;
  verifier->VerifyDatafile(wxT("/no/such/file.txt"), {}, &printer);
}

void BoundWithoutTable() {
  Probe().m_reader.reset();
  Probe().PerformDurationBoundsTest(0, 1, true);
}

// Broken invariants end the process: there is no check that could report them.
TEST(IndividualTestCaseDeathTest, AbortsWithoutASingleton) {
  EXPECT_DEATH(VerifyWithoutSingleton(), "px != 0");
}

TEST(IndividualTestCaseDeathTest, AbortsOnABoundWithoutATable) {
  EXPECT_DEATH(BoundWithoutTable(), "px != 0");
}

// The machine is asked first, so that nothing is read where nothing is bounded.
TEST(IndividualTestCase, LooksAtNoTableForABoundThatExceptsThisMachine) {
  Probe().m_reader.reset();
  for (const char* machine : {SERVER_MACHINE, TESTBOX_MACHINE, BOTH_MACHINES}) {
    const HostNameIs here(machine);
    Probe().PerformDurationBoundsTest(0, 1, true);
    Probe().PerformBoundsTest(0, 1, wxT("Expansion Time(ms): "), true, true);
  }
  const HostNameIs here(ORDINARY_MACHINE);
  Probe().PerformDurationBoundsTest_SmallTestBox(0, 1);
  Probe().PerformDurationBoundsTest_MacServer(0, 1);
  Probe().PerformExpansionBoundsTest_MacServer(0, 1);
}

TEST(IndividualTestCase, KeepsTheTableUntilTheNextFile) {
  SomeFile().Verify();
  const auto first = Probe().m_reader;
  ASSERT_TRUE(first);
  EXPECT_EQ(first.use_count(), 2);
  SomeFile().Verify();
  EXPECT_EQ(first.use_count(), 1);
  EXPECT_NE(Probe().m_reader.get(), first.get());
}

TEST(IndividualTestCase, OpensOneSuiteForEachFile) {
  Lines both = SomeFile().Verify();
  const Lines second = SomeFile().Verify();
  both.insert(both.end(), second.begin(), second.end());
  EXPECT_EQ(std::count(both.begin(), both.end(), "suite Frame_Probe.om5"), 2);
}

TEST(IndividualTestCase, TellsAVerifierOfUnreadableFilesThatItsFileCannotBeRead) {
  EXPECT_EQ(VerifyBytes("Frame_Empty_Probe.om5", "a\nb\nc\nd\ne\nf\n"),
            (Lines{"suite Frame_Empty_Probe.om5",
                   "pass VerifyDatafile_was_called_for_Frame_Empty_Probe.om5",
                   "pass told_that_it_is_unreadable"}));
}

TEST(IndividualTestCase, ChecksAReadableFileOfAVerifierOfUnreadableFilesLikeAnyOther) {
  EXPECT_EQ(VerifyBytes("Frame_Empty_Probe.om5", SomeFile().Text()),
            (Lines{"suite Frame_Empty_Probe.om5",
                   "pass VerifyDatafile_was_called_for_Frame_Empty_Probe.om5", "pass checks_ran",
                   "pass __TIMING__TRACKING__Frame_Empty_Probe.om5__1500_ms",
                   "pass __EXPANSION__TRACKING__Frame_Empty_Probe.om5__40_ms"}));
}

TEST(IndividualTestCase, ReportsAVerifierThatForgotItsNotification) {
  EXPECT_EQ(
      VerifyBytes("Frame_Careless_Probe.om5", "nothing"),
      (Lines{"suite Frame_Careless_Probe.om5",
             "pass VerifyDatafile_was_called_for_Frame_Careless_Probe.om5",
             Fail("Failed_To_Override_Notifier_Function_OnNotifyUnableToReadDatafile",
                  "Incorrect subclass of IndividualTestCase_T.", "Frame_Careless_Probe.om5", 310,
                  "You set EXPECT_EMPTY_DATAFILE to true, which means you MUST override "
                  "OnNotifyUnableToReadDatafile.")}));
}

TEST(IndividualTestCase, DoesNotRegisterWhenTold) {
  const Ombrelia::FrameUnregisteredProbe verifier;
  EXPECT_EQ(Ombrelia::DataHookOutputTestingPlugin::PrivateImpl::m_static_verifiers().count(
                wxT("NEVER_REGISTERED.OM5")),
            0U);
}

TEST(Checks, AreReportedUnderTheExperiment) {
  EXPECT_EQ(RecordOf(SomeFile(),
                     [](FrameProbe& probe) {
                       const Ombrelia::CheckFailure failure = {wxT("Subject."), 7, wxT("Message.")};
                       probe.ReportPass(wxT("one"));
                       probe.ReportCheck(true, wxT("two"), failure);
                       probe.ReportCheck(false, wxT("three"), failure);
                       probe.ReportFailure(wxT("four"), failure);
                     }),
            (Lines{"pass one", "pass two", Fail("three", "Subject.", PROBE, 7, "Message."),
                   Fail("four", "Subject.", PROBE, 7, "Message.")}));
}

TEST(Checks, HoldTheEventNamesAgainstARule) {
  const auto check = [](std::vector<wxString> names) {
    return RecordOf(SomeFile(), [&](FrameProbe& probe) {
      probe.CheckEventNames(Ombrelia::RowScan::Positional(names), wxT("order"), 12, wxT("Wrong."));
    });
  };
  EXPECT_EQ(check({wxT("a"), wxT("b"), wxT("c")}), Lines{"pass order"});
  EXPECT_EQ(check({wxT("a"), wxT("c"), wxT("b")}),
            Lines{Fail("order", "Something bad happened instead.", PROBE, 12, "Wrong.")});
}

TEST(Cells, AreReadFromTheTableInHand) {
  RecordOf(SomeFile(), [](FrameProbe& probe) {
    EXPECT_EQ(probe.RowCount(), 3);
    EXPECT_EQ(probe.ColumnOf(wxT("Cumulative\nTime")), 1);
    EXPECT_EQ(probe.ColumnOf(wxT("Cumulative")), -1);
    EXPECT_EQ(probe.CellAt(2, 1), wxT("1500"));
    EXPECT_EQ(probe.CellAt(3, 1), wxT("?"));
    EXPECT_EQ(probe.CellAt(2, -1), wxT("?"));
  });
}

TEST(Tracking, FailsWithoutTheDurationColumnAndBoundsNothing) {
  const DataFile file = SomeFile().RemoveColumn(TIME);
  Probe().m_checks = [](FrameProbe& probe) { probe.PerformDurationBoundsTest(1, 2, true); };
  EXPECT_EQ(file.Verify(),
            (Lines{"suite Frame_Probe.om5", "pass VerifyDatafile_was_called_for_Frame_Probe.om5",
                   Fail("__TIMING__TRACKING__UNAVAILABLE__Frame_Probe.om5",
                        "Please add the Cumulative Time column to the output.", PROBE, 326,
                        "We cannot monitor run-time duration without having the Cum Time column "
                        "available."),
                   "pass __EXPANSION__TRACKING__Frame_Probe.om5__40_ms"}));
  Probe().m_checks = nullptr;
}

TEST(Tracking, FailsWithoutTheExpansionColumnAndBoundsNothing) {
  const DataFile file = SomeFile().RemoveColumn("Expansion Time(ms): 40");
  Probe().m_checks = [](FrameProbe& probe) {
    probe.PerformBoundsTest(1, 2, wxT("Expansion Time(ms): "), true, true);
  };
  EXPECT_EQ(file.Verify(),
            (Lines{"suite Frame_Probe.om5", "pass VerifyDatafile_was_called_for_Frame_Probe.om5",
                   "pass __TIMING__TRACKING__Frame_Probe.om5__1500_ms",
                   Fail("__EXPANSION__TRACKING__UNAVAILABLE__Frame_Probe.om5",
                        "Someting broke, there's no expansion time column.", PROBE, 352,
                        "We cannot monitor run-time duration without having the expansion time "
                        "column available.")}));
  Probe().m_checks = nullptr;
}

// Bounds take the first column that starts with the name; the total duration takes the exact one.
TEST(Tracking, TakesTheDurationFromTheColumnOfExactlyThatName) {
  EXPECT_EQ(DataFile::Of(PROBE, {"Cumulative\nTime of all", TIME, "Expansion Time(ms): 40", "End"},
                         {{"77", "4", "", "x"}})
                .Verify()[2],
            "pass __TIMING__TRACKING__Frame_Probe.om5__4_ms");
  EXPECT_EQ(DataFile::Of(PROBE, {"Cumulative\nTime of all", "Expansion Time(ms): 40", "End"},
                         {{"77", "", "x"}})
                .Failures(),
            Lines{Fail("__TIMING__TRACKING__UNAVAILABLE__Frame_Probe.om5",
                       "Please add the Cumulative Time column to the output.", PROBE, 326,
                       "We cannot monitor run-time duration without having the Cum Time column "
                       "available.")});
}

TEST(Tracking, ShowsTheTextOfTheLastRowWhateverItIs) {
  const Lines lines = SomeFile().SetDuration("half past {%s}").Verify();
  EXPECT_EQ(lines[2], "pass __TIMING__TRACKING__Frame_Probe.om5__half past {%s}_ms");
}

TEST(Tracking, ShowsTheSentinelForAnExpansionTimeThatIsNoNumber) {
  EXPECT_EQ(SomeFile().SetExpansion("soon").Verify()[3],
            "pass __EXPANSION__TRACKING__Frame_Probe.om5__-123_ms");
  EXPECT_EQ(SomeFile().SetExpansion("40 ms").Verify()[3],
            "pass __EXPANSION__TRACKING__Frame_Probe.om5__-123_ms");
}

// The number stands behind the first colon, also when another follows.
TEST(Tracking, ReadsTheExpansionTimeBehindTheFirstColon) {
  EXPECT_EQ(SomeFile().SetExpansion("40: 50").Verify()[3],
            "pass __EXPANSION__TRACKING__Frame_Probe.om5__-123_ms");
  EXPECT_EQ(SomeFile().SetExpansion("-7").Verify()[3],
            "pass __EXPANSION__TRACKING__Frame_Probe.om5__-7_ms");
}

TEST(DurationBounds, IncludeBothEnds) {
  const auto check = [](int min, int max) {
    return RecordOf(SomeFile(),
                    [=](FrameProbe& probe) { probe.PerformDurationBoundsTest(min, max, true); });
  };
  const Lines passes{"pass Experiment_duration_Frame_Probe.om5"};
  EXPECT_EQ(check(1500, 1500), passes);
  EXPECT_EQ(check(1500, 2000), passes);
  EXPECT_EQ(check(0, 1500), passes);
  EXPECT_EQ(check(1501, 2000),
            Lines{Fail("Experiment_duration_Frame_Probe.om5", WEIRD, PROBE, 228,
                       "Expected a duration between 1501 and 2000. Instead, we got a duration of "
                       "1500.")});
  EXPECT_EQ(check(0, 1499),
            Lines{Fail("Experiment_duration_Frame_Probe.om5", WEIRD, PROBE, 228,
                       "Expected a duration between 0 and 1499. Instead, we got a duration of "
                       "1500.")});
}

TEST(DurationBounds, FailByTheSentinelOnATextThatIsNoNumber) {
  EXPECT_EQ(RecordOf(SomeFile().SetDuration("1500ms"),
                     [](FrameProbe& probe) { probe.PerformDurationBoundsTest(0, 9000, true); }),
            Lines{Fail("Experiment_duration_Frame_Probe.om5", WEIRD, PROBE, 228,
                       "Expected a duration between 0 and 9000. Instead, we got a duration of "
                       "-999.")});
}

// 4294968796 is 1500 in the low 32 bits.
TEST(DurationBounds, DoNotTakeAHugeNumberForASmallOne) {
  EXPECT_EQ(RecordOf(SomeFile().SetDuration("4294968796"),
                     [](FrameProbe& probe) { probe.PerformDurationBoundsTest(0, 9000, true); }),
            Lines{Fail("Experiment_duration_Frame_Probe.om5", WEIRD, PROBE, 228,
                       "Expected a duration between 0 and 9000. Instead, we got a duration of "
                       "4294968796.")});
  EXPECT_EQ(FailuresOf(RecordOf(SomeFile().SetExpansion("4294967336"),
                                [](FrameProbe& probe) {
                                  probe.PerformBoundsTest(0, 9000, wxT("Expansion Time(ms): "),
                                                          true, true);
                                }))
                .size(),
            1U);
}

// -4294965796 is 1500 in the low 32 bits, too.
TEST(DurationBounds, PrintANumberBelowIntAsItIs) {
  EXPECT_EQ(RecordOf(SomeFile().SetDuration("-4294965796"),
                     [](FrameProbe& probe) { probe.PerformDurationBoundsTest(0, 9000, true); }),
            Lines{Fail("Experiment_duration_Frame_Probe.om5", WEIRD, PROBE, 228,
                       "Expected a duration between 0 and 9000. Instead, we got a duration of "
                       "-4294965796.")});
}

TEST(ExpansionBounds, CompareAndPrintTheNearestInt) {
  const auto check = [](const std::string& expansion) {
    return RecordOf(SomeFile().SetExpansion(expansion), [](FrameProbe& probe) {
      probe.PerformBoundsTest(0, 9000, wxT("Expansion Time(ms): "), true, true);
    });
  };
  const auto failure = [](const std::string& found) {
    return Lines{Fail(
        "Expansion_duration_Frame_Probe.om5", WEIRD, PROBE, 228,
        "Expected a duration between 0 and 9000. Instead, we got a duration of " + found + ".")};
  };
  EXPECT_EQ(check("4294967336"), failure("2147483647"));
  EXPECT_EQ(check("-4294967256"), failure("-2147483648"));
}

TEST(Tracking, TellsADurationAsItStandsAndAnExpansionTimeAsTheNearestInt) {
  const auto tracked = [](const std::string& duration, const std::string& expansion) {
    Lines lines = SomeFile().SetDuration(duration).SetExpansion(expansion).Verify();
    lines.erase(lines.begin(), lines.end() - 2);
    return lines;
  };
  EXPECT_EQ(tracked("4294968796", "4294967336"),
            (Lines{"pass __TIMING__TRACKING__Frame_Probe.om5__4294968796_ms",
                   "pass __EXPANSION__TRACKING__Frame_Probe.om5__2147483647_ms"}));
  EXPECT_EQ(tracked("-4294965796", "-4294967256"),
            (Lines{"pass __TIMING__TRACKING__Frame_Probe.om5__-4294965796_ms",
                   "pass __EXPANSION__TRACKING__Frame_Probe.om5__-2147483648_ms"}));
}

TEST(ExpansionBounds, UseTheSameWordsAsDuration) {
  const auto check = [](int min, int max) {
    return RecordOf(SomeFile(), [=](FrameProbe& probe) {
      probe.PerformBoundsTest(min, max, wxT("Expansion Time(ms): "), true, true);
    });
  };
  EXPECT_EQ(check(40, 40), Lines{"pass Expansion_duration_Frame_Probe.om5"});
  EXPECT_EQ(
      check(41, 50),
      Lines{Fail("Expansion_duration_Frame_Probe.om5", WEIRD, PROBE, 228,
                 "Expected a duration between 41 and 50. Instead, we got a duration of 40.")});
}

// All calls that a verifier can make, each with a bound that the file breaks.
void MakeAllCalls(FrameProbe& probe) {
  probe.PerformDurationBoundsTest(1, 2, true);
  probe.PerformDurationBoundsTest_SmallTestBox(3, 4);
  probe.PerformDurationBoundsTest_MacServer(5, 6);
  probe.PerformBoundsTest(7, 8, wxT("Expansion Time(ms): "), true, true);
  probe.PerformExpansionBoundsTest_MacServer(9, 10);
}

std::string DurationFailure(int min, int max) {
  return Fail("Experiment_duration_Frame_Probe.om5", WEIRD, PROBE, 228,
              "Expected a duration between " + std::to_string(min) + " and " + std::to_string(max) +
                  ". Instead, we got a duration of 1500.");
}

std::string ExpansionFailure(int min, int max) {
  return Fail("Expansion_duration_Frame_Probe.om5", WEIRD, PROBE, 228,
              "Expected a duration between " + std::to_string(min) + " and " + std::to_string(max) +
                  ". Instead, we got a duration of 40.");
}

TEST(Machines, EachHaveTheirOwnBounds) {
  EXPECT_EQ(RecordOf(SomeFile(), MakeAllCalls, ORDINARY_MACHINE),
            (Lines{DurationFailure(1, 2), ExpansionFailure(7, 8)}));
  EXPECT_EQ(RecordOf(SomeFile(), MakeAllCalls, TESTBOX_MACHINE), Lines{DurationFailure(3, 4)});
  EXPECT_EQ(RecordOf(SomeFile(), MakeAllCalls, SERVER_MACHINE),
            (Lines{DurationFailure(5, 6), ExpansionFailure(9, 10)}));
  EXPECT_EQ(RecordOf(SomeFile(), MakeAllCalls, BOTH_MACHINES),
            (Lines{DurationFailure(3, 4), DurationFailure(5, 6), ExpansionFailure(9, 10)}));
}

TEST(Machines, DoNotExceptThemselvesUnlessTold) {
  EXPECT_EQ(RecordOf(
                SomeFile(), [](FrameProbe& probe) { probe.PerformDurationBoundsTest(1, 2, false); },
                SERVER_MACHINE),
            Lines{DurationFailure(1, 2)});
}

TEST(Columns, AreFoundByTheStartOfTheirNames) {
  RecordOf(DataFile::Of(PROBE, {"x Event\nName", "Event\nName", "Event\nName II", TIME},
                        {{"1", "2", "3", "4"}}),
           [](FrameProbe& probe) {
             EXPECT_EQ(probe.GetColumnIndexFromText_StartsWith(wxT("Event")), 1);
             EXPECT_EQ(probe.GetColumnIndexFromText_StartsWith(wxT("Event\nName ")), 2);
             EXPECT_EQ(probe.GetColumnIndexFromText_StartsWith(wxT("event")), -1);
             EXPECT_EQ(probe.GetColumnIndexFromText_StartsWith(wxT("")), 0);
             EXPECT_EQ(probe.GetExpansionTime(), -123);
           });
}

// A duration is looked for in the first column that starts with the name, not in the exact one.
TEST(Columns, GiveTheDurationByTheStartOfTheirNames) {
  EXPECT_EQ(
      RecordOf(DataFile::Of(PROBE, {"Cumulative\nTime of all", TIME, "End"}, {{"77", "4", "x"}}),
               [](FrameProbe& probe) { probe.PerformDurationBoundsTest(0, 50, true); }),
      Lines{Fail("Experiment_duration_Frame_Probe.om5", WEIRD, PROBE, 228,
                 "Expected a duration between 0 and 50. Instead, we got a duration of 77.")});
}

// Rows that are all hidden leave columns without a last row.
TEST(Columns, WithoutRowsReadAsUndefined) {
  RecordingPrinter printer;
  RecordOf(SomeFile(), [&printer](FrameProbe& probe) {
    for (unsigned long row = 0; row < 3; ++row) {
      probe.m_reader->HideOneSingleRowPerArbitraryUserRequest(row);
    }
    probe.m_reader->OnIdle();
    ASSERT_EQ(probe.m_reader->GetNumberOfDataRows(), 0);
    Ombrelia::RunTimes::CheckBounds(*probe.m_reader, &printer, wxT("n"), 0, 5000,
                                    wxT("Cumulative\nTime"), false);
    Ombrelia::RunTimes::RecordTotalDuration(*probe.m_reader, &printer, wxT("n"));
  });
  EXPECT_EQ(printer.m_lines,
            (Lines{Fail("Experiment_duration_n", WEIRD, "n", 228,
                        "Expected a duration between 0 and 5000. Instead, we got a duration of "
                        "-999."),
                   "pass __TIMING__TRACKING__n__?_ms"}));
}

}  // namespace
}  // namespace Tests
