#include "studio/startPage.h"

#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

#include "studio/lanes.h"

namespace startPage {

namespace {

constexpr const char* key = "recent";
constexpr int mostKept = 10;

QStringList kept() { return QSettings().value(key).toStringList(); }

}  // namespace

void remember(const QString& folder) {
    QStringList folders = kept();
    folders.removeAll(folder);
    folders.prepend(folder);
    QSettings().setValue(key, QStringList(folders.mid(0, mostKept)));
}

Page make(const Doors& doors) {
    auto* const whole = new QWidget;
    auto* const column = new QVBoxLayout(whole);
    auto* const title = new QLabel("<h1>A study is one folder</h1>");
    auto* const text = new QLabel(
        "In it stand the program, the store with the tables of the experiment and all results, and the "
        "pictures and introductions of the patients.");
    auto* const recent = new QListWidget;
    text->setWordWrap(true);
    column->setContentsMargins(48, 48, 48, 48);
    column->setSpacing(12);
    column->addWidget(title);
    column->addWidget(text);
    const auto button = [&](const QString& caption, const QString& help, const std::function<void()>& act) {
        auto* const made = new QPushButton(caption);
        made->setToolTip(help);
        made->setAccessibleDescription(help);
        QObject::connect(made, &QPushButton::clicked, made, act);
        column->addWidget(made, 0, Qt::AlignLeft);
    };
    button("New study from the sample…", "Eight scenarios and eight patients, to be changed.",
           [=] { doors.make(true); });
    button("New empty study…", "One scenario of two diseases, a symptom and a treatment.",
           [=] { doors.make(false); });
    button("Open a study…", "The folder of a study.", doors.choose);
    auto* const before = new QLabel("<b>Opened last</b>");
    column->addWidget(before);
    recent->setAccessibleName("Studies opened last");
    column->addWidget(recent, 1);
    column->addStretch();
    QObject::connect(recent, &QListWidget::itemActivated, recent,
                     [=](const QListWidgetItem* item) { doors.open(item->text()); });
    QObject::connect(recent, &QListWidget::itemClicked, recent,
                     [=](const QListWidgetItem* item) { doors.open(item->text()); });
    const auto refresh = [=] {
        recent->clear();
        for (const QString& folder : kept()) {
            if (QFileInfo::exists(folder + "/data/TavixData.mdb")) recent->addItem(folder);
        }
        for (QWidget* part : {static_cast<QWidget*>(before), static_cast<QWidget*>(recent)})
            part->setVisible(recent->count() > 0);
    };
    refresh();
    return {lanes::scrolled(whole), refresh, [](const check::Finding&) { return false; }};
}

}  // namespace startPage
