// Files that claim more than they hold, cannot be read to their end, or are more than can be held.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>
#include <wx/file.h>
#include <wx/log.h>

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <limits>

#include "Tabulon/src/machine/MUMachine.h"
#include "Tabulon/src/reading/MUConcreteExperimentDataFileTxt.h"
#include "Tabulon/src/reading/MUConcreteInMemoryDataFile.h"
#include "Tabulon/src/reading/MUFileBytes.h"
#include "Tabulon/src/rows/MUDataFileBlockBuilder.h"
#include "tests/Tabulon/reading/FailingFiles.h"
#include "tests/Tabulon/reading/ReaderBench.h"

using namespace ReaderBench;

namespace {

const std::string GOOD = Header("A\tB", "x\ty") + "1\t2\n3\t4\n";
const std::size_t GIBIBYTE = std::size_t{1} << 30;

std::string BytesOf(const BytesOnDisk& file, std::size_t expected, std::size_t most,
                    std::size_t piece) {
  wxFile open(file.Path());
  MUPoolVector<char> bytes(5, 'x');
  EXPECT_TRUE(MUReadBytes(open, expected, most, piece, &bytes));
  return std::string(bytes.begin(), bytes.end());
}

TEST(FileBytes, AreAllBytesWhateverTheFileClaims) {
  std::string bytes;
  for (int i = 0; bytes.size() < 3u << 20; ++i) bytes += std::to_string(i) + "\n";
  const BytesOnDisk file(bytes);
  for (const std::size_t expected :
       {std::size_t{0}, std::size_t{1}, std::size_t{4096}, bytes.size() - 1, bytes.size(),
        bytes.size() + 1, 3 * GIBIBYTE}) {
    ASSERT_TRUE(BytesOf(file, expected, 4 * GIBIBYTE, 4096) == bytes) << expected;
    ASSERT_TRUE(BytesOf(file, expected, 4 * GIBIBYTE, 100000000) == bytes) << expected;
  }
  for (const std::size_t most :
       {std::size_t{0}, std::size_t{1}, std::size_t{4096}, std::size_t{5000}, std::size_t{1} << 20,
        bytes.size() - 1, bytes.size()}) {
    ASSERT_TRUE(BytesOf(file, bytes.size(), most, 4096) == bytes.substr(0, most)) << most;
    ASSERT_TRUE(BytesOf(file, 0, most, 777) == bytes.substr(0, most)) << most;
  }
}

TEST(FileBytes, TakeMemoryAsTheyArrive) {
  const BytesOnDisk file(GOOD);
  wxFile open(file.Path());
  MUPoolVector<char> bytes;
  ASSERT_TRUE(MUReadBytes(open, 3 * GIBIBYTE, 3 * GIBIBYTE, 4096, &bytes));
  EXPECT_EQ(GOOD.size(), bytes.size());
  EXPECT_LE(bytes.capacity(), std::size_t{1} << 20);
}

TEST(FileBytes, AreNoneIfAReadFailsOnTheWay) {
  const BytesOnDisk file(std::string(20000, 'x'));
  wxFile open(file.Path());
  MUPoolVector<char> bytes;
  const wxLogNull silence;
  const FailingFiles failing(2, false);
  EXPECT_FALSE(MUReadBytes(open, 20000, 20000, 4096, &bytes));
  EXPECT_TRUE(bytes.empty());
}

TEST(StreamingReaderFailures, PassesOnAllMessagesOfOneOpenInTheirOrder) {
  const BytesOnDisk file(GOOD);
  RecordingHandler handler;
  {
    const FailingFiles failing(0, true);
    const MUConcreteExperimentDataFileTxt reader(file.Name(), true, &handler);
    EXPECT_TRUE(reader.ErrorStatusIsPresent());
  }
  ASSERT_EQ(1, handler.m_calls) << "one list";
  ASSERT_EQ(2u, handler.m_reports.size());
  EXPECT_TRUE(handler.m_reports[0].message.StartsWith(wxT("can't read from file descriptor ")))
      << handler.m_reports[0].message;
  EXPECT_TRUE(handler.m_reports[1].message.StartsWith(wxT("can't close file descriptor ")))
      << handler.m_reports[1].message;
  for (const Reader::DataFileInputError& report : handler.m_reports) {
    EXPECT_EQ(Reader::MU_INPUT_LIBRARY_MESSAGE, report.code);
    EXPECT_EQ(file.Path(), report.filePath);
  }
}

TEST(StreamingReaderFailures, ReportsAFileWithoutASizeThatNeverEndsAsTooLarge) {
  RecordingHandler handler;
  const MUConcreteExperimentDataFileTxt reader(wxFileName(wxT("/dev/zero")), true, &handler);
  EXPECT_TRUE(reader.ErrorStatusIsPresent());
  ASSERT_EQ(1u, handler.m_reports.size());
  EXPECT_EQ(Reader::MU_INPUT_FILE_TOO_LARGE, handler.m_reports[0].code);
  EXPECT_TRUE(handler.m_reports[0].message.StartsWith(
      wxT("File too large.  This file is 1048577 bytes in size.")));
}

TEST(StreamingReaderFailures, ReadsAFileThatClaimsToBeEmpty) {
  std::ifstream status("/proc/self/status");
  if (!status) GTEST_SKIP() << "no files that claim to be empty here";
  MUConcreteExperimentDataFileTxt reader(wxFileName(wxT("/proc/self/status")), true, nullptr);
  EXPECT_FALSE(reader.ErrorStatusIsPresent());
  EXPECT_GT(reader.GetDataRowCount(), 10u);
}

#ifdef __linux__
// Size and bytes come from one opening: the larger file that takes the name then is never seen.
TEST(StreamingReaderFailures, ReadsTheFileThatItHasOpenedWhateverTakesItsName) {
  const BytesOnDisk file(GOOD);
  const BytesOnDisk other(std::string(2u << 20, 'x'), wxT("other file.txt"));
  const AfterOpening replacing(
      [&] { ASSERT_EQ(0, std::rename(other.Path().fn_str(), file.Path().fn_str())); });
  const MUConcreteExperimentDataFileTxt reader(file.Name(), true, nullptr);
  EXPECT_FALSE(wxFileExists(other.Path()));
  EXPECT_FALSE(reader.ErrorStatusIsPresent());
  EXPECT_EQ(2u, reader.GetDataRowCount());
}
#endif

TEST(StreamingReaderFailures, ReportsAFolderInTheSameWords) {
  RecordingHandler handler;
  const MUConcreteExperimentDataFileTxt reader(wxFileName(wxGetCwd()), true, &handler);
  ASSERT_EQ(1u, handler.m_reports.size());
  EXPECT_EQ(wxT("\"") + wxGetCwd() + wxT("\" is a directory."), handler.m_reports[0].message);
}

// A file that is as long as that and holds nothing but a hole behind its first bytes.
class SparseFile {
 public:
  explicit SparseFile(off_t length, const std::string& begin = "") : m_file(begin) {
    m_isThere = ::truncate(m_file.Path().fn_str(), length) == 0;
  }
  bool IsThere() const { return m_isThere; }
  const BytesOnDisk& File() const { return m_file; }

