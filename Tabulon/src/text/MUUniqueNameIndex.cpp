#include "Tabulon/src/text/MUUniqueNameIndex.h"

#include <algorithm>

namespace {

// A name is its stem and the number of signs at its end.
std::pair<wxString, std::size_t> SplitOffSigns(const wxString& name) {
  // npos plus 1 is 0: a name of signs alone has an empty stem.
  const std::size_t stemLength = name.find_last_not_of(wxT('#')) + 1;
  return {name.Left(stemLength), name.length() - stemLength};
}

}  // namespace

void MUUniqueNameIndex::Clear() {
  m_countsByUpperStem.clear();
  m_firstByLowerStem.clear();
}

void MUUniqueNameIndex::Add(const wxString& name) {
  const auto [stem, signs] = SplitOffSigns(name);
  const wxString upperStem = stem.Upper();
  m_firstByLowerStem.emplace(std::make_pair(stem.Lower(), signs), upperStem);
  SignCounts& counts = m_countsByUpperStem[upperStem];
  const auto place =
      std::lower_bound(counts.begin(), counts.end(), std::make_pair(signs, std::size_t{0}));
  if (place != counts.end() && place->first == signs)
    ++place->second;
  else
    counts.insert(place, {signs, 1});
}

wxString MUUniqueNameIndex::UniqueForm(const wxString& name) const {
  const auto [stem, signs] = SplitOffSigns(name);
  const auto exactMatch = m_firstByLowerStem.find({stem.Lower(), signs});
  if (exactMatch == m_firstByLowerStem.end()) return name;

  const wxString oneMore = name + wxT('#');
  const auto group = m_countsByUpperStem.find(stem.Upper());
  if (group == m_countsByUpperStem.end()) return oneMore;
  const SignCounts& counts = group->second;
  auto smallest =
      std::lower_bound(counts.begin(), counts.end(), std::make_pair(signs, std::size_t{0}));
  // The exact match itself does not count as used.
  const bool exactMatchIsInGroup = exactMatch->second == group->first;
  if (exactMatchIsInGroup && smallest->second == 1) ++smallest;
  if (smallest == counts.end()) return oneMore;

  // The first gap: counts ascend, so as far as there is none they keep step with their places.
  const auto afterRun = std::partition_point(smallest, counts.end(), [smallest](const auto& count) {
    const auto steps = static_cast<std::size_t>(&count - &*smallest);
    return count.first == smallest->first + steps;
  });
  const std::size_t free = std::prev(afterRun)->first + 1 - signs;
  return name + wxString(wxT('#'), free);
}
