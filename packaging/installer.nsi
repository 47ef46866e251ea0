; The installer: for the user who runs it, without administrator rights. /S installs without a
; question, /D=FOLDER (the last argument, never quoted) names the folder.
; Exit codes: 0 done, 1 cancelled, 2 Navrix Menu is running, 3 the folder cannot be used.
Target amd64-unicode
Unicode true
!include MUI2.nsh
!include LogicLib.nsh
!include "${FILES}"

!define PRODUCT "Navrix Menu"
!define NOTES "Uninstall.ini" ; beside the program: when each menu was installed
!define SETTINGS "Software\Belquin"
!define PROGRAMS "Software\Microsoft\Windows\CurrentVersion\Uninstall"
!define UNINSTALL "${PROGRAMS}\${PRODUCT}"

Name "${PRODUCT}"
OutFile "${OUT}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\${PRODUCT}"
InstallDirRegKey HKCU "${UNINSTALL}" "InstallLocation"
SetCompressor /SOLID lzma
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "${PRODUCT}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "${PRODUCT} Setup"
VIAddVersionKey LegalCopyright ""

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\NVMenu.exe"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; Waits until the installed program has ended; ends this one when it goes on.
!macro WaitForEnd UN
Function ${UN}WaitForEnd
again:
  IfFileExists "$INSTDIR\NVMenu.exe" 0 ended
  ClearErrors
  FileOpen $0 "$INSTDIR\NVMenu.exe" a
  IfErrors 0 free
  MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${PRODUCT} is running. Please close it first." \
    /SD IDCANCEL IDRETRY again
  SetErrorLevel 2
  Quit
free:
  FileClose $0
ended:
FunctionEnd
!macroend
!insertmacro WaitForEnd ""
!insertmacro WaitForEnd "un."

; A menu is the user's once it was changed: it has another time than the one noted when it was
; installed. $0: empty if FILE is not there or still as it was installed.
!macro ChangedMenu FILE
  StrCpy $0 ""
  ${If} ${FileExists} "$INSTDIR\${FILE}"
    GetFileTime "$INSTDIR\${FILE}" $1 $2
    ReadINIStr $0 "$INSTDIR\${NOTES}" "Menus" "${FILE}"
    ${If} $0 == "$1 $2"
      StrCpy $0 ""
    ${Else}
      StrCpy $0 changed
    ${EndIf}
  ${EndIf}
!macroend

!macro InstallMenu SOURCE FILE
  !insertmacro ChangedMenu "${FILE}"
  ${If} $0 == ""
    File "${SOURCE}"
    GetFileTime "$INSTDIR\${FILE}" $1 $2
    WriteINIStr "$INSTDIR\${NOTES}" "Menus" "${FILE}" "$1 $2"
  ${EndIf}
!macroend

!macro RemoveMenu FILE
  !insertmacro ChangedMenu "${FILE}"
  ${If} $0 == ""
    Delete "$INSTDIR\${FILE}"
  ${EndIf}
!macroend

; The program is one of the ANSI code page: it cannot live below a name that this does not have. And
; what stands in the folder of another program stays as it is.
Function CheckFolder
  System::Call 'kernel32::WideCharToMultiByte(i 0, i 0x400, w "$INSTDIR", i -1, p 0, i 0, p 0, *i .r1)'
  ${If} $1 != 0
    StrCpy $0 "The name of this folder has letters that the language of Windows for older programs \
does not have. Please choose another folder."
  ${ElseIfNot} ${FileExists} "$INSTDIR\NVMenu.exe"
  ${AndIf} ${FileExists} "$INSTDIR\Uninstall.exe"
    StrCpy $0 "Another program is installed in this folder. Please choose another folder."
  ${ElseIfNot} ${FileExists} "$INSTDIR\NVMenu.exe"
  ${AndIf} ${FileExists} "$INSTDIR\Help\*.*"
    StrCpy $0 "This folder has a folder Help of its own. Please choose another folder."
  ${Else}
    Return
  ${EndIf}
  MessageBox MB_OK|MB_ICONEXCLAMATION "$0" /SD IDOK
  SetErrorLevel 3
  Quit
FunctionEnd

Section
  Call CheckFolder
  Call WaitForEnd
  !insertmacro InstallFiles
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\Uninstall.exe"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}.lnk" "$INSTDIR\NVMenu.exe"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "${PRODUCT}"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\NVMenu.exe,0"
  WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
SectionEnd

; The program writes its file type at every start, to the classes root or to the user's own
; classes. It goes if it still names this folder.
!macro RemoveFileType ROOT BELOW
  ReadRegStr $0 ${ROOT} "${BELOW}${PRODUCT}\shell\open\command" ""
  ${If} $0 == '"$INSTDIR\NVMenu.exe" %1'
    DeleteRegKey ${ROOT} "${BELOW}${PRODUCT}"
    ReadRegStr $0 ${ROOT} "${BELOW}.NVM" ""
    ${If} $0 == "${PRODUCT}"
      DeleteRegValue ${ROOT} "${BELOW}.NVM" ""
      DeleteRegKey /ifempty ${ROOT} "${BELOW}.NVM"
    ${EndIf}
    StrCpy $1 told
  ${EndIf}
!macroend

Section Uninstall
  Call un.WaitForEnd
  !insertmacro RemoveFiles
  Delete "$INSTDIR\${NOTES}"
  Delete "$INSTDIR\Uninstall.exe"
  RMDir "$INSTDIR"
  StrCpy $1 ""
  !insertmacro RemoveFileType HKCU "Software\Classes\"
  !insertmacro RemoveFileType HKCR ""
  ${If} $1 != ""
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)' ; associations changed
  ${EndIf}
  ; Installed in another folder since, the program still needs the rest.
  ReadRegStr $0 HKCU "${UNINSTALL}" "InstallLocation"
  ${If} $0 == "$INSTDIR"
    Delete "$SMPROGRAMS\${PRODUCT}.lnk"
    DeleteRegKey HKCU "${SETTINGS}\${PRODUCT}"
    DeleteRegKey /ifempty HKCU "${SETTINGS}"
    DeleteRegKey HKCU "${UNINSTALL}"
    DeleteRegKey /ifempty HKCU "${PROGRAMS}" ; the first program of a user makes this key
  ${EndIf}
SectionEnd
