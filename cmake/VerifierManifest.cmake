# Reads verifiers/manifest.json, the one table of all verifiers, into OMBRELIA_VERIFIER_CLASSES.
# The same table makes docs/verifiers.md and is held against sources, samples and registry by a test.

set(OMBRELIA_VERIFIER_MANIFEST "${PROJECT_SOURCE_DIR}/verifiers/manifest.json")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${OMBRELIA_VERIFIER_MANIFEST}")
file(READ "${OMBRELIA_VERIFIER_MANIFEST}" manifest)
string(JSON count LENGTH "${manifest}" verifiers)
math(EXPR last "${count} - 1")
set(OMBRELIA_VERIFIER_CLASSES "")
foreach(index RANGE ${last})
  string(JSON class GET "${manifest}" verifiers ${index} class)
  list(APPEND OMBRELIA_VERIFIER_CLASSES "${class}")
endforeach()
