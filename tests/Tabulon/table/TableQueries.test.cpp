// Searches and selections: their answers, and what of them is cached until when.
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <stdexcept>
#include <utility>

#include "Tabulon/src/queries/MUInterfaceRowTruthDecider.h"
#include "Tabulon/src/queries/MUQueryKeys.h"
#include "Tabulon/src/reading/MUInterfaceExperimentDataFileInputReader.h"
#include "Tabulon/src/rows/MUColumnNamePlusProperties.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "tests/Tabulon/table/TableTestSupport.h"

namespace {

using Tests::ProbeTable;
using Tests::TemporaryFolder;
using Tests::Utf8;
using Texts = std::vector<std::string>;
using Indices = std::list<unsigned long>;
using Row = MUSingleRowDataPlusRowProperties;
using Set = ProbeTable::TARGETED_ROW_SEARCH_SET;

constexpr Set SHOWN = ProbeTable::ONLY_FULLY_SHOWN_ROWS;
constexpr Set ALL = ProbeTable::ALL_ROWS;
constexpr Set ACTIVE = ProbeTable::ACTIVE_SHOWN_AND_ACTIVE_SEMIHIDDEN;

class Decider : public MUInterfaceRowTruthDecider {
 public:
  explicit Decider(const wxString& wanted, bool cached = true)
      : identity(wxT("A is ") + wanted), m_wanted(wanted), m_cached(cached) {}

  int DecideRow(Row* row) override {
    ++decisions;
    return row->m_cells.ValueOrDefault(wxT("A")) == m_wanted ? answerForMatch : 0;
  }
  bool ResultMayBeCached() override { return m_cached; }
  wxString GetIdentityString() override { return identity; }

  wxString identity;
  int answerForMatch = 1;
  int decisions = 0;

 private:
  wxString m_wanted;
  bool m_cached;
};

// Rows 0 to 5; row 2 is semi-hidden, row 4 suppressed (its file is), row 1 red-flagged.
class TableQueries : public testing::Test {
 protected:
  void SetUp() override {
    const wxString a =
        m_folder.WriteData("a.txt", {"A", "B", "T\n(Trial Variable)"},
                           {{"x", "1", " p"}, {"y", "2", "p "}, {"x", "3", "q"}, {"x", "4", "p"}});
    const wxString b = m_folder.WriteData("b.txt", {"A", "B"}, {{"x", "5"}});
    const wxString c = m_folder.WriteData("c.txt", {"A", "B"}, {{"z", "1"}});
    ASSERT_TRUE(m_table.Load(a));
    ASSERT_TRUE(m_table.Load(b));
    ASSERT_TRUE(m_table.Load(c));
    m_table.HideOneSingleRowPerArbitraryUserRequest(2);
    m_table.SetRowFlag(1, true);
    m_table.SimultaneousFileRequestsSuppressAndUnsuppress({DichotomousFileRequest{b, false}});
    m_table.OnIdle();
    ASSERT_EQ(*m_table.m_currentShownRowKeys, ProbeTable::RowKeys({0, 1, 3, 5}));
    ASSERT_EQ(m_table.m_activeRowKeys, ProbeTable::RowKeys({0, 1, 2, 3, 5}));
  }

  Texts Distinct(const wxString& column, Set set, bool trim) {
    std::vector<wxString> values = {wxT("must go")};
    m_table.SelectDistinctPerColumn(column, values, set, trim);
    return Utf8(values);
  }
  Texts Where(const wxString& x, const wxString& y, const wxString& z, bool all) {
    return Utf8(m_table.GetAllFromCol_X_WhereField_Y_Matches_Z(x, y, z, all));
  }
  // Gives the row a text that a query sees if it looks again.
  void Change(unsigned long key, const wxString& column, const wxString& text) {
    m_table.m_rows.find(key)->m_cells[column] = text;
  }

  TemporaryFolder m_folder;
  ProbeTable m_table;
};

// ---- By flags

TEST_F(TableQueries, RowsByFlagAreIndicesInTheirSet) {
  EXPECT_EQ(m_table.FindCurrentRowIndicesByPropertyFlag(32, ACTIVE), Indices({2}));
  EXPECT_EQ(m_table.FindCurrentRowIndicesByPropertyFlag(32, ALL), Indices({2}));
  EXPECT_EQ(m_table.FindCurrentRowIndicesByPropertyFlag(32, SHOWN), Indices());
  EXPECT_EQ(m_table.FindCurrentRowIndicesByPropertyFlag(8, ALL), Indices({4}));
  EXPECT_EQ(m_table.FindCurrentRowIndicesByPropertyFlag(8, ACTIVE), Indices());
  EXPECT_EQ(m_table.FindCurrentRowIndicesByPropertyFlag(64, SHOWN), Indices({1}));
  EXPECT_EQ(m_table.FindCurrentRowIndicesByPropertyFlag(0, SHOWN), Indices({0, 1, 2, 3}));
  EXPECT_EQ(m_table.FindCurrentRowIndicesByPropertyFlag(96, ALL), Indices());
}

TEST_F(TableQueries, RowsByAbsentFlagAreIndicesInTheirSet) {
  EXPECT_EQ(m_table.FindCurrentRowIndicesWherePropertyFlagIsAbsent(64, SHOWN), Indices({0, 2, 3}));
  EXPECT_EQ(m_table.FindCurrentRowIndicesWherePropertyFlagIsAbsent(32, ACTIVE),
            Indices({0, 1, 3, 4}));
  EXPECT_EQ(m_table.FindCurrentRowIndicesWherePropertyFlagIsAbsent(60, ALL), Indices({0, 1, 3, 5}));
  EXPECT_EQ(m_table.FindCurrentRowIndicesWherePropertyFlagIsAbsent(0, ALL),
            Indices({0, 1, 2, 3, 4, 5}));
}

TEST_F(TableQueries, AnyOtherSetMeansAllRowsInKeyOrder) {
  m_table.SetSortColumn(wxT("B"), true);
  // Shown rows 3, 1, 0, 5 and then 2, 4; the walk is in key order.
  EXPECT_EQ(m_table.FindCurrentRowIndicesByPropertyFlag(0, ALL), Indices({2, 1, 4, 0, 5, 3}));
  EXPECT_EQ(m_table.FindCurrentRowIndicesByPropertyFlag(0, ProbeTable::CALLER_GIVEN_ROWS),
            Indices({2, 1, 4, 0, 5, 3}));
}

TEST_F(TableQueries, RowsByBothFlagsAreIndicesAmongAllRows) {
  EXPECT_EQ(m_table.FindCurrentRowIndicesHavingFlagsX_andAbsentFlagsY(0, 60),
            Indices({0, 1, 3, 5}));
  EXPECT_EQ(m_table.FindCurrentRowIndicesHavingFlagsX_andAbsentFlagsY(64, 32), Indices({1}));
  EXPECT_EQ(m_table.FindCurrentRowIndicesHavingFlagsX_andAbsentFlagsY(64, 64), Indices());
}

TEST_F(TableQueries, ADeletedRowIsSkippedAndCountsItsPlace) {
  m_table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("A"), wxT("y"));
  EXPECT_EQ(m_table.FindCurrentRowIndicesHavingFlagsX_andAbsentFlagsY(0, 60), Indices({0, 3, 5}));
  EXPECT_EQ(m_table.FindCurrentRowIndicesByPropertyFlag(0, SHOWN), Indices({0, 2, 3}));
  EXPECT_EQ(Distinct(wxT("A"), SHOWN, false), Texts({"x", "z"}));
  EXPECT_EQ(Where(wxT("B"), wxT("A"), wxT("x"), true), Texts({"1", "3", "4", "5"}));
  Decider decider(wxT("x"));
  EXPECT_EQ(*m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, true),
            Indices({0, 2, 3, 4}));
  EXPECT_EQ(m_table
                .GetAllFromMultiCols_X_WhereField_Y_Matches_Z(
                    {wxT("A")}, wxT(""), ProbeTable::SPECIAL_CODE_TO_REQUEST_MATCH_ALL_ROWS, true)
                ->size(),
            5u);
}

