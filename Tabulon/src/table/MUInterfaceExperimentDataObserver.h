// How a viewer hears of a new shape of the table.
#ifndef OMBRELIA_TABULON_SRC_TABLE_MUINTERFACEEXPERIMENTDATAOBSERVER_H
#define OMBRELIA_TABULON_SRC_TABLE_MUINTERFACEEXPERIMENTDATAOBSERVER_H

class wxCommandEvent;

// Both operations are called from inside the notification: they must not add files, and a pointer
// that a query gave before is no longer valid.
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
