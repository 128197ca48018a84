// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/QtPlatform.h"

#include "ui/DesktopProgramDirectory.h"
#include "ui/qt/IniSettingsStore.h"
#include "ui/qt/QtDialogs.h"
#include "ui/windows/QtBytesClipboard.h"
#include "ui/windows/QtLockKeys.h"
#include "ui/windows/QtRowPainter.h"
#include "ui/windows/QtShellLauncher.h"
#include "ui/windows/RegistryFileTypes.h"
#include "ui/windows/WaveSounds.h"
#include "ui/windows/Wine.h"

#include <utility>

namespace ui::qt {

struct QtPlatform::Parts {
    explicit Parts(FolderOffer offered)
        : dialogs(settings, std::move(offered)) {}

    DesktopProgramDirectory directory;
    DiskFiles files{directory.spareFolder()};
    native::QtBytesClipboard clipboard;
    native::WaveSounds sounds;
    native::QtLockKeys lockKeys;
    IniSettingsStore settings{files, IniSettingsStore::UsersFile()};
    QtDialogs dialogs;
    native::RegistryFileTypes fileTypes;
    native::QtShellLauncher launcher;
    Platform platform{dialogs,  files,     clipboard, sounds,    lockKeys,
                      settings, fileTypes, launcher,  directory, DesktopProgramDirectory::StateFolder()};
};

QtPlatform::QtPlatform(FolderOffer offered)
    : m_parts(std::make_unique<Parts>(std::move(offered))) {
    if (native::IsWine()) {
        native::MakeRowPainter();
    }
}

QtPlatform::~QtPlatform() = default;

Platform& QtPlatform::platform() {
    return m_parts->platform;
}

} // namespace ui::qt
