# Runs the scripts of the guide for Windows, one after the other, against a copy of the starter configuration in FOLDER,
# and compares what they tell with EXPECTED.
#   cmake -D EMULATOR=... -D HOST=... -D GUIDE=... -D EXPECTED=... -D STARTER=... -D FOLDER=... -P guide.cmake
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${FOLDER})
file(COPY ${STARTER}/ DESTINATION ${FOLDER}/configuration)
string(REPLACE "/" "\\" product_path "Z:${FOLDER}/configuration")
execute_process(COMMAND ${EMULATOR} reg add "HKLM\\Software\\Corvantis\\Lexiwend4" /v ConfigPath /d ${product_path} /f /reg:32
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

file(READ ${GUIDE} guide)
set(told "")
while(guide MATCHES "```(vb|j)script\n")
  set(language ${CMAKE_MATCH_1})
  string(FIND "${guide}" "${CMAKE_MATCH_0}" start)
  string(LENGTH "${CMAKE_MATCH_0}" length)
  math(EXPR start "${start} + ${length}")
  string(SUBSTRING "${guide}" ${start} -1 guide)
  string(FIND "${guide}" "```" end)
  string(SUBSTRING "${guide}" 0 ${end} script)
  set(file ${FOLDER}/sample.${language}s)
  file(WRITE ${file} "${script}")
  execute_process(COMMAND ${EMULATOR} ${HOST} //nologo Z:${file} OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
  string(APPEND told "${language}script\n${output}")
endwhile()
execute_process(COMMAND ${EMULATOR} reg delete "HKLM\\Software\\Corvantis\\Lexiwend4" /v ConfigPath /f /reg:32 OUTPUT_QUIET)

string(REPLACE "\r\n" "\n" told "${told}")
string(REPLACE "${product_path}" "CONFIGURATION" told "${told}")
file(READ ${EXPECTED} expected)
if(NOT told STREQUAL expected)
  message(FATAL_ERROR "The samples told\n${told}\ninstead of what is in ${EXPECTED}.")
endif()
