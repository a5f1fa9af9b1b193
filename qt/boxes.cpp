#include "qt/boxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <optional>
#include <vector>

#include "forms/windows.h"
#include "qt/edge.h"
#include "qt/eventHook.h"
#include "qt/faces.h"
#include "qt/formWindow.h"
#include "qt/keyPause.h"

namespace boxes {

namespace {

std::vector<QMessageBox*> onShow;

/// As wide as the title and the window's buttons beside it.
void widenForTitle(QMessageBox& widget) {
    constexpr int besides = 140;  // pixels
    auto* grid = qobject_cast<QGridLayout*>(widget.layout());
    const int width = widget.fontMetrics().horizontalAdvance(widget.windowTitle()) + besides;
    if (grid == nullptr) return;
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

/// A box is answered by its buttons: by pointer, by Enter or the space bar, by Alt and a letter. The toolkit
/// would take a letter alone too. Escape and the window manager answer an OK box; a question stays.
bool drops(QEvent* event, bool question) {
    if (event->type() == QEvent::Close && question) {
        event->ignore();
        return true;
    }
    if (event->type() != QEvent::KeyPress) return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.key() == Qt::Key_Escape) return question;
    constexpr auto shortcuts = Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier;
    return key.key() < Qt::Key_Escape && !(key.modifiers() & shortcuts);
}

QMessageBox* make(const MessageBox& box) {
    auto* widget = new QMessageBox(formWindow::mainWindow());
    widget->setTextFormat(Qt::PlainText);
    // The toolkit would fill in an empty title.
    widget->setWindowTitle(box.title.empty() ? QStringLiteral(" ") : faces::toQt(box.title));
    widget->setText(faces::toQt(box.text));
    widget->setIcon(box.icon == Icon::Question ? QMessageBox::Question : QMessageBox::NoIcon);
    widget->setModal(false);
    if (box.buttons == Buttons::Ok) {
        widget->setStandardButtons(QMessageBox::Ok);
    } else {
        widget->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    }
    if (!box.title.empty()) widenForTitle(*widget);
    formWindow::keepUp(*widget);
    hookEvents(widget,
               [question = box.buttons != Buttons::Ok](QEvent* event) { return drops(event, question); });
    return widget;
}

Answer answerOf(const QMessageBox& widget, Buttons buttons) {
    if (buttons == Buttons::Ok) return Answer::Ok;
    const QAbstractButton* pressed = widget.clickedButton();
    return pressed != nullptr && pressed == widget.button(QMessageBox::Yes) ? Answer::Yes : Answer::No;
}

}  // namespace

QMessageBox* open(const MessageBox& box, const std::function<void(Answer)>& answered) {
    QMessageBox* widget = make(box);
    onShow.push_back(widget);
    const auto close = [widget, answered, buttons = box.buttons] {
        std::erase(onShow, widget);
        widget->deleteLater();
        answered(answerOf(*widget, buttons));
    };
    // Beside the edge's own connections: the box of an error is answered after the error.
    QObject::connect(widget, &QMessageBox::finished, widget, [close] { edge::guard(close); });
    keyPause::begin(*widget);
    widget->show();
    widget->activateWindow();
    return widget;
}

QMessageBox* newest() { return onShow.empty() ? nullptr : onShow.back(); }

Answer show(const MessageBox& box) {
    std::optional<Answer> given;
    windows::openBox();
    open(box, [&given](Answer answer) { given = answer; });
    host().waitWhile([&given] { return !given.has_value(); });
    windows::closeBox();
    if (!windows::boxInFront()) keyPause::beginAgain();
    return *given;
}

void showError(const std::string& report) {
    bool read = false;
    windows::openBox();
    open({report, "Tavix", Buttons::Ok, Icon::None}, [&read](Answer) {
        read = true;
    })->setIcon(QMessageBox::Critical);
    host().waitWhile([&read] { return !read; });
}

}  // namespace boxes
