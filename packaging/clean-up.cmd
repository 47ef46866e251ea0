@echo off
rem Removes what Navrix Menu keeps outside its folder: the settings of this user, and the file type
rem of menus if it names the program in this folder. No menu is touched; the folder itself can then
rem be deleted.
setlocal DisableDelayedExpansion
set failed=
if /i "%~1"=="/y" goto settings
echo This removes the settings of Navrix Menu and its file type. Close the program first.
set answer=
set /p answer=Go on (y/n)? 
if /i not "%answer%"=="y" exit /b 1

:settings
reg delete "HKCU\Software\Belquin\Navrix Menu" /f >nul 2>nul
rem The maker's key goes only when it is empty: another program may have its settings there.
set rest=
for /f "delims=" %%k in ('reg query "HKCU\Software\Belquin" 2^>nul') do set rest=1
if not defined rest reg delete "HKCU\Software\Belquin" /f >nul 2>nul
call :type "HKCU\Software\Classes"
call :type "HKLM\Software\Classes"
if defined failed exit /b 1
exit /b 0

:type
reg query "%~1\Navrix Menu\shell\open\command" /ve 2>nul | find /i "%~dp0NVMenu.exe" >nul 2>nul
rem A find that does not know /i answers 2.
if errorlevel 2 reg query "%~1\Navrix Menu\shell\open\command" /ve 2>nul | find "%~dp0NVMenu.exe" >nul
if errorlevel 1 exit /b 0
reg delete "%~1\Navrix Menu" /f >nul 2>nul
reg query "%~1\Navrix Menu" >nul 2>nul
if not errorlevel 1 goto refused
reg query "%~1\.NVM" /ve 2>nul | find "Navrix Menu" >nul
if errorlevel 1 exit /b 0
reg delete "%~1\.NVM" /ve /f >nul 2>nul
rem What other programs wrote below stays.
set rest=
for /f "delims=" %%k in ('reg query "%~1\.NVM" 2^>nul') do set rest=1
if not defined rest reg delete "%~1\.NVM" /f >nul 2>nul
exit /b 0

:refused
echo The file type is there for all users of this machine: run this as an administrator.
set failed=1
exit /b 1
