// The verbatim comparison of one column, compiled once for all verifiers that use it.
#ifndef OMBRELIA_FRAMEWORK_VERBATIMCOMPARISON_H
#define OMBRELIA_FRAMEWORK_VERBATIMCOMPARISON_H

#include <wx/string.h>

#include <boost/shared_ptr.hpp>
#include <vector>

class MUExperimentTextReaderMultiFile;

namespace Ombrelia {

class FakeJUnitPrinter;

namespace VerbatimComparison {

// Has the table as many rows as expected has cells? Only a wrong length is recorded.
bool CheckLength(const MUExperimentTextReaderMultiFile& reader, FakeJUnitPrinter* printer,
                 const wxString& name, const std::vector<wxString>& expected);

// Are the cells equal, text by text? Records one result, either way.
bool CheckContent(boost::shared_ptr<MUExperimentTextReaderMultiFile> reader,
                  FakeJUnitPrinter* printer, const wxString& name, const wxString& columnName,
                  const std::vector<wxString>& expected);

}  // namespace VerbatimComparison
}  // namespace Ombrelia

#endif
