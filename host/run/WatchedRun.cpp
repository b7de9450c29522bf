#include "host/run/WatchedRun.h"

#include <unistd.h>
#include <wx/debug.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "host/results/ExitStatus.h"
#include "host/results/FailingTests.h"
#include "host/results/Manifest.h"
#include "host/run/LossText.h"
#include "host/run/SharedWork.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

namespace {

const std::string NOTICED = "noticed";
const std::string UNNOTICED = "unnoticed";

std::string BytesOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

[[noreturn]] void RejectDatafile(const fs::path& path, const std::string& why) {
  throw RunError(ExitStatus::WrongUse, path.string() + ": no good data file: " + why);
}

ChangeOutcome OutcomeOf(const SharedWork::Answer& answer) {
  if (answer.timedOut) return ChangeOutcome::NeverEnds;
  if (answer.loss) return ChangeOutcome::Crashes;
  if (answer.line == NOTICED) return ChangeOutcome::Noticed;
  if (answer.line == UNNOTICED) return ChangeOutcome::Unnoticed;
  throw RunError(ExitStatus::NoReport, answer.line);
}

}  // namespace

int WatchedRun::Do(const Plan& plan) {
  WatchedRun run(plan);
  if (const int stop = run.FindBaselines()) return stop;
  for (std::size_t i = 0; i < plan.inputs.size(); ++i) run.RequireGood(i);
  for (std::size_t i = 0; i < plan.inputs.size(); ++i) run.PlanChanges(i);
  return run.VerifyChanges();
}

WatchedRun::WatchedRun(const Plan& plan)
    : m_plan(plan),
      m_baselines(plan.inputs.size()),
      m_results(plan.inputs.size()),
      m_open(plan.inputs.size()) {
  for (const Input& input : plan.inputs) m_datafiles.emplace_back(BytesOf(input.path));
}

int WatchedRun::FindBaselines() {
  SharedWork::Plan work;
  work.pieces = m_plan.inputs.size();
  work.jobs = m_plan.jobs;
  work.timeout = m_plan.timeout;
  work.work = [this](std::size_t i) {
    wxDisableAsserts();
    return BaselineOf(m_plan.inputs[i].path, m_plan.inputs[i].areas).Line();
  };
  work.take = [this](std::size_t i, const SharedWork::Answer& answer) {
    const fs::path& path = m_plan.inputs[i].given;
    if (answer.timedOut) RejectDatafile(path, "its verification takes too long");
    if (answer.loss) RejectDatafile(path, "its verification " + WordsOf(*answer.loss));
    m_baselines[i] = WatchedBaseline::OfLine(answer.line);
  };
  return SharedWork::Do(work);
}

void WatchedRun::RequireGood(std::size_t input) const {
  for (const std::string& test : m_baselines[input].failing) {
    if (!IsTolerated(m_plan.inputs[input].experiment, test))
      RejectDatafile(m_plan.inputs[input].given, test + " fails");
  }
}

void WatchedRun::PlanChanges(std::size_t input) {
  const WatchedBaseline& baseline = m_baselines[input];
  WatchedDatafile& result = m_results[input];
  result.experiment = m_plan.inputs[input].experiment;
  result.className = m_plan.inputs[input].className;
  result.datafile = m_plan.inputs[input].given;
  result.columns.resize(baseline.columns.size());
  for (std::size_t i = 0; i < baseline.columns.size(); ++i) {
    result.columns[i].name = baseline.columns[i];
    PlanCells(input, i);
  }
  PlanRows(input);
  result.bounds.resize(baseline.bounds.size());
  for (std::size_t i = 0; i < baseline.bounds.size(); ++i) PlanBound(input, i);
  result.changes = m_open[input];
}

void WatchedRun::PlanCells(std::size_t input, std::size_t column) {
  const ChangedDatafile& datafile = m_datafiles[input];
  WatchedColumn& result = m_results[input].columns[column];
  result.cells.resize(datafile.RowCount());
  bool hasText = false;
  for (std::size_t row = 0; row < datafile.RowCount(); ++row) {
    WatchedCell& cell = result.cells[row];
    const std::string text = datafile.Cell(row, column);
    const auto with = [&datafile, row, column](const std::string& other) {
      return [&datafile, row, column, other] { return datafile.WithCell(row, column, other); };
    };
    Add(input, with(datafile.NearText(row, column)), cell.near);
    if (const auto other = datafile.OtherText(row, column)) Add(input, with(*other), cell.other);
    if (!text.empty()) Add(input, with(std::string()), cell.empty);
    hasText = hasText || !text.empty();
  }
  if (hasText) {
    Add(
        input, [&datafile, column] { return datafile.WithEmptyColumn(column); }, result.emptied);
  }
  Add(
      input, [&datafile, column] { return datafile.WithoutColumn(column); }, result.removed);
}

