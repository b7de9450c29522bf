// The sorted order.
#include <gtest/gtest.h>
#include <wx/utils.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <map>
#include <memory>
#include <numeric>
#include <random>
#include <vector>

#include "Tabulon/src/queries/MUInterfaceRowTruthDecider.h"
#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MURowStore.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/sorting/MUKeyedSort.h"
#include "Tabulon/src/sorting/MURowSort.h"
#include "Tabulon/src/sorting/MUSortFunctors.h"
#include "Tabulon/src/sorting/MUTextSort.h"
#include "Tabulon/src/text/MUUtilitarianFunctions.h"
#include "tests/Tabulon/table/TableTestSupport.h"

namespace {

using Tests::ProbeTable;
using Tests::RecordingStatusPrinter;
using Tests::TemporaryFolder;
using Texts = std::vector<std::string>;
using Keys = ProbeTable::RowKeys;
using Row = MUSingleRowDataPlusRowProperties;

class TableSorting : public testing::Test {
 protected:
  // One column "A" of these texts, and their places in column "N".
  void Load(const Texts& texts, const std::string& column = "A") {
    Tests::Cells rows;
    for (const std::string& text : texts) rows.push_back({text, std::to_string(rows.size())});
    ASSERT_TRUE(table.Load(folder.WriteData("s.txt", {column, "N"}, rows)));
  }
  Keys Sorted(bool reverse, const wxString& column = wxT("A")) {
    table.SetSortColumn(column, reverse);
    return *table.m_currentShownRowKeys;
  }

