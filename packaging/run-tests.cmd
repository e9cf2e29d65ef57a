@echo off
rem Runs the tests of the control in both bitnesses; see :usage below. Nobody needs to be an administrator: for one, the tests of
rem registration run, too, and take back what they entered. What the suites are stands in suites.txt: name, program, options,
rem what the system must have for it, and how many seconds it may take.
setlocal
cd /d "%~dp0"
if "%~1"=="/?" goto usage
if "%~1"=="--help" goto usage
set wanted=%~1
set passed=0
set failed=0
set known=no
if "%wanted%"=="" set known=yes
for /f "delims=|" %%s in (suites.txt) do if "%%s"=="%wanted%" set known=yes
if %known%==no goto unknown

rem The code page of programs that know no other text, and the dots per inch of the screen, as the registry writes them.
set codepage=codepage1252
for /f "tokens=3" %%v in ('reg query HKLM\SYSTEM\CurrentControlSet\Control\Nls\CodePage /v ACP') do set codepage=codepage%%v
set dpi=dpi0x60
for /f "tokens=2,3" %%t in ('reg query "HKCU\Control Panel\Desktop\WindowMetrics" /v AppliedDPI 2^>nul') do if "%%t"=="REG_DWORD" set dpi=dpi%%u

rem Tests may register the control where this user may, and where that takes nothing away from anybody.
set registering=no
reg query HKCR\VantikFrameTabProject.VantikFrameTab > nul 2>&1
if errorlevel 1 reg add HKLM\Software\Classes\VantikFrameTab.Tests /f > nul 2>&1 && set registering=an administrator and no registered control
reg delete HKLM\Software\Classes\VantikFrameTab.Tests /f > nul 2>&1

set builds=win32 win64
if "%PROCESSOR_ARCHITECTURE%%PROCESSOR_ARCHITEW6432%"=="x86" set builds=win32

if exist report rd /s /q report
if exist runs rd /s /q runs
md report
ver > report\system.txt
echo %codepage% %dpi% %builds%>> report\system.txt
echo The demo form takes pictures of itself
set timelimit="%cd%\win32\tools\timelimit\timelimit.exe"
%timelimit% 300 win32\demos\form\demo.exe --shot report\pictures > report\pictures.txt 2>&1
for %%b in (%builds%) do for /f "tokens=1-5 delims=|" %%s in (suites.txt) do call :suite %%b "%%s" "%%t" "%%u" "%%v" %%w
echo %passed% passed, %failed% failed> report\summary.txt
tar --version > nul 2>&1
if not errorlevel 1 tar -a -c -f report.zip report
if exist report.zip echo What to send is report.zip
type report\summary.txt
if %failed%==0 exit /b 0
exit /b 1

:usage
echo usage: run-tests.cmd [SUITE]
echo   Runs every suite, or the one of this name, for 32 and for 64 bit. The last line is "N passed, N failed".
echo   What was said, and pictures, are in the folder report, and in report.zip where the system can pack it.
exit /b 0

:unknown
echo no suite is called so: %wanted%; there are:
for /f "delims=|" %%s in (suites.txt) do echo   %%s
exit /b 2

rem BUILD "NAME" "PROGRAM" "OPTIONS" "NEED" SECONDS, a dash for nothing
:suite
if not "%wanted%"=="" if not "%wanted%"=="%~2" goto :eof
if not "%~5"=="-" if not "%~5"=="%codepage%" if not "%~5"=="%dpi%" if not "%~5"=="%registering%" (
    echo %1 %~2: not run, the system would have to have %~5
    goto :eof
)
set options=%~4
if "%options%"=="-" set options=
md "runs\%1-%~2"
pushd "runs\%1-%~2"
%timelimit% %6 "..\..\%1\%~3" --no-colors=true %options% > "..\..\report\%1-%~2.txt" 2>&1
set code=%errorlevel%
popd
if %code%==124 (
    echo %1 %~2: FAILED, did not end within %6 s
    set /a failed=failed+1
    goto :eof
)
set here=0
set wrong=none
for /f "tokens=2-4 delims=|" %%x in ('find "[doctest] test cases:" report\%1-%~2.txt') do call :count %%x %%y %%z
if %wrong%==none (
    echo %1 %~2: FAILED, ended without a summary, exit code %code%
    set /a failed=failed+1
    goto :eof
)
if not %code%==0 if %wrong%==0 set wrong=1
set /a passed=passed+here
set /a failed=failed+wrong
echo %1 %~2: %here% passed, %wrong% failed
goto :eof

rem N passed N failed N skipped: where nothing was chosen, what was skipped has failed.
:count
set here=%1
set wrong=%3
if "%options%"=="" set /a wrong=wrong+%5
goto :eof
