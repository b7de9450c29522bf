// The rooms as the documents list them, held against the includes of all sources.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/BuildPaths.h"
#include "tests/support/Files.h"
#include "tests/support/Process.h"

namespace {

namespace fs = std::filesystem;

using Strings = std::vector<std::string>;

struct Room {
  std::string name;
  bool includesEverything = false;
  bool includesNothingFurther =
      false;         // only the rooms that its line names, not what those include
  Strings includes;  // the rooms that its line names
};
using Rooms = std::vector<Room>;                  // from the top
using Includes = std::map<std::string, Strings>;  // by file

std::string SourceText(const std::string& file) {
  return Tests::ReadFile(std::string(OMBRELIA_SOURCE_DIR) + "/" + file);
}

// The names between backquotes that end with a slash, without it.
Strings FoldersIn(const std::string& text) {
  Strings folders;
  std::istringstream pieces(text);
  std::string piece;
  for (bool quoted = false; std::getline(pieces, piece, '`'); quoted = !quoted) {
    if (quoted && !piece.empty() && piece.back() == '/')
      folders.push_back(piece.substr(0, piece.size() - 1));
  }
  return folders;
}

// The lines "| `folder/` | ..." of a document, by the folder.
std::vector<std::pair<std::string, std::string>> TableLinesIn(const std::string& text) {
  std::vector<std::pair<std::string, std::string>> found;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    const Strings names = FoldersIn(line.substr(0, line.find('|', 1)));
    if (line.rfind("| `", 0) == 0 && names.size() == 1) found.emplace_back(names[0], line);
  }
  return found;
}

// The lines "| `room/` | what it holds | includes |" of a document. A line of two cells is no room's.
Rooms RoomsIn(const std::string& text) {
  Rooms rooms;
  for (const auto& [name, line] : TableLinesIn(text)) {
    if (std::count(line.begin(), line.end(), '|') != 4) continue;
    const std::size_t bar = line.find('|', line.find('|', 1) + 1);
    const std::string includes = line.substr(bar + 1, line.size() - bar - 2);
    rooms.push_back(
        {name, includes == " everything ", includes.rfind(" only ", 0) == 0, FoldersIn(includes)});
  }
  return rooms;
}

// The tables of all documents, so ordered that a line names rooms below it.
const Rooms& DocumentedRooms() {
  static const Rooms rooms = [] {
    Rooms all;
    for (const char* const document : {"host/README.md", "README.md", "Tabulon/README.md"})
      for (Room& room : RoomsIn(SourceText(document))) all.push_back(std::move(room));
    return all;
  }();
  return rooms;
}

const Room* FindRoom(const Rooms& rooms, const std::string& name) {
  const auto found =
      std::find_if(rooms.begin(), rooms.end(), [&](const Room& room) { return room.name == name; });
  return found == rooms.end() ? nullptr : &*found;
}

// The folders at the root of the project whose files git knows, without those whose name begins with a dot. Where
// there is no repository, all folders but those that git is to ignore.
const Strings& TopFolders() {
  static const Strings folders = [] {
    std::set<std::string> found;
    std::istringstream files(Tests::RunProgram({"git", "-C", OMBRELIA_SOURCE_DIR, "ls-files"}).out);
    for (std::string file; std::getline(files, file);)
      if (file.find('/') != std::string::npos) found.insert(file.substr(0, file.find('/')));
    if (found.empty()) {
      const std::string ignored = "\n" + SourceText(".gitignore");
      for (const auto& entry : fs::directory_iterator(OMBRELIA_SOURCE_DIR)) {
        const std::string name = entry.path().filename().string();
        if (entry.is_directory() && ignored.find("\n/" + name + "/\n") == std::string::npos)
          found.insert(name);
      }
    }
    Strings visible;  // git puts a path that is not ASCII between quotation marks
    std::copy_if(found.begin(), found.end(), std::back_inserter(visible),
                 [](const std::string& name) { return name[0] != '.' && name[0] != '"'; });
    return visible;
  }();
  return folders;
}

// What a source includes between quotes, and between angles what lies in a folder of ours.
Strings IncludesIn(const std::string& source) {
  const std::string blanks = " \t";
  Strings found;
  std::istringstream lines(source);
  for (std::string line; std::getline(lines, line);) {
    std::size_t at = line.find_first_not_of(blanks);
    if (at == std::string::npos || line[at] != '#') continue;
    at = line.find_first_not_of(blanks, at + 1);
    const std::string word = "include";
    if (at == std::string::npos || line.compare(at, word.size(), word) != 0) continue;
    at = line.find_first_not_of(blanks, at + word.size());
    if (at == std::string::npos || (line[at] != '"' && line[at] != '<')) continue;
    const std::size_t end = line.find(line[at] == '"' ? '"' : '>', at + 1);
    const std::string file = line.substr(at + 1, end - at - 1);
    const Strings& ours = TopFolders();
    if (line[at] == '"' ||
        std::count(ours.begin(), ours.end(), fs::path(file).begin()->string()) != 0)
      found.push_back(file);
  }
  return found;
}

