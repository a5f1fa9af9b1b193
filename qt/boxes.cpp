#include "qt/boxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <memory>

#include "qt/faces.h"

namespace boxes {

QMessageBox* make(const MessageBox& box) {
    auto* widget = new QMessageBox(QApplication::activeWindow());
    widget->setTextFormat(Qt::PlainText);
    widget->setWindowTitle(box.title.empty() ? QStringLiteral("Tavix") : faces::toQt(box.title));
    widget->setText(faces::toQt(box.text));
    widget->setIcon(box.icon == Icon::Question ? QMessageBox::Question : QMessageBox::NoIcon);
    if (box.buttons == Buttons::Ok) {
        widget->setStandardButtons(QMessageBox::Ok);
    } else {
        widget->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        widget->setEscapeButton(QMessageBox::No);
    }
    for (QAbstractButton* button : widget->buttons()) button->setMinimumSize(96, 34);
    return widget;
}

Answer answerOf(const QMessageBox& widget, const MessageBox& box) {
    if (box.buttons == Buttons::Ok) return Answer::Ok;
    const QAbstractButton* pressed = widget.clickedButton();
    return pressed != nullptr &&
                   widget.standardButton(const_cast<QAbstractButton*>(pressed)) == QMessageBox::Yes
               ? Answer::Yes
               : Answer::No;
}

Answer show(const MessageBox& box) {
    const std::unique_ptr<QMessageBox> widget(make(box));
    widget->exec();
    return answerOf(*widget, box);
}

void showFault(const Fault& fault) {
    const std::unique_ptr<QMessageBox> widget(make({faultReport(fault), "Tavix", Buttons::Ok, Icon::None}));
    widget->setIcon(QMessageBox::Critical);
    widget->exec();
}

}  // namespace boxes
