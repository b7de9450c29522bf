#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "Tabulon/src/text/MUPlainTextScan.h"

namespace {

TEST(PlainTextScan, FindsDelimitersAndCountsThemAtAnyPlace) {
  for (unsigned int seed = 1; seed <= 2000; ++seed) {
    std::mt19937 random(seed);
    std::string text;
    for (auto length = random() % 70; length > 0; --length) {
      const auto kind = random() % 12;
      text += kind == 0 ? "\t" : kind == 1 ? "\n" : kind == 2 ? "\r\n" : "z";
    }
    std::vector<std::size_t> expected;
    MUPlainTextMeasure counted = {0, 0};
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text[i] == '\t') ++counted.tabs;
      if (text[i] == '\n') ++counted.lineFeeds;
      if (text[i] == '\t' || text[i] == '\n') expected.push_back(i);
    }
    MUPlainTextMeasure measure = {9999, 9999};
    ASSERT_TRUE(MUMeasurePlainText(text.data(), text.size(), &measure)) << "seed " << seed;
    ASSERT_EQ(counted.tabs, measure.tabs);
    ASSERT_EQ(counted.lineFeeds, measure.lineFeeds);
    std::vector<std::size_t> found;
    MUForEachDelimiter(text.data(), 0, text.size(), [&](std::size_t at) { found.push_back(at); });
    ASSERT_EQ(expected, found) << "seed " << seed;
    if (text.empty()) continue;
    // One byte that is not plain, anywhere, and the text is not.
    const char odd[] = {'\0', '\x01', '\x1f', '\x7f', '\x80', '\xff', '\r'};
    std::string spoiled = text;
    const std::size_t at = random() % text.size();
    spoiled[at] = odd[random() % sizeof odd];
    const bool stillPlain = spoiled[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n';
    ASSERT_EQ(stillPlain && !(at > 0 && spoiled[at - 1] == '\r'),
              MUMeasurePlainText(spoiled.data(), spoiled.size(), &measure))
        << "seed " << seed;
  }
}

using Mark = void (*)(const char*, std::size_t, MUByteMask*);
using Measure = bool (*)(const char*, std::size_t, MUPlainTextMeasure*);

std::vector<std::size_t> Marked(const std::string& text, Mark mark) {
  std::vector<std::size_t> found;
  MUForEachMarked(text.data(), 0, text.size(), mark, [&](std::size_t at) { found.push_back(at); });
  return found;
}

// Once among bytes that are looked at together, once among the few at a text's end.
TEST(PlainTextScan, KnowsEveryByteAtEveryPlace) {
  for (int byte = 0; byte < 256; ++byte) {
    const bool isDelimiter = byte == 9 || byte == 10;
    const bool isControl = (byte >= 1 && byte <= 31) || (byte >= 127 && byte <= 159);
    const bool isAscii = byte >= 32 && byte <= 126;
    for (std::size_t place = 0; place < 150; ++place) {
      std::string text(150, 'x');
      text[place] = static_cast<char>(byte);
      const std::vector<std::size_t> here = {place};
      const std::vector<std::size_t> nowhere;
      ASSERT_EQ(isDelimiter ? here : nowhere, Marked(text, MUMarkDelimiters)) << byte;
      ASSERT_EQ(isControl ? here : nowhere, Marked(text, MUMarkControlCharacters)) << byte;
      ASSERT_EQ(isControl && !isDelimiter ? here : nowhere, Marked(text, MUMarkOddCharacters))
          << byte;
      MUPlainTextMeasure measure = {0, 0};
      ASSERT_EQ(isAscii || isDelimiter, MUMeasurePlainText(text.data(), text.size(), &measure))
          << byte << " at " << place;
      ASSERT_EQ(!isControl || isDelimiter, MUMeasureVisibleText(text.data(), text.size(), &measure))
          << byte << " at " << place;
      ASSERT_EQ(byte == 9 ? 1u : 0u, measure.tabs);
      ASSERT_EQ(byte == 10 ? 1u : 0u, measure.lineFeeds);
    }
  }
}

// A byte counts the matches of 255 vectors of sixteen bytes, no more.
TEST(PlainTextScan, CountsBeyondWhatAByteCounts) {
  for (const std::size_t length :
       {16u * 255u, 16u * 255u + 1u, 16u * 256u, 16u * 511u + 15u, 100000u}) {
    for (const Measure measureText : {&MUMeasurePlainText, &MUMeasureVisibleText}) {
      MUPlainTextMeasure measure = {0, 0};
      ASSERT_TRUE(measureText(std::string(length, '\t').data(), length, &measure));
      EXPECT_EQ(length, measure.tabs);
      EXPECT_EQ(0u, measure.lineFeeds);
      ASSERT_TRUE(measureText(std::string(length, '\n').data(), length, &measure));
      EXPECT_EQ(0u, measure.tabs);
      EXPECT_EQ(length, measure.lineFeeds);
    }
  }
}

TEST(PlainTextScan, SeesOneOddByteInALongText) {
  std::string text;
  while (text.size() < 16 * 600) text += "cell\tcell\r\n";
  MUPlainTextMeasure measure = {0, 0};
  ASSERT_TRUE(MUMeasurePlainText(text.data(), text.size(), &measure));
  for (std::size_t at = 0; at < text.size(); at += 7) {
    std::string spoilt = text;
    spoilt[at] = '\x7f';
    ASSERT_FALSE(MUMeasurePlainText(spoilt.data(), spoilt.size(), &measure)) << at;
    ASSERT_FALSE(MUMeasureVisibleText(spoilt.data(), spoilt.size(), &measure)) << at;
  }
  // A return at the end of one vector belongs to the feed at the start of the next.
  std::string pair(16 * 300, 'x');
  for (std::size_t at = 0; at + 1 < pair.size(); at += 5) {
    std::string text2 = pair;
    text2[at] = '\r';
    ASSERT_FALSE(MUMeasurePlainText(text2.data(), text2.size(), &measure)) << at;
    text2[at + 1] = '\n';
    ASSERT_TRUE(MUMeasurePlainText(text2.data(), text2.size(), &measure)) << at;
    ASSERT_EQ(1u, measure.lineFeeds);
  }
}

}  // namespace
