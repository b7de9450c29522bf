// Which data files are handed over, and which inputs are refused before anything runs.
#include <sys/stat.h>
#include <unistd.h>

#include <sstream>

#include "tests/BuildPaths.h"
#include "tests/host/VerifyDatafiles.h"

namespace Tests {
namespace {

class InputTest : public VerifyDatafilesTest {
 protected:
  // The file names that the fake plug-in was handed, in order.
  std::vector<std::string> Processed(const Arguments& arguments) {
    // The report counts no data file, which the program finds out after the flush.
    const Finished finished = VerifyWithReport(ReportWith(0, 0, ""), arguments);
    EXPECT_EQ(finished.status, 3) << finished.err;
    std::vector<std::string> names;
    std::istringstream lines(Calls());
    const std::string start = "process " + m_folder.Path() + "/";
    for (std::string line; std::getline(lines, line);) {
      if (line.compare(0, start.size(), start) == 0) names.push_back(line.substr(start.size()));
    }
    return names;
  }

  void ExpectRefused(const Arguments& arguments, const std::string& message) {
    const Finished finished = Verify(arguments);
    EXPECT_EQ(finished.status, 2);
    EXPECT_EQ(finished.err, "verify-datafiles: " + message + "\n");
    EXPECT_EQ(finished.out, "");
    EXPECT_FALSE(AnythingRan());
  }
  std::string Folder(const std::string& name) {
    EXPECT_EQ(mkdir((m_folder / name).c_str(), 0700), 0);
    return name;
  }
};

TEST_F(InputTest, FilesKeepTheGivenOrderAndMayComeTwice) {
  File("b.txt");
  File("a.dat");
  EXPECT_EQ(Processed({"b.txt", "a.dat", "b.txt"}),
            (std::vector<std::string>{"b.txt", "a.dat", "b.txt"}));
}

TEST_F(InputTest, AFolderGivesItsTextFilesInNameOrderAndNothingBelow) {
  File("first.txt");
  Folder("d");
  for (const char* name : {"d/b.txt", "d/a 10.txt", "d/a 2.txt", "d/B.txt", "d/note.tsv", "d/c.TXT",
                           "d/.hidden.txt", "d/txt"}) {
    File(name);
  }
  File("d/a 2.stimareas.tsv", "x\ty\twidth\theight\tresponse_id\tarea_name\n");
  Folder("d/e.txt");
  File("d/e.txt/below.txt");
  EXPECT_EQ(
      Processed({"first.txt", "d"}),
      (std::vector<std::string>{"first.txt", "d/B.txt", "d/a 10.txt", "d/a 2.txt", "d/b.txt"}));
}

TEST_F(InputTest, AMissingFileIsNamedBeforeAnythingRuns) {
  File("a.txt");
  ExpectRefused({"a.txt", "no such.txt"}, (m_folder / "no such.txt") + ": no such file or folder");
}

TEST_F(InputTest, AMissingFileWhoseNameIsNoUtf8IsNamedByItsBytes) {
  File("wrong \xE5.txt");
  ExpectRefused({"wrong \xE4.txt"}, (m_folder / "wrong \xE4.txt") + ": no such file or folder");
}

TEST_F(InputTest, AFolderWithoutDataFileIsNamedBeforeAnythingRuns) {
  File("a.txt");
  Folder("empty");
  File("empty/readme.md");
  ExpectRefused({"a.txt", "empty"},
                (m_folder / "empty") + ": the folder holds no data file (*.txt)");
}

TEST_F(InputTest, ALinkToNowhereIsMissingAlsoInAFolder) {
  Folder("d");
  ASSERT_EQ(symlink("nowhere", (m_folder / "d/a.txt").c_str()), 0);
  ExpectRefused({"d/a.txt"}, (m_folder / "d/a.txt") + ": no such file or folder");
  ExpectRefused({"d"}, (m_folder / "d/a.txt") + ": no such file or folder");
}

// Opening it would wait for ever.
TEST_F(InputTest, APipeIsRefused) {
  ASSERT_EQ(mkfifo((m_folder / "pipe.txt").c_str(), 0600), 0);
  ExpectRefused({"pipe.txt"}, (m_folder / "pipe.txt") + ": neither a file nor a folder");
}

class PermissionTest : public InputTest {
 protected:
  // As a user to whom permissions apply.
  Finished VerifyAsNobody(const Arguments& arguments) {
    EXPECT_EQ(chmod(m_folder.Path().c_str(), 0777), 0);
    Arguments command = {std::string(OMBRELIA_BIN_DIR) + "/verify-datafiles"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    ProcessSetup setup;
    setup.workingDirectory = m_folder.Path();
    // The counters of a coverage build belong to us: a complaint that they cannot be written is none of
    // the program's words.
    if (geteuid() == 0) setup.environment = {"GCOV_PREFIX=" + (m_folder / "counters")};
    setup.beforeStart = [&] {
      if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) return CANNOT;
      return access(command[0].c_str(), X_OK) == 0 ? 0 : CANNOT;
    };
    return WithoutProcess(RunProgram(command, setup));
  }
  static constexpr int CANNOT = 77;
};

TEST_F(PermissionTest, AnUnreadableFileIsNamedBeforeAnythingRuns) {
  ASSERT_EQ(chmod((m_folder / File("secret.txt")).c_str(), 0), 0);
  const Finished finished = VerifyAsNobody({"secret.txt"});
  if (finished.status == CANNOT) GTEST_SKIP() << "cannot run as another user here";
  EXPECT_EQ(finished.status, 2);
  EXPECT_EQ(finished.err,
            "verify-datafiles: " + (m_folder / "secret.txt") + ": the file cannot be read\n");
  EXPECT_FALSE(AnythingRan());
}

TEST_F(PermissionTest, AnUnreadableStimulusAreaFileIsNamedBeforeAnythingRuns) {
  File("a.txt");
  ASSERT_EQ(chmod((m_folder / File("a.stimareas.tsv")).c_str(), 0), 0);
  const Finished finished = VerifyAsNobody({"a.txt"});
  if (finished.status == CANNOT) GTEST_SKIP() << "cannot run as another user here";
  EXPECT_EQ(finished.status, 2);
  EXPECT_EQ(finished.err,
            "verify-datafiles: " + (m_folder / "a.stimareas.tsv") + ": the file cannot be read\n");
  EXPECT_FALSE(AnythingRan());
}

TEST_F(PermissionTest, AnUnreadableFolderIsNamedBeforeAnythingRuns) {
  ASSERT_EQ(chmod((m_folder / Folder("secret")).c_str(), 0), 0);
  const Finished finished = VerifyAsNobody({"secret"});
  chmod((m_folder / "secret").c_str(), 0700);
  if (finished.status == CANNOT) GTEST_SKIP() << "cannot run as another user here";
  EXPECT_EQ(finished.status, 2);
  EXPECT_EQ(finished.err, "verify-datafiles: " + (m_folder / "secret") +
                              ": the folder cannot be read: Permission denied\n");
  EXPECT_FALSE(AnythingRan());
}

TEST_F(PermissionTest, AReportFolderThatCannotBeWrittenIsStatusFour) {
  File("a.txt");
  m_folder.MakeReportFolder();
  ASSERT_EQ(chmod(m_folder.ReportFolder().c_str(), 0555), 0);
  const Finished finished = VerifyAsNobody({"a.txt"});
  if (finished.status == CANNOT) GTEST_SKIP() << "cannot run as another user here";
  EXPECT_EQ(finished.status, 4);
  EXPECT_NE(finished.err.find("verify-datafiles: " + ReportPath() +
                              ": the report could not be written\n"),
            std::string::npos)
      << finished.err;
}

TEST_F(InputTest, AReportFolderThatCannotBeMadeIsStatusFour) {
  File("a.txt");
  File("scons-out", "a file where the folder belongs");
  const Finished finished = Verify({"a.txt"});
  EXPECT_EQ(finished.status, 4);
  EXPECT_EQ(finished.err.find("verify-datafiles: " + m_folder.ReportFolder() +
                              ": the report's directory cannot be made: "),
            0u)
      << finished.err;
}

TEST_F(InputTest, AnUnusablePluginIsStatusFour) {
  File("a.txt");
  const Finished missing = Verify({"--plugin", "no-such-library.so", "a.txt"});
  EXPECT_EQ(missing.status, 4);
  EXPECT_EQ(missing.err.find("verify-datafiles: " + (m_folder / "no-such-library.so") +
                             ": the plug-in does not load: "),
            0u)
      << missing.err;
  const Finished noLibrary = Verify({"--plugin", "a.txt", "a.txt"});
  EXPECT_EQ(noLibrary.status, 4);
  const Finished noPlugin = Verify({"--plugin", OMBRELIA_NO_PLUGIN, "a.txt"});
  EXPECT_EQ(noPlugin.status, 4);
  EXPECT_NE(noPlugin.err.find("OMSdkGetObjectPtr"), std::string::npos) << noPlugin.err;
  const Finished noObject = VerifyWithFake({"a.txt"}, {"FAKE_NULL=1"});
  EXPECT_EQ(noObject.status, 4);
  EXPECT_NE(noObject.err.find("OMSdkGetObjectPtr gave no object"), std::string::npos)
      << noObject.err;
}

TEST_F(InputTest, APluginThatThrowsLosesTheDataFile) {
  File("a.txt");
  const Finished finished = VerifyWithFake({"a.txt"}, {"FAKE_EXCEPTION=1"});
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.err, "verify-datafiles: thrown by the plug-in\n");
  EXPECT_NE(finished.out.find("a.txt: lost"), std::string::npos) << finished.out;
}

}  // namespace
}  // namespace Tests
