#include "Tabulon/cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <functional>
#include <limits>
#include <map>

#include "Tabulon/cli/Commit.h"
#include "Tabulon/cli/Help.h"

namespace TabulonCli {

namespace {

bool ParseNumber(const std::string& text, std::size_t& number) {
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end && number <= std::numeric_limits<int>::max();
}

// "N:M", "N:", ":M" or "N".
bool ParseRange(const std::string& text, RowRange& range) {
  const std::size_t colon = text.find(':');
  if (colon == std::string::npos) {
    if (!ParseNumber(text, range.first)) return false;
    range.last = range.first;
    return true;
  }
  const std::string first = text.substr(0, colon);
  const std::string last = text.substr(colon + 1);
  return (first.empty() || ParseNumber(first, range.first)) &&
         (last.empty() || ParseNumber(last, range.last));
}

std::string FooterOf(const char* help) {
  return std::string(help) + "\n" + HELP_ON_COLUMNS + "\n" + HELP_ON_EXIT_STATUSES;
}

const std::map<std::string, Format> FORMATS = {{"table", Format::Table}, {"tsv", Format::Tsv},
                                               {"csv", Format::Csv},     {"json", Format::Json},
                                               {"md", Format::Markdown}, {"line", Format::Line}};

std::string VersionText() {
  const std::string version = std::string("tabulon-cli ") + OMBRELIA_VERSION;
  return *COMMIT == '\0' ? version : version + "\ncommit " + COMMIT;
}

// The commands and their options. What CLI11 cannot check is checked afterwards, in the order of m_checks.
class Parser {
 public:
  explicit Parser(CommandLine& commandLine)
      : m_line(commandLine),
        m_app("Answers questions about experiment data files.", "tabulon-cli") {
    m_app.set_version_flag("--version", VersionText());
    m_app.require_subcommand(1);
    m_app.footer(FooterOf(HELP_OF_ALL));
    AddShow();
    AddDistinct();
    AddCount();
    AddGroup();
    AddSummary();
    AddDiff();
    AddSql();
    AddInfo();
  }

  std::optional<ExitStatus> Parse(int argc, char** argv) {
    try {
      m_app.parse(argc, argv);
      for (const auto& check : m_checks) check();
    } catch (const CLI::ParseError& end) {
      return m_app.exit(end) == 0 ? ExitStatus::Fine : ExitStatus::WrongUse;
    }
    m_line.inputs.assign(m_files.begin(), m_files.end());
    return std::nullopt;
  }

 private:
  CLI::App* AddCommand(const char* name, Action action, const char* description, const char* help) {
    CLI::App* command = m_app.add_subcommand(name, description);
    command->footer(FooterOf(help));
    command->parse_complete_callback([this, action] { m_line.action = action; });
    return command;
  }

  void AddFiles(CLI::App* command) {
    command
        ->add_option("files", m_files,
                     "Data files, folders (every *.txt below them), or - for standard input")
        ->type_name("FILE")
        ->required();
  }

  // Takes one value and may be repeated: a value may begin with a dash, a file may follow.
  template <typename VALUE>
  static CLI::Option* AddRepeated(CLI::App* command, const char* name, VALUE& values,
                                  const char* description, const char* type) {
    return command->add_option(name, values, description)
        ->type_name(type)
        ->expected(1)
        ->take_all()
        ->allow_extra_args(false);
  }

  void AddSelection(CLI::App* command) {
    AddRepeated(
        command, "--where", m_line.conditions,
        "Only rows that fit: = != < <= > >= ~ (contained) or /regex/; | parts values; may be "
        "repeated",
        "CONDITION");
    AddRepeated(command, "--merge-headings", m_line.mergedPrefixes,
                "Make the columns whose names begin so one column; may be repeated", "PREFIX");
  }

