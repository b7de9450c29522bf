// Failing tests as a job of GitHub Actions shows them: annotations at the lines of data files, and a summary.
#ifndef OMBRELIA_HOST_PRINT_GITHUBPRINTER_H
#define OMBRELIA_HOST_PRINT_GITHUBPRINTER_H

#include <ostream>
#include <string>

#include "host/results/RunResults.h"

namespace OmbreliaHost {

class GitHubPrinter {
 public:
  explicit GitHubPrinter(std::ostream& out) : m_out(out) {}

  // Lines between the two are no commands of the job, whatever a data file makes them say. token: a word that
  // no data file can know.
  void BeginOtherOutput(const std::string& token);
  void EndOtherOutput(const std::string& token);

  // An error for each of the first ten failing tests and lost data files, a warning where the failure is
  // tolerated. A job shows no more than ten; a notice says how many there are besides.
  void PrintAnnotations(const RunResults& results);

  // Markdown: the totals, and a table of at most 200 failing tests. No text in it can be markup.
  void PrintStepSummary(const RunResults& results);

 private:
  std::ostream& m_out;
};

}  // namespace OmbreliaHost

#endif