TEST_F(TableQueries, ColumnNamesByFlags) {
  const std::string trial = "T\n(Trial Variable)";
  EXPECT_EQ(Utf8(m_table.FindColumnNamesByPropertyFlag(1)), Texts({trial}));
  EXPECT_EQ(Utf8(m_table.FindColumnNamesByPropertyFlag(0)), Texts({"A", "B", trial}));
  EXPECT_EQ(Utf8(m_table.FindColumnNamesWherePropertyFlagIsAbsent(1)), Texts({"A", "B"}));
  EXPECT_EQ(Utf8(m_table.FindColumnNamesHavingFlagsX_andAbsentFlagsY(0, 1)), Texts({"A", "B"}));
  EXPECT_EQ(Utf8(m_table.FindColumnNamesHavingFlagsX_andAbsentFlagsY(1, 32)), Texts({trial}));
  EXPECT_EQ(Utf8(m_table.FindColumnNamesHavingFlagsX_andAbsentFlagsY(1, 1)), Texts());
}

TEST_F(TableQueries, ColumnInformationIsNeverCached) {
  m_table.HideOneSingleColumnPerArbitraryUserRequest(wxT("B"));
  auto columns = m_table.FindColumnInformationWherePropertyFlagIsAbsent(1);
  ASSERT_EQ(columns.size(), 2u);
  EXPECT_EQ(columns.front().m_columnName, wxT("A"));
  EXPECT_FALSE(columns.front().m_hidden);
  EXPECT_EQ(columns.back().m_columnName, wxT("B"));
  EXPECT_TRUE(columns.back().m_hidden);
  m_table.UnhideOneSingleColumnPerArbitraryUserRequest(wxT("B"));
  EXPECT_FALSE(m_table.FindColumnInformationWherePropertyFlagIsAbsent(1).back().m_hidden);
  m_table.m_columns[0]->m_columnPropertyFlags |= 16;
  EXPECT_TRUE(m_table.FindColumnInformationWherePropertyFlagIsAbsent(0).front().m_hidden);
}

// ---- By predicate

TEST_F(TableQueries, APredicateFindsPlaces) {
  Decider decider(wxT("x"));
  EXPECT_EQ(*m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, false),
            Indices({0, 2}));
  EXPECT_EQ(decider.decisions, 4);
  EXPECT_EQ(*m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, true),
            Indices({0, 2, 3, 4}));
  EXPECT_EQ(decider.decisions, 10);
}

TEST_F(TableQueries, OnlyOneIsAMatch) {
  for (const int answer : {-1, 0, 2, 1 << 30}) {
    Decider decider(wxT("x"), false);
    decider.answerForMatch = answer;
    EXPECT_TRUE(m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, true)->empty());
  }
}

TEST_F(TableQueries, AnEmptyTableNeverAsks) {
  ProbeTable empty;
  Decider decider(wxT("x"));
  EXPECT_TRUE(empty.FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, true)->empty());
  EXPECT_TRUE(
      empty.FindCurrentRowIndicesMatchingRowTruthPredicateWithinRange(&decider, true, -1, -1)
          ->empty());
  EXPECT_TRUE(
      empty.FindCurrentRowIndicesMatchingRowTruthPredicateWithinGivenIndices(&decider, {0}, true)
          ->empty());
  EXPECT_EQ(decider.decisions, 0);
  EXPECT_TRUE(empty.m_cacheRowIndexHolders.empty());
  EXPECT_TRUE(empty.m_nonCachedHolders.empty());
}

TEST_F(TableQueries, EqualIdentitiesShareAResult) {
  Decider first(wxT("x"));
  Decider second(wxT("y"));
  second.identity = first.identity;
  const Indices* found = m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(&first, false);
  EXPECT_EQ(m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(&second, false), found);
  EXPECT_EQ(second.decisions, 0);
  Decider third(wxT("y"));
  EXPECT_EQ(*m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(&third, false), Indices({1}));
}

