# Compares the files in the tree that are written from the tables of classes and commands with what they should hold,
# or, with WRITE on, writes them.
#   cmake -D COMMAND=<lwconfig> -D SOURCE_DIR=<tree> [-D WRITE=ON] -P generated.cmake
cmake_minimum_required(VERSION 3.25)

set(files com/LWConfigObjects.idl docs/reference.md python/lwconfig/__init__.pyi docs/lwconfig.1)
set(commands "describe --idl" "describe --markdown" "describe --stubs" "help --manual-page")

set(stale "")
foreach(file command IN ZIP_LISTS files commands)
  separate_arguments(command)
  execute_process(COMMAND ${COMMAND} ${command} OUTPUT_VARIABLE wanted COMMAND_ERROR_IS_FATAL ANY)
  set(path ${SOURCE_DIR}/${file})
  if(WRITE)
    file(WRITE ${path} "${wanted}")
    continue()
  endif()
  set(found "")
  if(EXISTS ${path})
    file(READ ${path} found)
  endif()
  if(NOT found STREQUAL wanted)
    list(APPEND stale ${file})
  endif()
endforeach()
if(stale)
  list(JOIN stale ", " names)
  message(FATAL_ERROR "Differs from the tables of classes and commands: ${names}. `make generate` writes it anew.")
endif()
