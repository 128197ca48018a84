// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <string>

namespace support {

/// Works a window like its user: finds controls by name and sends them real events.
class FormHand {
public:
    explicit FormHand(QWidget& form)
        : m_form(form) {}

    template <class Widget>
    Widget& find(const char* name) const {
        auto* const widget = m_form.findChild<Widget*>(QLatin1String(name));
        if (widget == nullptr) {
            ADD_FAILURE() << "no " << name;
            std::abort();
        }
        return *widget;
    }

    /// What a label or a button says.
    template <class Widget>
    std::string text(const char* name) const {
        return find<Widget>(name).text().toStdString();
    }

    std::string toolTip(const char* name) const { return find<QWidget>(name).toolTip().toStdString(); }

    void click(const char* name) const { QTest::mouseClick(&find<QWidget>(name), Qt::LeftButton); }

    /// Chooses an option button; a click into its middle may miss the words.
    void choose(const char* name) const {
        QTest::mouseClick(
            &find<QAbstractButton>(name), Qt::LeftButton, {}, QPoint(8, find<QWidget>(name).height() / 2));
    }

    /// Presses the arrow at the low or the high end of a scroll bar.
    void stepBar(const char* name, bool up) const {
        pressBar(name, up ? QStyle::SC_ScrollBarAddLine : QStyle::SC_ScrollBarSubLine);
    }

    /// Presses beside the thumb of a scroll bar: a large step.
    void pageBar(const char* name, bool up) const {
        pressBar(name, up ? QStyle::SC_ScrollBarAddPage : QStyle::SC_ScrollBarSubPage);
    }

private:
    void pressBar(const char* name, QStyle::SubControl part) const {
        auto& bar = find<QScrollBar>(name);
        QStyleOptionSlider option;
        option.initFrom(&bar);
        option.orientation = bar.orientation();
        option.minimum = bar.minimum();
        option.maximum = bar.maximum();
        option.sliderPosition = bar.sliderPosition();
        option.sliderValue = bar.value();
        option.singleStep = bar.singleStep();
        option.pageStep = bar.pageStep();
        option.upsideDown = bar.invertedAppearance();
        if (bar.orientation() == Qt::Horizontal) {
            option.state |= QStyle::State_Horizontal;
        }
        const QRect rect = bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, part, &bar);
        ASSERT_FALSE(rect.isEmpty()) << name << " cannot go further";
        QTest::mouseClick(&bar, Qt::LeftButton, {}, rect.center());
    }

    QWidget& m_form;
};

} // namespace support
