// What the plug-in knows of a verifier.
#ifndef OMBRELIA_PLUGIN_INTERFACE_SPECIFICINDIVIDUALTESTVERIFIER_H
#define OMBRELIA_PLUGIN_INTERFACE_SPECIFICINDIVIDUALTESTVERIFIER_H

#include <wx/string.h>

#include <vector>

namespace Ombrelia {

class FakeJUnitPrinter;
struct StimAreaData;

class Interface_SpecificIndividualTestVerifier {
 public:
  virtual ~Interface_SpecificIndividualTestVerifier() = default;
  // Checks one data file and records every result on printer. What the file holds is no reason to throw;
  // memory that runs out is. printer is not null and not owned; its pointer stays stored, unused, until
  // the next call replaces it. Path and areas are borrowed for the call.
  virtual void VerifyDatafile(const wxString& dataFilePath,
                              const std::vector<StimAreaData>& stimAreas,
                              FakeJUnitPrinter* printer) = 0;
};

}  // namespace Ombrelia

#endif
