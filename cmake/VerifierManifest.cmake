# Reads verifiers/manifest.json, the one table of all verifiers, into OMBRELIA_VERIFIER_CLASSES.
# The same table makes docs/verifiers.md. Here it is held against sources, samples and tests, and by a test against
# the registry.
include(CheckVerifierFiles)
ombrelia_check_verifier_files("${PROJECT_SOURCE_DIR}")
# A source that comes or goes is noticed by the next build.
file(GLOB verifier_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/verifiers/*.cpp")

set(OMBRELIA_VERIFIER_MANIFEST "${PROJECT_SOURCE_DIR}/verifiers/manifest.json")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${OMBRELIA_VERIFIER_MANIFEST}")
file(READ "${OMBRELIA_VERIFIER_MANIFEST}" manifest)
string(JSON count LENGTH "${manifest}" verifiers)
math(EXPR last "${count} - 1")
set(OMBRELIA_VERIFIER_CLASSES "")
set(OMBRELIA_READABLE_VERIFIER_CLASSES "")  # of experiments that leave a readable data file
foreach(index RANGE ${last})
  string(JSON class GET "${manifest}" verifiers ${index} class)
  list(APPEND OMBRELIA_VERIFIER_CLASSES "${class}")
  string(JSON expects_none GET "${manifest}" verifiers ${index} expect_empty_datafile)
  if(NOT expects_none)
    list(APPEND OMBRELIA_READABLE_VERIFIER_CLASSES "${class}")
  endif()
endforeach()
