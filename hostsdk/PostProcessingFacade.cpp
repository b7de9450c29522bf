#include "hostsdk/PostProcessingFacade.h"

namespace Ombrelia {

wxString PostProcessingFacade::GetFormattedTagsDataCell(const wxString& eventValue,
                                                        const wxString& trialValue,
                                                        bool showLevels) {
  wxString cell;
  if (!eventValue.empty()) {
    cell = eventValue;
    if (showLevels) cell += wxT(" (event)");
  }
  if (!trialValue.empty()) {
    if (!cell.empty()) cell += wxT("|");
    cell += trialValue;
    if (showLevels) cell += wxT(" (trial)");
  }
  return cell;
}

}  // namespace Ombrelia
