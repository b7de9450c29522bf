// Where the table's memory comes from, and the texts that it keeps beyond their rows.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>
#include <set>
#include <thread>

#include "Tabulon/src/memory/MUPooledMemory.h"
#include "Tabulon/src/memory/MUScratchArray.h"
#include "Tabulon/src/queries/MUColumnDictionaries.h"
#include "Tabulon/src/queries/MUColumnDictionary.h"
#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"
#include "Tabulon/src/rows/MUTextKeeper.h"
#include "tests/Tabulon/table/TableTestSupport.h"

namespace {

using Tests::ProbeTable;
using Tests::TemporaryFolder;
using Tests::Utf8;
using Texts = std::vector<std::string>;

struct Piece {
  unsigned char* memory;
  std::size_t size;
  unsigned char mark;
};

Piece NewPiece(std::size_t size, unsigned char mark) {
  const Piece piece = {static_cast<unsigned char*>(MUAllocatePooled(size)), size, mark};
  std::memset(piece.memory, mark, size);
  return piece;
}

// Whether nobody else has written there.
bool IsIntact(const Piece& piece) {
  return std::all_of(piece.memory, piece.memory + piece.size,
                     [&](unsigned char byte) { return byte == piece.mark; });
}

TEST(PooledMemory, PiecesOfAllSizesAreApartAndAligned) {
  std::mt19937 random(20261121);
  const std::size_t sizes[] = {0, 1, 16, 80, 4104, 20000, 262144, 3000000, 4194240, 9000000};
  std::vector<Piece> pieces;
  for (int step = 0; step < 3000; ++step) {
    if (pieces.size() < 20 || random() % 2 == 0) {
      // Long ones are rare.
      const std::size_t size = sizes[random() % (random() % 50 == 0 ? 10 : 6)];
      pieces.push_back(NewPiece(size, static_cast<unsigned char>(random())));
      ASSERT_EQ(reinterpret_cast<std::uintptr_t>(pieces.back().memory) % alignof(std::max_align_t),
                0u);
    } else {
      const std::size_t index = random() % pieces.size();
      ASSERT_TRUE(IsIntact(pieces[index]));
      MUFreePooled(pieces[index].memory, pieces[index].size);
      pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(index));
    }
  }
  for (const Piece& piece : pieces) {
    ASSERT_TRUE(IsIntact(piece));
    MUFreePooled(piece.memory, piece.size);
  }
}

TEST(PooledMemory, AnotherThreadMayFree) {
  for (int round = 0; round < 20; ++round) {
    std::vector<Piece> pieces;
    for (int i = 0; i < 1000; ++i) pieces.push_back(NewPiece(80, 1));
    std::thread other([&] {
      for (std::size_t i = 0; i < pieces.size(); i += 2) MUFreePooled(pieces[i].memory, 80);
    });
    for (std::size_t i = 1; i < pieces.size(); i += 2) MUFreePooled(pieces[i].memory, 80);
    std::vector<Piece> own;
    for (int i = 0; i < 100; ++i) own.push_back(NewPiece(80, 2));
    other.join();
    for (const Piece& piece : own) {
      EXPECT_TRUE(IsIntact(piece));
      MUFreePooled(piece.memory, piece.size);
    }
  }
}

TEST(PooledMemory, TooManyBytesAreRefused) {
  EXPECT_THROW(MUAllocatePooled(static_cast<std::size_t>(-1)), std::bad_alloc);
  MUPoolVector<std::uint64_t> vector;
  EXPECT_THROW(vector.reserve(vector.max_size() + 1), std::length_error);
}

TEST(ScratchArray, HoldsWhatIsWrittenAndMoves) {
  for (const std::size_t size : {std::size_t{0}, std::size_t{5}, std::size_t{1} << 20}) {
    MUScratchArray<std::uint32_t> items(size);
    ASSERT_EQ(items.size(), size);
    for (std::size_t i = 0; i < size; ++i) items[i] = static_cast<std::uint32_t>(i);
    MUScratchArray<std::uint32_t> moved = std::move(items);
    ASSERT_EQ(moved.size(), size);
    for (std::size_t i = 0; i < size; ++i) ASSERT_EQ(moved[i], i);
  }
  MULargeVector<std::uint64_t> vector;
  for (std::uint64_t i = 0; i < 500000; ++i) vector.push_back(i);
  for (std::uint64_t i = 0; i < 500000; ++i) ASSERT_EQ(vector[i], i);
}

