// What a verifier checks, on a terminal.
#ifndef OMBRELIA_HOST_PRINT_EXPLANATIONPRINTER_H
#define OMBRELIA_HOST_PRINT_EXPLANATIONPRINTER_H

#include <filesystem>
#include <ostream>

#include "host/results/Explanation.h"
#include "host/results/Manifest.h"

namespace OmbreliaHost {

// Writes UTF-8, whatever the locale.
class ExplanationPrinter {
 public:
  explicit ExplanationPrinter(std::ostream& out) : m_out(out) {}

  // datafile: the one by which the explanation was learnt.
  void Print(const Explanation& explanation, const VerifierEntry& verifier,
             const std::filesystem::path& datafile);

 private:
  void PrintCheck(const ExplainedCheck& check);
  void PrintDemand(const ExplainedCheck::Demand& demand);
  void PrintBounds(const std::vector<ExplainedBound>& bounds);

  std::ostream& m_out;
};

}  // namespace OmbreliaHost

#endif