  TemporaryFolder folder;
  ProbeTable table;
};

TEST_F(TableSorting, TextSortsByCharacterValue) {
  Load({"b", "a", "B", "10", "5", "", "aa"});
  EXPECT_EQ(Sorted(false), Keys({5, 3, 4, 2, 1, 6, 0}));
  EXPECT_EQ(Sorted(true), Keys({0, 6, 1, 2, 4, 3, 5}));
  EXPECT_EQ(table.Column(wxT("A")), Texts({"b", "aa", "a", "B", "5", "10", ""}));
}

TEST_F(TableSorting, TiesKeepLoadOrderInBothDirections) {
  Load({"b", "a", "b", "a", "b"});
  EXPECT_EQ(Sorted(false), Keys({1, 3, 0, 2, 4}));
  EXPECT_EQ(Sorted(true), Keys({0, 2, 4, 1, 3}));
}

TEST_F(TableSorting, BlanksAtTheEndOfAPieceDoNotCount) {
  Load({"ab ", "ab", "ab  ", "aa"});
  EXPECT_EQ(Sorted(false), Keys({3, 0, 1, 2}));
  EXPECT_EQ(Sorted(true), Keys({0, 1, 2, 3}));
}

TEST_F(TableSorting, TextsOfMoreThan18CharactersCompareInFull) {
  const std::string head = "123456789012345678";
  Load({head + "b", head + "a", head, head + "c", head + "a"});
  EXPECT_EQ(Sorted(false), Keys({2, 1, 4, 0, 3}));
  EXPECT_EQ(Sorted(true), Keys({3, 0, 1, 4, 2}));
}

TEST_F(TableSorting, EighteenCharactersFitAndNineteenDoNot) {
  const std::string head = "123456789012345678";
  Load({head + " ", head});
  const wxString column(wxT("A"));
  EXPECT_FALSE(CustomUnPredCellTextFitsInHash(column)(table.m_rows.find(0)));
  EXPECT_TRUE(CustomUnPredCellTextFitsInHash(column)(table.m_rows.find(1)));
  // Both have the same keys; the one that fits comes first, ascending, and last, descending.
  EXPECT_EQ(Sorted(false), Keys({1, 0}));
  EXPECT_EQ(Sorted(true), Keys({0, 1}));
}

TEST_F(TableSorting, TheKeysDecideOverTheFullTextWhereSomeTextFits) {
  // The 20 characters differ early; full text and keys agree, and the short one stands between.
  Load({"zzzzzzzzzzzzzzzzzzzz", "mm", "aaaaaaaaaaaaaaaaaaaa"});
  EXPECT_EQ(Sorted(false), Keys({2, 1, 0}));
  EXPECT_EQ(Sorted(true), Keys({0, 1, 2}));
}

TEST_F(TableSorting, WhereNoTextFitsTheFullTextAloneDecides) {
  // U+0141 falls on "A" (0x41) in the keys, and stands behind "B" in the full text.
  const std::string tail(19, 'x');
  Load({"\xC5\x81" + tail, "B" + tail});
  EXPECT_EQ(Sorted(false), Keys({1, 0}));
  EXPECT_EQ(Sorted(true), Keys({0, 1}));
}

TEST_F(TableSorting, WhereSomeTextFitsTheLowEightBitsDecide) {
  Load({"B", "\xC5\x81"});
  EXPECT_EQ(Sorted(false), Keys({1, 0}));
  EXPECT_EQ(Sorted(true), Keys({0, 1}));
}

TEST_F(TableSorting, ARowWithoutKeysComesBeforeAnEmptyCell) {
  // "x" alone on a line leaves the row without keys for A; the tab before "y" gives an empty cell.
  ASSERT_TRUE(
      table.Load(folder.Write("s.txt", "p\nt\nd\n\nN\tA\tZ\n\nr0\t\tz\nr1\nr2\ta\tz\nr3\n")));
  EXPECT_EQ(Sorted(false), Keys({1, 3, 0, 2}));
  EXPECT_EQ(Sorted(true), Keys({2, 0, 1, 3}));
}

TEST_F(TableSorting, RowsOfAFileWithoutTheColumnComeFirst) {
  Load({"b", "", "a"});
  ASSERT_TRUE(table.Load(folder.WriteData("t.txt", {"N"}, {{"8"}, {"9"}})));
  EXPECT_EQ(Sorted(false), Keys({3, 4, 1, 2, 0}));
  EXPECT_EQ(Sorted(true), Keys({0, 2, 1, 3, 4}));
}

TEST_F(TableSorting, TheReactionTimeSortsAsANumber) {
  Load({"10", "5", "", "none", "-7.5", "5"}, "Reaction\nTime");
  EXPECT_EQ(Sorted(false, wxT("Reaction\nTime")), Keys({2, 3, 4, 1, 5, 0}));
  EXPECT_EQ(Sorted(true, wxT("Reaction\nTime")), Keys({0, 1, 5, 4, 2, 3}));
}

// A number and its negative one differ in all bits that they are sorted by: too many to be packed.
TEST_F(TableSorting, ReactionTimesThatDifferInEveryBitSortAsNumbers) {
  Load({"5", "-5", "7", "", "-7", "5"}, "Reaction\nTime");
  EXPECT_EQ(Sorted(false, wxT("Reaction\nTime")), Keys({3, 4, 1, 0, 5, 2}));
  EXPECT_EQ(Sorted(true, wxT("Reaction\nTime")), Keys({2, 0, 5, 1, 4, 3}));
}

TEST_F(TableSorting, AReactionTimeThatIsNotANumberLosesNoRow) {
  Texts texts;
  for (int i = 0; i < 400; ++i)
    texts.push_back(i % 3 == 0 ? "nan" : std::to_string((i * 7919) % 1000));
  Load(texts, "Reaction\nTime");
  bool someAreNotNumbers = false;
  for (const auto& entry : table.m_rows)
    someAreNotNumbers |= std::isnan(entry.second->m_reactionTime);
  EXPECT_TRUE(someAreNotNumbers);
  for (const bool reverse : {false, true}) {
    Keys keys = Sorted(reverse, wxT("Reaction\nTime"));
    const Texts column = table.Column(wxT("Reaction\nTime"));
    // Among the rows without a number, which come first when ascending; the numbers are in order.
    std::vector<int> numbers;
    for (const std::string& text : column) {
      if (text != "nan") numbers.push_back(std::stoi(text));
    }
    if (reverse) std::reverse(numbers.begin(), numbers.end());
    EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
    EXPECT_EQ(column[reverse ? 399 : 0], "nan");
    std::sort(keys.begin(), keys.end());
    for (unsigned long key = 0; key < 400; ++key) ASSERT_EQ(keys[key], key);
  }
}

TEST_F(TableSorting, AnotherColumnOfNumbersSortsAsText) {
  Load({"5", "10"}, "Reaction Time\n(Trial Variable)");
  EXPECT_EQ(Sorted(false, wxT("Reaction Time\n(Trial Variable)")), Keys({1, 0}));
}

TEST_F(TableSorting, SemiHiddenAndSuppressedRowsFollowUnsorted) {
  Load({"d", "c", "b", "a", "0", "1"});
  table.m_rows.find(1)->m_rowPropertyFlags = 32;
  table.m_rows.find(2)->m_rowPropertyFlags = 8;
  table.m_rows.find(4)->m_rowPropertyFlags = 32;
  table.Notify();
  EXPECT_EQ(Sorted(false), Keys({5, 3, 0}));
  EXPECT_EQ(table.m_activeRowKeys, Keys({5, 3, 0, 1, 4}));
  EXPECT_EQ(table.m_allRowKeys, Keys({5, 3, 0, 1, 2, 4}));
  for (const auto& [key, row] : table.m_rows) {
    EXPECT_EQ(row->m_rowKey, key);
    EXPECT_EQ(table.m_allRowKeys[row->m_indexAmongAllRows], key);
    if ((row->m_rowPropertyFlags & 28) == 0) {
      EXPECT_EQ(table.m_activeRowKeys[row->m_indexAmongActiveRows], key);
    }
    if ((row->m_rowPropertyFlags & 60) == 0) {
      EXPECT_EQ((*table.m_currentShownRowKeys)[row->m_indexAmongShownRows], key);
    }
  }
  table.m_rows.find(0)->m_rowPropertyFlags = 8;
  table.m_rows.find(3)->m_rowPropertyFlags = 8;
  table.m_rows.find(5)->m_rowPropertyFlags = 8;
  EXPECT_EQ(Sorted(true), Keys());
  EXPECT_EQ(table.m_activeRowKeys, Keys({1, 4}));
  EXPECT_EQ(table.m_allRowKeys, Keys({0, 1, 2, 3, 4, 5}));
}

TEST_F(TableSorting, FewerRowsThanTheFrozenCountReadAsUndefined) {
  Load({"b", "a"});
  table.HideOneSingleRowPerArbitraryUserRequest(0);
  EXPECT_EQ(Sorted(false), Keys({1}));
  EXPECT_EQ(table.GetNumberOfDataRows(), 2);
  EXPECT_EQ(table.Cell(0, 0), "a");
  EXPECT_EQ(table.Cell(1, 0), "?");
}

TEST_F(TableSorting, EqualArgumentsSortOnce) {
  Load({"b", "a"});
  RecordingStatusPrinter printer;
  table.SetLinkToStatusBar(&printer);
  table.SetSortColumn(wxT("A"), false);
  table.SetSortColumn(wxT("A"), false);
  EXPECT_EQ(printer.lines, Texts({"Finished sorting by \"A\". N milliseconds. @7 ^-1"}));
  table.SetSortColumn(wxT("A"), true);
  EXPECT_EQ(printer.lines.size(), 2u);
  EXPECT_FALSE(table.m_notificationPending);
}

TEST_F(TableSorting, SortInfoIsCopiedOut) {
  Load({"a"});
  table.SetSortColumn(wxT("A"), true);
  wxString name;
  bool reverse = false;
  table.GetSortColumnInfo(name, &reverse);
  EXPECT_EQ(name, wxT("A"));
  EXPECT_TRUE(reverse);
}

TEST_F(TableSorting, RevertingRestoresLoadOrderAndKeepsTheDirection) {
  Load({"a", "b"});
  EXPECT_EQ(Sorted(true), Keys({1, 0}));
  table.RevertAnyAndAllSortOptions();
  EXPECT_EQ(*table.m_currentShownRowKeys, Keys({0, 1}));
  wxString name(wxT("x"));
  bool reverse = false;
  table.GetSortColumnInfo(name, &reverse);
  EXPECT_EQ(name, wxT(""));
  EXPECT_TRUE(reverse);
  EXPECT_FALSE(table.m_notificationPending);
}

TEST_F(TableSorting, RevertingTwiceDoesNothingTheSecondTime) {
  Load({"a", "b"});
  Sorted(true);
  table.RevertAnyAndAllSortOptions();
  table.HideOneSingleRowPerArbitraryUserRequest(0);
  table.RevertAnyAndAllSortOptions();
  EXPECT_EQ(table.m_currentShownRowKeys->size(), 2u);
}

TEST_F(TableSorting, TheSortSurvivesNotifications) {
  Load({"b", "d"});
  Sorted(false);
  ASSERT_TRUE(table.Load(folder.WriteData("t.txt", {"A"}, {{"c"}, {"a"}})));
  EXPECT_EQ(table.Column(wxT("A")), Texts({"a", "b", "c", "d"}));
}

TEST_F(TableSorting, TheSortWaitsForAFileOfItsColumn) {
  Load({"b", "a"});
  const wxString other = folder.WriteData("t.txt", {"N"}, {{"9"}});
  ASSERT_TRUE(table.Load(other));
  Sorted(false);
  const wxString path = folder.PathOf("s.txt");
  table.SimultaneousFileRequestsSuppressAndUnsuppress({{path, false}});
  table.OnIdle();
  EXPECT_EQ(table.m_allRowKeys, Keys({0, 1, 2}));
  EXPECT_FALSE(table.m_sortRanSinceNotification);
  table.SimultaneousFileRequestsSuppressAndUnsuppress({{path, true}});
  table.OnIdle();
  EXPECT_EQ(table.m_allRowKeys, Keys({2, 1, 0}));
  EXPECT_TRUE(table.m_sortRanSinceNotification);
}

TEST_F(TableSorting, AnUnknownNameIsAcceptedAndChangesNoOrder) {
  Load({"b", "a"});
  EXPECT_EQ(Sorted(false, wxT("nobody")), Keys({0, 1}));
  EXPECT_EQ(Sorted(true, wxT("nobody")), Keys({0, 1}));
  table.Notify();
  EXPECT_EQ(*table.m_currentShownRowKeys, Keys({0, 1}));
}

TEST_F(TableSorting, AnEmptyTableCanBeSorted) {
  EXPECT_EQ(Sorted(false), Keys());
  table.Notify();
  EXPECT_EQ(table.GetNumberOfDataRows(), 0);
}

TEST_F(TableSorting, AHiddenColumnCanBeSortedBy) {
  Load({"b", "a"});
  ASSERT_TRUE(table.Load(folder.WriteData("a.txt", {"N"}, {{"9"}})));
  // The hidden cells have no sort keys: the full text decides.
  EXPECT_EQ(Sorted(false, wxT("SFSFSF1")), Keys({2, 0, 1}));
  EXPECT_EQ(Sorted(true, wxT("SFSFSF1")), Keys({0, 1, 2}));
}

TEST_F(TableSorting, TextsOfDifferentLengthCompareByTheirCommonStartFirst) {
  // Each begins the next one; none fits its keys, and a tail of blanks is a longer text, too.
  const std::string head(30, 'm');
  Texts texts = {head + "  ", head + "bb", head + "b", head, head + " ", head + "ba", head + "a"};
  const Keys ascending = {3, 4, 0, 6, 2, 5, 1};
  Load(texts);
  EXPECT_EQ(Sorted(false), ascending);
  EXPECT_EQ(Sorted(true), Keys(ascending.rbegin(), ascending.rend()));
}

TEST_F(TableSorting, ManyLongTextsOfDifferentLengthSortAsTextsDo) {
  // More than are sorted one by one, in an order that is not theirs; narrow ones and then a wide one.
  for (const bool wide : {false, true}) {
    std::vector<std::wstring> expected;
    Texts texts;
    for (std::size_t i = 0; i < 100; ++i) {
      const std::size_t length = 20 + (i * 37) % 100;
      expected.push_back(std::wstring(length, L'x') + (i % 3 == 0 ? L"a" : L"z"));
      texts.push_back(std::string(length, 'x') + (i % 3 == 0 ? "a" : "z"));
    }
    if (wide) {
      expected.push_back(L"\u0141" + std::wstring(40, L'x'));
      texts.push_back("\xC5\x81" + std::string(40, 'x'));
    }
    ProbeTable one;
    Tests::Cells rows;
    for (const std::string& text : texts) rows.push_back({text});
    ASSERT_TRUE(one.Load(folder.WriteData(wide ? "wide.txt" : "narrow.txt", {"A"}, rows)));
    std::vector<unsigned long> order(texts.size());
    std::iota(order.begin(), order.end(), 0ul);
    std::stable_sort(order.begin(), order.end(),
                     [&](unsigned long a, unsigned long b) { return expected[a] < expected[b]; });
    one.SetSortColumn(wxT("A"), false);
    EXPECT_EQ(*one.m_currentShownRowKeys, Keys(order.begin(), order.end()));
  }
}

// The first file alone has more different texts than a dictionary is made of for a sort, which then is left undone.
TEST_F(TableSorting, ThousandsOfDifferentTextsSortAsFewOnesDo) {
  constexpr std::size_t COUNT = 5000;
  Texts texts;
  for (std::size_t i = 0; i < COUNT; ++i) {
    // Every text twice at most, in an order that is not theirs.
    texts.push_back("text " + std::to_string(10000 + (i * 4001) % 4500));
  }
  Load(texts);
  Texts further = {"text 10007", "text 1", "text 99999", "text 12345", "text 10007"};
  Tests::Cells rows;
  for (const std::string& text : further) rows.push_back({text});
  ASSERT_TRUE(table.Load(folder.WriteData("further.txt", {"A"}, rows)));
  texts.insert(texts.end(), further.begin(), further.end());
  std::vector<unsigned long> order(texts.size());
  std::iota(order.begin(), order.end(), 0ul);
  std::stable_sort(order.begin(), order.end(),
                   [&](unsigned long a, unsigned long b) { return texts[a] < texts[b]; });
  EXPECT_EQ(Sorted(false), Keys(order.begin(), order.end()));
  std::iota(order.begin(), order.end(), 0ul);
  std::stable_sort(order.begin(), order.end(),
                   [&](unsigned long a, unsigned long b) { return texts[b] < texts[a]; });
  EXPECT_EQ(Sorted(true), Keys(order.begin(), order.end()));
}

TEST_F(TableSorting, SettingUpAnewForgetsTheSort) {
  Load({"b", "a"});
  RecordingStatusPrinter printer;
  table.SetLinkToStatusBar(&printer);
  EXPECT_EQ(Sorted(true), Keys({0, 1}));
  EXPECT_EQ(Sorted(false), Keys({1, 0}));
  ASSERT_EQ(printer.lines.size(), 2u);
  EXPECT_TRUE(table.PerformSetup(wxFileName()));
  wxString name(wxT("x"));
  bool reverse = true;
  table.GetSortColumnInfo(name, &reverse);
  EXPECT_EQ(name, wxT(""));
  EXPECT_FALSE(reverse);
  EXPECT_FALSE(table.m_sortRanSinceNotification);
  EXPECT_EQ(table.m_sortMilliseconds, 0u);
  table.Notify();
  EXPECT_EQ(table.Column(wxT("A")), Texts({"b", "a"}));
  // The same sort is another one now; the printer is gone.
  EXPECT_EQ(Sorted(false), Keys({1, 0}));
  EXPECT_TRUE(table.m_sortRanSinceNotification);
  EXPECT_EQ(printer.lines.size(), 2u);
}

// ---- Elapsed times

// A stopwatch that runs already keeps its start.
TEST_F(TableSorting, TheTimeOfASortIsThatOfItsStopwatch) {
  const wxString identifier(wxT("MUExperimentTextReaderMultiFile::ResetKeysUsingSortSettings"));
  RecordingStatusPrinter printer;
  table.SetLinkToStatusBar(&printer);
  table.m_sortMilliseconds = 4000000;
  table.SetSortColumn(wxT("A"), true);
  EXPECT_EQ(table.m_sortMilliseconds, 4000000u);  // nothing to sort, nothing to time
  Load({"b", "a"});
  MUUtilitarianFunctions::TimeMeProductionRelease(true, identifier, nullptr);
  wxMilliSleep(40);
  table.SetSortColumn(wxT("A"), false);
  EXPECT_GE(table.m_sortMilliseconds, 39u);
  EXPECT_LT(table.m_sortMilliseconds, 4000000u);
  EXPECT_EQ(printer.milliseconds.back(), table.m_sortMilliseconds);
}

TEST_F(TableSorting, AFinishTextTellsTheTimeSinceItsStartText) {
  RecordingStatusPrinter printer;
  table.SetLinkToStatusBar(&printer);
  table.SendStartMessageToStatusBar(wxT("some work"), wxT("Begin"), -1);
  wxMilliSleep(40);
  table.SendFinishMessageToStatusBar(wxT("some work"), wxT("End."));
  ASSERT_EQ(printer.milliseconds.size(), 1u);
  EXPECT_GE(printer.milliseconds[0], 39u);
  EXPECT_LT(printer.milliseconds[0], 4000000u);
}

// ---- Functors on rows made by hand

TEST(SortFunctors, ReadWhatTheMapsHold) {
  const wxString column(wxT("A"));
  Row low;
  Row high;
  low.m_hash01[column] = 1.0;
  low.m_hash02[column] = 2.0;
  low.m_hash03[column] = 3.0;
  low.m_textFitsInHash[column] = true;
  low.m_cells[column] = wxT("low");
  low.m_reactionTime = 4.0;
  high.m_hash01[column] = 1.5;
  high.m_hash02[column] = 2.5;
  high.m_hash03[column] = 3.5;
  high.m_cells[column] = wxT("lower");
  high.m_reactionTime = 5.0;
  high.m_rowPropertyFlags = 16;
  const auto expectOrder = [&](const auto& less, const auto& greater) {
    EXPECT_TRUE(less(&low, &high));
    EXPECT_FALSE(less(&high, &low));
    EXPECT_FALSE(less(&low, &low));
    EXPECT_TRUE(greater(&high, &low));
    EXPECT_FALSE(greater(&low, &high));
    EXPECT_FALSE(greater(&low, &low));
  };
  expectOrder(CustomComparatorCellTextHash01(column),
              CustomComparatorCellTextHash01Reverse(column));
  expectOrder(CustomComparatorCellTextHash02(column),
              CustomComparatorCellTextHash02Reverse(column));
  expectOrder(CustomComparatorCellTextHash03(column),
              CustomComparatorCellTextHash03Reverse(column));
  expectOrder(RowCompareLessStringCompare(column), RowCompareLessStringCompareReverse(column));
  expectOrder(CustomComparatorByRowReactionTimeFunctor(column),
              CustomComparatorByRowReactionTimeFunctorReverse(column));
  EXPECT_TRUE(CustomUnPredCellTextFitsInHash(column)(&low));
  EXPECT_FALSE(CustomUnPredCellTextFitsInHash(column)(&high));
  EXPECT_FALSE(CustomUnPredCellTextFitsInHashReverse(column)(&low));
  EXPECT_TRUE(CustomUnPredCellTextFitsInHashReverse(column)(&high));
  EXPECT_TRUE(UnaryPredPartitionByVisibility(column)(&low));
  EXPECT_FALSE(UnaryPredPartitionByVisibility(column)(&high));
  low.m_rowPropertyFlags = 64 + 1 + 2;
  EXPECT_TRUE(UnaryPredPartitionByVisibility(column)(&low));
}

TEST(SortFunctors, NotANumberTakesThePlaceOfNoNumber) {
  Row nan;
  Row none;
  Row negative;
  nan.m_reactionTime = std::numeric_limits<double>::quiet_NaN();
  negative.m_reactionTime = -5.0;
  const CustomComparatorByRowReactionTimeFunctor less((wxString()));
  EXPECT_FALSE(less(&nan, &none));
  EXPECT_FALSE(less(&none, &nan));
  EXPECT_TRUE(less(&nan, &negative));
  EXPECT_FALSE(less(&negative, &nan));
}

// ---- What may have happened to rows between the notification and the sort

// A table of the class itself takes the keys of a sort from lists that still hold.
class SortOfOurOwnRows : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Tests::LoadAndShow(
        table, folder.WriteData("a.txt", {"A", "B"}, {{"c", "1"}, {"a", "2"}, {"b", "3"}})));
  }
  Texts SortedColumn() {
    table.SetSortColumn(wxT("A"), false);
    table.EraseCachesOfQueries();
    Texts texts;
    for (const wxString& text : table.GetAllFromCol_X_WhereField_Y_Matches_Z(
             wxT("B"), wxT("no such column"), wxT(""), true)) {
      texts.push_back(Tests::Utf8(text));
    }
    return texts;
  }

  TemporaryFolder folder;
  MUExperimentTextReaderMultiFile table{nullptr};
};

