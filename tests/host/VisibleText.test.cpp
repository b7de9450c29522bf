// Texts of data files as a person can read them.
#include "host/print/VisibleText.h"

#include <gtest/gtest.h>

#include "tests/host/WholeResults.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;

TEST(VisibleText, BlanksAtEitherEndOfACellAreDots) {
  EXPECT_EQ(CellShown("red", 40), "red");
  EXPECT_EQ(CellShown("red  ", 40), "red\xC2\xB7\xC2\xB7");
  EXPECT_EQ(CellShown(" dark red", 40),
            "\xC2\xB7"
            "dark red");
  EXPECT_EQ(CellShown("  ", 40), "\xC2\xB7\xC2\xB7");
  EXPECT_EQ(CellShown("", 40), "(empty)");
}

// A dot of the text itself is no blank.
TEST(VisibleText, ADotAtAnEndIsToldFromABlank) {
  EXPECT_EQ(CellShown("red\xC2\xB7", 40), "red\\u{B7}");
  EXPECT_EQ(CellShown("a\xC2\xB7z", 40), "a\xC2\xB7z");
}

TEST(VisibleText, ControlCharactersAreWrittenOut) {
  EXPECT_EQ(CellShown("a\tb\nc\rd", 40), "a\\tb\\nc\\rd");
  EXPECT_EQ(CellShown("\x1B[31m\x7F", 40), "\\x1B[31m\\x7F");
  EXPECT_EQ(CellShown(std::string("a\0b", 3), 40), "a\\x00b");
  EXPECT_EQ(CellShown("\xC2\x9B", 40), "\\u{9B}");
  EXPECT_EQ(CellShown("C:\\temp", 40), "C:\\\\temp") << "a backslash of the text itself";
}

TEST(VisibleText, MarksWithoutAShapeAreWrittenOut) {
  EXPECT_EQ(CellShown("re\xE2\x80\x8B"
                      "d",
                      40),
            "re\\u{200B}d");
  EXPECT_EQ(CellShown("a\xC2\xA0z", 40), "a\\u{A0}z");
  EXPECT_EQ(CellShown("a\xE2\x80\xAEz", 40), "a\\u{202E}z");
  EXPECT_EQ(CellShown("\xEF\xBB\xBFz", 40), "\\u{FEFF}z");
  EXPECT_EQ(CellShown("\xC3\xA4\xE4\xB8\xAD", 40), "\xC3\xA4\xE4\xB8\xAD")
      << "what has a shape stays";
}

TEST(VisibleText, BytesThatAreNoUtf8AreWrittenOut) {
  EXPECT_EQ(CellShown("a\xFFz", 40), "a\\xFFz");
  EXPECT_EQ(CellShown("\xC3", 40), "\\xC3") << "cut in the middle";
  EXPECT_EQ(CellShown("\xC0\xAF", 40), "\\xC0\\xAF") << "overlong";
  EXPECT_EQ(CellShown("\xED\xA0\x80", 40), "\\xED\\xA0\\x80") << "half of a surrogate pair";
  EXPECT_EQ(CellShown("\xF4\x90\x80\x80", 40), "\\xF4\\x90\\x80\\x80") << "beyond Unicode";
}

TEST(VisibleText, ALongCellIsCutWithItsLengthTold) {
  EXPECT_EQ(CellShown(std::string(10, 'x'), 10), "xxxxxxxxxx");
  EXPECT_EQ(CellShown(std::string(11, 'x'), 10), "xxxxxxxxxx\xE2\x80\xA6 (11 characters)");
  EXPECT_EQ(CellShown(std::string(200 * 1024, 'x'), 4), "xxxx\xE2\x80\xA6 (204800 characters)");
}

TEST(VisibleText, ACutCellKeepsThePlaceThatMatters) {
  const std::string text = std::string(100, 'a') + "B" + std::string(100, 'a');
  EXPECT_EQ(CellShown(text, 9, 100),
            "\xE2\x80\xA6"
            "aaaBaaaaa\xE2\x80\xA6 (201 characters)");
  EXPECT_EQ(CellShown(std::string(100, 'a') + "B", 9, 100),
            "\xE2\x80\xA6"
            "aaaaaaaaB (101 characters)");
  EXPECT_EQ(CellShown(text, 9, 5000),
            "\xE2\x80\xA6"
            "aaaaaaaaa (201 characters)")
      << "beyond the end";
}