  void AddPrinting(CLI::App* command) {
    command->add_option("--format", m_format, "table, tsv, csv, json, md, or line")
        ->type_name("FORMAT")
        ->check(CLI::IsMember({"table", "tsv", "csv", "json", "md", "line"}));
    command->add_option("--limit", m_limit, "At most so many rows; 0 for all")->type_name("N");
    command
        ->add_option("--width", m_width,
                     "Fit a table into so many columns of characters; 0 for no limit")
        ->type_name("N");
    m_checks.push_back([this, command] {
      if (!command->parsed()) return;
      m_line.hasFormat = command->count("--format") > 0;
      if (m_line.hasFormat) m_line.print.format = FORMATS.at(m_format);
      TakeNumber(command, "--limit", m_limit, m_line.print.limit);
      TakeNumber(command, "--width", m_width, m_line.print.width);
    });
  }

  static void TakeNumber(const CLI::App* command, const char* name, const std::string& typed,
                         std::optional<std::size_t>& number) {
    if (command->count(name) == 0) return;
    std::size_t taken = 0;
    if (!ParseNumber(typed, taken))
      throw CLI::ValidationError(name, "\"" + typed + "\" is no number of rows or columns");
    number = taken;
  }

  void AddFlags(CLI::App* command) {
    AddRepeated(command, "--flag", m_flags, "Mark this row; may be repeated", "ROW");
    m_checks.push_back([this, command] {
      if (!command->parsed()) return;
      for (const std::string& flag : m_flags) {
        std::size_t row = 0;
        if (!ParseNumber(flag, row))
          throw CLI::ValidationError("--flag", "\"" + flag + "\" is no row");
        m_line.flaggedRows.push_back(row);
      }
    });
  }

  void AddShow() {
    CLI::App* show =
        AddCommand("show", Action::Show, "Print the table, or a part of it", HELP_OF_SHOW);
    AddFiles(show);
    AddSelection(show);
    AddShowOrder(show);
    AddShowColumns(show);
    AddShowRows(show);
    AddFlags(show);
    AddPrinting(show);
  }

  void AddShowOrder(CLI::App* show) {
    show->add_option("--sort", m_sort,
                     "Sort by these columns, -COLUMN descending, COLUMN:n as numbers; the reaction "
                     "time sorts as a number")
        ->type_name("KEY[,KEY]");
    show->add_flag("--reverse", m_line.reverse, "Turn every key of --sort round")->needs("--sort");
    m_checks.push_back([this, show] {
      if (show->count("--sort") > 0) m_line.sort = m_sort;
    });
  }

  void AddShowColumns(CLI::App* show) {
    show->add_flag("--hide-empty", m_line.hideEmpty,
                   "Leave out columns without any text in the shown rows");
    AddRepeated(show, "--hide", m_line.hiddenColumns,
                "Leave out these columns; * and ? stand for any characters; may be repeated",
                "COLUMN");
    AddRepeated(
        show, "--columns", m_line.columns,
        "Only these columns, in this order; * and ? stand for any characters; may be repeated",
        "A,B");
    CLI::Option* origin =
        show->add_flag("--origin", m_line.origin,
                       "Add file, line, title, date and participant; tsv, csv and json have them "
                       "unless --columns chooses");
    show->add_flag("--no-origin", m_line.noOrigin, "Leave them out")->excludes(origin);
    show->add_flag("--row-numbers", m_line.rowNumbers,
                   "Add the numbers that --rows and --flag understand");
  }

  void AddShowRows(CLI::App* show) {
    show->add_option("--rows", m_rows, "Only rows N to M, both inclusive; N or M may be left out")
        ->type_name("N:M");
    show->add_option("--last", m_last, "Only the last N of them")->type_name("N");
    m_checks.push_back([this, show] {
      if (show->count("--rows") > 0 && !ParseRange(m_rows, m_line.rows.emplace()))
        throw CLI::ValidationError("--rows", "\"" + m_rows + "\" is not of the form N:M");
      TakeNumber(show, "--last", m_last, m_line.last);
    });
  }

  void AddColumnList(CLI::App* command) {
    command->add_option("column", m_column, "The column, or several with commas between them")
        ->type_name("COLUMN[,COLUMN]")
        ->required();
    m_checks.push_back([this, command] {
      if (command->parsed()) m_line.columns = {m_column};
    });
  }

