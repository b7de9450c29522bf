#include "Tabulon/src/MURowStore.h"

bool MURowStore::insert(unsigned long key, Row* row) {
  const std::size_t pageNumber = key / PAGE_SIZE;
  if (pageNumber >= m_pages.size()) m_pages.resize(pageNumber + 1);
  std::unique_ptr<Page>& page = m_pages[pageNumber];
  if (page == nullptr) page = std::make_unique<Page>();
  Row*& slot = page->rows[key % PAGE_SIZE];
  if (slot != nullptr) return false;
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
  return true;
}

void MURowStore::clear() {
  m_pages.clear();
  m_size = 0;
  ++m_version;
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
