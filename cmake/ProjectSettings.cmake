# Settings that every room shares: language, warnings, sanitizers, precompiled header, output folders.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# The plug-in is a shared library that exports three names, and the object files of the rooms are
# shared between it and the tests.
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# Programs too: a precompiled header made with -fPIC cannot serve a unit that is compiled with -fPIE.
set(CMAKE_CXX_COMPILE_OPTIONS_PIE "-fPIC")
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

# No NDEBUG: a null boost::shared_ptr where one is required must abort in every build.
set(CMAKE_CXX_FLAGS_RELEASE "-O2" CACHE STRING "" FORCE)
set(CMAKE_CXX_FLAGS_DEBUG "-g1" CACHE STRING "" FORCE)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
if(APPLE)
  set(CMAKE_BUILD_RPATH "@loader_path/../lib")
else()
  set(CMAKE_BUILD_RPATH "$ORIGIN/../lib")
endif()
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" CCACHE_NOHASHDIR=1
      "CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime"
      ${CCACHE_PROGRAM})
endif()

find_package(wxWidgets 3.2 REQUIRED COMPONENTS core base)
find_package(Boost 1.74 REQUIRED)

add_library(ombrelia_settings INTERFACE)
target_include_directories(ombrelia_settings INTERFACE "${PROJECT_SOURCE_DIR}"
                                                       "${PROJECT_BINARY_DIR}/generated")
target_include_directories(ombrelia_settings SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS}
                                                              ${Boost_INCLUDE_DIRS})
target_compile_definitions(ombrelia_settings INTERFACE ${wxWidgets_DEFINITIONS})
separate_arguments(OMBRELIA_WX_FLAGS UNIX_COMMAND "${wxWidgets_CXX_FLAGS}")
target_compile_options(
  ombrelia_settings
  INTERFACE ${OMBRELIA_WX_FLAGS}
            -Wall -Wextra -Wpedantic -Wshadow -Wconversion
            $<$<BOOL:${OMBRELIA_WARNINGS_AS_ERRORS}>:-Werror>
            # A unique symbol would keep the library loaded after dlclose.
            $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>
            $<$<CXX_COMPILER_ID:Clang>:-Wno-pragma-system-header-outside-header>
            # Newer ones warn of [[no_unique_address]] before C++20.
            $<$<CXX_COMPILER_ID:Clang,AppleClang>:-Wno-c++20-extensions>
            # The time in a precompiled header would make every build new to the compiler's cache.
            "$<$<CXX_COMPILER_ID:Clang>:SHELL:-Xclang -fno-pch-timestamp>")
target_link_libraries(ombrelia_settings INTERFACE ${wxWidgets_LIBRARIES})

if(OMBRELIA_SANITIZE)
  target_compile_options(ombrelia_settings INTERFACE -fsanitize=${OMBRELIA_SANITIZE}
                                                     -fno-sanitize-recover=all
                                                     -fno-omit-frame-pointer)
  target_link_options(ombrelia_settings INTERFACE -fsanitize=${OMBRELIA_SANITIZE})
endif()

# What the programs on the console do, such as reading options and writing JSON, is not what a program waits for. A
# build with sanitizers leaves it unoptimised: it compiles in half of the time.
add_library(ombrelia_console_settings INTERFACE)
target_link_libraries(ombrelia_console_settings INTERFACE ombrelia_settings)
if(OMBRELIA_SANITIZE)
  target_compile_options(ombrelia_console_settings INTERFACE -O0)
endif()

# A fuzzer sees which code of the rooms an input reaches.
set(OMBRELIA_ROOM_OPTIONS "")
if(OMBRELIA_FUZZERS)
  set(OMBRELIA_ROOM_OPTIONS -fsanitize=fuzzer-no-link)
endif()

# Precompiled headers: the headers of libraries are what compile time is spent on. One is for the rooms and one for the
# programs on the console.
set(OMBRELIA_PRECOMPILED_HEADERS
    <wx/string.h> <wx/arrstr.h> <wx/filename.h> <wx/textfile.h> <wx/tokenzr.h> <wx/event.h> <wx/log.h>
    <boost/shared_ptr.hpp> <deque> <list> <map> <string> <vector> <algorithm>)
if(OMBRELIA_PCH)
  file(WRITE "${PROJECT_BINARY_DIR}/generated/pch/PrecompiledHeader.cpp.in" "// Carries a precompiled header.\n")
  configure_file("${PROJECT_BINARY_DIR}/generated/pch/PrecompiledHeader.cpp.in"
                 "${PROJECT_BINARY_DIR}/generated/pch/PrecompiledHeader.cpp" COPYONLY)
  foreach(kind IN ITEMS "" console_)
    add_library(ombrelia_${kind}pch OBJECT "${PROJECT_BINARY_DIR}/generated/pch/PrecompiledHeader.cpp")
    target_link_libraries(ombrelia_${kind}pch PRIVATE ombrelia_${kind}settings)
    target_precompile_headers(ombrelia_${kind}pch PRIVATE ${OMBRELIA_PRECOMPILED_HEADERS}
                              <boost/assign/list_of.hpp>)
  endforeach()
  target_compile_options(ombrelia_pch PRIVATE ${OMBRELIA_ROOM_OPTIONS})
  target_precompile_headers(ombrelia_console_pch PRIVATE <filesystem> <fstream> <functional> <iostream> <optional> <set>)
  # Large headers that few sources use make it slower with gcc, which copies out all of it, and faster with clang.
  if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    find_package(nlohmann_json REQUIRED)
    target_link_libraries(ombrelia_console_pch PRIVATE nlohmann_json::nlohmann_json)
    target_precompile_headers(ombrelia_console_pch PRIVATE <nlohmann/json.hpp>)
  endif()
endif()

# ombrelia_room(NAME SOURCES...) makes the object library ombrelia_NAME with the settings of all rooms.
function(ombrelia_room name)
  add_library(ombrelia_${name} OBJECT ${ARGN})
  target_link_libraries(ombrelia_${name} PRIVATE ombrelia_settings)
  ombrelia_use_pch(ombrelia_${name})
endfunction()

# ombrelia_use_pch(TARGET): with the precompiled header of the rooms, and what must be the same for all that use it.
function(ombrelia_use_pch target)
  target_compile_options(${target} PRIVATE ${OMBRELIA_ROOM_OPTIONS})
  if(OMBRELIA_PCH)
    target_precompile_headers(${target} REUSE_FROM ombrelia_pch)
  endif()
endfunction()

# ombrelia_console(TARGET): with the settings and the precompiled header of the programs on the console.
function(ombrelia_console target)
  target_link_libraries(${target} PRIVATE ombrelia_console_settings)
  if(OMBRELIA_PCH)
    target_precompile_headers(${target} REUSE_FROM ombrelia_console_pch)
  endif()
endfunction()

# ombrelia_commit(ROOM): makes generated/ROOM/Commit.cpp of the room's template, before the room is built.
function(ombrelia_commit room)
  string(MAKE_C_IDENTIFIER "ombrelia_commit_${room}" target)
  set(output "${PROJECT_BINARY_DIR}/generated/${room}/Commit.cpp")
  add_custom_target(
    ${target} BYPRODUCTS "${output}"
    COMMAND "${CMAKE_COMMAND}" -D "SOURCE=${PROJECT_SOURCE_DIR}" -D
            "TEMPLATE=${PROJECT_SOURCE_DIR}/${room}/Commit.cpp.in" -D "OUTPUT=${output}" -P
            "${PROJECT_SOURCE_DIR}/cmake/Commit.cmake"
    VERBATIM)
endfunction()
