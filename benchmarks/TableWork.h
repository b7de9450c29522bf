// What the benchmarks do with the table, as its users do it.
#ifndef OMBRELIA_BENCHMARKS_TABLEWORK_H
#define OMBRELIA_BENCHMARKS_TABLEWORK_H

#include <wx/string.h>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <vector>

class MUExperimentTextReaderMultiFile;
class wxFile;

namespace Bench {

using Table = MUExperimentTextReaderMultiFile;
using Files = std::vector<std::filesystem::path>;

wxString TextOf(const std::filesystem::path& path);

// The stock opening of text files, which every reader of this format starts from. Ends the program with
// a message if a file does not open, as do all of the following.
void OpenAlone(const Files& files);

// One file, seen at once; openFile may be null.
std::unique_ptr<Table> LoadOne(const std::filesystem::path& file, wxFile* openFile = nullptr);
// All files in one batch and one notification, as a viewer loads them.
std::unique_ptr<Table> LoadBatch(const Files& files);
// File by file with a notification after each.
std::unique_ptr<Table> LoadNotified(const Files& files);
// The same with a viewer's table, which overrides the steps of a load and of a notification.
std::unique_ptr<Table> LoadNotifiedIntoViewer(const Files& files);

// The column's distinct texts, and the cells of MANY_VALUES in the rows of one of the few values.
void AskDistinct(Table& table, const wxString& column);
void AskWhere(Table& table);
// Sum of the lengths of a column's cells in the order of presentation, without a separate text for
// each cell.
std::size_t ReadColumn(const Table& table, const wxString& column);
// The same through a wxString per cell.
std::size_t ReadColumnAsTexts(const Table& table, const wxString& column);

}  // namespace Bench

#endif
