// The manual pages and completions, held against the programs' own --help.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/BuildPaths.h"
#include "tests/support/Files.h"
#include "tests/support/Process.h"

namespace Tests {
namespace {

using Words = std::vector<std::string>;

const Words PROGRAMS = {"verify-datafiles", "tabulon-cli"};

std::string BuiltProgram(const std::string& program) {
  return std::string(OMBRELIA_BIN_DIR) + "/" + program;
}

// With one name for each part: the program itself, "", and its subcommands.
std::string HelpOf(const std::string& program, const std::string& part) {
  Words command = {BuiltProgram(program)};
  if (!part.empty()) command.push_back(part);
  command.push_back("--help");
  const Finished finished = RunProgram(command);
  EXPECT_EQ(finished.status, 0) << finished.err;
  return finished.out;
}

Words SubcommandsIn(const std::string& help) {
  Words subcommands;
  std::istringstream lines(help.substr(std::min(help.find("\nSubcommands:\n"), help.size())));
  std::string line;
  std::getline(lines, line);
  std::getline(lines, line);
  while (std::getline(lines, line) && line.rfind("  ", 0) == 0) {
    if (line[2] != ' ') subcommands.push_back(line.substr(2, line.find(' ', 2) - 2));
  }
  return subcommands;
}

// All options that are listed, as in "-q" and "--quiet".
Words OptionsIn(const std::string& help) {
  Words options;
  std::istringstream lines(help);
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("  -", 0) != 0) continue;
    std::istringstream names(line.substr(2, line.find(' ', 2) - 2));
    for (std::string name; std::getline(names, name, ',');) options.push_back(name);
  }
  return options;
}

Words PartsOf(const std::string& program) {
  Words parts = SubcommandsIn(HelpOf(program, ""));
  parts.insert(parts.begin(), "");
  return parts;
}

std::string Made(const std::string& name) {
  return ReadFile(std::string(OMBRELIA_BINARY_DIR) + "/manuals/" + name);
}

std::string Between(const std::string& text, const std::string& start, const std::string& end) {
  const std::size_t begin = text.find(start);
  if (begin == std::string::npos) return std::string();
  return text.substr(begin, text.find(end, begin + start.size()) - begin);
}

std::string InRoff(const std::string& text) {
  std::string roff;
  for (const char c : text) roff += c == '-' ? std::string("\\-") : std::string(1, c);
  return roff;
}

// What bash offers for the last word.
std::string Offered(const std::string& program, const Words& words) {
  std::string function = "_" + program;
  for (char& c : function) c = c == '-' ? '_' : c;
  std::string list = program;
  for (const std::string& word : words) list += " '" + word + "'";
  // Only a real completion has options to set.
  const std::string script = "source '" + std::string(OMBRELIA_BINARY_DIR) + "/manuals/" + program +
                             ".bash'; compopt() { files=' files'; }; COMP_WORDS=(" + list +
                             "); COMP_CWORD=" + std::to_string(words.size()) + "; " + function +
                             "; echo \"${COMPREPLY[*]}$files\"";
  const Finished finished = RunProgram({"bash", "-c", script});
  EXPECT_EQ(finished.err, "");
  return " " + finished.out.substr(0, finished.out.find('\n')) + " ";
}

TEST(Manual, HelpListsWhatTheseTestsLookFor) {
  const Words subcommands = SubcommandsIn(HelpOf("verify-datafiles", ""));
  EXPECT_GE(subcommands.size(), 5u);
  EXPECT_EQ(subcommands[0], "list");
  EXPECT_EQ(OptionsIn(HelpOf("verify-datafiles", "repair")), (Words{"-h", "--help", "--output"}));
  EXPECT_EQ(SubcommandsIn(HelpOf("tabulon-cli", "")).size(), 8u);
}

