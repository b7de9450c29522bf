// Inputs that nobody would write on purpose, and inputs of every kind.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "tests/Tabulon/cli/CliRun.h"

namespace {

using Tests::Arguments;
using Tests::Finished;
using Tests::WriteFile;

class HostileInputs : public Tests::CliRun {
 protected:
  static std::string Repeated(const std::string& text, int count) {
    std::string repeated;
    for (int i = 0; i < count; ++i) repeated += text;
    return repeated;
  }
  // The program with this on its standard input, run by a shell in the folder.
  Finished RunWithInput(const std::string& command, const std::string& arguments) {
    return Tests::RunProgram({"/bin/sh", "-c",
                              "cd '" + m_folder.Path() + "' && " + command + " | " +
                                  OMBRELIA_TABULON_CLI + " " + arguments});
  }
  // Every command on the file, in every format; all must end by themselves and well.
  void RunEverythingOn(const std::string& file, const std::string& column) {
    for (const std::string format : {"table", "tsv", "csv", "json", "md", "line"}) {
      for (const Arguments& command :
           {Arguments{"show", file}, Arguments{"show", file, "--sort=" + column + ",-line"},
            Arguments{"show", file, "--width", "40", "--hide-empty"},
            Arguments{"show", file, "--where", column + "/a*b$/"},
            Arguments{"show", file, "--where", column + "<5", "--where", column + "~x"},
            Arguments{"count", column, file}, Arguments{"distinct", column, file},
            Arguments{"summary", file}, Arguments{"group", file, "--by", column, "--agg", "n"},
            Arguments{"sql", "SELECT * FROM rows LIMIT 3", file},
            Arguments{"diff", file, file, "--key", column}, Arguments{"info", file}}) {
        Arguments arguments = command;
        arguments.insert(arguments.end(), {"--format", format});
        const Finished finished = Run(arguments);
        EXPECT_EQ(finished.status, 0)
            << command.front() << " as " << format << ": " << finished.err;
      }
    }
  }
};

TEST_F(HostileInputs, AMegabyteInOneCell) {
  const std::string cell(1048576 - 200, 'a');
  WriteFile(m_folder / "h.txt", "p\nt\nd\n\nA\tB\n\n" + cell + "\tx\n1\t2\n");
  RunEverythingOn("h.txt", "A");
  EXPECT_EQ(Output({"distinct", "A", "h.txt", "--where", "A/^a{5,}$/"}), cell + "\n");
  EXPECT_EQ(
      Output({"sql", "SELECT length(A) n FROM rows WHERE B = 'x'", "h.txt", "--format", "csv"}),
      "n\n1048376\n");
  // The other rows are not filled up to the width of that cell.
  EXPECT_LT(Output({"show", "h.txt"}).size(), cell.size() + 5000);
}

TEST_F(HostileInputs, ManyRowsBesideAWideCell) {
  WriteFile(m_folder / "h.txt",
            "p\nt\nd\n\nA\tB\n\n" + std::string(1000000, 'a') + "\tx\n" + Repeated("\ty\n", 10000));
  EXPECT_LT(Output({"show", "h.txt"}).size(), 8000000U);
}

TEST_F(HostileInputs, TenThousandColumns) {
  std::string names;
  std::string cells;
  for (int i = 0; i < 10000; ++i) {
    names += (i > 0 ? "\tc" : "c") + std::to_string(i);
    cells += (i > 0 ? "\t" : "") + std::to_string(i);
  }
  WriteFile(m_folder / "h.txt", "p\nt\nd\n\n" + names + "\n\n" + cells + "\n");
  for (const std::string format : {"table", "csv", "json"}) {
    EXPECT_NE(Output({"show", "h.txt", "--sort", "c9999:n", "--format", format}).find("9999"),
              std::string::npos);
  }
  EXPECT_NE(Output({"summary", "h.txt", "--format", "csv"})
                .find("\nc9999,numbers,1,0,1,1,9999,9999,9999,9999\n"),
            std::string::npos);
  const Finished sql = Run({"sql", "SELECT C9998 + 1 n FROM rows", "h.txt", "--format", "csv"});
  EXPECT_EQ(sql.status, 0);
  EXPECT_EQ(sql.out, "n\n9999\n");
  EXPECT_EQ(sql.err.find("tabulon-cli: rows has more columns than SQLite takes; "), 0U) << sql.err;
}

TEST_F(HostileInputs, NoRows) {
  WriteFile(m_folder / "h.txt", "p\nt\nd\n\nA\n\n");
  const Finished finished = Run({"show", "h.txt", "--format", "json"});
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.out, "");
  EXPECT_NE(finished.err.find("does not appear long enough"), std::string::npos);
  WriteFile(m_folder / "h.txt", "");
  EXPECT_EQ(Run({"sql", "SELECT * FROM rows", "h.txt"}).status, 1);
  EXPECT_EQ(
      Output({"show", "a.txt", "--where", "Event Name=none", "--no-origin", "--format", "csv"}),
      "Event Name,Reaction Time,Note,Font (Trial Variable)\n");
  EXPECT_EQ(Output({"sql", "SELECT count(*) n, max(line) m FROM rows", "a.txt", "--where",
                    "Event Name=none", "--format", "csv"}),
            "n,m\n0,\n");
  EXPECT_EQ(
      Output({"summary", "a.txt", "--where", "Event Name=none", "--limit", "1", "--format", "csv"}),
      "column,kind,rows,empty,numbers,distinct,least,median,mean,most\n"
      "Event Name,empty,0,0,0,0,,,,\n");
}

