// Free functions that the readers and the table share.
//
// Cost: one pass over what is given, unless said otherwise. Lifetime: arguments are borrowed for the call, and
// results are the caller's. Threads: any number, but one at a time for the timers. Failure: throws std::bad_alloc
// for want of memory; any text, number or name is allowed.
#ifndef OMBRELIA_TABULON_SRC_TEXT_MUUTILITARIANFUNCTIONS_H
#define OMBRELIA_TABULON_SRC_TEXT_MUUTILITARIANFUNCTIONS_H

#include <wx/datetime.h>
#include <wx/string.h>

#include <list>
#include <map>

class wxFileName;

namespace MUUtilitarianFunctions {

// "first" to "tenth", translated when the library loads.
extern const wxString MUUTIL_WRITTEN_ORDINAL_NUMBER_TEXT[10];

// The running timers of TimeMeProductionRelease by key, without a lock.
extern std::map<wxString, wxDateTime> theMUUtilitarianFunctionsLookupMap;

// The name, changed so that it can stand beside the existing ones. If no existing name equals it without regard
// to case, it stays as it is. Otherwise number signs are appended: the first count that is free above the
// smallest count in use. Walks the whole list; for many names see MUUniqueNameIndex.
wxString GetUniqueNameToInsertForGivenListContents(const wxString& name,
                                                   const std::list<wxString>& existing);

// Runs fixed cases; asserts in builds that keep assertions and always returns true.
bool TestFunction_GetUniqueNameToInsertForGivenListContents();

// Makes non-printing characters visible, in place: an escape before '@' to '_' becomes "0x1B 0x5b"
// (for '['), 1 to 31 the caret form such as "^J", 127 "^?", and 128 to 159 "0x80" to "0x9f".
void TranslateControlChars(wxString& text);

// "first" to "ninth" for 1 to 9; for any other number its decimal digits.
wxString GetWrittenOrdinalTextForInteger(unsigned int number);

// The directory's path with volume and final separator, if the full path of name is an existing
// directory; otherwise that of the current working directory.
wxString GetFullDirPathWithFinalSeparator(const wxFileName& name);

// True if a comes before b by wxString::compare.
bool StringLessFunction(const wxString& a, const wxString& b);

// The low 16 bits, or all 32, as ones and zeros, most significant first, in groups of four.
wxString GetBitString16Bits(unsigned int value);
wxString GetBitString32Bits(unsigned int value);

// Developer tools; they do nothing in production.
void DebugMessageWithMilliseconds(const wxString& message);
void TimeMeDebug(bool start, wxString key, unsigned long* elapsed);

// A stopwatch for each key. With start true it starts, unless it runs already, and elapsed may be null. With
// start false it ends, and *elapsed becomes the milliseconds since its start, or all ones if it did not run.
void TimeMeProductionRelease(bool start, wxString key, unsigned long* elapsed);

// True if the list is in ascending order.
bool VerifyThatSTDListOfIntIsSorted(const std::list<int>& values);
bool VerifyThatSTDListOfULongIsSorted(const std::list<unsigned long>& values);

}  // namespace MUUtilitarianFunctions

#endif
