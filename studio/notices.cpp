#include "studio/notices.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <vector>

namespace notices {

namespace {

constexpr std::size_t mostLines = 10000;  // of a list
constexpr int aroundText = 40;            // pixels of a button beside its text

}  // namespace

void tell(const QString& sentence, const QString& detail) { ask(sentence, detail, {"OK"}); }

void list(const QString& sentence, const std::vector<std::string>& lines) {
    QDialog box(QApplication::activeWindow());
    auto* const column = new QVBoxLayout(&box);
    auto* const head = new QLabel(sentence);
    auto* const text = new QPlainTextEdit;
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton* const copy = buttons->addButton("Copy all", QDialogButtonBox::ActionRole);
    QStringList all;
    for (std::size_t i = 0; i < lines.size() && i < mostLines; ++i) all << QString::fromStdString(lines[i]);
    if (lines.size() > mostLines) all << QString("and %1 more").arg(lines.size() - mostLines);
    head->setWordWrap(true);
    head->setTextFormat(Qt::PlainText);
    text->setPlainText(all.join('\n'));
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setAccessibleName(sentence);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    column->addWidget(head);
    column->addWidget(text, 1);
    column->addWidget(buttons);
    QObject::connect(copy, &QPushButton::clicked, &box,
                     [text] { QApplication::clipboard()->setText(text->toPlainText()); });
    QObject::connect(buttons, &QDialogButtonBox::rejected, &box, &QDialog::reject);
    box.setWindowTitle("Tavix Studio");
    box.resize(760, 360);
    box.exec();
}

int ask(const QString& sentence, const QString& detail, const QStringList& buttons) {
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle("Tavix Studio");
    box.setText(sentence);
    box.setInformativeText(detail);
    box.setTextFormat(Qt::PlainText);
    std::vector<QAbstractButton*> made;
    for (const QString& text : buttons) {
        // The way out can be the first button too, and then there is one of it.
        if (!made.empty() && text == buttons.front()) continue;
        made.push_back(box.addButton(text, QMessageBox::AcceptRole));
        made.back()->setMinimumWidth(made.back()->fontMetrics().horizontalAdvance(text) + aroundText);
    }
    box.setDefaultButton(qobject_cast<QPushButton*>(made.front()));
    QAbstractButton* const out = buttons.back() == buttons.front() ? made.front() : made.back();
    box.setEscapeButton(out);
    box.exec();
    for (std::size_t i = 0; i < made.size(); ++i) {
        if (box.clickedButton() == made[i]) return static_cast<int>(i);
    }
    return out == made.front() ? 0 : static_cast<int>(made.size()) - 1;
}

}  // namespace notices
