// Files in every encoding that a byte-order mark tells, and files that are no text in theirs.
#include <gtest/gtest.h>

#include <random>

#include "tests/Tabulon/reading/NaiveReader.h"
#include "tests/Tabulon/reading/ReaderBench.h"

using namespace ReaderBench;

namespace {

enum class Encoding { UTF8, UTF8_MARKED, UTF16_LITTLE, UTF16_BIG, UTF32_LITTLE, UTF32_BIG };
const Encoding ALL[] = {Encoding::UTF8,      Encoding::UTF8_MARKED,  Encoding::UTF16_LITTLE,
                        Encoding::UTF16_BIG, Encoding::UTF32_LITTLE, Encoding::UTF32_BIG};

void Append(std::string& bytes, unsigned long unit, int size, bool bigEndian) {
  for (int i = 0; i < size; ++i) {
    const int shift = 8 * (bigEndian ? size - 1 - i : i);
    bytes += static_cast<char>(unit >> shift & 0xFF);
  }
}

std::string Encoded(const std::wstring& text, Encoding encoding) {
  const wxString whole(text.data(), text.size());
  const auto utf8 = whole.utf8_str();
  const std::string plain(utf8.data(), utf8.length());
  if (encoding == Encoding::UTF8) return plain;
  if (encoding == Encoding::UTF8_MARKED) return "\xef\xbb\xbf" + plain;
  const bool bigEndian = encoding == Encoding::UTF16_BIG || encoding == Encoding::UTF32_BIG;
  const bool is32 = encoding == Encoding::UTF32_LITTLE || encoding == Encoding::UTF32_BIG;
  std::string bytes;
  Append(bytes, 0xFEFF, is32 ? 4 : 2, bigEndian);
  for (const wchar_t character : text) {
    const auto number = static_cast<unsigned long>(character);
    if (is32) {
      Append(bytes, number, 4, bigEndian);
    } else if (number > 0xFFFF) {
      Append(bytes, 0xD800 + ((number - 0x10000) >> 10), 2, bigEndian);
      Append(bytes, 0xDC00 + (number & 0x3FF), 2, bigEndian);
    } else {
      Append(bytes, number, 2, bigEndian);
    }
  }
  return bytes;
}

const std::wstring HEAD = L"Zo\u00eb\nTitle \u20ac\nMonday\n\nA\u00e4\tB\nx\ty\n";

TEST(Encodings, GiveTheSameTextInBothReaders) {
  const std::wstring text = HEAD + L"caf\u00e9\t\u20ac \U0001F600\tend\n";
  for (const Encoding encoding : ALL) {
    SCOPED_TRACE(static_cast<int>(encoding));
    const std::string bytes = Encoded(text, encoding);
    const auto streaming = Stream(bytes);
    ASSERT_FALSE(streaming->ErrorStatusIsPresent());
    EXPECT_EQ(wxString(L"Title \u20ac"), streaming->GetExperimentTitle());
    const auto row = std::move(AllRows(*streaming).at(0));
    EXPECT_EQ(wxString(L"caf\u00e9"), row->m_cells[L"A\u00e4\nx"]);
    EXPECT_EQ(wxString(L"\u20ac \U0001F600"), row->m_cells[wxT("B\ny")]);
    EXPECT_EQ(wxString(L"Zo\u00eb"), row->m_cells[Hidden::STRING_FOR_PERSONNAME_SECRET_COL]);
    const auto inMemory = InMemory(bytes);
    ASSERT_FALSE(inMemory->ErrorStatusIsPresent());
    EXPECT_EQ(wxString(L"Title \u20ac"), inMemory->GetExperimentTitle());
    const auto same = std::move(AllRows(*inMemory).at(0));
    EXPECT_EQ(wxString(L"caf\u00e9"), same->m_cells[L"A\u00e4\nx"]);
    EXPECT_EQ(wxString(L"\u20ac \U0001F600"), same->m_cells[wxT("B\ny")]);
  }
}

TEST(Encodings, KeepNarrowTextNarrow) {
  const std::wstring text = L"p\nt\nd\n\nA\nx\ncaf\u00e9 \u00ff\u00a0\n";
  for (const Encoding encoding : ALL) {
    SCOPED_TRACE(static_cast<int>(encoding));
    const auto row = std::move(AllRows(*Stream(Encoded(text, encoding))).at(0));
    EXPECT_NE(nullptr, row->CellAt(0).Narrow());
    EXPECT_EQ(wxString(L"caf\u00e9 \u00ff\u00a0"), row->CellAt(0).ToString());
  }
}

void ExpectWhatTheLibraryDecodes(const std::string& bytes) {
  const BytesOnDisk file(bytes);
  const auto expectSame = [](Reader& reader, const NaiveReader::NaiveFile& model) {
    ASSERT_EQ(model.good, !reader.ErrorStatusIsPresent());
    if (!model.good) return;
    ASSERT_EQ(model.title, reader.GetExperimentTitle());
    ASSERT_EQ(model.date, reader.GetExperimentDateTimeString());
    ASSERT_EQ(model.rows.size(), reader.GetDataRowCount());
    const auto rows = AllRows(reader);
    ASSERT_EQ(model.columns, NamesOf(*TakeColumns(reader)));
    for (std::size_t i = 0; i < rows.size(); ++i) {
      for (const auto& cell : model.rows[i].m_cells) {
        ASSERT_EQ(cell.second, rows[i]->m_cells.ValueOrDefault(cell.first));
      }
    }
  };
  ASSERT_NO_FATAL_FAILURE(
      expectSame(*ReaderOf(file, MU_INPUTFILE_TXT), NaiveReader::ReadByName(file.Path(), true)));
  ASSERT_NO_FATAL_FAILURE(expectSame(*ReaderOf(file, MU_INPUTFILE_TXT_HEADERLESS),
                                     NaiveReader::ReadByName(file.Path(), false)));
  ASSERT_NO_FATAL_FAILURE(
      expectSame(*ReaderOf(file, MU_INPUTFILE_IN_MEMORY), NaiveReader::ReadOpenFile(file.Path())));
}

// Bytes that are doubtful in one encoding or another: cut, overlong, surrogates, beyond the last character, marks
// in the middle, zeros.
TEST(SpoiltBytes, AreDecodedAsTheLibraryDecodesThem) {
  static const std::string SPOILT[] = {"\x80",
                                       "\xbf",
                                       "\xc0\x80",
                                       "\xc1\xbf",
                                       "\xc2",
                                       "\xc3",
                                       "\xc2\x7f",
                                       "\xc3\xc3\xa9",
                                       "\xe0\x80\x80",
                                       "\xe0\x9f\xbf",
                                       "\xe0\xa0",
                                       "\xe2\x82",
                                       "\xed\x9f\xbf",
                                       "\xed\xa0\x80",
                                       "\xed\xbf\xbf",
                                       "\xef\xbb\xbf",
                                       "\xef\xbf\xbe",
                                       "\xef\xbf\xbf",
                                       "\xf0\x80\x80\x80",
                                       "\xf0\x8f\xbf\xbf",
                                       "\xf0\x9f\x98",
                                       "\xf4\x8f\xbf\xbf",
                                       "\xf4\x90\x80\x80",
                                       "\xf5\x80\x80\x80",
                                       "\xf8\x88\x80\x80\x80",
                                       "\xfc\x84\x80\x80\x80\x80",
                                       "\xfe",
                                       "\xff",
                                       "\xff\xfe",
                                       "\xfe\xff",
                                       std::string(1, '\0'),
                                       std::string(3, '\0'),
                                       std::string("\0\xd8", 2),
                                       std::string("\0\xdc", 2),
                                       "\x85",
                                       "\xc2\x85",
                                       "\x1b[",
                                       "\r"};
  const std::wstring text =
      HEAD + L"caf\u00e9 and more text of some length\tb\n\u00fc\t\u00e9\r\nlast";
  for (unsigned int seed = 1; seed <= 60; ++seed) {
    std::mt19937 random(seed);
    for (const Encoding encoding : ALL) {
      const std::string& spoilt = SPOILT[random() % std::size(SPOILT)];
      std::string bytes = Encoded(text, encoding);
      const std::size_t place = random() % 8 == 0 ? bytes.size() : random() % bytes.size();
      if (random() % 2 == 0)
        bytes.insert(place, spoilt);
      else
        bytes.replace(place, spoilt.size(), spoilt);
      SCOPED_TRACE(testing::Message() << seed << ", encoding " << static_cast<int>(encoding));
      ASSERT_NO_FATAL_FAILURE(ExpectWhatTheLibraryDecodes(bytes));
      ASSERT_NO_FATAL_FAILURE(
          ExpectWhatTheLibraryDecodes(bytes.substr(0, bytes.size() - random() % 5)));
    }
  }
  for (const std::string& spoilt : SPOILT) {
    for (const Encoding encoding : ALL) {
      ASSERT_NO_FATAL_FAILURE(ExpectWhatTheLibraryDecodes(Encoded(L"", encoding) + spoilt));
      ASSERT_NO_FATAL_FAILURE(ExpectWhatTheLibraryDecodes(Encoded(text, encoding) + spoilt));
    }
  }
}

}  // namespace
