// The flag bits of rows and columns, and the masks that define what is active and what is shown.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUPROPERTYFLAGS_H
#define OMBRELIA_TABULON_SRC_ROWS_MUPROPERTYFLAGS_H

#include <cstdint>

// Bits of MUSingleRowDataPlusRowProperties::m_rowPropertyFlags.
enum MU_ROW_FLAG : std::uint32_t {
  MU_ROW_FLAG_INACTIVE_RESERVED_4 = 4,    // set by nothing; counts as inactive
  MU_ROW_FLAG_SUPPRESSED_BY_FILE = 8,     // the row's file is deselected
  MU_ROW_FLAG_INACTIVE_RESERVED_16 = 16,  // set by nothing; counts as inactive
  MU_ROW_FLAG_HIDDEN_BY_USER = 32,        // semi-hidden: active, but not fully shown
  MU_ROW_FLAG_RED_FLAG = 64               // the user's mark; no effect on visibility
};

// Bits of MUColumnNamePlusProperties::m_columnPropertyFlags.
enum MU_COL_FLAG : std::uint32_t {
  MU_COL_FLAG_TRIAL_VARIABLE = 1,      // set by the reader from the heading
  MU_COL_FLAG_CODE_VALUE = 2,          // set by the reader: no cell in the first heading row
  MU_COL_FLAG_RESERVED_4 = 4,          // set by nothing; hides the column
  MU_COL_FLAG_SUPPRESSED_BY_FILE = 8,  // no file that has the column is active
  MU_COL_FLAG_RESERVED_16 = 16,        // set by nothing; hides the column
  MU_COL_FLAG_HIDDEN_BY_USER = 32      // hidden on request
};

enum MU_PROPERTY_MASK : std::uint32_t {
  MU_INACTIVE_MASK = 28,        // a row with none of these bits is active
  MU_NOT_FULLY_SHOWN_MASK = 60  // a row with none of them is fully shown, a column is displayed
};

#endif