// ---- Dictionaries

class ColumnDictionaries : public testing::Test {
 protected:
  void Load(const std::string& name, const Tests::Cells& rows) {
    ASSERT_TRUE(m_table.Load(m_folder.WriteData(name, {"A", "B"}, rows)));
  }
  std::string NumberedText(const MUColumnDictionary& dictionary, unsigned long key) {
    const std::uint32_t number = dictionary.NumberOfRow(key);
    if (number == MUColumnDictionary::NONE) return "no row";
    return Utf8(dictionary.Text(number).ToString());
  }

  TemporaryFolder m_folder;
  ProbeTable m_table;
  MUColumnDictionaries m_dictionaries;
};

TEST_F(ColumnDictionaries, NumberTextsInTheOrderOfTheirFirstRows) {
  Load("a.txt", {{"y", "1"}, {"x", "2"}, {"y", "3"}, {"", "4"}});
  const MUColumnDictionary dictionary(m_table.m_rows, wxT("A"));
  ASSERT_EQ(dictionary.TextCount(), 3u);
  EXPECT_EQ(NumberedText(dictionary, 0), "y");
  EXPECT_EQ(NumberedText(dictionary, 1), "x");
  EXPECT_EQ(dictionary.NumberOfRow(2), dictionary.NumberOfRow(0));
  EXPECT_EQ(dictionary.NumberOfRow(0), 0u);
  EXPECT_EQ(NumberedText(dictionary, 3), "");
  EXPECT_EQ(NumberedText(dictionary, 4), "no row");
  EXPECT_EQ(NumberedText(dictionary, 4000000000u), "no row");
  EXPECT_EQ(dictionary.NumberOfText(MUCellText("x", 1)), 1u);
  EXPECT_EQ(dictionary.NumberOfText(MUCellText(L"x", 1)), 1u);
  EXPECT_EQ(dictionary.NumberOfText(MUCellText("z", 1)), MUColumnDictionary::NONE);
  EXPECT_TRUE(dictionary.RowsArePlain());
}

TEST_F(ColumnDictionaries, NumberThousandsOfTextsOfAllLengths) {
  std::mt19937 random(7);
  Tests::Cells rows;
  for (int i = 0; i < 9000; ++i) {
    // Alike at both ends, so that a look at a part of them is not enough.
    rows.push_back(
        {"same start" + std::string(random() % 40, 'm') + std::to_string(random() % 900), "b"});
  }
  Load("a.txt", rows);
  const MUColumnDictionary dictionary(m_table.m_rows, wxT("A"));
  std::set<std::string> different;
  for (unsigned long key = 0; key < rows.size(); ++key) {
    ASSERT_EQ(NumberedText(dictionary, key), rows[key][0]);
    different.insert(rows[key][0]);
  }
  EXPECT_EQ(dictionary.TextCount(), different.size());
}

TEST_F(ColumnDictionaries, NumberRowsWhoseKeysBeginLate) {
  Load("a.txt", {{"x", "1"}, {"y", "2"}});
  Load("b.txt", {{"z", "3"}, {"x", "4"}});
  m_table.DeleteAllRows_WhereField_Y_Matches_AnythingFromCollection_Z(wxT("B"),
                                                                      {wxT("1"), wxT("2")}, true);
  const MUColumnDictionary dictionary(m_table.m_rows, wxT("A"));
  EXPECT_EQ(dictionary.TextCount(), 2u);
  EXPECT_EQ(NumberedText(dictionary, 0), "no row");
  EXPECT_EQ(NumberedText(dictionary, 1), "no row");
  EXPECT_EQ(NumberedText(dictionary, 2), "z");
  EXPECT_EQ(NumberedText(dictionary, 3), "x");
  EXPECT_EQ(NumberedText(dictionary, 4), "no row");
}

