#include "framework/VerificationListener.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "framework/CommonTestHelperLogic.h"
#include "framework/HostNames.h"
#include "framework/RowRuns.h"
#include "framework/RowScan.h"
#include "framework/RunTimes.h"
#include "framework/StimAreaData.h"
#include "framework/VerbatimComparison.h"
#include "tests/support/RecordingPrinter.h"
#include "tests/support/Table.h"

namespace {

using Ombrelia::CommonTestHelperLogic;
using Ombrelia::RowScan;
using Ombrelia::StimAreaData;
using Ombrelia::VerificationListener;
using Calls = std::vector<std::string>;

class Listener : public VerificationListener {
 public:
  Listener() { SetCurrent(this); }
  ~Listener() override { SetCurrent(nullptr); }

  boost::shared_ptr<MUExperimentTextReaderMultiFile> NewTable() override {
    m_calls.push_back("table");
    m_table.reset(new MUExperimentTextReaderMultiFile(nullptr));
    return m_table;
  }
  bool RunsOnMachine(const wxString& hostNameText) override { return hostNameText == m_machine; }
  void OnLength(const wxString& columnName, const std::vector<wxString>& expected) override {
    m_calls.push_back("length " + Name(columnName) + Joined(expected));
  }
  void OnCells(const wxString& columnName, int firstRow,
               const std::vector<wxString>& expected) override {
    m_calls.push_back("cells " + Name(columnName) + " " + std::to_string(firstRow) +
                      Joined(expected));
  }
  void OnScan(const wxString& columnName, const RowScan& rule) override {
    m_calls.push_back("scan " + Name(columnName) + " " + std::to_string(rule.LastRow()) +
                      Joined(rule.Texts()));
    m_kind = rule.RuleKind();
    m_wantedCount = rule.WantedCount();
  }
  void OnBound(int column, int min, int max, long actual) override {
    m_calls.push_back("bound " + std::to_string(column) + " " + std::to_string(min) + " " +
                      std::to_string(max) + " " + std::to_string(actual));
  }
  void OnStimAreas(const std::vector<StimAreaData>& actual,
                   const std::vector<StimAreaData>& expected) override {
    m_calls.push_back("areas " + std::to_string(actual.size()) + " " +
                      std::to_string(expected.size()));
  }

  Calls m_calls;
  boost::shared_ptr<MUExperimentTextReaderMultiFile> m_table;
  wxString m_machine;
  RowScan::Kind m_kind = RowScan::Kind::POSITIONAL;
  int m_wantedCount = 0;

 private:
  static std::string Name(const wxString& text) { return text.ToStdString(wxConvUTF8); }
  static std::string Joined(const std::vector<wxString>& texts) {
    std::string joined;
    for (const wxString& text : texts) joined += " " + Name(text);
    return joined;
  }
};

class VerificationListenerTest : public testing::Test {
 protected:
  const boost::shared_ptr<MUExperimentTextReaderMultiFile> m_table =
      Tests::TableOf({"color", "Cumulative\nTime", "Expansion Time(ms): 12"},
                     {{"red", "5", ""}, {"blue", "9", ""}});
  Tests::RecordingPrinter m_printer;
  Listener m_listener;
};

TEST(VerificationListener, IsNotThereAtTheStart) {
  EXPECT_EQ(VerificationListener::Current(), nullptr);
}

TEST_F(VerificationListenerTest, MakesTheTable) {
  const auto table =
      CommonTestHelperLogic::GetReaderOrElseLogAnError(&m_printer, wxT("/no/file"), false);
  EXPECT_EQ(m_listener.m_calls, (Calls{"table"}));
  EXPECT_EQ(table, nullptr);
  const boost::shared_ptr<MUExperimentTextReaderMultiFile> loaded =
      Tests::TableOf({"color"}, {{"red"}});
  EXPECT_EQ(loaded, m_listener.m_table);
}

TEST_F(VerificationListenerTest, HearsTheLengthAndTheCellsOfAColumn) {
  const std::vector<wxString> expected = {wxT("red"), wxT("green")};
  Ombrelia::VerbatimComparison::CheckLength(*m_table, &m_printer, wxT("x.om4"), wxT("color"),
                                            expected);
  Ombrelia::VerbatimComparison::CheckContent(m_table, &m_printer, wxT("x.om4"), wxT("color"),
                                             expected);
  EXPECT_EQ(m_listener.m_calls, (Calls{"length color red green", "cells color 0 red green"}));
}

TEST_F(VerificationListenerTest, HearsARunOfRows) {
  Ombrelia::RunEquals(*m_table, wxT("shape"), 1, {wxT("round")});
  EXPECT_EQ(m_listener.m_calls, (Calls{"cells shape 1 round"}));
}

TEST_F(VerificationListenerTest, HearsARule) {
  RowScan::Count(wxT("red"), 3, 7).HoldsFor(*m_table, wxT("color"));
  EXPECT_EQ(m_listener.m_calls, (Calls{"scan color 7 red"}));
  EXPECT_EQ(m_listener.m_kind, RowScan::Kind::COUNT);
  EXPECT_EQ(m_listener.m_wantedCount, 3);
}

TEST_F(VerificationListenerTest, HearsBoundsOfBothTimes) {
  Ombrelia::RunTimes::CheckBounds(*m_table, &m_printer, wxT("x.om4"), 1, 8, wxT("Cumulative\nTime"),
                                  false);
  Ombrelia::RunTimes::CheckBounds(*m_table, &m_printer, wxT("x.om4"), 1, 20,
                                  Ombrelia::EXPANSION_TIME_COLUMN_NAME, true);
  EXPECT_EQ(m_listener.m_calls, (Calls{"bound 1 1 8 9", "bound 2 1 20 12"}));
}

TEST_F(VerificationListenerTest, HearsStimulusAreas) {
  const StimAreaData area = {0, 0, 1, 1, wxT("a"), 0};
  CommonTestHelperLogic::BothPlatforms_VerifySequentialStimData({area}, {area, area}, &m_printer,
                                                                wxT("somewhere"));
  EXPECT_EQ(m_listener.m_calls, (Calls{"areas 1 2"}));
}

TEST_F(VerificationListenerTest, SaysWhichMachineThisIs) {
  const auto runsOn = [this](const wxString& machine) {
    m_listener.m_machine = machine;
    return std::make_pair(Ombrelia::RunTimes::RunningOnSmallTestBox(),
                          Ombrelia::RunTimes::RunningOnMacServer());
  };
  EXPECT_EQ(runsOn(wxT("any other")), std::make_pair(false, false));
  EXPECT_EQ(runsOn(Ombrelia::SMALL_MACOSX_TESTBOX), std::make_pair(true, false));
  EXPECT_EQ(runsOn(Ombrelia::BIG_MACOSX_SERVER), std::make_pair(false, true));
}

}  // namespace
