// Stand-in of the host's facade for the texts that it writes into data files.
//
// The host's own form of these texts is not known here: docs/decisions/stand-ins-for-the-host.md.
#ifndef OMBRELIA_HOSTSDK_POSTPROCESSINGFACADE_H
#define OMBRELIA_HOSTSDK_POSTPROCESSINGFACADE_H

#include <wx/string.h>

namespace Ombrelia {

class __attribute__((visibility("default"))) PostProcessingFacade {
 public:
  // The cell of a tag that an event and a trial may both have set. The stand-in joins the values that
  // are not empty by "|", the event's first. With showLevels each value is followed by the level that
  // set it, " (event)" or " (trial)". Two empty values give an empty text. Throws std::bad_alloc.
  static wxString GetFormattedTagsDataCell(const wxString& eventValue, const wxString& trialValue,
                                           bool showLevels);
};

}  // namespace Ombrelia

#endif
