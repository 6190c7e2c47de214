# Unpacks the zip for Windows and does with it what its users do: install it for everybody and for one user, create
# objects in scripts of either word size, and remove it again without a trace.
#   cmake -D ZIP=<zip> -D RUN=<tools/windows-run> -D WORK_DIR=<folder> [-D NO_32_BIT=ON] -P windows_test.cmake
cmake_minimum_required(VERSION 3.25)

# (Wine's command prompt loses a percent sign, which Windows keeps.)
set(folder "${WORK_DIR}/Lexiwend (1 ^neu)")
file(REMOVE_RECURSE ${WORK_DIR})
file(ARCHIVE_EXTRACT INPUT ${ZIP} DESTINATION ${folder})
set(sizes 64 32)
if(NO_32_BIT)
  set(sizes 64)
endif()
set(bin_64 "C:\\windows\\system32")
set(bin_32 "C:\\windows\\syswow64")
set(maker "HKLM\\Software\\Corvantis")

# run(STATUS PROGRAM ARGUMENT...) leaves what the program prints in `output`.
function(run status)
  execute_process(COMMAND ${RUN} ${ARGN} WORKING_DIRECTORY ${folder} RESULT_VARIABLE result
                  OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  if(NOT result STREQUAL status)
    message(FATAL_ERROR "${ARGN} ended with ${result} instead of ${status}:\n${output}${errors}")
  endif()
  string(REPLACE "\r" "" output "${output}")
  set(output "${output}" PARENT_SCOPE)
endfunction()

function(expect)
  foreach(text IN LISTS ARGN)
    string(FIND "${output}" "${text}" position)
    if(position EQUAL -1)
      message(FATAL_ERROR "The output lacks \"${text}\":\n${output}")
    endif()
  endforeach()
endfunction()

function(expect_both done)
  expect("x64\\LWConfigObjects.dll: ${done}.")
  if(32 IN_LIST sizes)
    expect("x86\\LWConfigObjects.dll: ${done}.")
  else()
    expect("x86\\LWConfigObjects.dll: left out")
  endif()
endfunction()

# What is registered, for everybody and the user.
function(take_snapshot result)
  set(all "")
  foreach(hive HKLM HKCU)
    run(0 reg export "${hive}\\Software\\Classes" classes.reg /y)
    file(READ "${folder}/classes.reg" content HEX)
    string(APPEND all "${content}")
  endforeach()
  set(${result} "${all}" PARENT_SCOPE)
endfunction()

function(expect_no_trace)
  take_snapshot(after)
  if(NOT after STREQUAL before)
    message(FATAL_ERROR "Removing the registration leaves something behind")
  endif()
endfunction()

function(expect_script_output text)
  foreach(size IN LISTS sizes)
    run(0 "${bin_${size}}\\cscript.exe" //nologo try.vbs)
    if(NOT output STREQUAL text)
      message(FATAL_ERROR "The ${size}-bit script prints\n${output}instead of\n${text}")
    endif()
  endforeach()
endfunction()

# The clients' tests leave behind where their configuration was.
execute_process(COMMAND ${RUN} reg delete ${maker} /f /reg:32 OUTPUT_QUIET ERROR_QUIET)
run(0 reg add "HKCU\\Software\\Classes" /f)  # which every user has on Windows
# A script host registers itself when it runs for the first time.
file(WRITE "${folder}/try.vbs" "WScript.Echo \"done\"\n")
expect_script_output("done\n")
file(WRITE "${folder}/try.vbs" "Set root = CreateObject(\"LWConfigObjects.Root\")
WScript.Echo root.PageTemplates.Count
WScript.Echo root.ConfigPath
WScript.Echo \"done\"
")
take_snapshot(before)

run(0 cmd /c install.cmd)
expect("for everybody" "InstallPath4 is now" "ConfigPath is now" "CommonPath is now")
expect_both(registered)
file(GLOB templates LIST_DIRECTORIES ON "${folder}/starter/Templates/*")
list(LENGTH templates template_count)
string(REPLACE "/" "\\" native "Z:${folder}/starter")
expect_script_output("${template_count}\n${native}\ndone\n")

# Again: what was chosen since then stays.
run(0 reg add "${maker}\\Lexiwend4" /v ConfigPath /d "C:\\own" /f /reg:32)
run(0 cmd /c install.cmd)
expect("ConfigPath is there already and stays as it is.")
run(0 reg query "${maker}\\Lexiwend4" /v ConfigPath /reg:32)
expect("C:\\own")

run(0 cmd /c "install.cmd /uninstall")
expect_both(removed)
expect_no_trace()
run(0 cmd /c "install.cmd /uninstall")
expect("Nothing is registered.")

run(0 reg delete "${maker}" /f /reg:32)
run(0 cmd /c "install.cmd /user")
expect("for the current user" "only an administrator")
expect_both(registered)
run(0 reg query "HKCU\\Software\\Classes\\LWConfigObjects.Root\\CurVer" /ve)
expect("LWConfigObjects.Root.1")
run(0 cmd /c "install.cmd /uninstall")
expect_both(removed)
expect_no_trace()

run(2 cmd /c "install.cmd /nonsense")
expect("Usage:")
file(RENAME "${folder}/x64/LWConfigObjects.dll" "${folder}/x64/away.dll")
run(1 cmd /c install.cmd)
expect("Nothing is registered" "Unpack the whole zip")
expect_no_trace()
file(WRITE "${folder}/x64/LWConfigObjects.dll" "no server")
run(1 cmd /c install.cmd)
expect("x64\\LWConfigObjects.dll: could not be registered")
file(RENAME "${folder}/x64/away.dll" "${folder}/x64/LWConfigObjects.dll")
run(0 cmd /c "install.cmd /uninstall")
expect_no_trace()
file(REMOVE_RECURSE ${WORK_DIR})