TEST_F(SortOfOurOwnRows, KnowsAllRowsAfterANotification) {
  EXPECT_EQ(SortedColumn(), Texts({"2", "3", "1"}));
  EXPECT_EQ((table.*&ProbeTable::m_activeRowKeys), Keys({1, 2, 0}));
}

TEST_F(SortOfOurOwnRows, SeesFlagsThatTheHolderOfARecordWrote) {
  table.GetRowByRowIndexAndVisibilityFilter(1, ProbeTable::ALL_ROWS)->m_rowPropertyFlags =
      MU_ROW_FLAG_HIDDEN_BY_USER;
  EXPECT_EQ(SortedColumn(), Texts({"3", "1", "2"}));
}

TEST_F(SortOfOurOwnRows, SeesFlagsThatADeciderWrote) {
  class : public MUInterfaceRowTruthDecider {
   public:
    int DecideRow(Row* row) override {
      if (row->m_cells[wxT("A")] == wxT("b")) row->m_rowPropertyFlags = MU_ROW_FLAG_HIDDEN_BY_USER;
      return 0;
    }
    bool ResultMayBeCached() override { return false; }
    wxString GetIdentityString() override { return wxT("hides"); }
  } decider;
  table.FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, true);
  EXPECT_EQ(SortedColumn(), Texts({"2", "1", "3"}));
}

