// Finds the line ends of a text.
#ifndef OMBRELIA_TABULON_SRC_READING_MULINEENDS_H
#define OMBRELIA_TABULON_SRC_READING_MULINEENDS_H

#include <algorithm>
#include <cstddef>
#include <string>

// Effect: walks over the carriage returns and line feeds of the text [begin, end), front to back.
// Cost: the whole walk looks at each character twice at most, however the two are mixed.
// Lifetime: borrows the text.
// Threads: one at a time.
// Failure: none.
template <typename CHAR>
class MULineEnds {
 public:
  MULineEnds(const CHAR* begin, const CHAR* end)
      : m_end(end), m_feed(Find(begin, CHAR('\n'))), m_return(Find(begin, CHAR('\r'))) {}

  // The first line feed at or after from, or the text's end. from never steps back from one call to the next.
  const CHAR* NextFeed(const CHAR* from) {
    if (m_feed < from) m_feed = Find(from, CHAR('\n'));
    return m_feed;
  }
  // The same for carriage returns.
  const CHAR* NextReturn(const CHAR* from) {
    if (m_return < from) m_return = Find(from, CHAR('\r'));
    return m_return;
  }
  // The same for either of them.
  const CHAR* Next(const CHAR* from) { return std::min(NextFeed(from), NextReturn(from)); }

 private:
  const CHAR* Find(const CHAR* from, CHAR character) const {
    const CHAR* const found =
        std::char_traits<CHAR>::find(from, static_cast<std::size_t>(m_end - from), character);
    return found != nullptr ? found : m_end;
  }

  const CHAR* const m_end;
  const CHAR* m_feed;
  const CHAR* m_return;
};

#endif
