#include "window/toolkit/theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QIcon>
#include <QPalette>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "core/loops/loop_track.h"
#include "window/toolkit/dialogue_style.h"

// The resources of a static library must be registered by hand, from outside any namespace.
static void RegisterPictures() { Q_INIT_RESOURCE(pictures); }

namespace marvolin::theme {

namespace {

constexpr double kLeastShapeContrast = 3;
constexpr double kPaleEnough = 0.12;  // luminance from which a row colour is visible on the dark ground

QString Family() {
    for (const char* family : {"Inter", "Noto Sans", "Segoe UI", "Cantarell", "DejaVu Sans"}) {
        if (QFontDatabase::hasFamily(family)) return family;
    }
    return QApplication::font().family();
}

QPalette DarkPalette() {
    QPalette palette;
    palette.setColor(QPalette::Window, kWindow);
    palette.setColor(QPalette::WindowText, kText);
    palette.setColor(QPalette::Base, kSunk);
    palette.setColor(QPalette::AlternateBase, kPanel);
    palette.setColor(QPalette::Text, kText);
    palette.setColor(QPalette::Button, kRaised);
    palette.setColor(QPalette::ButtonText, kText);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, kRaised);
    palette.setColor(QPalette::ToolTipText, kText);
    palette.setColor(QPalette::PlaceholderText, kQuiet);
    palette.setColor(QPalette::Highlight, kAccent);
    palette.setColor(QPalette::HighlightedText, kWindow);
    palette.setColor(QPalette::Link, kAccent);
    palette.setColor(QPalette::Disabled, QPalette::Text, kQuiet);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, kQuiet);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, kQuiet);
    return palette;
}

