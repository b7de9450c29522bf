// The side of the table that a list of files speaks to.
#ifndef OMBRELIA_TABULON_SRC_TABLE_MUINTERFACEFILEOBSERVER_H
#define OMBRELIA_TABULON_SRC_TABLE_MUINTERFACEFILEOBSERVER_H

#include <deque>

#include "Tabulon/src/table/DichotomousFileRequest.h"

class MUInterfaceFileObserver {
 public:
  // Wanted and unknown files are loaded, unwanted and known ones removed with their rows and columns; all
  // other requests change nothing. Visible after the next notification.
  virtual void SimultaneousFileRequestsAddAndRemove(
      const std::deque<DichotomousFileRequest>& requests) = 0;
  // Wanted files become active, unwanted ones suppressed; unknown files are loaded first. Visible after
  // the next notification.
  virtual void SimultaneousFileRequestsSuppressAndUnsuppress(
      const std::deque<DichotomousFileRequest>& requests) = 0;
  virtual ~MUInterfaceFileObserver() = default;
};

#endif
