; The installer. scripts/package gives it VERSION, FILES (macros with all that is in it),
; SIZE (KB), OUT and, where programs are signed, SIGN.
;
; Silent: /S [/AllUsers|/CurrentUser] [/D=FOLDER]; the exit codes are a promise to who rolls it out.
!define FAILED_REGISTRATION 3
!define FAILED_IN_USE 4
!define FAILED_RIGHTS 5
!define FAILED_WINDOWS 6

Unicode true
ManifestSupportedOS all
ManifestDPIAware true
SetCompressor /SOLID lzma
SetDateSave off ; the same bytes from each build of the same sources

!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Conmuta"
!define UNINSTALLER "desinstalar.exe"
!define MENU "$SMPROGRAMS\Conmuta"

!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_INSTDIR Conmuta
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${ENTRY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME InstallLocation
!define MULTIUSER_USE_PROGRAMFILES64
!include MultiUser.nsh
!include MUI2.nsh
!include x64.nsh
!include WinVer.nsh
!include FileFunc.nsh
!include "${FILES}"

Name "Conmuta ${VERSION}"
OutFile "${OUT}"
BrandingText "Conmuta ${VERSION}"
ShowInstDetails nevershow
ShowUninstDetails nevershow
!ifdef SIGN
  !uninstfinalize '"${SIGN}" "%1"' = 0
!endif

!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE SpanishInternational
!insertmacro MUI_LANGUAGE English

VIProductVersion "${VERSION}.0"
!macro VersionTexts LANG DESCRIPTION
  VIAddVersionKey /LANG=${LANG} ProductName "Conmuta"
  VIAddVersionKey /LANG=${LANG} ProductVersion "${VERSION}"
  VIAddVersionKey /LANG=${LANG} FileVersion "${VERSION}"
  VIAddVersionKey /LANG=${LANG} FileDescription "${DESCRIPTION}"
  VIAddVersionKey /LANG=${LANG} CompanyName "Conmuta"
  VIAddVersionKey /LANG=${LANG} LegalCopyright "Copyright (C) Conmuta"
!macroend
!insertmacro VersionTexts ${LANG_SPANISHINTERNATIONAL} "Instalador de Conmuta"
!insertmacro VersionTexts ${LANG_ENGLISH} "Conmuta Setup"

!macro Text NAME SPANISH ENGLISH
  LangString ${NAME} ${LANG_SPANISHINTERNATIONAL} "${SPANISH}"
  LangString ${NAME} ${LANG_ENGLISH} "${ENGLISH}"
!macroend
!insertmacro Text InUse \
  "Un programa está usando Conmuta:$\r$\n$R1$\r$\n$\r$\nCierre los programas que lo usan y vuelva a intentarlo." \
  "A program is using Conmuta:$\r$\n$R1$\r$\n$\r$\nClose the programs that use it and try again."
!insertmacro Text AdministratorNeeded \
  "Para instalar o quitar Conmuta para todos los usuarios hacen falta derechos de administrador.$\r$\n$\r$\nEjecute este programa como administrador, o instale Conmuta solo para usted." \
  "Installing or removing Conmuta for all users needs administrator's rights.$\r$\n$\r$\nRun this program as administrator, or install Conmuta for yourself only."
!insertmacro Text CannotWrite \
  "No se puede escribir en la carpeta$\r$\n$INSTDIR$\r$\n$\r$\nElija otra carpeta, o ejecute este programa como administrador." \
  "The folder$\r$\n$INSTDIR$\r$\ncannot be written to.$\r$\n$\r$\nChoose another one, or run this program as administrator."
!insertmacro Text CannotRegister \
  "Windows no pudo registrar el componente, o dejar de registrarlo (código $0):$\r$\n$R1" \
  "Windows could not register the component, or undo that (code $0):$\r$\n$R1"
!insertmacro Text Workshop "Taller de conmutadores" "Switch workshop"
!insertmacro Text Manual "Manual de Conmuta" "Conmuta manual (Spanish)"
!insertmacro Text OldWindows \
  "Conmuta necesita Windows 7 o posterior." \
  "Conmuta needs Windows 7 or later."

; Ends with a message, which a silent run has nobody to show to, and an exit code.
!macro Refuse CODE TEXT
  MessageBox MB_OK|MB_ICONSTOP "$(${TEXT})" /SD IDOK
  SetErrorLevel ${CODE}
!macroend

; Before anything else: all registry keys are those of the system's own size, and the choice between all
; users and one must be possible. MultiUser.nsh would show its refusal in silent runs, too.
!macro Begin INIT
  ${If} ${RunningX64}
    SetRegView 64
  ${EndIf}
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/AllUsers" $1
  ${IfNot} ${Errors}
    UserInfo::GetAccountType
    Pop $1
    ${If} $1 != "Admin"
    ${AndIf} $1 != "Power"
      !insertmacro Refuse ${FAILED_RIGHTS} AdministratorNeeded
      Quit
    ${EndIf}
  ${EndIf}
  ; MultiUser.nsh forgets what /D= or the uninstaller's own place said.
  StrCpy $R9 $INSTDIR
  !insertmacro ${INIT}
  ${If} $R9 != ""
    StrCpy $INSTDIR $R9
  ${EndIf}
!macroend

; What the installer and the uninstaller both do; the functions of the latter begin with "un.".
!macro Functions UN

; Refuses while a program has one of our programs or DLLs in $R0 loaded: Windows lets nobody write to it.
Function ${UN}RefuseIfInUse
  !insertmacro EachImage CheckInUse
  Return
 inUse:
  MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(InUse)" /SD IDCANCEL IDRETRY again
  RMDir "$INSTDIR" ; where nothing is in it yet
  SetErrorLevel ${FAILED_IN_USE}
  Abort
 again:
  Call ${UN}RefuseIfInUse
FunctionEnd

; Has both DLLs registered or, with $R2 = "/u", forgotten, as far as they are there. $0 is 0, or the code
; of the failure, and $R1 the DLL.
Function ${UN}Register
  StrCpy $R1 "$INSTDIR\win32\conmuta.dll"
  Call ${UN}RegisterOne
  ${If} $0 = 0
  ${AndIf} ${RunningX64}
    StrCpy $R1 "$INSTDIR\win64\conmuta.dll"
    ; Otherwise a 32-bit program finds the 32-bit regsvr32 here.
    ${DisableX64FSRedirection}
    Call ${UN}RegisterOne
    ${EnableX64FSRedirection}
  ${EndIf}
FunctionEnd

Function ${UN}RegisterOne
  StrCpy $0 0
  ${IfNot} ${FileExists} "$R1"
    Return
  ${EndIf}
  StrCpy $1 ""
  ${If} $MultiUser.InstallMode == "CurrentUser"
    StrCpy $1 "/n /i:user"
  ${EndIf}
  StrCpy $0 -1
  ExecWait '"$SYSDIR\regsvr32.exe" /s $R2 $1 "$R1"' $0
FunctionEnd

; Leaves what the user put into our folders.
Function ${UN}RemoveAll
  SetOutPath $TEMP ; a folder that a program stands in stays
  RMDir /r "${MENU}"
  !insertmacro RemoveFiles
  DeleteRegKey SHCTX "${ENTRY}"
  Delete "$INSTDIR\${UNINSTALLER}"
  RMDir "$INSTDIR"
FunctionEnd

!macroend

!macro CheckInUse FILE
  StrCpy $R1 "$R0\${FILE}"
  ${If} ${FileExists} "$R1"
    ClearErrors
    FileOpen $0 "$R1" a
    IfErrors inUse
    FileClose $0
  ${EndIf}
!macroend

!insertmacro Functions ""
!insertmacro Functions "un."

Function .onInit
  ${IfNot} ${AtLeastWin7}
    !insertmacro Refuse ${FAILED_WINDOWS} OldWindows
    Quit
  ${EndIf}
  !insertmacro Begin MULTIUSER_INIT
FunctionEnd

Function un.onInit
  !insertmacro Begin MULTIUSER_UNINIT
FunctionEnd

Function RefuseIfNotWritable
  ClearErrors
  CreateDirectory "$INSTDIR"
  GetTempFileName $0 "$INSTDIR"
  ${If} ${Errors}
    !insertmacro Refuse ${FAILED_RIGHTS} CannotWrite
    Abort
  ${EndIf}
  Delete $0
FunctionEnd

; What is installed, an older version or this one, goes first; its uninstaller knows what it wrote. Run
; from its own place it would return before it has done anything. One that fails, after an installation
; that was interrupted, is in nobody's way.
Function RemoveInstalled
  ReadRegStr $R0 SHCTX "${ENTRY}" InstallLocation
  ${If} $R0 == ""
  ${OrIfNot} ${FileExists} "$R0\${UNINSTALLER}"
    Return
  ${EndIf}
  Call RefuseIfInUse
  InitPluginsDir
  CopyFiles /SILENT "$R0\${UNINSTALLER}" "$PLUGINSDIR\${UNINSTALLER}"
  StrCpy $0 -1
  ExecWait '"$PLUGINSDIR\${UNINSTALLER}" /S /$MultiUser.InstallMode _?=$R0' $0
  ${If} $0 = ${FAILED_IN_USE}
    SetErrorLevel ${FAILED_IN_USE}
    Abort
  ${EndIf}
FunctionEnd

Section
  Call RefuseIfNotWritable
  StrCpy $R0 $INSTDIR
  Call RefuseIfInUse
  Call RemoveInstalled

  ; The uninstaller first: it undoes an installation that is interrupted, too.
  CreateDirectory "$INSTDIR"
  ClearErrors
  WriteUninstaller "$INSTDIR\${UNINSTALLER}"
  WriteRegStr SHCTX "${ENTRY}" DisplayName "Conmuta"
  WriteRegStr SHCTX "${ENTRY}" DisplayVersion "${VERSION}"
  WriteRegStr SHCTX "${ENTRY}" Publisher "Conmuta"
  WriteRegStr SHCTX "${ENTRY}" InstallLocation "$INSTDIR"
  WriteRegStr SHCTX "${ENTRY}" UninstallString '"$INSTDIR\${UNINSTALLER}" /$MultiUser.InstallMode'
  WriteRegStr SHCTX "${ENTRY}" QuietUninstallString '"$INSTDIR\${UNINSTALLER}" /$MultiUser.InstallMode /S'
  WriteRegDWORD SHCTX "${ENTRY}" EstimatedSize ${SIZE}
  WriteRegDWORD SHCTX "${ENTRY}" NoModify 1
  WriteRegDWORD SHCTX "${ENTRY}" NoRepair 1
  !insertmacro InstallFiles
  ${If} ${RunningX64}
    !insertmacro InstallFilesOf64
  ${EndIf}
  ${If} ${Errors}
    Call RemoveAll
    !insertmacro Refuse ${FAILED_RIGHTS} CannotWrite
    Abort
  ${EndIf}

  CreateDirectory "${MENU}"
  StrCpy $0 "$INSTDIR\win32"
  ${If} ${RunningX64}
    StrCpy $0 "$INSTDIR\win64"
  ${EndIf}
  SetOutPath "$INSTDIR"
  CreateShortcut "${MENU}\$(Workshop).lnk" "$0\taller.exe"
  CreateShortcut "${MENU}\$(Manual).lnk" "$INSTDIR\manual\conmuta.html"

  StrCpy $R2 ""
  Call Register
  ${If} $0 <> 0
    ; Said first: undoing has a code of its own.
    !insertmacro Refuse ${FAILED_REGISTRATION} CannotRegister
    StrCpy $R2 "/u"
    Call Register
    Call RemoveAll
    Abort
  ${EndIf}
SectionEnd

Section Uninstall
  StrCpy $R0 $INSTDIR
  Call un.RefuseIfInUse
  StrCpy $R2 "/u"
  Call un.Register
  ${If} $0 <> 0
    !insertmacro Refuse ${FAILED_REGISTRATION} CannotRegister
    Abort
  ${EndIf}
  Call un.RemoveAll
SectionEnd
