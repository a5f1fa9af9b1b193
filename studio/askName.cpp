#include "studio/askName.h"

#include <QInputDialog>

#include "platform/text.h"
#include "study/checkStudy.h"

namespace askName {

std::string ask(QWidget* parent, const Question& question,
                const std::function<bool(const std::string&)>& isTaken) {
    std::string name = question.offered;
    QString label = question.label;
    while (true) {
        bool given = false;
        const QString typed = QInputDialog::getText(parent, question.title, label, QLineEdit::Normal,
                                                    QString::fromStdString(name), &given);
        name = text::trim(typed.toStdString());
        if (!given || name.empty()) return {};
        if (check::sameName(name, question.own) || !isTaken(name)) return name;
        label = "That name is taken. " + question.label;
    }
}

}  // namespace askName
