// Which data files have come into a folder and are complete.
#ifndef OMBRELIA_HOST_RUN_ARRIVALS_H
#define OMBRELIA_HOST_RUN_ARRIVALS_H

#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace OmbreliaHost {

// Knows each data file of a folder by its name and, so that one that is written again is a new one, by what the
// system says of it and of its stimulus areas. It is complete when that has not changed for a second: since it was
// seen first, or by the time of its last change. Data files are chosen as those of a folder in a run are.
class Arrivals {
 public:
  // globs: as in ListDatafiles.
  Arrivals(const std::filesystem::path& folder, const std::vector<std::string>& globs)
      : m_folder(folder), m_globs(globs) {}

  // Looks at the folder. now: seconds of the common clock, never less than at the last look. One that is missing or
  // cannot be read holds nothing.
  void Look(double now);
  // What is there counts as taken, until it changes.
  void PassOver();

  // The names of those that are complete and not taken yet, in name order. They are taken then.
  std::vector<std::string> Take(double now);
  // Whether one that was taken is as it was then.
  bool IsAsTaken(const std::string& name) const;
  // Marks it as not taken. Unless it has vanished, the next change of it is awaited.
  void PutBack(const std::string& name, double now);

  // The names of those that are not taken, in name order.
  std::vector<std::string> Waiting() const;

 private:
  // Equal as long as nobody has changed the file.
  struct State {
    dev_t device = 0;
    ino_t number = 0;
    std::uintmax_t size = 0;
    std::filesystem::file_time_type changed;

    bool operator==(const State& other) const {
      return device == other.device && number == other.number && size == other.size &&
             changed == other.changed;
    }
  };
  struct States {
    std::optional<State> datafile;
    std::optional<State> areas;

    bool operator==(const States& other) const {
      return datafile == other.datafile && areas == other.areas;
    }
  };
  struct Entry {
    States states;
    double since = 0;  // that is known
    bool taken = false;
  };

  static std::optional<State> StateOf(const std::filesystem::path& path);
  States StatesOf(const std::string& name) const;
  static bool IsComplete(const Entry& entry, double now);

  std::filesystem::path m_folder;
  std::vector<std::string> m_globs;
  std::map<std::string, Entry> m_entries;
};

}  // namespace OmbreliaHost

#endif
