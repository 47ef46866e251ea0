@echo off
rem Removes what Navrix Menu keeps outside its folder: the settings of this user, and the file type
rem of menus if it names the program in this folder. No menu is touched; the folder itself can then
rem be deleted.
setlocal
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
exit /b 0

:type
reg query "%~1\Navrix Menu\shell\open\command" /ve 2>nul | find "%~dp0NVMenu.exe" >nul
if errorlevel 1 exit /b 0
reg delete "%~1\Navrix Menu" /f >nul 2>nul
reg query "%~1\.NVM" /ve 2>nul | find "Navrix Menu" >nul
if not errorlevel 1 reg delete "%~1\.NVM" /f >nul 2>nul
exit /b 0
