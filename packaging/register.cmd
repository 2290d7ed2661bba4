@echo off
rem register.cmd - tells Windows where this copy of Quillmere lies, so that it
rem finds its dictionaries and its manual. Run it as an administrator: click on it
rem with the right button. Run it again when the folder has moved.
rem
rem   register.cmd /quiet   does not wait for a key
rem   register.cmd /remove  makes Windows forget

setlocal
set folder=%~dp0
set folder=%folder:~0,-1%
set dictionaries=HKLM\Software\Orchardlight\Dictionaries
set program=HKLM\Software\Microsoft\Windows\CurrentVersion\App Paths\Quillmere.exe

if "%1"=="/remove" goto remove
reg add "%dictionaries%" /ve /d "%folder%\Dictionaries" /f >nul
if errorlevel 1 goto failed
reg add "%program%" /ve /d "%folder%\quillmere.exe" /f >nul
if errorlevel 1 goto failed
reg add "%program%" /v Path /d "%folder%" /f >nul
if errorlevel 1 goto failed
echo Quillmere is registered.
goto end

:remove
reg delete "%dictionaries%" /f >nul
reg delete "%program%" /f >nul
echo Quillmere is forgotten.
goto end

:failed
echo This needs an administrator: click on register.cmd with the right button,
echo and choose "Run as administrator".
if not "%1"=="/quiet" pause
exit /b 1

:end
if not "%1"=="/quiet" if not "%1"=="/remove" pause
