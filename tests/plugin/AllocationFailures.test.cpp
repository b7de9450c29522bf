// Memory that runs out at any allocation of an operation that the host calls. This program replaces the
// operator new and the allocation of aligned memory, so that they can fail.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>

#include "Tabulon/src/machine/MUMachine.h"
#include "framework/StimAreaData.h"
#include "plugin/DataHookOutputTestingPlugin.h"
#include "report/ConcreteFakeJUnitPrinter.h"
#include "tests/BuildPaths.h"
#include "tests/support/Files.h"

namespace {

// Which allocations count: all, or only those of aligned memory, from which the table takes its blocks.
enum class Counted { ALL, ALIGNED };

Counted counted = Counted::ALL;
// The allocation that fails, counted from 0; none if negative.
long failingAllocation = -1;
bool allLaterOnesFail = false;
bool failed = false;
long failuresOfAligned = 0;

// Counts an allocation and returns whether it must fail.
bool MustFail() {
  if (failingAllocation != 0) {
    if (failingAllocation > 0) --failingAllocation;
    return false;
  }
  failed = true;
  if (!allLaterOnesFail) failingAllocation = -1;
  return true;
}

}  // namespace

// Leaks of wx and of the table after a failed allocation are not tested here.
extern "C" __attribute__((visibility("default"))) int __lsan_is_turned_off() { return 1; }