TEST_F(TableQueries, AnUncachedDeciderRunsEveryTimeAndItsResultsStay) {
  Decider decider(wxT("x"), false);
  const Indices* first = m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, false);
  const Indices* second = m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, false);
  EXPECT_NE(first, second);
  EXPECT_EQ(decider.decisions, 8);
  EXPECT_EQ(*first, Indices({0, 2}));
  EXPECT_EQ(m_table.m_nonCachedHolders.size(), 2u);
  EXPECT_TRUE(m_table.m_cacheRowIndexHolders.empty());
  m_table.Notify();
  // The holders stay, empty, until the end.
  EXPECT_EQ(m_table.m_nonCachedHolders.size(), 2u);
  EXPECT_EQ(*m_table.m_nonCachedHolders.front(), nullptr);
}

TEST_F(TableQueries, TheRangeIsInclusiveAndItsNegativeEndsMeanTheOuterRows) {
  const auto within = [this](int first, int last, bool all = true) {
    Decider decider(wxT("x"));
    return *m_table.FindCurrentRowIndicesMatchingRowTruthPredicateWithinRange(&decider, all, first,
                                                                              last);
  };
  EXPECT_EQ(within(0, 2), Indices({0, 2}));
  EXPECT_EQ(within(-7, 2), Indices({0, 2}));
  EXPECT_EQ(within(3, -1), Indices({3, 4}));
  EXPECT_EQ(within(-1, -1), Indices({0, 2, 3, 4}));
  EXPECT_EQ(within(2, 2), Indices({2}));
  EXPECT_EQ(within(5, 5), Indices());
  EXPECT_EQ(within(0, 6), Indices());
  EXPECT_EQ(within(6, 0), Indices());
  EXPECT_EQ(within(0, 5), Indices({0, 2, 3, 4}));
  EXPECT_EQ(within(1, 3, false), Indices({2}));
  EXPECT_EQ(within(1, 4, false), Indices());
}

TEST_F(TableQueries, ASwappedRangeIsTheSameQuestion) {
  Decider decider(wxT("x"));
  const auto* found =
      m_table.FindCurrentRowIndicesMatchingRowTruthPredicateWithinRange(&decider, true, 4, 1);
  EXPECT_EQ(*found, Indices({2, 3, 4}));
  EXPECT_EQ(m_table.FindCurrentRowIndicesMatchingRowTruthPredicateWithinRange(&decider, true, 1, 4),
            found);
  EXPECT_EQ(m_table.m_cacheRowIndexHolders.size(), 1u);
  EXPECT_EQ(decider.decisions, 4);
}

TEST_F(TableQueries, TheWholeRangeIsTheSameQuestionAsNoRange) {
  Decider decider(wxT("x"));
  const auto* found = m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, true);
  EXPECT_EQ(
      m_table.FindCurrentRowIndicesMatchingRowTruthPredicateWithinRange(&decider, true, -1, -1),
      found);
}

TEST_F(TableQueries, GivenIndicesAreTranslatedBack) {
  Decider decider(wxT("x"));
  const auto within = [&](const Indices& indices, bool all) {
    return *m_table.FindCurrentRowIndicesMatchingRowTruthPredicateWithinGivenIndices(&decider,
                                                                                     indices, all);
  };
  EXPECT_EQ(within({4, 1, 0, 0}, true), Indices({4, 0, 0}));
  EXPECT_EQ(within({3, 2}, false), Indices({2}));
  EXPECT_EQ(within({6, 99}, true), Indices());
  EXPECT_EQ(within({}, true), Indices());
  EXPECT_TRUE(m_table.m_cacheRowIndexHolders.empty());
}

TEST_F(TableQueries, AGivenIndexOutOfRangeShiftsWhatFollows) {
  Decider decider(wxT("x"));
  // Kept are 0, 1, 3, of which places 0 and 2 match: elements 0 and 2 of what was given.
  EXPECT_EQ(*m_table.FindCurrentRowIndicesMatchingRowTruthPredicateWithinGivenIndices(
                &decider, {0, 99, 1, 3}, true),
            Indices({0, 1}));
}

TEST_F(TableQueries, ASearchWithinGivenIndicesIsNeverCached) {
  Decider decider(wxT("x"));
  m_table.FindCurrentRowIndicesMatchingRowTruthPredicateWithinGivenIndices(&decider, {0, 1}, true);
  m_table.FindCurrentRowIndicesMatchingRowTruthPredicateWithinGivenIndices(&decider, {0, 1}, true);
  EXPECT_EQ(decider.decisions, 4);
  // The list of places and the translated one, each time.
  EXPECT_EQ(m_table.m_nonCachedHolders.size(), 4u);
}

// Searches by its own key while it decides.
class SelfSearchingDecider : public Decider {
 public:
  explicit SelfSearchingDecider(ProbeTable& table) : Decider(wxT("x")), m_table(table) {}
  int DecideRow(Row* row) override {
    if (depth++ == 0) inner = m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(this, true);
    return Decider::DecideRow(row);
  }

  int depth = 0;
  const Indices* inner = nullptr;

 private:
  ProbeTable& m_table;
};

TEST_F(TableQueries, ASearchInsideASearchLeavesBothResults) {
  SelfSearchingDecider decider(m_table);
  const Indices* outer = m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, true);
  EXPECT_EQ(*outer, Indices({0, 2, 3, 4}));
  EXPECT_EQ(*decider.inner, Indices({0, 2, 3, 4}));
}

// ---- Selections

TEST_F(TableQueries, DistinctValuesStandInOrderOfFirstAppearance) {
  EXPECT_EQ(Distinct(wxT("A"), ALL, false), Texts({"x", "y", "z"}));
  EXPECT_EQ(Distinct(wxT("B"), SHOWN, false), Texts({"1", "2", "4"}));
  EXPECT_EQ(Distinct(wxT("B"), ACTIVE, false), Texts({"1", "2", "3", "4"}));
  EXPECT_EQ(Distinct(wxT("T\n(Trial Variable)"), ALL, false), Texts({" p", "p ", "q", "p", ""}));
  EXPECT_EQ(Distinct(wxT("T\n(Trial Variable)"), ALL, true), Texts({"p", "q", ""}));
  EXPECT_EQ(Distinct(wxT("nobody"), SHOWN, true), Texts({""}));
  EXPECT_EQ(Distinct(wxT("A"), ProbeTable::CALLER_GIVEN_ROWS, false), Texts());
}