 private:
  BytesOnDisk m_file;
  bool m_isThere;
};

// The reader of an open file, made where the fatal path comes back.
struct ReadInMemory {
  explicit ReadInMemory(const wxString& path,
                        std::size_t largestText = MUDataFileBlockBuilder::LARGEST_OFFSET) {
    const wxLogNull silence;
    wxFile open(path);
    open.Seek(1);
    Read(open, wxFileName(path), largestText);
  }
  ReadInMemory(wxFile& open, const wxFileName& name) {
    const wxLogNull silence;
    Read(open, name, MUDataFileBlockBuilder::LARGEST_OFFSET);
  }
  void Read(wxFile& open, const wxFileName& name, std::size_t largestText) {
    const FatalErrorsComeBack fatal;
    reader = std::make_unique<MUConcreteInMemoryDataFile>(&open, name, true, &handler, largestText);
    fatalErrors = fatal.Count();
    position = open.Tell();
  }

  RecordingHandler handler;
  std::unique_ptr<MUConcreteInMemoryDataFile> reader;
  int fatalErrors = 0;
  wxFileOffset position = 0;
};

void ExpectNotRead(const ReadInMemory& read) {
  EXPECT_EQ(1, read.fatalErrors);
  EXPECT_TRUE(read.reader->ErrorStatusIsPresent());
  EXPECT_EQ(0u, read.reader->GetDataRowCount());
  ASSERT_EQ(1u, read.handler.m_reports.size());
  EXPECT_EQ(Reader::MU_INPUT_BAD_FORMAT, read.handler.m_reports[0].code);
  EXPECT_EQ(wxT("missing exp name"), read.handler.m_reports[0].message);
}

TEST(InMemoryReaderFailures, LogAFatalErrorForAFolder) { ExpectNotRead(ReadInMemory(wxGetCwd())); }

TEST(InMemoryReaderFailures, LogAFatalErrorForTerabytes) {
  const SparseFile file(off_t{3} << 40);
  if (!file.IsThere()) GTEST_SKIP() << "no files of terabytes here";
  const ReadInMemory read(file.File().Path());
  ExpectNotRead(read);
  EXPECT_EQ(1, read.position);
}

TEST(InMemoryReaderFailures, LogAFatalErrorForMoreThanABlockHolds) {
  const SparseFile file(off_t{1} << 32);
  if (!file.IsThere()) GTEST_SKIP() << "no sparse files here";
  ExpectNotRead(ReadInMemory(file.File().Path()));
}

TEST(InMemoryReaderFailures, LogAFatalErrorForAReadThatFailsOnTheWay) {
  const BytesOnDisk file(Header("A", "x") + std::string(20000, 'x') + "\n");
  const FailingFiles failing(3, false);
  ExpectNotRead(ReadInMemory(file.Path()));
}

TEST(InMemoryReaderFailures, LogTwoFatalErrorsForAPipe) {
  int ends[2] = {};
  ASSERT_EQ(0, ::pipe(ends));
  wxFile open(ends[0]);
  const ReadInMemory read(open, wxFileName(wxT("pipe.txt")));
  EXPECT_EQ(2, read.fatalErrors) << "Seek failed, and it has no length";
  EXPECT_TRUE(read.reader->ErrorStatusIsPresent());
  ::close(ends[1]);
}

void ExpectTooLarge(const ReadInMemory& read) {
  EXPECT_EQ(0, read.fatalErrors) << "it was read";
  EXPECT_TRUE(read.reader->ErrorStatusIsPresent());
  EXPECT_EQ(0u, read.reader->GetDataRowCount());
  ASSERT_EQ(1u, read.handler.m_reports.size());
  EXPECT_EQ(Reader::MU_INPUT_FILE_TOO_LARGE, read.handler.m_reports[0].code);
  EXPECT_EQ(wxT("file too large"), read.handler.m_reports[0].message);
}

// The limit is 4 GiB less 1 where none is given.
TEST(InMemoryReaderFailures, ReportRowsAsTooLargeThatOutgrowTheLimitOnceTheyAreVisible) {
  const std::string plainRows = std::string(200, '\n') + "x\n";               // "^J" for each end
  const std::string narrowRows = "\x01" + std::string(100, '\x02') + "\n";    // two each
  const std::string wideRows = "\xC4\x80" + std::string(100, '\x02') + "\n";  // and a wide one
  for (const std::string& rows : {plainRows, narrowRows, wideRows}) {
    const BytesOnDisk file(Header("A", "x") + "1\n" + rows);
    const std::size_t visible = 3 + (rows == plainRows ? 403 : rows == narrowRows ? 204 : 203);
    ASSERT_GT(visible - 1, Header("A", "x").size() + 2 + rows.size()) << "the bytes fit";
    const ReadInMemory fits(file.Path(), visible);
    EXPECT_FALSE(fits.reader->ErrorStatusIsPresent());
    ExpectTooLarge(ReadInMemory(file.Path(), visible - 1));
  }
}

TEST(InMemoryReaderFailures, FindNoLineInAnOrdinaryEmptyFile) {
  const BytesOnDisk file("");
  const ReadInMemory read(file.Path());
  EXPECT_EQ(0, read.fatalErrors) << "it was read";
  EXPECT_TRUE(read.reader->ErrorStatusIsPresent());
}

#if !MU_HAS_ADDRESS_SANITIZER && defined(__linux__)

// Leaves this process so much more memory than it has.
void LimitMemory(std::size_t more) {
  std::size_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  const rlim_t limit = pages * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE)) + more;
  const rlimit limits = {limit, limit};
  if (::setrlimit(RLIMIT_AS, &limits) != 0) std::abort();
}

