#include "Tabulon/src/rows/MURowStore.h"

#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"

bool MURowStore::insert(unsigned long key, Row* row) {
  const std::size_t pageNumber = key / PAGE_SIZE;
  if (pageNumber >= m_pages.size()) m_pages.resize(pageNumber + 1);
  std::unique_ptr<Page>& page = m_pages[pageNumber];
  if (page == nullptr) page = std::make_unique<Page>();
  Row*& slot = page->rows[key % PAGE_SIZE];
  if (slot != nullptr) return false;
  slot = row;
  ++page->used;
  if (m_size == 0) {
    m_runs.clear();
    m_runsStand = true;
    m_runsOverlayVersion = MURowText::VersionOfOverlays();
  }
  ++m_size;
  ++m_version;
  // As rows arrive: then they are in the cache yet.
  m_runsStand = m_runsStand && (m_runs.empty() || m_runs.back().endKey <= key);
  if (m_runsStand) AppendToRuns(key, row);
  return true;
}

bool MURowStore::erase(unsigned long key) {
  if (find(key) == nullptr) return false;
  std::unique_ptr<Page>& page = m_pages[key / PAGE_SIZE];
  page->rows[key % PAGE_SIZE] = nullptr;
  if (--page->used == 0) page.reset();
  --m_size;
  ++m_version;
  m_runsStand = false;
  return true;
}

void MURowStore::clear() {
  m_pages.clear();
  m_size = 0;
  ++m_version;
  m_runsStand = false;
}

void MURowStore::AppendToRuns(unsigned long key, const Row* row) const {
  const bool isPlain = row->Block() != nullptr && !row->HasOverlay();
  const MUDataFileBlock* const block = isPlain ? row->Block() : nullptr;
  const std::size_t line = isPlain ? row->m_text.RowInBlock() : 0;
  if (!m_runs.empty()) {
    Run& last = m_runs.back();
    const bool continues = last.endKey == key && last.block == block &&
                           (!isPlain || last.firstRow + (key - last.firstKey) == line);
    if (continues) {
      ++last.endKey;
      return;
    }
  }
  m_runs.push_back({key, key + 1, block, line});
}

const std::vector<MURowStore::Run>* MURowStore::StandingRuns() const {
  return m_runsStand && m_runsOverlayVersion == MURowText::VersionOfOverlays() ? &m_runs : nullptr;
}

const std::vector<MURowStore::Run>& MURowStore::Runs() const {
  if (StandingRuns() == nullptr) {
    m_runs.clear();
    ForEach([this](unsigned long key, const Row* row) { AppendToRuns(key, row); });
    m_runsStand = true;
    m_runsOverlayVersion = MURowText::VersionOfOverlays();
  }
  return m_runs;
}

std::size_t MURowStore::FirstUsedPlaceFrom(std::size_t place) const {
  while (place < PlaceCount()) {
    const Page* page = m_pages[place / PAGE_SIZE].get();
    if (page == nullptr) {
      place = (place / PAGE_SIZE + 1) * PAGE_SIZE;
    } else if (page->rows[place % PAGE_SIZE] == nullptr) {
      ++place;
    } else {
      break;
    }
  }
  return place;
}