// The name of a source, under which it is included where the configuration makes it of "X.in"; empty for
// any other file.
std::string SourceName(fs::path file) {
  if (file.extension() == ".in") file.replace_extension();
  return file.extension() == ".h" || file.extension() == ".cpp" ? file.generic_string() : "";
}

const Includes& IncludesOfAllSources() {
  static const Includes all = [] {
    Includes includes;
    for (const std::string& top : TopFolders()) {
      for (const auto& entry :
           fs::recursive_directory_iterator(fs::path(OMBRELIA_SOURCE_DIR) / top)) {
        const std::string name = SourceName(entry.path().lexically_relative(OMBRELIA_SOURCE_DIR));
        if (!name.empty()) includes[name] = IncludesIn(Tests::ReadFile(entry.path().string()));
      }
    }
    return includes;
  }();
  return all;
}

// The innermost room that holds the file; none if no room does.
const Room* RoomOf(const Rooms& rooms, const std::string& file) {
  for (fs::path folder = fs::path(file).parent_path(); !folder.empty();
       folder = folder.parent_path())
    if (const Room* const room = FindRoom(rooms, folder.generic_string())) return room;
  return nullptr;
}

bool IsWithin(const std::string& inner, const std::string& outer) {
  return inner == outer || inner.rfind(outer + "/", 0) == 0;
}

// Whether a file of one room may include a file of the other: its own, one that lies inside it, one that its
// line names, or one that can be reached through what the rooms' lines name.
bool MayInclude(const Rooms& rooms, const Room& from, const Room& to) {
  std::set<std::string> seen;
  const std::function<bool(const Room&)> reaches = [&](const Room& room) {
    if (IsWithin(to.name, room.name) || room.includesEverything) return true;
    if (!seen.insert(room.name).second || (from.includesNothingFurther && &room != &from))
      return false;
    return std::any_of(room.includes.begin(), room.includes.end(), [&](const std::string& name) {
      const Room* const next = FindRoom(rooms, name);
      return next != nullptr && reaches(*next);
    });
  };
  return reaches(from);
}

Strings IncludesThatRunUp(const Rooms& rooms, const Includes& includes) {
  Strings wrong;
  for (const auto& [file, included] : includes) {
    const Room* const from = RoomOf(rooms, file);
    for (const std::string& other : included) {
      const Room* const to = RoomOf(rooms, other);
      if (from == nullptr || to == nullptr || !MayInclude(rooms, *from, *to))
        wrong.push_back(file + " includes " + other);
    }
  }
  return wrong;
}

// What lines name that does not stand below them: an upper room, the room itself, or no room at all.
Strings LinesThatNameUp(const Rooms& rooms) {
  Strings wrong;
  for (const Room& room : rooms)
    for (const std::string& name : room.includes)
      if (const Room* const named = FindRoom(rooms, name); named == nullptr || named <= &room)
        wrong.push_back(room.name + " names " + name);
  return wrong;
}

