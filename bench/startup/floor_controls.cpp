// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
//
// A window with controls of the same number and kinds as the program's main window, and nothing behind them:
// what the toolkit alone takes to show them. It is kept in step with the main window by hand.
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int CellSide = 16;
constexpr int IconSide = 24;

/// A picture of cells with a marker on it, shown pixel by pixel from an image.
class CellPicture : public QWidget {
public:
    CellPicture(int columns, int rows, QWidget* parent)
        : QWidget(parent)
        , m_image(columns * CellSide, rows * CellSide, QImage::Format_RGB32)
        , m_marker(new QWidget(this)) {
        setFixedSize(m_image.size());
        setAttribute(Qt::WA_OpaquePaintEvent);
        m_marker->resize(CellSide, CellSide);
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column) {
                fillCell(column, row, qRgb(column * 15, row % 256, (column * row) % 256));
            }
        }
    }

    void fillCell(int column, int row, QRgb colour) {
        for (int y = 0; y < CellSide; ++y) {
            auto* pixels = reinterpret_cast<QRgb*>(m_image.scanLine(row * CellSide + y)) + column * CellSide;
            std::fill_n(pixels, CellSide, colour);
        }
        update(column * CellSide, row * CellSide, CellSide, CellSide);
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        painter.drawImage(event->rect(), m_image, event->rect());
    }

private:
    QImage m_image;
    QWidget* m_marker;
};

/// A button with a picture, or a tab or pad: painted by itself.
class PictureButton : public QAbstractButton {
public:
    PictureButton(int width, int height, QWidget* parent)
        : QAbstractButton(parent) {
        setFixedSize(width, height);
        setFocusPolicy(Qt::NoFocus);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().mid());
        painter.drawText(rect(), Qt::AlignCenter, text());
    }
};

QFrame* framed(QWidget* content, QWidget* parent) {
    auto* frame = new QFrame(parent);
    frame->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    auto* layout = new QVBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(content);
    return frame;
}

QScrollBar* bar(Qt::Orientation orientation, int maximum, QWidget* parent) {
    auto* made = new QScrollBar(orientation, parent);
    made->setRange(1, maximum);
    return made;
}

QComboBox* tickList(QWidget* parent) {
    auto* list = new QComboBox(parent);
    for (int ticks = 0; ticks <= 15; ++ticks) {
        list->addItem(QString::number(ticks));
    }
    list->setFocusPolicy(Qt::NoFocus);
    return list;
}

class Window : public QMainWindow {
public:
    Window() {
        addMenus();
        addTools();
        auto* centre = new QWidget(this);
        auto* layout = new QHBoxLayout(centre);
        layout->setContentsMargins(12, 12, 12, 12);
        layout->addWidget(glyphColumn(centre));
        layout->addWidget(pageColumn(centre), 1);
        setCentralWidget(centre);
        statusBar()->addPermanentWidget(new PictureButton(120, 16, this));
        setFocusPolicy(Qt::StrongFocus);
        setWindowTitle(QStringLiteral("Floor"));
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        m_animation->fillCell(14, 0, event->key() == Qt::Key_A ? qRgb(255, 0, 0) : qRgb(0, 255, 0));
    }

private:
    void addMenus() {
        for (int menu = 0; menu < 6; ++menu) {
            QMenu* entries = menuBar()->addMenu(QStringLiteral("Menu %1").arg(menu));
            for (int sub = 0; menu == 0 && sub < 12; ++sub) {
                QMenu* subEntries = entries->addMenu(QStringLiteral("Submenu %1").arg(sub));
                for (int entry = 0; entry < 2; ++entry) {
                    subEntries->addAction(QStringLiteral("Entry %1").arg(entry));
                }
            }
            for (int entry = 0; menu > 0 && entry < 5; ++entry) {
                entries->addAction(QStringLiteral("Entry %1").arg(entry));
            }
        }
    }

    void addTools() {
        QToolBar* tools = addToolBar(QStringLiteral("Tools"));
        tools->setIconSize({IconSide, IconSide});
        for (int tool = 0; tool < 25; ++tool) {
            QImage picture(IconSide, IconSide, QImage::Format_ARGB32_Premultiplied);
            picture.fill(qRgb(tool * 10, 0, 0));
            QAction* action =
                tools->addAction(QIcon(QPixmap::fromImage(picture)), QStringLiteral("Tool %1").arg(tool));
            tools->widgetForAction(action)->setFocusPolicy(Qt::NoFocus);
            if (tool % 4 == 2) {
                tools->addSeparator();
            }
        }
    }

