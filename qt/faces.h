// The widget that stands for a control, made by kind, and what it does when a property changes. A face hands
// what the person does to the control's record and its handlers, and never decides anything itself.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <string>

#include "forms/control.h"

struct Face {
    QWidget* widget = nullptr;
    /// Brings a property of the record to the widget.
    std::function<void(Property)> show;
    /// The scale has changed: fonts, and pictures drawn anew.
    std::function<void()> rescale;
    /// The widget that children of the control stand in; by page for a tab control.
    std::function<QWidget*(int page)> inside;
};

namespace faces {

Face frame(Control& control, QWidget* parent);
Face label(Control& control, QWidget* parent);
Face picture(Control& control, QWidget* parent);
Face line(Control& control, QWidget* parent);
Face button(Control& control, QWidget* parent);
Face tickBox(Control& control, QWidget* parent);
Face optionButton(Control& control, QWidget* parent);
Face lineEdit(Control& control, QWidget* parent);
Face textArea(Control& control, QWidget* parent);
Face comboBox(Control& control, QWidget* parent);
Face listBox(Control& control, QWidget* parent);
Face meter(Control& control, QWidget* parent);
Face chart(Control& control, QWidget* parent);
Face tabs(Control& control, QWidget* parent);
Face monitor(Control& control, QWidget* parent);

QString toQt(const std::string& text);
std::string fromQt(const QString& text);
/// With doubled ampersands, for captions from data that must not become mnemonics.
QString literally(const std::string& text);

/// Character code of a key press, 0 for a key that writes nothing.
int keyCode(const QKeyEvent& event);

/// Asks the control's key handler; true if the key is swallowed.
bool swallowsKey(const Control& control, const QKeyEvent& event);

/// While the record is brought to the widget, what the widget reports is not the person's doing.
bool isShowing();
struct Showing {
    Showing();
    ~Showing();
    Showing(const Showing&) = delete;
    Showing& operator=(const Showing&) = delete;
};

}  // namespace faces
