// The host's name that verifiers see in a test program.
#ifndef OMBRELIA_TESTS_SUPPORT_HOSTNAMEIS_H
#define OMBRELIA_TESTS_SUPPORT_HOSTNAMEIS_H

#include <wx/string.h>

#include <string>

namespace Tests {

// Host names of the four kinds of machine that bounds tell apart, whatever texts are configured.
extern const char* const ORDINARY_MACHINE;
extern const char* const SERVER_MACHINE;   // its name holds the large build server's text
extern const char* const TESTBOX_MACHINE;  // its name holds the small test machine's text
extern const char* const BOTH_MACHINES;    // its name holds both

// Sets the host's name for the life of the object; then the former one holds again. Without an object
// it is ORDINARY_MACHINE.
class HostNameIs {
 public:
  explicit HostNameIs(const std::string& name);
  ~HostNameIs();
  HostNameIs(const HostNameIs&) = delete;
  HostNameIs& operator=(const HostNameIs&) = delete;

 private:
  wxString m_former;
};

}  // namespace Tests

#endif
