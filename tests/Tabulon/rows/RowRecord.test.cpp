// Rows as records: their maps against real maps, copies, and rows made by hand.
#include <gtest/gtest.h>

#include <map>
#include <random>

#include "tests/Tabulon/reading/ReaderBench.h"

using namespace ReaderBench;

namespace {

std::unique_ptr<Row> RowOf(const std::string& line) {
  return std::move(AllRows(*StreamWithoutHeader(line + "\n")).at(0));
}

template <typename MAP>
auto Copied(const MAP& map) {
  std::map<wxString, typename MAP::mapped_type> copy;
  for (const auto& entry : map) copy.insert(entry);
  return copy;
}

TEST(RowRecord, IsAPlainRecordWhenMadeByHand) {
  Row row;
  EXPECT_EQ(nullptr, row.Block());
  EXPECT_TRUE(row.m_cells.empty());
  EXPECT_EQ(0u, row.m_hash01.size());
  EXPECT_EQ(0u, row.m_cells.count(wxT("a")));
  EXPECT_EQ(row.m_cells.end(), row.m_cells.find(wxT("a")));
  EXPECT_FALSE(row.HasOverlay());
  EXPECT_EQ(row.m_cells.end(), row.m_cells.begin());
  row.m_cells[wxT("b")] = wxT("2");
  row.m_cells[wxT("a")] = wxT("1");
  row.m_hash01[wxT("a")] = 5.0;
  row.m_textFitsInHash[wxT("a")] = true;
  EXPECT_TRUE(row.HasOverlay());
  EXPECT_EQ((std::map<wxString, wxString>{{wxT("a"), wxT("1")}, {wxT("b"), wxT("2")}}),
            Copied(row.m_cells));
  EXPECT_EQ(5.0, row.m_hash01[wxT("a")]);
  EXPECT_EQ(0.0, row.m_hash02[wxT("a")]);
  EXPECT_TRUE(row.CellAt(0).IsEmpty());
  EXPECT_EQ(-999999.0, row.m_reactionTime);
}

TEST(RowRecord, TakesNoMoreThanALineOfTheCache) { EXPECT_LE(sizeof(Row), 64u); }

TEST(RowRecord, ReadingByValueLeavesNoTrace) {
  const auto row = RowOf("a\tb");
  EXPECT_EQ(wxT("a"), row->m_cells.ValueOrDefault(wxT("Participant\nGroup")));
  EXPECT_EQ(wxString(), row->m_cells.ValueOrDefault(wxT("no such")));
  EXPECT_EQ(0.0, row->m_hash01.ValueOrDefault(wxT("no such")));
  EXPECT_FALSE(row->m_textFitsInHash.ValueOrDefault(wxT("no such")));
  EXPECT_EQ(20u, row->m_cells.size());
  EXPECT_FALSE(row->HasOverlay());
}

TEST(RowRecord, KeepsReferencesValidWhileOtherEntriesComeAndGo) {
  const auto row = RowOf("a\tb\tc");
  wxString& first = row->m_cells[wxT("Participant\nGroup")];
  const auto second = row->m_cells.find(wxT("Participant\nName"));
  for (int i = 0; i < 100; ++i) row->m_cells[wxString::Format(wxT("new %d"), i)];
  for (const auto& entry : row->m_cells) EXPECT_EQ(1u, row->m_cells.count(entry.first));
  row->m_cells.erase(wxT("new 50"));
  EXPECT_EQ(wxT("a"), first);
  EXPECT_EQ(wxT("b"), second->second);
  first = wxT("changed");
  EXPECT_EQ(wxT("changed"), row->m_cells.ValueOrDefault(wxT("Participant\nGroup")));
  EXPECT_EQ(&first, &row->m_cells[wxT("Participant\nGroup")]);
}

TEST(RowRecord, CopiesAreIndependent) {
  const auto row = RowOf("a\tb");
  row->m_cells[wxT("Participant\nGroup")] = wxT("changed");
  row->m_rowKey = 7;
  Row copy(*row);
  Row assigned;
  assigned = *row;
  row->m_cells[wxT("Participant\nGroup")] = wxT("changed again");
  row->m_cells[wxT("new")] = wxT("x");
  for (Row* one : {&copy, &assigned}) {
    EXPECT_EQ(wxT("changed"), one->m_cells[wxT("Participant\nGroup")]);
    EXPECT_EQ(wxT("b"), one->m_cells[wxT("Participant\nName")]);
    EXPECT_EQ(0u, one->m_cells.count(wxT("new")));
    EXPECT_EQ(7u, one->m_rowKey);
  }
  Row& self = copy;
  copy = self;
  EXPECT_EQ(wxT("changed"), copy.m_cells[wxT("Participant\nGroup")]);
}

// One step on a map and on the model; both must answer alike.
template <typename MAP, typename MODEL, typename VALUE>
void Step(MAP& map, MODEL& model, const wxString& key, unsigned int what, const VALUE& value) {
  switch (what) {
    case 0:
      ASSERT_EQ(model[key], map[key]);
      break;
    case 1:
      model[key] = value;
      map[key] = value;
      break;
    case 2: {
      const auto expected = model.insert({key, value});
      const auto actual = map.insert({key, value});
      ASSERT_EQ(expected.second, actual.second);
      ASSERT_EQ(expected.first->second, actual.first->second);
      break;
    }
    case 3:
      ASSERT_EQ(model.erase(key), map.erase(key));
      break;
    case 4: {
      const auto expected = model.find(key);
      const auto actual = map.find(key);
      ASSERT_EQ(expected == model.end(), actual == map.end());
      if (expected == model.end()) break;
      ASSERT_EQ(expected->second, actual->second);
      ASSERT_EQ(std::next(expected) == model.end(), std::next(actual) == map.end());
      if (expected != model.begin()) {
        ASSERT_EQ(std::prev(expected)->first, std::prev(actual)->first);
      }
      break;
    }
    case 5:
      ASSERT_EQ(model.size(), map.size());
      break;
    case 6:
      ASSERT_EQ(model, Copied(map));
      ASSERT_EQ(model.rbegin()->first, std::prev(map.end())->first);
      break;
    case 7:
      ASSERT_EQ(model.count(key), map.count(key));
      break;
    case 8: {
      const auto found = model.find(key);
      ASSERT_EQ(found == model.end() ? VALUE() : found->second, map.ValueOrDefault(key));
      break;
    }
    default:
      break;
  }
}

TEST(RowMaps, BehaveAsMapsUnderAnyOperations) {
  for (unsigned int seed = 1; seed <= 300; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const std::string lines[] = {"a\tb\tc\td", "", "\t\t",
                                 "1\t\t\t\t\t\t\t\t\t17\tlong enough to need more keys"};
    const auto pristine = RowOf(lines[seed % 4]);
    const Row copy(*pristine);
    const auto row = RowOf(lines[seed % 4]);
    auto cells = Copied(copy.m_cells);
    auto hash = Copied(copy.m_hash02);
    auto fits = Copied(copy.m_textFitsInHash);
    const wxString keys[] = {wxT("Participant\nGroup"),
                             wxT("Reaction\nTime"),
                             wxT("FFFFF1"),
                             wxT(""),
                             wxT("new"),
                             wxT("Key")};
    for (int step = 0; step < 25; ++step) {
      const wxString& key = keys[random() % 6];
      const unsigned int what = static_cast<unsigned int>(random() % 9);
      const int number = static_cast<int>(random() % 9);
      ASSERT_NO_FATAL_FAILURE(
          Step(row->m_cells, cells, key, what, wxString::Format(wxT("v%d"), number)));
      ASSERT_NO_FATAL_FAILURE(
          Step(row->m_hash02, hash, key, hash.empty() && what == 6 ? 5 : what, double(number)));
      ASSERT_NO_FATAL_FAILURE(Step(row->m_textFitsInHash, fits, key,
                                   fits.empty() && what == 6 ? 5 : what, number % 2 == 0));
      if (step == 20 && seed % 3 == 0) {
        row->m_cells.clear();
        cells.clear();
        ASSERT_TRUE(row->m_cells.empty());
        cells[wxT("x")] = row->m_cells[wxT("x")];
      }
    }
  }
}

}  // namespace
