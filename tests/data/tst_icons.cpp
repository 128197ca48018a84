// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/Contrast.h"

#include <QColor>
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

QString resource(const QString& name) {
    return ":/icons/" + name + ".png";
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

TEST(ToolbarIcons, AreThereInBothSizes) {
    EXPECT_EQ(ToolbarKeys.size(), 25);
    for (const QString& key : ToolbarKeys) {
        SCOPED_TRACE(key.toStdString());
        EXPECT_EQ(QImage(resource(key)).size(), QSize(24, 24));
        EXPECT_EQ(QImage(resource(key + "@2x")).size(), QSize(48, 48));
    }
}

TEST(ToolbarIcons, AreFoundSharpOnDenseScreens) {
    for (const QString& key : ToolbarKeys) {
        SCOPED_TRACE(key.toStdString());
        QIcon icon;
        icon.addFile(resource(key));
        icon.addFile(resource(key + "@2x"));
        const QPixmap pixmap = icon.pixmap(QSize(24, 24), 2.0);
        EXPECT_EQ(pixmap.size(), QSize(48, 48));
        EXPECT_EQ(pixmap.devicePixelRatio(), 2.0);
        EXPECT_EQ(
            pixmap.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied).pixelColor(24, 24),
            QImage(resource(key + "@2x"))
                .convertToFormat(QImage::Format_ARGB32_Premultiplied)
                .pixelColor(24, 24));
        EXPECT_EQ(icon.pixmap(QSize(24, 24), 1.0).size(), QSize(24, 24));
    }
}

TEST(ToolbarIcons, DifferFromEachOther) {
    for (qsizetype later = 1; later < ToolbarKeys.size(); ++later) {
        for (qsizetype earlier = 0; earlier < later; ++earlier) {
            EXPECT_NE(QImage(resource(ToolbarKeys[later])), QImage(resource(ToolbarKeys[earlier])))
                << ToolbarKeys[later].toStdString() << ", " << ToolbarKeys[earlier].toStdString();
        }
    }
}

TEST(ToolbarIcons, StandOutOnLightAndDarkThemes) {
    for (const QString& key : ToolbarKeys) {
        SCOPED_TRACE(key.toStdString());
        const QImage image(resource(key));
        EXPECT_GT(visibleShare(image, QColor(0xEF, 0xEF, 0xEF)), 0.4);
        EXPECT_GT(visibleShare(image, QColor(0x2B, 0x2B, 0x2B)), 0.4);
    }
}

TEST(ToolbarIcons, LeaveTheirCornersFree) {
    for (const QString& key : ToolbarKeys) {
        SCOPED_TRACE(key.toStdString());
        const QImage image(resource(key));
        EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
        EXPECT_EQ(image.pixelColor(23, 0).alpha(), 0);
    }
}

TEST(ProgramIcon, ComesInAllSizes) {
    for (const int size : DesktopSizes) {
        EXPECT_EQ(QImage(resource("vtm-" + QString::number(size))).size(), QSize(size, size));
    }
    EXPECT_EQ(QImage(resource("vtm")).size(), QSize(64, 64));
    EXPECT_EQ(QImage(resource("vtm@2x")).size(), QSize(128, 128));
}

TEST(DesktopIcons, LieInAnIconTheme) {
    const QStringList names = {
        "apps/vtm", "mimetypes/application-x-vtm-name", "mimetypes/application-x-vtm-animation",
        "mimetypes/application-x-vtm-message"};
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        for (const int size : DesktopSizes) {
            const QString path = QString(ICON_THEME) + QString("/%1x%1/%2.png").arg(size).arg(name);
            EXPECT_EQ(QImage(path).size(), QSize(size, size)) << path.toStdString();
        }
        EXPECT_TRUE(QFile::exists(QString(ICON_THEME) + "/scalable/" + name + ".svg"));
    }
}
