#include "Tabulon/src/table/MUColumnTexts.h"

#include <algorithm>
#include <array>
#include <optional>

#include "Tabulon/src/rows/MUColumnReader.h"

namespace {

constexpr std::size_t ROWS_AT_ONCE = 64;
// From this part of all rows on, it is likely that the rest will be read, too.
constexpr std::size_t PART_OF_A_SCAN = 16;

// Reads one column, up to ROWS_AT_ONCE rows at a time.
class Window {
 public:
  Window(const MURowStore& rows, const std::vector<wxString>& names, std::size_t place,
         MUCellPositions& positions, const MUCellText& undefinedText)
      : m_rows(rows),
        m_names(names),
        m_place(place),
        m_positions(positions),
        m_undefinedText(undefinedText) {}

  void Read(const unsigned long* keys, std::size_t count, MUCellText* texts) {
    std::array<PlainCell, ROWS_AT_ONCE> cells;
    for (std::size_t i = 0; i < count; ++i) {
      cells[i] = Find(keys[i]);
      if (cells[i].block != nullptr) cells[i].block->PrefetchRow(cells[i].line);
    }
    for (std::size_t i = 0; i < count; ++i) {
      if (cells[i].block != nullptr) cells[i].block->PrefetchCell(cells[i].line, cells[i].position);
    }
    for (std::size_t i = 0; i < count; ++i) {
      const PlainCell& cell = cells[i];
      texts[i] =
          cell.block != nullptr ? cell.block->Cell(cell.line, cell.position) : AskRow(keys[i]);
    }
  }

 private:
  // Where a cell stands in the block of its file.
  struct PlainCell {
    const MUDataFileBlock* block = nullptr;  // null: the row has to be asked
    std::size_t line = 0;
    std::size_t position = 0;
  };

  PlainCell Find(unsigned long key) {
    m_run = m_rows.FindPlainRun(key, m_run);
    if (m_run == nullptr) return {};
    const MUDataFileBlock* const block = m_run->block.get();
    if (block != m_block) {
      m_block = block;
      m_position = m_positions.Of(*block, m_names, m_place);
    }
    if (m_position == MUCellPositions::HIDDEN) return {};
    return {block, m_run->LineOf(key), m_position};
  }

  MUCellText AskRow(unsigned long key) {
    const auto* const row = m_rows.find(key);
    if (row == nullptr) return m_undefinedText;
    if (!m_reader) m_reader.emplace(m_names[m_place]);
    return m_reader->TextOf(*row);
  }

  const MURowStore& m_rows;
  const std::vector<wxString>& m_names;
  const std::size_t m_place;
  MUCellPositions& m_positions;
  const MUCellText m_undefinedText;
  const MURowStore::Run* m_run = nullptr;
  const MUDataFileBlock* m_block = nullptr;  // the last one, and where the column is in it
  std::size_t m_position = MUCellPositions::HIDDEN;
  std::optional<MUColumnReader> m_reader;
};

}  // namespace

void MUColumnTexts::Read(const MURowStore& rows, const unsigned long* keys, std::size_t count,
                         const std::vector<wxString>& names, std::size_t place, MUCellText* texts) {
  if (const MUColumnCells* const cells = CellsForScan(rows, names[place], count)) {
    std::transform(keys, keys + count, texts,
                   [cells](unsigned long key) { return cells->TextOf(key); });
    return;
  }
  Window window(rows, names, place, m_positions, UndefinedText());
  for (std::size_t done = 0; done < count; done += ROWS_AT_ONCE) {
    window.Read(keys + done, std::min(ROWS_AT_ONCE, count - done), texts + done);
  }
}

// Null while they are not worth their making.
const MUColumnCells* MUColumnTexts::CellsForScan(const MURowStore& rows, const wxString& column,
                                                 std::size_t count) {
  if (count < ROWS_AT_ONCE) return nullptr;
  if (m_scan.column != column) m_scan = {column, 0, std::nullopt};
  if (m_scan.cells) {
    if (count < m_scan.cells->FileCount()) return nullptr;
    if (m_scan.cells->TellsTheCellsOf(rows)) return &*m_scan.cells;
    m_scan = {column, 0, std::nullopt};
  }
  m_scan.cellsRead += count;
  if (m_scan.cellsRead < rows.size() / PART_OF_A_SCAN) return nullptr;
  const auto& runs = rows.Runs();
  const bool rowsAreLines = std::all_of(
      runs.begin(), runs.end(), [](const MURowStore::Run& run) { return run.block != nullptr; });
  if (!rowsAreLines) {
    m_scan.cellsRead = 0;
    return nullptr;
  }
  m_scan.cells.emplace(rows, column, UndefinedText());
  return &*m_scan.cells;
}

MUCellText MUColumnTexts::UndefinedText() const { return MUColumnReader::ViewOf(m_undefinedText); }

void MUColumnTexts::ForgetStale(const MURowStore& rows) {
  m_positions.Clear();
  m_scan = Scan();
  m_dictionaries.DropStale(rows);
}
