// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/DesktopProgramDirectory.h"
#include "ui/Platform.h"
#include "ui/qt/DesktopLauncher.h"
#include "ui/qt/FreedesktopFileTypes.h"
#include "ui/qt/IniSettingsStore.h"
#include "ui/qt/LateFocus.h"
#include "ui/qt/QtClipboard.h"
#include "ui/qt/QtDialogs.h"
#include "ui/qt/SdlSoundPlayer.h"
#include "ui/qt/XkbLockKeys.h"

namespace ui::qt {

/// The real platform: made once, after the application object, and outlives every window.
class QtPlatform {
public:
    QtPlatform() = default;
    QtPlatform(const QtPlatform&) = delete;
    QtPlatform& operator=(const QtPlatform&) = delete;
    QtPlatform(QtPlatform&&) = delete;
    QtPlatform& operator=(QtPlatform&&) = delete;
    ~QtPlatform() = default;

    [[nodiscard]] Platform& platform() { return m_platform; }

private:
    LateFocus m_lateFocus;
    DesktopProgramDirectory m_directory;
    DiskFiles m_files{m_directory.spareFolder()};
    QtClipboard m_clipboard;
    SdlSoundPlayer m_sounds;
    XkbLockKeys m_lockKeys;
    IniSettingsStore m_settings{m_files, IniSettingsStore::UsersFile()};
    QtDialogs m_dialogs{m_settings};
    FreedesktopFileTypes m_fileTypes;
    DesktopLauncher m_launcher;
    Platform m_platform{
        m_dialogs,  m_files,     m_clipboard, m_sounds,    m_lockKeys,
        m_settings, m_fileTypes, m_launcher,  m_directory, DesktopProgramDirectory::StateFolder()};
};

} // namespace ui::qt