// Folders of sources that are part of a room without being one. Rooms that include everything need no rooms inside.
Strings FoldersThatAreNoRoom(const Rooms& rooms, const Includes& includes) {
  std::set<std::string> found;
  for (const auto& entry : includes) {
    const std::string folder = fs::path(entry.first).parent_path().generic_string();
    const Room* const room = RoomOf(rooms, entry.first);
    if (room == nullptr || (room->name != folder && !room->includesEverything))
      found.insert(folder);
  }
  return Strings(found.begin(), found.end());
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
Strings CircleOfUnits(const Includes& includes) {
  std::map<std::string, std::set<std::string>> units;
  for (const auto& [file, included] : includes)
    for (const std::string& other : included)
      if (UnitOf(other) != UnitOf(file)) units[UnitOf(file)].insert(UnitOf(other));
  std::set<std::string> done;
  Strings way;
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

TEST(Rooms, NoIncludeRunsUp) {
  EXPECT_EQ(IncludesThatRunUp(DocumentedRooms(), IncludesOfAllSources()), Strings());
}

TEST(Rooms, NoTwoUnitsIncludeEachOther) {
  EXPECT_EQ(CircleOfUnits(IncludesOfAllSources()), Strings());
}

TEST(Rooms, ALineNamesOnlyRoomsBelowIt) {
  EXPECT_EQ(LinesThatNameUp(DocumentedRooms()), Strings());
}

TEST(Rooms, OfTheTableIncludeNoMoreThanThis) {
  const std::map<std::string, Strings> expected = {
      {"table", {"sorting", "queries", "reading"}},
      {"sorting", {"queries", "rows"}},
      {"queries", {"rows"}},
      {"reading", {"rows", "text"}},
      {"rows", {"memory", "text"}},
      {"text", {"machine"}},
      {"memory", {"machine"}},
      {"machine", {}},
  };
  const std::string outer = "Tabulon/src/";
  std::map<std::string, Strings> documented;
  for (const Room& room : RoomsIn(SourceText("Tabulon/README.md"))) {
    ASSERT_EQ(room.name.rfind(outer, 0), 0u) << room.name;
    Strings& names = documented[room.name.substr(outer.size())];
    for (const std::string& name : room.includes) {
      ASSERT_EQ(name.rfind(outer, 0), 0u) << name;
      names.push_back(name.substr(outer.size()));
    }
  }
  EXPECT_EQ(documented, expected);
}

TEST(Rooms, AreThereWithAReadme) {
  for (const Room& room : DocumentedRooms()) {
    const std::string folder = std::string(OMBRELIA_SOURCE_DIR) + "/" + room.name;
    // The rooms of the host, and what those of the table have in common, are described in the page above them.
    if (room.name.rfind("host/", 0) != 0 && room.name != "Tabulon/src") {
      EXPECT_TRUE(Tests::Exists(folder + "/README.md")) << room.name;
    }
    EXPECT_TRUE(fs::is_directory(folder)) << room.name;
  }
}

TEST(Rooms, EveryFolderOfSourcesIsOne) {
  EXPECT_EQ(FoldersThatAreNoRoom(DocumentedRooms(), IncludesOfAllSources()), Strings());
}

TEST(Rooms, EveryTopFolderHasALineInTheReadme) {
  std::set<std::string> named;
  for (const auto& line : TableLinesIn(SourceText("README.md")))
    named.insert(fs::path(line.first).begin()->string());
  const Strings& folders = TopFolders();
  EXPECT_EQ(named, std::set<std::string>(folders.begin(), folders.end()));
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

TEST(RoomRule, ALineThatSaysOnlyLeavesOutWhatTheNamedRoomsInclude) {
  const std::string line = "| `top/` | x | only `middle/` |\n";
  const Rooms rooms = RoomsIn(line + THREE_ROOMS);
  EXPECT_EQ(IncludesThatRunUp(rooms, {{"top/A.h", {"middle/B.h", "top/C.h", "ground/B.h"}}}),
            Strings({"top/A.h includes ground/B.h"}));
}

TEST(RoomRule, ALineThatNamesAnUpperRoomIsNamed) {
  EXPECT_EQ(LinesThatNameUp(RoomsIn(THREE_ROOMS)), Strings());
  EXPECT_EQ(
      LinesThatNameUp(RoomsIn("| `middle/` | x | nothing |\n| `ground/` | x | `middle/` |\n")),
      Strings({"ground names middle"}));
}

TEST(RoomRule, LinesThatNameEachOtherOrThemselvesAreNamed) {
  EXPECT_EQ(
      LinesThatNameUp(RoomsIn("| `a/` | x | `b/` |\n| `b/` | x | `c/` |\n| `c/` | x | `a/` |\n")),
      Strings({"c names a"}));
  EXPECT_EQ(LinesThatNameUp(RoomsIn("| `a/` | x | `a/` |\n")), Strings({"a names a"}));
}

TEST(RoomRule, ALineThatNamesNoRoomIsNamed) {
  EXPECT_EQ(LinesThatNameUp(RoomsIn("| `a/` | x | `cellar/` |\n")), Strings({"a names cellar"}));
}

TEST(RoomRule, AFolderInsideARoomIsARoomItselfButForThoseThatIncludeEverything) {
  EXPECT_EQ(FoldersThatAreNoRoom(
                RoomsIn(THREE_ROOMS),
                {{"top/new/A.h", {}}, {"top/A.h", {}}, {"tests/new/A.h", {}}, {"attic/A.h", {}}}),
            Strings({"attic", "top/new"}));
}

TEST(RoomRule, IncludesAreSeenHoweverTheyAreWritten) {
  EXPECT_EQ(IncludesIn(
                "#include \"a/A.h\"\n# include \"a/B.h\"\n  #\tinclude\t<Tabulon/C.h>\n"
                "#include <vector>\n#include <wx/string.h>\n#includes\n// #include \"a/D.h\"\n#\n"),
            Strings({"a/A.h", "a/B.h", "Tabulon/C.h"}));
}

TEST(RoomRule, AFileThatTheConfigurationMakesIsASource) {
  EXPECT_EQ(SourceName("a/B.h.in"), "a/B.h");
  EXPECT_EQ(SourceName("a/B.cpp"), "a/B.cpp");
  EXPECT_EQ(SourceName("a/B.py"), "");
  EXPECT_EQ(SourceName("a/B.py.in"), "");
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