TEST(VisibleText, RunningTextKeepsItsBlanksAndBackslashes) {
  EXPECT_EQ(LineShown(" a \\ b "), " a \\ b ");
  EXPECT_EQ(LineShown("a\x1B[0m\tb"), "a\\x1B[0m\\tb");
  EXPECT_EQ(LinesShown("one\n\ntwo"), (std::vector<std::string>{"one", "", "two"}));
  EXPECT_EQ(LinesShown(""), (std::vector<std::string>{""}));
  EXPECT_EQ(LinesShown(std::string(2001, 'x')),
            (std::vector<std::string>{std::string(2000, 'x') + "\xE2\x80\xA6 (2001 characters)"}));
}

TEST(VisibleText, APathKeepsItsBytesButSteersNoTerminal) {
  EXPECT_EQ(PathShown("a \xE4.txt"), "a \xE4.txt");
  EXPECT_EQ(PathShown("a\\b"), "a\\b");
  EXPECT_EQ(PathShown("a\x1B]0;title\x07\n.txt"), "a\\x1B]0;title\\x07\\n.txt");
}

TEST(VisibleText, AColumnsNameStandsOnOneLine) {
  EXPECT_EQ(ColumnShown("Event\nName"), "Event Name");
}

TEST(VisibleText, WhatTheEyeSeesNeedsNoSentence) {
  EXPECT_EQ(HiddenDifference("blue", "red", 40), "");
  EXPECT_EQ(HiddenDifference("red", "red", 40), "");
  EXPECT_EQ(HiddenDifference("red ", "red", 40), "") << "the blank is shown as a dot";
}

TEST(VisibleText, TextsThatLookAlikeAreToldApartByCodePoint) {
  EXPECT_EQ(HiddenDifference("r\xD0\xB5"
                             "d",
                             "red", 40),
            "The texts differ first at character 2: U+0435 (\xD0\xB5) stands there, U+0065 (e) is "
            "expected.");
  EXPECT_EQ(HiddenDifference("a\xC2\xA0z", "a z", 40),
            "The texts differ first at character 2: U+00A0 stands there, U+0020 is expected.");
  EXPECT_EQ(
      HiddenDifference("O1", "01", 40),
      "The texts differ first at character 1: U+004F (O) stands there, U+0030 (0) is expected.");
  EXPECT_EQ(HiddenDifference("e\xCC\x81", "\xC3\xA9", 40),
            "The texts differ first at character 1: U+0065 (e) stands there, U+00E9 (\xC3\xA9) is "
            "expected.");
  EXPECT_EQ(HiddenDifference("red\xE2\x80\x8B", "red", 40),
            "The texts differ first at character 4: U+200B stands there, the end is expected.");
}

TEST(VisibleText, OfCutTextsTheFirstDifferenceIsTold) {
  const std::string common(150000, 'x');
  EXPECT_EQ(HiddenDifference(common + "a", common + "b", 40),
            "The texts differ first at character 150001: U+0061 (a) stands there, U+0062 (b) is "
            "expected.");
  EXPECT_EQ(
      HiddenDifference(common, common + "b", 40),
      "The texts differ first at character 150001: the end stands there, U+0062 (b) is expected.");
}

// Nothing that a terminal obeys comes through, whatever the text.
TEST(VisibleText, HostileTextsBecomeHarmless) {
  for (const std::string& hostile : HostileTexts()) {
    for (const std::string& shown :
         {CellShown(hostile, 40), LineShown(hostile), PathShown(hostile), ColumnShown(hostile)}) {
      EXPECT_EQ(
          std::find_if(shown.begin(), shown.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }),
          shown.end())
          << shown.substr(0, 100);
      EXPECT_EQ(shown.find("\xC2\x85"), std::string::npos) << "the next-line character";
    }
    EXPECT_LE(CellShown(hostile, 40).size(), 300u);
  }
}

}  // namespace
}  // namespace Tests
