// The decoding held against the library's, on bytes that are good, spoilt and of no kind at all.
#include <gtest/gtest.h>
#include <wx/convauto.h>
#include <wx/string.h>

#include <random>
#include <string>

#include "Tabulon/src/reading/MUDecodedText.h"

namespace {

std::wstring Decoded(const std::string& bytes) {
  MUPoolVector<char> copy(bytes.begin(), bytes.end());
  const MUDecodedText text = MUDecode(copy);
  EXPECT_TRUE(text.narrow.empty() || text.wide.empty());
  std::wstring decoded(text.wide.begin(), text.wide.end());
  for (const char character : text.narrow) decoded += static_cast<unsigned char>(character);
  return decoded;
}

std::wstring ByTheLibrary(const std::string& bytes) {
  const wxString text(bytes.data(), wxConvAuto(), bytes.size());
  return std::wstring(text.wc_str(), text.length());
}

TEST(DecodedText, IsThatOfTheLibraryForEveryTwoBytesAmongOthers) {
  for (const std::string& before : {std::string(), std::string("a"), std::string("abcdefg"),
                                    std::string("\xc3\xa9"), std::string("\xe2\x82\xac")}) {
    for (int first = 0; first < 256; ++first) {
      for (int second = 0; second < 256; ++second) {
        const std::string bytes = before + static_cast<char>(first) + static_cast<char>(second);
        ASSERT_EQ(ByTheLibrary(bytes + "abc"), Decoded(bytes + "abc")) << first << " " << second;
        ASSERT_EQ(ByTheLibrary(bytes), Decoded(bytes)) << first << " " << second;
      }
    }
  }
}

TEST(DecodedText, IsThatOfTheLibraryForEveryCharacterAndItsNeighbours) {
  for (std::uint32_t number = 0x80; number < 0x120000; number += number < 0x3000 ? 1 : 37) {
    // Also what is no character: surrogates, and numbers beyond the last one.
    std::string bytes = "text ";
    if (number < 0x800) {
      bytes += static_cast<char>(0xC0 | number >> 6);
    } else if (number < 0x10000) {
      bytes += static_cast<char>(0xE0 | number >> 12);
      bytes += static_cast<char>(0x80 | (number >> 6 & 0x3F));
    } else {
      bytes += static_cast<char>(0xF0 | number >> 18);
      bytes += static_cast<char>(0x80 | (number >> 12 & 0x3F));
      bytes += static_cast<char>(0x80 | (number >> 6 & 0x3F));
    }
    bytes += static_cast<char>(0x80 | (number & 0x3F));
    ASSERT_EQ(ByTheLibrary(bytes + " end"), Decoded(bytes + " end")) << number;
  }
}

TEST(DecodedText, IsThatOfTheLibraryForRandomBytes) {
  static const std::string PIECES[] = {"a",
                                       "b",
                                       "text of more than eight bytes",
                                       "\t",
                                       "\r\n",
                                       "\n",
                                       "\x1b[",
                                       "\xc3\xa9",
                                       "\xc2\x85",
                                       "\xe2\x82\xac",
                                       "\xf0\x9f\x98\x80",
                                       "\xe9",
                                       "\x80",
                                       "\xc0\x80",
                                       "\xed\xa0\x80",
                                       "\xf4\x90\x80\x80",
                                       "\xe2\x82",
                                       "\xff",
                                       "\xfe",
                                       std::string(1, '\0'),
                                       std::string("\0\xd8\0\xdc", 4),
                                       std::string("a\0", 2),
                                       std::string("\0a", 2)};
  static const std::string STARTS[] = {"",
                                       "",
                                       "\xef\xbb\xbf",
                                       "\xff\xfe",
                                       "\xfe\xff",
                                       std::string("\xff\xfe\0\0", 4),
                                       std::string("\0\0\xfe\xff", 4)};
  for (unsigned int seed = 1; seed <= 40000; ++seed) {
    std::mt19937 random(seed);
    std::string bytes = STARTS[random() % std::size(STARTS)];
    const std::size_t kinds = 1 + random() % std::size(PIECES);
    for (auto count = random() % 12; count > 0; --count) bytes += PIECES[random() % kinds];
    ASSERT_EQ(ByTheLibrary(bytes), Decoded(bytes)) << "seed " << seed;
  }
}

std::string InUtf16(const std::u16string& text, bool isBigEndian) {
  std::string bytes = isBigEndian ? "\xfe\xff" : "\xff\xfe";
  for (const char16_t unit : text) {
    const char high = static_cast<char>(unit >> 8);
    const char low = static_cast<char>(unit & 0xFF);
    bytes += isBigEndian ? high : low;
    bytes += isBigEndian ? low : high;
  }
  return bytes;
}

// Among the units that are looked at together and among the few at a text's end.
TEST(DecodedText, IsThatOfTheLibraryForUnitsOfTwoBytesAtEveryPlace) {
  for (const bool isBigEndian : {false, true}) {
    for (std::size_t length = 1; length < 70; ++length) {
      std::u16string text;
      for (std::size_t i = 0; i < length; ++i) text += static_cast<char16_t>(1 + i * 37 % 255);
      const std::string narrow = InUtf16(text, isBigEndian);
      ASSERT_EQ(ByTheLibrary(narrow), Decoded(narrow)) << length;
      MUPoolVector<char> copy(narrow.begin(), narrow.end());
      ASSERT_EQ(length, MUDecode(copy).narrow.size());
      for (std::size_t place = 0; place < length; ++place) {
        for (const char16_t unit : {u'\x100', u'\x20ac', char16_t{0xD800}, char16_t{0xDC00}}) {
          std::u16string other = text;
          other[place] = unit;
          const std::string bytes = InUtf16(other, isBigEndian);
          ASSERT_EQ(ByTheLibrary(bytes), Decoded(bytes)) << length << " " << place;
        }
      }
    }
  }
}

// A program may choose another encoding for what is no UTF-8.
TEST(DecodedText, FollowsTheFallbackOfTheLibrary) {
  const std::string bytes = "caf\xe9 \xb1 and more";
  ASSERT_EQ(ByTheLibrary(bytes), Decoded(bytes));
  const wxFontEncoding former = wxConvAuto::GetFallbackEncoding();
  wxConvAuto::SetFallbackEncoding(wxFONTENCODING_ISO8859_2);
  EXPECT_EQ(L"caf\u00e9 \u0105 and more", Decoded(bytes));
  wxConvAuto::DisableFallbackEncoding();
  EXPECT_EQ(L"", Decoded(bytes));
  wxConvAuto::SetFallbackEncoding(former);
}

TEST(DecodedText, IsNarrowWhereItCanBe) {
  for (const std::string bytes : {"plain\x01 and long enough", "caf\xc3\xa9", "caf\xe9 au lait",
                                  "\xef\xbb\xbf"
                                  "marked"}) {
    MUPoolVector<char> copy(bytes.begin(), bytes.end());
    EXPECT_FALSE(MUDecode(copy).narrow.empty()) << bytes;
  }
}

}  // namespace
