# Builds a host by qmake and runs it:
#   cmake -DQMAKE=... -DPROJECT=... -DBUILD=... -DPACKAGE=<prefix> -P qmake.cmake
file(REMOVE_RECURSE ${BUILD})
file(MAKE_DIRECTORY ${BUILD})
file(GLOB_RECURSE description ${PACKAGE}/*/vtcontrolcolorscheme.pc)
get_filename_component(folder "${description}" DIRECTORY)
set(ENV{PKG_CONFIG_PATH} ${folder})
get_filename_component(libraries ${folder} DIRECTORY)
set(ENV{LD_LIBRARY_PATH} ${libraries})
function(run)
    execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${BUILD} RESULT_VARIABLE result
        OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(result)
        message(FATAL_ERROR "${ARGN}: ${result}\n${output}")
    endif()
endfunction()
run(${QMAKE} ${PROJECT})
run(make)
run(${BUILD}/namesakes)
