#include "host/run/AssertionForwarder.h"

#include <utility>

namespace OmbreliaHost {

namespace {

// The handler is a plain function, so the one object must be known beside it.
AssertionForwarder* installed = nullptr;

}  // namespace

AssertionForwarder::AssertionForwarder()
    : m_formerHandler(wxSetAssertHandler(&OnAssertion)), m_plugin(nullptr), m_forwarding(false) {
  installed = this;
}

AssertionForwarder::~AssertionForwarder() {
  installed = nullptr;
  wxSetAssertHandler(m_formerHandler);
}

void AssertionForwarder::ForwardTo(Ombrelia::Interface_DataHookPlugin* plugin) {
  m_plugin = plugin;
  if (m_plugin == nullptr) return;
  for (const wxString& text : std::exchange(m_waiting, {})) Forward(text);
}

void AssertionForwarder::OnAssertion(const wxString& file, int line, const wxString& function,
                                     const wxString& condition, const wxString& message) {
  wxString text = wxString::Format(wxT("%s(%d): assert \"%s\" failed in %s()"), file, line,
                                   condition, function);
  if (!message.empty()) text += wxT(": ") + message;
  installed->Forward(text);
}

void AssertionForwarder::Forward(const wxString& text) {
  // An assertion that fails while the plug-in records another one would come back here for ever.
  if (m_forwarding) return;
  if (m_plugin == nullptr) {
    m_waiting.push_back(text);
    return;
  }
  m_forwarding = true;
  ++m_forwarded;
  m_plugin->LogAssertionFailureAsTestFailure(text);
  m_forwarding = false;
}

}  // namespace OmbreliaHost
