#include "qt/look.h"

#include <QApplication>
#include <QFontDatabase>
#include <QRegularExpression>
#include <QStyleFactory>
#include <algorithm>
#include <cmath>

namespace look {

namespace {

constexpr Colours lightColours() {
    return {.window = QColor(0xEE, 0xF1, 0xF4),
            .card = QColor(0xFF, 0xFF, 0xFF),
            .border = QColor(0xC9, 0xD1, 0xD9),
            .text = QColor(0x18, 0x22, 0x2D),
            .faint = QColor(0x4E, 0x5B, 0x68),
            .accent = QColor(0x0B, 0x66, 0x70),
            .onAccent = QColor(0xFF, 0xFF, 0xFF),
            .field = QColor(0xFF, 0xFF, 0xFF),
            .disabledText = QColor(0x62, 0x6C, 0x76),
            .hover = QColor(0xE3, 0xEE, 0xEF),
            .alarm = QColor(0xB3, 0x1B, 0x1B)};
}

constexpr Colours darkColours() {
    return {.window = QColor(0x12, 0x17, 0x1D),
            .card = QColor(0x1C, 0x23, 0x2B),
            .border = QColor(0x3A, 0x46, 0x52),
            .text = QColor(0xEC, 0xF0, 0xF4),
            .faint = QColor(0xA9, 0xB6, 0xC2),
            .accent = QColor(0x5C, 0xC4, 0xCB),
            .onAccent = QColor(0x0A, 0x14, 0x18),
            .field = QColor(0x14, 0x1A, 0x20),
            .disabledText = QColor(0x93, 0x9E, 0xA9),
            .hover = QColor(0x28, 0x34, 0x3D),
            .alarm = QColor(0xFF, 0x8A, 0x80)};
}

Colours inUse = lightColours();
double unitInUse = 0;  // of the sheet; 0 asks for another

QString family(const char* wanted, QFontDatabase::SystemFont otherwise) {
    if (QFontDatabase::hasFamily(wanted)) return wanted;
    return QFontDatabase::systemFont(otherwise).family();
}

// Looked up once: the search goes through all fonts of the desktop, and a font is asked for at every tick.
const QString& plainFamily() {
    static const QString name = family("Inter", QFontDatabase::GeneralFont);
    return name;
}

const QString& fixedFamily() {
    static const QString name = family("DejaVu Sans Mono", QFontDatabase::FixedFont);
    return name;
}

QPalette paletteOf(const Colours& c) {
    QPalette palette;
    palette.setColor(QPalette::Window, c.window);
    palette.setColor(QPalette::WindowText, c.text);
    palette.setColor(QPalette::Base, c.field);
    palette.setColor(QPalette::AlternateBase, c.card);
    palette.setColor(QPalette::Text, c.text);
    palette.setColor(QPalette::PlaceholderText, c.faint);
    palette.setColor(QPalette::Button, c.card);
    palette.setColor(QPalette::ButtonText, c.text);
    palette.setColor(QPalette::Highlight, c.accent);
    palette.setColor(QPalette::HighlightedText, c.onAccent);
    palette.setColor(QPalette::ToolTipBase, c.card);
    palette.setColor(QPalette::ToolTipText, c.text);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, c.disabledText);
    }
    return palette;
}

