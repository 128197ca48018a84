// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
//
// A window with controls of the same number and kinds as the program's main window, and nothing behind them:
// what the toolkit alone takes to show them.
#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QToolBar>
#include <QToolButton>

#include <array>

namespace {

constexpr int CellSide = 16;

/// A picture of cells, painted pixel by pixel from an image.
class CellPicture : public QWidget {
public:
    CellPicture(int columns, int rows, int rowsShown, QWidget* parent)
        : QWidget(parent)
        , m_image(columns * CellSide, rows * CellSide, QImage::Format_RGB32) {
        setFixedSize(columns * CellSide, rowsShown * CellSide);
        setAttribute(Qt::WA_OpaquePaintEvent);
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
};

class Window : public QMainWindow {
public:
    Window() {
        addMenus();
        addTools();
        auto* central = new QWidget(this);
        auto* grid = new QGridLayout(central);
        m_page = new CellPicture(15, 90, 15, central);
        grid->addWidget(m_page, 0, 0, 6, 4);
        grid->addWidget(new CellPicture(16, 16, 16, central), 0, 4, 6, 4);
        for (int index = 0; index < 40; ++index) {
            grid->addWidget(control(index, central), 6 + index / 8, index % 8);
        }
        setCentralWidget(central);
        setFocusPolicy(Qt::StrongFocus);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        m_page->fillCell(14, 0, event->key() == Qt::Key_A ? qRgb(255, 0, 0) : qRgb(0, 255, 0));
    }

private:
    void addMenus() {
        for (int menu = 0; menu < 6; ++menu) {
            QMenu* entries = menuBar()->addMenu(QStringLiteral("Menu %1").arg(menu));
            for (int entry = 0; entry < 10; ++entry) {
                entries->addAction(QStringLiteral("Entry %1").arg(entry));
            }
        }
    }

    void addTools() {
        QToolBar* bar = addToolBar(QStringLiteral("Tools"));
        bar->setIconSize({16, 16});
        for (int tool = 0; tool < 25; ++tool) {
            QImage picture(16, 16, QImage::Format_RGB32);
            picture.fill(qRgb(tool * 10, 0, 0));
            bar->addAction(QIcon(QPixmap::fromImage(picture)), QStringLiteral("Tool %1").arg(tool));
        }
    }

    static QWidget* control(int index, QWidget* parent) {
        const std::array makers{
            +[](QWidget* owner) -> QWidget* { return new QPushButton(QStringLiteral("Button"), owner); },
            +[](QWidget* owner) -> QWidget* { return new QLabel(QStringLiteral("Label"), owner); },
            +[](QWidget* owner) -> QWidget* { return new QScrollBar(Qt::Horizontal, owner); },
            +[](QWidget* owner) -> QWidget* {
                return new QComboBox(owner);
            }};
        QWidget* made = makers[static_cast<std::size_t>(index) % makers.size()](parent);
        made->setFocusPolicy(Qt::NoFocus);
        return made;
    }

    CellPicture* m_page = nullptr;
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    Window window;
    window.show();
    return QApplication::exec();
}
