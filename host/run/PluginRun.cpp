#include "host/run/PluginRun.h"

#include <algorithm>
#include <limits>
#include <string>
#include <system_error>
#include <utility>

#include "host/run/LossText.h"
#include "host/run/ReportFile.h"

namespace OmbreliaHost {

namespace {

// A process may be ended from outside while it has no data file in hand; a plug-in that never gets
// further must not be started for ever.
constexpr int LOSSES_WITHOUT_DATAFILE = 3;

}  // namespace

PluginRun::PluginRun(const Plan& plan, PluginRunListener& listener)
    : m_plan(plan), m_listener(listener), m_settled(plan.datafiles->size(), false) {
  m_plan.jobs = std::min(plan.jobs, plan.datafiles->size());
  StartChildren();
}

void PluginRun::AddTo(std::vector<pollfd>& descriptors) const {
  for (const Child& child : m_children) child.process.AddTo(descriptors);
}

double PluginRun::Deadline() const {
  double deadline = std::numeric_limits<double>::infinity();
  for (const Child& child : m_children) {
    if (!child.timedOut) deadline = std::min(deadline, child.lastStep + m_plan.timeout);
  }
  return deadline;
}

void PluginRun::Handle() {
  for (auto child = m_children.begin(); child != m_children.end();) {
    const bool ended = child->process.HasEnded();
    for (const std::string& line : child->process.TakeMessages()) {
      if (const auto step = PluginStep::OfLine(line)) Apply(*child, *step);
    }
    if (ended) {
      Conclude(*child);
      child = m_children.erase(child);
      continue;
    }
    if (!child->timedOut && ChildProcess::Now() >= child->lastStep + m_plan.timeout) {
      child->timedOut = true;
      child->process.Kill();
    }
    ++child;
  }
  StartChildren();
}

void PluginRun::StartChildren() {
  while (m_children.size() < m_plan.jobs) {
    const std::optional<Batch> batch = NextBatch();
    if (!batch) return;
    Start(*batch);
  }
}

std::optional<PluginRun::Batch> PluginRun::NextBatch() {
  Batch batch;
  if (!m_batches.empty()) {
    batch = m_batches.front();
    m_batches.pop_front();
    return batch;
  }
  const bool queueHasMore = m_queue.Next() < m_plan.datafiles->size();
  if (!queueHasMore && m_again.empty() && m_children.empty()) {
    // Taken from the queue by a process that was lost before it said so.
    for (std::size_t i = 0; i < m_settled.size(); ++i) {
      if (!m_settled[i]) m_again.push_back(i);
    }
  }
  if (!queueHasMore && m_again.empty()) return std::nullopt;
  batch.takesFromQueue = true;
  batch.further.swap(m_again);
  return batch;
}

void PluginRun::Start(const Batch& batch) {
  PluginWork work;
  work.library = m_plan.library;
  work.datafiles = m_plan.datafiles;
  work.queue = batch.takesFromQueue ? &m_queue : nullptr;
  work.further = batch.further;
  m_children.emplace_back(
      batch, [&work](const ChildProcess::Tell& tell) { VerifyWithPlugin(work, tell); });
}

void PluginRun::Apply(Child& child, const PluginStep& step) {
  const double seconds = step.at - std::exchange(child.lastStep, step.at);
  if (step.event == "loaded") {
    child.loaded = true;
    m_listener.OnLoaded(step.assertions);
  } else if (step.event == "begin" && step.number < m_settled.size()) {
    child.current = step.number;
    m_listener.OnBegin(step.number);
  } else if (step.event == "end" && child.current == step.number) {
    child.current.reset();
    child.ended.push_back(step.number);
    m_listener.OnEnd(step.number, seconds, step.assertions);
  } else if (step.event == "flush") {
    child.flushing = true;
  } else if (step.event == "report") {
    child.reported = true;
    TakeReport(child);
  } else if (step.event == "fault") {
    child.fault.emplace(static_cast<ExitStatus>(step.number), step.why);
  }
}

void PluginRun::Conclude(Child& child) {
  if (child.fault) throw *child.fault;
  if (child.reported) {
    const Loss& end = child.process.End();
    if (end.signal != 0 || end.exitStatus != 0) m_listener.OnBadUnload(end);
  } else if (!child.loaded) {
    ConcludeUnloaded(child);
  } else if (child.flushing) {
    ConcludeUnreported(child);
  } else if (child.current) {
    m_losses = 0;
    VerifyAgain(child);
    Lose(*child.current, ChildProcess::Now() - child.lastStep, HowOf(child));
  } else {
    if (++m_losses == LOSSES_WITHOUT_DATAFILE) {
      Reject("the process of the plug-in " + WordsOf(child.process.End()) + ", again and again");
    }
    VerifyAgain(child);
  }
}

// While the process still unloads the plug-in.
void PluginRun::TakeReport(const Child& child) {
  m_losses = 0;
  const std::filesystem::path report = ReportFile::PathOf(child.process.Pid());
  for (const std::size_t datafile : child.ended) m_settled[datafile] = true;
  if (child.ended.empty()) {
    std::error_code ignored;
    std::filesystem::remove(report, ignored);
    m_proof = Proof::Given;
    for (const Unreported& unreported : std::exchange(m_unreported, {})) Narrow(unreported);
  } else {
    m_listener.OnReport(report, child.ended);
  }
}

void PluginRun::ConcludeUnloaded(Child& child) {
  if (child.timedOut) Reject("the plug-in does not load: it takes too long");
  if (++m_losses == LOSSES_WITHOUT_DATAFILE) {
    Reject("the plug-in does not load: its process " + WordsOf(child.process.End()));
  }
  VerifyAgain(child);
}

void PluginRun::ConcludeUnreported(Child& child) {
  const Unreported unreported = {child.ended, HowOf(child)};
  if (child.ended.empty() && child.batch.takesFromQueue) return;
  if (child.ended.empty()) {
    const std::string report = ReportFile::PathOf(child.process.Pid()).string();
    throw RunError(ExitStatus::NoReport, report + ": the report could not be written");
  }
  if (m_proof == Proof::Given) return Narrow(unreported);
  m_unreported.push_back(unreported);
  // Without any data file.
  if (m_proof == Proof::None) m_batches.push_front({});
  m_proof = Proof::Running;
}

// What the lost process had verified, and what it was to verify and did not come to.
void PluginRun::VerifyAgain(const Child& child) {
  m_again.insert(m_again.end(), child.ended.begin(), child.ended.end());
  for (const std::size_t datafile : child.batch.further) {
    const bool hadIt =
        child.current == datafile ||
        std::find(child.ended.begin(), child.ended.end(), datafile) != child.ended.end();
    if (!hadIt) m_again.push_back(datafile);
  }
}

void PluginRun::Narrow(const Unreported& unreported) {
  const auto begin = unreported.datafiles.begin();
  const auto end = unreported.datafiles.end();
  if (end - begin == 1) return Lose(*begin, 0, unreported.how);
  const auto middle = begin + (end - begin) / 2;
  m_batches.push_back({{begin, middle}, false});
  m_batches.push_back({{middle, end}, false});
}

void PluginRun::Lose(std::size_t datafile, double seconds, const HowLost& how) {
  m_settled[datafile] = true;
  m_listener.OnLost(datafile, seconds, how.outcome, how.loss);
}

PluginRun::HowLost PluginRun::HowOf(Child& child) {
  Loss loss = child.process.End();
  if (child.timedOut) {
    loss.signal = 0;  // it was this program's own
    return {Outcome::TimedOut, loss};
  }
  return {loss.signal != 0 ? Outcome::Crashed : Outcome::Lost, loss};
}

void PluginRun::Reject(const std::string& why) const {
  throw RunError(ExitStatus::NoReport, m_plan.library.string() + ": " + why);
}

}  // namespace OmbreliaHost
