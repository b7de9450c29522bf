// One field per line, a blank line between two rows.
#ifndef OMBRELIA_TABULON_CLI_LINEPRINTER_H
#define OMBRELIA_TABULON_CLI_LINEPRINTER_H

#include "Tabulon/cli/Output.h"
#include "Tabulon/cli/Result.h"

namespace TabulonCli {

class LinePrinter : public ResultPrinter {
 public:
  explicit LinePrinter(std::ostream& out) : m_out(out) {}

  void Begin(const std::vector<ResultColumn>& columns) override;
  void Row(const ResultRow& row) override;
  void End(std::size_t totalRows) override;

 private:
  Output m_out;
  std::vector<std::string> m_labels;  // of one width
  bool m_hasRows = false;
};

}  // namespace TabulonCli

#endif