TEST_F(TableQueries, DistinctFollowsTheSort) {
  m_table.SetSortColumn(wxT("B"), true);
  EXPECT_EQ(Distinct(wxT("B"), SHOWN, false), Texts({"4", "2", "1"}));
}

TEST_F(TableQueries, OneColumnWhere) {
  EXPECT_EQ(Where(wxT("B"), wxT("A"), wxT("x"), false), Texts({"1", "4"}));
  EXPECT_EQ(Where(wxT("B"), wxT("A"), wxT("x"), true), Texts({"1", "3", "4", "5"}));
  EXPECT_EQ(Where(wxT("A"), wxT("A"), wxT("x"), true), Texts(4, "x"));
  EXPECT_EQ(Where(wxT("A"), wxT("nobody"), wxT(""), false), Texts({"x", "y", "x", "z"}));
  EXPECT_EQ(Where(wxT("nobody"), wxT("A"), wxT("z"), false), Texts({""}));
}

TEST_F(TableQueries, AValueThatNobodyHasIsCachedToo) {
  EXPECT_EQ(Where(wxT("B"), wxT("A"), wxT("new"), false), Texts());
  EXPECT_EQ(m_table.m_cacheStringSelects.size(), 1u);
  Change(0, wxT("A"), wxT("new"));
  EXPECT_EQ(Where(wxT("B"), wxT("A"), wxT("new"), false), Texts());
  m_table.Notify();
  EXPECT_EQ(Where(wxT("B"), wxT("A"), wxT("new"), false), Texts({"1"}));
}

TEST_F(TableQueries, SeveralColumnsWhere) {
  const auto* rows = m_table.GetAllFromMultiCols_X_WhereField_Y_Matches_Z(
      {wxT("B"), wxT("A"), wxT("nobody")}, wxT("A"), wxT("x"), false);
  ASSERT_EQ(rows->size(), 2u);
  using Cells = std::map<wxString, wxString>;
  EXPECT_EQ(*(*rows)[0],
            Cells({{wxT("A"), wxT("x")}, {wxT("B"), wxT("1")}, {wxT("nobody"), wxT("")}}));
  EXPECT_EQ(*(*rows)[1],
            Cells({{wxT("A"), wxT("x")}, {wxT("B"), wxT("4")}, {wxT("nobody"), wxT("")}}));
  EXPECT_EQ(m_table.GetAllFromMultiCols_X_WhereField_Y_Matches_Z(
                {wxT("nobody"), wxT("A"), wxT("B")}, wxT("A"), wxT("x"), false),
            rows);
  EXPECT_NE(m_table.GetAllFromMultiCols_X_WhereField_Y_Matches_Z({wxT("A"), wxT("B")}, wxT("A"),
                                                                 wxT("x"), false),
            rows);
  EXPECT_NE(m_table.GetAllFromMultiCols_X_WhereField_Y_Matches_Z(
                {wxT("B"), wxT("A"), wxT("nobody")}, wxT("A"), wxT("x"), true),
            rows);
}

TEST_F(TableQueries, MatchAllGivesOneMapPerRowInTableOrder) {
  const wxString all = ProbeTable::SPECIAL_CODE_TO_REQUEST_MATCH_ALL_ROWS;
  m_table.SetSortColumn(wxT("B"), true);
  const auto* rows =
      m_table.GetAllFromMultiCols_X_WhereField_Y_Matches_Z({wxT("B")}, wxT("A"), all, false);
  Texts texts;
  for (const auto* row : *rows) texts.push_back(Utf8(row->at(wxT("B"))));
  EXPECT_EQ(texts, Texts({"4", "2", "1", "1"}));
  // Whatever the field, it is the same question.
  EXPECT_EQ(
      m_table.GetAllFromMultiCols_X_WhereField_Y_Matches_Z({wxT("B")}, wxT("nobody"), all, false),
      rows);
  EXPECT_EQ(
      m_table.GetAllFromMultiCols_X_WhereField_Y_Matches_Z({wxT("B")}, wxT("A"), all, true)->size(),
      6u);
}

TEST_F(TableQueries, TheMatchAllCodeIsAnOrdinaryValueForOneColumn) {
  EXPECT_EQ(Where(wxT("B"), wxT("A"), ProbeTable::SPECIAL_CODE_TO_REQUEST_MATCH_ALL_ROWS, true),
            Texts());
}

TEST_F(TableQueries, QueriesWhoseKeysMeetShareAnEntry) {
  const wxString value = wxT("1");
  EXPECT_EQ(Distinct(wxT("A"), SHOWN, true), Texts({"x", "y", "z"}));
  EXPECT_EQ(Where(wxT("A"), wxT("SELECTDISTINCTPERCOLUMN"), value, true), Texts({"x", "y", "z"}));
  EXPECT_EQ(m_table.m_cacheStringSelects.size(), 1u);
}

TEST_F(TableQueries, CopiesAreTheCallers) {
  std::vector<wxString> values;
  m_table.SelectDistinctPerColumn(wxT("A"), values, ALL, false);
  values.clear();
  m_table.FindCurrentRowIndicesByPropertyFlag(0, ALL).clear();
  EXPECT_EQ(Distinct(wxT("A"), ALL, false).size(), 3u);
  EXPECT_EQ(m_table.FindCurrentRowIndicesByPropertyFlag(0, ALL).size(), 6u);
}

// ---- What drops what. Each cache is asked once; then every row and column is changed behind the table's
// back, so that a second answer tells whether the table looked again.

class CacheEvents : public TableQueries {
 protected:
  void SetUp() override {
    TableQueries::SetUp();
    Ask();
    m_before = m_answers;
    for (const auto& entry : m_table.m_rows) {
      entry.second->m_rowPropertyFlags |= 256;
      entry.second->m_cells[wxT("A")] = wxT("changed");
    }
    for (auto* column : m_table.m_columns) column->m_columnPropertyFlags |= 256;
  }

