// All that is known of one failing test, in the words that the terminal, the JUnit report and the page share.
#ifndef OMBRELIA_HOST_PRINT_TESTDESCRIPTION_H
#define OMBRELIA_HOST_PRINT_TESTDESCRIPTION_H

#include <optional>
#include <string>
#include <vector>

#include "host/print/TextTable.h"
#include "host/results/RunResults.h"

namespace OmbreliaHost {

// A line of text, or a table.
struct DescriptionPart {
  std::string text;  // may begin with blanks; not of use where there is a table
  std::optional<TextTable> table;
  std::vector<bool> decides;  // of each of the table's rows: did the test fail at it?
  bool isContext = false;     // the table's other rows only surround the deciding one
  bool isScale = false;       // the text is the bound's scale
};

// The evidence: a table of the cells, the numbers that were compared, or the words of the reader. Nothing if
// nothing is known. machine: whose bounds applied.
std::vector<DescriptionPart> DescribeEvidenceInParts(const TestOutcome& test, MachineKind machine);

struct DescriptionLine {
  std::string text;
  bool decides = false;  // the row of the data file that the test failed at
};

// The same as lines of text.
std::vector<DescriptionLine> DescribeEvidence(const TestOutcome& test, MachineKind machine);

// How the process of a data file ended, on one line; the data file must have a loss.
std::string DescribeLoss(const DatafileResult& datafile);

// A number and its bounds on a scale, as in "700 [=======] 900 ----* 1000".
std::string BoundScale(const BoundCheck& bound);

}  // namespace OmbreliaHost

#endif
