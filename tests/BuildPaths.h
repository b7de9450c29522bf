// Where the build has put what the tests run, and where the sources are: absolute paths. They stand in a source of
// their own that the build writes, so that builds in different folders share all other objects by the compiler's cache.
#ifndef OMBRELIA_TESTS_BUILDPATHS_H
#define OMBRELIA_TESTS_BUILDPATHS_H

extern const char* const OMBRELIA_SOURCE_DIR;
extern const char* const OMBRELIA_BINARY_DIR;
extern const char* const OMBRELIA_BIN_DIR;
extern const char* const OMBRELIA_CMAKE_COMMAND;
extern const char* const OMBRELIA_PLUGIN_FILE;
extern const char* const OMBRELIA_FAKE_PLUGIN;
extern const char* const OMBRELIA_NO_PLUGIN;
extern const char* const OMBRELIA_TABULON_CLI;

#endif
