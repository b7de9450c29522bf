// The side of the table that a list of files speaks to.
#ifndef OMBRELIA_TABULON_SRC_TABLE_MUINTERFACEFILEOBSERVER_H
#define OMBRELIA_TABULON_SRC_TABLE_MUINTERFACEFILEOBSERVER_H

#include <deque>

#include "Tabulon/src/table/DichotomousFileRequest.h"

// Effect: batches of requests, visible after the next notification, for which they ask in any case.
// Cost: one rebuild per batch, and the load of each new file.
// Lifetime: requests are borrowed for the call.
// Threads: the table's.
// Failure: a file that cannot be read is dropped; the reader's error handler is told why.
class MUInterfaceFileObserver {
 public:
  // Removes unwanted known files with their rows and columns, then loads wanted unknown ones; all other
  // requests change nothing.
  virtual void SimultaneousFileRequestsAddAndRemove(
      const std::deque<DichotomousFileRequest>& requests) = 0;
  // Makes wanted files active and suppresses unwanted ones; unknown files are loaded first.
  virtual void SimultaneousFileRequestsSuppressAndUnsuppress(
      const std::deque<DichotomousFileRequest>& requests) = 0;
  virtual ~MUInterfaceFileObserver() = default;
};

#endif
