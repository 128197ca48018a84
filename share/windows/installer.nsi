; SPDX-FileCopyrightText: The Vortigo developers
; SPDX-License-Identifier: MIT

; The installer and the uninstaller. CPack puts its values in place of names between @. Everything is the user's own: no
; administrator is needed, and nobody else's settings change.

Target amd64-unicode
!include "MUI2.nsh"
!include "FileFunc.nsh"

!define INST_DIR "@CPACK_TEMPORARY_DIRECTORY@"
!define PROGRAM "$INSTDIR\VTM.exe"
!define LISTED "Software\Microsoft\Windows\CurrentVersion\Uninstall\@CPACK_PACKAGE_NAME@"

Name "@CPACK_PACKAGE_NAME@"
OutFile "@CPACK_TOPLEVEL_DIRECTORY@/@CPACK_OUTPUT_FILE_NAME@"
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
ManifestLongPathAware true
InstallDir "$LOCALAPPDATA\Programs\@CPACK_PACKAGE_INSTALL_DIRECTORY@"
InstallDirRegKey HKCU "${LISTED}" "InstallLocation"
; A program that lacks some of its files is none: what cannot be written ends the installation.
AllowSkipFiles off
BrandingText "@CPACK_PACKAGE_NAME@ @CPACK_PACKAGE_VERSION@"

!define MUI_ICON "@CPACK_NSIS_MUI_ICON@"
!define MUI_UNICON "@CPACK_NSIS_MUI_ICON@"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; Windows lets nobody write to a program that runs. In silence, there is nobody to close it.
!macro WantClosed
    again:
    IfFileExists "${PROGRAM}" 0 closed
    ClearErrors
    FileOpen $0 "${PROGRAM}" a
    IfErrors 0 writable
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "@CPACK_PACKAGE_NAME@ is running. Please close it and try again." \
            /SD IDCANCEL IDRETRY again
        SetErrorLevel 2
        Abort "@CPACK_PACKAGE_NAME@ is running. Nothing was changed."
    writable:
    FileClose $0
    closed:
!macroend

; The character sets are the user's once they have been changed since they were installed, and where nothing tells of their
; installation: an update and the removal leave them as they are, both or none, since one tells what is in the other.
Var KeptSets

!macro DefineLookAtSets un
    Function ${un}LookAtSets
        StrCpy $KeptSets ""
        !insertmacro LookAtSet "vtmtc.dat"
        !insertmacro LookAtSet "vtmgrid.dat"
    FunctionEnd
!macroend

; When a set was last written is known as two numbers.
!macro LookAtSet name
    IfFileExists "$INSTDIR\${name}" 0 same_${name}
        GetFileTime "$INSTDIR\${name}" $0 $1
        ReadRegStr $2 HKCU "${LISTED}" "${name}"
        StrCmp $2 "$0 $1" same_${name}
            StrCpy $KeptSets "kept"
    same_${name}:
!macroend

!macro WriteSet name
    StrCmp $KeptSets "" write_${name}
    IfFileExists "$INSTDIR\${name}" kept_${name}
    write_${name}:
        File "${INST_DIR}/${name}"
        GetFileTime "$INSTDIR\${name}" $0 $1
        WriteRegStr HKCU "${LISTED}" "${name}" "$0 $1"
    kept_${name}:
!macroend

!insertmacro DefineLookAtSets ""
!insertmacro DefineLookAtSets "un."

; A file type as the program itself writes it whenever it starts: the switch and the path share a pair of quotes.
!macro AddType extension class description switch
    WriteRegStr HKCU "Software\Classes\${extension}" "" "${class}"
    WriteRegStr HKCU "Software\Classes\${class}" "" "${description}"
    WriteRegDWORD HKCU "Software\Classes\${class}" "EditFlags" 0
    WriteRegStr HKCU "Software\Classes\${class}\DefaultIcon" "" "${PROGRAM},0"
    WriteRegStr HKCU "Software\Classes\${class}\shell\open\command" "" '${PROGRAM} " /${switch} %1"'
!macroend

