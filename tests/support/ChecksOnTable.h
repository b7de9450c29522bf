// Runs a verifier's checks on a table that no data file gives, such as one without rows.
#ifndef OMBRELIA_TESTS_SUPPORT_CHECKSONTABLE_H
#define OMBRELIA_TESTS_SUPPORT_CHECKSONTABLE_H

#include <string>

#include "framework/IndividualTestCase_T.h"
#include "plugin/DataHookOutputTestingPluginImpl.h"
#include "tests/support/DataFile.h"
#include "tests/support/RecordingPrinter.h"

namespace Tests {

// What the checks of X, the registered verifier of this experiment, record on this table. X need not
// be complete here.
template <class X>
Lines RecordOfChecksOn(boost::shared_ptr<MUExperimentTextReaderMultiFile> table,
                       const std::string& experiment) {
  using Frame = Ombrelia::IndividualTestCase_T<X, false>;
  struct Members : Frame {
    using Frame::m_printer;
    using Frame::m_reader;
  };
  Frame& verifier =
      static_cast<Frame&>(*Ombrelia::DataHookOutputTestingPlugin::PrivateImpl::m_static_verifiers()
                               .at(wxString::FromUTF8(experiment.c_str()).Upper())
                               .verifier);
  RecordingPrinter printer;
  const std::vector<Ombrelia::StimAreaData> noAreas;
  verifier.*(&Members::m_reader) = table;
  verifier.*(&Members::m_printer) = &printer;
  verifier.RunAllVerificationTests({table, &printer, &noAreas});
  verifier.*(&Members::m_printer) = nullptr;
  return printer.lines;
}

}  // namespace Tests

#endif
