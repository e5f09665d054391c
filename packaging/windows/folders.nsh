; Finale's plug-in folders: finding them, and whether the plug-in would load in one.

; Calls a function with every plug-in folder found, in $R0.
!macro FOR_EACH_IN WHERE PATTERN FUNCTION
  FindFirst $R1 $R2 "${WHERE}\${PATTERN}"
  ${DoWhile} $R2 != ""
    StrCpy $R0 "${WHERE}\$R2\Plug-ins"
    ${If} ${FileExists} "$R0\*.*"
    ${AndIf} $R2 != "."
    ${AndIf} $R2 != ".."
      Call ${FUNCTION}
    ${EndIf}
    FindNext $R1 $R2
  ${Loop}
  FindClose $R1
!macroend

!macro FOR_EACH_FOLDER FUNCTION
  ${If} $Earlier != ""
    ${GetParent} $Earlier $R0
    Call ${FUNCTION}
  ${EndIf}
  ; Where the user may write comes first.
  !insertmacro FOR_EACH_IN "$APPDATA\MakeMusic" "Finale*" ${FUNCTION}
  SetShellVarContext all
  !insertmacro FOR_EACH_IN "$APPDATA\MakeMusic" "Finale*" ${FUNCTION}
  SetShellVarContext current
  ReadRegStr $R0 HKLM "Software\Microsoft\Windows\CurrentVersion\App Paths\Finale.exe" ""
  ${If} $R0 != ""
    ${GetParent} $R0 $R0
    StrCpy $R0 "$R0\Plug-ins"
    ${If} ${FileExists} "$R0\*.*"
      Call ${FUNCTION}
    ${EndIf}
  ${EndIf}
  !insertmacro FOR_EACH_IN "$PROGRAMFILES64" "Finale*" ${FUNCTION}
  !insertmacro FOR_EACH_IN "$PROGRAMFILES64\MakeMusic" "Finale*" ${FUNCTION}
  !insertmacro FOR_EACH_IN "$PROGRAMFILES64\MakeMusic\Finale" "*" ${FUNCTION}
!macroend

Function TakeFirst
  ${If} $PlugIns == ""
    StrCpy $PlugIns $R0
  ${EndIf}
FunctionEnd

Function FirstOffer
  !insertmacro FOR_EACH_FOLDER TakeFirst
FunctionEnd

Function AddOffer
  SendMessage $FolderBox ${CB_FINDSTRINGEXACT} -1 "STR:$R0" $R3
  ${If} $R3 < 0
    ${NSD_CB_AddString} $FolderBox $R0
  ${EndIf}
FunctionEnd

Function OfferFolders
  !insertmacro FOR_EACH_FOLDER AddOffer
FunctionEnd

; $Home for $PlugIns, and in $Reason why the plug-in would not load there; empty if it would.
Function CheckFolder
  StrCpy $Reason ""
  ${Do}  ; one backslash at the end or many are none
    StrCpy $0 $PlugIns 1 -1
    ${If} $0 != "\"
      ${ExitDo}
    ${EndIf}
    StrCpy $PlugIns $PlugIns -1
  ${Loop}
  StrCpy $0 $PlugIns 1 1
  StrCpy $1 $PlugIns 2
  ${If} $0 != ":"
  ${AndIf} $1 != "\\"
    StrCpy $Reason "$(NoFolder)"
    Return
  ${EndIf}
  ; An earlier folder of the plug-in's own is not put into another.
  StrCpy $Home "$PlugIns\Plyweld"
  ${GetFileName} $PlugIns $0
  ${If} $0 == "Plyweld"
    StrCpy $Home $PlugIns
    ${GetParent} $Home $PlugIns
  ${EndIf}
  Call CheckFinale
  ${If} $Reason == ""
    Call CheckNeighbours
  ${EndIf}
  ${If} $Reason == ""
    Call CheckWritable
  ${EndIf}
FunctionEnd

; The plug-in is for 64-bit programs: a Finale beside its folder must be one.
Function CheckFinale
  ${GetParent} $PlugIns $0
  ${If} ${FileExists} "$0\Finale.exe"
    System::Call 'kernel32::GetBinaryTypeW(w "$0\Finale.exe", *i .r1) i .r2'
    ${If} $2 <> 0
    ${AndIf} $1 = 0
      StrCpy $Reason "$(Finale32)"
    ${EndIf}
  ${EndIf}
FunctionEnd

; Beside folders of these names the plug-in does not start.
Function CheckNeighbours
  FindFirst $R1 $R2 "$Home\*"
  ${DoWhile} $R2 != ""
    ${If} ${FileExists} "$Home\$R2\*.*"
      ${GetBaseName} $R2 $R3
      ${IfThen} $R3 S== "Miscellaneous" ${|} StrCpy $Reason "$(Neighbour)" ${|}
      ${IfThen} $R3 S== "Multimeasure Rests" ${|} StrCpy $Reason "$(Neighbour)" ${|}
      ${IfThen} $R3 S== "Staff Sets" ${|} StrCpy $Reason "$(Neighbour)" ${|}
      ${IfThen} $R3 S== "Transpose" ${|} StrCpy $Reason "$(Neighbour)" ${|}
      ${IfThen} $Reason != "" ${|} ${ExitDo} ${|}
    ${EndIf}
    FindNext $R1 $R2
  ${Loop}
  FindClose $R1
FunctionEnd

Function CheckWritable
  ${GetParent} $PlugIns $1
  StrCpy $0 $PlugIns
  ${IfNot} ${FileExists} "$0\*.*"
    ${If} ${FileExists} "$0"
      StrCpy $Reason "$(NotWritable)"
      Return
    ${EndIf}
    StrCpy $0 $1  ; it is made when its parent can be written to
    ${If} ${FileExists} "$0\*.*"
    ${OrIf} ${Silent}
      Goto try
    ${EndIf}
    StrCpy $Reason "$(NoSuchFolder)"
    Return
  ${EndIf}
  try:
  ClearErrors
  ${IfNot} ${FileExists} "$0\*.*"
    CreateDirectory $0
  ${EndIf}
  GetTempFileName $2 $0
  ${If} ${Errors}
    StrCpy $Reason "$(NotWritable)"
  ${Else}
    Delete $2
  ${EndIf}
FunctionEnd

; Goes on when nobody uses a plug-in of folder $0, or ends the setup.
!macro WAIT_UNTIL_FREE PREFIX
Function ${PREFIX}WaitUntilFree
  again:
  FindFirst $R1 $R2 "$0\plyweld*.fxt"
  ${DoWhile} $R2 != ""
    ClearErrors
    FileOpen $1 "$0\$R2" a
    ${If} ${Errors}
      FindClose $R1
      MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(InUse)" /SD IDCANCEL IDRETRY again
      SetErrorLevel ${REFUSED}
      Abort "$(InUse)"
    ${EndIf}
    FileClose $1
    FindNext $R1 $R2
  ${Loop}
  FindClose $R1
FunctionEnd
!macroend
!insertmacro WAIT_UNTIL_FREE ""
!insertmacro WAIT_UNTIL_FREE "un."
