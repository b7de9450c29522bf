// An array with one object per row, each on one line.
#ifndef OMBRELIA_TABULON_CLI_JSONPRINTER_H
#define OMBRELIA_TABULON_CLI_JSONPRINTER_H

#include "Tabulon/cli/Output.h"
#include "Tabulon/cli/Result.h"

namespace TabulonCli {

// Names are the keys. Numbers are written as they are spelled, marks as true and false.
class JsonPrinter : public ResultPrinter {
 public:
  explicit JsonPrinter(std::ostream& out) : m_out(out) {}

  void Begin(const std::vector<ResultColumn>& columns) override;
  void Row(const ResultRow& row) override;
  void End(std::size_t totalRows) override;
  bool TellsNumbers() const override { return true; }
  bool IsForMachines() const override { return true; }

  // The text between quotation marks. Bytes that are no UTF-8 become U+FFFD.
  static void AppendQuoted(std::string& bytes, std::string_view text);

 private:
  Output m_out;
  std::vector<std::string> m_keys;  // quoted, a colon behind
  bool m_hasRows = false;
};

}  // namespace TabulonCli

#endif
