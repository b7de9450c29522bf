#include "tests/support/HostNameIs.h"

#include "plugin/LocalHostName.h"
#include "tests/Deployment.h"

namespace Tests {

// A configured text holds a letter or a digit, so it stands in no name that has none.
const char* const ORDINARY_MACHINE = "---";
// In upper and in lower case, so that one of them differs from the configured text.
const char* const SERVER_MACHINE = "-=" OMBRELIA_BIG_MACOSX_SERVER_IN_CAPITALS "=-";
const char* const TESTBOX_MACHINE = "-=" OMBRELIA_SMALL_MACOSX_TESTBOX_IN_LOWER_CASE "=-";
const char* const BOTH_MACHINES =
    OMBRELIA_SMALL_MACOSX_TESTBOX_IN_LOWER_CASE "=" OMBRELIA_BIG_MACOSX_SERVER_IN_CAPITALS;

namespace {

wxString& SimulatedHostName() {
  static wxString name = wxString::FromUTF8(ORDINARY_MACHINE);
  return name;
}

}  // namespace

HostNameIs::HostNameIs(const std::string& name) : m_former(SimulatedHostName()) {
  SimulatedHostName() = wxString::FromUTF8(name.c_str());
}

HostNameIs::~HostNameIs() { SimulatedHostName() = m_former; }

}  // namespace Tests

namespace Halvex {

wxString LocalHostName() { return Tests::SimulatedHostName(); }

}  // namespace Halvex