  void Ask() {
    m_answers.clear();
    m_answers["distinct"] = Distinct(wxT("A"), SHOWN, false).front();
    m_answers["where"] = std::to_string(Where(wxT("B"), wxT("A"), wxT("changed"), true).size());
    m_answers["several"] = std::to_string(m_table
                                              .GetAllFromMultiCols_X_WhereField_Y_Matches_Z(
                                                  {wxT("B")}, wxT("A"), wxT("changed"), true)
                                              ->size());
    m_answers["columns by flag"] =
        std::to_string(m_table.FindColumnNamesByPropertyFlag(256).size());
    m_answers["columns by absent"] =
        std::to_string(m_table.FindColumnNamesWherePropertyFlagIsAbsent(256).size());
    m_answers["columns by both"] =
        std::to_string(m_table.FindColumnNamesHavingFlagsX_andAbsentFlagsY(256, 4).size());
    m_answers["rows by flag"] =
        std::to_string(m_table.FindCurrentRowIndicesByPropertyFlag(256, ALL).size());
    m_answers["rows by absent"] =
        std::to_string(m_table.FindCurrentRowIndicesWherePropertyFlagIsAbsent(256, ALL).size());
    m_answers["rows by both"] =
        std::to_string(m_table.FindCurrentRowIndicesHavingFlagsX_andAbsentFlagsY(256, 4).size());
    m_answers["red by flag"] =
        std::to_string(m_table.FindCurrentRowIndicesByPropertyFlag(320, ALL).size());
    m_answers["red by absent"] =
        std::to_string(m_table.FindCurrentRowIndicesWherePropertyFlagIsAbsent(320, ALL).size());
    m_answers["red in x"] =
        std::to_string(m_table.FindCurrentRowIndicesHavingFlagsX_andAbsentFlagsY(320, 4).size());
    m_answers["red in y"] =
        std::to_string(m_table.FindCurrentRowIndicesHavingFlagsX_andAbsentFlagsY(256, 64).size());
    Decider cached(wxT("changed"));
    m_answers["predicate"] = std::to_string(
        m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(&cached, true)->size());
  }

  // The caches that answer anew after the event.
  Texts Dropped() {
    Ask();
    Texts dropped;
    for (const auto& [name, answer] : m_answers) {
      if (answer != m_before[name]) dropped.push_back(name);
    }
    return dropped;
  }

  std::map<std::string, std::string> m_answers;
  std::map<std::string, std::string> m_before;
  const Texts everything = {
      "columns by absent", "columns by both", "columns by flag", "distinct", "predicate",
      "red by absent",     "red by flag",     "red in x",        "red in y", "rows by absent",
      "rows by both",      "rows by flag",    "several",         "where"};
  const Texts byRowOrder = {"predicate", "red by absent",  "red by flag",  "red in x",
                            "red in y",  "rows by absent", "rows by both", "rows by flag"};
  const Texts byRedFlag = {"red by absent", "red by flag", "red in x", "red in y"};
};

TEST_F(CacheEvents, NothingIsDroppedWithoutAnEvent) { EXPECT_EQ(Dropped(), Texts()); }

TEST_F(CacheEvents, ANotificationDropsEverything) {
  m_table.Notify();
  EXPECT_EQ(Dropped(), everything);
}

TEST_F(CacheEvents, TheFirstIdleCallAfterAChangeDropsEverything) {
  m_table.NotifyMyObservers();
  EXPECT_EQ(Dropped(), Texts());
  m_table.OnIdle();
  EXPECT_EQ(Dropped(), everything);
}

TEST_F(CacheEvents, AnIdleCallWithoutAChangeDropsNothing) {
  m_table.OnIdle();
  EXPECT_EQ(Dropped(), Texts());
}

TEST_F(CacheEvents, ARedFlagDropsWhatMentionsIt) {
  m_table.SetRowFlag(99, true);
  EXPECT_EQ(Dropped(), byRedFlag);
  EXPECT_EQ(m_table.m_redFlagDependentKeys.size(), 4u);
}

TEST_F(CacheEvents, ToggledAndClearedRedFlagsDoSoToo) {
  m_table.ToggleRowFlag(0);
  EXPECT_EQ(Dropped(), byRedFlag);
}

TEST_F(CacheEvents, WhatDependsOnTheRedFlagIsNotedOnce) {
  m_table.ClearRowRedFlagCacheMemory();
  Ask();
  Ask();
  EXPECT_EQ(m_table.m_redFlagDependentKeys.size(), 4u);
  m_table.ClearRowRedFlagCacheMemory();
  EXPECT_TRUE(m_table.m_redFlagDependentKeys.empty());
}

TEST_F(CacheEvents, AChangeOfSortDropsWhatDependsOnRowOrder) {
  m_table.SetSortColumn(wxT("B"), false);
  EXPECT_EQ(Dropped(), byRowOrder);
}

TEST_F(CacheEvents, ASortThatChangesNothingDropsNothing) {
  m_table.SetSortColumn(wxT(""), false);
  EXPECT_EQ(Dropped(), Texts());
  m_table.RevertAnyAndAllSortOptions();
  EXPECT_EQ(Dropped(), Texts());
}

TEST_F(CacheEvents, RevertingASortDropsWhatDependsOnRowOrder) {
  m_table.SetSortColumn(wxT("B"), false);
  Ask();
  m_before = m_answers;
  for (const auto& entry : m_table.m_rows) {
    entry.second->m_rowPropertyFlags &= ~256u;
    entry.second->m_cells[wxT("A")] = wxT("again");
  }
  for (auto* column : m_table.m_columns) column->m_columnPropertyFlags &= ~256u;
  EXPECT_EQ(Dropped(), Texts());
  m_table.RevertAnyAndAllSortOptions();
  EXPECT_EQ(Dropped(), byRowOrder);
}