  void AddDistinct() {
    CLI::App* distinct =
        AddCommand("distinct", Action::Distinct,
                   "List the different texts of a column, as they first appear", HELP_OF_DISTINCT);
    AddColumnList(distinct);
    AddFiles(distinct);
    AddSelection(distinct);
    distinct->add_flag("--counts", m_line.counts, "Tell how many rows have each");
    AddPrinting(distinct);
  }

  void AddCount() {
    CLI::App* count = AddCommand("count", Action::Count,
                                 "Count the rows per text, or per combination of texts; "
                                 "the most frequent first",
                                 HELP_OF_COUNT);
    AddColumnList(count);
    AddFiles(count);
    AddSelection(count);
    AddPrinting(count);
  }

  void AddGroup() {
    CLI::App* group = AddCommand(
        "group", Action::Group, "Compute means and the like for each group of rows", HELP_OF_GROUP);
    AddFiles(group);
    AddSelection(group);
    AddRepeated(group, "--by", m_line.columns,
                "One group per combination of texts in these columns", "A,B");
    AddRepeated(group, "--agg", m_line.aggregates,
                "n, or one of mean, sd, median, min, max, sum, n with a colon and a column",
                "AGG[,AGG]")
        ->required();
    AddPrinting(group);
  }

  void AddSummary() {
    CLI::App* summary =
        AddCommand("summary", Action::Summary, "Describe what each column holds", HELP_OF_SUMMARY);
    AddFiles(summary);
    AddSelection(summary);
    AddPrinting(summary);
  }

  void AddDiff() {
    CLI::App* diff = AddCommand("diff", Action::Diff,
                                "Compare two data files or folders, cell by cell", HELP_OF_DIFF);
    diff->add_option("files", m_files, "The two")->type_name("A B")->required()->expected(2);
    AddRepeated(diff, "--key", m_line.keys,
                "Compare rows that have the same texts in these columns; may be repeated", "A,B");
    AddRepeated(diff, "--tolerance", m_line.tolerances,
                "Numbers of this column may differ by N; may be repeated", "COLUMN=N");
    AddSelection(diff);
    AddPrinting(diff);
  }

  void AddSql() {
    CLI::App* sql = AddCommand("sql", Action::Sql,
                               "Answer an SQL query over the tables rows and files", HELP_OF_SQL);
    sql->add_option("query", m_line.query, "A SELECT, or .tables for what can be asked")
        ->type_name("QUERY")
        ->required();
    AddFiles(sql);
    AddSelection(sql);
    AddFlags(sql);
    sql->add_option("--save", m_saveFile, "Write both tables to a new SQLite file")
        ->type_name("FILE");
    m_checks.push_back([this, sql] {
      if (sql->count("--save") == 0) return;
      if (m_saveFile.empty()) throw CLI::ValidationError("--save", "no file is named");
      m_line.saveFile = m_saveFile;
    });
    AddPrinting(sql);
  }

  void AddInfo() {
    CLI::App* info =
        AddCommand("info", Action::Info,
                   "Describe each file, or say why it is no data file: title, date, participant, "
                   "rows, columns",
                   HELP_OF_INFO);
    AddFiles(info);
    info->add_flag("--short", m_line.isShort, "One line per file");
    AddPrinting(info);
  }

  CommandLine& m_line;
  CLI::App m_app;
  std::vector<std::function<void()>> m_checks;
  std::vector<std::string> m_files;
  std::vector<std::string> m_flags;
  std::string m_sort;
  std::string m_format;
  std::string m_limit;
  std::string m_width;
  std::string m_rows;
  std::string m_last;
  std::string m_column;
  std::string m_saveFile;
};

}  // namespace

std::optional<ExitStatus> ParseCommandLine(int argc, char** argv, CommandLine& commandLine) {
  return Parser(commandLine).Parse(argc, argv);
}

}  // namespace TabulonCli
