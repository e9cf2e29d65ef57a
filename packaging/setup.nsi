; The setup program. Defined on the command line: VERSION; FOLDER, where what it installs stands; LISTS, the macros
; InstallFiles and RemoveFiles of these files; OUT, the program to make.
;
; Exit codes beside NSIS's own (0 done, 1 ended by the user): 3 a newer version is installed, 4 the control is in use,
; 5 the older version cannot be removed, 6 the control cannot be registered.
Unicode true
SetCompressor /SOLID lzma
ManifestSupportedOS all
ManifestDPIAware true
RequestExecutionLevel admin

!include LogicLib.nsh
!include MUI2.nsh
!include WinVer.nsh
!include WordFunc.nsh
!include x64.nsh
!include "${LISTS}"

!define PRODUCT VantikFrameTab
!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${PRODUCT}"
!define CONTROL "${PRODUCT}.ocx"

Name "${PRODUCT} ${VERSION}"
OutFile "${OUT}"
InstallDir "" ; the user's word, or what FindFolder finds
BrandingText " "

VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "${PRODUCT}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Setup of ${PRODUCT}"
VIAddVersionKey LegalCopyright "Copyright (c) 2026 The VantikFrameTab developers. MIT License."

!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\docs\index.html"
!define MUI_FINISHPAGE_SHOWREADME_TEXT "Show the documents"
!insertmacro MUI_PAGE_LICENSE "${FOLDER}\LICENSE.txt"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

Var InstalledVersion ; empty when none is
Var InstalledFolder

!macro Fail CODE TEXT
  MessageBox MB_OK|MB_ICONSTOP "${TEXT}" /SD IDOK
  SetErrorLevel ${CODE}
  Quit
!macroend
!define Fail "!insertmacro Fail"

; The entry of installed programs is that of the system, not of its 32-bit half.
!macro LookAtWholeSystem
  ${If} ${RunningX64}
    SetRegView 64
  ${EndIf}
  SetShellVarContext all
!macroend

; REGSVR32 SWITCHES FILE - leaves its exit code in $0. Redirected, the system's folder is that of 32-bit programs.
!macro Regsvr32 SWITCHES FILE
  ClearErrors
  ExecWait '"$SYSDIR\regsvr32.exe" /s ${SWITCHES} "${FILE}"' $0
  ${If} ${Errors}
    StrCpy $0 -1
  ${EndIf}
!macroend

!macro Regsvr32Of64Bit SWITCHES FILE
  ${DisableX64FSRedirection}
  !insertmacro Regsvr32 "${SWITCHES}" "${FILE}"
  ${EnableX64FSRedirection}
!macroend

; A program that has loaded the control keeps its file from being written to.
!macro FailIfInUse FOLDER
  !insertmacro FailIfFileIsInUse "${FOLDER}\x86\${CONTROL}"
  !insertmacro FailIfFileIsInUse "${FOLDER}\x64\${CONTROL}"
!macroend

!macro FailIfFileIsInUse FILE
  ${If} ${FileExists} "${FILE}"
    ClearErrors
    FileOpen $0 "${FILE}" a
    ${If} ${Errors}
      ${Fail} 4 "${FILE} is in use. Close the programs that show the control, then start this again."
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

; What both programs do to take the product away again.
!macro Remove
  !insertmacro Regsvr32 "/u" "$INSTDIR\x86\${CONTROL}"
  ${If} ${RunningX64}
    !insertmacro Regsvr32Of64Bit "/u" "$INSTDIR\x64\${CONTROL}"
  ${EndIf}
  !insertmacro RemoveFiles
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  DeleteRegKey HKLM "${ENTRY}"
!macroend

Function .onInit
  !insertmacro LookAtWholeSystem
  ${IfNot} ${AtLeastWin7}
    ${Fail} 2 "${PRODUCT} needs Windows 7 or later."
  ${EndIf}
  ReadRegStr $InstalledVersion HKLM "${ENTRY}" DisplayVersion
  ReadRegStr $InstalledFolder HKLM "${ENTRY}" InstallLocation
  ${VersionCompare} "$InstalledVersion" "${VERSION}" $0
  ${If} $InstalledVersion != ""
  ${AndIf} $0 = 1
    ${Fail} 3 "${PRODUCT} $InstalledVersion is installed, which is newer than this ${VERSION}. To go back, uninstall it first."
  ${EndIf}
  Call FindFolder
FunctionEnd

Function FindFolder
  ${If} $INSTDIR != ""
    Return
  ${EndIf}
  ${If} $InstalledFolder != ""
    StrCpy $INSTDIR "$InstalledFolder"
  ${ElseIf} ${RunningX64}
    StrCpy $INSTDIR "$PROGRAMFILES64\${PRODUCT}"
  ${Else}
    StrCpy $INSTDIR "$PROGRAMFILES\${PRODUCT}"
  ${EndIf}
FunctionEnd

; Files that only the older version had must not stay.
Function RemoveInstalled
  ${If} $InstalledFolder == ""
  ${OrIfNot} ${FileExists} "$InstalledFolder\uninstall.exe"
    Return
  ${EndIf}
  ClearErrors
  ExecWait '"$InstalledFolder\uninstall.exe" /S _?=$InstalledFolder' $0 ; waits for it, and for nothing else that it starts
  ${If} ${Errors}
  ${OrIf} $0 <> 0
    ${Fail} 5 "${PRODUCT} $InstalledVersion cannot be removed."
  ${EndIf}
  Delete "$InstalledFolder\uninstall.exe" ; which could not remove itself while it ran
  RMDir "$InstalledFolder"
FunctionEnd

Function Register
  !insertmacro Regsvr32 "" "$INSTDIR\x86\${CONTROL}"
  ${If} $0 = 0
  ${AndIf} ${RunningX64}
    !insertmacro Regsvr32Of64Bit "" "$INSTDIR\x64\${CONTROL}"
  ${EndIf}
  ${If} $0 <> 0
    !insertmacro Remove
    ${Fail} 6 "The control cannot be registered. Nothing was installed."
  ${EndIf}
FunctionEnd

Function EnterProgram
  WriteRegStr HKLM "${ENTRY}" DisplayName "${PRODUCT}"
  WriteRegStr HKLM "${ENTRY}" DisplayVersion "${VERSION}"
  WriteRegStr HKLM "${ENTRY}" Publisher "The VantikFrameTab developers"
  WriteRegStr HKLM "${ENTRY}" InstallLocation "$INSTDIR"
  WriteRegStr HKLM "${ENTRY}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKLM "${ENTRY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKLM "${ENTRY}" EstimatedSize ${KILOBYTES}
  WriteRegDWORD HKLM "${ENTRY}" NoModify 1
  WriteRegDWORD HKLM "${ENTRY}" NoRepair 1
FunctionEnd

Section
  ${If} $InstalledFolder != ""
    !insertmacro FailIfInUse "$InstalledFolder"
  ${EndIf}
  !insertmacro FailIfInUse "$INSTDIR"
  Call RemoveInstalled
  !insertmacro InstallFiles
  WriteUninstaller "$INSTDIR\uninstall.exe"
  Call Register
  Call EnterProgram
SectionEnd

Function un.onInit
  !insertmacro LookAtWholeSystem
FunctionEnd

Section Uninstall
  !insertmacro FailIfInUse "$INSTDIR"
  !insertmacro Remove
SectionEnd
