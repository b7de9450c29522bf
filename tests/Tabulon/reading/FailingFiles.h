// Lets the reads and the closing of files fail, and the library's fatal path come back.
#ifndef OMBRELIA_TESTS_TABULON_READING_FAILINGFILES_H
#define OMBRELIA_TESTS_TABULON_READING_FAILINGFILES_H

namespace ReaderBench {

// As long as it lives, reads and closings of the library's files fail with EIO, after the first few reads.
class FailingFiles {
 public:
  explicit FailingFiles(int goodReads, bool closingFails);
  ~FailingFiles();
  FailingFiles(const FailingFiles&) = delete;
  FailingFiles& operator=(const FailingFiles&) = delete;
};

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
