// How a viewer hears of a new shape of the table.
#ifndef OMBRELIA_TABULON_SRC_TABLE_MUINTERFACEEXPERIMENTDATAOBSERVER_H
#define OMBRELIA_TABULON_SRC_TABLE_MUINTERFACEEXPERIMENTDATAOBSERVER_H

class wxCommandEvent;

// Effect: the table calls both operations from inside the notification, first the one for every observer,
// then the other. They may query the table and ask for another notification, but must not add files.
// Cost: that of the viewer's own work.
// Lifetime: the table borrows the observer and never lets it go. A pointer that a query gave before the
// notification is no longer valid.
// Threads: the table's.
// Failure: an exception passes through the notification, and later observers are not told.
class MUInterfaceExperimentDataObserver {
 public:
  // Everything up to the last preserved row and column, both inclusive and counted from 0, is as it was
  // before; -1 when nothing is.
  virtual void OnDataShapeChanged(unsigned shownRows, unsigned shownColumns,
                                  unsigned long activeRows, int lastPreservedRow,
                                  int lastPreservedColumn) = 0;
  // Comes after every observer has been told of the new shape. The event is the caller's.
  virtual void OnRefreshRequest(wxCommandEvent& event) = 0;

 protected:
  // The table never owns an observer.
  ~MUInterfaceExperimentDataObserver() = default;
};

#endif
