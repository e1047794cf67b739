@echo off
rem Starts the Configuration Utility on the demonstration terminal in the folder "terminal".
rem The simulated device is registered for you alone, and taken away again when the utility ends.
setlocal
set "here=%~dp0"

rem The terminal's storage is a drive of its own, as on the terminal.
set "drive="
for %%d in (T U V W X Y R Q P O) do if not defined drive call :take %%d:

regsvr32 /s /n /i:user "%here%kel_device.dll"
if errorlevel 1 (
  echo The simulated device could not be registered.
  pause
  goto :give_back
)
if defined drive (
  cd /d %drive%\
  "%here%KelLocalCfg.exe" %*
) else (
  cd /d "%here%terminal"
  for %%f in ("%here%terminal\Windows\ovu.xml") do "%here%KelLocalCfg.exe" %%~pnxf
)
cd /d "%here%"
regsvr32 /s /u /n /i:user "%here%kel_device.dll"

:give_back
if defined drive subst %drive% /d
exit /b

:take
if exist %1\ exit /b
subst %1 "%here%terminal" >nul 2>&1
if exist %1\device.txt set "drive=%1"
exit /b
