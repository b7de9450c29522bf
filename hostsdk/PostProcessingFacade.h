// Stand-in of the host's facade for the texts that it writes into data files.
#ifndef OMBRELIA_HOSTSDK_POSTPROCESSINGFACADE_H
#define OMBRELIA_HOSTSDK_POSTPROCESSINGFACADE_H

#include <wx/string.h>

namespace Ombrelia {

class __attribute__((visibility("default"))) PostProcessingFacade {
 public:
  // The cell text of a tag that an event and a trial may both have set: the values that are not
  // empty, the event's first, joined by "|". With showLevels each is followed by the level that set
  // it, " (event)" or " (trial)". Two empty values give an empty text.
  static wxString GetFormattedTagsDataCell(const wxString& eventValue, const wxString& trialValue,
                                           bool showLevels);
};

}  // namespace Ombrelia

#endif
