// What the module of the translation tests tells: the readers' texts as a library has them that was loaded under
// a catalogue of messages.
#ifndef OMBRELIA_TESTS_TABULON_READING_TRANSLATEDTEXTS_H
#define OMBRELIA_TESTS_TABULON_READING_TRANSLATEDTEXTS_H

#include <wx/string.h>

#include <vector>

struct TranslatedTexts {
  std::vector<wxString>
      madeAtLoad;  // the translations of whole texts, in the order of the test's list
  wxString trialVariablePattern;
  std::vector<wxString> namesThatTheHostWrites;
  wxString (*heading)(int which);
  wxString (*shortNameOfFileX)();
};

extern "C" void GetTranslatedTexts(TranslatedTexts* texts);

#endif
