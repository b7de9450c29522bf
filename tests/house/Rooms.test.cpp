// The rooms as the documents list them, held against the includes of all sources.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/BuildPaths.h"
#include "tests/support/Files.h"

namespace {

namespace fs = std::filesystem;

// Folders with sources of ours at the root of the project.
const std::vector<std::string> ROOTS = {"Tabulon", "benchmarks", "framework", "fuzz",  "host",
                                        "hostsdk", "plugin",     "report",    "tests", "verifiers"};

struct Room {
  bool includesEverything = false;
  std::set<std::string> includes;  // the rooms that its line names
};
using Rooms = std::map<std::string, Room>;
using Includes = std::map<std::string, std::vector<std::string>>;  // by file

// The names between backquotes that end with a slash, without it.
std::vector<std::string> FoldersIn(const std::string& text) {
  std::vector<std::string> folders;
  std::istringstream pieces(text);
  std::string piece;
  for (bool quoted = false; std::getline(pieces, piece, '`'); quoted = !quoted) {
    if (quoted && !piece.empty() && piece.back() == '/')
      folders.push_back(piece.substr(0, piece.size() - 1));
  }
  return folders;
}

// The lines "| `room/` | what it holds | includes |" of a document.
Rooms RoomsIn(const std::string& text) {
  Rooms rooms;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("| `", 0) != 0) continue;
    std::istringstream cells(line.substr(1));
    std::string name;
    std::string holds;
    std::string includes;
    std::getline(cells, name, '|');
    std::getline(cells, holds, '|');
    std::getline(cells, includes, '|');
    const std::vector<std::string> names = FoldersIn(name);
    if (names.size() != 1) continue;
    Room& room = rooms[names[0]];
    room.includesEverything = includes == " everything ";
    const std::vector<std::string> included = FoldersIn(includes);
    room.includes.insert(included.begin(), included.end());
  }
  return rooms;
}

Rooms RoomsOf(const std::vector<std::string>& documents) {
  Rooms rooms;
  for (const std::string& document : documents)
    rooms.merge(RoomsIn(Tests::ReadFile(std::string(OMBRELIA_SOURCE_DIR) + "/" + document)));
  return rooms;
}

const Rooms& DocumentedRooms() {
  static const Rooms rooms = RoomsOf({"README.md", "Tabulon/README.md", "host/README.md"});
  return rooms;
}

std::vector<std::string> IncludesIn(const std::string& source) {
  const std::string start = "#include \"";
  std::vector<std::string> found;
  std::istringstream lines(source);
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind(start, 0) != 0) continue;
    found.push_back(line.substr(start.size(), line.find('"', start.size()) - start.size()));
  }
  return found;
}

const Includes& IncludesOfAllSources() {
  static const Includes all = [] {
    Includes includes;
    for (const std::string& root : ROOTS) {
      for (const auto& entry :
           fs::recursive_directory_iterator(fs::path(OMBRELIA_SOURCE_DIR) / root)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".h" && extension != ".cpp") continue;
        const std::string file =
            entry.path().lexically_relative(OMBRELIA_SOURCE_DIR).generic_string();
        includes[file] = IncludesIn(Tests::ReadFile(entry.path().string()));
      }
    }
    return includes;
  }();
  return all;
}

// The innermost room that holds the file; empty if none does.
std::string RoomOf(const Rooms& rooms, const std::string& file) {
  for (fs::path folder = fs::path(file).parent_path(); !folder.empty();
       folder = folder.parent_path())
    if (rooms.count(folder.generic_string())) return folder.generic_string();
  return {};
}

bool IsWithin(const std::string& inner, const std::string& outer) {
  return inner == outer || inner.rfind(outer + "/", 0) == 0;
}

// Whether a file of one room may include a file of the other: its own, one that lies inside it, or one that
// can be reached through what the rooms' lines name.
bool MayInclude(const Rooms& rooms, const std::string& from, const std::string& to) {
  std::set<std::string> seen;
  const std::function<bool(const std::string&)> reaches = [&](const std::string& room) {
    if (IsWithin(to, room)) return true;
    if (!seen.insert(room).second) return false;
    const Room& entry = rooms.at(room);
    return entry.includesEverything ||
           std::any_of(entry.includes.begin(), entry.includes.end(), reaches);
  };
  return reaches(from);
}

std::vector<std::string> IncludesThatRunUp(const Rooms& rooms, const Includes& includes) {
  std::vector<std::string> wrong;
  for (const auto& [file, included] : includes) {
    const std::string from = RoomOf(rooms, file);
    for (const std::string& other : included) {
      const std::string to = RoomOf(rooms, other);
      if (from.empty() || to.empty() || !MayInclude(rooms, from, to))
        wrong.push_back(file + " includes " + other);
    }
  }
  return wrong;
}

// "X.h", "X.cpp" and the private implementation "XImpl.h" are one unit, "X".
std::string UnitOf(const std::string& file) {
  const std::string unit = fs::path(file).replace_extension().generic_string();
  const std::string implementation = "Impl";
  const bool isOne =
      unit.size() > implementation.size() &&
      unit.compare(unit.size() - implementation.size(), std::string::npos, implementation) == 0;
  return isOne ? unit.substr(0, unit.size() - implementation.size()) : unit;
}

