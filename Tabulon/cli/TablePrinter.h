// Columns of one width each, two blanks between them, for people.
#ifndef OMBRELIA_TABULON_CLI_TABLEPRINTER_H
#define OMBRELIA_TABULON_CLI_TABLEPRINTER_H

#include "Tabulon/cli/Output.h"
#include "Tabulon/cli/Result.h"

namespace TabulonCli {

// Keeps the rows until the end, when their widths are known. What did not fit is told on the second stream.
class TablePrinter : public ResultPrinter {
 public:
  // Limits; 0 for none. The width counts terminal columns.
  struct Limits {
    std::size_t width = 0;
    std::size_t rows = 0;
  };
  TablePrinter(std::ostream& out, std::ostream& err, Limits limits);

  void Begin(const std::vector<ResultColumn>& columns) override;
  void Row(const ResultRow& row) override;
  void End(std::size_t totalRows) override;

 private:
  std::string_view Cell(std::size_t row, std::size_t column) const;
  void Measure();
  void FitIntoWidth();
  void PrintHeadings();
  void AppendCell(std::string_view text, std::size_t column);
  void EndLine();
  void TellWhatWasCut(std::size_t totalRows);

  Output m_out;
  std::ostream& m_err;
  const Limits m_limits;
  std::vector<ResultColumn> m_columns;
  std::string m_text;               // of all cells, row after row
  std::vector<std::size_t> m_ends;  // where each cell's text ends
  std::size_t m_keptRows = 0;
  std::size_t m_rowsSeen = 0;
  std::vector<std::size_t> m_widths;
  std::size_t m_shownColumns = 0;
  std::size_t m_shortened = 0;  // cells
  std::string m_line;
};

}  // namespace TabulonCli

#endif
