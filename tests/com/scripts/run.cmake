# Runs a script, or those in a guide one after the other, against a copy of the starter configuration in FOLDER and compares
# what they tell with EXPECTED. The script host says nothing of a script that ends early. With NATIVE, the command of this
# system makes the edits of the same name in a copy of its own, and has to write the same files.
#   cmake -D EMULATOR=... -D HOST=... -D SCRIPT=... -D EXPECTED=... -D STARTER=... -D FOLDER=... [-D NATIVE=...] -P run.cmake
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${FOLDER})
set(configuration ${FOLDER}/configuration)
file(COPY ${STARTER}/ DESTINATION ${configuration})
string(REPLACE "/" "\\" product_path "Z:${configuration}")
set(key "HKLM\\Software\\Corvantis\\Lexiwend4" /v ConfigPath /f /reg:32)
execute_process(COMMAND ${EMULATOR} reg add ${key} /d ${product_path} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

set(scripts ${SCRIPT})
if(SCRIPT MATCHES "\\.md$")
  set(scripts "")
  file(READ ${SCRIPT} guide)
  while(guide MATCHES "```(vb|j)script\n([^`]*)```(.*)")
    list(LENGTH scripts number)
    set(file ${FOLDER}/sample${number}.${CMAKE_MATCH_1}s)
    set(guide "${CMAKE_MATCH_3}")
    file(WRITE ${file} "${CMAKE_MATCH_2}")
    list(APPEND scripts ${file})
  endwhile()
endif()
set(told "")
foreach(script IN LISTS scripts)
  execute_process(COMMAND ${EMULATOR} ${HOST} //nologo Z:${script} ${product_path} OUTPUT_VARIABLE output
                  COMMAND_ERROR_IS_FATAL ANY)
  string(APPEND told "${output}")
endforeach()
execute_process(COMMAND ${EMULATOR} reg delete ${key} OUTPUT_QUIET)
string(REPLACE "\r\n" "\n" told "${told}")
string(REPLACE "${product_path}" "CONFIGURATION" told "${told}")
file(READ ${EXPECTED} expected)
if(NOT told STREQUAL expected)
  message(FATAL_ERROR "The scripts told\n${told}\ninstead of what is in ${EXPECTED}.")
endif()

if(NATIVE)
  # There, the same path leads below a folder that holds the drives.
  set(native ${FOLDER}/drives/z${configuration})
  file(COPY ${STARTER}/ DESTINATION ${native})
  string(REPLACE "\\" "\\\\" written_path "${product_path}")
  file(WRITE ${FOLDER}/machine.reg
       "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\Software\\Corvantis\\Lexiwend4]\n\"ConfigPath\"=\"${written_path}\"\n")
  string(REGEX REPLACE "\\.js$" ".txt" edits ${SCRIPT})
  execute_process(COMMAND ${CMAKE_COMMAND} -E env LWCONFIG_REGISTRY=${FOLDER} LWCONFIG_DRIVES=${FOLDER}/drives
                          ${NATIVE} session ${edits} OUTPUT_VARIABLE transcript COMMAND_ERROR_IS_FATAL ANY)
  if(transcript MATCHES "error")
    message(FATAL_ERROR "${transcript}")
  endif()
  execute_process(COMMAND diff -r ${configuration} ${native} COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C diff -rq ${STARTER} ${configuration} OUTPUT_VARIABLE changed)
  set(template Templates/PlatformSDK)
  if(NOT changed STREQUAL "Files ${STARTER}/${template}/config.xml and ${configuration}/${template}/config.xml differ\n\
Only in ${configuration}/${template}: config.xml.bak\n")
    message(FATAL_ERROR "What was changed is\n${changed}")
  endif()
endif()