TEST(InMemoryReaderFailuresDeathTest, LogAFatalErrorIfMemoryEndsWhileBytesArrive) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_DEATH(
      {
        const wxLogNull silence;
        const SparseFile file(off_t{3} << 30);
        LimitMemory(GIBIBYTE / 2);
        wxFile open(file.File().Path());
        const MUConcreteInMemoryDataFile reader(&open, file.File().Name(), true, nullptr);
      },
      "Failed to slurp into string\\.");
}

constexpr int READ = 0;
constexpr int TOO_LARGE = 1;
constexpr int OTHERWISE_WRONG = 2;

// Reads a file of 100 MiB, these bytes and then zeros, with some three times the memory, and ends the process with what came
// of it. The process's objects are left alone: their end may need more memory.
[[noreturn]] void HoldAHundredMebibytes(const std::string& begin) {
  const SparseFile file(off_t{100} << 20, begin);
  LimitMemory(GIBIBYTE / 3);
  wxFile open(file.File().Path());
  RecordingHandler handler;
  const MUConcreteInMemoryDataFile reader(&open, file.File().Name(), true, &handler);
  if (!reader.ErrorStatusIsPresent()) std::_Exit(READ);
  const bool isTooLarge = handler.m_reports.size() == 1 &&
                          handler.m_reports[0].code == Reader::MU_INPUT_FILE_TOO_LARGE &&
                          handler.m_reports[0].message == wxT("file too large");
  std::_Exit(isTooLarge ? TOO_LARGE : OTHERWISE_WRONG);
}

