// One line per row, and one of names: tab-separated or comma-separated.
#ifndef OMBRELIA_TABULON_CLI_DELIMITEDPRINTER_H
#define OMBRELIA_TABULON_CLI_DELIMITEDPRINTER_H

#include "Tabulon/cli/Output.h"
#include "Tabulon/cli/Result.h"

namespace TabulonCli {

class DelimitedPrinter : public ResultPrinter {
 public:
  enum class Form {
    Tsv,  // nothing is quoted; tabs and line feeds become blanks
    Csv  // a cell with a comma, a quotation mark or a line end is quoted, its quotation marks doubled
  };
  DelimitedPrinter(std::ostream& out, Form form);

  void Begin(const std::vector<ResultColumn>& columns) override;
  void Row(const ResultRow& row) override;
  void End(std::size_t totalRows) override;
  bool IsForMachines() const override { return true; }

 private:
  void Append(std::string_view text);

  Output m_out;
  const Form m_form;
};

}  // namespace TabulonCli

#endif
