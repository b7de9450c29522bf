// What every generated verifier must do, whichever data file it was made of.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "plugin/DataHookOutputTestingPluginImpl.h"
#include "tests/support/DataFile.h"
#include "tests/support/VerbatimFailures.h"

namespace Tests {
namespace {

// The most cells of one column that are changed; the last one is always among them.
constexpr std::size_t MOST_CELLS = 250;

bool HasSample(const std::string& experiment, int run) {
  return std::filesystem::exists(std::string(std::getenv("OMBRELIA_SAMPLES")) + "/" + experiment +
                                 " " + std::to_string(run) + ".txt");
}

TEST(Generated, EachVerifierPassesItsSamples) {
  const auto& verifiers = Ombrelia::DataHookOutputTestingPlugin::PrivateImpl::m_static_verifiers();
  EXPECT_GT(verifiers.size(), 60u);
  std::size_t samples = 0;
  for (const auto& entry : verifiers) {
    const std::string experiment = entry.second.name.ToStdString();
    for (int run = 1; HasSample(experiment, run); ++run) {
      EXPECT_EQ(DataFile::Sample(experiment, run).Failures(), Lines{}) << experiment << " " << run;
      ++samples;
    }
  }
  EXPECT_GT(samples, verifiers.size()) << "none was made of several runs";
}

TEST(Generated, EachComparedCellThatChangesFails) {
  std::ifstream in(std::getenv("OMBRELIA_COMPARED_COLUMNS"));
  std::string experiment;
  std::string column;
  std::size_t columns = 0;
  while (std::getline(in, experiment, '\t') && std::getline(in, column)) {
    const std::size_t lineFeed = column.find("\\n");
    if (lineFeed != std::string::npos) column.replace(lineFeed, 2, "\n");
    const DataFile sample = DataFile::Sample(experiment);
    const std::size_t step = sample.RowCount() / MOST_CELLS + 1;
    for (std::size_t i = 0; i < sample.RowCount(); i += step) {
      const std::size_t row = sample.RowCount() - 1 - i;
      const std::string text = sample.Cell(row, column);
      EXPECT_EQ(DataFile(sample).Set(row, column, text + "x").Failures(),
                Lines{CellDiffers(experiment, row, text)})
          << column;
    }
    ++columns;
  }
  EXPECT_GT(columns, 100u);
}

}  // namespace
}  // namespace Tests