void WatchedRun::PlanRows(std::size_t input) {
  const ChangedDatafile& datafile = m_datafiles[input];
  WatchedDatafile& result = m_results[input];
  result.dropped.resize(datafile.RowCount());
  result.doubled.resize(datafile.RowCount());
  for (std::size_t row = 0; row < datafile.RowCount(); ++row) {
    Add(
        input, [&datafile, row] { return datafile.WithoutRow(row); }, result.dropped[row]);
    Add(
        input, [&datafile, row] { return datafile.WithRowTwice(row); }, result.doubled[row]);
  }
  if (datafile.RowCount() == 0)
    Add(
        input, [&datafile] { return datafile.WithOneMoreRow(); }, result.added);
}

void WatchedRun::PlanBound(std::size_t input, std::size_t bound) {
  const ChangedDatafile& datafile = m_datafiles[input];
  const WatchedBaseline::Bound& known = m_baselines[input].bounds[bound];
  WatchedBound& result = m_results[input].bounds[bound];
  result.test = known.test;
  result.machine = known.machine;
  result.min = known.min;
  result.max = known.max;
  const auto add = [&](long value, bool wanted, bool& asWanted) {
    const auto bytes = [&datafile, &known, value] {
      const auto column = static_cast<std::size_t>(known.column);
      return known.isExpansion
                 ? datafile.WithExpansionTime(column, value)
                 : datafile.WithCell(datafile.RowCount() - 1, column, std::to_string(value));
    };
    m_changes.push_back({input, bytes, &known, [wanted, &asWanted](ChangeOutcome outcome) {
                           asWanted = IsNoticed(outcome) == wanted;
                         }});
    ++m_open[input];
  };
  add(known.min - 1, true, result.failsBelow);
  add(known.min, false, result.passesAtMin);
  add(known.max, false, result.passesAtMax);
  add(known.max + 1, true, result.failsAbove);
}

void WatchedRun::Add(std::size_t input, std::function<std::string()> bytes,
                     ChangeOutcome& outcome) {
  m_changes.push_back(
      {input, std::move(bytes), nullptr, [&outcome](ChangeOutcome found) { outcome = found; }});
  ++m_open[input];
}

void WatchedRun::Add(std::size_t input, std::function<std::string()> bytes,
                     std::optional<ChangeOutcome>& outcome) {
  outcome = ChangeOutcome::Unnoticed;
  Add(input, std::move(bytes), *outcome);
}

int WatchedRun::VerifyChanges() {
  SharedWork::Plan work;
  work.pieces = m_changes.size();
  work.jobs = m_plan.jobs;
  work.timeout = m_plan.timeout;
  work.work = [this](std::size_t i) { return Verify(m_changes[i]); };
  work.take = [this](std::size_t i, const SharedWork::Answer& answer) {
    TakeOutcome(m_changes[i], OutcomeOf(answer));
  };
  return SharedWork::Do(work);
}

// In a child: what became of it, or why it could not be verified.
std::string WatchedRun::Verify(const Change& change) const {
  wxDisableAsserts();
  const Input& input = m_plan.inputs[change.input];
  // The name of the data file decides on its verifier.
  const fs::path folder = m_scratch.Path() / std::to_string(getpid());
  const fs::path path = folder / input.path.filename();
  std::error_code ignored;
  fs::create_directory(folder, ignored);
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << change.bytes();
  file.close();
  if (!file) return path.string() + ": the file cannot be written";
  const bool noticed = change.bound != nullptr
                           ? Breaks(*change.bound, path, input.areas)
                           : FailingTestsOf(path, input.areas, MachineKind::Ordinary) !=
                                 m_baselines[change.input].failing;
  fs::remove(path, ignored);
  return noticed ? NOTICED : UNNOTICED;
}

void WatchedRun::TakeOutcome(const Change& change, ChangeOutcome outcome) {
  change.take(outcome);
  --m_open[change.input];
  for (; m_firstNotTaken < m_open.size() && m_open[m_firstNotTaken] == 0; ++m_firstNotTaken)
    m_plan.take(m_results[m_firstNotTaken]);
}

}  // namespace OmbreliaHost