TEST(Manual, PagesDescribeEveryOptionOfEverySubcommand) {
  for (const std::string& program : PROGRAMS) {
    const std::string page = Made(program + ".1");
    for (const std::string& part : PartsOf(program)) {
      const std::string section = part.empty() ? Between(page, ".SH OPTIONS\n", ".SH")
                                               : Between(page, ".SS \"" + part + "\"\n", "\n.S");
      EXPECT_NE(section, "") << program << " " << part;
      for (const std::string& option : OptionsIn(HelpOf(program, part))) {
        EXPECT_NE(section.find("\\fB" + InRoff(option) + "\\fR"), std::string::npos)
            << program << " " << part << " " << option;
      }
    }
  }
}

TEST(Manual, PagesHoldTheTextsOfTheHelp) {
  const std::string page = Made("verify-datafiles.1");
  EXPECT_NE(page.find(".SH NAME\nverify\\-datafiles \\- hands data files to the"),
            std::string::npos);
  EXPECT_NE(page.find(".TH VERIFY-DATAFILES 1 \"\" \"verify-datafiles " OMBRELIA_VERSION "\""),
            std::string::npos);
  EXPECT_NE(page.find("\\fB\\-\\-jobs\\fR \\fIN\\fR\nVerify in N processes side by side"),
            std::string::npos);
  EXPECT_NE(page.find("\nExit status: 0 no failing test;"), std::string::npos);
  EXPECT_NE(page.find("\n.B verify\\-datafiles repair [OPTIONS] report\n"), std::string::npos);
  // A backslash of the help is one of the page.
  EXPECT_NE(Made("tabulon-cli.1").find("\"Event\\enName\""), std::string::npos);
}

TEST(Manual, BashOffersEveryOptionOfEverySubcommand) {
  for (const std::string& program : PROGRAMS) {
    for (const std::string& part : PartsOf(program)) {
      const std::string offered = Offered(program, part.empty() ? Words{"-"} : Words{part, "-"});
      for (const std::string& option : OptionsIn(HelpOf(program, part))) {
        EXPECT_NE(offered.find(" " + option + " "), std::string::npos)
            << program << " " << part << " " << option;
      }
    }
  }
}

TEST(Manual, BashOffersSubcommandsFirstAndTheWordsOfAnOption) {
  EXPECT_EQ(Offered("verify-datafiles", {"rep"}), " repair files ");
  EXPECT_EQ(Offered("verify-datafiles", {"a.txt", "rep"}), "  files ");
  EXPECT_EQ(Offered("verify-datafiles", {"collect", "--machine", "l"}), " large files ");
  EXPECT_EQ(Offered("verify-datafiles", {"--json", ""}), "  files ");
  EXPECT_EQ(Offered("verify-datafiles", {"--jobs", ""}), "  ");
}

TEST(Manual, ZshKnowsEveryOptionOfEverySubcommand) {
  for (const std::string& program : PROGRAMS) {
    const std::string completion = Made("_" + program);
    EXPECT_EQ(completion.rfind("#compdef " + program + "\n", 0), 0u);
    for (const std::string& part : PartsOf(program)) {
      const std::string section = part.empty() ? completion.substr(completion.rfind("_arguments"))
                                               : Between(completion, "    " + part + ")\n", ";;");
      for (const std::string& option : OptionsIn(HelpOf(program, part))) {
        EXPECT_NE(section.find(option + "["), std::string::npos)
            << program << " " << part << " " << option;
      }
    }
  }
}

TEST(Manual, ZshCanReadTheCompletions) {
  if (RunProgram({"sh", "-c", "command -v zsh"}).status != 0) GTEST_SKIP() << "no zsh here";
  for (const std::string& program : PROGRAMS) {
    const Finished finished =
        RunProgram({"zsh", "-n", std::string(OMBRELIA_BINARY_DIR) + "/manuals/_" + program});
    EXPECT_EQ(finished.status, 0) << finished.err;
  }
}

}  // namespace
}  // namespace Tests
