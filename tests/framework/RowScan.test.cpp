#include "framework/RowScan.h"

#include <gtest/gtest.h>

#include "tests/support/Table.h"

namespace Tests {
namespace {

using Ombrelia::RowScan;

boost::shared_ptr<MUExperimentTextReaderMultiFile> Events(const std::vector<std::string>& names) {
  std::vector<std::vector<std::string>> rows;
  for (const std::string& name : names) rows.push_back({"-", name, "-"});
  return TableOf({"Block\nName", "Event\nName", "Trial\nName"}, rows);
}

bool Holds(const RowScan& rule, const std::vector<std::string>& names) {
  return rule.HoldsFor(*Events(names), wxT("Event\nName"));
}

TEST(RowScanPositional, HoldsForTheTextsInTheirPlaces) {
  const RowScan rule = RowScan::Positional({wxT("a"), wxT("b"), wxT("a")});
  EXPECT_TRUE(Holds(rule, {"a", "b", "a"}));
  EXPECT_FALSE(Holds(rule, {"a", "a", "b"}));
  EXPECT_FALSE(Holds(rule, {"a", "b", "A"}));
}

TEST(RowScanPositional, HoldsForNoOtherNumberOfRows) {
  const RowScan rule = RowScan::Positional({wxT("a"), wxT("b")});
  EXPECT_FALSE(Holds(rule, {"a"}));
  EXPECT_FALSE(Holds(rule, {"a", "b", "b"}));
}

TEST(RowScanPositional, TellsAnEmptyCellFromARowThatIsNotThere) {
  const RowScan rule = RowScan::Positional({wxT("a"), wxT("")});
  EXPECT_TRUE(Holds(rule, {"a", ""}));
  EXPECT_FALSE(Holds(rule, {"a"}));
}

TEST(RowScanAnywhere, HoldsForTheTextsInAnyOrder) {
  const RowScan rule = RowScan::Anywhere({wxT("a"), wxT("b")}, 2);
  EXPECT_TRUE(Holds(rule, {"a", "b", "c"}));
  EXPECT_TRUE(Holds(rule, {"b", "c", "a"}));
  EXPECT_TRUE(Holds(rule, {"b", "a", "a"}));
  EXPECT_FALSE(Holds(rule, {"a", "c", "a"}));
}

TEST(RowScanAnywhere, HoldsForTheOneLastRowOnly) {
  const RowScan rule = RowScan::Anywhere({wxT("a"), wxT("b")}, 2);
  EXPECT_FALSE(Holds(rule, {"a", "b"}));
  EXPECT_FALSE(Holds(rule, {"a", "b", "c", "d"}));
}

TEST(RowScanCount, HoldsForExactlyThatMany) {
  const RowScan rule = RowScan::Count(wxT("a"), 2, 2);
  EXPECT_TRUE(Holds(rule, {"a", "b", "a"}));
  EXPECT_FALSE(Holds(rule, {"a", "b", "b"}));
  EXPECT_FALSE(Holds(rule, {"a", "a", "a"}));
}

TEST(RowScanCount, HoldsForTheOneLastRowOnly) {
  const RowScan rule = RowScan::Count(wxT("a"), 2, 2);
  EXPECT_FALSE(Holds(rule, {"a", "a"}));
  EXPECT_FALSE(Holds(rule, {"a", "b", "a", "b"}));
}

// The last row's index is 0 then, which one row gives as well.
TEST(RowScan, HoldsForNoTableWithoutRows) {
  EXPECT_FALSE(Holds(RowScan::Positional({wxT("a")}), {}));
  EXPECT_FALSE(Holds(RowScan::Positional({wxT("?")}), {}));
  EXPECT_FALSE(Holds(RowScan::Anywhere({wxT("a")}, 0), {}));
  EXPECT_FALSE(Holds(RowScan::Count(wxT("a"), 1, 0), {}));
}

TEST(RowScan, ReadsAMissingColumnAsUndefined) {
  const auto table = Events({"a", "b"});
  EXPECT_FALSE(RowScan::Positional({wxT("a"), wxT("b")}).HoldsFor(*table, wxT("Event")));
  EXPECT_TRUE(RowScan::Count(wxT("?"), 2, 1).HoldsFor(*table, wxT("Event")));
}

TEST(RowScan, ReadsTheFirstColumnToo) {
  EXPECT_TRUE(RowScan::Count(wxT("-"), 2, 1).HoldsFor(*Events({"a", "b"}), wxT("Block\nName")));
}

}  // namespace
}  // namespace Tests