TEST_F(CacheEvents, OtherChangesDropNothing) {
  const std::vector<std::pair<std::string, std::function<void()>>> changes = {
      {"hide a row", [this] { m_table.HideOneSingleRowPerArbitraryUserRequest(0); }},
      {"unhide rows",
       [this] { m_table.RemoveUserDesignatedRowHiddennessBasedOnCurrentlyActiveFiles(); }},
      {"hide a column", [this] { m_table.HideOneSingleColumnPerArbitraryUserRequest(wxT("B")); }},
      {"unhide a column",
       [this] { m_table.UnhideOneSingleColumnPerArbitraryUserRequest(wxT("B")); }},
      {"move a column", [this] { m_table.MoveColumnPosition(wxT("B"), wxT("A"), false); }},
      {"suppress a file",
       [this] {
         m_table.SimultaneousFileRequestsSuppressAndUnsuppress({{m_folder.PathOf("a.txt"), false}});
       }},
      {"add a file",
       [this] { m_table.AddExperimentOcurrence(wxFileName(m_folder.PathOf("a.txt")), true); }},
      {"delete rows", [this] { m_table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("B"), wxT("1")); }},
      {"remove a file",
       [this] {
         m_table.SimultaneousFileRequestsAddAndRemove({{m_folder.PathOf("c.txt"), false}});
       }},
      {"free the copies", [this] { m_table.IdleTimeFreeMemoryUsedForRowCopies(); }},
      {"search empty columns", [this] { m_table.PerformOneTimesliceOfEmptyColumnSearch(); }},
  };
  for (const auto& [name, change] : changes) {
    change();
    EXPECT_EQ(Dropped(), Texts()) << name;
  }
}

TEST_F(TableQueries, ClearedHoldersAreFilledAgain) {
  Decider decider(wxT("x"));
  m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, true);
  const auto* holder = m_table.m_cacheRowIndexHolders.begin()->second;
  m_table.SetSortColumn(wxT("B"), false);
  EXPECT_EQ(*holder, nullptr);
  EXPECT_EQ(m_table.m_cacheRowIndexHolders.size(), 1u);
  const auto* found = m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, true);
  EXPECT_EQ(m_table.m_cacheRowIndexHolders.begin()->second, holder);
  EXPECT_EQ(*holder, found);
  EXPECT_EQ(decider.decisions, 12);
}

TEST_F(TableQueries, AfterARedFlagOnlySearchesForItLookAgain) {
  EXPECT_EQ(m_table.FindCurrentRowIndicesByPropertyFlag(64, SHOWN), Indices({1}));
  EXPECT_EQ(m_table.FindCurrentRowIndicesByPropertyFlag(32, ALL), Indices({2}));
  m_table.SetRowFlag(3, true);
  m_table.m_rows.find(5)->m_rowPropertyFlags |= 32;
  EXPECT_EQ(m_table.FindCurrentRowIndicesByPropertyFlag(64, SHOWN), Indices({1, 3}));
  EXPECT_EQ(m_table.FindCurrentRowIndicesByPropertyFlag(32, ALL), Indices({2}));
}

TEST_F(TableQueries, CellsReadThroughAKeyShowTheRowAsItIs) {
  Change(0, wxT("A"), wxT("now"));
  EXPECT_EQ(m_table.Cell(0, 0), "now");
}

// ---- Many cells at once

TEST_F(TableQueries, AColumnsTextsAreThoseOfItsCells) {
  // Unsorted; sorted, so that neighbours come from different files; with a row that has just got entries of
  // its own; and sorted once more with it.
  for (int change = 0; change < 4; ++change) {
    if (change == 1) m_table.SetSortColumn(wxT("A"), true);
    if (change == 2) m_table.m_rows.find(1)->m_cells[wxT("B")] = wxT("written");
    if (change == 3) m_table.SetSortColumn(wxT("B"), false);
    const int rows = m_table.GetNumberOfDataRows();
    for (int column = -1; column <= m_table.GetNumberOfDataColumns(); ++column) {
      for (int first = -2; first <= rows + 1; ++first) {
        for (int count = 0; count <= rows + 3; ++count) {
          std::vector<MUCellText> texts(static_cast<std::size_t>(count));
          m_table.GetDataColumnTexts(column, first, count, texts.data());
          for (int i = 0; i < count; ++i) {
            ASSERT_EQ(Utf8(texts[static_cast<std::size_t>(i)].ToString()),
                      m_table.Cell(first + i, column))
                << change << ": " << column << ", " << first << " + " << i;
          }
        }
      }
    }
  }
}

// Windows of a size at which all cells of a column are put side by side, and larger than the number of files.
TEST_F(TableQueries, AScannedColumnFollowsTheRows) {
  for (const char* const name : {"d.txt", "e.txt", "f.txt"}) {
    Tests::Cells rows;
    for (int i = 0; i < 100; ++i) rows.push_back({name, std::to_string(i * 37 % 100)});
    rows.push_back({"short"});
    ASSERT_TRUE(m_table.Load(m_folder.WriteData(name, {"A", "B"}, rows)));
  }
  const auto expectCells = [&](const char* change) {
    for (int round = 0; round < 2; ++round) {  // made, and there already
      for (const wxChar* const name : {wxT("A"), wxT("B"), wxT("T\n(Trial Variable)")}) {
        const int column = m_table.GetColumnPositionNumberFromText(name);
        ASSERT_GE(column, 0);
        for (int first = 0; first < 320; first += 80) {
          std::vector<MUCellText> texts(80);
          m_table.GetDataColumnTexts(column, first, 80, texts.data());
          for (int i = 0; i < 80; ++i) {
            ASSERT_EQ(Utf8(texts[static_cast<std::size_t>(i)].ToString()),
                      m_table.Cell(first + i, column))
                << change << ": " << column << ", " << first + i;
          }
        }
      }
    }
  };
  expectCells("loaded");
  m_table.SetSortColumn(wxT("B"), true);
  expectCells("sorted");
  m_table.DeleteAllRows_WhereField_Y_Matches_AnythingFromCollection_Z(
      wxT("B"), {wxT("36"), wxT("37")}, false);
  EXPECT_EQ(m_table.m_rows.find((*m_table.m_currentShownRowKeys)[200]) == nullptr,
            m_table.Cell(200, 0) == "?");
  expectCells("deleted");
  m_table.Notify();
  expectCells("notified");
  wxString& cell = m_table.m_rows.find(50)->m_cells[wxT("B")];
  expectCells("borrowed");
  cell = wxT("written");
  expectCells("written");
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("g.txt", {"A", "B"}, {{"g", "50"}})));
  expectCells("loaded more");
  *m_table.m_rows.find(60) = *m_table.m_rows.find(61);
  expectCells("assigned");
}

