#include "Tabulon/src/rows/MUDataFileBlockBuilder.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>

#include "Tabulon/src/text/MUCellSplitting.h"
#include "Tabulon/src/text/MUPlainTextScan.h"

namespace {

// No text becomes longer than this many times its length: "0x80" stands for one character, "0x1B 0x5b" for two.
constexpr std::size_t LONGEST_VISIBLE_FORM = 5;

// Splits off up to count lines and answers where the next one begins.
std::size_t TakeHeaderLines(const MUPoolVector<char>& bytes, std::size_t count,
                            std::vector<wxString>* header) {
  std::size_t start = 0;
  while (header->size() < count && start < bytes.size()) {
    const char* begin = bytes.data() + start;
    const char* feed = static_cast<const char*>(std::memchr(begin, '\n', bytes.size() - start));
    const char* end = feed ? feed : bytes.data() + bytes.size();
    start = feed ? static_cast<std::size_t>(feed + 1 - bytes.data()) : bytes.size();
    if (feed && end != begin && end[-1] == '\r') --end;
    header->push_back(MUCellText(begin, static_cast<std::size_t>(end - begin)).ToString());
  }
  return start;
}

template <typename OUT, typename CHAR>
void AppendAs(MUPoolVector<OUT>& text, const CHAR* begin, const CHAR* end) {
  const std::size_t size = text.size();
  text.resize(size + static_cast<std::size_t>(end - begin));
  std::transform(begin, end, text.data() + size,
                 [](CHAR character) { return static_cast<OUT>(character); });
}

// Calls take(at) for every control character, tabs included.
template <typename TAKE>
void ForEachControlCharacter(const wchar_t* begin, const wchar_t* end, const TAKE& take) {
  for (; begin != end; ++begin) {
    if (MUIsControlCharacter(*begin)) take(begin);
  }
}

template <typename MARK, typename TAKE>
void ForEachMarked(const char* begin, const char* end, const MARK& mark, const TAKE& take) {
  MUForEachMarked(begin, 0, static_cast<std::size_t>(end - begin), mark,
                  [&](std::size_t position) { take(begin + position); });
}

template <typename TAKE>
void ForEachControlCharacter(const char* begin, const char* end, const TAKE& take) {
  ForEachMarked(begin, end, MUMarkControlCharacters, take);
}

// The position after the line end at `at`.
const char* BehindLineEnd(const char* at, const char* end) {
  return end - at > 1 && at[1] == '\n' ? at + 2 : at + 1;
}

// How long the text is once its line ends are line feeds and its control characters are visible.
std::size_t VisibleLength(const char* begin, const char* end) {
  MUVisibleMeasure measure;
  const char* piece = begin;
  ForEachMarked(begin, end, MUMarkOddCharacters, [&](const char* at) {
    measure.characters += static_cast<std::size_t>(at - piece);
    if (*at == '\r') {
      piece = BehindLineEnd(at, end);
      ++measure.characters;
    } else {
      piece = MUBeginsEscapePair(at, end) ? at + 2 : at + 1;
      measure.Add(at, piece);
    }
  });
  return measure.characters + static_cast<std::size_t>(end - piece);
}

}  // namespace

MUDataFileBlockBuilder::MUDataFileBlockBuilder(Width width) : m_block(new MUDataFileBlock) {
  m_block->m_isWide = width == Width::WIDE;
}

bool MUDataFileBlockBuilder::TakePlainBytes(MUPoolVector<char>& bytes, std::size_t headerLines,
                                            MUDataFileLines* lines) {
  MUPlainTextMeasure measure;
  if (bytes.size() > LARGEST_OFFSET || !MUMeasurePlainText(bytes.data(), bytes.size(), &measure)) {
    return false;
  }
  lines->header.clear();
  const std::size_t start = TakeHeaderLines(bytes, headerLines, &lines->header);
  lines->block = TakeNarrowLines(bytes, start, measure, 0);
  return true;
}

MUDataFileBlockPtr MUDataFileBlockBuilder::TakeNarrowLines(MUPoolVector<char>& text,
                                                           std::size_t first,
                                                           const MUPlainTextMeasure& delimiters,
                                                           std::size_t measuredFrom) {
  MUDataFileBlockBuilder builder(Width::NARROW);
  MUDataFileBlock& block = *builder.m_block;
  // The text may end without a line feed, and a further row begins behind the last one.
  block.m_rows.reserve(delimiters.lineFeeds + 2);
  block.m_narrowText = std::move(text);
  if (!builder.AppendPlainRows(first, delimiters, measuredFrom, block.m_shortCellEnds)) {
    MUPoolVector<std::uint16_t>().swap(block.m_shortCellEnds);
    block.m_rows.resize(1);
    builder.AppendPlainRows(first, delimiters, measuredFrom, block.m_longCellEnds);
  }
  return builder.Take();
}

MUDataFileBlockPtr MUDataFileBlockBuilder::TakeOddLines(const char* begin, const char* end) {
  const std::size_t length = VisibleLength(begin, end);
  if (length > LARGEST_OFFSET) return nullptr;
  MUPoolVector<char> text;
  text.reserve(length);
  const char* piece = begin;
  ForEachMarked(begin, end, MUMarkOddCharacters, [&](const char* at) {
    AppendAs(text, piece, at);
    if (*at == '\r') {
      text.push_back('\n');
      piece = BehindLineEnd(at, end);
    } else {
      piece = MUAppendVisibleForm(at, end, text);
    }
  });
  AppendAs(text, piece, end);
  MUPlainTextMeasure measure;
  MUMeasureVisibleText(text.data(), text.size(), &measure);
  return TakeNarrowLines(text, 0, measure, 0);
}

