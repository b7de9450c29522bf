# Fills in a template with the commit of the sources. It is run by every build, and touches the output only if that is
# another one: cmake -D SOURCE=FOLDER -D TEMPLATE=FILE -D OUTPUT=FILE -P cmake/Commit.cmake
cmake_minimum_required(VERSION 3.25)

set(COMMIT "")
if(EXISTS "${SOURCE}/.git")  # not a repository that the sources merely lie in
  execute_process(
    COMMAND "${CMAKE_COMMAND}" -E env GIT_OPTIONAL_LOCKS=0 git -C "${SOURCE}" describe --always --dirty
            --abbrev=40 --exclude=*
    OUTPUT_VARIABLE described OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE status)
  if(status EQUAL 0)
    string(REGEX REPLACE "-dirty$" " with changes" COMMIT "${described}")
  endif()
endif()
configure_file("${TEMPLATE}" "${OUTPUT}" @ONLY)
