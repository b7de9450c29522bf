// What every command prints: columns with names, and rows of cells. A command fills it, a printer writes it.
#ifndef OMBRELIA_TABULON_CLI_RESULT_H
#define OMBRELIA_TABULON_CLI_RESULT_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace TabulonCli {

struct ResultColumn {
  std::string name;  // on one line, unlike every other column's
  // The two lines of its heading where it has two.
  std::string upper;
  std::optional<std::string> lower;
  bool counted = true;  // false for marks and row numbers, which are no columns of the data
};

struct ResultCell {
  enum class Kind {
    Text,
    Number,  // the text is a number as JSON writes it, perhaps with blanks around it
    Null,    // no value; the text is blank
    Mark     // a yes if the text is not empty
  };
  std::string_view text;  // UTF-8; borrowed for the time of the call that hands it over
  Kind kind = Kind::Text;
};

using ResultRow = std::vector<ResultCell>;

// Receives a result once: Begin, Row as often as there are rows, End. Each row has one cell per column.
class ResultPrinter {
 public:
  virtual ~ResultPrinter() = default;
  virtual void Begin(const std::vector<ResultColumn>& columns) = 0;
  virtual void Row(const ResultRow& row) = 0;
  // totalRows: how many rows there are, those that were not handed over included.
  virtual void End(std::size_t totalRows) = 0;

  // Whether it makes a difference which cells are numbers.
  virtual bool TellsNumbers() const { return false; }
  // Whether other programs are to read what it writes.
  virtual bool IsForMachines() const { return false; }
};

}  // namespace TabulonCli

#endif