TEST_F(ColumnDictionaries, OfATableWithoutRowsAreEmpty) {
  const MUColumnDictionary dictionary(m_table.m_rows, wxT("A"));
  EXPECT_EQ(dictionary.TextCount(), 0u);
  EXPECT_EQ(NumberedText(dictionary, 0), "no row");
  EXPECT_EQ(dictionary.NumberOfText(MUCellText("x", 1)), MUColumnDictionary::NONE);
}

TEST_F(ColumnDictionaries, OutliveTheRows) {
  Load("a.txt", {{"x", "1"}, {"y", "2"}});
  Load("b.txt", {{"z", "3"}});
  m_table.m_rows.find(1)->m_cells[wxT("A")] = wxT("written");
  const MUColumnDictionary dictionary(m_table.m_rows, wxT("A"));
  EXPECT_FALSE(dictionary.RowsArePlain());
  m_table.DeleteAllRows_WhereField_Y_Matches_AnythingFromCollection_Z(
      wxT("B"), {wxT("1"), wxT("2"), wxT("3")}, true);
  ASSERT_TRUE(m_table.m_rows.empty());
  EXPECT_EQ(NumberedText(dictionary, 0), "x");
  EXPECT_EQ(NumberedText(dictionary, 1), "written");
  EXPECT_EQ(NumberedText(dictionary, 2), "z");
}

TEST_F(ColumnDictionaries, AreKeptUntilTheRowsChange) {
  Load("a.txt", {{"x", "1"}, {"y", "2"}});
  EXPECT_EQ(m_dictionaries.Find(wxT("A"), m_table.m_rows), nullptr);
  const auto first = m_dictionaries.Of(wxT("A"), m_table.m_rows);
  EXPECT_EQ(m_dictionaries.Of(wxT("A"), m_table.m_rows), first);
  EXPECT_EQ(m_dictionaries.Find(wxT("A"), m_table.m_rows), first);
  EXPECT_EQ(m_dictionaries.Find(wxT("B"), m_table.m_rows), nullptr);

  Load("b.txt", {{"z", "3"}});
  EXPECT_EQ(m_dictionaries.Find(wxT("A"), m_table.m_rows), nullptr);
  EXPECT_EQ(m_dictionaries.Of(wxT("A"), m_table.m_rows)->TextCount(), 3u);

  m_table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("A"), wxT("z"));
  EXPECT_EQ(m_dictionaries.Find(wxT("A"), m_table.m_rows), nullptr);
  EXPECT_EQ(m_dictionaries.Of(wxT("A"), m_table.m_rows)->TextCount(), 2u);
}

TEST_F(ColumnDictionaries, AreKeptForRowsThatCanBeWrittenUntilOneIs) {
  Load("a.txt", {{"x", "1"}, {"y", "2"}});
  wxString& cell = m_table.m_rows.find(0)->m_cells[wxT("A")];
  const auto first = m_dictionaries.Of(wxT("A"), m_table.m_rows);
  EXPECT_FALSE(first->RowsArePlain());
  EXPECT_EQ(m_dictionaries.Of(wxT("A"), m_table.m_rows), first);
  cell = wxT("written");
  EXPECT_EQ(m_dictionaries.Find(wxT("A"), m_table.m_rows), nullptr);
  EXPECT_EQ(NumberedText(*first, 0), "x");
  EXPECT_EQ(NumberedText(*m_dictionaries.Of(wxT("A"), m_table.m_rows), 0), "written");
}

TEST_F(ColumnDictionaries, AndRunsOfOneTableOutliveAWriteToAnother) {
  Load("a.txt", {{"x", "1"}, {"y", "2"}});
  const auto kept = m_dictionaries.Of(wxT("A"), m_table.m_rows);
  ProbeTable other;
  ASSERT_TRUE(other.Load(m_folder.PathOf("a.txt")));
  other.m_rows.find(0)->m_cells[wxT("A")] = wxT("written");
  *other.m_rows.find(1) = *other.m_rows.find(0);
  EXPECT_EQ(other.m_rows.FindPlainRun(0, nullptr), nullptr);
  EXPECT_NE(m_table.m_rows.FindPlainRun(0, nullptr), nullptr);
  EXPECT_EQ(m_dictionaries.Find(wxT("A"), m_table.m_rows), kept);
}

