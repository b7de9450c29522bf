#include "host/run/StimulusAreaFile.h"

#include <charconv>
#include <fstream>
#include <string>
#include <system_error>

#include "host/results/ExitStatus.h"
#include "host/run/DatafileList.h"

namespace fs = std::filesystem;

namespace OmbreliaHost {

namespace {

const std::vector<std::string> HEADINGS = {"x", "y", "width", "height", "response_id", "area_name"};

std::vector<std::string> CellsOf(const std::string& line) {
  std::vector<std::string> cells;
  std::size_t start = 0;
  for (;;) {
    const std::size_t tab = line.find('\t', start);
    cells.push_back(line.substr(start, tab - start));
    if (tab == std::string::npos) return cells;
    start = tab + 1;
  }
}

// One line's place in the file, for the words of an error.
struct Place {
  const fs::path& file;
  int line;

  [[noreturn]] void Reject(const std::string& why) const {
    throw RunError(ExitStatus::WrongUse, file.string() + ":" + std::to_string(line) + ": " + why);
  }
};

int NumberOf(const std::string& cell, const std::string& heading, const Place& place) {
  int number = 0;
  const char* const end = cell.data() + cell.size();
  const std::from_chars_result result = std::from_chars(cell.data(), end, number);
  if (result.ec != std::errc() || result.ptr != end) {
    place.Reject(heading + " is \"" + cell + "\", which is no whole number");
  }
  return number;
}

Ombrelia::StimAreaData AreaOf(const std::string& line, const Place& place) {
  const std::vector<std::string> cells = CellsOf(line);
  if (cells.size() != HEADINGS.size()) {
    place.Reject("an area has " + std::to_string(HEADINGS.size()) + " cells, this line has " +
                 std::to_string(cells.size()));
  }
  Ombrelia::StimAreaData area;
  area.x = NumberOf(cells[0], HEADINGS[0], place);
  area.y = NumberOf(cells[1], HEADINGS[1], place);
  area.width = NumberOf(cells[2], HEADINGS[2], place);
  area.height = NumberOf(cells[3], HEADINGS[3], place);
  area.response_id = NumberOf(cells[4], HEADINGS[4], place);
  area.area_name = wxString::FromUTF8(cells[5].data(), cells[5].size());
  if (area.area_name.empty() && !cells[5].empty()) place.Reject("area_name is not UTF-8 text");
  return area;
}

bool NextLine(std::istream& file, std::string& line) {
  if (!std::getline(file, line)) return false;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return true;
}

}  // namespace

fs::path StimulusAreaFileOf(const fs::path& datafile) {
  fs::path file = datafile;
  // Only ".txt" is taken off: any other last extension is part of the experiment's name.
  if (file.extension() == ".txt") file.replace_extension();
  file += ".stimareas.tsv";
  return file;
}

std::vector<Ombrelia::StimAreaData> ReadStimulusAreas(const fs::path& datafile) {
  std::vector<Ombrelia::StimAreaData> areas;
  const fs::path path = StimulusAreaFileOf(datafile);
  std::error_code error;
  if (fs::symlink_status(path, error).type() == fs::file_type::not_found) return areas;
  RequireReadableFile(path);

  std::ifstream file(path);
  Place place{path, 1};
  std::string line;
  if (!NextLine(file, line) || CellsOf(line) != HEADINGS) {
    place.Reject(
        "the heading line must be x, y, width, height, response_id, area_name, parted by tabs");
  }
  while (NextLine(file, line)) {
    ++place.line;
    areas.push_back(AreaOf(line, place));
  }
  if (file.bad()) place.Reject("the file cannot be read further");
  return areas;
}

}  // namespace OmbreliaHost