TEST_F(SortOfOurOwnRows, SeesRowsThatCameAndWentSince) {
  EXPECT_FALSE(table.AddExperimentOcurrence(wxFileName(folder.PathOf("none.txt")), false));
  ASSERT_TRUE(table.AddExperimentOcurrence(
      wxFileName(folder.WriteData("b.txt", {"A", "B"}, {{"aa", "4"}})), false));
  EXPECT_EQ(SortedColumn(), Texts({"2", "4", "3", "1"}));
  table.RevertAnyAndAllSortOptions();
  table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("A"), wxT("a"));
  EXPECT_EQ(SortedColumn(), Texts({"4", "3", "1"}));
}

TEST_F(SortOfOurOwnRows, SeesRowsThatTheUserHid) {
  table.HideOneSingleRowPerArbitraryUserRequest(0);
  EXPECT_EQ(SortedColumn(), Texts({"2", "3", "1"}));
  EXPECT_EQ((table.*&ProbeTable::m_activeRowKeys), Keys({1, 2, 0}));
  EXPECT_EQ(*(table.*&ProbeTable::m_currentShownRowKeys), Keys({1, 2}));
}

// ---- The sort against the passes that define it

using Rows = std::vector<Row*>;

Rows Sorted(const Rows& rows, const wxString& column, bool reverse) {
  Rows sorted;
  MURowStore store;
  std::vector<unsigned long> keys;
  for (Row* const row : rows) {
    keys.push_back(keys.size() + keys.size() / 7);
    store.insert(keys.back(), row);
  }
  const auto places = column == wxT("Reaction\nTime")
                          ? SortedPlacesByReactionTime(store, keys.data(), keys.size(), reverse)
                          : SortedPlaces(store, keys.data(), keys.size(), column, reverse);
  for (const MUPlace place : places) sorted.push_back(rows[place]);
  return sorted;
}