TEST_F(ColumnDictionaries, AreNotTrustedAfterARowBecameAnotherOne) {
  Load("a.txt", {{"x", "1"}, {"y", "2"}});
  Load("b.txt", {{"z", "3"}});
  const auto kept = m_dictionaries.Of(wxT("A"), m_table.m_rows);
  // The last row of its file: nothing else keeps the file's text.
  *m_table.m_rows.find(2) = *m_table.m_rows.find(1);
  EXPECT_EQ(m_dictionaries.Find(wxT("A"), m_table.m_rows), nullptr);
  EXPECT_EQ(NumberedText(*m_dictionaries.Of(wxT("A"), m_table.m_rows), 2), "y");
  EXPECT_EQ(NumberedText(*kept, 2), "z");
  EXPECT_EQ(m_table.Column(wxT("A")), std::vector<std::string>({"x", "y", "y"}));
}

TEST_F(ColumnDictionaries, AreNotKeptForRowsThatCanBeWritten) {
  Load("a.txt", {{"x", "1"}, {"y", "2"}});
  m_dictionaries.Of(wxT("A"), m_table.m_rows);
  wxString& cell = m_table.m_rows.find(0)->m_cells[wxT("A")];
  EXPECT_EQ(m_dictionaries.Find(wxT("A"), m_table.m_rows), nullptr);
  cell = wxT("first");
  EXPECT_EQ(NumberedText(*m_dictionaries.Of(wxT("A"), m_table.m_rows), 0), "first");
  cell = wxT("second");
  EXPECT_EQ(NumberedText(*m_dictionaries.Of(wxT("A"), m_table.m_rows), 0), "second");
}

TEST_F(ColumnDictionaries, AreKeptForAFewColumnsOnly) {
  Load("a.txt", {{"x", "1"}});
  m_dictionaries.Of(wxT("A"), m_table.m_rows);
  for (int i = 0; i < 7; ++i) m_dictionaries.Of(wxString::Format(wxT("%d"), i), m_table.m_rows);
  EXPECT_NE(m_dictionaries.Find(wxT("A"), m_table.m_rows), nullptr);
  m_dictionaries.Of(wxT("B"), m_table.m_rows);
  EXPECT_EQ(m_dictionaries.Find(wxT("A"), m_table.m_rows), nullptr);
  EXPECT_NE(m_dictionaries.Find(wxT("B"), m_table.m_rows), nullptr);
}

// ---- Runs of rows

class RowRuns : public ColumnDictionaries {
 protected:
  // The keys of each run, and the line it begins with or "own".
  std::string Runs() {
    std::string text;
    for (const MURowStore::Run& run : m_table.m_rows.Runs()) {
      text += std::to_string(run.firstKey) + "-" + std::to_string(run.endKey) + " ";
      text += run.block == nullptr ? "own; " : std::to_string(run.firstRow) + "; ";
    }
    return text;
  }
  // The keys below 10 whose rows need not be asked themselves.
  std::string PlainKeys() const {
    std::string keys;
    const MURowStore::Run* run = nullptr;
    for (unsigned long key = 0; key < 10; ++key) {
      run = m_table.m_rows.FindPlainRun(key, run);
      EXPECT_EQ(run, m_table.m_rows.FindPlainRun(key, nullptr));
      if (run != nullptr) keys += std::to_string(key);
    }
    return keys;
  }
};