/// Colours stand in it as @name; lengths that grow with the window stand as #N, pixels at the base scale.
constexpr const char* sheetText = R"(
QGroupBox { background: @card; border: 1px solid @border; border-radius: #6px; margin-top: 0px; }
QGroupBox::title { subcontrol-origin: border; subcontrol-position: top left; left: #8px; top: #3px;
    color: @faint; background: transparent; padding: 0px; }
QWidget[role="page"] { background: @card; border: 1px solid @border; border-bottom-left-radius: #6px;
    border-bottom-right-radius: #6px; }
QLabel { background: transparent; color: @text; }
QLabel[role="request"] { border: 1px dashed @faint; border-radius: #4px; background: @field; }
QLabel[role="request"]:focus { border: #2px solid @accent; }
QLabel[role="error"] { color: @alarm; }
QPushButton { background: @card; color: @accent; border: 1px solid @accent; border-radius: #5px; padding: 0px; }
QPushButton:hover { background: @hover; }
QPushButton:focus { border: #3px solid @accent; }
QPushButton:pressed { background: @accent; color: @onAccent; }
QPushButton:disabled { color: @disabledText; border: 1px solid @border; background: @card; }
QPushButton[echo="true"] { background: @accent; color: @onAccent; }
QPushButton[role="primary"] { background: @accent; color: @onAccent; }
QPushButton[role="primary"]:focus { border: #3px solid @text; }
QPushButton[role="primary"]:disabled { background: @card; color: @disabledText; border: 1px solid @border; }
QLineEdit, QPlainTextEdit, QListWidget, QComboBox { background: @field; color: @text; border: 1px solid @border;
    border-radius: #4px; padding: 0px #3px; selection-background-color: @accent; selection-color: @onAccent; }
QLineEdit:focus, QPlainTextEdit:focus, QListWidget:focus, QComboBox:focus { border: #2px solid @accent; }
QComboBox QLineEdit, QComboBox QLineEdit:focus { border: none; background: transparent; padding: 0px; }
QComboBox::drop-down { border: none; width: #12px; }
QComboBox QAbstractItemView { background: @field; color: @text; selection-background-color: @accent;
    selection-color: @onAccent; }
QLineEdit:disabled, QComboBox:disabled, QListWidget:disabled { color: @disabledText; background: @card; }
QCheckBox, QRadioButton { color: @text; padding-left: #2px; spacing: #6px; border: #2px solid transparent;
    border-radius: #4px; }
QCheckBox:focus, QRadioButton:focus { border-color: @accent; }
QCheckBox:disabled, QRadioButton:disabled { color: @disabledText; }
QCheckBox::indicator, QRadioButton::indicator { width: #15px; height: #15px; }
QCheckBox::indicator:unchecked, QRadioButton::indicator { width: #14px; height: #14px;
    border: 1px solid @outline; background: @field; border-radius: #2px; }
QRadioButton::indicator { border-radius: #7px; }
QRadioButton::indicator:checked { background: qradialgradient(cx: 0.5, cy: 0.5, radius: 0.5, fx: 0.5, fy: 0.5,
    stop: 0 @text, stop: 0.5 @text, stop: 0.56 @field, stop: 1 @field); }
QTabBar { background: transparent; outline: none; }
QTabBar::tab { background: @window; color: @faint; border: 1px solid @border; padding: 0px #14px;
    border-top-left-radius: #6px; border-top-right-radius: #6px; margin-right: #3px; height: #24px; }
QTabBar::tab:selected { background: @card; color: @text; border-bottom-color: @card; border-top: #3px solid @accent;
    height: #26px; }
QTabBar::tab:selected:focus { color: @accent; border: #3px solid @accent; padding: 0px #11px; }
QProgressBar { background: @field; border: 1px solid @border; border-radius: #4px; text-align: center; color: @text; }
QProgressBar::chunk { background: @chunk; border-radius: #3px; }
QScrollBar:vertical { background: transparent; width: #10px; }
QScrollBar:horizontal { background: transparent; height: #10px; }
QScrollBar::handle { background: @border; border-radius: #5px; min-height: #24px; min-width: #24px; }
QScrollBar::add-line, QScrollBar::sub-line { height: 0px; width: 0px; }
QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }
QMessageBox QLabel { font-size: #14px; }
QMessageBox QPushButton { min-width: #96px; min-height: #32px; font-size: #14px; }
QToolTip { background: @card; color: @text; border: 1px solid @border; }
)";

/// #N as a length at the unit, a pixel at least.
QString scaled(const QString& text, double unit) {
    static const QRegularExpression length("#(\\d+)px");
    QString result;
    qsizetype from = 0;
    for (auto matches = length.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        result += text.mid(from, match.capturedStart() - from);
        result += QString("%1px").arg(std::max(1, qRound(match.captured(1).toInt() * unit)));
        from = match.capturedEnd();
    }
    return result + text.mid(from);
}

QString sheet(const Colours& c, double unit) {
    QString text = scaled(sheetText, unit);
    QColor chunk = c.accent;
    chunk.setAlpha(110);
    const std::pair<const char*, QString> names[] = {
        {"@onAccent", c.onAccent.name()},
        {"@disabledText", c.disabledText.name()},
        {"@window", c.window.name()},
        {"@card", c.card.name()},
        {"@border", c.border.name()},
        {"@outline", c.faint.name()},
        {"@text", c.text.name()},
        {"@faint", c.faint.name()},
        {"@accent", c.accent.name()},
        {"@field", c.field.name()},
        {"@hover", c.hover.name()},
        {"@alarm", c.alarm.name()},
        {"@chunk", QString("rgba(%1,%2,%3,%4)")
                       .arg(chunk.red())
                       .arg(chunk.green())
                       .arg(chunk.blue())
                       .arg(chunk.alpha())},
    };
    for (const auto& [name, value] : names) text.replace(QLatin1String(name), value);
    return text;
}

}  // namespace

const Colours& colours() { return inUse; }

void setUnit(double unit) {
    // Steps of an eighth: a new sheet costs too much for every pixel of a resize.
    const double step = std::max(0.5, std::round(unit * 8) / 8);
    if (step == unitInUse) return;
    unitInUse = step;
    qApp->setStyleSheet(sheet(inUse, step));
}

void apply(bool dark) {
    inUse = dark ? darkColours() : lightColours();
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(paletteOf(inUse));
    QApplication::setFont(QFont(plainFamily(), 10));
    unitInUse = 0;
    setUnit(1.0);
}

int leastPixels() { return static_cast<int>(std::ceil(11 / qApp->devicePixelRatio())); }

QFont font(const Look& wanted, double scale) {
    QFont font(wanted.fixedWidth ? fixedFamily() : plainFamily());
    font.setPixelSize(std::max(leastPixels(), qRound(wanted.fontSize * scale)));
    font.setBold(wanted.bold);
    return font;
}

}  // namespace look
