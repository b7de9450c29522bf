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

inline std::string CellDiffers(const std::string& experiment, size_t row,
                               const std::string& expected) {
  return Fail("Data_appears_completely_and_in_order",
              "Mismatch in the ordering of data cells in datafile.", experiment, 144,
              "At datafile row index " + std::to_string(row) + " we expected {" + expected +
                  "}, but that was not the actual content.");
}

// A change of any one cell of the sample's column fails its comparison, with the sample's own text as
// the expected one, and nothing else.
inline void ExpectEachCellIsCompared(const std::string& experiment, const std::string& column) {
  const DataFile sample = DataFile::Sample(experiment);
  for (size_t row = 0; row < sample.RowCount(); ++row) {
    const std::string text = sample.Cell(row, column);
    EXPECT_EQ(DataFile(sample).Set(row, column, text + "x").Failures(),
              Lines{CellDiffers(experiment, row, text)});
  }
}

}  // namespace Tests

#endif
