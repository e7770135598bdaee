# cmake -DCONSUMER=<folder> -DSUBPROJECT=<repository> -DBUILD=<folder> -DGENERATOR=<name>
#     -DOPTIONS=<list> -P subprojectDefaults.cmake
# Configures the consumer with this repository as a part of it and looks at what that brings.
cmake_minimum_required(VERSION 3.21)
file(REMOVE_RECURSE ${BUILD})
execute_process(
    COMMAND ${CMAKE_COMMAND} -S ${CONSUMER} -B ${BUILD} -G ${GENERATOR} ${OPTIONS}
        -DVIA=subproject -DKIND=static -DSUBPROJECT=${SUBPROJECT}
    OUTPUT_QUIET
    COMMAND_ERROR_IS_FATAL ANY)

# The consumer lists all targets of the repository that "all" would build.
file(STRINGS ${BUILD}/targets.txt targets)
list(SORT targets)
set(expected vobase vomap vtcontrolbase vtcontrolcolorscheme vtgiscore)
if(NOT targets STREQUAL expected)
    message(SEND_ERROR "The host builds ${targets}, not ${expected}")
endif()

# Its own three tests and no others.
execute_process(
    COMMAND ${CMAKE_CTEST_COMMAND} -N
    WORKING_DIRECTORY ${BUILD}
    OUTPUT_VARIABLE tests
    COMMAND_ERROR_IS_FATAL ANY)
if(NOT tests MATCHES "Total Tests: 3\n")
    message(SEND_ERROR "The host has other tests than its own:\n${tests}")
endif()

# Nothing to install.
file(STRINGS ${BUILD}/vtcontrolcolorscheme/cmake_install.cmake rules REGEX "file\\(INSTALL")
if(rules)
    message(SEND_ERROR "The host installs our files: ${rules}")
endif()
