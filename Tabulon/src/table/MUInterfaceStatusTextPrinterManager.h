// The status line of a viewer, as the table sees it.
#ifndef OMBRELIA_TABULON_SRC_TABLE_MUINTERFACESTATUSTEXTPRINTERMANAGER_H
#define OMBRELIA_TABULON_SRC_TABLE_MUINTERFACESTATUSTEXTPRINTERMANAGER_H

#include <wx/string.h>

class MUInterfaceStatusTextPrinterManager {
 public:
  virtual int GetDefaultStatusSlot() = 0;
  // Prints the text in a slot, in place of the message replacedMessageId (-1 for none). Answers the new
  // message's id.
  virtual long PrintStatusText(const wxString& text, int slot, long replacedMessageId) = 0;

 protected:
  // The table never owns its printer.
  ~MUInterfaceStatusTextPrinterManager() = default;
};

#endif