; Another program may have taken the extension since, and another copy of this one the class. $1 is the folder by the name
; that it was installed under: the uninstaller may have been started by another.
!macro RemoveType extension class switch
    ReadRegStr $0 HKCU "Software\Classes\${class}\shell\open\command" ""
    StrCmp $0 '$1\VTM.exe " /${switch} %1"' 0 other_${class}
        DeleteRegKey HKCU "Software\Classes\${class}"
        ReadRegStr $0 HKCU "Software\Classes\${extension}" ""
        StrCmp $0 "${class}" 0 other_${class}
            DeleteRegValue HKCU "Software\Classes\${extension}" ""
            DeleteRegKey /ifempty HKCU "Software\Classes\${extension}"
    other_${class}:
!macroend

; Explorer shows the types at once.
!macro TellOfTypes
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Section
    !insertmacro WantClosed
    SetOutPath "$INSTDIR"
    Call LookAtSets
    File /r /x vtmtc.dat /x vtmgrid.dat "${INST_DIR}/*"
    !insertmacro WriteSet "vtmtc.dat"
    !insertmacro WriteSet "vtmgrid.dat"
    WriteUninstaller "$INSTDIR\Uninstall.exe"
    ; What the program first offers to save into is the folder that it is started in.
    SetOutPath "$DOCUMENTS"
    CreateShortCut "$SMPROGRAMS\@CPACK_PACKAGE_NAME@.lnk" "${PROGRAM}"
    SetOutPath "$INSTDIR"

    !insertmacro AddType ".vtn" "VTM_Name" "Quake Name Script" "name"
    !insertmacro AddType ".vta" "VTM_Ani" "Quake Animation Script" "animation"
    !insertmacro AddType ".vtm" "VTM_Macro" "Quake Message Script" "macro"
    !insertmacro TellOfTypes

    WriteRegStr HKCU "${LISTED}" "DisplayName" "@CPACK_PACKAGE_NAME@"
    WriteRegStr HKCU "${LISTED}" "DisplayVersion" "@CPACK_PACKAGE_VERSION@"
    WriteRegStr HKCU "${LISTED}" "DisplayIcon" "${PROGRAM}"
    WriteRegStr HKCU "${LISTED}" "Publisher" "@CPACK_PACKAGE_VENDOR@"
    WriteRegStr HKCU "${LISTED}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${LISTED}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
    WriteRegStr HKCU "${LISTED}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
    WriteRegDWORD HKCU "${LISTED}" "NoModify" 1
    WriteRegDWORD HKCU "${LISTED}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    IntFmt $0 "0x%08X" $0
    WriteRegDWORD HKCU "${LISTED}" "EstimatedSize" $0
SectionEnd

; What was installed goes, by name, and what the program has left for a moment: what the user has put there stays, and so do
; the settings. Where a file cannot be removed, what offers the removal stays as well.
Section "Uninstall"
    !insertmacro WantClosed
    Call un.LookAtSets
    ClearErrors
    !include "@CPACK_TOPLEVEL_DIRECTORY@/removal.nsh"
    Delete "$INSTDIR\temphtm.url"
    Delete "$INSTDIR\curchar.gif"
    StrCmp $KeptSets "" 0 kept
        Delete "$INSTDIR\vtmtc.dat"
        Delete "$INSTDIR\vtmgrid.dat"
    kept:
    IfErrors 0 gone
        SetErrorLevel 2
        Abort "A file is in use. Please close what uses it and remove @CPACK_PACKAGE_NAME@ again."
    gone:
    @CPACK_NSIS_DELETE_DIRECTORIES@

    ReadRegStr $1 HKCU "${LISTED}" "InstallLocation"
    StrCmp $1 "" 0 known
        StrCpy $1 "$INSTDIR"
    known:
    !insertmacro RemoveType ".vtn" "VTM_Name" "name"
    !insertmacro RemoveType ".vta" "VTM_Ani" "animation"
    !insertmacro RemoveType ".vtm" "VTM_Macro" "macro"
    !insertmacro TellOfTypes
    Delete "$SMPROGRAMS\@CPACK_PACKAGE_NAME@.lnk"
    DeleteRegKey HKCU "${LISTED}"
    Delete "$INSTDIR\Uninstall.exe"
    RMDir "$INSTDIR"
SectionEnd
