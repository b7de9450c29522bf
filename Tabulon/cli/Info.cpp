#include "Tabulon/cli/Info.h"

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>

#include "Tabulon/cli/FileDescription.h"
#include "Tabulon/cli/Text.h"

namespace TabulonCli {

namespace {

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : " ") + text;
  return joined;
}

void PrintColumns(const FileDescription& file) {
  std::size_t nameWidth = 4;
  std::size_t kindWidth = 4;
  for (const ColumnDescription& column : file.columns) {
    nameWidth = std::max(nameWidth, DisplayWidth(column.name));
    kindWidth = std::max(kindWidth, column.kind.size());
  }
  for (const ColumnDescription& column : file.columns) {
    std::cout << "    " << column.name
              << std::string(nameWidth - DisplayWidth(column.name) + 2, ' ') << column.kind
              << std::string(kindWidth - column.kind.size() + 2, ' ') << column.cells << '\n';
  }
}

void PrintInFull(const FileDescription& file) {
  std::cout << file.name << '\n';
  if (!file.problems.empty()) {
    std::cout << "  no data file\n";
    for (const std::string& problem : file.problems) std::cout << "  " << problem << '\n';
    return;
  }
  std::cout << "  title        " << file.title << '\n'
            << "  date         " << file.date << '\n'
            << "  participant  " << file.participant << '\n'
            << "  rows         " << file.rows << '\n'
            << "  columns      " << file.columns.size() << '\n';
  PrintColumns(file);
}

nlohmann::ordered_json JsonOf(const FileDescription& file) {
  nlohmann::ordered_json object = {{"file", file.name}};
  if (!file.problems.empty()) {
    object["problem"] = Joined(file.problems);
    return object;
  }
  object["title"] = file.title;
  object["date"] = file.date;
  object["participant"] = file.participant;
  object["rows"] = file.rows;
  object["columns"] = nlohmann::ordered_json::array();
  for (const ColumnDescription& column : file.columns) {
    object["columns"].push_back(
        {{"name", column.name}, {"kind", column.kind}, {"cells", column.cells}});
  }
  return object;
}

void PrintJson(const std::vector<FileDescription>& files) {
  std::cout << '[';
  const char* separator = "\n  ";
  for (const FileDescription& file : files) {
    std::cout << separator
              << JsonOf(file).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    separator = ",\n  ";
  }
  std::cout << (files.empty() ? "]\n" : "\n]\n");
}

void PrintRows(const std::vector<FileDescription>& files, ResultPrinter& printer) {
  std::vector<ResultColumn> headings;
  for (const char* name : {"file", "title", "date", "participant", "rows", "columns", "problem"}) {
    headings.emplace_back();
    headings.back().name = headings.back().upper = name;
  }
  printer.Begin(headings);
  for (const FileDescription& file : files) {
    const std::string rows = std::to_string(file.rows);
    const std::string columns = std::to_string(file.columns.size());
    const std::string problem = Joined(file.problems);
    printer.Row({{file.name},
                 {file.title},
                 {file.date},
                 {file.participant},
                 {rows, ResultCell::Kind::Number},
                 {columns, ResultCell::Kind::Number},
                 {problem}});
  }
  printer.End(files.size());
}

}  // namespace

ExitStatus Info(const CommandLine& commandLine, const Inputs& inputs) {
  std::vector<FileDescription> files;
  ExitStatus status = ExitStatus::Fine;
  for (const auto& path : inputs.Paths()) {
    files.push_back(Describe(path, inputs));
    if (!files.back().problems.empty()) status = ExitStatus::NoDataFile;
  }
  if (commandLine.hasFormat && commandLine.print.format == Format::Json) {
    PrintJson(files);
  } else if (commandLine.hasFormat || commandLine.isShort) {
    PrintRows(files, *MakePrinter(commandLine.print));
  } else {
    for (const FileDescription& file : files) PrintInFull(file);
  }
  return status;
}

}  // namespace TabulonCli
