// Makes good XML of a report whose texts broke it, and finds out which text that was.
//
// The plug-in escapes nothing, so a cell that a message quotes may hold markup. What each test's texts really
// were is known from a second verification of the data files.
#ifndef OMBRELIA_HOST_RESULTS_REPORTREPAIR_H
#define OMBRELIA_HOST_RESULTS_REPORTREPAIR_H

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/results/RunResults.h"

namespace OmbreliaHost {

// One test whose texts broke the report.
struct ReportFault {
  std::optional<std::size_t> datafile;  // which one, from 0; absent before the first
  int number = 0;                       // the test's running number
  std::string test;                     // its name without that number
  std::string culprit;                  // what broke it, such as "]]>"; visible characters only
  std::string where;                    // "name", "subject" or "message"
  std::string line;       // the line of that text that holds the culprit, as the report has it
  std::size_t place = 0;  // where in that line the culprit begins, in bytes
  std::optional<EvidenceCell> cell;  // the cell that the text has it from, as far as that is known
};

struct RepairedReport {
  std::string text;  // good XML; its texts are those of the report, except for what XML cannot hold
  std::vector<ReportFault> faults;  // in the order of the report; none if it was good XML
};

// report: what the plug-in wrote, whole or cut off. datafiles: those that were handed over, in their order, each
// with the tests of a second verification, which may be none; their names are without running number. Where
// they do not agree with the report, an entry is told from the next by its frame and running number alone.
RepairedReport RepairReport(const std::string& report,
                            const std::vector<DatafileResult>& datafiles);

// Where the repaired copy of a report belongs: X.repaired.xml beside X.xml.
std::filesystem::path RepairedPath(const std::filesystem::path& report);

// One sentence that names the data file, the test and the cell, for the words of an error.
std::string DescribeFault(const ReportFault& fault, const std::vector<DatafileResult>& datafiles);

}  // namespace OmbreliaHost

#endif
