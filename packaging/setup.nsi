; The installer. tools/package runs it:
;   makensis -DVERSION=2.20.0 -DBITS=64 -DSOURCE=folder -DOUT=file.exe setup.nsi
; SOURCE is the program's folder, as it is to be.
;
;   Quillmere-2.20.0-setup.exe /S /D=C:\Puzzles    installs without a word
Unicode true
!if ${BITS} == 64
    Target amd64-unicode
    InstallDir "$PROGRAMFILES64\Quillmere"
!else
    Target x86-unicode
    InstallDir "$PROGRAMFILES32\Quillmere"
!endif

Name "Quillmere"
OutFile "${OUT}"
BrandingText "Quillmere ${VERSION}"
RequestExecutionLevel admin
SetCompressor /SOLID lzma
LicenseData "${SOURCE}/LICENSE.txt"

; Where the program looks.
!define DICTIONARIES "Software\Orchardlight\Dictionaries"
!define APPPATHS "Software\Microsoft\Windows\CurrentVersion\App Paths\Quillmere.exe"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Quillmere"

; The folder of an earlier installation is offered again.
InstallDirRegKey HKLM "${APPPATHS}" "Path"

Page license
Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

!macro thisview
    SetShellVarContext all
    !if ${BITS} == 64
        SetRegView 64
    !endif
!macroend

; Explorer looks at the types of files anew.
!macro typeschanged
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Function .onInit
    !if ${BITS} == 64
        SetRegView 64
        ; InstallDirRegKey reads what 32-bit programs see.
        ReadRegStr $0 HKLM "${APPPATHS}" "Path"
        StrCmp $0 "" done
        StrCmp $INSTDIR "$PROGRAMFILES64\Quillmere" 0 done ; it was told where
        StrCpy $INSTDIR $0
        done:
    !endif
FunctionEnd

Section "Quillmere"
    !insertmacro thisview
    SetOutPath "$INSTDIR"
    File /x register.cmd "${SOURCE}/*.*"
    SetOutPath "$INSTDIR\Samples"
    File "${SOURCE}/Samples/*.*"

    ; Words that a user has added to a dictionary are not lost to a new version.
    SetOutPath "$INSTDIR\Dictionaries"
    SetOverwrite off
    File "${SOURCE}/Dictionaries/*.*"
    SetOverwrite on
    ; All users may add words: *S-1-5-32-545 is their group, in every language.
    nsExec::Exec 'icacls "$INSTDIR\Dictionaries" /grant *S-1-5-32-545:(OI)(CI)M'
    Pop $0

    ; For users who may write here; the others have theirs elsewhere.
    CreateDirectory "$INSTDIR\Choices"
    CreateDirectory "$INSTDIR\Default"
    SetOutPath "$INSTDIR"

    WriteRegStr HKLM "${DICTIONARIES}" "" "$INSTDIR\Dictionaries"
    WriteRegStr HKLM "${APPPATHS}" "" "$INSTDIR\quillmere.exe"
    WriteRegStr HKLM "${APPPATHS}" "Path" "$INSTDIR"
    WriteRegStr HKLM "Software\Classes\.qmg" "" "Quillmere.Grid"
    WriteRegStr HKLM "Software\Classes\Quillmere.Grid" "" "Quillmere grid"
    WriteRegStr HKLM "Software\Classes\Quillmere.Grid\DefaultIcon" "" "$INSTDIR\quillmere.exe,0"
    WriteRegStr HKLM "Software\Classes\Quillmere.Grid\shell\open\command" "" '"$INSTDIR\quillmere.exe" "%1"'
    !insertmacro typeschanged

    CreateDirectory "$SMPROGRAMS\Quillmere"
    CreateShortcut "$SMPROGRAMS\Quillmere\Quillmere.lnk" "$INSTDIR\quillmere.exe"
    CreateShortcut "$SMPROGRAMS\Quillmere\Manual.lnk" "$INSTDIR\Quillmere.chm"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    WriteRegStr HKLM "${UNINSTALL}" "DisplayName" "Quillmere"
    WriteRegStr HKLM "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${UNINSTALL}" "DisplayIcon" "$INSTDIR\quillmere.exe"
    WriteRegStr HKLM "${UNINSTALL}" "Publisher" "The Quillmere authors"
    WriteRegStr HKLM "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegDWORD HKLM "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKLM "${UNINSTALL}" "NoRepair" 1
SectionEnd

; A folder goes when nothing of the users' is left in it.
Section "Uninstall"
    !insertmacro thisview
    !include "${FILES}"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR\Dictionaries"
    RMDir "$INSTDIR\Samples"
    RMDir "$INSTDIR\Choices"
    RMDir "$INSTDIR\Default"
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\Quillmere\Quillmere.lnk"
    Delete "$SMPROGRAMS\Quillmere\Manual.lnk"
    RMDir "$SMPROGRAMS\Quillmere"

    DeleteRegKey HKLM "${DICTIONARIES}"
    DeleteRegKey /ifempty HKLM "Software\Orchardlight"
    DeleteRegKey HKLM "${APPPATHS}"
    DeleteRegKey HKLM "Software\Classes\Quillmere.Grid"
    ReadRegStr $0 HKLM "Software\Classes\.qmg" ""
    StrCmp $0 "Quillmere.Grid" 0 others
    DeleteRegKey HKLM "Software\Classes\.qmg"
    others:
    DeleteRegKey HKLM "${UNINSTALL}"
    !insertmacro typeschanged
SectionEnd
