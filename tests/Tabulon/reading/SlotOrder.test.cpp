// Readers and handlers may come from another library, which calls by the place of an operation in the virtual table.
#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "tests/Tabulon/reading/ReaderBench.h"

using namespace ReaderBench;

namespace {

using Calls = std::vector<std::string>;
Calls calls;

template <typename RESULT, typename... ARGUMENTS>
RESULT CallSlot(void* object, std::size_t slot, ARGUMENTS... arguments) {
  void** const table = *static_cast<void***>(object);
  return reinterpret_cast<RESULT (*)(void*, ARGUMENTS...)>(table[slot])(object, arguments...);
}

class TellingReader : public Reader {
 public:
  wxString GetExperimentTitle() const override { return Told<wxString>("title", wxT("the title")); }
  wxString GetExperimentDateTimeString() const override {
    return Told<wxString>("date", wxT("the date"));
  }
  std::uint32_t GetDataRowCount() const override { return Told<std::uint32_t>("count", 7); }
  void GoToDataRow(int row) override { calls.push_back("go to " + std::to_string(row)); }
  bool ErrorStatusIsPresent() const override { return Told<bool>("error", true); }
  std::deque<MUColumnNamePlusProperties*>* CreateAndReturnPositionallyOrderedColumnObjects()
      override {
    return Told<std::deque<MUColumnNamePlusProperties*>*>("columns", nullptr);
  }
  MUSingleRowDataPlusRowProperties* CreateAndReturnCurrentRowObject(bool advance) override {
    return Told<MUSingleRowDataPlusRowProperties*>(advance ? "row, and on" : "row", nullptr);
  }
  ~TellingReader() override { calls.push_back("destroyed"); }

  static void* operator new(std::size_t bytes) { return ::operator new(bytes); }
  static void operator delete(void* memory) {
    calls.push_back("deleted");
    ::operator delete(memory);
  }

 private:
  template <typename RESULT>
  static RESULT Told(const char* what, RESULT result) {
    calls.push_back(what);
    return result;
  }
};

TEST(SlotOrder, OfTheReadersContract) {
  calls.clear();
  TellingReader reader;
  void* const object = static_cast<Reader*>(&reader);
  EXPECT_EQ(wxT("the title"), CallSlot<wxString>(object, 0));
  EXPECT_EQ(wxT("the date"), CallSlot<wxString>(object, 1));
  EXPECT_EQ(7u, CallSlot<std::uint32_t>(object, 2));
  CallSlot<void>(object, 3, 12);
  EXPECT_TRUE(CallSlot<bool>(object, 4));
  EXPECT_EQ(nullptr, CallSlot<void*>(object, 5));
  EXPECT_EQ(nullptr, CallSlot<void*>(object, 6, true));
  EXPECT_EQ(nullptr, CallSlot<void*>(object, 6, false));
  EXPECT_EQ((Calls{"title", "date", "count", "go to 12", "error", "columns", "row, and on", "row"}),
            calls);
}

TEST(SlotOrder, OfTheReadersDestructors) {
  calls.clear();
  auto* const first = new TellingReader;
  CallSlot<void>(static_cast<Reader*>(first), 7);
  EXPECT_EQ((Calls{"destroyed"}), calls) << "the complete one";
  TellingReader::operator delete(first);
  calls.clear();
  CallSlot<void>(static_cast<Reader*>(new TellingReader), 8);
  EXPECT_EQ((Calls{"destroyed", "deleted"}), calls) << "the deleting one";
}

TEST(SlotOrder, OfTheErrorHandler) {
  RecordingHandler handler;
  std::list<Reader::DataFileInputError> reports = {
      {Reader::MU_INPUT_BAD_FORMAT, wxT("m"), wxT("p")}};
  // By value: the caller makes the copy and hands its address over.
  CallSlot<void>(static_cast<MUInterfaceDataFileInputErrorHandler*>(&handler), 0, &reports);
  EXPECT_EQ(1, handler.m_calls);
  ASSERT_EQ(1u, handler.m_reports.size());
  EXPECT_EQ(wxT("m"), handler.m_reports[0].message);
}

TEST(DataFileInputError, HoldsCodeMessageAndPathInThisOrder) {
  const Reader::DataFileInputError error{Reader::MU_INPUT_LIBRARY_MESSAGE, wxT("words"),
                                         wxT("path")};
  EXPECT_EQ(8, error.code);
  EXPECT_EQ(wxT("words"), error.message);
  EXPECT_EQ(wxT("path"), error.filePath);
  EXPECT_EQ(static_cast<const void*>(&error), &error.code);
  EXPECT_LT(static_cast<const void*>(&error.message), static_cast<const void*>(&error.filePath));
}

}  // namespace
