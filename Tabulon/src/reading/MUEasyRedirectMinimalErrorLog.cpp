#include "Tabulon/src/reading/MUEasyRedirectMinimalErrorLog.h"

#include <wx/thread.h>

namespace {

// A target set for all threads hears only the main one at once.
wxLog* ExchangeTarget(wxLog* target) {
  return wxThread::IsMain() ? wxLog::SetActiveTarget(target) : wxLog::SetThreadActiveTarget(target);
}

}  // namespace

const std::list<wxString>& MUEasyRedirectMinimalErrorLog::CollectMessages() {
  m_wasCollected = true;
  return m_messages;
}

void MUEasyRedirectMinimalErrorLog::DoLogRecord(wxLogLevel level, const wxString& message,
                                                const wxLogRecordInfo& info) {
  if (level == wxLOG_Debug || level == wxLOG_Trace) {
    wxLog::DoLogRecord(level, message, info);
    return;
  }
  const auto wide = message.wc_str();
  DoLogString(wide, static_cast<long>(info.timestamp));
}

void MUEasyRedirectMinimalErrorLog::DoLogString(const wchar_t* message, long) {
  if (m_wasCollected) m_messages.clear();
  m_wasCollected = false;
  m_messages.push_back(message);
}

MUActiveLogTarget::MUActiveLogTarget(wxLog* target) : m_former(ExchangeTarget(target)) {}

MUActiveLogTarget::~MUActiveLogTarget() { ExchangeTarget(m_former); }