TEST_F(TableQueries, NoColumnsTextsAreReadForANegativeCountOrBeyondAllNumbers) {
  MUCellText text("untouched", 9);
  m_table.GetDataColumnTexts(0, 0, -5, &text);
  EXPECT_EQ(Utf8(text.ToString()), "untouched");
  std::vector<MUCellText> texts(3);
  m_table.GetDataColumnTexts(0, std::numeric_limits<int>::max() - 1, 3, texts.data());
  for (const MUCellText& beyond : texts) EXPECT_EQ(Utf8(beyond.ToString()), "?");
}

TEST_F(TableQueries, SearchesAnswerTheSameWithADictionaryAndWithout) {
  const auto askAll = [this] {
    std::vector<Texts> answers;
    for (const bool all : {false, true}) {
      for (const wxString text : {wxT("x"), wxT("y"), wxT("z"), wxT("nobody"), wxT("")}) {
        m_table.EraseCachesOfQueries();
        answers.push_back(Where(wxT("B"), wxT("A"), text, all));
      }
    }
    return answers;
  };
  const std::vector<Texts> unsorted = askAll();
  EXPECT_EQ(unsorted[0], Texts({"1", "4"}));
  EXPECT_EQ(unsorted[5], Texts({"1", "3", "4", "5"}));
  m_table.SetSortColumn(wxT("B"), true);
  const std::vector<Texts> sorted = askAll();
  EXPECT_EQ(sorted[0], Texts({"4", "1"}));
  Distinct(wxT("A"), ALL, false);  // makes the dictionary
  EXPECT_EQ(askAll(), sorted);
  m_table.RevertAnyAndAllSortOptions();
  EXPECT_EQ(askAll(), unsorted);
}

TEST_F(TableQueries, AnswersWithADictionarySeeRowsThatArriveGoAndAreWritten) {
  EXPECT_EQ(Distinct(wxT("A"), ALL, false), Texts({"x", "y", "z"}));
  ASSERT_TRUE(m_table.Load(m_folder.WriteData("d.txt", {"A", "B"}, {{"new", "9"}})));
  EXPECT_EQ(Distinct(wxT("A"), ALL, false), Texts({"x", "y", "z", "new"}));
  EXPECT_EQ(Where(wxT("B"), wxT("A"), wxT("new"), true), Texts({"9"}));
  m_table.EraseCachesOfQueries();
  m_table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("A"), wxT("y"));
  EXPECT_EQ(Distinct(wxT("A"), ALL, false), Texts({"x", "z", "new"}));
  EXPECT_EQ(Where(wxT("B"), wxT("A"), wxT("y"), true), Texts());
  m_table.EraseCachesOfQueries();
  m_table.m_rows.find(0)->m_cells[wxT("A")] = wxT("written");
  EXPECT_EQ(Distinct(wxT("A"), ALL, false), Texts({"written", "x", "z", "new"}));
  EXPECT_EQ(Where(wxT("B"), wxT("A"), wxT("written"), true), Texts({"1"}));
}

TEST_F(TableQueries, ACachedAnswerOutlivesItsRows) {
  const Texts before = Where(wxT("B"), wxT("A"), wxT("x"), true);
  const Texts distinct = Distinct(wxT("A"), ALL, false);
  m_table.DeleteAllRows_WhereField_Y_Matches_AnythingFromCollection_Z(
      wxT("A"), {wxT("x"), wxT("y"), wxT("z")}, false);
  ASSERT_TRUE(m_table.m_rows.empty());
  EXPECT_EQ(Where(wxT("B"), wxT("A"), wxT("x"), true), before);
  EXPECT_EQ(Distinct(wxT("A"), ALL, false), distinct);
}

TEST_F(TableQueries, SearchesReadCellsThatStandInNoLine) {
  using Reader = MUInterfaceExperimentDataFileInputReader;
  const wxString& file = Reader::STRING_FOR_FILENAME_SECRET_COL;
  Change(3, wxT("B"), wxT("written"));
  for (const bool reverse : {false, true}) {
    if (reverse) m_table.SetSortColumn(wxT("B"), true);
    const Texts ofFile = Where(wxT("B"), file, m_folder.PathOf("a.txt"), false);
    EXPECT_EQ(ofFile, reverse ? Texts({"written", "2", "1"}) : Texts({"1", "2", "written"}));
    EXPECT_EQ(Where(file, wxT("A"), wxT("z"), true), Texts({Utf8(m_folder.PathOf("c.txt"))}));
    EXPECT_EQ(Where(file, wxT("B"), wxT("written"), true), Texts({Utf8(m_folder.PathOf("a.txt"))}));
    EXPECT_EQ(Where(wxT("no such column"), wxT("A"), wxT("z"), true), Texts({""}));
    EXPECT_EQ(Where(wxT("A"), wxT("no such column"), wxT(""), false).size(), 4u);
    m_table.EraseCachesOfQueries();
  }
}

TEST_F(TableQueries, AFewShownRowsOfManyAnswerInTheirOrder) {
  Tests::Cells rows;
  for (int i = 0; i < 40; ++i) rows.push_back({i % 2 == 0 ? "x" : "y", std::to_string(i)});
  const wxString d = m_folder.WriteData("d.txt", {"A", "B"}, rows);
  ASSERT_TRUE(m_table.Load(d));
  m_table.SimultaneousFileRequestsSuppressAndUnsuppress({DichotomousFileRequest{d, false}});
  m_table.OnIdle();
  m_table.SetSortColumn(wxT("B"), true);
  EXPECT_EQ(Where(wxT("B"), wxT("A"), wxT("x"), false), Texts({"4", "1"}));
}

// ---- What a decider does to the rows that it gets

class ActingDecider : public MUInterfaceRowTruthDecider {
 public:
  explicit ActingDecider(std::function<bool(Row&)> action) : m_action(std::move(action)) {}
  int DecideRow(Row* row) override { return m_action(*row) ? 1 : 0; }
  bool ResultMayBeCached() override { return false; }
  wxString GetIdentityString() override { return wxT("acts"); }

