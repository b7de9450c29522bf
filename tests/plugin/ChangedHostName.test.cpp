// The machine's rules under a host name that was really changed, in a namespace of its own.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "plugin/HostProbes.h"
#include "tests/support/Process.h"

namespace {

// The exit status of a process that asks its questions under that name.
int StatusUnderHostName(const char* name, int (*questions)()) {
  const pid_t child = fork();
  if (child == 0) {
    const int status = Tests::TakeHostName(name);
    _exit(status != 0 ? status : questions());
  }
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(ChangedHostName, DecidesWhichMachineThisIs) {
  const int status = StatusUnderHostName("pre-Om-TestBox-post", [] {
    if (!Halvex::CurrSystemMatchesLocalHostName(wxT("om-testbox"))) return 1;
    if (Halvex::CurrSystemMatchesLocalHostName(wxT("om-build-server"))) return 2;
    return 0;
  });
  if (status == Tests::NOT_PERMITTED) GTEST_SKIP() << "no namespace of its own is permitted here";
  EXPECT_EQ(status, 0);
}

TEST(ChangedHostName, MayBeAsLongAsTheSystemAllows) {
  const int status =
      StatusUnderHostName("aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaom-build-server", [] {
        if (!Halvex::CurrSystemMatchesLocalHostName(wxT("OM-BUILD-SERVER"))) return 1;
        return 0;
      });
  if (status == Tests::NOT_PERMITTED) GTEST_SKIP() << "no namespace of its own is permitted here";
  EXPECT_EQ(status, 0);
}

}  // namespace
