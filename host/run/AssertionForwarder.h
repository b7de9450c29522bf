// Turns failures of wx assertions into failing tests, as the host does.
#ifndef OMBRELIA_HOST_RUN_ASSERTIONFORWARDER_H
#define OMBRELIA_HOST_RUN_ASSERTIONFORWARDER_H

#include <wx/debug.h>
#include <wx/string.h>

#include <cstddef>
#include <vector>

#include "plugin/Interface_DataHookPlugin.h"

namespace OmbreliaHost {

// Installs the handler for its own life; one at a time. Assertions that fail while no plug-in is there,
// as during its loading, wait for it: the default handler would end the process.
class AssertionForwarder {
 public:
  AssertionForwarder();
  ~AssertionForwarder();
  AssertionForwarder(const AssertionForwarder&) = delete;
  AssertionForwarder& operator=(const AssertionForwarder&) = delete;

  // plugin: borrowed; null from the moment on at which it takes no more results.
  void ForwardTo(Ombrelia::Interface_DataHookPlugin* plugin);

  // How many the plug-in was told so far.
  std::size_t Forwarded() const { return m_forwarded; }

 private:
  static void OnAssertion(const wxString& file, int line, const wxString& function,
                          const wxString& condition, const wxString& message);
  void Forward(const wxString& text);

  wxAssertHandler_t m_formerHandler;
  Ombrelia::Interface_DataHookPlugin* m_plugin;
  std::vector<wxString> m_waiting;
  bool m_forwarding;
  std::size_t m_forwarded = 0;
};

}  // namespace OmbreliaHost

#endif
