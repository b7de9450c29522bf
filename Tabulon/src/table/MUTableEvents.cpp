#include "Tabulon/src/table/MUTableEvents.h"

// The order of these two lines is the order of their numbers.
wxEventType wxEVT_FLAGGED_ROW_COUNT_CHANGED = wxNewEventType();
wxEventType wxEVT_COMMAND_REFRESH_REQUEST = wxNewEventType();