 private:
  std::function<bool(Row&)> m_action;
};

class Deciders : public TableQueries {
 protected:
  Indices Search(const std::function<bool(Row&)>& action) {
    ActingDecider decider(action);
    return *m_table.FindCurrentRowIndicesMatchingRowTruthPredicate(&decider, true);
  }
  // The keys of the rows that have entries of their own.
  Indices OwnRows() const {
    Indices keys;
    for (const auto& entry : m_table.m_rows) {
      if (entry.second->HasOverlay()) keys.push_back(entry.first);
    }
    return keys;
  }
};

TEST_F(Deciders, LeaveRowsThatTheyOnlyReadAsTheyWere) {
  Distinct(wxT("A"), ALL, false);
  const auto& runs = m_table.m_rows.Runs();
  const std::vector<unsigned long> versions = {runs[0].versionOfRows, runs[1].versionOfRows};
  EXPECT_EQ(Search([](Row& row) { return row.m_cells[wxT("A")] == wxT("x"); }),
            Indices({0, 2, 3, 4}));
  // Entries from the row before show this row's texts, and those that are asked for later, too.
  std::string seen;
  Search([&](Row& row) {
    seen += Utf8(row.m_cells[wxT("A")]);
    if (seen.size() % 2 == 0) seen += Utf8(row.m_cells.find(wxT("B"))->second) + ".";
    return false;
  });
  EXPECT_EQ(seen, "xy2.xx4.xz1.");
  EXPECT_EQ(OwnRows(), Indices());
  for (std::size_t i = 0; i < versions.size(); ++i) {
    EXPECT_TRUE(runs[i].IsPlain());
    EXPECT_EQ(runs[i].block->VersionOfRows(), versions[i]);
  }
}

TEST_F(Deciders, GetTheEntriesThatARowHasAndNoOthers) {
  // T stands in the first file alone; the entry of its last row must not come to the next file's first.
  const wxString t(wxT("T\n(Trial Variable)"));
  std::string rowsWithT;
  Search([&](Row& row) {
    rowsWithT += row.m_cells.count(t) != 0 ? "T" : "-";
    if (row.m_cells.count(t) != 0) row.m_cells[t];
    return false;
  });
  EXPECT_EQ(rowsWithT, "TTTT--");
  EXPECT_EQ(OwnRows(), Indices());
  EXPECT_EQ(Search([&](Row& row) { return row.m_cells[t].empty(); }), Indices({4, 5}));
  EXPECT_EQ(OwnRows(), Indices({4, 5}));  // the subscript inserts what is not there
}

TEST_F(Deciders, KeepWhatTheyWrite) {
  EXPECT_EQ(Search([](Row& row) {
              wxString& cell = row.m_cells[wxT("A")];
              if (cell == wxT("y")) cell = wxT("written");
              return false;
            }),
            Indices());
  EXPECT_EQ(OwnRows(), Indices({1}));
  EXPECT_EQ(Where(wxT("B"), wxT("A"), wxT("written"), true), Texts({"2"}));
  Search([](Row& row) {
    row.m_hash01[wxT("A")];
    return false;
  });
  Search([](Row& row) { return row.m_cells.erase(wxT("B")) == 1; });
  EXPECT_EQ(OwnRows(), Indices({0, 1, 2, 3, 4, 5}));
  EXPECT_EQ(Where(wxT("B"), wxT("A"), wxT("z"), true), Texts({""}));
}

TEST_F(Deciders, SeeWhatTheyWroteWhenTheyAskTheTable) {
  Texts answers;
  Search([&](Row& row) {
    wxString& cell = row.m_cells[wxT("A")];
    const wxString before = cell;
    cell = wxT("new");
    m_table.EraseCachesOfQueries();
    answers.push_back(Where(wxT("B"), wxT("A"), wxT("new"), true).at(0));
    cell = before;
    return false;
  });
  EXPECT_EQ(answers, Texts({"1", "2", "3", "4", "5", "1"}));
  m_table.EraseCachesOfQueries();
  EXPECT_EQ(Where(wxT("B"), wxT("A"), wxT("new"), true), Texts());
  EXPECT_EQ(Distinct(wxT("A"), ALL, false), Texts({"x", "y", "z"}));
}

TEST_F(Deciders, MayBecomeAnotherRowAndSearchAndDelete) {
  Search([&](Row& row) {
    row.m_cells[wxT("A")];
    if (&row == m_table.m_rows.find(0)) {
      m_table.m_rows.find(3)->m_cells[wxT("A")];
      row = *m_table.m_rows.find(3);
    }
    if (&row == m_table.m_rows.find(1)) {
      Search([](Row& inner) { return inner.m_cells[wxT("A")] == wxT("x"); });
    }
    if (&row == m_table.m_rows.find(5)) {
      m_table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("A"), wxT("z"));
    }
    return false;
  });
  EXPECT_EQ(Where(wxT("B"), wxT("A"), wxT("x"), true), Texts({"4", "3", "4", "5"}));
  EXPECT_EQ(m_table.m_rows.find(5), nullptr);
}

TEST_F(Deciders, DoNotTakeBackWhatSomebodyElseBorrowed) {
  const wxString* borrowed = nullptr;
  Search([&](Row& row) {
    Row* const same = m_table.GetRowByRowIndexAndVisibilityFilter(0, ALL);
    if (&row == same) borrowed = &same->m_cells[wxT("B")];
    return row.m_cells[wxT("B")].empty();
  });
  EXPECT_EQ(OwnRows(), Indices({0}));
  EXPECT_EQ(*borrowed, wxT("1"));
}

TEST_F(Deciders, LeaveRowsThatTheyReadBeforeTheyFailed) {
  EXPECT_THROW(Search([](Row& row) -> bool {
                 if (row.m_cells[wxT("A")] == wxT("y")) throw std::runtime_error("enough");
                 return false;
               }),
               std::runtime_error);
  EXPECT_EQ(OwnRows(), Indices({1}));
  EXPECT_EQ(Distinct(wxT("A"), ALL, false), Texts({"x", "y", "z"}));
}

}  // namespace