// A unit that comes back to itself by its includes, as a list of units; empty if none does.
std::vector<std::string> CircleOfUnits(const Includes& includes) {
  std::map<std::string, std::set<std::string>> units;
  for (const auto& [file, included] : includes)
    for (const std::string& other : included)
      if (UnitOf(other) != UnitOf(file)) units[UnitOf(file)].insert(UnitOf(other));
  std::set<std::string> done;
  std::vector<std::string> way;
  const std::function<bool(const std::string&)> closes = [&](const std::string& unit) {
    const auto first = std::find(way.begin(), way.end(), unit);
    if (first != way.end()) {
      way.erase(way.begin(), first);
      return true;
    }
    if (!done.insert(unit).second) return false;
    way.push_back(unit);
    for (const std::string& next : units[unit])
      if (closes(next)) return true;
    way.pop_back();
    return false;
  };
  const std::map<std::string, std::set<std::string>> starts = units;
  for (const auto& start : starts)
    if (closes(start.first)) return way;
  return {};
}

using Strings = std::vector<std::string>;

TEST(Rooms, NoIncludeRunsUp) {
  EXPECT_EQ(IncludesThatRunUp(DocumentedRooms(), IncludesOfAllSources()), Strings());
}

TEST(Rooms, NoTwoUnitsIncludeEachOther) {
  EXPECT_EQ(CircleOfUnits(IncludesOfAllSources()), Strings());
}

TEST(Rooms, AreThereWithAReadme) {
  for (const auto& entry : DocumentedRooms()) {
    const std::string readme = std::string(OMBRELIA_SOURCE_DIR) + "/" + entry.first + "/README.md";
    // The rooms of the host are described side by side in its own page.
    if (entry.first.rfind("host/", 0) != 0 && entry.first != "Tabulon/src") {
      EXPECT_TRUE(Tests::Exists(readme)) << readme;
    }
    EXPECT_TRUE(fs::is_directory(fs::path(OMBRELIA_SOURCE_DIR) / entry.first)) << entry.first;
  }
}

TEST(Rooms, EveryFolderOfSourcesIsDocumented) {
  std::set<std::string> folders;
  for (const auto& entry : IncludesOfAllSources())
    folders.insert(fs::path(entry.first).parent_path().generic_string());
  for (const std::string& folder : folders)
    EXPECT_NE(RoomOf(DocumentedRooms(), folder + "/x"), "") << folder;
  for (const std::string room :
       {"memory", "text", "rows", "reading", "queries", "sorting", "table"})
    EXPECT_EQ(DocumentedRooms().count("Tabulon/src/" + room), 1u) << room;
}

// The rule itself, on rooms made up for it.

const char* const THREE_ROOMS =
    "| Room | Holds | Includes |\n|---|---|---|\n"
    "| `top/` | x | `middle/` |\n"
    "| `middle/` | x | `ground/` |\n"
    "| `ground/` | x | nothing |\n"
    "| `tests/` | x | everything |\n";

TEST(RoomRule, AnIncludeMayRunDownThroughSeveralRooms) {
  EXPECT_EQ(IncludesThatRunUp(RoomsIn(THREE_ROOMS), {{"top/A.h", {"ground/B.h", "top/C.h"}}}),
            Strings());
}

TEST(RoomRule, AnIncludeThatRunsUpIsNamed) {
  EXPECT_EQ(IncludesThatRunUp(RoomsIn(THREE_ROOMS), {{"ground/A.cpp", {"middle/B.h"}}}),
            Strings({"ground/A.cpp includes middle/B.h"}));
}

TEST(RoomRule, TheTestsMayIncludeEverythingAndNobodyMayIncludeThem) {
  const Rooms rooms = RoomsIn(THREE_ROOMS);
  EXPECT_EQ(IncludesThatRunUp(rooms, {{"tests/A.cpp", {"top/B.h"}}}), Strings());
  EXPECT_EQ(IncludesThatRunUp(rooms, {{"top/A.cpp", {"tests/B.h"}}}),
            Strings({"top/A.cpp includes tests/B.h"}));
}

TEST(RoomRule, AFileOutsideAllRoomsIsNamed) {
  EXPECT_EQ(IncludesThatRunUp(RoomsIn(THREE_ROOMS), {{"top/A.cpp", {"B.h"}}}),
            Strings({"top/A.cpp includes B.h"}));
}

TEST(RoomRule, UnitsThatIncludeEachOtherAreNamed) {
  EXPECT_EQ(
      CircleOfUnits({{"a/A.h", {"a/B.h"}}, {"a/B.cpp", {"a/B.h", "a/A.h"}}, {"a/C.h", {"a/A.h"}}}),
      Strings({"a/A", "a/B"}));
  EXPECT_EQ(CircleOfUnits({{"a/A.h", {"a/B.h"}}, {"a/B.cpp", {"a/B.h"}}}), Strings());
}

}  // namespace
