@echo off
rem Registers LWConfigObjects where it was unpacked: for everybody when run as administrator, else for the current
rem user. "install /uninstall" undoes that; "install /user" registers for the current user in any case.
rem Ends with 0 when all is done, 1 when something could not be registered or removed, 2 for a wrong argument.
setlocal EnableExtensions DisableDelayedExpansion
set "here=%~dp0"
set "here=%here:~0,-1%"
set "product=HKLM\Software\Corvantis\Lexiwend4"
set "maker=HKLM\Software\Corvantis"
set "try=HKLM\Software\Classes\LWConfigObjects.Install"
set "failed="

rem Which regsvr32 is for which server.
set "tool64="
set "tool32=%SystemRoot%\SysWOW64\regsvr32.exe"
if /i "%PROCESSOR_ARCHITECTURE%"=="x86" set "tool32=%SystemRoot%\System32\regsvr32.exe"
if /i "%PROCESSOR_ARCHITECTURE%"=="AMD64" set "tool64=%SystemRoot%\System32\regsvr32.exe"
rem A 32-bit prompt on a 64-bit system reaches the other one by this name, and its own by the one above.
if /i "%PROCESSOR_ARCHITEW6432%"=="AMD64" set "tool64=%SystemRoot%\Sysnative\regsvr32.exe"

if "%~1"=="" goto install
if /i "%~1"=="/user" goto install
if /i "%~1"=="/uninstall" goto uninstall
echo Usage: install [/user ^| /uninstall]
exit /b 2

:install
if not exist "%here%\x64\LWConfigObjects.dll" goto incomplete
if not exist "%here%\x86\LWConfigObjects.dll" goto incomplete
if /i "%~1"=="/user" goto user
rem Only an administrator can write where everybody's classes are.
reg add "%try%" /f >nul 2>&1
if errorlevel 1 goto user
reg delete "%try%" /f >nul 2>&1
echo Registering for everybody who uses this computer.
call :all "/s" registered
if defined failed goto end
set "text=%here%"
call :value "%product%" InstallPath4
call :value "%maker%" CommonPath
set "text=%here%\starter"
call :value "%product%" ConfigPath
goto end

:user
echo Registering for the current user.
call :all "/s /n /i:user" registered
if defined failed goto end
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

:incomplete
echo Nothing is registered: the servers, x64\LWConfigObjects.dll and x86\LWConfigObjects.dll,
echo are not both in "%here%".
echo Unpack the whole zip and run install there.
set "failed=1"

:end
if not "%~1"=="" goto done
rem Started from a folder's window, its own one closes at the end: first the text is to be read.
if /i "%~0"=="%~f0" timeout /t 20 2>nul
:done
if defined failed exit /b 1
exit /b 0

rem all SWITCHES DONE: runs regsvr32 for each of the two servers.
:all
call :one "%tool64%" x64 %1 %2
call :one "%tool32%" x86 %1 %2
exit /b 0

rem one TOOL FOLDER SWITCHES DONE
:one
if not exist "%~1" goto notool
"%~1" %~3 "%here%\%2\LWConfigObjects.dll"
if not "%errorlevel%"=="0" goto fails
echo   %2\LWConfigObjects.dll: %4.
exit /b 0
:notool
echo   %2\LWConfigObjects.dll: left out, this system has no regsvr32 for it.
exit /b 0
:fails
echo   %2\LWConfigObjects.dll: could not be %4, regsvr32 says %errorlevel%.
set "failed=1"
exit /b 0

rem value KEY NAME: writes "text", which a call would not pass as it is, where there is none.
:value
reg query "%~1" /v %2 /reg:32 >nul 2>&1
if not errorlevel 1 goto kept
reg add "%~1" /v %2 /d "%text%" /f /reg:32 >nul
if errorlevel 1 goto unwritten
echo   %2 is now "%text%"
exit /b 0
:kept
echo   %2 is there already and stays as it is.
exit /b 0
:unwritten
echo   %2 could not be written to %~1.
set "failed=1"
exit /b 0
