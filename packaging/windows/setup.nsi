; The setup program: for the user who starts it, without an administrator, in the user's language.
;   makensis -DVERSION=6.10 -DVERSION_WORDS=6.10.0.0 -DSTAGE=folder -DLISTING=file -DSIZE=kB
;            -DOUTPUT=file [-DPUBLISHER=name] setup.nsi
; STAGE holds the files as they are installed, LISTING the commands that delete each of them.
;
; Silent: setup.exe /S [/D=FOLDER]     FOLDER: Finale's plug-in folder, last
;         uninstall.exe /S [/SETTINGS] with /SETTINGS the saved settings go too
; Exit codes: 0 done, 1 cancelled, 2 refused: the folder will not do, or a file is in use.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
ManifestSupportedOS all

!include MUI2.nsh
!include LogicLib.nsh
!include nsDialogs.nsh
!include FileFunc.nsh
!include WordFunc.nsh

Name "Plyweld"
BrandingText "Plyweld ${VERSION}"
OutFile "${OUTPUT}"
InstallDir ""

VIProductVersion "${VERSION_WORDS}"
VIAddVersionKey /LANG=0 "ProductName" "Plyweld"
VIAddVersionKey /LANG=0 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "FileDescription" "Plyweld setup"
VIAddVersionKey /LANG=0 "LegalCopyright" ""

!define APPS_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Plyweld"
!define SETTINGS_PARENT "Software\ZKW\Finale Plugin Prefs"
!define REFUSED 2

Var PlugIns        ; Finale's plug-in folder
Var Home           ; where the files go, a folder of their own in it
Var Earlier        ; where an earlier setup put them; empty: nowhere
Var Reason         ; why a folder will not do; empty: it will
Var Welcome
Var FolderBox
Var KeepBox
Var RemoveSettings

!include folders.nsh
!include messages.nsh

!define MUI_ABORTWARNING
!define MUI_WELCOMEFINISHPAGE_BITMAP "${NSISDIR}/Contrib/Graphics/Wizard/nsis3-grey.bmp"
!define MUI_WELCOMEPAGE_TITLE "Plyweld ${VERSION}"
!define MUI_WELCOMEPAGE_TEXT "$Welcome"
!insertmacro MUI_PAGE_WELCOME
Page custom FolderPage LeaveFolderPage
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_TITLE "$(FinishTitle)"
!define MUI_FINISHPAGE_TEXT "$(FinishText)"
!define MUI_FINISHPAGE_SHOWREADME "$Home\guide\$(GuideFile)"
!define MUI_FINISHPAGE_SHOWREADME_TEXT "$(OpenGuide)"
!define MUI_FINISHPAGE_SHOWREADME_NOTCHECKED
!insertmacro MUI_PAGE_FINISH

UninstPage custom un.SettingsPage un.LeaveSettingsPage
!insertmacro MUI_UNPAGE_INSTFILES

!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "SpanishInternational"
!insertmacro TEXTS

Function .onInit
  ReadRegStr $Earlier HKCU "${APPS_KEY}" "InstallLocation"
  ReadRegStr $0 HKCU "${APPS_KEY}" "DisplayVersion"
  StrCpy $PlugIns $INSTDIR
  ${If} $PlugIns == ""
    Call QuotedFolder
  ${EndIf}
  ${If} $PlugIns == ""
    Call FirstOffer
  ${EndIf}
  StrCpy $Welcome "$(WelcomeNew)"
  ${If} $Earlier != ""
    ${VersionCompare} "$0" "${VERSION}" $1
    ${If} $1 = 0
      StrCpy $Welcome "$(WelcomeRepair)"
    ${ElseIf} $1 = 2
      StrCpy $Welcome "$(WelcomeUpgrade)"
    ${Else}
      StrCpy $Welcome "$(WelcomeOlder)"
    ${EndIf}
  ${EndIf}
FunctionEnd

; NSIS itself overlooks /D= with the quotes that shells put around it, or around the folder.
Function QuotedFolder
  ${GetParameters} $1
  ClearErrors
  ${WordFind} $1 "/D=" "E+1}" $PlugIns
  ${If} ${Errors}
    StrCpy $PlugIns ""
  ${Else}
    ${WordFind} $PlugIns '"' "+1" $PlugIns
  ${EndIf}
FunctionEnd

Function FolderPage
  !insertmacro MUI_HEADER_TEXT "$(FolderTitle)" "$(FolderSubtitle)"
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateLabel} 0 0 100% 34u "$(FolderText)"
  Pop $0
  ${NSD_CreateComboBox} 0 40u 82% 80u ""
  Pop $FolderBox
  ${NSD_CreateButton} 84% 39u 16% 14u "$(Browse)"
  Pop $0
  ${NSD_OnClick} $0 BrowseForFolder
  ${NSD_CreateLabel} 0 60u 100% 50u "$(FolderHint)"
  Pop $0
  Call OfferFolders
  ${NSD_SetText} $FolderBox $PlugIns
  nsDialogs::Show
