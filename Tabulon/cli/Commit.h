// What the program was built from.
#ifndef OMBRELIA_TABULON_CLI_COMMIT_H
#define OMBRELIA_TABULON_CLI_COMMIT_H

namespace TabulonCli {

// The commit of the sources, as in "1f0c... with changes"; empty where they were in no git repository of their own.
extern const char* const COMMIT;

}  // namespace TabulonCli

#endif