void* operator new(std::size_t size) {
  if (counted == Counted::ALL && MustFail()) throw std::bad_alloc();
  void* const memory = std::malloc(size > 0 ? size : 1);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

// The library's own would take memory that the operators below cannot give back.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return operator new(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

// A sanitizer knows the memory of posix_memalign, too, and std::free gives it back.
extern "C" void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
  if (MustFail()) {
    ++failuresOfAligned;
    return nullptr;
  }
  void* memory = nullptr;
  return posix_memalign(&memory, alignment, size) == 0 ? memory : nullptr;
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

using Ombrelia::DataHookOutputTestingPlugin;

// Calls operation with this allocation failing, alone or with all later ones. failed says whether the
// operation came so far.
template <typename OPERATION>
void FailAllocation(long number, bool allLater, OPERATION operation) {
  failed = false;
  allLaterOnesFail = allLater;
  failingAllocation = number;
  operation();
  failingAllocation = -1;
}

// Calls operation again and again, each time with the next allocation failing, until one call needs no
// allocation more. Returns how many calls there were before that one.
template <typename OPERATION>
long FailEachAllocationOf(bool allLater, OPERATION operation) {
  for (long number = 0;; ++number) {
    FailAllocation(number, allLater, operation);
    if (!failed) return number;
  }
}

class AllocationFailuresTest : public testing::TestWithParam<bool> {
 protected:
  AllocationFailuresTest() : m_directory(m_folder.Path()) { m_folder.MakeReportFolder(); }

  std::string FlushedReport(DataHookOutputTestingPlugin& plugin) {
    plugin.FlushTestOutput();
    return Tests::PidBlanked(
        Tests::ReadFile(m_folder.ReportFolder() + "/" + Tests::ReportName(getpid())), getpid());
  }

  Tests::ScratchFolder m_folder;
  Tests::WorkingDirectory m_directory;
};

long CountOf(const std::string& text, const std::string& part) {
  long count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

// Whole entries, numbered without a gap, in suites whose heads count them.
void ExpectWholeReport(const std::string& report) {
  const std::vector<std::string> cases = Tests::TestCasesOf(report);
  long number = 0;
  for (const std::string& one : cases) {
    char start[32];
    std::snprintf(start, sizeof start, "test%03ld", ++number);
    ASSERT_NE(one.find(start), std::string::npos) << one;
  }
  const long failures = CountOf(report, "<failure ");
  EXPECT_NE(report.find("<testsuites tests=\"" + std::to_string(cases.size()) + "\" failures=\"" +
                        std::to_string(failures) + "\""),
            std::string::npos)
      << report.substr(0, 200);
  EXPECT_EQ(CountOf(report, "</failure>\n</testcase>\n"), failures);
  EXPECT_EQ(CountOf(report, "    <testsuite name="), CountOf(report, "    </testsuite>\n"));
  EXPECT_EQ(report.substr(report.size() - 14), "</testsuites>\n");
}

const char* const RECORDED =
    "        <failure message=\"an exception ended this operation, later checks did not run\" "
    "type=\"\">\n\n"
    " <![CDATA[Whichever/File/Focuses/On/Verifying/DataHookOutputTestingPlugin:210\n"
    "the exception is: std::bad_alloc]]>\n\n</failure>\n</testcase>\n";

TEST_P(AllocationFailuresTest, EndTheVerificationOfADataFileWithAFailingTest) {
  const wxString file =
      wxString::FromUTF8(OMBRELIA_SOURCE_DIR) +
      wxT("/samples/datafiles/2012_3_9_tolmey_2668_macro_exit_experiment.om4 1.txt");
  DataHookOutputTestingPlugin plugin;
  const long calls =
      FailEachAllocationOf(GetParam(), [&] { plugin.PerformPostProcessing(file, {}); });
  EXPECT_GT(calls, 100);
  const std::string report = FlushedReport(plugin);
  ExpectWholeReport(report);
  if (!GetParam()) {
    // A call ends with the exception, with a data file that cannot be read, or with its last result: something
    // may do with less memory.
    const long exceptions = CountOf(report, "TestingPluginDH_Exception_in_PerformPostProcessing\"");
    EXPECT_GT(exceptions, 100);
    EXPECT_EQ(exceptions + CountOf(report, "open_and_parse_") +
                  CountOf(report, "__EXPANSION__TRACKING__"),
              calls + 1);
    EXPECT_EQ(CountOf(report, RECORDED), exceptions);
  }
  // The last call needed no memory that was not there.
  EXPECT_EQ(Tests::TestCasesOf(report).back().find("FAIL"), std::string::npos);
}

TEST_P(AllocationFailuresTest, EndAFileWithoutVerifierWithAFailingTest) {
  DataHookOutputTestingPlugin plugin;
  const wxString file = wxT("/a/nobody knows this one.txt");
  const long calls =
      FailEachAllocationOf(GetParam(), [&] { plugin.PerformPostProcessing(file, {}); });
  EXPECT_GT(calls, 3);
  ExpectWholeReport(FlushedReport(plugin));
}

TEST_P(AllocationFailuresTest, LoseAnAssertionFailureAtMost) {
  DataHookOutputTestingPlugin plugin;
  const wxString text(wxT('x'), 5000);
  const long calls = FailEachAllocationOf(
      GetParam(), [&] { EXPECT_TRUE(plugin.LogAssertionFailureAsTestFailure(text)); });
  EXPECT_GT(calls, 3);
  ExpectWholeReport(FlushedReport(plugin));
}

// The path of a data file in this folder that has as many rows as the largest one can have.
wxString LargeDataFileIn(const Tests::ScratchFolder& folder) {
  const std::string name = "/2012_3_9_tolmey_2668_macro_exit_experiment.om4 1.txt";
  std::string text =
      Tests::ReadFile(std::string(OMBRELIA_SOURCE_DIR) + "/samples/datafiles" + name);
  while (text.size() < 1048575) text += "1\n";
  Tests::WriteFile(folder.Path() + name, text);
  return wxString::FromUTF8((folder.Path() + name).c_str());
}

TEST_P(AllocationFailuresTest, OfLargeBlocksEndTheVerificationOfALargeDataFileWithAFailingTest) {
  const wxString file = LargeDataFileIn(m_folder);
  DataHookOutputTestingPlugin plugin;
  counted = Counted::ALIGNED;
  failuresOfAligned = 0;
  const long calls =
      FailEachAllocationOf(GetParam(), [&] { plugin.PerformPostProcessing(file, {}); });
  counted = Counted::ALL;
  // With the address sanitizer the table takes no aligned memory.
  if (MU_HAS_ADDRESS_SANITIZER == 0) {
    EXPECT_GT(failuresOfAligned, 3);
  }
  const std::string report = FlushedReport(plugin);
  ExpectWholeReport(report);
  const long exceptions = CountOf(report, "TestingPluginDH_Exception_in_PerformPostProcessing\"");
  EXPECT_EQ(exceptions + CountOf(report, "open_and_parse_"), calls);
  EXPECT_EQ(CountOf(report, RECORDED), exceptions);
  EXPECT_EQ(CountOf(report, "__EXPANSION__TRACKING__"), 1);
}

// wx ends the process when memory runs out inside its file functions. The allocations before those are
// the plug-in's own, and they are these first ones.
const long OWN_ALLOCATIONS = 3;

const wxString ASSERTION = wxT("some assertion");

TEST_P(AllocationFailuresTest, LeaveTheReportToTheNextFlush) {
  DataHookOutputTestingPlugin plugin;
  const std::string path = m_folder.ReportFolder() + "/" + Tests::ReportName(getpid());
  for (long number = 0; number < OWN_ALLOCATIONS; ++number) {
    plugin.LogAssertionFailureAsTestFailure(ASSERTION);
    FailAllocation(number, GetParam(), [&] { plugin.FlushTestOutput(); });
    EXPECT_TRUE(failed) << number;
    EXPECT_FALSE(Tests::Exists(path)) << number;
  }
  const std::string report = FlushedReport(plugin);
  ExpectWholeReport(report);
  EXPECT_EQ(CountOf(report, "TestingPluginDH_AssertionFailure_"), OWN_ALLOCATIONS);
  // If all later allocations fail, too, not even the exception can be recorded.
  EXPECT_EQ(CountOf(report, "TestingPluginDH_Exception_in_FlushTestOutput\""),
            GetParam() ? 0 : OWN_ALLOCATIONS);
}

TEST_P(AllocationFailuresTest, LeaveTheReportAsItWasUntilItIsPutTogether) {
  auto printer = std::make_unique<Ombrelia::ConcreteFakeJUnitPrinter>(
      wxT("FakeUnitTestsDataHookExperimentRunning"), wxT("auto_experiment_tests"), true);
  // So long that each piece of the report must grow.
  printer->NewTestSuite(wxString(wxT('s'), 5000));
  printer->AddFailingTestResult(wxT("t"), wxT("s"), wxT("l"), wxString(wxT('m'), 65300));
  const long calls = FailEachAllocationOf(GetParam(), [&] {
    try {
      printer->FinalizeTheTotalContentOfOurArray();
    } catch (const std::bad_alloc&) {
    }
  });
  EXPECT_GT(calls, OWN_ALLOCATIONS);
  printer.reset();
  const std::string report =
      Tests::ReadFile(m_folder.ReportFolder() + "/" + Tests::ReportName(getpid()));
  ExpectWholeReport(report);
  EXPECT_EQ(CountOf(report, "    <testsuite name=\"sssss"), 1);
}

TEST_P(AllocationFailuresTest, LeaveTheNextCallToMakeTheReportWriter) {
  DataHookOutputTestingPlugin plugin;
  plugin.FlushTestOutput();
  for (long number = 0; number < OWN_ALLOCATIONS; ++number) {
    FailAllocation(number, true, [&] { plugin.LogAssertionFailureAsTestFailure(ASSERTION); });
    EXPECT_TRUE(failed) << number;
  }
  plugin.LogAssertionFailureAsTestFailure(ASSERTION);
  const std::string report = FlushedReport(plugin);
  ExpectWholeReport(report);
  EXPECT_EQ(Tests::TestCasesOf(report).size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(One, AllocationFailuresTest, testing::Values(false));
INSTANTIATE_TEST_SUITE_P(All, AllocationFailuresTest, testing::Values(true));

}  // namespace
