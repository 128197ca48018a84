// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/QtPlatform.h"

#include "ui/DesktopProgramDirectory.h"
#include "ui/linux/DesktopLauncher.h"
#include "ui/linux/FreedesktopFileTypes.h"
#include "ui/linux/LateFocus.h"
#include "ui/linux/SdlSoundPlayer.h"
#include "ui/linux/XkbLockKeys.h"
#include "ui/qt/IniSettingsStore.h"
#include "ui/qt/QtClipboard.h"
#include "ui/qt/QtDialogs.h"

#include <utility>

namespace ui::qt {

struct QtPlatform::Parts {
    explicit Parts(FolderOffer offered)
        : dialogs(settings, std::move(offered)) {}

    native::LateFocus lateFocus;
    DesktopProgramDirectory directory;
    DiskFiles files{directory.spareFolder()};
    QtClipboard clipboard;
    native::SdlSoundPlayer sounds;
    native::XkbLockKeys lockKeys;
    IniSettingsStore settings{files, IniSettingsStore::UsersFile()};
    QtDialogs dialogs;
    native::FreedesktopFileTypes fileTypes;
    native::DesktopLauncher launcher;
    Platform platform{dialogs,  files,     clipboard, sounds,    lockKeys,
                      settings, fileTypes, launcher,  directory, DesktopProgramDirectory::StateFolder()};
};

QtPlatform::QtPlatform(FolderOffer offered)
    : m_parts(std::make_unique<Parts>(std::move(offered))) {}

QtPlatform::~QtPlatform() = default;

Platform& QtPlatform::platform() {
    return m_parts->platform;
}

} // namespace ui::qt
