#include "host/run/Arrivals.h"

#include <sys/stat.h>

#include <chrono>
#include <set>
#include <system_error>

#include "host/run/DatafileList.h"
#include "host/run/StimulusAreaFile.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

namespace {

constexpr double SECONDS_UNTIL_COMPLETE = 1;

// By the clock of the files, which may be that of another machine: a time to come says nothing.
bool WasChangedLately(fs::file_time_type changed) {
  const auto age = fs::file_time_type::clock::now() - changed;
  return std::chrono::duration<double>(age).count() < SECONDS_UNTIL_COMPLETE;
}

}  // namespace

std::optional<Arrivals::State> Arrivals::StateOf(const fs::path& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  std::error_code error;
  State state;
  state.device = status.st_dev;
  state.number = status.st_ino;
  state.size = static_cast<std::uintmax_t>(status.st_size);
  state.changed = fs::last_write_time(path, error);
  if (error) return std::nullopt;
  return state;
}

Arrivals::States Arrivals::StatesOf(const std::string& name) const {
  const fs::path path = m_folder / name;
  return {StateOf(path), StateOf(StimulusAreaFileOf(path))};
}

void Arrivals::Look(double now) {
  std::set<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(m_folder, error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    const fs::path& path = entry->path();
    if (HasDatafileName(path) && (m_globs.empty() || MatchesOneOf(m_globs, path)))
      names.insert(path.filename().string());
  }
  for (auto entry = m_entries.begin(); entry != m_entries.end();)
    entry = names.count(entry->first) == 0 ? m_entries.erase(entry) : std::next(entry);
  for (const std::string& name : names) {
    const States states = StatesOf(name);
    if (!states.datafile) {
      m_entries.erase(name);
      continue;
    }
    const auto [entry, isNew] = m_entries.try_emplace(name);
    if (isNew || !(entry->second.states == states)) entry->second = {states, now, false};
  }
}

void Arrivals::PassOver() {
  for (auto& [name, entry] : m_entries) entry.taken = true;
}

bool Arrivals::IsComplete(const Entry& entry, double now) {
  if (now - entry.since >= SECONDS_UNTIL_COMPLETE) return true;
  return !WasChangedLately(entry.states.datafile->changed) &&
         !(entry.states.areas && WasChangedLately(entry.states.areas->changed));
}

std::vector<std::string> Arrivals::Take(double now) {
  std::vector<std::string> names;
  for (auto& [name, entry] : m_entries) {
    if (entry.taken || !IsComplete(entry, now)) continue;
    entry.taken = true;
    names.push_back(name);
  }
  return names;
}

bool Arrivals::IsAsTaken(const std::string& name) const {
  const auto entry = m_entries.find(name);
  return entry != m_entries.end() && entry->second.states == StatesOf(name);
}

void Arrivals::PutBack(const std::string& name, double now) {
  const States states = StatesOf(name);
  if (states.datafile) {
    m_entries[name] = {states, now, false};
  } else {
    m_entries.erase(name);
  }
}

std::vector<std::string> Arrivals::Waiting() const {
  std::vector<std::string> names;
  for (const auto& [name, entry] : m_entries) {
    if (!entry.taken) names.push_back(name);
  }
  return names;
}

}  // namespace OmbreliaHost
