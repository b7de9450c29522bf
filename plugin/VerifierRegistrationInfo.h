// One entry of the registry of verifiers.
#ifndef OMBRELIA_PLUGIN_VERIFIERREGISTRATIONINFO_H
#define OMBRELIA_PLUGIN_VERIFIERREGISTRATIONINFO_H

#include <wx/string.h>

namespace Ombrelia {

class Interface_SpecificIndividualTestVerifier;

struct VerifierRegistrationInfo {
  wxString name;  // the experiment file's name as the verifier gave it, not upper-cased
  Interface_SpecificIndividualTestVerifier* verifier;  // not owned, not null; lives to process exit
};

}  // namespace Ombrelia

#endif
