#include <gtest/gtest.h>

#include "Tabulon/src/reading/MUEasyRedirectMinimalErrorLog.h"

namespace {

using Messages = std::list<wxString>;

TEST(RedirectedLog, KeepsMessagesSinceTheLastCollection) {
  MUEasyRedirectMinimalErrorLog log;
  wxLog* const before = wxLog::GetActiveTarget();
  {
    const MUActiveLogTarget redirection(&log);
    EXPECT_EQ(&log, wxLog::GetActiveTarget());
    wxLogError(wxT("one"));
    wxLogWarning(wxT("two %d"), 2);
    EXPECT_EQ((Messages{wxT("one"), wxT("two 2")}), log.CollectMessages());
    EXPECT_EQ((Messages{wxT("one"), wxT("two 2")}), log.CollectMessages());
    wxLogError(wxT("three"));
    wxLogMessage(wxT("four"));
    EXPECT_EQ((Messages{wxT("three"), wxT("four")}), log.CollectMessages());
  }
  EXPECT_EQ(before, wxLog::GetActiveTarget());
}

class CountingLog : public MUEasyRedirectMinimalErrorLog {
 public:
  int m_strings = 0;

 protected:
  void DoLogString(const wchar_t* message, long time) override {
    ++m_strings;
    EXPECT_STREQ(L"word for word", message);
    EXPECT_GT(time, 0);
    MUEasyRedirectMinimalErrorLog::DoLogString(message, time);
  }
};

TEST(RedirectedLog, PassesMessagesThroughDoLogString) {
  CountingLog log;
  {
    const MUActiveLogTarget redirection(&log);
    wxLogError(wxT("word for word"));
  }
  EXPECT_EQ(1, log.m_strings);
  EXPECT_EQ(Messages{wxT("word for word")}, log.CollectMessages());
}

}  // namespace
