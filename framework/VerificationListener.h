// Is told what checks compare the data file with.
#ifndef OMBRELIA_FRAMEWORK_VERIFICATIONLISTENER_H
#define OMBRELIA_FRAMEWORK_VERIFICATIONLISTENER_H

#include <wx/string.h>

#include <boost/shared_ptr.hpp>
#include <vector>

class MUExperimentTextReaderMultiFile;

namespace Ombrelia {

class RowScan;
struct StimAreaData;

// A program that asks why a test failed listens here. The plug-in has no listener. Each call stands before
// the result of its check, and nothing that is passed lives longer than the call. Rows and columns count
// from 0. columnName is the name that the check asked for; the data file may lack it.
class VerificationListener {
 public:
  virtual ~VerificationListener() = default;

  // Makes the table of the data file that is about to be read. Never null.
  virtual boost::shared_ptr<MUExperimentTextReaderMultiFile> NewTable() = 0;
  // Whether the bounds of the machine with this host-name text apply.
  virtual bool RunsOnMachine(const wxString& hostNameText) = 0;

  // The table is to have as many rows as there are expected cells.
  virtual void OnLength(const wxString& columnName, const std::vector<wxString>& expected) = 0;
  // The rows from firstRow on are to hold the expected cells, one each.
  virtual void OnCells(const wxString& columnName, int firstRow,
                       const std::vector<wxString>& expected) = 0;
  // The column is to keep the rule.
  virtual void OnScan(const wxString& columnName, const RowScan& rule) = 0;
  // actual is within bounds if min <= actual <= max. Milliseconds.
  virtual void OnBound(int column, int min, int max, long actual) = 0;
  // Each actual area is to satisfy the expected one at its place. The lists may differ in length.
  virtual void OnStimAreas(const std::vector<StimAreaData>& actual,
                           const std::vector<StimAreaData>& expected) = 0;

  // The listener of this process; null for none, as at the start.
  static VerificationListener* Current();
  // Not owned; reset it to null before the listener is destroyed.
  static void SetCurrent(VerificationListener* listener);
};

}  // namespace Ombrelia

#endif
