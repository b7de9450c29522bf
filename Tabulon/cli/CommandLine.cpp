#include "Tabulon/cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <map>

namespace TabulonCli {

namespace {

const char* const COLUMN_HELP =
    "A column is named as it stands in the file, its two heading rows joined by a line feed, by "
    "the two\n"
    "characters \\n or by a blank: \"Event\\nName\" or \"Event Name\".";

bool ParseRow(const std::string& text, int& row) {
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, row);
  return error == std::errc() && stop == end && row >= 0;
}

// "N:M", "N:", ":M" or "N".
bool ParseRange(const std::string& text, RowRange& range) {
  const std::size_t colon = text.find(':');
  if (colon == std::string::npos) {
    if (!ParseRow(text, range.first)) return false;
    range.last = range.first;
    return true;
  }
  const std::string first = text.substr(0, colon);
  const std::string last = text.substr(colon + 1);
  return (first.empty() || ParseRow(first, range.first)) &&
         (last.empty() || ParseRow(last, range.last));
}

}  // namespace

std::optional<ExitStatus> ParseCommandLine(int argc, char** argv, CommandLine& commandLine) {
  CLI::App app("Shows the merged table of experiment data files.", "tabulon-cli");
  app.set_version_flag("--version", std::string("tabulon-cli ") + OMBRELIA_VERSION);
  app.require_subcommand(1);
  app.footer(
      std::string(COLUMN_HELP) +
      "\nRows count from 0, in the order in which they are shown.\n"
      "Exit status: 0 fine; 1 some file is no data file, the others were shown; 2 wrong use, or a\n"
      "file that is missing or cannot be read; 3 the output could not be written.");

  std::vector<std::string> files;
  const auto addFiles = [&files](CLI::App* command) {
    command->add_option("files", files, "Data files")->type_name("FILE")->required();
  };

  CLI::App* show = app.add_subcommand("show", "Print the table, or a part of it");
  addFiles(show);
  show->add_option("--sort", commandLine.sortColumn,
                   "Sort by this column; the reaction time sorts as a number")
      ->type_name("COLUMN");
  show->add_flag("--reverse", commandLine.reverse, "Sort descending")->needs("--sort");
  show->add_flag("--hide-empty", commandLine.hideEmpty,
                 "Leave out columns without any text in the shown rows");
  // Each of these takes one value and may be repeated: a value may begin with a dash, a file may follow.
  show->add_option("--hide", commandLine.hiddenColumns, "Leave out this column; may be repeated")
      ->type_name("COLUMN")
      ->expected(1)
      ->take_all()
      ->allow_extra_args(false);
  show->add_option("--where", commandLine.conditions,
                   "Only rows with exactly this text; may be repeated")
      ->type_name("COLUMN=VALUE")
      ->expected(1)
      ->take_all()
      ->allow_extra_args(false);
  show->add_option("--columns", commandLine.columns,
                   "Only these columns, in this order; may be repeated")
      ->type_name("A,B")
      ->expected(1)
      ->take_all()
      ->allow_extra_args(false);
  std::string rows;
  show->add_option("--rows", rows, "Only rows N to M, both inclusive; N or M may be left out")
      ->type_name("N:M");
  std::vector<std::string> flags;
  show->add_option("--flag", flags, "Mark this row; may be repeated")
      ->type_name("ROW")
      ->expected(1)
      ->take_all()
      ->allow_extra_args(false);
  std::string format = "table";
  show->add_option("--format", format,
                   "table, tsv (one heading line) or json (columns, rows, flaggedRows)")
      ->type_name("FORMAT")
      ->check(CLI::IsMember({"table", "tsv", "json"}));

  CLI::App* distinct =
      app.add_subcommand("distinct", "List the different texts of a column, as they first appear");
  distinct->add_option("column", commandLine.distinctColumn, "The column")
      ->type_name("COLUMN")
      ->required();
  addFiles(distinct);

  CLI::App* info = app.add_subcommand(
      "info",
      "Describe each file, or say why it is no data file: title, date, participant, rows, columns");
  addFiles(info);

  for (CLI::App* command : {show, distinct, info}) command->footer(app.get_footer());

  try {
    app.parse(argc, argv);
    if (!rows.empty() && !ParseRange(rows, commandLine.rows)) {
      throw CLI::ValidationError("--rows", "\"" + rows + "\" is not of the form N:M");
    }
    for (const std::string& flag : flags) {
      int row = 0;
      if (!ParseRow(flag, row)) throw CLI::ValidationError("--flag", "\"" + flag + "\" is no row");
      commandLine.flaggedRows.push_back(row);
    }
  } catch (const CLI::ParseError& end) {
    return app.exit(end) == 0 ? ExitStatus::Fine : ExitStatus::WrongUse;
  }

  commandLine.action = show->parsed()       ? Action::Show
                       : distinct->parsed() ? Action::Distinct
                                            : Action::Info;
  commandLine.format = format == "json"  ? Format::Json
                       : format == "tsv" ? Format::Tsv
                                         : Format::Table;
  commandLine.files.assign(files.begin(), files.end());
  return std::nullopt;
}

}  // namespace TabulonCli