FunctionEnd

Function BrowseForFolder
  ${NSD_GetText} $FolderBox $0
  nsDialogs::SelectFolderDialog "$(FolderSubtitle)" "$0"
  Pop $0
  ${If} $0 != error
    ${NSD_SetText} $FolderBox $0
  ${EndIf}
FunctionEnd

Function LeaveFolderPage
  ${NSD_GetText} $FolderBox $PlugIns
  Call CheckFolder
  ${If} $Reason != ""
    MessageBox MB_OK|MB_ICONEXCLAMATION "$Reason"
    Abort
  ${EndIf}
  ${IfNot} ${FileExists} "$PlugIns\*.*"
    MessageBox MB_YESNO|MB_ICONQUESTION "$(MakeFolder)" IDYES +2
    Abort
  ${EndIf}
FunctionEnd

Section
  Call CheckFolder
  ${If} $Reason != ""
    SetErrorLevel ${REFUSED}
    Abort "$Reason"
  ${EndIf}
  StrCpy $0 $Home
  Call WaitUntilFree
  ${If} $Earlier != ""
    StrCpy $0 $Earlier
    Call WaitUntilFree
    ; The earlier version knows what it brought.
    ${If} ${FileExists} "$Earlier\uninstall.exe"
      ClearErrors
      ExecWait '"$Earlier\uninstall.exe" /S _?=$Earlier' $1
      ${If} ${Errors}
      ${OrIf} $1 <> 0
        SetErrorLevel ${REFUSED}
        Abort "$(EarlierStays)"
      ${EndIf}
      Delete "$Earlier\uninstall.exe"
      RMDir "$Earlier"
    ${EndIf}
  ${EndIf}
  SetOutPath $Home
  ClearErrors
  File /r "${STAGE}\*"
  ${If} ${Errors}
    SetErrorLevel ${REFUSED}
    Abort "$(NotWritten)"
  ${EndIf}
  WriteUninstaller "$Home\uninstall.exe"
  WriteRegStr HKCU "${APPS_KEY}" "DisplayName" "Plyweld"
  WriteRegStr HKCU "${APPS_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${APPS_KEY}" "DisplayIcon" "$Home\uninstall.exe"
  !ifdef PUBLISHER
    WriteRegStr HKCU "${APPS_KEY}" "Publisher" "${PUBLISHER}"
  !endif
  WriteRegStr HKCU "${APPS_KEY}" "InstallLocation" "$Home"
  WriteRegStr HKCU "${APPS_KEY}" "UninstallString" '"$Home\uninstall.exe"'
  WriteRegStr HKCU "${APPS_KEY}" "QuietUninstallString" '"$Home\uninstall.exe" /S'
  WriteRegDWORD HKCU "${APPS_KEY}" "EstimatedSize" ${SIZE}
  WriteRegDWORD HKCU "${APPS_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${APPS_KEY}" "NoRepair" 1
SectionEnd

Function un.onInit
  StrCpy $Home $INSTDIR
  StrCpy $RemoveSettings 0
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/SETTINGS" $1
  ${IfNot} ${Errors}
    StrCpy $RemoveSettings 1
  ${EndIf}
FunctionEnd

Function un.SettingsPage
  !insertmacro MUI_HEADER_TEXT "$(RemoveTitle)" "$Home"
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateLabel} 0 0 100% 30u "$(RemoveText)"
  Pop $0
  ${NSD_CreateCheckBox} 0 40u 100% 12u "$(RemoveSettingsToo)"
  Pop $KeepBox
  GetDlgItem $0 $HWNDPARENT 1
  SendMessage $0 ${WM_SETTEXT} 0 "STR:$(RemoveButton)"
  nsDialogs::Show
FunctionEnd

Function un.LeaveSettingsPage
  ${NSD_GetState} $KeepBox $RemoveSettings
FunctionEnd

Section "Uninstall"
  StrCpy $0 $Home
  Call un.WaitUntilFree
  !include "${LISTING}"
  Delete "$Home\uninstall.exe"
  RMDir "$Home"
  DeleteRegKey HKCU "${APPS_KEY}"
  ${If} $RemoveSettings = 1
    DeleteRegKey HKCU "${SETTINGS_PARENT}\Plyweld"
    DeleteRegKey HKCU "${SETTINGS_PARENT}\ZKW Plyweld"
    DeleteRegKey /ifempty HKCU "${SETTINGS_PARENT}"
    DeleteRegKey /ifempty HKCU "Software\ZKW"
  ${EndIf}
SectionEnd
