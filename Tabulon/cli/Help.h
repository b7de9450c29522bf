// What --help says below the options: conventions, exit statuses, and an example of every command.
#ifndef OMBRELIA_TABULON_CLI_HELP_H
#define OMBRELIA_TABULON_CLI_HELP_H

namespace TabulonCli {

extern const char* const HELP_ON_COLUMNS;
extern const char* const HELP_ON_EXIT_STATUSES;
extern const char* const HELP_OF_ALL;
extern const char* const HELP_OF_SHOW;
extern const char* const HELP_OF_DISTINCT;
extern const char* const HELP_OF_COUNT;
extern const char* const HELP_OF_GROUP;
extern const char* const HELP_OF_SUMMARY;
extern const char* const HELP_OF_DIFF;
extern const char* const HELP_OF_SQL;
extern const char* const HELP_OF_INFO;

}  // namespace TabulonCli

#endif
