; The installer for Windows: programs, option files, the file type .POL, the start menu, an uninstaller. For one user,
; without rights of an administrator. /S works silently, /D=FOLDER chooses the folder. Made by make-installer.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
!include MUI2.nsh

!define KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Havuz"
Name "Havuz ${VERSION}"
OutFile "${OUT}"
InstallDir "$LOCALAPPDATA\Programs\Havuz"
InstallDirRegKey HKCU "Software\Havuz" "Folder"
RequestExecutionLevel user
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Havuz"
VIAddVersionKey "FileDescription" "Havuz kurulumu"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "Havuz"

!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Turkish"

Section
  SetOutPath "$INSTDIR"
  File "${BUILD}/havuz-cli.exe"
!ifdef WINDOWS
  File "${BUILD}/havuz.exe"
  File "${BUILD}/havuz-raporcu.exe"
  File "${BUILD}/havuz-pictures.dll"
  File /nonfatal "${BUILD}/qtbase_tr.qm"
!endif
  File /r "${SOURCES}/programdir/*"
  File "${SOURCES}/packaging/WORKING.DIR"
!ifdef HELP
  File "${BUILD}/vek9.chm"
  File /r "${BUILD}/help"
!endif
  WriteUninstaller "$INSTDIR\uninstall.exe"

  CreateDirectory "$SMPROGRAMS\Havuz"
!ifdef WINDOWS
  CreateShortcut "$SMPROGRAMS\Havuz\Havuz.lnk" "$INSTDIR\havuz.exe" "--open"
  CreateShortcut "$SMPROGRAMS\Havuz\Havuz sonuçları.lnk" "$INSTDIR\havuz-raporcu.exe"
!endif
  CreateShortcut "$SMPROGRAMS\Havuz\Havuz komut satırı.lnk" "$SYSDIR\cmd.exe" '/k set "PATH=$INSTDIR;%PATH%"'
!ifdef HELP
  CreateShortcut "$SMPROGRAMS\Havuz\Yardım.lnk" "$INSTDIR\help\index.html"
!endif
  CreateShortcut "$SMPROGRAMS\Havuz\Havuz'u kaldır.lnk" "$INSTDIR\uninstall.exe"

  WriteRegStr HKCU "Software\Classes\.pol" "" "Havuz.Proje"
  WriteRegStr HKCU "Software\Classes\Havuz.Proje" "" "Havuz projesi"
!ifdef WINDOWS
  WriteRegStr HKCU "Software\Classes\Havuz.Proje\DefaultIcon" "" "$INSTDIR\havuz.exe,0"
  WriteRegStr HKCU "Software\Classes\Havuz.Proje\shell\open\command" "" '"$INSTDIR\havuz.exe" "%1"'
!else
  WriteRegStr HKCU "Software\Classes\Havuz.Proje\shell\open\command" "" '"$SYSDIR\cmd.exe" /k ""$INSTDIR\havuz-cli.exe" info "%1""'
!endif
  WriteRegStr HKCU "Software\Havuz" "Folder" "$INSTDIR"
  WriteRegStr HKCU "${KEY}" "DisplayName" "Havuz"
  WriteRegStr HKCU "${KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${KEY}" "NoRepair" 1
SectionEnd

; Only what was installed goes: a folder that holds anything else stays, and so do projects.
Section Uninstall
  Delete "$INSTDIR\havuz-cli.exe"
  Delete "$INSTDIR\havuz.exe"
  Delete "$INSTDIR\havuz-raporcu.exe"
  Delete "$INSTDIR\havuz-pictures.dll"
  Delete "$INSTDIR\qtbase_tr.qm"
  Delete "$INSTDIR\DIMS.OPS"
  Delete "$INSTDIR\VEK9.COD"
  Delete "$INSTDIR\VEKCARD.OPS"
  Delete "$INSTDIR\WORKING.DIR"
  Delete "$INSTDIR\vek9.chm"
  Delete "$INSTDIR\VEK9DATA\WORKING"
  RMDir "$INSTDIR\VEK9DATA"
  RMDir /r "$INSTDIR\help"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  RMDir /r "$SMPROGRAMS\Havuz"
  ReadRegStr $0 HKCU "Software\Classes\.pol" ""
  StrCmp $0 "Havuz.Proje" 0 +2
  DeleteRegKey HKCU "Software\Classes\.pol"
  DeleteRegKey HKCU "Software\Classes\Havuz.Proje"
  DeleteRegKey HKCU "Software\Havuz"
  DeleteRegKey HKCU "${KEY}"
SectionEnd