TEST_F(RowRuns, AreTheLinesOfFilesAndSplitWhereRowsAreMissingOrWritten) {
  EXPECT_EQ(Runs(), "");
  Load("a.txt", {{"x", "1"}, {"y", "2"}, {"z", "3"}});
  Load("b.txt", {{"x", "4"}, {"y", "5"}, {"z", "6"}});
  EXPECT_EQ(PlainKeys(), "012345");
  EXPECT_EQ(Runs(), "0-3 0; 3-6 0; ");
  EXPECT_NE(m_table.m_rows.Runs()[0].block, m_table.m_rows.Runs()[1].block);

  m_table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("B"), wxT("2"));
  EXPECT_EQ(PlainKeys(), "");
  EXPECT_EQ(Runs(), "0-1 0; 2-3 2; 3-6 0; ");
  EXPECT_EQ(PlainKeys(), "02345");

  m_table.m_rows.find(4)->m_cells[wxT("A")] = wxT("written");
  EXPECT_EQ(PlainKeys(), "02");  // the other file's
  EXPECT_EQ(Runs(), "0-1 0; 2-3 2; 3-4 0; 4-5 own; 5-6 2; ");
  EXPECT_EQ(PlainKeys(), "0235");

  Load("c.txt", {{"x", "7"}});
  EXPECT_EQ(Runs(), "0-1 0; 2-3 2; 3-4 0; 4-5 own; 5-6 2; 6-7 0; ");
}

TEST_F(RowRuns, DoNotOutliveAnAssignmentToARow) {
  Load("a.txt", {{"x", "1"}, {"y", "2"}});
  EXPECT_EQ(Runs(), "0-2 0; ");
  *m_table.m_rows.find(0) = *m_table.m_rows.find(1);
  EXPECT_EQ(Runs(), "0-1 1; 1-2 1; ");
}

TEST_F(RowRuns, BeginAnewInATableThatWasEmptied) {
  Load("a.txt", {{"x", "1"}});
  m_table.m_rows.find(0)->m_cells[wxT("A")] = wxT("written");
  m_table.DeleteAllRows_WhereField_Y_Matches_Z(wxT("B"), wxT("1"));
  m_table.Notify();
  Load("b.txt", {{"x", "4"}, {"y", "5"}});
  EXPECT_EQ(PlainKeys(), "01");
  EXPECT_EQ(Runs(), "0-2 0; ");
}

// Narrow and wide texts, short and long rows, and rows that do not reach to the column.
TEST_F(ColumnDictionaries, NumberCellsOfEveryKindOfFile) {
  const std::string longCell(70000, 'l');
  const std::string wide = "\xC5\xA1";  // one character above 255
  Load("a.txt", {{"first", "x"}, {"", "y"}, {"second"}});
  Load("b.txt", {{wide, wide}, {wide + wide}, {"", "x"}});
  Load("c.txt", {{longCell, "x"}, {"last"}, {"", "y"}});
  Load("d.txt", {{longCell, wide}, {wide}, {wide, "z"}});
  for (const wxChar* column : {wxT("A"), wxT("B"), wxT("C")}) {
    const MUColumnDictionary dictionary(m_table.m_rows, column);
    for (unsigned long key = 0; key < 12; ++key) {
      EXPECT_EQ(NumberedText(dictionary, key),
                Utf8(m_table.m_rows.find(key)->m_cells.ValueOrDefault(column)));
    }
    EXPECT_EQ(dictionary.EveryRowHasTheCell(), column[0] == wxT('A'));
  }
}

TEST(WantedText, EqualsCellsOfBothWidths) {
  for (const wchar_t* text : {L"", L"a", L"condition_07", L"caf\u00E9", L"\u0161"}) {
    const wxString wide(text);
    const MUWantedText wanted(wide);
    EXPECT_TRUE(wanted.Equals(MUCellText(text, wide.length())));
    EXPECT_FALSE(wanted.Equals(MUCellText(L"condition_08", 12)));
    EXPECT_FALSE(wanted.Equals(MUCellText("condition_0", 11)));
  }
  EXPECT_TRUE(MUWantedText(wxT("condition_07")).Equals(MUCellText("condition_07", 12)));
  EXPECT_FALSE(MUWantedText(wxT("\u0161")).Equals(MUCellText("a", 1)));
  EXPECT_TRUE(MUWantedText(wxString()).Equals(MUCellText()));
}

}  // namespace