void SortAscendingByPasses(Rows& rows, const wxString& column) {
  const auto middle =
      std::stable_partition(rows.begin(), rows.end(), CustomUnPredCellTextFitsInHash(column));
  std::stable_sort(middle, rows.end(), RowCompareLessStringCompare(column));
  if (middle == rows.begin()) return;
  std::stable_sort(rows.begin(), rows.end(), CustomComparatorCellTextHash03(column));
  std::stable_sort(rows.begin(), rows.end(), CustomComparatorCellTextHash02(column));
  std::stable_sort(rows.begin(), rows.end(), CustomComparatorCellTextHash01(column));
}

void SortDescendingByPasses(Rows& rows, const wxString& column) {
  const auto middle = std::stable_partition(rows.begin(), rows.end(),
                                            CustomUnPredCellTextFitsInHashReverse(column));
  std::stable_sort(rows.begin(), middle, RowCompareLessStringCompareReverse(column));
  if (middle == rows.end()) return;
  std::stable_sort(rows.begin(), rows.end(), CustomComparatorCellTextHash03Reverse(column));
  std::stable_sort(rows.begin(), rows.end(), CustomComparatorCellTextHash02Reverse(column));
  std::stable_sort(rows.begin(), rows.end(), CustomComparatorCellTextHash01Reverse(column));
}

