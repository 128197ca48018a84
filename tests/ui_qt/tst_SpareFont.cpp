// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/SpareFont.h"

#include <QApplication>
#include <QFile>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

/// A font of this system.
QString& FontFile() {
    static QString file;
    return file;
}

/// Starts with no font at all, since the toolkit reads the list of fonts once.
TEST(SpareFont, IsUsedWhereThereIsNoOther) {
    ASSERT_TRUE(QFile::exists(FontFile())) << qPrintable(FontFile());
    const auto areBoxes = [] {
        const QFontMetrics metrics{QApplication::font()};
        return metrics.horizontalAdvance(QLatin1Char('w')) == metrics.horizontalAdvance(QLatin1Char('l'));
    };
    ASSERT_TRUE(areBoxes());

    ui::qt::UseSpareFont("/no/such/font.ttf");
    EXPECT_TRUE(areBoxes());

    const ui::Path file = QFile::encodeName(FontFile()).toStdString();
    ui::qt::UseSpareFont(file);
    EXPECT_FALSE(areBoxes());
    const QString family = QFontInfo(QApplication::font()).family();
    EXPECT_EQ(QFontDatabase::applicationFontFamilies(0), QStringList{family});

    ui::qt::UseSpareFont(file);
    EXPECT_TRUE(QFontDatabase::applicationFontFamilies(1).isEmpty()) << "there is one now";

    QFontDatabase::removeAllApplicationFonts();
}

} // namespace

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    QProcess match;
    match.start(QStringLiteral("fc-match"), {QStringLiteral("--format=%{file}"), QStringLiteral("sans")});
    match.waitForFinished();
    FontFile() = QFile::decodeName(match.readAllStandardOutput());

    const QTemporaryDir folder;
    QFile settings(folder.filePath(QStringLiteral("fonts.conf")));
    if (!settings.open(QFile::WriteOnly) || settings.write("<fontconfig/>") < 0) {
        return 1;
    }
    settings.close();
    qputenv("FONTCONFIG_FILE", QFile::encodeName(settings.fileName()));
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
