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
  // Checks one data file and records every result on printer. Never throws, whatever the file holds.
  // Nothing passed in is kept beyond the call but the printer pointer, which the next call replaces.
  virtual void VerifyDatafile(const wxString& dataFilePath,
                              const std::vector<StimAreaData>& stimAreas,
                              FakeJUnitPrinter* printer) = 0;
};

}  // namespace Ombrelia

#endif
