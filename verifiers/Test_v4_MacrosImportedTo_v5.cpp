#include "framework/ExpectedCells.h"
#include "framework/TestCaseWithFullColumnStringComp_T.h"

namespace Ombrelia {

namespace {

const wxString FOCUS_OF_THIS_TEST = wxT("import_v4_macros.om4");

// A block whose rows cycle through the four list items. Trial names begin with the stem.
struct Block {
  wxString name;
  int rows;
  wxString trialStem;
};

// A block's name says what its macro has to do, and where that differs from version 4 on purpose.
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

struct ExpectedColumns {
  std::vector<wxString> blockNames;
  std::vector<wxString> trialNames;
  std::vector<wxString> eventNames;
};

ExpectedColumns MakeExpectedColumns() {
  const wxString listOfFour[] = {wxT("size_four_list (1, a)"), wxT("size_four_list (2, b)"),
                                 wxT("size_four_list (3, c)"), wxT("size_four_list (4, d)")};
  ExpectedCells blocks;
  ExpectedCells trials;
  ExpectedCells events;
  for (const Block& block : Blocks()) {
    for (int row = 0; row < block.rows; ++row) {
      const int item = row % 4;
      blocks.Add(block.name);
      trials.Add(wxString::Format(wxT("%s, %d"), block.trialStem, item + 1));
      events.Add(listOfFour[item]);
    }
  }
  // In the last block an action presents its event after each trial but the last.
  blocks.Repeat(11, wxT("repeated block"));
  trials.Repeat(2, wxT("size_four_list 7, 1"))
      .Repeat(2, wxT("size_four_list 7, 2"))
      .Repeat(2, wxT("size_four_list 7, 3"))
      .Repeat(2, wxT("size_four_list 7, 4"))
      .Repeat(2, wxT("size_four_list 7, 1"))
      .Add(wxT("size_four_list 7, 2"));
  events.AddAll({wxT("size_four_list (1, a)"), wxT("actions event"), wxT("size_four_list (2, b)"),
                 wxT("actions event"), wxT("size_four_list (3, c)"), wxT("actions event"),
                 wxT("size_four_list (4, d)"), wxT("actions event"), wxT("size_four_list (1, a)"),
                 wxT("actions event"), wxT("size_four_list (2, b)")});
  return {blocks.Cells(), trials.Cells(), events.Cells()};
}

const ExpectedColumns& GetExpectedColumns() {
  static const ExpectedColumns columns = MakeExpectedColumns();
  return columns;
}

}  // namespace

class Test_v4_MacrosImportedTo_v5
    : public TestCaseWithFullColumnStringComp_T<Test_v4_MacrosImportedTo_v5> {
 public:
  Test_v4_MacrosImportedTo_v5() : TestCaseWithFullColumnStringComp_T(FOCUS_OF_THIS_TEST, false) {}

  void RunAllVerificationTests(VerificationNecessities) override {
    VerifyVerbatimColumnContent(wxT("Block\nName"), GetExpectedColumns().blockNames);
    VerifyVerbatimColumnContent(wxT("Trial\nName"), GetExpectedColumns().trialNames);
    VerifyVerbatimColumnContent(wxT("Event\nName"), GetExpectedColumns().eventNames);

    PerformDurationBoundsTest(600, 2000, true);
    PerformDurationBoundsTest_MacServer(1000, 3500);
    PerformDurationBoundsTest_SmallTestBox(3000, 6000);
    PerformBoundsTest(200, 550, EXPANSION_TIME_COLUMN_NAME, true, true);
    PerformExpansionBoundsTest_MacServer(1000, 1300);
  }
};

}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER(Test_v4_MacrosImportedTo_v5, false);
