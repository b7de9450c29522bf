// What the verbatim comparison of a column records when it fails, and a sweep over all its cells.
#ifndef OMBRELIA_TESTS_SUPPORT_VERBATIMFAILURES_H
#define OMBRELIA_TESTS_SUPPORT_VERBATIMFAILURES_H

#include <gtest/gtest.h>

#include "tests/support/DataFile.h"

namespace Tests {

inline std::string TooManyCells(const std::string& experiment) {
  return Fail("Correct_quantity_of_data_cells", "Too many data cells. More than expected.",
              experiment, 89, "No extra info.");
}

inline std::string TooFewCells(const std::string& experiment) {
  return Fail("Correct_quantity_of_data_cells", "Too few data cells. Fewer than expected.",
              experiment, 98, "No extra info.");
}

inline std::string CellDiffers(const std::string& experiment, std::size_t row,
                               const std::string& expected) {
  return Fail("Data_appears_completely_and_in_order",
              "Mismatch in the ordering of data cells in datafile.", experiment, 144,
              "At datafile row index " + std::to_string(row) + " we expected {" + expected +
                  "}, but that was not the actual content.");
}

// Cells of a column, typed in as runs of equal ones.
struct CellRun {
  std::size_t times;
  std::string text;
};

inline std::vector<std::string> Cells(const std::vector<CellRun>& runs) {
  std::vector<std::string> cells;
  for (const CellRun& run : runs) cells.insert(cells.end(), run.times, run.text);
  return cells;
}

// Expects that the file passes, and that a change of any one cell of the column fails the comparison
// with this cell as the expected one, and nothing else.
inline void ExpectEachCellIsCompared(const std::string& experiment, const std::string& column,
                                     const DataFile& file) {
  EXPECT_EQ(file.Failures(), Lines{});
  const std::vector<std::string> cells = file.Column(column);
  for (std::size_t row = 0; row < cells.size(); ++row) {
    EXPECT_EQ(DataFile(file).Set(row, column, cells[row] + "x").Failures(),
              Lines{CellDiffers(experiment, row, cells[row])});
  }
}

// The same on the sample, for a test into which its cells are not typed.
inline void ExpectEachCellIsCompared(const std::string& experiment, const std::string& column) {
  ExpectEachCellIsCompared(experiment, column, DataFile::Sample(experiment));
}

// The same on the sample, whose column must hold these cells.
inline void ExpectEachCellIsCompared(const std::string& experiment, const std::string& column,
                                     const std::vector<std::string>& cells) {
  const DataFile sample = DataFile::Sample(experiment);
  ASSERT_EQ(sample.Column(column), cells);
  ExpectEachCellIsCompared(experiment, column, sample);
}

}  // namespace Tests

#endif