// Zeros are decoded in place. The text of the first line takes four times the memory.
TEST(InMemoryReaderFailuresDeathTest, ReportsAFileThatWasReadAndCannotBeHeldAsTooLarge) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(HoldAHundredMebibytes(""), testing::ExitedWithCode(TOO_LARGE), "");
}

// Zeros of a row are decoded in place, unless another character makes all of them wide.
TEST(InMemoryReaderFailuresDeathTest, ReportsAFileThatCannotBeDecodedForWantOfMemoryAsTooLarge) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(HoldAHundredMebibytes(Header("A", "x")), testing::ExitedWithCode(READ), "");
  EXPECT_EXIT(HoldAHundredMebibytes(Header("\xC4\x80", "x")), testing::ExitedWithCode(TOO_LARGE),
              "");
}

#endif

// Needs some three times its length of memory.
TEST(InMemoryReaderFailures, DoNotComeWithALineOfNineHundredMillionCharacters) {
#if defined(_SC_AVPHYS_PAGES)
  const auto free = static_cast<std::uint64_t>(::sysconf(_SC_AVPHYS_PAGES)) *
                    static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
  if (free < 6 * GIBIBYTE) GTEST_SKIP() << "not enough free memory";
#endif
  if (MU_HAS_ADDRESS_SANITIZER) GTEST_SKIP() << "not in a build that watches every piece of memory";
  const std::size_t length = 900000000;
  const BytesOnDisk file(Header("A\tB", "x\ty"));
  {
    std::ofstream stream(file.Path().fn_str(), std::ios::binary | std::ios::app);
    const std::string piece(1000000, 'x');
    for (std::size_t written = 0; written < length; written += piece.size()) stream << piece;
    stream << "\tlast\n";
  }
  const ReadInMemory read(file.Path());
  EXPECT_EQ(0, read.fatalErrors);
  ASSERT_FALSE(read.reader->ErrorStatusIsPresent());
  ASSERT_EQ(1u, read.reader->GetDataRowCount());
  const std::unique_ptr<Row> row(read.reader->CreateAndReturnCurrentRowObject(true));
  EXPECT_EQ(length, row->CellAt(0).Length());
  EXPECT_EQ(wxT("last^J"), row->CellAt(1).ToString());
}

}  // namespace
