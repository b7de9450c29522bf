# What is installed, and the Debian package of it.

# The manual pages and completions come from the programs' own --help.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(manuals "${PROJECT_BINARY_DIR}/manuals")
set(made "")
foreach(program IN ITEMS verify-datafiles tabulon-cli)
  set(files "${manuals}/${program}.1" "${manuals}/${program}.bash" "${manuals}/_${program}")
  add_custom_command(
    OUTPUT ${files}
    COMMAND "${Python3_EXECUTABLE}" "${PROJECT_SOURCE_DIR}/scripts/make-manual" $<TARGET_FILE:${program}> "${manuals}"
    DEPENDS ${program} "${PROJECT_SOURCE_DIR}/scripts/make-manual"
    COMMENT "Making the manual of ${program}" VERBATIM)
  list(APPEND made ${files})
endforeach()
add_custom_target(manuals ALL DEPENDS ${made})

ombrelia_install_rpath(verify-datafiles "/../${OMBRELIA_INSTALLED_LIBRARIES}" "/../lib")
ombrelia_install_rpath(DataHookOutputTestingPlugin "/.")
ombrelia_install_rpath(tabulon-cli)
install(TARGETS verify-datafiles tabulon-cli RUNTIME DESTINATION bin)
install(TARGETS DataHookOutputTestingPlugin LIBRARY DESTINATION "${OMBRELIA_INSTALLED_LIBRARIES}")
if(NOT OMBRELIA_PLUGINCOMMON_LIBRARY)  # the host brings its own
  ombrelia_install_rpath(OMPlugInCommon)
  install(TARGETS OMPlugInCommon LIBRARY DESTINATION "${OMBRELIA_INSTALLED_LIBRARIES}")
endif()
foreach(program IN ITEMS verify-datafiles tabulon-cli)
  install(FILES "${manuals}/${program}.1" DESTINATION share/man/man1)
  install(FILES "${manuals}/${program}.bash" DESTINATION share/bash-completion/completions RENAME "${program}")
  foreach(folder IN ITEMS site-functions vendor-completions)  # the latter is where Debian's zsh looks
    install(FILES "${manuals}/_${program}" DESTINATION share/zsh/${folder})
  endforeach()
endforeach()
install(DIRECTORY samples/datafiles/ DESTINATION "${OMBRELIA_INSTALLED_SAMPLES}")
install(FILES verifiers/manifest.json DESTINATION "${OMBRELIA_INSTALLED_DATA}" RENAME verifiers.json)
install(FILES LICENSE DESTINATION "${OMBRELIA_INSTALLED_DOCUMENTS}" RENAME copyright)
install(FILES CHANGELOG.md docs/deploy.md docs/farm.md docs/results-format.md docs/results.schema.json docs/servers.md
              docs/tabulon-cli.md docs/verifiers.md
        DESTINATION "${OMBRELIA_INSTALLED_DOCUMENTS}")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ombrelia-data-hook)
set(CPACK_PACKAGE_VENDOR "Ombrelia data hook maintainers")
set(CPACK_PACKAGE_CONTACT "Ombrelia data hook maintainers <maintainers@ombrelia.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Verifies data files of the regression experiments")
set(CPACK_PACKAGE_DESCRIPTION
    "The data-hook plug-in that a host loads, verify-datafiles, which plays the host's part for data files that are\n there already, and tabulon-cli, which answers questions about data files.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
