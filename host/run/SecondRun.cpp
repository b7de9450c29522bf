#include "host/run/SecondRun.h"

#include <unistd.h>

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>

#include "host/results/ResultsJson.h"
#include "host/run/LossText.h"

namespace OmbreliaHost {

namespace {

// So few are not worth a process of their own.
constexpr std::size_t TASKS_PER_CHILD = 16;

}  // namespace

void SecondRun::Keep(const std::function<bool(const Task&)>& needed) {
  const auto isSuperfluous = [&needed](const Task& task) { return !needed(task); };
  m_tasks.erase(std::remove_if(m_tasks.begin(), m_tasks.end(), isSuperfluous), m_tasks.end());
  m_children.remove_if([&](const Child& child) {
    return std::all_of(child.tasks.begin() + static_cast<std::ptrdiff_t>(child.done),
                       child.tasks.end(), isSuperfluous);
  });
}

void SecondRun::AddTo(std::vector<pollfd>& descriptors) const {
  for (const Child& child : m_children) child.process.AddTo(descriptors);
}

double SecondRun::Deadline() const {
  double deadline = std::numeric_limits<double>::infinity();
  for (const Child& child : m_children) {
    if (!child.timedOut) deadline = std::min(deadline, child.lastStep + m_plan.timeout);
  }
  return deadline;
}

void SecondRun::Handle(bool humbly) {
  for (auto child = m_children.begin(); child != m_children.end();) {
    const bool ended = child->process.HasEnded();
    for (const std::string& message : child->process.TakeMessages()) Apply(*child, message);
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
  while (!m_tasks.empty() && m_children.size() < m_plan.jobs) Start(humbly);
}

void SecondRun::Start(bool humbly) {
  const std::size_t share = m_tasks.size() / (m_plan.jobs - m_children.size());
  const std::size_t count = std::min(m_tasks.size(), std::max(share, TASKS_PER_CHILD));
  const auto end = m_tasks.begin() + static_cast<std::ptrdiff_t>(count);
  const std::vector<Task> tasks(m_tasks.begin(), end);
  m_tasks.erase(m_tasks.begin(), end);
  m_children.emplace_back(tasks, [this, &tasks, humbly](const ChildProcess::Tell& tell) {
    // If the system does not grant it, the process competes as any other.
    if (humbly && nice(19) == -1) errno = 0;
    for (const Task& task : tasks) {
      const DatafileResult result = m_plan.verify((*m_plan.datafiles)[task.datafile], task.machine);
      tell(JsonText({{"at", ChildProcess::Now()}, {"result", ToJson(result)}}, -1));
    }
  });
}

void SecondRun::Apply(Child& child, const std::string& message) {
  if (child.done == child.tasks.size()) return;
  const nlohmann::json verdict = nlohmann::json::parse(message);
  child.lastStep = verdict.at("at");
  const Task& task = child.tasks[child.done++];
  m_take(task, DatafileResultFromJson(verdict.at("result")), std::string());
}

void SecondRun::Conclude(Child& child) {
  if (child.done == child.tasks.size()) return;
  const Task& culprit = child.tasks[child.done++];
  m_take(
      culprit, std::nullopt,
      child.timedOut ? "its process took too long" : "its process " + WordsOf(child.process.End()));
  m_tasks.insert(m_tasks.begin(), child.tasks.begin() + static_cast<std::ptrdiff_t>(child.done),
                 child.tasks.end());
}

}  // namespace OmbreliaHost
