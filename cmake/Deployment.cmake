# Checks what a deployment has set, before anything is built of it. Also run as a script, by its test.
cmake_policy(VERSION 3.25)

# A machine is known by a text in its name.
foreach(option IN ITEMS BIG_MACOSX_SERVER SMALL_MACOSX_TESTBOX BUILD_NODE_HOST_PREFIX)
  if(NOT "${${option}}" MATCHES "[A-Za-z0-9]")
    message(FATAL_ERROR "${option} is \"${${option}}\". A text without a letter and without a digit "
                        "stands in the name of every host or of none.")
  endif()
endforeach()
string(TOUPPER "${BIG_MACOSX_SERVER}" server)
string(TOUPPER "${SMALL_MACOSX_TESTBOX}" testbox)
string(FIND "${server}" "${testbox}" testboxInServer)
string(FIND "${testbox}" "${server}" serverInTestbox)
if(NOT testboxInServer EQUAL -1 OR NOT serverInTestbox EQUAL -1)
  message(FATAL_ERROR "BIG_MACOSX_SERVER is \"${BIG_MACOSX_SERVER}\" and SMALL_MACOSX_TESTBOX is "
                      "\"${SMALL_MACOSX_TESTBOX}\". One stands in the other, so one of the two machines "
                      "would always be taken for both.")
endif()
string(TOUPPER "${BUILD_NODE_HOST_PREFIX}" capitals)
if(NOT "${BUILD_NODE_HOST_PREFIX}" STREQUAL "${capitals}")
  message(FATAL_ERROR "BUILD_NODE_HOST_PREFIX is \"${BUILD_NODE_HOST_PREFIX}\". It is looked for in a "
                      "host's name in capitals, so it must be \"${capitals}\".")
endif()

# The host's library and the headers that describe it come together.
if(OMBRELIA_PLUGINCOMMON_LIBRARY OR OMBRELIA_PLUGINCOMMON_INCLUDE_DIR)
  foreach(file IN ITEMS "${OMBRELIA_PLUGINCOMMON_LIBRARY}"
                        "${OMBRELIA_PLUGINCOMMON_INCLUDE_DIR}/OMSdkBase.h"
                        "${OMBRELIA_PLUGINCOMMON_INCLUDE_DIR}/PostProcessingFacade.h")
    if(NOT EXISTS "${file}" OR IS_DIRECTORY "${file}")
      message(FATAL_ERROR
              "OMBRELIA_PLUGINCOMMON_LIBRARY is \"${OMBRELIA_PLUGINCOMMON_LIBRARY}\" and "
              "OMBRELIA_PLUGINCOMMON_INCLUDE_DIR is \"${OMBRELIA_PLUGINCOMMON_INCLUDE_DIR}\". Set both, to "
              "a library and to the folder of its OMSdkBase.h and PostProcessingFacade.h, or none of "
              "them; there is no file \"${file}\".")
    endif()
  endforeach()
endif()
