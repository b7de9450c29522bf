// The results of a run as one page for a browser.
#ifndef OMBRELIA_HOST_PRINT_HTMLPRINTER_H
#define OMBRELIA_HOST_PRINT_HTMLPRINTER_H

#include <ostream>

#include "host/results/RunResults.h"

namespace OmbreliaHost {

// Totals and machine; all experiments that have a verifier, by the families of Families.h, with what each proves; then
// the data files, those that did not pass first, with the evidence of their failing tests and their times. A data
// file has its experiment's name as id (HtmlId), the second one of an experiment with "~2" behind it.
//
// The page is of use without its script: it holds the first 100 data files as markup and further ones as data, which
// the script shows page by page. The evidence of thousands of failing data files would make it slow: beyond 16 MB
// only the names of tests are there. The same results give the same bytes.
class HtmlPrinter {
 public:
  // The stream must outlive the printer.
  explicit HtmlPrinter(std::ostream& out) : m_out(out) {}

  void Print(const RunResults& results);

 private:
  std::ostream& m_out;
};

}  // namespace OmbreliaHost

#endif
