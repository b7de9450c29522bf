// Each cell of each sample is changed, one at a time. Where that makes a test fail, the evidence names the cell.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "Tabulon/src/machine/MUMachine.h"
#include "host/results/Manifest.h"
#include "host/results/SecondVerification.h"
#include "tests/support/DataFile.h"
#include "tests/support/Files.h"

namespace OmbreliaHost {

// Without it the name of a test would hold bytes of the entry, addresses among them.
static void PrintTo(const VerifierEntry& entry, std::ostream* out) { *out << entry.experiment; }

}  // namespace OmbreliaHost

namespace {

using OmbreliaHost::EvidenceCell;
using OmbreliaHost::MachineKind;
using OmbreliaHost::Outcome;
using OmbreliaHost::OwnVerdict;
using OmbreliaHost::TestOutcome;
using Tests::DataFile;

constexpr long LINE_OF_FIRST_ROW = 7;

// The optimised build changes every row of a column. All of them would take minutes with sanitizers.
constexpr std::size_t ROW_STEP = MU_HAS_ADDRESS_SANITIZER ? 17 : 1;

std::string PrintExperiment(const testing::TestParamInfo<OmbreliaHost::VerifierEntry>& info) {
  return info.param.className;
}

class EvidenceOfSamples : public testing::TestWithParam<OmbreliaHost::VerifierEntry> {
 protected:
  EvidenceOfSamples() : m_sample(DataFile::Sample(GetParam().experiment)) {}

  OwnVerdict Verify(DataFile file) const {
    const std::string path = m_folder / (GetParam().experiment + " 1.txt");
    Tests::WriteFile(path, file.Text());
    return OmbreliaHost::VerifyInThisProcess(path, file.StimAreas(), MachineKind::Ordinary);
  }

  // The columns of which some cell decides something. Of thousands of other cells not one can make a test
  // fail.
  std::vector<std::string> ColumnsThatMatter() const {
    std::vector<std::string> columns;
    for (const std::string& column : m_sample.Columns()) {
      std::vector<std::string> same(m_sample.RowCount(), "changed");
      std::vector<std::string> different;
      for (std::size_t row = 0; row < m_sample.RowCount(); ++row)
        different.push_back("changed " + std::to_string(row));
      const auto fails = [&](const std::vector<std::string>& cells) {
        const DataFile changed = DataFile(m_sample).SetColumn(column, cells);
        return NeverEnds(changed) || Verify(changed).outcome != Outcome::Passed;
      };
      if (fails(same) || fails(different)) columns.push_back(column);
    }
    return columns;
  }

  // One verifier searches for a row and does not stop at the last one. The second is one of processor
  // time: a busy machine changes nothing.
  bool NeverEnds(const DataFile& file) const {
    if (GetParam().className != "TestMultipleSubsetExpressionsOnOneBlock") return false;
    const pid_t child = fork();
    if (child == 0) {
      const rlimit oneSecond = {1, 1};
      setrlimit(RLIMIT_CPU, &oneSecond);
      Verify(file);
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return !WIFEXITED(status);
  }

  const Tests::ScratchFolder m_folder;
  const DataFile m_sample;
};

bool Names(const TestOutcome& test, const std::string& column, std::size_t row,
           const std::string& text) {
  return std::any_of(test.evidence.cells.begin(), test.evidence.cells.end(),
                     [&](const EvidenceCell& cell) {
                       const long number = static_cast<long>(row);
                       return cell.column == column && cell.row == number &&
                              cell.line == number + LINE_OF_FIRST_ROW && cell.actual == text;
                     });
}

TEST_P(EvidenceOfSamples, NamesTheChangedCell) {
  ASSERT_EQ(Verify(m_sample).outcome, Outcome::Passed);
  for (const std::string& column : ColumnsThatMatter()) {
    const std::vector<std::string> cells = m_sample.Column(column);
    for (std::size_t row = 0; row < cells.size(); row += ROW_STEP) {
      // A text of nothing else, one of another row, a number, and nothing at all.
      std::set<std::string> texts = {"changed", cells[(row + 1) % cells.size()], "7", ""};
      texts.erase(cells[row]);
      for (const std::string& text : texts) {
        const DataFile changed = DataFile(m_sample).Set(row, column, text);
        const OwnVerdict verdict = Verify(changed);
        for (const TestOutcome& test : verdict.tests) {
          if (test.outcome == Outcome::Passed) continue;
          EXPECT_TRUE(Names(test, column, row, text))
              << test.name << " failed by \"" << text << "\" in row " << row << " of " << column;
        }
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, EvidenceOfSamples, testing::ValuesIn(OmbreliaHost::Verifiers()),
                         PrintExperiment);

}  // namespace
