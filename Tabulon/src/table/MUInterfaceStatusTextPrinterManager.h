// The status line of a viewer, as the table sees it.
#ifndef OMBRELIA_TABULON_SRC_TABLE_MUINTERFACESTATUSTEXTPRINTERMANAGER_H
#define OMBRELIA_TABULON_SRC_TABLE_MUINTERFACESTATUSTEXTPRINTERMANAGER_H

#include <wx/string.h>

// Effect: prints texts about work that begins or has ended.
// Cost: called twice per piece of work.
// Lifetime: the table borrows the printer until SetLinkToStatusBar replaces it; texts are borrowed for the call.
// Threads: the table's.
// Failure: the table does not look at what became of a text.
class MUInterfaceStatusTextPrinterManager {
 public:
  // The number of the slot for texts that ask for none.
  virtual int GetDefaultStatusSlot() = 0;
  // Prints the text in a slot, in place of the message replacedMessageId (-1 for none). Answers the new
  // message's id.
  virtual long PrintStatusText(const wxString& text, int slot, long replacedMessageId) = 0;

 protected:
  // The table never owns its printer.
  ~MUInterfaceStatusTextPrinterManager() = default;
};

#endif
