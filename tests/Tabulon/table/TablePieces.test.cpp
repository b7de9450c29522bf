// The small pieces that the table is made of.
#include <gtest/gtest.h>

#include <map>
#include <random>
#include <utility>

#include "Tabulon/src/queries/MUCachingKeySelectedData.h"
#include "Tabulon/src/queries/MUQueryCachingBroker.h"
#include "Tabulon/src/queries/MUQueryKeys.h"
#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUColumnReader.h"
#include "Tabulon/src/rows/MUFlagTests.h"
#include "Tabulon/src/rows/MUPropertyFlags.h"
#include "Tabulon/src/rows/MURowStore.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/table/MUFileFlags.h"
#include "Tabulon/src/table/MUInterfaceMultiExperimentDataSource.h"
#include "Tabulon/src/table/MUNearest.h"
#include "Tabulon/src/table/MUTableEvents.h"
#include "Tabulon/src/table/TriStateTrueFalseUnknown.h"
#include "Tabulon/src/text/MUTrimmedText.h"

namespace {

using Source = MUInterfaceMultiExperimentDataSource;
using Key = MUCachingKeySelectedData;

const wxString D(wxT("\x07\x07\x07"));

TEST(TableConstants, AreTheAgreedTexts) {
  EXPECT_EQ(Source::REALLY_RARE_CHARS_TO_USE_FOR_UNIQUENESS, D);
  EXPECT_EQ(Source::REALLY_RARE_CHARS_TO_USE_FOR_UNIQUENESS.length(), 3u);
  EXPECT_EQ(Source::DELIMITER_FOR_USE_IN_CONCATENATION, D);
  EXPECT_EQ(Source::SPECIAL_CODE_TO_REQUEST_MATCH_ALL_ROWS, wxString(wxT('*'), 20));
  EXPECT_EQ(Source::SPECIAL_CODE_FOR_COL_INSERTION_AT_END, D + wxT("ENDEND"));
  EXPECT_EQ(Source::CELL_STRING_VALUE_WHEN_CELL_IS_UNDEFINED, wxT("?"));
}

TEST(TableConstants, NumbersOfSetsAndStates) {
  EXPECT_EQ(Source::ONLY_FULLY_SHOWN_ROWS, 1);
  EXPECT_EQ(Source::ALL_ROWS, 2);
  EXPECT_EQ(Source::CALLER_GIVEN_ROWS, 3);
  EXPECT_EQ(Source::ACTIVE_SHOWN_AND_ACTIVE_SEMIHIDDEN, 4);
  EXPECT_EQ(TRI_STATE_FALSE, 0);
  EXPECT_EQ(TRI_STATE_TRUE, 1);
  EXPECT_EQ(TRI_STATE_UNKNOWN, 2);
}

TEST(TableConstants, EventTypesAreTakenInOrder) {
  EXPECT_NE(wxEVT_FLAGGED_ROW_COUNT_CHANGED, wxEVT_NULL);
  EXPECT_EQ(wxEVT_COMMAND_REFRESH_REQUEST, wxEVT_FLAGGED_ROW_COUNT_CHANGED + 1);
}

TEST(RowStore, AnswersLikeAMap) {
  std::mt19937 random(20240501);
  std::vector<MUSingleRowDataPlusRowProperties> rows(2000);
  MURowStore store;
  std::map<unsigned long, MUSingleRowDataPlusRowProperties*> model;
  const auto expectEqual = [&] {
    ASSERT_EQ(store.size(), model.size());
    ASSERT_EQ(store.empty(), model.empty());
    auto expected = model.begin();
    for (const auto& [key, row] : store) {
      ASSERT_NE(expected, model.end());
      ASSERT_EQ(key, expected->first);
      ASSERT_EQ(row, expected->second);
      ++expected;
    }
    ASSERT_EQ(expected, model.end());
  };
  for (int step = 0; step < 20000; ++step) {
    const unsigned long key = random() % rows.size();
    if (random() % 2 == 0) {
      EXPECT_EQ(store.insert(key, &rows[key]), model.emplace(key, &rows[key]).second);
    } else {
      EXPECT_EQ(store.erase(key), model.erase(key) == 1);
    }
    const unsigned long asked = random() % (rows.size() + 600);
    const auto found = model.find(asked);
    EXPECT_EQ(store.find(asked), found == model.end() ? nullptr : found->second);
    if (step % 500 == 0) expectEqual();
  }
  for (unsigned long key = 0; key < rows.size(); ++key) {
    EXPECT_EQ(store.erase(key), model.erase(key) == 1);
  }
  expectEqual();
}

TEST(RowStore, MayBeErasedFromWhileItIsWalkedThrough) {
  std::vector<MUSingleRowDataPlusRowProperties> rows(1200);
  MURowStore store;
  for (unsigned long key = 0; key < rows.size(); ++key) store.insert(key, &rows[key]);
  unsigned long visited = 0;
  for (const auto& [key, row] : store) {
    ++visited;
    if (key != 700) store.erase(key);
  }
  EXPECT_EQ(visited, 1200u);
  EXPECT_EQ(store.size(), 1u);
  EXPECT_EQ(store.find(700), &rows[700]);
}

TEST(RowStore, KeepsTheRowThatHasTheKey) {
  MUSingleRowDataPlusRowProperties first;
  MUSingleRowDataPlusRowProperties second;
  MURowStore store;
  EXPECT_TRUE(store.insert(3, &first));
  EXPECT_FALSE(store.insert(3, &second));
  EXPECT_EQ(store.find(3), &first);
  EXPECT_EQ(store.find(static_cast<unsigned long>(-1)), nullptr);
}

TEST(RowStore, MovesItsRowsAndIsEmptyThen) {
  MUSingleRowDataPlusRowProperties first;
  MUSingleRowDataPlusRowProperties second;
  MURowStore one;
  MURowStore other;
  ASSERT_TRUE(one.insert(3, &first));
  ASSERT_TRUE(other.insert(3, &second));
  const unsigned long version = one.Version();
  EXPECT_EQ(one.Runs().size(), 1u);

  std::swap(one, other);
  EXPECT_EQ(one.find(3), &second);
  EXPECT_EQ(other.find(3), &first);
  EXPECT_NE(one.Version(), version);
  EXPECT_NE(other.Version(), version);
  EXPECT_NE(one.Version(), other.Version());
  EXPECT_EQ(one.size(), 1u);

  const unsigned long versionBefore = one.Version();
  const MURowStore taken(std::move(one));
  EXPECT_EQ(taken.find(3), &second);
  EXPECT_EQ(taken.size(), 1u);
  EXPECT_EQ(taken.Runs().size(), 1u);
  EXPECT_TRUE(one.empty());
  EXPECT_EQ(one.find(3), nullptr);
  EXPECT_FALSE(one.begin() != one.end());
  EXPECT_EQ(one.Runs().size(), 0u);
  EXPECT_NE(one.Version(), versionBefore);
  EXPECT_TRUE(one.insert(5, &first));
  EXPECT_EQ(one.Runs().size(), 1u);

  MURowStore& itself = one;
  one = std::move(itself);
  EXPECT_EQ(one.find(5), &first);
  EXPECT_EQ(one.size(), 1u);
}

TEST(Nearest, IsTheCountOrTheGreatestNumberThatThereIs) {
  EXPECT_EQ(MUNearest<int>(0), 0);
  EXPECT_EQ(MUNearest<int>(2147483646ul), 2147483646);
  EXPECT_EQ(MUNearest<int>(2147483647ul), 2147483647);
  EXPECT_EQ(MUNearest<int>(2147483648ul), 2147483647);
  EXPECT_EQ(MUNearest<int>(4294967297ul), 2147483647);
  EXPECT_EQ(MUNearest<int>(18446744073709551615ul), 2147483647);
  EXPECT_EQ(MUNearest<unsigned>(4294967294ul), 4294967294u);
  EXPECT_EQ(MUNearest<unsigned>(4294967295ul), 4294967295u);
  EXPECT_EQ(MUNearest<unsigned>(4294967296ul), 4294967295u);
}

TEST(CachingKey, IsEqualOnlyInAllThreeParts) {
  const Key key(wxT("a"), wxT("b"), wxT("c"));
  EXPECT_TRUE(key.Equals(Key(wxT("a"), wxT("b"), wxT("c"))));
  EXPECT_FALSE(key.Equals(Key(wxT("x"), wxT("b"), wxT("c"))));
  EXPECT_FALSE(key.Equals(Key(wxT("a"), wxT("x"), wxT("c"))));
  EXPECT_FALSE(key.Equals(Key(wxT("a"), wxT("b"), wxT("x"))));
  Key copy(key);
  EXPECT_TRUE(copy.Equals(key));
  copy = Key(wxT("x"), wxT("y"), wxT("z"));
  EXPECT_FALSE(copy.Equals(key));
  copy = key;
  EXPECT_TRUE(copy.Equals(key));
}

TEST(CachingKey, EarlierPartsDecideTheOrder) {
  const Key key(wxT("b"), wxT("b"), wxT("b"));
  EXPECT_TRUE(Key(wxT("a"), wxT("c"), wxT("c")).LessThan(key));
  EXPECT_FALSE(Key(wxT("c"), wxT("a"), wxT("a")).LessThan(key));
  EXPECT_TRUE(Key(wxT("b"), wxT("a"), wxT("c")).LessThan(key));
  EXPECT_FALSE(Key(wxT("b"), wxT("c"), wxT("a")).LessThan(key));
  EXPECT_TRUE(Key(wxT("b"), wxT("b"), wxT("a")).LessThan(key));
  EXPECT_FALSE(Key(wxT("b"), wxT("b"), wxT("c")).LessThan(key));
  EXPECT_FALSE(key.LessThan(key));
  EXPECT_TRUE(Key(wxT("Z"), wxT(""), wxT("")).LessThan(Key(wxT("a"), wxT(""), wxT(""))));
}

TEST(QueryKeys, AreMadeOfTheAgreedParts) {
  using namespace MUQueryKeys;
  const wxString rows = D + wxT("GETROWINDICES");
  const wxString columns = D + wxT("GETCOLUMNNAMES");
  const wxString matches = D + wxT("WHEREBITSTRINGMATCHES");
  const wxString absent = D + wxT("WHEREBITSTRINGABSENT");
  const wxString both = D + wxT("WHEREBITSTRINGHASXABSENTY");
  EXPECT_TRUE(RowsByFlag(64, Source::ONLY_FULLY_SHOWN_ROWS)
                  .Equals(Key(rows, matches, wxT("0") + D + wxT("64"))));
  EXPECT_TRUE(RowsByFlag(4294967295u, Source::ACTIVE_SHOWN_AND_ACTIVE_SEMIHIDDEN)
                  .Equals(Key(rows, matches, wxT("1") + D + wxT("-1"))));
  EXPECT_TRUE(
      RowsByAbsentFlag(60, Source::ALL_ROWS).Equals(Key(rows, absent, wxT("2") + D + wxT("60"))));
  EXPECT_TRUE(RowsByAbsentFlag(60, Source::CALLER_GIVEN_ROWS)
                  .Equals(Key(rows, absent, wxT("2") + D + wxT("60"))));
  EXPECT_TRUE(RowsByFlagAndAbsentFlag(64, 28).Equals(Key(rows, both, wxT("64") + D + wxT("28"))));
  const wxString predicate = D + wxT("WHEREPREDICATERETURNSTRUE");
  EXPECT_TRUE(
      RowsByPredicate(wxT("who"), Source::ALL_ROWS, 2, 5)
          .Equals(Key(rows, predicate, wxT("1") + D + wxT("who") + D + wxT("2") + D + wxT("5"))));
  EXPECT_TRUE(
      RowsByPredicate(wxT(""), Source::ONLY_FULLY_SHOWN_ROWS, 0, 4294967295u)
          .Equals(Key(rows, predicate, wxT("0") + D + D + wxT("0") + D + wxT("4294967295"))));
  EXPECT_TRUE(ColumnNamesByFlag(1).Equals(Key(columns, matches, wxT("1"))));
  EXPECT_TRUE(ColumnNamesByAbsentFlag(60).Equals(Key(columns, absent, wxT("60"))));
  EXPECT_TRUE(
      ColumnNamesByFlagAndAbsentFlag(2, 32).Equals(Key(columns, both, wxT("2") + D + wxT("32"))));
  EXPECT_TRUE(
      DistinctValues(wxT("Key"), Source::ACTIVE_SHOWN_AND_ACTIVE_SEMIHIDDEN, true)
          .Equals(Key(wxT("Key"), wxT("SELECTDISTINCTPERCOLUMN"), wxT("4") + D + wxT("1"))));
  EXPECT_TRUE(OneColumnWhere(wxT("X"), wxT("Y"), wxT("z"), false)
                  .Equals(Key(wxT("X"), wxT("Y"), wxT("z") + D + wxT("0"))));
  EXPECT_TRUE(SeveralColumnsWhere({wxT("b"), wxT("a")}, wxT("Y"), wxT("z"), true)
                  .Equals(Key(wxT("a") + D + wxT("b") + D, wxT("Y"), wxT("z") + D + wxT("1"))));
  EXPECT_TRUE(SeveralColumnsWhere({}, wxT("Y"), wxString(wxT('*'), 20), false)
                  .Equals(Key(wxT(""), wxT(""), wxString(wxT('*'), 20) + D + wxT("0"))));
}

TEST(Broker, KeepsTheFirstResultUnderAKey) {
  MUQueryCachingBroker broker;
  const Key key(wxT("a"), wxT("b"), wxT("c"));
  EXPECT_EQ(broker.GetSharedPointerToMultiSelect(key), nullptr);
  auto* first = new MUQueryCachingBroker::MultiSelect{new std::map<wxString, wxString>};
  MUQueryCachingBroker::MultiSelect second;
  broker.HoldThisDataMultiSelect(key, first);
  broker.HoldThisDataMultiSelect(key, &second);
  EXPECT_EQ(broker.GetSharedPointerToMultiSelect(key), first);
  EXPECT_EQ(broker.GetSharedPointerToMultiSelect(Key(wxT("a"), wxT("b"), wxT("d"))), nullptr);
  broker.EmptyAllCachedData();
  EXPECT_EQ(broker.GetSharedPointerToMultiSelect(key), nullptr);
}

TEST(FlagTests, AskForAllForNoneAndForBoth) {
  EXPECT_TRUE(HasAllFlags(7, 5));
  EXPECT_FALSE(HasAllFlags(4, 5));
  EXPECT_TRUE(HasAllFlags(0, 0));
  EXPECT_TRUE(HasNoFlag(2, 5));
  EXPECT_FALSE(HasNoFlag(3, 5));
  EXPECT_TRUE(HasAllFlagsAndNone(5, 1, 2));
  EXPECT_FALSE(HasAllFlagsAndNone(7, 1, 2));
  EXPECT_FALSE(HasAllFlagsAndNone(4, 1, 2));
}

TEST(TrimmedText, LeavesWhatTheLibrarysTrimmingLeaves) {
  for (wchar_t character = 0; character < 0x3100; ++character) {
    const wxString blank(character);
    for (const wxString& text :
         {blank, blank + wxT("a"), wxT("a") + blank, blank + wxT("a b") + blank + blank}) {
      wxString expected(text);
      expected.Trim(true).Trim(false);
      EXPECT_EQ(TrimmedText(MUColumnReader::ViewOf(text)).ToString(), expected)
          << static_cast<int>(character);
    }
  }
  const std::string narrow = " \ta b  ";
  EXPECT_EQ(TrimmedText(MUCellText(narrow.data(), narrow.size())).ToString(), wxT("a b"));
  EXPECT_TRUE(TrimmedText(MUCellText(narrow.data(), 2)).IsEmpty());
  EXPECT_TRUE(TrimmedText(MUCellText()).IsEmpty());
}

MUColumnNamePlusProperties ColumnOf(std::initializer_list<FileStatusStruct> files) {
  MUColumnNamePlusProperties column;
  column.m_fileStatuses.assign(files);
  return column;
}

DichotomousFileRequest Request(const wxString& name, bool wanted) {
  DichotomousFileRequest request;
  request.m_fullFileName = name;
  request.m_wanted = wanted;
  return request;
}

TEST(FileFlags, AColumnIsSuppressedWhenAllItsFilesAre) {
  MUColumnNamePlusProperties column = ColumnOf({{wxT("/a"), 0}, {wxT("/b"), 0}});
  column.m_columnPropertyFlags = 33;
  SuppressColumnForFiles(column, {wxT("/a")});
  EXPECT_EQ(column.m_columnPropertyFlags, 33u);
  SuppressColumnForFiles(column, {wxT("/x"), wxT("/b")});
  EXPECT_EQ(column.m_columnPropertyFlags, 41u);
  UnsuppressColumnsForFiles({&column}, {wxT("/x")});
  EXPECT_EQ(column.m_columnPropertyFlags, 41u);
  UnsuppressColumnsForFiles({&column}, {wxT("/b")});
  EXPECT_EQ(column.m_columnPropertyFlags, 33u);
  EXPECT_EQ(column.m_fileStatuses.front().m_suppressed, 1);
  EXPECT_EQ(column.m_fileStatuses.back().m_suppressed, 0);
}

TEST(FileFlags, AColumnWithoutAFileIsSuppressedAndStaysSo) {
  MUColumnNamePlusProperties column;
  UnsuppressColumnsForFiles({&column}, {wxT("/a")});
  EXPECT_EQ(column.m_columnPropertyFlags, 0u);
  SuppressColumnForFiles(column, {});
  EXPECT_EQ(column.m_columnPropertyFlags, 8u);
  UnsuppressColumnsForFiles({&column}, {wxT("/a")});
  EXPECT_EQ(column.m_columnPropertyFlags, 8u);
  HideOrShowBasedOnMultipleFileRequests(column, LastDecisions({Request(wxT("/a"), true)}));
  EXPECT_EQ(column.m_columnPropertyFlags, 8u);
}

TEST(FileFlags, FilesWithASuppressedShareAreNamedOnce) {
  MUColumnNamePlusProperties first = ColumnOf({{wxT("/a"), 0}, {wxT("/b"), 1}, {wxT("/c"), 1}});
  MUColumnNamePlusProperties second = ColumnOf({{wxT("/b"), 1}, {wxT("/b"), 0}});
  EXPECT_EQ(FilesWithASuppressedShare({&first, &second}), MUFileNames({wxT("/b"), wxT("/c")}));
  EXPECT_EQ(FilesWithASuppressedShare({}), MUFileNames());
}

TEST(FileFlags, TheLastOfTwoRequestsDecidesForAColumn) {
  MUColumnNamePlusProperties column = ColumnOf({{wxT("/a"), 0}});
  HideOrShowBasedOnMultipleFileRequests(
      column, LastDecisions({Request(wxT("/a"), true), Request(wxT("/a"), false)}));
  EXPECT_EQ(column.m_columnPropertyFlags, 8u);
  HideOrShowBasedOnMultipleFileRequests(
      column, LastDecisions({Request(wxT("/a"), false), Request(wxT("/a"), true)}));
  EXPECT_EQ(column.m_columnPropertyFlags, 0u);
}

TEST(FileFlags, ABatchThatDoesNotNameTheFilesSettlesTheFlagAllTheSame) {
  MUColumnNamePlusProperties column = ColumnOf({{wxT("/a"), 0}});
  column.m_columnPropertyFlags = 8;
  HideOrShowBasedOnMultipleFileRequests(column, LastDecisions({}));
  EXPECT_EQ(column.m_columnPropertyFlags, 0u);
}

TEST(FileFlags, TheFirstOfTwoRequestsDecidesForARow) {
  const std::deque<DichotomousFileRequest> offThenOn = {Request(wxT("/a"), false),
                                                        Request(wxT("/a"), true)};
  const std::deque<DichotomousFileRequest> onThenOff = {Request(wxT("/a"), true),
                                                        Request(wxT("/a"), false)};
  EXPECT_EQ(
      ApplyEnMasseShowOrHideUsingDichotomousFileRequest(96, FirstRequestFor(wxT("/a"), offThenOn)),
      104u);
  EXPECT_EQ(
      ApplyEnMasseShowOrHideUsingDichotomousFileRequest(104, FirstRequestFor(wxT("/a"), onThenOff)),
      96u);
  EXPECT_EQ(
      ApplyEnMasseShowOrHideUsingDichotomousFileRequest(104, FirstRequestFor(wxT("/b"), onThenOff)),
      104u);
}

}  // namespace
