#include "Tabulon/src/rows/MURowStore.h"

#include <atomic>
#include <limits>
#include <utility>

#include "Tabulon/src/rows/MUSingleRowDataPlusRowProperties.h"

namespace {

// A store counts its changes in the low half of the bits; the high half is given out once.
unsigned long VersionThatNoStoreHad() {
  static std::atomic<unsigned long> versionsGiven{0};
  return ++versionsGiven << std::numeric_limits<unsigned long>::digits / 2;
}

}  // namespace

MURowStore::MURowStore(MURowStore&& other) noexcept
    : m_pages(std::move(other.m_pages)),
      m_size(std::exchange(other.m_size, 0)),
      m_version(VersionThatNoStoreHad()),
      m_runs(std::move(other.m_runs)),
      m_runsStand(other.m_runsStand) {
  other.m_version = VersionThatNoStoreHad();
}

MURowStore& MURowStore::operator=(MURowStore&& other) noexcept {
  MURowStore taken(std::move(other));
  std::swap(m_pages, taken.m_pages);
  std::swap(m_size, taken.m_size);
  std::swap(m_runs, taken.m_runs);
  std::swap(m_runsStand, taken.m_runsStand);
  m_version = VersionThatNoStoreHad();
  return *this;
}

bool MURowStore::insert(unsigned long key, Row* row) {
  const std::size_t pageNumber = key / PAGE_SIZE;
  if (pageNumber >= m_pages.size()) m_pages.resize(pageNumber + 1);
  std::unique_ptr<Page>& page = m_pages[pageNumber];
  if (page == nullptr) page = std::make_unique<Page>();
  Row*& slot = page->rows[key % PAGE_SIZE];
  if (slot != nullptr) return false;
  if (m_size == 0) {
    ForgetRuns();
    m_runsStand = true;
  }
  // As rows arrive: at this moment they are in the cache.
  if (m_runsStand && !m_runs.empty() && key < m_runs.back().endKey) ForgetRuns();
  if (m_runsStand) AppendToRuns(key, row);
  slot = row;
  ++page->used;
  ++m_size;
  ++m_version;
  return true;
}

bool MURowStore::erase(unsigned long key) {
  if (find(key) == nullptr) return false;
  std::unique_ptr<Page>& page = m_pages[key / PAGE_SIZE];
  page->rows[key % PAGE_SIZE] = nullptr;
  if (--page->used == 0) page.reset();
  --m_size;
  ++m_version;
  ForgetRuns();
  return true;
}

void MURowStore::AppendToRuns(unsigned long key, const Row* row) const {
  const bool isPlain = row->Block() != nullptr && !row->HasOverlay();
  const MUDataFileBlock* const block = isPlain ? row->Block() : nullptr;
  const std::size_t line = isPlain ? row->m_text.RowInBlock() : 0;
  const unsigned long version = isPlain ? block->VersionOfRows() : 0;
  if (!m_runs.empty()) {
    Run& last = m_runs.back();
    const bool continues = last.endKey == key && last.block == block &&
                           last.versionOfRows == version &&
                           (!isPlain || last.firstRow + (key - last.firstKey) == line);
    if (continues) {
      ++last.endKey;
      return;
    }
  }
  m_runs.push_back({key, key + 1, block, line, version});
}

// Releases the blocks, too: they are freed with their rows.
void MURowStore::ForgetRuns() const {
  m_runs.clear();
  m_runsStand = false;
}

const std::vector<MURowStore::Run>& MURowStore::Runs() const {
  const bool stand = m_runsStand && std::all_of(m_runs.begin(), m_runs.end(), [](const Run& run) {
                       return run.block == nullptr || run.IsPlain();
                     });
  if (!stand) {
    ForgetRuns();
    ForEach([this](unsigned long key, const Row* row) { AppendToRuns(key, row); });
    m_runsStand = true;
  }
  return m_runs;
}

const MURowStore::Run* MURowStore::SearchPlainRun(unsigned long key) const {
  const auto found =
      std::upper_bound(m_runs.begin(), m_runs.end(), key,
                       [](unsigned long wanted, const Run& run) { return wanted < run.endKey; });
  return found != m_runs.end() && found->Holds(key) && found->IsPlain() ? &*found : nullptr;
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
