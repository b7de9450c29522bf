// One column: its name, its flags, the files that have it and the type of its cells.
#ifndef OMBRELIA_TABULON_SRC_ROWS_MUCOLUMNNAMEPLUSPROPERTIES_H
#define OMBRELIA_TABULON_SRC_ROWS_MUCOLUMNNAMEPLUSPROPERTIES_H

#include <wx/string.h>

#include <cstdint>
#include <list>

#include "Tabulon/src/rows/MUPropertyFlags.h"

// The share that one file has in a column: which file, and whether its share is suppressed.
struct FileStatusStruct {
  FileStatusStruct() : m_suppressed(0) {}
  FileStatusStruct(const wxString& fullFileName, std::int16_t suppressed)
      : m_fullFileName(fullFileName), m_suppressed(suppressed) {}

  // True on exact equality of the full paths. The pointer is borrowed and must not be null; taken by
  // pointer so that the operation can be bound as a list-removal predicate.
  bool FullFileNameMatches(const wxString* fullFileName) const {
    return m_fullFileName == *fullFileName;
  }

  wxString m_fullFileName;
  std::int16_t m_suppressed;  // 0 the file's share of the column is live, 1 suppressed
};

// A column's record, written by the reader and then by the table. Plain data: any holder may read and write it.
struct MUColumnNamePlusProperties {
  MUColumnNamePlusProperties() : m_columnPropertyFlags(0), m_dataType(0) {}

  wxString m_columnName;                       // the two heading rows, joined by a line feed
  std::uint32_t m_columnPropertyFlags;         // bits of MU_COL_FLAG
  std::list<FileStatusStruct> m_fileStatuses;  // one entry per file that has this column
  std::int32_t m_dataType;                     // 1 numbers, 2 text, 3 date and time; 0 unknown
};

#endif
