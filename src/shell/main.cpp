// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/CommandLine.h"
#include "shell/GamePlaces.h"
#include "shell/Icons.h"
#include "shell/frmVTM.h"
#include "ui/System.h"
#include "ui/qt/QtPlatform.h"
#include "ui/qt/SpareFont.h"
#include "ui/qt/Termination.h"

#include <QApplication>
#include <iostream>
#include <string>
#include <vector>

namespace {

/// Saves the settings where nobody can be asked: a question must not hold up a session that ends.
void Unload(shell::frmVTM& window) {
    if (const ui::Status saved = window.Form_Unload(); !saved) {
        std::cerr << saved.failure().message << '\n';
    }
}

} // namespace

int main(int argc, char* argv[]) {
    if (const auto text = shell::TextToPrint(ui::CommandLine(argc, argv))) {
        std::cout << *text;
        return 0;
    }
    ui::SurviveFileSizeLimit();
    QApplication application(argc, argv);
    // The desktop finds a window's entry by these names, whatever file the program is started as.
    QApplication::setApplicationName(QStringLiteral("VTM"));
    QApplication::setDesktopFileName(QStringLiteral("vtm"));
    QApplication::setWindowIcon(shell::ProgramIcon());
    const shell::Workspace* workspace = nullptr; // as long as there is no window
    ui::qt::QtPlatform qtPlatform([&workspace] {
        return workspace == nullptr ? std::vector<ui::NamedFolder>() : shell::GameFolders(*workspace);
    });
    ui::Platform& platform = qtPlatform.platform();
    ui::qt::UseSpareFont(platform.directory.folder() / "vtmfont.ttf");

    // Of separate arguments those that the toolkit leaves.
    const std::vector<std::string> arguments = ui::CommandLine(argc, argv);

    if (const shell::StartFiles start = shell::ReadArguments(arguments); !start.intro && !start.file) {
        std::cerr << shell::HowToLoad << '\n';
    }
    shell::frmVTM window(platform);
    workspace = &window.workspace();
    ui::qt::OnTermination(window, [&window] {
        // Not quit(): that does nothing while a message of the start is all that runs.
        QCoreApplication::exit();
        Unload(window);
    });
    // A desktop session that ends asks the application to quit without closing its windows.
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &window, [&window] { Unload(window); });
    if (const ui::Status loaded = window.Form_Load(arguments); !loaded) {
        platform.dialogs.warn(loaded.failure().message);
        return 1;
    }
    // A message of the start may have stood on the screen when the program was told to end.
    return window.isUnloaded() ? 0 : QApplication::exec();
}
