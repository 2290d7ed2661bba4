; The installer. tools/package runs it:
;   makensis -DVERSION=2.20.0 -DBITS=64 -DSOURCE=folder -DOUT=file.exe setup.nsi
; SOURCE is the program's folder, as it is to be.
;
;   Quillmere-2.20.0-setup.exe /S /D=C:\Puzzles    installs without a word
;   Quillmere-2.20.0-setup.exe /user              for this user alone, which is what
;                                                 one without an administrator's rights gets
Unicode true
!if ${BITS} == 64
    Target amd64-unicode
    !define FORALL "$PROGRAMFILES64\Quillmere"
!else
    Target x86-unicode
    !define FORALL "$PROGRAMFILES32\Quillmere"
!endif

!include FileFunc.nsh

InstallDir "${FORALL}"
Name "Quillmere"
OutFile "${OUT}"
BrandingText "Quillmere ${VERSION}"
RequestExecutionLevel highest
SetCompressor /SOLID lzma
LicenseData "${SOURCE}/LICENSE.txt"

; Where the program looks.
!define DICTIONARIES "Software\Orchardlight\Dictionaries"
!define APPPATHS "Software\Microsoft\Windows\CurrentVersion\App Paths\Quillmere.exe"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Quillmere"

Page license
Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

; For this user alone, or for all. Registry and Start menu are those of one or the other:
; SHCTX is HKCU or HKLM. The program looks into the first where the second has nothing.
Var alone
!macro thisview
    !if ${BITS} == 64
        SetRegView 64
    !endif
    SetShellVarContext all
    StrCmp $alone 1 0 +2
    SetShellVarContext current
!macroend

; Explorer looks at the types of files anew.
!macro typeschanged
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Function .onInit
    UserInfo::GetAccountType
    Pop $0
    StrCmp $0 "Admin" asked
    StrCpy $alone 1
    asked:
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/user" $1
    IfErrors decided
    StrCpy $alone 1
    decided:
    !insertmacro thisview

    StrCmp $INSTDIR "${FORALL}" 0 done ; it was told where
    StrCmp $alone 1 0 +2
    StrCpy $INSTDIR "$LOCALAPPDATA\Programs\Quillmere"
    ; The folder of an earlier installation is offered again.
    ReadRegStr $0 SHCTX "${APPPATHS}" "Path"
    StrCmp $0 "" done
    StrCpy $INSTDIR $0
    done:
FunctionEnd

; What it is to remove is what was installed from its folder.
Function un.onInit
    ReadRegStr $0 HKCU "${UNINSTALL}" "UninstallString"
    StrCmp $0 '"$INSTDIR\uninstall.exe"' 0 +2
    StrCpy $alone 1
FunctionEnd

Section "Quillmere"
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
    StrCmp $alone 1 mine
    nsExec::Exec 'icacls "$INSTDIR\Dictionaries" /grant *S-1-5-32-545:(OI)(CI)M'
    Pop $0
    mine:

    ; For users who may write here; the others have theirs elsewhere.
    CreateDirectory "$INSTDIR\Choices"
    CreateDirectory "$INSTDIR\Default"
    SetOutPath "$INSTDIR"

    WriteRegStr SHCTX "${DICTIONARIES}" "" "$INSTDIR\Dictionaries"
    WriteRegStr SHCTX "${APPPATHS}" "" "$INSTDIR\quillmere.exe"
    WriteRegStr SHCTX "${APPPATHS}" "Path" "$INSTDIR"
    WriteRegStr SHCTX "Software\Classes\.qmg" "" "Quillmere.Grid"
    WriteRegStr SHCTX "Software\Classes\Quillmere.Grid" "" "Quillmere grid"
    WriteRegStr SHCTX "Software\Classes\Quillmere.Grid\DefaultIcon" "" "$INSTDIR\quillmere.exe,0"
    WriteRegStr SHCTX "Software\Classes\Quillmere.Grid\shell\open\command" "" '"$INSTDIR\quillmere.exe" "%1"'
    !insertmacro typeschanged

    CreateDirectory "$SMPROGRAMS\Quillmere"
    CreateShortcut "$SMPROGRAMS\Quillmere\Quillmere.lnk" "$INSTDIR\quillmere.exe"
    CreateShortcut "$SMPROGRAMS\Quillmere\Manual.lnk" "$INSTDIR\Quillmere.chm"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    WriteRegStr SHCTX "${UNINSTALL}" "DisplayName" "Quillmere"
    WriteRegStr SHCTX "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr SHCTX "${UNINSTALL}" "DisplayIcon" "$INSTDIR\quillmere.exe"
    WriteRegStr SHCTX "${UNINSTALL}" "Publisher" "The Quillmere authors"
    WriteRegStr SHCTX "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegDWORD SHCTX "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD SHCTX "${UNINSTALL}" "NoRepair" 1
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

    DeleteRegKey SHCTX "${DICTIONARIES}"
    DeleteRegKey /ifempty SHCTX "Software\Orchardlight"
    DeleteRegKey SHCTX "${APPPATHS}"
    DeleteRegKey SHCTX "Software\Classes\Quillmere.Grid"
    ReadRegStr $0 SHCTX "Software\Classes\.qmg" ""
    StrCmp $0 "Quillmere.Grid" 0 others
    DeleteRegKey SHCTX "Software\Classes\.qmg"
    others:
    DeleteRegKey SHCTX "${UNINSTALL}"
    !insertmacro typeschanged
SectionEnd
