@echo off
rem register.cmd - tells Windows where this copy of Quillmere lies, so that it
rem finds its dictionaries and its manual. Run as an administrator it tells all
rem users, else this one alone. Run it again when the folder has moved.
rem
rem   register.cmd /quiet   does not wait for a key
rem   register.cmd /user    tells this user alone, and does not wait
rem   register.cmd /remove  makes Windows forget

setlocal
set folder=%~dp0
set folder=%folder:~0,-1%
set dictionaries=Software\Orchardlight\Dictionaries
set program=Software\Microsoft\Windows\CurrentVersion\App Paths\Quillmere.exe

if "%1"=="/remove" goto remove
set root=HKLM
if not "%1"=="/user" reg add "HKLM\%dictionaries%" /ve /d "%folder%\Dictionaries" /f >nul 2>nul
if errorlevel 1 set root=HKCU
if "%1"=="/user" set root=HKCU
reg add "%root%\%dictionaries%" /ve /d "%folder%\Dictionaries" /f >nul
if errorlevel 1 goto failed
reg add "%root%\%program%" /ve /d "%folder%\quillmere.exe" /f >nul
if errorlevel 1 goto failed
reg add "%root%\%program%" /v Path /d "%folder%" /f >nul
if errorlevel 1 goto failed
if %root%==HKLM echo Quillmere is registered for all users.
if %root%==HKCU echo Quillmere is registered for you. For all users, run this as an administrator.
goto end

:remove
for %%r in (HKLM HKCU) do (
    reg delete "%%r\%dictionaries%" /f >nul 2>nul
    reg delete "%%r\%program%" /f >nul 2>nul
)
echo Quillmere is forgotten.
goto end

:failed
echo Windows refuses to keep where Quillmere lies.
if not "%1"=="/quiet" if not "%1"=="/user" pause
exit /b 1

:end
if not "%1"=="/quiet" if not "%1"=="/user" if not "%1"=="/remove" pause
exit /b 0
