#include "studio/sheet.h"

#include "qt/look.h"

namespace sheet {

namespace {

constexpr const char* rules = R"(
QMainWindow, QSplitter, QScrollArea, QScrollArea > QWidget > QWidget { background: @window; }
QPushButton { padding: 4px 12px; min-height: 20px; }
QPushButton:focus { padding: 2px 10px; }
QPushButton[role="picture"] { padding: 2px; border: 1px solid @border; background: @window; }
QPushButton[role="picture"]:focus { padding: 0px; border: 3px solid @accent; }
QLineEdit, QComboBox, QSpinBox { min-height: 26px; padding: 0px 6px; }
QLineEdit:focus, QComboBox:focus { padding: 0px 5px; }
QLineEdit:focus, QComboBox:focus, QLineEdit[problem="true"] { min-height: 24px; }
QComboBox::drop-down { width: 22px; }
QTableWidget QLineEdit, QComboBox QLineEdit { min-height: 0px; padding: 0px 2px; }
QTableWidget QLineEdit:focus, QComboBox QLineEdit:focus { min-height: 0px; }
QLineEdit[problem="true"] { border: 2px solid @alarm; }
QLabel[role="help"] { color: @faint; font-size: 12px; }
QLabel[role="drop"] { color: @faint; background: @card; border: 1px dashed @faint; border-radius: 4px; }
QLabel[role="error"] { padding: 2px 8px; }
QTreeView, QTableView { background: @card; color: @text; border: 1px solid @border; border-radius: 4px;
    gridline-color: @border; alternate-background-color: @window; selection-background-color: @accent;
    selection-color: @onAccent; outline: none; }
QTreeView:focus, QTableView:focus { border: 2px solid @accent; }
QTreeView::item { padding: 3px 2px; }
QHeaderView, QHeaderView::section { background: @window; color: @faint; border: none; }
QHeaderView::section { padding: 5px 8px; border-right: 1px solid @border; border-bottom: 1px solid @border; }
QTableCornerButton::section { background: @window; border: none; }
QSlider { min-width: 110px; min-height: 24px; }
QSlider::groove:horizontal { height: 4px; background: @border; border-radius: 2px; }
QSlider::sub-page:horizontal { background: @accent; border-radius: 2px; }
QSlider::handle:horizontal { width: 14px; margin: -6px 0px; background: @accent; border: 1px solid @card;
    border-radius: 7px; }
QSlider:focus { border: 1px solid @accent; border-radius: 4px; }
QToolBar { background: @window; border: none; border-bottom: 1px solid @border; spacing: 4px; padding: 4px 8px; }
QToolButton { color: @text; border: 1px solid transparent; border-radius: 4px; padding: 4px 10px; }
QToolButton:hover { background: @hover; }
QToolButton:focus { border: 2px solid @accent; }
QToolButton:disabled { color: @disabledText; }
QMenuBar { background: @window; }
QStatusBar { background: @window; color: @text; }
QStatusBar::item { border: none; }
)";

}  // namespace

QString text() {
    const look::Colours& c = look::colours();
    QString all = rules;
    const std::pair<const char*, QColor> names[] = {
        {"@onAccent", c.onAccent}, {"@disabledText", c.disabledText},
        {"@window", c.window},     {"@card", c.card},
        {"@border", c.border},     {"@text", c.text},
        {"@faint", c.faint},       {"@accent", c.accent},
        {"@hover", c.hover},       {"@alarm", c.alarm}};
    for (const auto& [name, colour] : names) all.replace(QLatin1String(name), colour.name());
    return all;
}

}  // namespace sheet
