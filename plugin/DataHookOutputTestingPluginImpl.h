// The implementation object of the plug-in, with the process-wide registry of verifiers.
#ifndef OMBRELIA_PLUGIN_DATAHOOKOUTPUTTESTINGPLUGINIMPL_H
#define OMBRELIA_PLUGIN_DATAHOOKOUTPUTTESTINGPLUGINIMPL_H

#include <map>
#include <memory>

#include "plugin/DataHookOutputTestingPlugin.h"
#include "report/FakeJUnitPrinter.h"

namespace Ombrelia {

class DataHookOutputTestingPlugin::PrivateImpl {
 public:
  using Registry = std::map<wxString, VerifierRegistrationInfo>;

  // Keyed by the upper-cased experiment name. Built on first use, because verifiers register from
  // static initialisers that may run before this room's.
  static Registry& m_static_verifiers();
  static void AddVerifier(VerifierRegistrationInfo info);

  // Never null. Makes a printer, whose first result is a passing test, if there is none. Borrowed:
  // valid until ReleasePrinter.
  FakeJUnitPrinter* GetTestResultPrinter();
  // Deletes the printer, which writes its report; nothing if there is none. Never throws.
  void ReleasePrinter();

  // Records a failing test. Assertion failures are numbered from 1 over the life of the process.
  void RecordAssertionFailure(const wxString& assertionText);

  // Calls operation. If it throws, for want of memory or out of a library, a failing test of the suite
  // that is open says so; if not even that can be recorded, nothing does. name: the host's operation.
  template <typename OPERATION>
  void CallWithoutThrowing(const wxChar* name, OPERATION operation) noexcept;

 private:
  void RecordException(const wxChar* operation, const char* what) noexcept;

  std::unique_ptr<FakeJUnitPrinter> m_printer;
};

// The key under which a data file's verifier is looked up: the name part of its path, upper-cased and
// cut before its first blank, so that "<experiment>.om4 <participant>.txt" finds "<EXPERIMENT>.OM4".
wxString LookupKeyOfDatafile(const wxString& dataFilePath);

// Has the verifier of the data file's experiment check it, and records all that the plug-in records for
// a data file. The printer is not owned; the verifier keeps it until its next data file. Throws what the
// verifier throws.
void DispatchDatafile(const wxString& dataFilePath, const std::vector<StimAreaData>& stimAreas,
                      FakeJUnitPrinter* printer);

}  // namespace Ombrelia

#endif
