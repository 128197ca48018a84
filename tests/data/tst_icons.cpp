// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/Icons.h"
#include "support/Contrast.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <algorithm>

using support::Contrast;

namespace {

const QStringList ToolbarKeys = {
    "fnew",     "fopen",   "fsave",  "sname", "sani",   "smess", "cut",    "copy",   "paste",
    "aleft",    "acenter", "aright", "lcase", "ucase",  "scase", "color1", "color2", "scolor",
    "revorder", "revchar", "wiz",    "view",  "config", "about", "help",
};

constexpr int DesktopSizes[] = {16, 22, 24, 32, 48, 64, 128, 256};

QImage picture(const QString& key) {
    return shell::ToolIcon(key).pixmap(QSize(24, 24)).toImage();
}

/// The picture as its file was rendered.
QImage rendered(const QString& file) {
    return QImage(QString(ICONS) + "/" + file).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// The share of an icon's opaque pixels that stand out against a background.
double visibleShare(const QImage& image, const QColor& background) {
    int opaque = 0;
    int visible = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            if (colour.alpha() > 200) {
                ++opaque;
                visible += Contrast(colour, background) >= 2 ? 1 : 0;
            }
        }
    }
    return opaque == 0 ? 0 : static_cast<double>(visible) / opaque;
}

} // namespace

TEST(ToolbarIcons, AreAllThatAreRendered) {
    QStringList files;
    for (const QString& key : ToolbarKeys) {
        files << key + ".png" << key + "@2x.png";
    }
    files.sort();
    EXPECT_EQ(QDir(ICONS "/toolbar").entryList({"*.png"}, QDir::Files, QDir::Name), files);
}

TEST(ToolbarIcons, AreThereInBothSizes) {
    for (const QString& key : ToolbarKeys) {
        SCOPED_TRACE(key.toStdString());
        EXPECT_EQ(shell::ToolIcon(key).availableSizes(), QList<QSize>({QSize(24, 24), QSize(48, 48)}));
    }
}

TEST(ToolbarIcons, ShowWhatWasRendered) {
    for (const QString& key : ToolbarKeys) {
        SCOPED_TRACE(key.toStdString());
        EXPECT_EQ(picture(key), rendered("toolbar/" + key + ".png"));
    }
}

TEST(ToolbarIcons, AreSharpOnDenseScreens) {
    for (const QString& key : ToolbarKeys) {
        SCOPED_TRACE(key.toStdString());
        const QPixmap pixmap = shell::ToolIcon(key).pixmap(QSize(24, 24), 2.0);
        EXPECT_EQ(pixmap.devicePixelRatio(), 2.0);
        QImage expected = rendered("toolbar/" + key + "@2x.png");
        expected.setDevicePixelRatio(2.0);
        EXPECT_EQ(pixmap.toImage(), expected);
    }
}

TEST(ToolbarIcons, AreNullWithoutAPicture) {
    EXPECT_TRUE(shell::ToolIcon("none").isNull());
}

TEST(ToolbarIcons, DifferFromEachOther) {
    for (qsizetype later = 1; later < ToolbarKeys.size(); ++later) {
        for (qsizetype earlier = 0; earlier < later; ++earlier) {
            EXPECT_NE(picture(ToolbarKeys[later]), picture(ToolbarKeys[earlier]))
                << ToolbarKeys[later].toStdString() << ", " << ToolbarKeys[earlier].toStdString();
        }
    }
}

TEST(ToolbarIcons, StandOutOnLightAndDarkThemes) {
    for (const QString& key : ToolbarKeys) {
        SCOPED_TRACE(key.toStdString());
        const QImage image = picture(key);
        EXPECT_GT(visibleShare(image, QColor(0xEF, 0xEF, 0xEF)), 0.4);
        EXPECT_GT(visibleShare(image, QColor(0x2B, 0x2B, 0x2B)), 0.4);
    }
}

TEST(ToolbarIcons, LeaveTheirCornersFree) {
    for (const QString& key : ToolbarKeys) {
        SCOPED_TRACE(key.toStdString());
        const QImage image = picture(key);
        EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
        EXPECT_EQ(image.pixelColor(23, 0).alpha(), 0);
    }
}

TEST(ProgramIcon, ComesInTheSizesOfWindowManagers) {
    const QIcon icon = shell::ProgramIcon();
    for (const int size : {16, 32, 48, 64}) {
        SCOPED_TRACE(size);
        EXPECT_EQ(
            icon.pixmap(QSize(size, size)).toImage(),
            rendered(QString("hicolor/%1x%1/apps/vtm.png").arg(size)));
    }
}

TEST(DesktopIcons, LieInAnIconTheme) {
    const QStringList names = {
        "apps/vtm", "mimetypes/application-x-vtm-name", "mimetypes/application-x-vtm-animation",
        "mimetypes/application-x-vtm-message"};
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        for (const int size : DesktopSizes) {
            const QString path = QString(ICONS) + QString("/hicolor/%1x%1/%2.png").arg(size).arg(name);
            EXPECT_EQ(QImage(path).size(), QSize(size, size)) << path.toStdString();
        }
        EXPECT_TRUE(QFile::exists(QString(ICONS) + "/hicolor/scalable/" + name + ".svg"));
    }
}
