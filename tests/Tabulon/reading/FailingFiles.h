// Lets the reads and the closing of files fail, tells when one is opened, and lets the library's fatal path come back.
#ifndef OMBRELIA_TESTS_TABULON_READING_FAILINGFILES_H
#define OMBRELIA_TESTS_TABULON_READING_FAILINGFILES_H

#include <functional>

namespace ReaderBench {

// As long as it lives, reads and closings of the library's files fail with EIO, after the first few reads.
class FailingFiles {
 public:
  explicit FailingFiles(int goodReads, bool closingFails);
  ~FailingFiles();
  FailingFiles(const FailingFiles&) = delete;
  FailingFiles& operator=(const FailingFiles&) = delete;
};

#ifdef __linux__
// Acts once, as soon as the library has opened a file and before it does anything with it.
class AfterOpening {
 public:
  explicit AfterOpening(std::function<void()> act);
  ~AfterOpening();
  AfterOpening(const AfterOpening&) = delete;
  AfterOpening& operator=(const AfterOpening&) = delete;
};
#endif

// As long as it lives, wxLogFatalError comes back instead of ending the program.
class FatalErrorsComeBack {
 public:
  FatalErrorsComeBack();
  ~FatalErrorsComeBack();
  FatalErrorsComeBack(const FatalErrorsComeBack&) = delete;
  FatalErrorsComeBack& operator=(const FatalErrorsComeBack&) = delete;

  // How many there were.
  int Count() const;
};

}  // namespace ReaderBench

#endif
