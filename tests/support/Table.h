// A loaded table from columns and rows, for tests of what reads tables.
#ifndef OMBRELIA_TESTS_SUPPORT_TABLE_H
#define OMBRELIA_TESTS_SUPPORT_TABLE_H

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "Tabulon/src/table/MUExperimentTextReaderMultiFile.h"
#include "framework/CommonTestHelperLogic.h"
#include "tests/support/DataFile.h"
#include "tests/support/Files.h"
#include "tests/support/RecordingPrinter.h"

namespace Tests {

// Column names hold a line feed between the two heading rows. No rows: a table that has loaded no file.
inline boost::shared_ptr<MUExperimentTextReaderMultiFile> TableOf(
    const std::vector<std::string>& columns, const std::vector<std::vector<std::string>>& rows) {
  if (rows.empty()) {
    return boost::shared_ptr<MUExperimentTextReaderMultiFile>(
        new MUExperimentTextReaderMultiFile(nullptr));
  }
  const ScratchFolder folder;
  const std::string path = folder / "table.txt";
  WriteFile(path, DataFile::Of("table", columns, rows).Text());
  RecordingPrinter printer;
  return Ombrelia::CommonTestHelperLogic::GetReaderOrElseLogAnError(
      &printer, wxString::FromUTF8(path.c_str()), false);
}

}  // namespace Tests

#endif
