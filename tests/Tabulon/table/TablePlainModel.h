// The table once more, made as simply as possible: plain records, plain loops, no shared storage.
#ifndef OMBRELIA_TESTS_TABULON_TABLE_TABLEPLAINMODEL_H
#define OMBRELIA_TESTS_TABULON_TABLE_TABLEPLAINMODEL_H

#include <list>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace Tests {

using Strings = std::vector<std::string>;

struct PlainFile {
  std::string path;
  bool good = true;
  Strings columns;
  std::vector<Strings> rows;  // a row may be shorter than the columns
};

enum class PlainSet { Shown, All, Active };

class PlainTable {
 public:
  struct Row {
    unsigned long key = 0;
    unsigned flags = 0;
    std::map<std::string, std::string> cells;    // with the path of the file under "FFFFF1"
    std::map<std::string, std::string> reached;  // the cells that stand on the line itself
    bool emptyLine = false;  // has sort keys after all: zeros, under the empty name
    std::size_t allIndex = NONE;
    std::size_t activeIndex = NONE;
    std::size_t shownIndex = NONE;
  };
  struct Column {
    std::string name;
    unsigned flags = 0;
    std::vector<std::pair<std::string, bool>> files;  // and whether the file's share is suppressed
  };
  using Request = std::pair<std::string, bool>;
  using Requests = std::vector<Request>;
  using Keys = std::vector<unsigned long>;
  static constexpr std::size_t NONE = static_cast<std::size_t>(-1);

  explicit PlainTable(const std::vector<PlainFile>& disk) : m_disk(disk) {}

  // ---- Changes
  bool Add(const std::string& path, bool notify);
  bool AddWithoutViewer(const std::string& path);
  void AddAndRemove(const Requests& requests);
  void SuppressAndUnsuppress(const Requests& requests);
  void SuppressColumns(const Strings& paths);
  void UnsuppressColumns(const Strings& paths);
  void RemoveColumns(const Strings& paths);
  void HideRow(std::size_t shownRow);
  void UnhideRows();
  void SetColumnHidden(const std::string& name, bool hidden);
  void Move(const std::string& moved, const std::string& before);
  int HideEmpty();
  void SetFlag(long shownRow, bool value);
  bool Flag(long shownRow) const;
  void Sort(const std::string& name, bool reverse);
  void Revert();
  void Delete(const std::string& field, const Strings& values, bool notify);
  void Notification();
  void Idle();
  void Slice();

  // ---- Answers
  int RowCount() const { return static_cast<int>(shownCount); }
  std::string Cell(long row, long column) const;
  const Row* RowAt(std::size_t index, PlainSet set) const;
  Strings Distinct(const std::string& column, PlainSet set, bool trim);
  Strings Where(const std::string& x, const std::string& y, const std::string& z, bool all);
  std::vector<std::map<std::string, std::string>> SeveralWhere(Strings xs, const std::string& y,
                                                               const std::string& z, bool all);
  Strings ColumnsByFlags(unsigned with, unsigned without);
  std::vector<std::size_t> RowsByFlag(unsigned flags, bool absent, PlainSet set);
  std::vector<std::size_t> RowsByBoth(unsigned with, unsigned without);
  // The rows whose cell has this text. Negative ends mean the outer rows.
  std::vector<std::size_t> Places(const std::string& column, const std::string& text, bool all,
                                  long first, long last);
  std::vector<std::size_t> PlacesWithin(const std::string& column, const std::string& text,
                                        const std::vector<std::size_t>& indices, bool all) const;
  int PreservedRow() const;
  int PreservedColumn() const;

  // ---- State
  std::vector<Row> rows;  // in key order
  std::vector<Column> columns;
  std::map<std::string, bool> files;
  unsigned long nextKey = 0;
  bool pending = false;
  Keys allKeys;
  Keys activeKeys;
  Keys shownKeys;
  Keys previousShownKeys;
  Strings names;
  Strings previousNames;
  std::size_t shownCount = 0;
  std::size_t columnCount = 0;
  std::vector<int> hasText;  // 0 no, 1 yes, 2 unknown
  bool searchFinished = false;
  std::string sortColumn;
  bool reverse = false;
  int notifications = 0;
  // What observers are told: shown rows and columns, active rows, last preserved row and column.
  std::vector<long> told;

 private:
  const PlainFile* FindFile(const std::string& path) const;
  Row* FindRow(unsigned long key);
  const Row* FindRow(unsigned long key) const;
  Column* FindColumn(const std::string& name);
  const Keys& KeysOf(PlainSet set) const;
  bool SortApplies();
  void Rebuild(bool sorted);

  const std::vector<PlainFile>& m_disk;
  std::map<std::string, Strings> m_strings;
  std::map<std::string, std::vector<std::map<std::string, std::string>>> m_several;
  std::map<std::string, std::vector<std::size_t>> m_byFlags;
  std::map<std::string, std::vector<std::size_t>> m_places;
};

}  // namespace Tests

#endif
