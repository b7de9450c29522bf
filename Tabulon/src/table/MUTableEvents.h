// The event types of the table. The plug-in exports them, so that a viewer can bind to them.
//
// Lifetime: they get their numbers when the library is loaded, and keep them.
#ifndef OMBRELIA_TABULON_SRC_TABLE_MUTABLEEVENTS_H
#define OMBRELIA_TABULON_SRC_TABLE_MUTABLEEVENTS_H

#include <wx/event.h>

#include "Tabulon/src/machine/MUMachine.h"

// Goes to the application object when a row's red flag may have changed.
extern MU_EXPORTED wxEventType wxEVT_FLAGGED_ROW_COUNT_CHANGED;
// Comes to the table itself after a notification, and to every observer as the request to repaint.
extern MU_EXPORTED wxEventType wxEVT_COMMAND_REFRESH_REQUEST;

#endif