TEST(SortProperty, RowsMadeByHandSortAsThePassesDo) {
  const wxString column(wxT("A"));
  const wxString reactionTime(wxT("Reaction\nTime"));
  for (unsigned seed = 100; seed < 200; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    std::deque<Row> records(random() % 700 + 1);
    Rows rows;
    const bool noneFits = random() % 4 == 0;
    for (Row& row : records) {
      // Keys that no text would give: negative ones, both zeros, fractions, and rows without any.
      const double numbers[] = {-2.5, -0.0, 0.0, 1.0, 1.0e18, 0.5, -1.0e-300};
      if (random() % 7 != 0) row.m_hash01[column] = numbers[random() % 7];
      if (random() % 7 != 0) row.m_hash02[column] = numbers[random() % 7];
      if (random() % 7 != 0) row.m_hash03[column] = numbers[random() % 7];
      if (random() % 3 != 0) row.m_textFitsInHash[column] = !noneFits && random() % 2 == 0;
      if (random() % 5 != 0)
        row.m_cells[column] = wxString(static_cast<wxChar>(L'a' + random() % 3), random() % 3);
      if (random() % 3 != 0) row.m_reactionTime = numbers[random() % 7];
      rows.push_back(&row);
    }
    for (const bool reverse : {false, true}) {
      Rows expected = rows;
      if (reverse) {
        SortDescendingByPasses(expected, column);
      } else {
        SortAscendingByPasses(expected, column);
      }
      ASSERT_EQ(Sorted(rows, column, reverse), expected) << "reverse " << reverse;

      expected = rows;
      if (reverse) {
        std::stable_sort(expected.begin(), expected.end(),
                         CustomComparatorByRowReactionTimeFunctorReverse(reactionTime));
      } else {
        std::stable_sort(expected.begin(), expected.end(),
                         CustomComparatorByRowReactionTimeFunctor(reactionTime));
      }
      ASSERT_EQ(Sorted(rows, reactionTime, reverse), expected)
          << "reaction time, reverse " << reverse;
    }
  }
}

// A text with or without keys, and how it orders by them.
struct KeyedText {
  std::string narrow;
  std::wstring wide;
  bool isWide;
  bool hasKeys;

  MUCellText View() const {
    return isWide ? MUCellText(wide.data(), wide.size()) : MUCellText(narrow.data(), narrow.size());
  }
  double Key(std::size_t piece) const { return hasKeys ? View().SortKey(piece) : 0.0; }
  bool Fits() const { return hasKeys && View().FitsInSortKeys(); }
};

