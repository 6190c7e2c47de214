# Dependencies point down: a file includes headers of its own room and of the rooms before it in this list only.
cmake_minimum_required(VERSION 3.25)

set(rooms core/base core/registry_text platform core/files core/xml core/loading
          namespaces pages externaldocs comments options templates root automation paths transaction checking editing)
# Faces stand on all of these, and on no other face.
set(faces tools python com)

# A source, never a header, may follow a back-reference to the owner of its objects.
set(exceptions
  "lwconfig/pages/node_def.cpp includes lwconfig/templates/page_template.h"
)

set(complaints "")
set(used_exceptions "")
file(GLOB_RECURSE files RELATIVE ${SOURCE_DIR}
     ${SOURCE_DIR}/lwconfig/*.h ${SOURCE_DIR}/lwconfig/*.cpp
     ${SOURCE_DIR}/tools/*.h ${SOURCE_DIR}/tools/*.cpp
     ${SOURCE_DIR}/python/*.h ${SOURCE_DIR}/python/*.cpp
     ${SOURCE_DIR}/com/*.h ${SOURCE_DIR}/com/*.cpp)

# The room of a path from the top of the tree; files directly in lwconfig/ are the room "root". Empty for a folder
# that is no room.
function(find_room path result)
  if(path MATCHES "^lwconfig/(core/[^/]+)/")
    set(room ${CMAKE_MATCH_1})
  elseif(path MATCHES "^lwconfig/([^/]+)/")
    set(room ${CMAKE_MATCH_1})
  elseif(path MATCHES "^lwconfig/")
    set(room root)
  else()
    string(REGEX MATCH "^[^/]+" room ${path})
  endif()
  if(NOT room IN_LIST rooms AND NOT room IN_LIST faces)
    set(room "")
  endif()
  set(${result} "${room}" PARENT_SCOPE)
endfunction()

foreach(file IN LISTS files)
  find_room(${file} room)
  if(NOT room)
    list(APPEND complaints "${file} is in a folder that the order of the rooms does not name")
    continue()
  endif()
  list(FIND rooms ${room} floor)
  if(room IN_LIST faces)
    list(LENGTH rooms floor)
  endif()

  file(STRINGS ${SOURCE_DIR}/${file} includes REGEX "^ *# *include ")
  foreach(include IN LISTS includes)
    string(REGEX REPLACE "^ *# *include *[<\"]([^>\"]*)[>\"].*" "\\1" target ${include})
    if(file MATCHES "^lwconfig/.*\\.h$" AND NOT file MATCHES "/internal/" AND target MATCHES "/internal/")
      list(APPEND complaints "${file} includes ${target}, which is not installed")
    elseif(target MATCHES "\\.\\./")
      list(APPEND complaints "${file} includes ${target}, a path that leaves its folder")
    elseif(target MATCHES "^(tests|bench|fuzz)/")
      list(APPEND complaints "${file} includes ${target}")
    elseif(target MATCHES "^(lwconfig|tools|python|com)/")
      find_room(${target} target_room)
      list(FIND rooms "${target_room}" target_floor)
      if(target_room STREQUAL room OR (NOT target_floor EQUAL -1 AND target_floor LESS floor))
        continue()
      elseif("${file} includes ${target}" IN_LIST exceptions)
        list(APPEND used_exceptions "${file} includes ${target}")
      else()
        list(APPEND complaints "${file} includes ${target}, which lies above it")
      endif()
    elseif(file MATCHES "^lwconfig/.*\\.h$" AND NOT file MATCHES "/(internal|posix|windows)/"
           AND NOT target MATCHES "^[a-z0-9_]+$")
      # Users of an installed header need no other library, and no particular system.
      list(APPEND complaints "${file} includes ${target}, which only the standard library may do")
    endif()
  endforeach()
endforeach()

foreach(exception IN LISTS exceptions)
  if(NOT exception IN_LIST used_exceptions OR exception MATCHES "\\.h includes")
    list(APPEND complaints "The exception \"${exception}\" is not needed, or not allowed")
  endif()
endforeach()
list(LENGTH files file_count)
if(file_count EQUAL 0)
  message(FATAL_ERROR "No source was found in ${SOURCE_DIR}")
endif()
if(complaints)
  list(JOIN complaints "\n  " text)
  message(FATAL_ERROR "\n  ${text}")
endif()
