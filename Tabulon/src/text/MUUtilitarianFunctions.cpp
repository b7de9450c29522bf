#include "Tabulon/src/text/MUUtilitarianFunctions.h"

#include <wx/debug.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/intl.h>

#include <algorithm>
#include <deque>
#include <string>
#include <vector>

#include "Tabulon/src/text/MUCellSplitting.h"

namespace MUUtilitarianFunctions {

namespace {

// Above any number of signs that a name can have; ends the search for a gap.
const std::size_t MORE_SIGNS_THAN_ANY_NAME = 1000000000;

wxString GroupsOfBits(unsigned int value, int bits) {
  wxString text;
  for (int bit = bits - 1; bit >= 0; --bit) {
    text += (value >> bit & 1u) ? wxT('1') : wxT('0');
    if (bit % 4 == 0 && bit != 0) text += wxT(' ');
  }
  return text;
}

template <typename NUMBER>
bool IsSorted(const std::list<NUMBER>& values) {
  std::deque<NUMBER> sorted(values.begin(), values.end());
  std::sort(sorted.begin(), sorted.end());
  return std::equal(values.begin(), values.end(), sorted.begin());
}

}  // namespace

const wxString MUUTIL_WRITTEN_ORDINAL_NUMBER_TEXT[10] = {
    wxGetTranslation(wxT("first")),   wxGetTranslation(wxT("second")),
    wxGetTranslation(wxT("third")),   wxGetTranslation(wxT("fourth")),
    wxGetTranslation(wxT("fifth")),   wxGetTranslation(wxT("sixth")),
    wxGetTranslation(wxT("seventh")), wxGetTranslation(wxT("eighth")),
    wxGetTranslation(wxT("ninth")),   wxGetTranslation(wxT("tenth"))};

std::map<wxString, wxDateTime> theMUUtilitarianFunctionsLookupMap;

wxString GetUniqueNameToInsertForGivenListContents(const wxString& name,
                                                   const std::list<wxString>& existing) {
  bool exactMatchFound = false;
  std::vector<std::size_t> usedCounts;
  const wxString upperName = name.Upper();
  for (const wxString& entry : existing) {
    if (!exactMatchFound && entry.CmpNoCase(name) == 0) {
      exactMatchFound = true;
      continue;
    }
    wxString rest;
    if (entry.Upper().StartsWith(upperName, &rest) &&
        rest.find_first_not_of(wxT('#')) == wxString::npos) {
      usedCounts.push_back(rest.length());
    }
  }
  if (!exactMatchFound) return name;
  if (usedCounts.empty()) return name + wxT('#');

  usedCounts.push_back(MORE_SIGNS_THAN_ANY_NAME);
  std::sort(usedCounts.begin(), usedCounts.end());
  const auto gap =
      std::adjacent_find(usedCounts.begin(), usedCounts.end(),
                         [](std::size_t lower, std::size_t upper) { return upper - lower >= 2; });
  return name + wxString(wxT('#'), *gap + 1);
}

bool TestFunction_GetUniqueNameToInsertForGivenListContents() {
  std::list<wxString> names = {wxT("Kodiak"), wxT("Cheetah"), wxT("Puma"),  wxT("Ubuntu"),
                               wxT("SUSE"),   wxT("Fedora"),  wxT("Debian")};
  const struct {
    const wchar_t* asked;
    const wchar_t* answer;
  } cases[] = {
      {L"Lion", L"Lion"},
      {L"Lion", L"Lion#"},
      {L"Lion", L"Lion##"},
      {L"Lion######a####", L"Lion######a####"},
      {L"Lion###########", L"Lion###########"},
      {L"Lion", L"Lion###"},
      {L"", L""},
      {L"", L"#"},
      {L"#", L"##"},
      {L"#", L"###"},
      {L"", L"####"},
  };
  for (const auto& one : cases) {
    names.push_back(GetUniqueNameToInsertForGivenListContents(one.asked, names));
    wxASSERT(names.back() == one.answer);
  }
  return true;
}

void TranslateControlChars(wxString& text) {
  const auto wide = text.wc_str();
  const wchar_t* begin = wide;
  const wchar_t* end = begin + text.length();
  const wchar_t* control = std::find_if(begin, end, MUIsControlCharacter<wchar_t>);
  if (control == end) return;
  std::wstring visible;
  while (control != end) {
    visible.append(begin, control);
    begin = MUAppendVisibleForm(control, end, visible);
    control = std::find_if(begin, end, MUIsControlCharacter<wchar_t>);
  }
  visible.append(begin, end);
  text = wxString(visible.data(), visible.size());
}

wxString GetWrittenOrdinalTextForInteger(unsigned int number) {
  if (number >= 1 && number <= 9) return MUUTIL_WRITTEN_ORDINAL_NUMBER_TEXT[number - 1];
  return wxString::Format(wxT("%u"), number);
}

wxString GetFullDirPathWithFinalSeparator(const wxFileName& name) {
  const wxString path = name.GetFullPath();
  const wxString directory = wxDirExists(path) ? path : wxGetCwd();
  return wxFileName::DirName(directory).GetPath(wxPATH_GET_VOLUME | wxPATH_GET_SEPARATOR);
}

bool StringLessFunction(const wxString& a, const wxString& b) { return a.compare(b) < 0; }

wxString GetBitString16Bits(unsigned int value) { return GroupsOfBits(value, 16); }

wxString GetBitString32Bits(unsigned int value) { return GroupsOfBits(value, 32); }

void DebugMessageWithMilliseconds(const wxString&) {}

void TimeMeDebug(bool, wxString, unsigned long*) {}

void TimeMeProductionRelease(bool start, wxString key, unsigned long* elapsed) {
  const wxDateTime now = wxDateTime::UNow();
  if (start) {
    theMUUtilitarianFunctionsLookupMap.insert({key, now});
    return;
  }
  const auto timer = theMUUtilitarianFunctionsLookupMap.find(key);
  if (timer == theMUUtilitarianFunctionsLookupMap.end()) {
    *elapsed = static_cast<unsigned long>(-1);
    return;
  }
  *elapsed = static_cast<unsigned long>((now - timer->second).GetMilliseconds().GetValue());
  theMUUtilitarianFunctionsLookupMap.erase(timer);
}

bool VerifyThatSTDListOfIntIsSorted(const std::list<int>& values) { return IsSorted(values); }

bool VerifyThatSTDListOfULongIsSorted(const std::list<unsigned long>& values) {
  return IsSorted(values);
}

}  // namespace MUUtilitarianFunctions
