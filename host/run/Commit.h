// What the program was built from.
#ifndef OMBRELIA_HOST_RUN_COMMIT_H
#define OMBRELIA_HOST_RUN_COMMIT_H

namespace OmbreliaHost {

// The commit of the sources, as in "1f0c... with changes"; empty where they were in no git repository of their own.
extern const char* const COMMIT;

}  // namespace OmbreliaHost

#endif
