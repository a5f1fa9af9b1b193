#include "studio/exportDialog.h"

#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <functional>

#include "studio/safely.h"

namespace exportDialog {

namespace {

struct Asked {
    QDialog* dialog;
    QFormLayout* rows;
    QLineEdit *folder, *name, *key;
    QCheckBox *hides, *keepsTexts;
};

QLabel* help(const QString& text) {
    auto* const label = new QLabel(text);
    label->setWordWrap(true);
    label->setProperty("role", "help");
    return label;
}

/// A line for a place with a button that finds one.
QWidget* place(QLineEdit* line, const QString& name, const std::function<QString(const QString&)>& find) {
    auto* const whole = new QWidget;
    auto* const row = new QHBoxLayout(whole);
    auto* const choose = new QPushButton("Choose…");
    line->setAccessibleName(name);
    line->setMinimumWidth(360);
    choose->setAccessibleName("Choose: " + name);
    choose->setAutoDefault(false);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(line, 1);
    row->addWidget(choose);
    whole->setFocusProxy(line);
    QObject::connect(choose, &QPushButton::clicked, line, safely([line, find](bool) {
                         const QString found = find(line->text());
                         if (!found.isEmpty()) line->setText(found);
                     }));
    return whole;
}

QString findFolder(const QString& now) {
    return QFileDialog::getSaveFileName(nullptr, "Folder of the dataset", now, {}, nullptr,
                                        QFileDialog::ShowDirsOnly | QFileDialog::DontConfirmOverwrite);
}

QString findKey(const QString& now) {
    return QFileDialog::getSaveFileName(nullptr, "Key file", now, "Tables (*.csv);;All files (*)", nullptr,
                                        QFileDialog::DontConfirmOverwrite);
}

void addRows(const Asked& asked) {
    QFormLayout& rows = *asked.rows;
    const QString letters = "Letters from A to Z and digits; it stands in the names of the files.";
    rows.addRow("&Folder of the dataset", place(asked.folder, "Folder of the dataset", findFolder));
    rows.addRow(help("It is made, and never written over."));
    rows.addRow("&Name of the study", asked.name);
    rows.addRow(help(letters));
    rows.addRow(asked.hides);
    rows.addRow("&Key file", place(asked.key, "Key file", findKey));
    rows.addRow(
        help("It says who is who and stays out of the dataset. One that exists is gone on with, so that "
             "everybody keeps the pseudonym."));
    rows.addRow(asked.keepsTexts);
    rows.addRow(
        help("Without pseudonyms they stay in. With pseudonyms they are left out, since people write "
             "names into them."));
    asked.name->setAccessibleName("Name of the study");
    asked.name->setAccessibleDescription(letters);
    asked.name->setValidator(
        new QRegularExpressionValidator(QRegularExpression("[A-Za-z0-9]*"), asked.dialog));
}

void addButtons(const Asked& asked) {
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    QPushButton* const go = buttons->addButton("Export", QDialogButtonBox::AcceptRole);
    go->setDefault(true);
    asked.rows->addRow(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, asked.dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, asked.dialog, &QDialog::reject);
    const auto judge = [=] {
        const bool hides = asked.hides->isChecked();
        asked.key->parentWidget()->setEnabled(hides);
        asked.keepsTexts->setEnabled(hides);
        go->setEnabled(!asked.folder->text().isEmpty() && !asked.name->text().isEmpty() &&
                       !(hides && asked.key->text().isEmpty()));
    };
    for (const QLineEdit* line : {asked.folder, asked.name, asked.key})
        QObject::connect(line, &QLineEdit::textChanged, asked.dialog, judge);
    QObject::connect(asked.hides, &QCheckBox::toggled, asked.dialog, judge);
    judge();
}

}  // namespace

std::optional<exportDataset::Request> ask(QWidget* parent, const exportDataset::Request& offered) {
    QDialog dialog(parent);
    dialog.setWindowTitle("Export the results");
    const Asked asked{&dialog,
                      new QFormLayout(&dialog),
                      new QLineEdit(QString::fromStdString(offered.folder)),
                      new QLineEdit(QString::fromStdString(offered.name)),
                      new QLineEdit(QString::fromStdString(offered.pseudonyms)),
                      new QCheckBox("&Replace the subjects' names by pseudonyms"),
                      new QCheckBox("Keep what subjects &wrote")};
    asked.hides->setChecked(true);
    asked.keepsTexts->setChecked(offered.keepTexts);
    addRows(asked);
    addButtons(asked);
    if (dialog.exec() != QDialog::Accepted) return {};
    return exportDataset::Request{
        .file = offered.file,
        .folder = asked.folder->text().toStdString(),
        .name = asked.name->text().toStdString(),
        .pseudonyms = asked.hides->isChecked() ? asked.key->text().toStdString() : std::string(),
        .keepTexts = asked.keepsTexts->isChecked()};
}

}  // namespace exportDialog
