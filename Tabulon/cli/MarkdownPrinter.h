// A table of Markdown.
#ifndef OMBRELIA_TABULON_CLI_MARKDOWNPRINTER_H
#define OMBRELIA_TABULON_CLI_MARKDOWNPRINTER_H

#include "Tabulon/cli/Output.h"
#include "Tabulon/cli/Result.h"

namespace TabulonCli {

class MarkdownPrinter : public ResultPrinter {
 public:
  explicit MarkdownPrinter(std::ostream& out) : m_out(out) {}

  void Begin(const std::vector<ResultColumn>& columns) override;
  void Row(const ResultRow& row) override;
  void End(std::size_t totalRows) override;

 private:
  Output m_out;
};

}  // namespace TabulonCli

#endif
