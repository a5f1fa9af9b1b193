#include "studio/notices.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <vector>

namespace notices {

void tell(const QString& sentence, const QString& detail) { ask(sentence, detail, {"OK"}); }

int ask(const QString& sentence, const QString& detail, const QStringList& buttons) {
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle("Tavix Studio");
    box.setText(sentence);
    box.setInformativeText(detail);
    box.setTextFormat(Qt::PlainText);
    std::vector<QAbstractButton*> made;
    for (const QString& text : buttons) made.push_back(box.addButton(text, QMessageBox::AcceptRole));
    box.setDefaultButton(qobject_cast<QPushButton*>(made.front()));
    box.setEscapeButton(made.back());
    box.exec();
    for (std::size_t i = 0; i < made.size(); ++i) {
        if (box.clickedButton() == made[i]) return static_cast<int>(i);
    }
    return static_cast<int>(made.size()) - 1;
}

}  // namespace notices
