#include "Tabulon/cli/Printers.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <iostream>
#include <utility>

#include "Tabulon/cli/DelimitedPrinter.h"
#include "Tabulon/cli/JsonPrinter.h"
#include "Tabulon/cli/LinePrinter.h"
#include "Tabulon/cli/MarkdownPrinter.h"
#include "Tabulon/cli/TablePrinter.h"

namespace TabulonCli {

namespace {

constexpr std::size_t ROWS_ON_A_TERMINAL = 40;

// 0 if standard output is no terminal.
std::size_t WidthOfTerminal() {
  winsize size = {};
  if (isatty(STDOUT_FILENO) == 0 || ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0) return 0;
  return size.ws_col;
}

// Hands on the first rows only.
class LimitedPrinter : public ResultPrinter {
 public:
  LimitedPrinter(std::unique_ptr<ResultPrinter> printer, std::size_t limit)
      : m_printer(std::move(printer)), m_left(limit) {}
  void Begin(const std::vector<ResultColumn>& columns) override { m_printer->Begin(columns); }
  void Row(const ResultRow& row) override {
    if (m_left == 0) return;
    --m_left;
    m_printer->Row(row);
  }
  void End(std::size_t totalRows) override { m_printer->End(totalRows); }
  bool TellsNumbers() const override { return m_printer->TellsNumbers(); }
  bool IsForMachines() const override { return m_printer->IsForMachines(); }

 private:
  const std::unique_ptr<ResultPrinter> m_printer;
  std::size_t m_left;
};

std::unique_ptr<ResultPrinter> MakeUnlimited(const PrintOptions& options) {
  switch (options.format) {
    case Format::Tsv:
      return std::make_unique<DelimitedPrinter>(std::cout, DelimitedPrinter::Form::Tsv);
    case Format::Csv:
      return std::make_unique<DelimitedPrinter>(std::cout, DelimitedPrinter::Form::Csv);
    case Format::Json:
      return std::make_unique<JsonPrinter>(std::cout);
    case Format::Markdown:
      return std::make_unique<MarkdownPrinter>(std::cout);
    case Format::Line:
      return std::make_unique<LinePrinter>(std::cout);
    case Format::Table:
      break;
  }
  TablePrinter::Limits limits;
  limits.width = options.width.value_or(WidthOfTerminal());
  if (!options.limit && isatty(STDOUT_FILENO) != 0) limits.rows = ROWS_ON_A_TERMINAL;
  return std::make_unique<TablePrinter>(std::cout, std::cerr, limits);
}

}  // namespace

std::unique_ptr<ResultPrinter> MakePrinter(const PrintOptions& options) {
  std::unique_ptr<ResultPrinter> printer = MakeUnlimited(options);
  if (options.limit.value_or(0) == 0) return printer;
  return std::make_unique<LimitedPrinter>(std::move(printer), *options.limit);
}

}  // namespace TabulonCli