    static QWidget* glyphColumn(QWidget* parent) {
        auto* column = new QWidget(parent);
        auto* layout = new QVBoxLayout(column);
        layout->addWidget(framed(new CellPicture(16, 16, column), column));
        auto* buttons = new QHBoxLayout;
        buttons->addWidget(new QLabel(QStringLiteral("First"), column));
        buttons->addWidget(new QLabel(QStringLiteral("Second"), column));
        for (int button = 0; button < 8; ++button) {
            buttons->addWidget(new PictureButton(24, 24, column));
        }
        buttons->addWidget(new QToolButton(column));
        layout->addLayout(buttons);
        layout->addWidget(new QLabel(QStringLiteral("Third"), column));
        auto* modes = new QHBoxLayout;
        for (int mode = 0; mode < 4; ++mode) {
            auto* button = new QToolButton(column);
            button->setText(QStringLiteral("Mode %1").arg(mode));
            button->setCheckable(true);
            button->setFocusPolicy(Qt::NoFocus);
            modes->addWidget(button);
        }
        layout->addLayout(modes);
        layout->addStretch(1);
        return column;
    }

    QWidget* pageColumn(QWidget* parent) {
        auto* column = new QWidget(parent);
        auto* layout = new QVBoxLayout(column);
        auto* tabs = new QHBoxLayout;
        for (int tab = 0; tab < 3; ++tab) {
            auto* button = new PictureButton(160, 24, column);
            button->setText(QStringLiteral("Page %1").arg(tab));
            tabs->addWidget(button);
        }
        layout->addLayout(tabs);
        auto* pages = new QStackedWidget(column);
        pages->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
        pages->addWidget(rowPage(15, 1, pages));
        pages->addWidget(animationPage(pages));
        pages->addWidget(rowPage(31, 3, pages));
        pages->setCurrentIndex(1);
        layout->addWidget(pages, 1);
        auto* cursor = new QHBoxLayout;
        cursor->addWidget(new PictureButton(54, 54, column));
        cursor->addWidget(new QLabel(QStringLiteral("Cursor"), column));
        cursor->addWidget(new QLabel(QStringLiteral("15,90"), column));
        cursor->addStretch(1);
        layout->addLayout(cursor);
        return column;
    }

    static QWidget* rowPage(int columns, int rows, QWidget* parent) {
        auto* page = new QWidget(parent);
        auto* layout = new QGridLayout(page);
        layout->addWidget(new QLabel(QStringLiteral("Rows"), page), 0, 0);
        layout->addWidget(framed(new CellPicture(columns, rows, page), page), 1, 0);
        layout->addWidget(bar(Qt::Horizontal, columns, page), 2, 0);
        if (rows > 1) {
            layout->addWidget(bar(Qt::Vertical, rows, page), 1, 1);
        }
        return page;
    }

    QWidget* animationPage(QWidget* parent) {
        auto* page = new QWidget(parent);
        auto* layout = new QGridLayout(page);
        auto* box = new QWidget(page);
        box->setFixedSize(15 * CellSide, 15 * CellSide);
        m_animation = new CellPicture(15, 90, box);
        layout->addWidget(new QLabel(QStringLiteral("1"), page), 0, 0);
        layout->addWidget(new QLabel(QStringLiteral("15"), page), 5, 0);
        layout->addWidget(framed(box, page), 0, 1, 6, 1);
        layout->addWidget(bar(Qt::Vertical, 15, page), 0, 2, 6, 1);
        layout->addWidget(bar(Qt::Horizontal, 15, page), 6, 1);
        for (int row = 0; row < 2; ++row) {
            layout->addWidget(new QLabel(QStringLiteral("Caption"), page), row, 3);
            layout->addWidget(bar(Qt::Horizontal, 90, page), row, 4);
            layout->addWidget(new QLabel(QStringLiteral("15"), page), row, 5);
        }
        for (int row = 2; row < 4; ++row) {
            layout->addWidget(new QLabel(QStringLiteral("Caption"), page), row, 3);
            QComboBox* list = tickList(page);
            list->setEditable(row == 2);
            layout->addWidget(list, row, 4);
        }
        for (int button = 0; button < 4; ++button) {
            auto* made = new QPushButton(QStringLiteral("Button %1").arg(button), page);
            made->setFocusPolicy(Qt::NoFocus);
            layout->addWidget(made, 4 + button / 2, 3 + button % 2);
        }
        return page;
    }

    CellPicture* m_animation = nullptr;
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    Window window;
    window.show();
    return QApplication::exec();
}
