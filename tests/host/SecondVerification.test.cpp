#include "host/results/SecondVerification.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "framework/VerificationListener.h"
#include "host/results/Manifest.h"
#include "tests/support/DataFile.h"
#include "tests/support/Files.h"
#include "tests/support/HostNameIs.h"

namespace {

using OmbreliaHost::Evidence;
using OmbreliaHost::EvidenceCell;
using OmbreliaHost::EvidenceContext;
using OmbreliaHost::MachineKind;
using OmbreliaHost::Outcome;
using OmbreliaHost::OwnVerdict;
using OmbreliaHost::TestOutcome;
using Tests::DataFile;
using Words = std::vector<std::string>;

const char* const TAGGING = "two_sublists_tagging.om5";
const char* const EVENT = "Event\nName";
const char* const TIME = "Cumulative\nTime";

OwnVerdict VerifyBytes(const std::string& fileName, const std::string& bytes,
                       MachineKind machine = MachineKind::Ordinary,
                       const std::vector<Ombrelia::StimAreaData>& areas = {}) {
  const Tests::ScratchFolder folder;
  Tests::WriteFile(folder / fileName, bytes);
  return OmbreliaHost::VerifyInThisProcess(folder / fileName, areas, machine);
}

OwnVerdict Verify(const std::string& experiment, DataFile file,
                  MachineKind machine = MachineKind::Ordinary) {
  return VerifyBytes(experiment + " 1.txt", file.Text(), machine, file.StimAreas());
}

std::vector<TestOutcome> FailuresOf(const OwnVerdict& verdict) {
  std::vector<TestOutcome> failures;
  std::copy_if(verdict.tests.begin(), verdict.tests.end(), std::back_inserter(failures),
               [](const TestOutcome& test) { return test.outcome != Outcome::Passed; });
  return failures;
}

// The one failing test.
TestOutcome FailureOf(const OwnVerdict& verdict) {
  const std::vector<TestOutcome> failures = FailuresOf(verdict);
  EXPECT_EQ(failures.size(), 1u);
  return failures.empty() ? TestOutcome() : failures.front();
}

std::vector<std::string> NamesOf(const std::vector<TestOutcome>& tests) {
  std::vector<std::string> names;
  for (const TestOutcome& test : tests) names.push_back(test.name);
  return names;
}

// The tests' names in failing lines of a record.
std::vector<std::string> NamesOfLines(const Tests::Lines& lines) {
  const std::size_t start = std::string("FAIL ").size();
  std::vector<std::string> names;
  for (const std::string& line : lines)
    names.push_back(line.substr(start, line.find(" | ") - start));
  return names;
}

template <typename VALUE>
std::string Shown(const std::optional<VALUE>& value) {
  if constexpr (std::is_same_v<VALUE, std::string>) {
    return value ? "{" + *value + "}" : "-";
  } else {
    return value ? std::to_string(*value) : "-";
  }
}

// "column row line {actual} {expected}", with "-" for what is absent.
std::vector<std::string> CellsOf(const Evidence& evidence) {
  std::vector<std::string> cells;
  for (const EvidenceCell& cell : evidence.cells)
    cells.push_back(cell.column + " " + Shown(cell.row) + " " + Shown(cell.line) + " " +
                    Shown(cell.actual) + " " + Shown(cell.expected));
  return cells;
}

// "line row cell cell {expected}", the deciding row with ">" in front.
std::vector<std::string> RowsOf(const EvidenceContext& context) {
  std::vector<std::string> rows;
  for (const EvidenceContext::Row& row : context.rows) {
    std::string text =
        (row.decides ? "> " : "") + std::to_string(row.line) + " " + std::to_string(row.row);
    for (const std::string& cell : row.cells) text += " " + cell;
    rows.push_back(text + " {" + row.expected + "}");
  }
  return rows;
}

TEST(SecondVerification, HasTheTestsOfThePluginForEachSample) {
  for (const auto& verifier : OmbreliaHost::Verifiers()) {
    const DataFile sample = DataFile::Sample(verifier.experiment);
    const OwnVerdict verdict = Verify(verifier.experiment, sample);
    EXPECT_EQ(verdict.experiment, verifier.experiment);
    EXPECT_EQ(verdict.outcome, Outcome::Passed) << verifier.experiment;
    std::vector<std::string> wanted = {
        "pass DataHookOutputTestingPlugin_PerformPostProcessing_was_called"};
    for (const std::string& line : sample.Verify()) {
      if (line.rfind("suite ", 0) != 0) wanted.push_back(line);
    }
    std::vector<std::string> found;
    for (const TestOutcome& test : verdict.tests)
      found.push_back((test.outcome == Outcome::Passed ? "pass " : "FAIL ") + test.name);
    // Counted through the whole process.
    const auto isNumbered = [](const std::string& line) {
      return line.find("CHECK_TIMESTAMP_") != std::string::npos;
    };
    for (auto* lines : {&wanted, &found})
      lines->erase(std::remove_if(lines->begin(), lines->end(), isNumbered), lines->end());
    EXPECT_EQ(found, wanted) << verifier.experiment;
  }
}

TEST(SecondVerification, LeavesNoListenerBehind) {
  Verify(TAGGING, DataFile::Sample(TAGGING));
  EXPECT_EQ(Ombrelia::VerificationListener::Current(), nullptr);
}

TEST(SecondVerification, TellsTheTimesOfTheHost) {
  const OwnVerdict verdict =
      Verify(TAGGING, DataFile::Sample(TAGGING).SetDuration("812").SetExpansion("31"));
  EXPECT_EQ(verdict.durationMs, 812);
  EXPECT_EQ(verdict.expansionMs, 31);
}

TEST(SecondVerification, TellsNoTimeThatIsNoNumber) {
  const OwnVerdict verdict = Verify(TAGGING, DataFile::Sample(TAGGING).SetDuration("soon"));
  EXPECT_EQ(verdict.durationMs, std::nullopt);
}

TEST(SecondVerification, ToleratesWhatTheTableOfVerifiersTolerates) {
  const std::string experiment = "2011-06-17_test_all_randomization_for_case_983.om4";
  DataFile file = DataFile::Sample(experiment);
  for (const std::size_t start : {24u, 27u}) {
    for (std::size_t i = 0; i < 3; ++i) file.Set(start + i, EVENT, file.Cell(21 + i, EVENT));
  }
  const OwnVerdict verdict = Verify(experiment, file);
  EXPECT_EQ(verdict.outcome, Outcome::Tolerated);
  EXPECT_EQ(FailureOf(verdict).name, "Rand_Events_In_Trial_Every_Time");
  EXPECT_EQ(FailureOf(verdict).outcome, Outcome::Tolerated);
}

TEST(SecondVerification, HasTheWordsOfTheReport) {
  const TestOutcome test =
      FailureOf(Verify(TAGGING, DataFile::Sample(TAGGING).Set(4, "color", "blue")));
  EXPECT_EQ(test.number, 0);
  EXPECT_EQ(test.name, "Data_appears_completely_and_in_order");
  EXPECT_EQ(test.subject, "Mismatch in the ordering of data cells in datafile.");
  EXPECT_EQ(test.location, "Whichever/File/Focuses/On/Verifying/two_sublists_tagging.om5:144");
  EXPECT_EQ(test.message,
            "At datafile row index 4 we expected {red}, but that was not the actual content.");
}

TEST(Evidence, OfAVerbatimComparisonIsTheCellWithItsSurroundings) {
  const Evidence evidence =
      FailureOf(Verify(TAGGING, DataFile::Sample(TAGGING).Set(4, "color", "blue"))).evidence;
  EXPECT_EQ(evidence.kind, Evidence::Kind::Cell);
  EXPECT_EQ(CellsOf(evidence), (Words{"color 4 11 {blue} {red}"}));
  EXPECT_EQ(evidence.context.columns, (Words{"color", "direction"}));
  EXPECT_EQ(RowsOf(evidence.context),
            (Words{"9 2 blue down {blue}", "10 3 red down {red}", "> 11 4 blue down {red}",
                   "12 5 blue up {blue}", "13 6 blue down {blue}"}));
}

TEST(Evidence, OfTheFirstRowHasNoRowsAbove) {
  const Evidence evidence =
      FailureOf(Verify(TAGGING, DataFile::Sample(TAGGING).Set(0, "direction", "up"))).evidence;
  EXPECT_EQ(CellsOf(evidence), (Words{"direction 0 7 {up} {down}"}));
  EXPECT_EQ(evidence.context.columns, (Words{"direction", "color"}));
  EXPECT_EQ(RowsOf(evidence.context),
            (Words{"> 7 0 up blue {down}", "8 1 down blue {down}", "9 2 down blue {down}"}));
}

TEST(Evidence, CountsLinesAsEditorsDoWhateverEndsThem) {
  const std::string text = DataFile::Sample(TAGGING).Set(4, "color", "blue").Text();
  for (const char* const end : {"\r\n", "\r"}) {
    std::string file;
    for (const char c : text) file += c == '\n' ? end : std::string(1, c);
    const TestOutcome test = FailureOf(VerifyBytes(std::string(TAGGING) + " 1.txt", file));
    EXPECT_EQ(CellsOf(test.evidence), (Words{"color 4 11 {blue} {red}"}));
  }
}

// An empty line is a row, whose cells are empty.
TEST(Evidence, CountsEmptyLinesAsTheReaderDoes) {
  std::string text = DataFile::Sample(TAGGING).Text();
  std::size_t line = 0;
  for (int i = 0; i < 8; ++i) line = text.find('\n', line) + 1;
  text.erase(line, text.find('\n', line) - line);
  const std::vector<TestOutcome> failures =
      FailuresOf(VerifyBytes(std::string(TAGGING) + " 1.txt", text));
  ASSERT_EQ(failures.size(), 2u);
  EXPECT_EQ(CellsOf(failures[0].evidence), (Words{"color 2 9 {} {blue}"}));
  EXPECT_EQ(CellsOf(failures[1].evidence), (Words{"direction 2 9 {} {down}"}));
}

TEST(Evidence, OfAMissingRowIsWhereItIsMissed) {
  const std::vector<TestOutcome> failures =
      FailuresOf(Verify(TAGGING, DataFile::Sample(TAGGING).RemoveRow(3)));
  ASSERT_EQ(failures.size(), 2u);
  const Evidence& evidence = failures[0].evidence;
  EXPECT_EQ(evidence.kind, Evidence::Kind::Length);
  EXPECT_EQ(evidence.actualCount, 8);
  EXPECT_EQ(evidence.expectedCount, 9);
  EXPECT_EQ(CellsOf(evidence), (Words{"color 8 15 - {blue}", "color 4 11 {blue} {red}"}));
  EXPECT_EQ(evidence.words, (Words{"The first row that differs from the expected ones is row 4."}));
  EXPECT_EQ(RowsOf(evidence.context), (Words{"13 6 blue {blue}", "14 7 blue {blue}"}));
}

TEST(Evidence, OfASurplusRowIsTheFirstOfThem) {
  const std::vector<TestOutcome> failures =
      FailuresOf(Verify(TAGGING, DataFile::Sample(TAGGING).RepeatLastRow().RepeatLastRow()));
  ASSERT_EQ(failures.size(), 2u);
  const Evidence& evidence = failures[1].evidence;
  EXPECT_EQ(evidence.kind, Evidence::Kind::Length);
  EXPECT_EQ(evidence.actualCount, 11);
  EXPECT_EQ(evidence.expectedCount, 9);
  EXPECT_EQ(CellsOf(evidence), (Words{"direction 9 16 {down} -"}));
  EXPECT_EQ(evidence.words, Words());
  EXPECT_EQ(RowsOf(evidence.context),
            (Words{"14 7 down {down}", "15 8 down {down}", "> 16 9 down {}", "17 10 down {}"}));
}

TEST(Evidence, OfAPositionalRuleIsTheFirstRowThatDiffers) {
  const std::string experiment = "2012_3_9_tolmey_2668_macro_skip_trial.om4";
  const Evidence evidence =
      FailureOf(Verify(experiment, DataFile::Sample(experiment).Set(1, EVENT, "event 2"))).evidence;
  EXPECT_EQ(evidence.kind, Evidence::Kind::Row);
  EXPECT_EQ(CellsOf(evidence), (Words{"Event\nName 1 8 {event 2} {event 3}"}));
  EXPECT_EQ(RowsOf(evidence.context), (Words{"7 0 event 1 {event 1}", "> 8 1 event 2 {event 3}"}));
}

TEST(Evidence, OfARuleWithTooManyRowsIsTheSurplusOne) {
  const std::string experiment = "2012_3_9_tolmey_2668_macro_goto_block_any.om4";
  const Evidence evidence =
      FailureOf(Verify(experiment, DataFile::Sample(experiment).RepeatRow(0))).evidence;
  EXPECT_EQ(evidence.kind, Evidence::Kind::Length);
  EXPECT_EQ(evidence.actualCount, 3);
  EXPECT_EQ(evidence.expectedCount, 2);
  EXPECT_EQ(CellsOf(evidence), (Words{"Event\nName 2 9 {event 3} -"}));
}

TEST(Evidence, OfATextThatNoRowHasIsTheTextAndTheRowThatCouldHaveIt) {
  const std::string experiment = "2012_3_9_tolmey_2668_macro_goto_block_any.om4";
  const Evidence evidence =
      FailureOf(Verify(experiment, DataFile::Sample(experiment).Set(1, EVENT, "event 2"))).evidence;
  EXPECT_EQ(evidence.kind, Evidence::Kind::MissingText);
  EXPECT_EQ(CellsOf(evidence),
            (Words{"Event\nName - - - {event 3}", "Event\nName 1 8 {event 2} -"}));
}

TEST(Evidence, OfATextThatStandsTooOftenInPlaceOfAnotherIsAllItsRows) {
  const std::string experiment = "2012_3_9_tolmey_2668_macro_goto_block_any.om4";
  const Evidence evidence =
      FailureOf(Verify(experiment, DataFile::Sample(experiment).Set(1, EVENT, "event 1"))).evidence;
  EXPECT_EQ(evidence.kind, Evidence::Kind::MissingText);
  EXPECT_EQ(CellsOf(evidence), (Words{"Event\nName - - - {event 3}", "Event\nName 0 7 {event 1} -",
                                      "Event\nName 1 8 {event 1} -"}));
}

TEST(Evidence, OfACountIsTheCountsAndTheRows) {
  const std::string experiment = "2012_3_9_tolmey_2668_macro_repeat_block.om4";
  const Evidence evidence =
      FailureOf(Verify(experiment, DataFile::Sample(experiment).Set(1, EVENT, "event 2"))).evidence;
  EXPECT_EQ(evidence.kind, Evidence::Kind::Count);
  EXPECT_EQ(evidence.actualCount, 2);
  EXPECT_EQ(evidence.expectedCount, 3);
  EXPECT_EQ(evidence.words, (Words{"The text that is counted is \"event 1\"."}));
  EXPECT_EQ(CellsOf(evidence),
            (Words{"Event\nName 1 8 {event 2} {event 1}", "Event\nName 0 7 {event 1} -",
                   "Event\nName 2 9 {event 1} -"}));
}

TEST(Evidence, OfABoundIsTheNumberAndItsBounds) {
  const TestOutcome test =
      FailureOf(Verify(TAGGING, DataFile::Sample(TAGGING).SetDuration("9000")));
  EXPECT_EQ(test.name, "Experiment_duration_two_sublists_tagging.om5");
  ASSERT_TRUE(test.bound);
  EXPECT_EQ(test.bound->actual, 9000);
  EXPECT_EQ(test.evidence.kind, Evidence::Kind::Bound);
  EXPECT_EQ(test.bound->min, 900);
  EXPECT_EQ(test.bound->max, 5200);
  EXPECT_EQ(test.evidence.words, Words());
  EXPECT_EQ(CellsOf(test.evidence), (Words{"Cumulative\nTime 8 15 {9000} -"}));
}

TEST(Evidence, OfABoundTellsThatATextIsNoNumber) {
  const TestOutcome test =
      FailureOf(Verify(TAGGING, DataFile::Sample(TAGGING).SetDuration("soon")));
  EXPECT_EQ(test.evidence.words, (Words{"\"soon\" is no whole number, so -999 stands for it."}));
}

TEST(Evidence, OfTheExpansionTimeIsTheHeading) {
  const TestOutcome test =
      FailureOf(Verify(TAGGING, DataFile::Sample(TAGGING).SetExpansion("90000")));
  EXPECT_EQ(test.name, "Expansion_duration_two_sublists_tagging.om5");
  EXPECT_EQ(test.evidence.kind, Evidence::Kind::Bound);
  EXPECT_EQ(CellsOf(test.evidence),
            (Words{"Expansion Time(ms): 90000 - 5 {Expansion Time(ms): 90000} -"}));
}

TEST(SecondVerification, KeepsTheBoundsOfPassingTests) {
  const OwnVerdict verdict = Verify(TAGGING, DataFile::Sample(TAGGING));
  const auto bounds = std::count_if(verdict.tests.begin(), verdict.tests.end(),
                                    [](const TestOutcome& test) { return test.bound.has_value(); });
  EXPECT_EQ(bounds, 2);
}

// The plug-in's verdicts on machines of these names, held against the ones by kind.
TEST(SecondVerification, JudgesAsEachKindOfMachine) {
  for (const auto& [machine, hostName] : {std::pair(MachineKind::Ordinary, Tests::ORDINARY_MACHINE),
                                          std::pair(MachineKind::Small, Tests::TESTBOX_MACHINE),
                                          std::pair(MachineKind::Large, Tests::SERVER_MACHINE)}) {
    for (const char* const duration : {"5", "450", "5000", "9000", "20000"}) {
      const DataFile file = DataFile::Sample(TAGGING).SetDuration(duration);
      EXPECT_EQ(NamesOf(FailuresOf(Verify(TAGGING, file, machine))),
                NamesOfLines(file.Failures(hostName)))
          << hostName << " " << duration;
    }
  }
}

TEST(ThisMachine, GoesByTheNameOfTheHost) {
  for (const auto& [machine, hostName] : {std::pair(MachineKind::Ordinary, Tests::ORDINARY_MACHINE),
                                          std::pair(MachineKind::Small, Tests::TESTBOX_MACHINE),
                                          std::pair(MachineKind::Large, Tests::SERVER_MACHINE),
                                          std::pair(MachineKind::Large, Tests::BOTH_MACHINES)}) {
    const Tests::HostNameIs here(hostName);
    EXPECT_EQ(OmbreliaHost::ThisMachine(), machine) << hostName;
  }
}

// The plug-in applies both kinds of bounds there.
TEST(SecondVerification, HasBothBoundsOnAMachineOfBothKinds) {
  const DataFile file = DataFile::Sample(TAGGING).SetDuration("90000");
  const Tests::HostNameIs here(Tests::BOTH_MACHINES);
  const OwnVerdict verdict = Verify(TAGGING, file, MachineKind::Large);
  const std::vector<std::string> names = NamesOf(FailuresOf(verdict));
  EXPECT_EQ(names, NamesOfLines(file.Failures(Tests::BOTH_MACHINES)));
  const std::string duration = "Experiment_duration_two_sublists_tagging.om5";
  EXPECT_EQ(std::count(names.begin(), names.end(), duration), 2);
}

TEST(Evidence, OfAnUnreadableFileIsWhatTheReaderSays) {
  const OwnVerdict verdict = VerifyBytes("two_sublists_tagging.om5 1.txt", "a\nb\nc\n");
  EXPECT_EQ(verdict.outcome, Outcome::Unreadable);
  const TestOutcome test = FailureOf(verdict);
  EXPECT_EQ(test.name, "open_and_parse_two_sublists_tagging.om5 1");
  EXPECT_EQ(test.evidence.kind, Evidence::Kind::Reader);
  EXPECT_EQ(test.evidence.words,
            (Words{"This file does not appear long enough to be a valid datafile.  There should be "
                   "6 lines of header information followed by one or more rows of data."}));
}

TEST(Evidence, OfAFileThatIsNotThereIsWhatTheLibrarySays) {
  const OwnVerdict verdict = OmbreliaHost::VerifyInThisProcess("/no/two_sublists_tagging.om5 1.txt",
                                                               {}, MachineKind::Small);
  EXPECT_EQ(verdict.outcome, Outcome::Unreadable);
  const Evidence evidence = FailureOf(verdict).evidence;
  EXPECT_EQ(evidence.kind, Evidence::Kind::Reader);
  ASSERT_FALSE(evidence.words.empty());
  EXPECT_NE(evidence.words[0].find("/no/two_sublists_tagging.om5 1.txt"), std::string::npos)
      << evidence.words[0];
}

TEST(SecondVerification, PassesAnUnreadableFileThatIsWanted) {
  const OwnVerdict verdict = VerifyBytes("mac_input_settings_45_one.om4 1.txt", "");
  EXPECT_EQ(verdict.outcome, Outcome::Passed);
  EXPECT_EQ(verdict.durationMs, 55555);
}

TEST(SecondVerification, KnowsNoExperimentWithoutAVerifier) {
  const OwnVerdict verdict = VerifyBytes("Some_Experiment.om5 1.txt", "");
  EXPECT_EQ(verdict.experiment, "Some_Experiment.om5");
  EXPECT_EQ(verdict.outcome, Outcome::Unknown);
  EXPECT_EQ(NamesOf(verdict.tests),
            (Words{"DataHookOutputTestingPlugin_PerformPostProcessing_was_called",
                   "locating_verifier_for_Some_Experiment.om5 1"}));
  EXPECT_EQ(FailureOf(verdict).evidence.kind, Evidence::Kind::None);
}

TEST(Evidence, OfAColumnThatIsNotThereIsTheHeadingsLine) {
  const TestOutcome test =
      FailureOf(Verify(TAGGING, DataFile::Sample(TAGGING).RenameColumn("color", "colour")));
  EXPECT_EQ(test.evidence.kind, Evidence::Kind::Cell);
  EXPECT_EQ(test.evidence.words, (Words{"The data file has no column \"color\"."}));
  EXPECT_EQ(CellsOf(test.evidence), (Words{"color - 5 {colour} {color}"}));
}

TEST(Evidence, OfCellsOfAColumnThatIsNotThereIsTheHeadingsLine) {
  const std::string experiment = "2013-09-27_list_access_pair_unpair_cross.om5";
  const std::vector<TestOutcome> failures =
      FailuresOf(Verify(experiment, DataFile::Sample(experiment).RemoveColumn("Trial\nName")));
  ASSERT_FALSE(failures.empty());
  EXPECT_EQ(failures[0].name, "INITIAL_PARSING_OF_DATAFILE_TRIALS_COLUMN");
  EXPECT_EQ(failures[0].evidence.words, (Words{"The data file has no column \"Trial Name\"."}));
}

TEST(Evidence, OfTheTotalTimeThatIsMissingIsTheColumnThatWasLookedFor) {
  const TestOutcome test = FailureOf(Verify(TAGGING, DataFile::Sample(TAGGING).RemoveColumn(TIME)));
  EXPECT_EQ(test.name, "__TIMING__TRACKING__UNAVAILABLE__two_sublists_tagging.om5");
  EXPECT_EQ(test.evidence.kind, Evidence::Kind::LastReads);
  EXPECT_EQ(test.evidence.words,
            (Words{"The check looked for columns by their names and read no cell.",
                   "The data file has no column \"Cumulative Time\"."}));
}

TEST(Evidence, OfTheExpansionTimeThatIsMissingIsAllHeadings) {
  const TestOutcome test = FailureOf(
      Verify(TAGGING, DataFile::Sample(TAGGING).RenameColumn("Expansion Time(ms): 58", "Other")));
  EXPECT_EQ(test.name, "__EXPANSION__TRACKING__UNAVAILABLE__two_sublists_tagging.om5");
  EXPECT_EQ(test.evidence.kind, Evidence::Kind::LastReads);
  ASSERT_EQ(test.evidence.cells.size(), 11u);
  EXPECT_EQ(CellsOf(test.evidence).back(), "Other - 5 {Other} -");
}

TEST(Evidence, OfAnyOtherCheckIsTheCellsThatItReadLast) {
  const std::string experiment = "one_sublist_exp_randomization.om5";
  const Evidence evidence =
      FailureOf(Verify(experiment, DataFile::Sample(experiment).Set(1, EVENT, "x"))).evidence;
  EXPECT_EQ(evidence.kind, Evidence::Kind::LastReads);
  EXPECT_EQ(evidence.words, (Words{"The cell that was read last stands first."}));
  const std::vector<std::string> cells = CellsOf(evidence);
  ASSERT_EQ(cells.size(), DataFile::Sample(experiment).RowCount());
  EXPECT_EQ(cells[cells.size() - 2], "Event\nName 1 8 {x} -");
}

TEST(Evidence, OfACheckThatReadEverythingBeforeSaysSo) {
  const std::string experiment = "2013-09-27_list_access_pair_unpair_cross.om5";
  DataFile file = DataFile::Sample(experiment);
  std::size_t row = 0;
  while (file.Cell(row, "Trial\nName").rfind("1  letters3 PAIRED", 0) != 0) ++row;
  const Evidence evidence = FailureOf(Verify(experiment, file.Set(row, EVENT, "x"))).evidence;
  EXPECT_EQ(evidence.kind, Evidence::Kind::LastReads);
  EXPECT_EQ(evidence.words, (Words{"The check read no cell of its own. These were read before it; "
                                   "the last one stands first."}));
  EXPECT_EQ(evidence.cells.size(), 2 * file.RowCount());
}

TEST(Evidence, OfACheckOfTheNumberOfRowsIsThatNumber) {
  const std::string experiment = "2011-09-21_basic_audio_format_4.5.2_tests.om4";
  const Evidence evidence =
      FailureOf(Verify(experiment, DataFile::Sample(experiment).RemoveRow(0))).evidence;
  EXPECT_EQ(evidence.words, (Words{"The check read no cell. The data file has 21 rows."}));
}

TEST(Evidence, ListsAThousandCellsAtMost) {
  const std::string experiment = "one_sublist_exp_randomization.om5";
  DataFile file = DataFile::Sample(experiment);
  while (file.RowCount() < 1200) file.RepeatRow(0);
  const Evidence evidence = FailuresOf(Verify(experiment, file)).front().evidence;
  EXPECT_EQ(evidence.cells.size(), 1000u);
  EXPECT_EQ(evidence.words, (Words{"The cell that was read last stands first.",
                                   "More cells were read than the 1000 that are listed."}));
}

// This many cells for each of thousands of failing tests would fill the memory.
TEST(Evidence, ListsFewCellsAfterAHundredFailures) {
  const std::string experiment = "2014-06-16_sync_trials.om5";
  DataFile file = DataFile::Sample(experiment);
  while (file.RowCount() < 300) file.RepeatRow(0);
  file.SetColumn(TIME, std::vector<std::string>(file.RowCount(), "soon"));
  const std::vector<TestOutcome> failures = FailuresOf(Verify(experiment, file));
  ASSERT_GT(failures.size(), 299u);
  EXPECT_EQ(failures[299].name, "NON_NUMERIC_TIME_VALUE");
  EXPECT_EQ(failures[299].evidence.cells.size(), 10u);
  EXPECT_EQ(CellsOf(failures[299].evidence).front(), "Cumulative\nTime 299 306 {soon} -");
  EXPECT_EQ(failures[99].evidence.cells.size(), 200u);
}

TEST(Evidence, OfStimulusAreasSaysWhichOneIsAnother) {
  const std::string experiment =
      "2011-07-19_runs_unattended_for_regression_test_FEEDBACK_TRIAL_VAR_TIMES_case_2405.om4";
  DataFile file = DataFile::Sample(experiment);
  file.StimAreas()[1].area_name = wxT("wrong");
  const std::vector<TestOutcome> failures = FailuresOf(Verify(experiment, file));
  ASSERT_FALSE(failures.empty());
  EXPECT_EQ(failures[0].evidence.words,
            (Words{"Stimulus area 1, counted from 0, is \"wrong\" at x 0, y 0, width 254, height "
                   "100, response 0; the check wants \"correct\" at x 0, y 0, any width, any "
                   "height, response 0."}));
}

TEST(Evidence, OfStimulusAreasSaysHowManyThereAre) {
  const std::string experiment =
      "2011-07-19_runs_unattended_for_regression_test_FEEDBACK_TRIAL_VAR_TIMES_case_2405.om4";
  DataFile file = DataFile::Sample(experiment);
  file.StimAreas().pop_back();
  const std::vector<TestOutcome> failures = FailuresOf(Verify(experiment, file));
  ASSERT_FALSE(failures.empty());
  EXPECT_EQ(failures[0].evidence.actualCount, 2);
  EXPECT_EQ(failures[0].evidence.expectedCount, 3);
  EXPECT_EQ(failures[0].evidence.words,
            (Words{"The host handed over 2 stimulus areas; the check wants 3."}));
}

TEST(Evidence, HoldsGoodUtf8OfAnyCell) {
  // UTF-32 with its mark, the changed cell with a number that is no character.
  std::string bytes("\xFF\xFE\0\0", 4);
  const std::string text = DataFile::Sample(TAGGING).Set(4, "color", "@").Text();
  for (const char c : text)
    bytes += c == '@' ? std::string("\0\xD8\0\0", 4) : std::string(1, c) + std::string(3, '\0');
  const TestOutcome test = FailureOf(VerifyBytes(std::string(TAGGING) + " 1.txt", bytes));
  EXPECT_EQ(CellsOf(test.evidence), (Words{"color 4 11 {\xEF\xBF\xBD} {red}"}));
}

}  // namespace
