#include "Tabulon/src/text/MUUniqueNameIndex.h"

#include <algorithm>

namespace {

// npos plus 1 is 0: a name of signs alone has an empty stem.
std::size_t StemLength(const wxString& name) { return name.find_last_not_of(wxT('#')) + 1; }
wxString StemOf(const wxString& name) { return name.Left(StemLength(name)); }
std::size_t SignsOf(const wxString& name) { return name.length() - StemLength(name); }

}  // namespace

void MUUniqueNameIndex::Clear() {
  m_names.clear();
  m_first.clear();
  m_counted = 0;
  m_countsByUpperStem.clear();
}

void MUUniqueNameIndex::Add(const wxString& name) {
  m_first.emplace(Caseless(StemOf(name).Lower(), SignsOf(name)), m_names.size());
  m_names.push_back(name);
}

wxString MUUniqueNameIndex::AddUniqueForm(const wxString& name) {
  const auto [place, isNew] =
      m_first.emplace(Caseless(StemOf(name).Lower(), SignsOf(name)), m_names.size());
  if (isNew) {
    m_names.push_back(name);
    return name;
  }
  const wxString unique = FormBeside(m_names[place->second], name);
  Add(unique);
  return unique;
}

void MUUniqueNameIndex::CountNewNames() {
  for (; m_counted < m_names.size(); ++m_counted) {
    const std::size_t signs = SignsOf(m_names[m_counted]);
    SignCounts& counts = m_countsByUpperStem[StemOf(m_names[m_counted]).Upper()];
    const auto place =
        std::lower_bound(counts.begin(), counts.end(), std::make_pair(signs, std::size_t{0}));
    if (place != counts.end() && place->first == signs)
      ++place->second;
    else
      counts.insert(place, {signs, 1});
  }
}

// taken: the first name that is equal without regard to case.
wxString MUUniqueNameIndex::FormBeside(const wxString& taken, const wxString& name) {
  CountNewNames();
  const std::size_t signs = SignsOf(name);
  const wxString oneMore = name + wxT('#');
  const auto group = m_countsByUpperStem.find(StemOf(name).Upper());
  if (group == m_countsByUpperStem.end()) return oneMore;
  const SignCounts& counts = group->second;
  auto smallest =
      std::lower_bound(counts.begin(), counts.end(), std::make_pair(signs, std::size_t{0}));
  // The exact match itself does not count as used.
  const bool takenIsInGroup = StemOf(taken).Upper() == group->first;
  if (takenIsInGroup && smallest->second == 1) ++smallest;
  if (smallest == counts.end()) return oneMore;

  // The first gap: counts ascend, so as far as there is none they keep step with their places.
  const auto afterRun = std::partition_point(smallest, counts.end(), [smallest](const auto& count) {
    const auto steps = static_cast<std::size_t>(&count - &*smallest);
    return count.first == smallest->first + steps;
  });
  const std::size_t free = std::prev(afterRun)->first + 1 - signs;
  return name + wxString(wxT('#'), free);
}