bool OrdersBefore(const KeyedText& a, const KeyedText& b) {
  for (std::size_t piece = 0; piece < MUCellText::SORT_PIECES; ++piece) {
    if (a.Key(piece) != b.Key(piece)) return a.Key(piece) < b.Key(piece);
  }
  if (a.Fits() || b.Fits()) return a.Fits() && !b.Fits();
  return a.View().Compare(b.View()) < 0;
}

TEST(TextSort, OrdersByKeysThenByWhatTheyCoverThenByText) {
  for (unsigned seed = 1; seed < 400; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    // What most texts begin with decides how far their differences are from their beginning.
    const std::string start(seed % 5 * 9, 'p');
    const char* const alphabet = seed % 3 == 0 ? "ab" : "abcdefgh XYZ019~";
    const std::size_t letters = std::char_traits<char>::length(alphabet);
    const bool someAreWide = seed % 4 == 0;
    const bool someAreWithoutKeys = seed % 7 == 0;
    const bool someHaveZeroBytes = seed % 6 == 0;
    std::vector<KeyedText> texts(random() % 900 + 1);
    for (KeyedText& text : texts) {
      if (random() % 10 != 0) text.narrow = start;
      const std::size_t length = random() % (seed % 2 == 0 ? 5 : 40);
      for (std::size_t i = 0; i < length; ++i) {
        text.narrow += someHaveZeroBytes && random() % 3 == 0 ? '\0' : alphabet[random() % letters];
      }
      text.wide.assign(text.narrow.begin(), text.narrow.end());
      // The low byte of the second letter is that of the first.
      if (!text.wide.empty() && random() % 2 == 0) text.wide.back() = L'\u0161';
      text.isWide = someAreWide && random() % 3 == 0;
      text.hasKeys = !someAreWithoutKeys || random() % 3 != 0;
      if (!text.hasKeys) text.narrow.clear();
    }
    MUTextSort sort(texts.size());
    for (const KeyedText& text : texts) {
      if (text.hasKeys) {
        sort.Add(text.View());
      } else {
        sort.AddWithoutKeys(text.View());
      }
    }
    for (const bool descending : {false, true}) {
      std::vector<MUPlace> expected(texts.size());
      std::iota(expected.begin(), expected.end(), MUPlace{0});
      std::stable_sort(expected.begin(), expected.end(), [&](MUPlace a, MUPlace b) {
        return descending ? OrdersBefore(texts[b], texts[a]) : OrdersBefore(texts[a], texts[b]);
      });
      const auto places = sort.Sorted(descending);
      ASSERT_EQ(std::vector<MUPlace>(places.begin(), places.end()), expected)
          << "descending " << descending;
    }
  }
}

TEST(KeyedSort, IsAStableSort) {
  for (unsigned seed = 1; seed < 200; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937_64 random(seed);
    const unsigned bits = static_cast<unsigned>(random() % 64);
    const std::uint64_t mask = random() & random() & ((std::uint64_t{1} << bits) - 1);
    std::vector<std::uint64_t> keys(random() % 3000);
    for (std::uint64_t& key : keys) key = random() & mask;
    for (const bool descending : {false, true}) {
      std::vector<MUPlace> expected(keys.size());
      std::iota(expected.begin(), expected.end(), MUPlace{0});
      std::stable_sort(expected.begin(), expected.end(), [&](MUPlace a, MUPlace b) {
        return descending ? keys[a] > keys[b] : keys[a] < keys[b];
      });
      MUKeyedSort sort(keys.size(), bits, descending);
      for (MUPlace place = 0; place < keys.size(); ++place) sort.Add(keys[place], place);
      std::vector<MUPlace> sorted(keys.size());
      sort.WriteSorted(sorted.data());
      ASSERT_EQ(sorted, expected) << bits << " bits, descending " << descending;
    }
  }
}

TEST(KeyPacking, LeavesOutBitsThatFollowFromOthers) {
  MUKeyPacking<1> packing;
  const double numbers[] = {-999999.0, 150.0, 151.0, 2000.0};
  for (const double number : numbers) packing.Examine({KeyOfNumber(number)});
  packing.Finish();
  EXPECT_TRUE(packing.IsComplete());
  EXPECT_LE(packing.Bits(), 32u);
  for (std::size_t i = 1; i < std::size(numbers); ++i) {
    EXPECT_LT(packing.Pack({KeyOfNumber(numbers[i - 1])}), packing.Pack({KeyOfNumber(numbers[i])}));
  }
}

TEST(KeyPacking, PackedKeysOrderAsTheWholeOnesDo) {
  for (unsigned seed = 1; seed < 300; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937_64 random(seed);
    MUKeyPacking<3> packing;
    std::vector<MUKeyPacking<3>::Key> keys(random() % 40 + 2);
    MUKeyPacking<3>::Key mask;
    // From a few bits in which keys differ to far more than are kept.
    for (std::uint64_t& word : mask) {
      word = random();
      for (unsigned i = 0; i < seed % 6; ++i) word &= random();
    }
    for (auto& key : keys) {
      for (std::size_t word = 0; word < key.size(); ++word)
        key[word] = (random() & mask[word]) ^ ~mask[word];
      packing.Examine(key);
    }
    packing.Finish();
    for (const auto& a : keys) {
      ASSERT_EQ(packing.Pack(a) >> packing.Bits(), 0u);
      for (const auto& b : keys) {
        const bool less = packing.Pack(a) < packing.Pack(b);
        const bool equal = packing.Pack(a) == packing.Pack(b) && packing.IsComplete();
        ASSERT_TRUE(!less || a < b);
        ASSERT_TRUE(!equal || a == b);
      }
    }
  }
}

