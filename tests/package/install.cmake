# cmake -DBUILD=<build folder> -DPREFIX=<folder> -P install.cmake
# Installs a build into an empty folder.
cmake_minimum_required(VERSION 3.21)
file(REMOVE_RECURSE ${PREFIX})
execute_process(
    COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX}
    OUTPUT_QUIET
    COMMAND_ERROR_IS_FATAL ANY)
