#include "framework/ExpectedCells.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("import_v4_macros.om4");

// A block whose rows go round the list of four. Trials are named after the stem.
struct Block {
  wxString name;
  int rows;
  wxString trialStem;
};

// The names of the blocks say what their macros have to do, and where that differs from the older
// version on purpose.
const std::vector<Block>& Blocks() {
  static const std::vector<Block> blocks = {
      {wxT("v4 while-true. pre-block. blk runs TWICE"), 8, wxT("size_four_list")},
      {wxT("v4 while-False. pre-block. blk runs TWICE"), 8, wxT("size_four_list")},
      {wxT("v4 while-true. pre-Trial. does 6 trials in v4, but *five* in v5. v5 is CORRECT"), 5,
       wxT("size_four_list ~|||~ 1")},
      {wxT("v4 IF-true. pre-Trial. does 2 trials in v4"), 2, wxT("size_four_list ~|||~ 2")},
      {wxT("v4 IF-False. pre-Trial. does 2 trials in v4"), 2, wxT("size_four_list ~|||~ 3")},
      {wxT("v4 while-true. post-block. blk runs TWICE"), 8, wxT("size_four_list")},
      {wxT("v4 while-true. post-Trial. does 6 trials in v4"), 6, wxT("size_four_list ~|||~ 4")},
      {wxT("v4 while-False. post-Trial. does 6 trials in v4"), 6, wxT("size_four_list ~|||~ 5")},
      {wxT("block with three never-true macros. 4 trials in v4"), 4, wxT("size_four_list 2")},
      {wxT("block with one post-trial macro"), 1, wxT("size_four_list 3")},
      {wxT("block with one post-trial macro. (copy)"), 1, wxT("size_four_list 3")},
      {wxT("b2. one post-trial macro: BREAKS in v5 due to *intentional* design/import choices"), 1,
       wxT("size_four_list 4")},
      {wxT("b2. one post-trial macro (copy)"), 1, wxT("size_four_list 4")},
      {wxT("block with single if-false macro. shows 2 trials in v4"), 2, wxT("size_four_list 5")},
      {wxT("block with single if-true macro. shows 2 trials in v4"), 2, wxT("size_four_list 6")},
  };
  return blocks;
}

// The block behind those: each of its trials but the last presents the event of an action as well.
const wxString REPEATED_BLOCK = wxT("repeated block");

const std::vector<wxString>& RepeatedBlockTrials() {
  static const std::vector<wxString> cells = {
      wxT("size_four_list 7, 1"), wxT("size_four_list 7, 1"), wxT("size_four_list 7, 2"),
      wxT("size_four_list 7, 2"), wxT("size_four_list 7, 3"), wxT("size_four_list 7, 3"),
      wxT("size_four_list 7, 4"), wxT("size_four_list 7, 4"), wxT("size_four_list 7, 1"),
      wxT("size_four_list 7, 1"), wxT("size_four_list 7, 2")};
  return cells;
}

const std::vector<wxString>& RepeatedBlockEvents() {
  static const std::vector<wxString> cells = {
      wxT("size_four_list (1, a)"), wxT("actions event"),         wxT("size_four_list (2, b)"),
      wxT("actions event"),         wxT("size_four_list (3, c)"), wxT("actions event"),
      wxT("size_four_list (4, d)"), wxT("actions event"),         wxT("size_four_list (1, a)"),
      wxT("actions event"),         wxT("size_four_list (2, b)")};
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForBlockName() {
  static const std::vector<wxString> cells = [] {
    ExpectedCells result;
    for (const Block& block : Blocks()) result.Repeat(static_cast<size_t>(block.rows), block.name);
    return result.Repeat(RepeatedBlockTrials().size(), REPEATED_BLOCK).Cells();
  }();
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForTrialName() {
  static const std::vector<wxString> cells = [] {
    ExpectedCells result;
    for (const Block& block : Blocks()) {
      for (int i = 0; i < block.rows; ++i) {
        result.Add(block.trialStem + wxString::Format(wxT(", %d"), i % 4 + 1));
      }
    }
    return result.AddAll(RepeatedBlockTrials()).Cells();
  }();
  return cells;
}

const std::vector<wxString>& GetExpectedCellValuesForEventName() {
  static const std::vector<wxString> cells = [] {
    const wxString cycle[] = {wxT("size_four_list (1, a)"), wxT("size_four_list (2, b)"),
                              wxT("size_four_list (3, c)"), wxT("size_four_list (4, d)")};
    ExpectedCells result;
    for (const Block& block : Blocks()) {
      for (int i = 0; i < block.rows; ++i) result.Add(cycle[i % 4]);
    }
    return result.AddAll(RepeatedBlockEvents()).Cells();
  }();
  return cells;
}

}  // namespace

// Macros of an experiment of the older format, attached to blocks and trials, turn into the flow that
// the names of the blocks promise.
class Test_v4_MacrosImportedTo_v5
    : public TestCaseWithFullColumnStringComp_T<Test_v4_MacrosImportedTo_v5> {
 public:
  Test_v4_MacrosImportedTo_v5() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(wxT("Block\nName"), GetExpectedCellValuesForBlockName());
    VerifyVerbatimColumnContent(wxT("Trial\nName"), GetExpectedCellValuesForTrialName());
    VerifyVerbatimColumnContent(wxT("Event\nName"), GetExpectedCellValuesForEventName());

    PerformDurationBoundsTest(600, 2000, true);
    PerformDurationBoundsTest_MacServer(1000, 3500);
    PerformDurationBoundsTest_SmallTestBox(3000, 6000);
    PerformBoundsTest(200, 550, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(1000, 1300);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_v4_MacrosImportedTo_v5, false);
