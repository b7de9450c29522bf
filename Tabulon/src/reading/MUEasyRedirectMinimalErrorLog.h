// A log target that keeps the messages instead of showing them.
#ifndef OMBRELIA_TABULON_SRC_READING_MUEASYREDIRECTMINIMALERRORLOG_H
#define OMBRELIA_TABULON_SRC_READING_MUEASYREDIRECTMINIMALERRORLOG_H

#include <wx/log.h>
#include <wx/string.h>

#include <list>

// Effect: collects what is logged while it is the active target (see MUActiveLogTarget). Debug and trace messages are
// not kept.
// Cost: a copy of each message.
// Lifetime: it must outlive its time as the target.
// Threads: one. Other threads' messages reach it when the library hands them to the main thread.
// Failure: throws std::bad_alloc.
class MUEasyRedirectMinimalErrorLog : public wxLog {
 public:
  MUEasyRedirectMinimalErrorLog() : m_wasCollected(false) {}

  // The messages logged since the collection before this one, in their order, without time or level. Borrowed until
  // the next message.
  const std::list<wxString>& CollectMessages();

 protected:
  // The library calls this for every message; it no longer calls DoLogString by itself.
  void DoLogRecord(wxLogLevel level, const wxString& message, const wxLogRecordInfo& info) override;
  // time: seconds since 1970, not kept.
  virtual void DoLogString(const wchar_t* message, long time);
#if WXWIN_COMPATIBILITY_2_8
  using wxLog::DoLogString;
#endif

 private:
  std::list<wxString> m_messages;
  bool m_wasCollected;  // the next message begins a new list
};

// Effect: makes a log the active target as long as this lives, and then puts the former one back. On the main thread
// that is the target of the whole process, on another one that thread's alone.
// Cost: an exchange of two pointers.
// Lifetime: borrows the log.
// Threads: the one that made it must destroy it.
// Failure: none.
class MUActiveLogTarget {
 public:
  explicit MUActiveLogTarget(wxLog* target);
  ~MUActiveLogTarget();
  MUActiveLogTarget(const MUActiveLogTarget&) = delete;
  MUActiveLogTarget& operator=(const MUActiveLogTarget&) = delete;

 private:
  wxLog* m_former;
};

#endif
