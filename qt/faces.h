// The widget that stands for a control, made by kind, and what it does when a property changes. A face hands
// what the person does to forms/person and shows the record afterwards; it never decides anything itself.
#pragma once

#include <QString>
#include <QWidget>
#include <concepts>
#include <functional>
#include <string>
#include <utility>

#include "forms/control.h"
#include "qt/edge.h"

struct Face {
    QWidget* widget = nullptr;
    /// Brings a property of the record to the widget.
    std::function<void(Property)> show;
    /// The scale has changed: fonts, and pictures drawn anew.
    std::function<void()> rescale;
    /// The widget that children of the control stand in; by page for a tab control.
    std::function<QWidget*(int page)> inside;
};

/// The widget that stands for a control on the screen.
using WidgetOf = std::function<QWidget*(const Control&)>;

namespace faces {

Face frame(Control& control, QWidget* parent);
Face label(Control& control, QWidget* parent);
Face picture(Control& control, QWidget* parent);
/// The program's emblem, which comes from no file.
Face emblem(QWidget* parent);
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

/// A label's caption as it is shown: a percentage stays on the line of its word.
QString labelText(const Control& label);

/// While the record is brought to the widget, what the widget reports is not the person's doing.
bool isShowing();
struct Showing {
    Showing();
    ~Showing();
    Showing(const Showing&) = delete;
    Showing& operator=(const Showing&) = delete;
};

/// What the person has done: `deed` does it to the records, through forms/person. What is refused there is
/// not done.
void act(const std::function<void()>& deed);

/// What a signal of a widget sets off: the deed, and then the widget shows the record, whatever has come of
/// it.
template <class Deed>
struct PersonsDeed {
    Deed deed;
    std::function<void()> show;

    template <class... Values>
    requires std::invocable<const Deed&, const Values&...>
    void operator()(const Values&... values) const {
        if (isShowing()) return;
        act([&] { deed(values...); });
        show();
    }
};

/// A signal by which a widget tells what the person does.
template <class Sender, class Signal, class Deed>
void onPerson(const Sender* sender, Signal signal, Deed deed, std::function<void()> show) {
    edge::connect(sender, signal, PersonsDeed<Deed>{std::move(deed), std::move(show)});
}

/// Keys for the widget that write or act go to the record; the toolkit has the others, and those for which
/// the record has no use.
void hookKeys(QWidget* widget, Control& control);

/// Whether the record changes by a key for this control just now.
bool isTyping(const Control& control);

/// Double clicks go to the record. They come in as press, release, press, double click, release: the
/// function that is returned tells whether a release was the last of these, which is no press of its own.
std::function<bool()> hookDoubleClicks(QWidget* widget, Control& control);

}  // namespace faces
