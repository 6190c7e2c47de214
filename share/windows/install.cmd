@echo off
rem Registers LWConfigObjects where it was unpacked: for everybody when run as administrator, else for the current
rem user. "install /uninstall" undoes that; "install /user" registers for the current user in any case.
rem Ends with 0 when all is done, 1 when something could not be registered or removed, 2 for a wrong argument.
setlocal
set "here=%~dp0"
set "here=%here:~0,-1%"
set "product=HKLM\Software\Corvantis\Lexiwend4"
set "maker=HKLM\Software\Corvantis"
set "failed="

rem Which regsvr32 is for which server.
set "tool64="
set "tool32=%SystemRoot%\SysWOW64\regsvr32.exe"
if /i "%PROCESSOR_ARCHITECTURE%"=="x86" set "tool32=%SystemRoot%\System32\regsvr32.exe"
if /i "%PROCESSOR_ARCHITECTURE%"=="AMD64" set "tool64=%SystemRoot%\System32\regsvr32.exe"
if defined PROCESSOR_ARCHITEW6432 (
  set "tool64=%SystemRoot%\Sysnative\regsvr32.exe"
  set "tool32=%SystemRoot%\SysWOW64\regsvr32.exe"
)

if "%~1"=="" goto install
if /i "%~1"=="/user" goto user
if /i "%~1"=="/uninstall" goto uninstall
echo Usage: install [/user ^| /uninstall]
exit /b 2

:install
rem Only an administrator can write this key.
reg add "%maker%" /f /reg:32 >nul 2>&1
if errorlevel 1 goto user
echo Registering for everybody who uses this computer.
call :all "/s" registered
if defined failed exit /b 1
call :value "%product%" InstallPath4 "%here%"
call :value "%product%" ConfigPath "%here%\starter"
call :value "%maker%" CommonPath "%here%"
goto end

:user
echo Registering for the current user.
call :all "/s /n /i:user" registered
if defined failed exit /b 1
reg query "%product%" /v ConfigPath /reg:32 >nul 2>&1
if not errorlevel 1 goto end
echo Nothing tells yet where the configuration is: only an administrator can write
echo that to %product%, value ConfigPath. The starter configuration is in
echo "%here%\starter"
goto end

:uninstall
set "found="
reg query HKLM\Software\Classes\LWConfigObjects.Root /ve >nul 2>&1
if errorlevel 1 goto uninstalluser
set "found=1"
echo Removing the registration for everybody who uses this computer.
call :all "/s /u" removed
:uninstalluser
reg query HKCU\Software\Classes\LWConfigObjects.Root /ve >nul 2>&1
if errorlevel 1 goto uninstalled
set "found=1"
echo Removing the registration for the current user.
call :all "/s /u /n /i:user" removed
:uninstalled
if not defined found echo Nothing is registered.
if defined found echo The configuration, and where it is, stay as they are.
goto end

:end
if defined failed exit /b 1
exit /b 0

rem all SWITCHES DONE: runs regsvr32 for each of the two servers.
:all
if defined tool64 call :one "%tool64%" x64 %1 %2
call :one "%tool32%" x86 %1 %2
exit /b 0

rem one TOOL FOLDER SWITCHES DONE
:one
if not exist "%~1" goto notool
"%~1" %~3 "%here%\%2\LWConfigObjects.dll"
if errorlevel 1 goto fails
echo   %2\LWConfigObjects.dll: %4.
exit /b 0
:notool
echo   %2\LWConfigObjects.dll: left out, this system does not run it.
exit /b 0
:fails
echo   %2\LWConfigObjects.dll: could not be %4, regsvr32 says %errorlevel%.
set "failed=1"
exit /b 0

rem value KEY NAME TEXT: writes the text where there is none.
:value
reg query "%~1" /v %2 /reg:32 >nul 2>&1
if not errorlevel 1 goto kept
reg add "%~1" /v %2 /d "%~3" /f /reg:32 >nul
if errorlevel 1 goto unwritten
echo   %2 is now "%~3"
exit /b 0
:kept
echo   %2 is there already and stays as it is.
exit /b 0
:unwritten
echo   %2 could not be written to %~1.
set "failed=1"
exit /b 0
