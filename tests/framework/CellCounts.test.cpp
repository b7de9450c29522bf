#include "framework/CellCounts.h"

#include <gtest/gtest.h>

#include "tests/support/Table.h"

namespace Tests {
namespace {

using Ombrelia::CountCells;
using Ombrelia::CountCellsByPrefix;

boost::shared_ptr<MUExperimentTextReaderMultiFile> Trials(const std::vector<std::string>& cells) {
  std::vector<std::vector<std::string>> rows;
  for (const std::string& cell : cells) rows.push_back({"ab", cell, "-"});
  return TableOf({"Block\nName", "Trial\nName", "Notes"}, rows);
}

int Count(const std::vector<std::string>& cells, const wxString& text,
          const wxString& columnName = wxT("Trial\nName")) {
  return CountCells(*Trials(cells), columnName, text);
}

std::vector<int> CountPrefixes(const std::vector<std::string>& cells,
                               const std::vector<wxString>& prefixes,
                               const wxString& columnName = wxT("Trial\nName")) {
  return CountCellsByPrefix(*Trials(cells), columnName, prefixes);
}

TEST(CountCells, CountsTheCellsThatEqualTheText) {
  EXPECT_EQ(Count({"a", "b", "a"}, wxT("a")), 2);
  EXPECT_EQ(Count({"b", "b"}, wxT("a")), 0);
  EXPECT_EQ(Count({"A", " a", "a ", "aa", ""}, wxT("a")), 0);
  EXPECT_EQ(Count({"", "a", ""}, wxT("")), 2);
}

TEST(CountCells, LooksAtItsOwnColumnAlone) {
  EXPECT_EQ(Count({"x", "ab"}, wxT("ab")), 1);
  EXPECT_EQ(Count({"x", "ab"}, wxT("ab"), wxT("Block\nName")), 2);
}

TEST(CountCells, ReadsQuestionMarksInAColumnThatIsMissing) {
  EXPECT_EQ(Count({"a", "a"}, wxT("?"), wxT("Trial")), 2);
  EXPECT_EQ(Count({"a", "a"}, wxT("a"), wxT("Trial")), 0);
}

TEST(CountCells, CountsNothingInATableWithoutRows) {
  EXPECT_EQ(CountCells(*TableOf({}, {}), wxT("Trial"), wxT("?")), 0);
}

TEST(CountCellsByPrefix, CountsEachCellForTheFirstPrefixThatFits) {
  EXPECT_EQ(CountPrefixes({"ab", "abc", "b", "abcd", "ab"}, {wxT("abc"), wxT("ab"), wxT("b")}),
            (std::vector<int>{2, 2, 1}));
  EXPECT_EQ(CountPrefixes({"ab", "abc", "abcd"}, {wxT("ab"), wxT("abc")}),
            (std::vector<int>{3, 0}));
}

TEST(CountCellsByPrefix, CountsNowhereWhatHasNoneOfThem) {
  EXPECT_EQ(CountPrefixes({"", "a", "AB", " ab", "xab"}, {wxT("ab")}), (std::vector<int>{0}));
  EXPECT_EQ(CountPrefixes({"ab"}, {}), std::vector<int>());
}

TEST(CountCellsByPrefix, ReadsQuestionMarksInAColumnThatIsMissing) {
  EXPECT_EQ(CountPrefixes({"ab", "ab"}, {wxT("ab"), wxT("?")}, wxT("Trial")),
            (std::vector<int>{0, 2}));
}

}  // namespace
}  // namespace Tests