TEST_F(HostileInputs, BytesThatAreNoUtf8) {
  WriteFile(m_folder / "h.txt",
            "p\xFF\nt\xC3\nd\n\nA\xE4\tB\n\n\x80\xFE\tx\n\xC3\xA4\xED\xA0\x80\ty\n");
  RunEverythingOn("h.txt", "B");
  // They are shown as the one-byte characters that they are; what comes out is UTF-8.
  EXPECT_EQ(Output({"show", "h.txt", "--where", "B=y", "--no-origin", "--format", "csv"}),
            "A\xC3\xA4,B\n\xC3\x83\xC2\xA4\xC3\xAD\xC2\xA0"
            "0x80,y\n");
}

TEST_F(HostileInputs, AnUnevenFileWithControlCharacters) {
  static const char bytes[] =
      "p\x1B[2J\tq\nt\nd\x07\n\nA\tA\tA\nB\n1\n\n1\t2\t3\t4\t\x1B[0m\n\x00\t\x01\n";
  WriteFile(m_folder / "h.txt", std::string(bytes, sizeof bytes - 1));
  RunEverythingOn("h.txt", "A#");
  for (const std::string format : {"table", "tsv", "md", "line"}) {
    EXPECT_EQ(Output({"show", "h.txt", "--origin", "--format", format}).find('\x1B'),
              std::string::npos);
  }
}

TEST_F(HostileInputs, AFileThatVanishes) {
  // The program reads standard input after it has found all files, and before it reads any of them.
  const std::string pipe = m_folder / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const std::string command = "'" + std::string(OMBRELIA_TABULON_CLI) + "' show '" +
                              m_folder / "a.txt" + "' - --no-origin --format csv < '" + pipe + "'";
  Tests::Process process({"/bin/sh", "-c", command});
  const int input = open(pipe.c_str(), O_WRONLY);
  ASSERT_GE(input, 0);
  // A pipe takes some 64 KiB before its reader has begun to read; a larger file waits for it.
  const std::string bytes = "p\nt\nd\n\nA\n\n" + Repeated("cell\n", 100000);
  const std::size_t half = bytes.size() / 2;
  ASSERT_EQ(write(input, bytes.data(), half), static_cast<ssize_t>(half));
  std::filesystem::remove(m_folder / "a.txt");
  ASSERT_EQ(write(input, bytes.data() + half, bytes.size() - half),
            static_cast<ssize_t>(bytes.size() - half));
  close(input);
  const Finished finished = process.Wait();
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.out, "A\n" + Repeated("cell\n", 100000));
  EXPECT_EQ(finished.err.find("tabulon-cli: " + m_folder / "a.txt" + ": "), 0U) << finished.err;
}

TEST_F(HostileInputs, AFileThatOnlyPointsNowhere) {
  std::filesystem::create_symlink("nowhere", m_folder / "link.txt");
  EXPECT_EQ(Complaint({"show", "link.txt"}), "tabulon-cli: link.txt: no such file\n");
}

TEST_F(HostileInputs, StandardInputIsAFile) {
  const Finished finished =
      RunWithInput("cat b.txt", "show - a.txt --format csv --columns 'file,Event Name'");
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_EQ(finished.out, "file,Event Name\na.txt,go\na.txt,stop\na.txt,go\n-,w\xC3\xA4it\n");
  const Finished info = RunWithInput("cat bad.txt", "info -");
  EXPECT_EQ(info.status, 1);
  EXPECT_EQ(info.out.find("-\n  no data file\n"), 0U) << info.out;
  const Finished bad = RunWithInput("cat bad.txt", "show -");
  EXPECT_EQ(bad.err.find("tabulon-cli: -: Input file is missing"), 0U) << bad.err;
}

TEST_F(HostileInputs, EndlessStandardInputIsTooLarge) {
  const Finished finished = RunWithInput("yes", "show -");
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.err.find("tabulon-cli: -: File too large."), 0U) << finished.err;
}

TEST_F(HostileInputs, AFolderIsAllTheTextFilesBelowIt) {
  std::filesystem::create_directories(m_folder / "data/deep");
  for (const char* name : {"data/deep/z.txt", "data/b.txt", "data/notes.csv"})
    WriteFile(m_folder / name, Tests::ReadFile(m_folder / "b.txt"));
  WriteFile(m_folder / "data/a.txt", Tests::ReadFile(m_folder / "a.txt"));
  ASSERT_EQ(mkfifo((m_folder / "data/pipe.txt").c_str(), 0600), 0);
  std::filesystem::create_directory_symlink(".", m_folder / "data/loop");
  EXPECT_EQ(Output({"count", "file", "data", "--format", "csv"}),
            "file,n\ndata/a.txt,3\ndata/b.txt,1\ndata/deep/z.txt,1\n");
  std::filesystem::create_directory(m_folder / "empty");
  EXPECT_EQ(Complaint({"show", "empty"}), "tabulon-cli: empty: holds no file *.txt\n");
}

TEST_F(HostileInputs, ItsOwnTablesAreNoDataFiles) {
  WriteFile(m_folder / "own.txt", Output({"show", "a.txt", "a.txt", "--format", "tsv"}) +
                                      Repeated("more\t1\tx\t\t\t\t\t\t\n", 9));
  const std::string why =
      "This is a tab-separated table with one heading line, such as tabulon-cli writes, and no "
      "data "
      "file.\n";
  const Finished shown = Run({"show", "own.txt", "b.txt", "--no-origin", "--format", "csv"});
  EXPECT_EQ(shown.status, 1);
  EXPECT_EQ(shown.out, "Event Name,Key,Code\nw\xC3\xA4it,k,7\n");
  EXPECT_EQ(shown.err, "tabulon-cli: " + m_folder / "own.txt" + ": " + why);
  const Finished info = Run({"info", "own.txt"});
  EXPECT_EQ(info.status, 1);
  EXPECT_EQ(info.out, m_folder / "own.txt" + "\n  no data file\n  " + why);
}

}  // namespace