constexpr const char* kSheet = R"(
QToolTip { background: #2e3238; color: #e6e8eb; border: 1px solid #4a505a; padding: 3px 5px; }
QComboBox { background: #2e3238; color: #e6e8eb; border: 1px solid #6c7480; border-radius: 5px; padding: 3px 8px; }
QComboBox { combobox-popup: 0; }
QComboBox:hover { background: #373c44; }
QComboBox:focus { border-color: #ffc94d; }
QComboBox:disabled { color: #a0a8b3; background: #26292f; border-color: #3a3f47; }
QComboBox::drop-down { border: none; width: 22px; }
QComboBox::down-arrow { image: url(:/marvolin/down.svg); width: 11px; height: 7px; }
QComboBox::down-arrow:disabled { image: url(:/marvolin/down_off.svg); }
QComboBox QAbstractItemView { background: #2e3238; color: #e6e8eb; border: 1px solid #6c7480; outline: none;
  selection-background-color: #ffc94d; selection-color: #1d1f23; padding: 3px; }
QComboBox QAbstractItemView::item { min-height: 24px; padding: 0 6px; border-radius: 3px; }
QComboBox QAbstractItemView::item:selected { background: #ffc94d; color: #1d1f23; }
QCheckBox, QRadioButton { color: #e6e8eb; spacing: 8px; background: transparent; }
QCheckBox:disabled, QRadioButton:disabled { color: #a0a8b3; }
QCheckBox::indicator, QRadioButton::indicator { width: 15px; height: 15px; border: 1px solid #6c7480;
  background: #14161a; }
QCheckBox::indicator { border-radius: 4px; }
QRadioButton::indicator { border-radius: 8px; }
QCheckBox::indicator:checked { background: #ffc94d; border-color: #ffc94d; image: url(:/marvolin/check.svg); }
QRadioButton::indicator:checked { background: #ffc94d; border: 4px solid #14161a; width: 9px; height: 9px; }
QCheckBox, QRadioButton { border: 1px solid transparent; border-radius: 4px; }
QCheckBox:focus, QRadioButton:focus { border-color: #ffc94d; }
QSlider::groove:horizontal { height: 6px; border-radius: 3px; background: #14161a; border: 1px solid #6c7480; }
QSlider::sub-page:horizontal { border-radius: 3px; background: #ffc94d; border: 1px solid #ffc94d; }
QSlider::sub-page:horizontal:disabled { background: #4a505a; border-color: #4a505a; }
QSlider::handle:horizontal { width: 14px; height: 14px; margin: -5px 0; border-radius: 7px; background: #e6e8eb;
  border: 1px solid #14161a; }
QSlider::handle:horizontal:focus { background: #ffffff; border: 2px solid #ffc94d; }
QSlider::handle:horizontal:disabled { background: #6c7480; }
QListWidget { background: #2e3238; color: #e6e8eb; border: 1px solid #6c7480; border-radius: 4px; outline: none;
  padding: 3px; }
QListWidget::item { padding: 2px 8px; border-radius: 3px; }
QListWidget::item:hover { background: #414750; }
QListWidget::item:selected { background: #ffc94d; color: #1d1f23; }
QMessageBox { background: #26292f; }
QPushButton { background: #2e3238; color: #e6e8eb; border: 1px solid #6c7480; border-radius: 5px; padding: 5px 18px; }
QPushButton:hover { background: #373c44; }
QPushButton:focus { border-color: #ffc94d; }
QPushButton:disabled { color: #a0a8b3; background: #26292f; border-color: #3a3f47; }
QLineEdit { background: #14161a; color: #e6e8eb; border: 1px solid #6c7480; border-radius: 5px; padding: 4px 6px;
  selection-background-color: #ffc94d; selection-color: #1d1f23; }
QLineEdit:focus { border-color: #ffc94d; }
QTabBar::tab { background: #1d1f23; color: #a0a8b3; border: 1px solid #6c7480; border-bottom: none;
  border-top-left-radius: 6px; border-top-right-radius: 6px; padding: 5px 20px; margin-right: 2px; }
QTabBar::tab:hover { background: #2e3238; }
QTabBar::tab:selected { background: #26292f; color: #e6e8eb; font-weight: 600; }
QTabBar::tab:focus { border-color: #ffc94d; color: #ffc94d; }
QTreeView, QListView { border: 1px solid #6c7480; outline: none; }
QTreeView::item, QFileDialog QListView::item { padding: 2px; }
QTreeView::item:selected, QFileDialog QListView::item:selected { background: #ffc94d; color: #1d1f23; }
QTextEdit, QPlainTextEdit { border: 1px solid #6c7480; }
QTreeView:focus, QListView:focus, QListWidget:focus, QTextEdit:focus, QPlainTextEdit:focus {
  border: 1px solid #ffc94d; }
QHeaderView::section { background: #2e3238; color: #e6e8eb; border: none; border-right: 1px solid #3a3f47;
  padding: 4px 6px; }
QToolButton { background: #2e3238; border: 1px solid #6c7480; border-radius: 4px; padding: 3px; }
QToolButton:hover { background: #414750; }
QToolButton:disabled { background: #26292f; border-color: #3a3f47; }
QToolButton:focus { border-color: #ffc94d; }
QScrollBar { background: #1d1f23; border: none; }
QScrollBar:vertical { width: 10px; }
QScrollBar:horizontal { height: 10px; }
QScrollBar::handle { background: #6c7480; border-radius: 3px; margin: 2px; }
QScrollBar::handle:vertical { min-height: 24px; }
QScrollBar::handle:horizontal { min-width: 24px; }
QScrollBar::handle:hover { background: #a0a8b3; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
)";

}  // namespace

void Apply(QApplication& application) {
    RegisterPictures();
    application.setStyle(new DialogueStyle);  // owned by the toolkit
    application.setWindowIcon(QIcon(":/marvolin/marvolin.svg"));
    application.setPalette(DarkPalette());
    application.setFont(QFont(Family()));  // looks the font up once
    application.setFont(Sans(13));
    application.setStyleSheet(kSheet);
}

QFont Sans(int pixels, QFont::Weight weight) {
    QFont font = QApplication::font();
    font.setPixelSize(pixels);
    font.setWeight(weight);
    return font;
}

QFont Digits(int pixels, QFont::Weight weight) {
    QFont font = Sans(pixels, weight);
    font.setFamilies({"DejaVu Sans Mono", "Noto Sans Mono", "monospace"});
    font.setStyleHint(QFont::Monospace);
    return font;
}

void SetInk(QWidget& label, const QColor& ink) { label.setStyleSheet("color: " + ink.name() + ";"); }

QColor RowColour(Row row) {
    const Colour colour = kRowColours[row];
    return {colour.Red, colour.Green, colour.Blue};
}

QColor RowEdge(Row row) {
    const QColor colour = RowColour(row);
    return Contrast(colour, kRaised) < kLeastShapeContrast ? kPale : colour;
}

double Luminance(const QColor& colour) {
    const auto linear = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
    const double one = Luminance(a);
    const double other = Luminance(b);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

QColor InkOn(const QColor& ground) {
    return Contrast(ground, Qt::black) > Contrast(ground, Qt::white) ? Qt::black : Qt::white;
}

QColor WaveGround(Row row) { return Luminance(RowColour(row)) >= kPaleEnough ? kSunk : QColor(0xc3, 0xcd, 0xea); }

void DrawFace(QPainter& p, const QRectF& rect, const FaceState& state, const QColor& fill, const QColor& line,
              double radius) {
    QColor ground = fill;
    if (!state.Enabled) {
        ground = kPanel;
    } else if (state.Down) {
        ground = fill.darker(118);
    } else if (state.Hover) {
        ground = fill.lighter(118);
    }
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(state.Enabled ? line : kLine, 1));
    p.setBrush(ground);
    p.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    if (state.Focus) DrawFocus(p, rect, radius);
}

void DrawFocus(QPainter& p, const QRectF& rect, double radius) {
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(kSunk, 1.5));
    p.drawRoundedRect(rect.adjusted(2.5, 2.5, -2.5, -2.5), radius - 1.5, radius - 1.5);
    p.setPen(QPen(kAccent, 2));
    p.drawRoundedRect(rect.adjusted(1, 1, -1, -1), radius, radius);
}

void DrawRoundFocus(QPainter& p, const QPointF& centre, double radius) {
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(kSunk, 4));
    p.drawEllipse(centre, radius, radius);
    p.setPen(QPen(kAccent, 2));
    p.drawEllipse(centre, radius, radius);
}

}  // namespace marvolin::theme
