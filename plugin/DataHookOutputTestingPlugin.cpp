#include "plugin/DataHookOutputTestingPlugin.h"

#include <wx/filename.h>

#include <exception>
#include <string>

#include "plugin/DataHookOutputTestingPluginImpl.h"
#include "plugin/Interface_SpecificIndividualTestVerifier.h"
#include "report/ConcreteFakeJUnitPrinter.h"
#include "report/FailureLocation.h"

namespace Ombrelia {

DataHookOutputTestingPlugin::PrivateImpl::Registry&
DataHookOutputTestingPlugin::PrivateImpl::m_static_verifiers() {
  static Registry registry;
  return registry;
}

void DataHookOutputTestingPlugin::PrivateImpl::AddVerifier(VerifierRegistrationInfo info) {
  m_static_verifiers().insert({info.name.Upper(), info});
}

FakeJUnitPrinter* DataHookOutputTestingPlugin::PrivateImpl::GetTestResultPrinter() {
  if (!m_printer) {
    m_printer = std::make_unique<ConcreteFakeJUnitPrinter>(
        wxT("FakeUnitTestsDataHookExperimentRunning"), wxT("auto_experiment_tests"), true);
    m_printer->AddPassingTestResult(wxT("SingleDummyPassingTest"));
  }
  return m_printer.get();
}

void DataHookOutputTestingPlugin::PrivateImpl::ReleasePrinter() { m_printer.reset(); }

template <typename OPERATION>
void DataHookOutputTestingPlugin::PrivateImpl::CallWithoutThrowing(const wxChar* name,
                                                                   OPERATION operation) noexcept {
  try {
    operation();
  } catch (const std::exception& exception) {
    RecordException(name, exception.what());
  } catch (...) {
    RecordException(name, "unknown");
  }
}

void DataHookOutputTestingPlugin::PrivateImpl::RecordException(const wxChar* operation,
                                                               const char* what) noexcept {
  try {
    GetTestResultPrinter()->AddFailingTestResult(
        wxString(wxT("TestingPluginDH_Exception_in_")) + operation,
        wxT("an exception ended this operation, later checks did not run"),
        FailureLocationText(210, wxT("DataHookOutputTestingPlugin")),
        wxT("the exception is: ") + wxString::FromUTF8(what));
  } catch (...) {
    // The memory for this one result is missing, too.
  }
}

void DataHookOutputTestingPlugin::PrivateImpl::RecordAssertionFailure(
    const wxString& assertionText) {
  static int failures = 0;
  FakeJUnitPrinter* const printer = GetTestResultPrinter();
  std::wstring number = std::to_wstring(++failures);
  if (number.length() < 5) number.insert(0, 5 - number.length(), L'0');
  printer->AddFailingTestResult(wxT("TestingPluginDH_AssertionFailure_") + number,
                                wxT("actual file and line number shown in DETAILED TEXT"),
                                FailureLocationText(182, wxT("DataHookOutputTestingPlugin")),
                                assertionText);
}

wxString LookupKeyOfDatafile(const wxString& dataFilePath) {
  return wxFileName(dataFilePath).GetName().Upper().BeforeFirst(wxT(' '));
}

void DispatchDatafile(const wxString& dataFilePath, const std::vector<StimAreaData>& stimAreas,
                      FakeJUnitPrinter* printer) {
  printer->AddPassingTestResult(
      wxT("DataHookOutputTestingPlugin_PerformPostProcessing_was_called"));
  const auto& registry = DataHookOutputTestingPlugin::PrivateImpl::m_static_verifiers();
  const auto found = registry.find(LookupKeyOfDatafile(dataFilePath));
  if (found != registry.end()) {
    found->second.verifier->VerifyDatafile(dataFilePath, stimAreas, printer);
    return;
  }
  printer->AddFailingTestResult(
      wxT("locating_verifier_for_") + wxFileName(dataFilePath).GetName(),
      wxT("no logic was found to test this datafile. one cause could be DUPLICATE NAMES of "
          "datafiles"),
      FailureLocationText(162, wxT("DataHookOutputTestingPlugin")),
      wxT("we should have found something mapped by name. it should have registered via "
          "DataHookOutputTestingPlugin::RegisterOneSingleVerifier"));
}

DataHookOutputTestingPlugin::DataHookOutputTestingPlugin() {
  std::unique_ptr<PrivateImpl> impl(new PrivateImpl);
  impl->GetTestResultPrinter();
  m_impl.reset(impl.release());
}

DataHookOutputTestingPlugin::~DataHookOutputTestingPlugin() = default;

int DataHookOutputTestingPlugin::GetPlugInID() const {
  return -7654;  // 0xFFFFE21A
}

void DataHookOutputTestingPlugin::GetString(int, wxString&) const {}

void DataHookOutputTestingPlugin::PerformPostProcessing(
    const wxString& dataFilePath, const std::vector<StimAreaData>& stimAreas) {
  m_impl->CallWithoutThrowing(wxT("PerformPostProcessing"), [&] {
    DispatchDatafile(dataFilePath, stimAreas, m_impl->GetTestResultPrinter());
  });
}

bool DataHookOutputTestingPlugin::LogAssertionFailureAsTestFailure(const wxString& assertionText) {
  m_impl->CallWithoutThrowing(wxT("LogAssertionFailureAsTestFailure"),
                              [&] { m_impl->RecordAssertionFailure(assertionText); });
  return true;
}

void DataHookOutputTestingPlugin::FlushTestOutput() { m_impl->ReleasePrinter(); }

void DataHookOutputTestingPlugin::RegisterOneSingleVerifier(VerifierRegistrationInfo info) {
  PrivateImpl::AddVerifier(info);
}

}  // namespace Ombrelia