TEST(KeyedSort, KeysOrderAsNumbersDo) {
  const double infinity = std::numeric_limits<double>::infinity();
  const std::vector<double> ascending = {-infinity, -1.0e300, -999999.0, -1.0,    -1.0e-310, 0.0,
                                         1.0e-310,  1.0,      2.5,       1.0e300, infinity};
  for (std::size_t i = 1; i < ascending.size(); ++i) {
    EXPECT_LT(KeyOfNumber(ascending[i - 1]), KeyOfNumber(ascending[i])) << i;
  }
  EXPECT_EQ(KeyOfNumber(-0.0), KeyOfNumber(0.0));
}

// ---- Random tables against a plain record of each row, sorted by the definition

struct PlainRow {
  unsigned long key;
  double hash[3] = {0.0, 0.0, 0.0};
  bool fits = false;
  std::wstring text;
};

double PlainHash(const std::wstring& piece) {
  double sum = 0.0;
  for (std::size_t i = 0; i < 6; ++i) {
    const unsigned character = i < piece.size() ? static_cast<unsigned>(piece[i]) & 0xFFu : 32u;
    sum += static_cast<double>(character) * std::pow(256.0, 7.0 - static_cast<double>(i));
  }
  return sum;
}

void PlainSort(std::vector<PlainRow>& rows, bool reverse) {
  const auto byText = [&](const PlainRow& a, const PlainRow& b) {
    return reverse ? a.text > b.text : a.text < b.text;
  };
  const auto middle = std::stable_partition(
      rows.begin(), rows.end(), [&](const PlainRow& row) { return row.fits != reverse; });
  const bool noneFits =
      std::none_of(rows.begin(), rows.end(), [](const PlainRow& row) { return row.fits; });
  if (noneFits) {
    std::stable_sort(rows.begin(), rows.end(), byText);
    return;
  }
  if (reverse) {
    std::stable_sort(rows.begin(), middle, byText);
  } else {
    std::stable_sort(middle, rows.end(), byText);
  }
  for (int piece = 2; piece >= 0; --piece) {
    std::stable_sort(rows.begin(), rows.end(), [&](const PlainRow& a, const PlainRow& b) {
      return reverse ? a.hash[piece] > b.hash[piece] : a.hash[piece] < b.hash[piece];
    });
  }
}

TEST(SortProperty, EverySortIsThePlainOne) {
  const unsigned firstSeed = 4711;
  for (unsigned seed = firstSeed; seed < firstSeed + 300; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const TemporaryFolder folder;
    ProbeTable table;
    std::vector<PlainRow> plain;
    const bool onlyLong = random() % 5 == 0;
    const bool ascii = random() % 2 == 0;
    const int files = 1 + static_cast<int>(random() % 3);
    for (int file = 0; file < files; ++file) {
      const bool hasColumn = random() % 6 != 0;
      std::string bytes = std::string("p\nt\nd\n\nN\t") + (hasColumn ? "A" : "Other") + "\tZ\n\n";
      // Small tables and some that are large enough to be sorted by counting.
      const std::size_t count = random() % (seed % 10 == 0 ? 900 : 60) + 1;
      for (std::size_t i = 0; i < count; ++i) {
        PlainRow row;
        row.key = plain.size();
        bytes += "n";
        if (random() % 8 != 0) {
          // A short alphabet and shared heads make ties in every piece.
          std::wstring text(random() % 4 * 6, L'a');
          if (onlyLong) text.resize(19, L'a');
          while (random() % 3 != 0) {
            const wchar_t letters[] = {L'a', L'b', L' ', ascii ? L'Z' : L'\x141',
                                       ascii ? L'~' : L'\xE9'};
            text += letters[random() % 5];
          }
          bytes += "\t" + wxString(text).ToStdString(wxConvUTF8) + "\tz";
          if (hasColumn) {
            row.text = text;
            row.fits = text.size() < 19;
            for (std::size_t piece = 0; piece < 3; ++piece) {
              row.hash[piece] =
                  PlainHash(piece * 6 < text.size() ? text.substr(piece * 6, 6) : std::wstring());
            }
          }
        }
        bytes += "\n";
        plain.push_back(row);
      }
      ASSERT_TRUE(table.Load(folder.Write(std::to_string(file) + ".txt", bytes)));
    }
    // Some rows get their own entries, which changes no answer.
    const bool touched = random() % 3 == 0;
    for (const auto& [key, row] : table.m_rows) {
      if (touched && random() % 4 == 0) row->m_cells[wxT("A")];
    }
    for (const bool reverse : {false, true}) {
      std::vector<PlainRow> expected = plain;
      PlainSort(expected, reverse);
      table.SetSortColumn(wxT("A"), reverse);
      ASSERT_EQ(table.m_allRowKeys.size(), expected.size());
      for (std::size_t i = 0; i < expected.size(); ++i) {
        ASSERT_EQ(table.m_allRowKeys[i], expected[i].key)
            << "place " << i << " reverse " << reverse;
      }
    }
  }
}

}  // namespace
