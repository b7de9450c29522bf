// The words of a query: the sets of rows it ranges over, and the texts with a special meaning.
#ifndef OMBRELIA_TABULON_SRC_QUERIES_MUQUERYWORDS_H
#define OMBRELIA_TABULON_SRC_QUERIES_MUQUERYWORDS_H

#include <wx/string.h>

// Effect: names and constants only; the table's interface inherits them, so that its users find them there.
// Lifetime: the texts are made when the library is loaded, in no order relative to those of other sources.
// Threads: any number may read them.
class MUQueryWords {
 public:
  // Which rows a query ranges over.
  enum TARGETED_ROW_SEARCH_SET {
    ONLY_FULLY_SHOWN_ROWS = 1,  // in the order in which they are presented
    ALL_ROWS = 2,               // suppressed ones too
    CALLER_GIVEN_ROWS = 3,      // used only inside the search within given indices
    ACTIVE_SHOWN_AND_ACTIVE_SEMIHIDDEN = 4
  };

  // Text that no data file holds: it keeps the parts of a composed text from running into each other.
  static const wxString REALLY_RARE_CHARS_TO_USE_FOR_UNIQUENESS;
  static const wxString DELIMITER_FOR_USE_IN_CONCATENATION;
  static const wxString SPECIAL_CODE_TO_REQUEST_MATCH_ALL_ROWS;
  // Stands for "before no column" where a column's name is asked for: no column bears it.
  static const wxString SPECIAL_CODE_FOR_COL_INSERTION_AT_END;
  // "?", translated once when the library is loaded.
  static const wxString CELL_STRING_VALUE_WHEN_CELL_IS_UNDEFINED;

 protected:
  MUQueryWords() = default;
  ~MUQueryWords() = default;
};

#endif
