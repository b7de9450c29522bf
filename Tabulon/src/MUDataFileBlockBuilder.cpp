#include "Tabulon/src/MUDataFileBlockBuilder.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>

#include "Tabulon/src/MUCellSplitting.h"
#include "Tabulon/src/MUPlainTextScan.h"

namespace {

constexpr std::size_t LARGEST_OFFSET = std::numeric_limits<std::uint32_t>::max();
// "0x1B 0x5b" for two characters is the longest visible form there is, per character.
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

// Calls take(at) for every control character, tabs included.
template <typename Take>
void ForEachControlCharacter(const wchar_t* begin, const wchar_t* end, const Take& take) {
  for (; begin != end; ++begin) {
    if (MUIsControlCharacter(*begin)) take(begin);
  }
}

template <typename Take>
void ForEachControlCharacter(const char* begin, const char* end, const Take& take) {
  while (begin != end) {
    const std::size_t count = std::min(static_cast<std::size_t>(end - begin), MU_SCAN_WIDTH);
    const MUByteMasks masks =
        count == MU_SCAN_WIDTH ? MUExamineBytes(begin) : MUExamineBytesOneByOne(begin, count);
    std::uint32_t found = masks.tabs | masks.lineFeeds | masks.carriageReturns | masks.notPlain;
    for (; found != 0; found &= found - 1) {
      const char* at = begin + __builtin_ctz(found);
      if (MUIsControlCharacter(*at)) take(at);  // not a zero byte, which stays
    }
    begin += count;
  }
}

}  // namespace

MUDataFileBlockBuilder::MUDataFileBlockBuilder(Width width)
    : m_block(new MUDataFileBlock), m_firstCell(0) {
  m_block->m_isWide = width == Width::WIDE;
}

bool MUDataFileBlockBuilder::TakePlainBytes(MUPoolVector<char>& bytes, std::size_t headerLines,
                                            MUDataFileLines* lines) {
  MUPlainTextMeasure measure;
  if (bytes.size() > LARGEST_OFFSET || !MUMeasurePlainText(bytes.data(), bytes.size(), &measure)) {
    return false;
  }
  MUDataFileBlockBuilder builder(Width::ASCII);
  MUDataFileBlock& block = *builder.m_block;
  block.m_rows.reserve(measure.lineFeeds + 2);
  block.m_cellEnds.reserve(measure.tabs + measure.lineFeeds + 1);

  lines->header.clear();
  std::size_t rowStart = TakeHeaderLines(bytes, headerLines, &lines->header);
  const char* text = bytes.data();
  MUForEachDelimiter(text, rowStart, bytes.size(), [&](std::size_t position) {
    if (text[position] == '\t') {
      block.m_cellEnds.push_back(static_cast<std::uint32_t>(position - rowStart));
      return;
    }
    const bool isDosLineEnd = position > rowStart && text[position - 1] == '\r';
    builder.EndPlainRow(rowStart, isDosLineEnd ? position - 1 : position);
    rowStart = position + 1;
  });
  if (rowStart < bytes.size()) builder.EndPlainRow(rowStart, bytes.size());
  block.m_narrowText = std::move(bytes);
  lines->block = builder.Take();
  return true;
}

void MUDataFileBlockBuilder::Reserve(std::size_t characters, std::size_t rows, std::size_t cells) {
  if (m_block->m_isWide)
    m_block->m_wideText.reserve(characters);
  else
    m_block->m_narrowText.reserve(characters);
  m_block->m_rows.reserve(rows + 1);
  m_block->m_cellEnds.reserve(cells);
}

bool MUDataFileBlockBuilder::AppendRow(const char* begin, const char* end) {
  return AppendRowTo(m_block->m_narrowText, begin, end);
}

bool MUDataFileBlockBuilder::AppendRow(const wchar_t* begin, const wchar_t* end) {
  return AppendRowTo(m_block->m_wideText, begin, end);
}

MUDataFileBlockPtr MUDataFileBlockBuilder::Take() { return std::move(m_block); }

template <typename Char>
bool MUDataFileBlockBuilder::AppendRowTo(MUPoolVector<Char>& text, const Char* begin,
                                         const Char* end) {
  const std::size_t textStart = text.size();
  if (static_cast<std::size_t>(end - begin) > (LARGEST_OFFSET - textStart) / LONGEST_VISIBLE_FORM) {
    return false;
  }
  MUPoolVector<std::uint32_t>& ends = m_block->m_cellEnds;
  if (begin != end) {
    // As MUForEachCell splits, but with the text copied in as long pieces as can be.
    while (end != begin && end[-1] == Char('\t')) --end;
    const Char* piece = begin;
    ForEachControlCharacter(begin, end, [&](const Char* at) {
      if (*at == Char('\t')) {
        const std::size_t length = text.size() - textStart + static_cast<std::size_t>(at - piece);
        ends.push_back(static_cast<std::uint32_t>(length));
      } else {
        text.insert(text.end(), piece, at);
        piece = MUAppendVisibleForm(at, end, text);
      }
    });
    text.insert(text.end(), piece, end);
    ends.push_back(static_cast<std::uint32_t>(text.size() - textStart));
  }
  EndRow(textStart);
  return true;
}

// The cells but the last one have been recorded, those that are dropped from the line's end included.
void MUDataFileBlockBuilder::EndPlainRow(std::size_t textStart, std::size_t textEnd) {
  MUPoolVector<std::uint32_t>& ends = m_block->m_cellEnds;
  if (textEnd != textStart) ends.push_back(static_cast<std::uint32_t>(textEnd - textStart));
  while (ends.size() > m_firstCell + 1 && ends.back() == ends[ends.size() - 2] + 1) ends.pop_back();
  EndRow(textStart);
}

void MUDataFileBlockBuilder::EndRow(std::size_t textStart) {
  m_block->m_rows.back().textStart = static_cast<std::uint32_t>(textStart);
  m_firstCell = m_block->m_cellEnds.size();
  m_block->m_rows.push_back({0, static_cast<std::uint32_t>(m_firstCell)});
}
