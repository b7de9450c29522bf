// Random files through both readers, held against the naive ones.
#include <gtest/gtest.h>

#include <random>

#include "tests/Tabulon/reading/NaiveReader.h"
#include "tests/Tabulon/reading/ReaderBench.h"

using namespace ReaderBench;
using NaiveReader::NaiveFile;
using NaiveReader::NaiveRow;

namespace {

using Random = std::mt19937;

std::size_t Below(Random& random, std::size_t limit) { return random() % limit; }

// What cells of a kind of file are made of.
struct Alphabet {
  const char* name;
  std::vector<std::string> pieces;
  std::vector<std::string> lineEnds;
};

const Alphabet ALPHABETS[] = {
    {"plain ASCII", {"a", "B", " ", "#", "~", "0", "1", "523", "long enough for all keys"}, {"\n"}},
    {"plain ASCII with CR LF", {"a", "b", " ", "17", "x#"}, {"\r\n"}},
    {"plain ASCII with CR LF and LF", {"a", "b", " ", "17"}, {"\r\n", "\n", "\n"}},
    {"ASCII with lone CR", {"a", "b", "17"}, {"\r\n", "\n", "\r"}},
    {"lone CR alone", {"a", "b", "17"}, {"\r"}},
    {"control characters", {"a", "\x1b", "[", "@", "_", "\x01", "\x1f", "\x7f", "12"}, {"\n"}},
    {"zero bytes", {"a", std::string(1, '\0'), "\x1b", "@", "12"}, {"\n", "\r\n"}},
    {"UTF-8",
     {"a", "\xc3\xa4", "\xe2\x82\xac", "\xf0\x9f\x98\x80", "\xc2\x85", "\xc2\x9f", "9"},
     {"\n", "\r\n"}},
    {"Latin-1", {"a", "\xe4", "\xfc", "\x85", "\xff", "9"}, {"\n"}},
};

std::string RandomCell(Random& random, const Alphabet& alphabet) {
  std::string cell;
  for (std::size_t pieces = Below(random, 5); pieces > 0; --pieces) {
    cell += alphabet.pieces[Below(random, alphabet.pieces.size())];
  }
  return cell;
}

std::string RandomLine(Random& random, const Alphabet& alphabet) {
  if (Below(random, 8) == 0) return std::string(Below(random, 4), '\t');
  std::string line;
  for (std::size_t cells = Below(random, 7); cells > 0; --cells) {
    line += RandomCell(random, alphabet) + (cells > 1 || Below(random, 5) == 0 ? "\t" : "");
  }
  return line;
}

std::string RandomHeading(Random& random, const Alphabet& alphabet) {
  static const char* const KNOWN[] = {"Reaction", "Time", "FFFFF1", "SFSFSF1", "a", "A", "a#", ""};
  std::string line;
  for (std::size_t cells = Below(random, 7); cells > 0; --cells) {
    line += Below(random, 3) ? KNOWN[Below(random, 8)] : RandomCell(random, alphabet);
    if (cells > 1 || Below(random, 6) == 0) line += "\t";
  }
  return line;
}

std::string RandomFile(Random& random, const Alphabet& alphabet) {
  const auto end = [&] { return alphabet.lineEnds[Below(random, alphabet.lineEnds.size())]; };
  std::string bytes;
  for (int line = 0; line < 4; ++line) bytes += RandomLine(random, alphabet) + end();
  if (Below(random, 3) == 0) {
    bytes += "Reaction\tb" + end() + "Time\tc" + end();
  } else {
    bytes += RandomHeading(random, alphabet) + end() + RandomHeading(random, alphabet) + end();
  }
  for (std::size_t lines = Below(random, 12); lines > 0; --lines) {
    bytes += RandomLine(random, alphabet);
    if (lines > 1 || Below(random, 2)) bytes += end();
  }
  return bytes;
}

std::string AsUtf16(const std::string& utf8, bool bigEndian) {
  std::string bytes = bigEndian ? "\xfe\xff" : "\xff\xfe";
  const wxString text = wxString::FromUTF8(utf8.data(), utf8.size());
  for (const wxUniChar character : text) {
    const unsigned int value = character.GetValue();
    std::vector<unsigned int> units = {value};
    if (value > 0xFFFF) units = {0xD800 + ((value - 0x10000) >> 10), 0xDC00 + (value & 0x3FF)};
    for (const unsigned int unit : units) {
      const char high = static_cast<char>(unit >> 8);
      const char low = static_cast<char>(unit & 0xFF);
      bytes += bigEndian ? std::string{high, low} : std::string{low, high};
    }
  }
  return bytes;
}

// All a map tells, without the operations that copy entries and with them.
template <typename MAP, typename MODEL>
void ExpectSameMap(MAP& map, const MODEL& model, const std::vector<wxString>& moreKeys) {
  const MAP& constMap = map;
  ASSERT_EQ(model.size(), constMap.size());
  ASSERT_EQ(model.empty(), constMap.empty());
  for (const auto& entry : model) {
    ASSERT_EQ(1u, constMap.count(entry.first));
    ASSERT_EQ(entry.second, constMap.ValueOrDefault(entry.first));
  }
  for (const wxString& key : moreKeys) {
    ASSERT_EQ(model.count(key), constMap.count(key));
    ASSERT_EQ(model.count(key) != 0, constMap.find(key) != constMap.end());
  }
  ASSERT_EQ(model.size(), constMap.size());
  auto expected = model.begin();
  for (const auto& entry : constMap) {
    ASSERT_NE(model.end(), expected);
    ASSERT_EQ(expected->first, entry.first);
    ASSERT_EQ(expected->second, entry.second);
    ++expected;
  }
  ASSERT_EQ(model.end(), expected);
}

void ExpectSameRow(Row& row, const NaiveRow& model, const std::vector<wxString>& keys) {
  // The fast way first: it holds only as long as nobody asked for an entry.
  ASSERT_FALSE(row.HasOverlay());
  ASSERT_NE(nullptr, row.Block());
  for (const auto& entry : model.m_hash01) {
    if (entry.first.empty() && row.Block()->PositionOf(wxString()) >= row.m_text.CellCount())
      continue;
    const std::size_t position = row.Block()->PositionOf(entry.first);
    ASSERT_LT(position, row.m_text.CellCount());
    const MUCellText cell = row.CellAt(position);
    ASSERT_EQ(entry.second, cell.SortKey(0));
    ASSERT_EQ(model.m_hash02.at(entry.first), cell.SortKey(1));
    ASSERT_EQ(model.m_hash03.at(entry.first), cell.SortKey(2));
    ASSERT_EQ(model.m_textFitsInHash.at(entry.first), cell.FitsInSortKeys());
    if (!row.Block()->FindHiddenCell(entry.first)) {
      ASSERT_EQ(model.m_cells.at(entry.first), cell.ToString());
      ASSERT_TRUE(cell.Equals(model.m_cells.at(entry.first)));
    }
  }
  ASSERT_FALSE(row.HasOverlay());
  ASSERT_EQ(model.m_reactionTime, row.m_reactionTime);
  ExpectSameMap(row.m_cells, model.m_cells, keys);
  ExpectSameMap(row.m_hash01, model.m_hash01, keys);
  ExpectSameMap(row.m_hash02, model.m_hash02, keys);
  ExpectSameMap(row.m_hash03, model.m_hash03, keys);
  ExpectSameMap(row.m_textFitsInHash, model.m_textFitsInHash, keys);
}

void ExpectSameFile(Reader& reader, const NaiveFile& model) {
  ASSERT_EQ(model.good, !reader.ErrorStatusIsPresent());
  if (!model.good) return;
  ASSERT_EQ(model.title, reader.GetExperimentTitle());
  ASSERT_EQ(model.date, reader.GetExperimentDateTimeString());
  ASSERT_EQ(model.rows.size(), reader.GetDataRowCount());
  const auto rows = AllRows(reader);
  ASSERT_EQ(model.columns, NamesOf(*TakeColumns(reader)));
  std::vector<wxString> keys = model.columns;
  keys.insert(keys.end(), {wxT(""), wxT("no such column"), wxT("FFFFF1"), wxT("Reaction\nTime")});
  for (std::size_t i = 0; i < rows.size(); ++i) {
    SCOPED_TRACE(i);
    ASSERT_NO_FATAL_FAILURE(ExpectSameRow(*rows[i], model.rows[i], keys));
  }
}

class RandomFiles : public testing::TestWithParam<int> {};

TEST_P(RandomFiles, GiveWhatTheNaiveReadersGive) {
  const Alphabet& alphabet = ALPHABETS[GetParam()];
  const bool isUtf8 = alphabet.name != std::string("Latin-1");
  for (unsigned int seed = 1; seed <= 80; ++seed) {
    Random random(seed);
    std::string bytes = RandomFile(random, alphabet);
    if (isUtf8 && seed % 5 == 1) bytes = AsUtf16(bytes, seed % 2 == 0);
    if (isUtf8 && seed % 5 == 2) bytes = "\xef\xbb\xbf" + bytes;
    SCOPED_TRACE(testing::Message() << alphabet.name << ", seed " << seed << "\n" << bytes);
    const BytesOnDisk file(bytes);
    ASSERT_NO_FATAL_FAILURE(ExpectSameFile(*ReaderOf(file, MU_INPUTFILE_TXT),
                                           NaiveReader::ReadByName(file.Path(), true)));
    ASSERT_NO_FATAL_FAILURE(ExpectSameFile(*ReaderOf(file, MU_INPUTFILE_TXT_HEADERLESS),
                                           NaiveReader::ReadByName(file.Path(), false)));
    ASSERT_NO_FATAL_FAILURE(ExpectSameFile(*ReaderOf(file, MU_INPUTFILE_IN_MEMORY),
                                           NaiveReader::ReadOpenFile(file.Path())));
  }
}

INSTANTIATE_TEST_SUITE_P(Alphabets, RandomFiles, testing::Range(0, 9));

// Up to 65,535 characters a row's offsets take two bytes.
TEST(LongRows, GiveWhatTheNaiveReadersGive) {
  const std::string head =
      "participant\ntitle\ndate\n\nFirst\tSecond\tThird\tReaction\nA\tB\tC\tTime\n";
  const std::string shortRow = "a\tbb\tccc\t12\n";
  for (const std::size_t length : {65532u, 65533u, 65534u, 65535u, 65536u, 65540u, 131072u}) {
    const std::string x(length - 6, 'x');
    for (const std::string& longRow : {x + "\tb\t\t5\n", "a\t" + x + "\t1\t2\n",
                                       "a\tb\t" + x + "y\t\t\n", "1\t2\t3\t" + x + "\r\n"}) {
      for (const std::string& rows : {longRow + shortRow, shortRow + longRow + shortRow, longRow}) {
        for (const std::string start : {"", "\xef\xbb\xbf"}) {
          SCOPED_TRACE(testing::Message()
                       << length << " at " << rows.find('x') << (start.empty() ? "" : ", marked"));
          const BytesOnDisk file(start + head + rows);
          ASSERT_NO_FATAL_FAILURE(ExpectSameFile(*ReaderOf(file, MU_INPUTFILE_TXT),
                                                 NaiveReader::ReadByName(file.Path(), true)));
          ASSERT_NO_FATAL_FAILURE(ExpectSameFile(*ReaderOf(file, MU_INPUTFILE_IN_MEMORY),
                                                 NaiveReader::ReadOpenFile(file.Path())));
        }
      }
    }
  }
}

// The same content once as plain ASCII and, with a byte-order mark, on the way through the library's own
// lines; there once more with a further row of a character that needs more than a byte.
TEST(FastAndSlowWay, GiveIdenticalRows) {
  for (unsigned int seed = 1; seed <= 100; ++seed) {
    Random random(seed);
    const std::string bytes = RandomFile(random, ALPHABETS[seed % 3]);
    for (const bool isWide : {false, true}) {
      const auto fast = Stream(bytes);
      SCOPED_TRACE(testing::Message() << seed << (isWide ? ", wide" : ""));
      const auto slow = Stream("\xef\xbb\xbf" + bytes + (isWide ? "\n\xc5\xa1\n" : ""));
      if (fast->ErrorStatusIsPresent()) {
        ASSERT_TRUE(isWide || slow->ErrorStatusIsPresent());
        continue;
      }
      ASSERT_FALSE(slow->ErrorStatusIsPresent());
      const auto fastRows = AllRows(*fast);
      const auto slowRows = AllRows(*slow);
      if (isWide) {
        ASSERT_LT(fastRows.size(), slowRows.size());
      } else {
        ASSERT_EQ(fastRows.size(), slowRows.size());
      }
      for (std::size_t i = 0; i < fastRows.size(); ++i) {
        const std::size_t cells = fastRows[i]->m_text.CellCount();
        ASSERT_EQ(cells, slowRows[i]->m_text.CellCount());
        for (std::size_t position = 0; position < cells; ++position) {
          const MUCellText a = fastRows[i]->CellAt(position);
          const MUCellText b = slowRows[i]->CellAt(position);
          ASSERT_TRUE(a.Narrow() && (isWide ? b.Wide() != nullptr : b.Narrow() != nullptr));
          ASSERT_EQ(0, a.Compare(b));
          ASSERT_EQ(0, b.Compare(a));
          ASSERT_EQ(a.ToString(), b.ToString());
          ASSERT_EQ(a.Hash(), b.Hash());
          for (std::size_t piece = 0; piece < MUCellText::SORT_PIECES; ++piece) {
            ASSERT_EQ(a.SortBits(piece), b.SortBits(piece));
          }
        }
        ASSERT_EQ(fastRows[i]->m_reactionTime, slowRows[i]->m_reactionTime);
      }
      ASSERT_EQ(NamesOf(*TakeColumns(*fast)), NamesOf(*TakeColumns(*slow)));
    }
  }
}

// Characters that take one byte in memory, though more or fewer in the file.
TEST(NarrowText, KeepsCharactersBeyondAscii) {
  const std::string head = "participant\ntitle\ndate\n\nFirst\tSecond\nA\tB\n";
  for (const std::string row : {"caf\xc3\xa9 \xc3\xbf\t\xc2\xa0x\n", "caf\xe9 \xff\t\xa0x\n"}) {
    for (const std::string control : {"", "\x01\tb\n", "\xc2\x85\tb\n"}) {
      const BytesOnDisk file(head + row + control);
      SCOPED_TRACE(row + control);
      ASSERT_NO_FATAL_FAILURE(ExpectSameFile(*ReaderOf(file, MU_INPUTFILE_TXT),
                                             NaiveReader::ReadByName(file.Path(), true)));
      ASSERT_NO_FATAL_FAILURE(ExpectSameFile(*ReaderOf(file, MU_INPUTFILE_IN_MEMORY),
                                             NaiveReader::ReadOpenFile(file.Path())));
      const auto rows = AllRows(*ReaderOf(file, MU_INPUTFILE_TXT));
      ASSERT_NE(rows[0]->CellAt(0).Narrow(), nullptr);
    }
  }
}

}  // namespace
