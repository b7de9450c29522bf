# Where an installation puts what, below its prefix. The programs look there from where they stand themselves, so that the
# prefix may be moved. The libraries have a folder of their own, out of the loader's way: the stand-in has the
# name of the host's real library.
set(OMBRELIA_INSTALLED_LIBRARIES "lib/ombrelia-data-hook")
set(OMBRELIA_INSTALLED_DATA "share/ombrelia-data-hook")
set(OMBRELIA_INSTALLED_SAMPLES "${OMBRELIA_INSTALLED_DATA}/samples")
set(OMBRELIA_INSTALLED_DOCUMENTS "share/doc/ombrelia-data-hook")

# Targets linked with the host's own library find it in the folder it was linked from.
set(CMAKE_INSTALL_RPATH_USE_LINK_PATH ON)

# ombrelia_install_rpath(TARGET FOLDER...): the program or library finds its libraries in these folders, relative
# to its own, in the build tree as when it is installed. Were the two paths different, CMake would make room for the longer
# one by empty entries, and an empty entry is the working directory to the loader.
function(ombrelia_install_rpath target)
  string(REGEX REPLACE "/\\.\\./lib$" "" origin "${CMAKE_BUILD_RPATH}")
  list(TRANSFORM ARGN PREPEND "${origin}")
  set_target_properties(${target} PROPERTIES INSTALL_RPATH "${ARGN}" BUILD_WITH_INSTALL_RPATH ON)
endfunction()