template <typename END>
bool MUDataFileBlockBuilder::AppendPlainRows(std::size_t start,
                                             const MUPlainTextMeasure& delimiters,
                                             std::size_t measuredFrom, MUPoolVector<END>& ends) {
  const char* const text = m_block->m_narrowText.data();
  const std::size_t length = m_block->m_narrowText.size();
  ends.resize(delimiters.tabs + delimiters.lineFeeds + 1);
  END* end = ends.data();
  END* firstEnd = end;
  std::size_t rowStart = start;
  std::size_t longestRow = 0;
  const auto endRow = [&](std::size_t rowEnd) {
    if (rowEnd != rowStart) *end++ = static_cast<END>(rowEnd - rowStart);
    // The empty cells at a line's end are none.
    while (end - firstEnd > 1 && static_cast<END>(end[-2] + 1) == end[-1]) --end;
    longestRow = std::max(longestRow, rowEnd - rowStart);
    EndRow(rowStart, static_cast<std::size_t>(end - ends.data()));
    firstEnd = end;
  };
  // Written out, for all of it is to stay in the processor's registers.
  const std::size_t skipped = start - measuredFrom;
  MUByteMask wanted = ~MUByteMask{0} << skipped % MU_MASK_WIDTH;
  for (std::size_t number = skipped / MU_MASK_WIDTH;; ++number, wanted = ~MUByteMask{0}) {
    const std::size_t from = measuredFrom + number * MU_MASK_WIDTH;
    if (from >= length) break;
    for (MUByteMask left = delimiters.masks[number] & wanted; left != 0; left &= left - 1) {
      const std::size_t position = from + MULowestBit(left);
      if (text[position] == '\t') {
        *end++ = static_cast<END>(position - rowStart);
        continue;
      }
      const bool isDosLineEnd = position > rowStart && text[position - 1] == '\r';
      endRow(isDosLineEnd ? position - 1 : position);
      rowStart = position + 1;
    }
  }
  if (rowStart < length) endRow(length);
  ends.resize(static_cast<std::size_t>(end - ends.data()));
  return longestRow <= std::numeric_limits<END>::max();
}

void MUDataFileBlockBuilder::Reserve(std::size_t characters, std::size_t rows, std::size_t cells) {
  if (m_block->m_isWide)
    m_block->m_wideText.reserve(characters);
  else
    m_block->m_narrowText.reserve(characters);
  m_block->m_rows.reserve(rows + 1);
  m_block->m_shortCellEnds.reserve(cells);
}

bool MUDataFileBlockBuilder::AppendRow(const char* begin, const char* end) {
  return AppendRowTo(m_block->m_narrowText, begin, end);
}

bool MUDataFileBlockBuilder::AppendRow(const wchar_t* begin, const wchar_t* end) {
  return m_block->m_isWide ? AppendRowTo(m_block->m_wideText, begin, end)
                           : AppendRowTo(m_block->m_narrowText, begin, end);
}

MUDataFileBlockPtr MUDataFileBlockBuilder::Take() { return std::move(m_block); }

template <typename OUT, typename CHAR>
bool MUDataFileBlockBuilder::AppendRowTo(MUPoolVector<OUT>& text, const CHAR* begin,
                                         const CHAR* end) {
  const std::size_t textStart = text.size();
  const std::size_t room = LARGEST_OFFSET - textStart;
  if (static_cast<std::size_t>(end - begin) > room / LONGEST_VISIBLE_FORM) {
    MUVisibleMeasure measure;
    measure.Add(begin, end);
    if (measure.characters > room) return false;
  }
  m_rowEnds.clear();
  if (begin != end) {
    // As MUForEachCell splits, but with the text copied in as long pieces as can be.
    while (end != begin && end[-1] == CHAR('\t')) --end;
    const CHAR* piece = begin;
    ForEachControlCharacter(begin, end, [&](const CHAR* at) {
      if (*at == CHAR('\t')) {
        const std::size_t length = text.size() - textStart + static_cast<std::size_t>(at - piece);
        m_rowEnds.push_back(static_cast<std::uint32_t>(length));
      } else {
        AppendAs(text, piece, at);
        piece = MUAppendVisibleForm(at, end, text);
      }
    });
    AppendAs(text, piece, end);
    m_rowEnds.push_back(static_cast<std::uint32_t>(text.size() - textStart));
  }
  AppendRowEnds();
  EndRow(textStart, m_block->m_shortCellEnds.size() + m_block->m_longCellEnds.size());
  return true;
}

void MUDataFileBlockBuilder::AppendRowEnds() {
  auto& shortEnds = m_block->m_shortCellEnds;
  auto& longEnds = m_block->m_longCellEnds;
  if (m_rowEnds.empty()) return;
  const bool isLong = m_rowEnds.back() > std::numeric_limits<std::uint16_t>::max();
  if (longEnds.empty() && !isLong) {
    for (const std::uint32_t end : m_rowEnds) shortEnds.push_back(static_cast<std::uint16_t>(end));
    return;
  }
  if (longEnds.empty()) {
    longEnds.assign(shortEnds.begin(), shortEnds.end());
    MUPoolVector<std::uint16_t>().swap(shortEnds);
  }
  longEnds.insert(longEnds.end(), m_rowEnds.begin(), m_rowEnds.end());
}

void MUDataFileBlockBuilder::EndRow(std::size_t textStart, std::size_t cellCount) {
  m_block->m_rows.back().textStart = static_cast<std::uint32_t>(textStart);
  m_block->m_rows.push_back({0, static_cast<std::uint32_t>(cellCount)});
}
