// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/LineLabel.h"

#include <QHBoxLayout>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>

namespace {

using ui::qt::LineLabel;

const QString LongText = QStringLiteral("Line 50 will be replaced: set <b>allow_download</b> \"1\"");

/// A label in a window of a width.
class Line : public testing::Test {
protected:
    QWidget window;
    LineLabel* label = new LineLabel(&window);

    void show(int width) {
        (new QHBoxLayout(&window))->addWidget(label);
        window.resize(width, 40);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    [[nodiscard]] QImage shown() const { return label->grab().toImage(); }

    /// What is shown over the label when the pointer rests on it.
    QString tip() const {
        QHelpEvent event(QEvent::ToolTip, {2, 2}, label->mapToGlobal(QPoint(2, 2)));
        QApplication::sendEvent(label, &event);
        return QToolTip::text();
    }
};

} // namespace

TEST_F(Line, IsAsWideAsItIsGiven) {
    label->tell(LongText);
    show(80);
    EXPECT_EQ(window.width(), 80);
    EXPECT_LT(label->width(), label->sizeHint().width());
    EXPECT_EQ(label->text(), LongText) << "is heard whole";
}

TEST_F(Line, IsCutWhereItDoesNotFit) {
    label->tell(LongText);
    show(80);
    const QImage cut = shown();
    label->tell(label->fontMetrics().elidedText(LongText, Qt::ElideRight, label->contentsRect().width()));
    EXPECT_EQ(shown(), cut);
    label->tell(LongText.left(3));
    EXPECT_NE(shown(), cut);
}

TEST_F(Line, KeepsItsHeightWithoutAText) {
    label->tell(LongText);
    show(80);
    const int height = label->height();
    label->tell({});
    QCoreApplication::processEvents();
    EXPECT_EQ(label->height(), height);
}

TEST_F(Line, ShowsOverItWhatWasCutAndWhatMoreThereIs) {
    label->tell(LongText);
    show(80);
    EXPECT_EQ(tip(), QStringLiteral("<p>%1</p>").arg(LongText.toHtmlEscaped()));
    label->tell(QStringLiteral("A"));
    tip();
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
    label->tell(QStringLiteral("A"), QStringLiteral("a < b"));
    EXPECT_EQ(tip(), QStringLiteral("<p>a &lt; b</p>"));
}

TEST_F(Line, WhatMoreThereIsToKnowKeepsItsLines) {
    label->tell(LongText, LongText + QStringLiteral("\nand <more>"));
    show(80);
    EXPECT_EQ(tip(), QStringLiteral("<p>%1<br>and &lt;more&gt;</p>").arg(LongText.toHtmlEscaped()))
        << "what is cut is not said twice";
}
