// The verbatim comparison of one column. It is compiled once for all verifiers that use it.
#ifndef OMBRELIA_FRAMEWORK_VERBATIMCOMPARISON_H
#define OMBRELIA_FRAMEWORK_VERBATIMCOMPARISON_H

#include <wx/string.h>

#include <boost/shared_ptr.hpp>
#include <vector>

class MUExperimentTextReaderMultiFile;

namespace Ombrelia {

class FakeJUnitPrinter;

// name is the experiment file's name, which locations of failures show.
namespace VerbatimComparison {

// Has the table as many rows as expected has cells? Records a failure if the lengths differ, otherwise
// nothing.
bool CheckLength(const MUExperimentTextReaderMultiFile& reader, FakeJUnitPrinter* printer,
                 const wxString& name, const wxString& columnName,
                 const std::vector<wxString>& expected);

// Do the first rows of the column equal the expected cells, text by text? Records one result.
bool CheckContent(boost::shared_ptr<MUExperimentTextReaderMultiFile> reader,
                  FakeJUnitPrinter* printer, const wxString& name, const wxString& columnName,
                  const std::vector<wxString>& expected);

}  // namespace VerbatimComparison
}  // namespace Ombrelia

#endif
