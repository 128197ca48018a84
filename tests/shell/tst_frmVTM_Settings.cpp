// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include "shell/StatusLine.h"

namespace {

using WindowSettings = MainWindow;

} // namespace

TEST_F(WindowSettings, ThatCannotBeReadAreToldAtTheStart) {
    fake.settings.readFailure = "Could not open \"VTM.ini\": Permission denied.";
    start();
    EXPECT_EQ(
        window->statusBar()->currentMessage().toStdString(),
        "Your settings cannot be read, so the defaults are used and the file is left as it is. "
        "Could not open \"VTM.ini\": Permission denied.");
}

TEST_F(WindowSettings, ThatCannotBeReadAreToldBesideASetThatStandsIn) {
    fake.settings.readFailure = "no.";
    fake.settings.write("characterset", "unreadable", "0");
    std::string store = fake.directory.files.content("vtmgrid.dat");
    fake.directory.files.put("vtmgrid.dat", store.replace(0, 6, "damage"));
    start();
    EXPECT_EQ(
        window->statusBar()->currentMessage().toStdString(),
        "Your settings cannot be read, so the defaults are used and the file is left as it is. no. "
        "The character set \"Classic Stone\" cannot be read; \"Quake2 Steel\" is shown instead.");
}

TEST_F(WindowSettings, ThatCannotBeSavedAreToldAtTheEnd) {
    start();
    fake.settings.saveFailure = "Could not write the settings \"VTM.ini\".";
    fake.dialogs.expectWarning("Your options were not saved: the next start has those of before.\n\n"
                               "Could not write the settings \"VTM.ini\".");
    window->close();
    fake.dialogs.expectAllAsked();
}
