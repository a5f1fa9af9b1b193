#include "studio/findingsPanel.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>
#include <numeric>
#include <optional>
#include <utility>
#include <vector>

#include "qt/look.h"
#include "studio/contents.h"
#include "studio/workspace.h"
#include "study/check.h"
#include "study/remedies.h"

namespace findingsPanel {

namespace {

QString gradeOf(const check::Finding& finding) { return check::wordFor(finding.grade); }

/// Where it stands in the tables.
QString placeOf(const check::Finding& finding) {
    QString place = QString::fromStdString(finding.table);
    if (finding.row > 0) place += QString(", row %1").arg(finding.row);
    if (!finding.column.empty()) place += ", " + QString::fromStdString(finding.column);
    return place;
}

/// Places in the list of findings: what ends a session stands first, else as the tables go.
std::vector<std::size_t> worstFirst(const std::vector<check::Finding>& findings) {
    std::vector<std::size_t> order(findings.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {}, [&](std::size_t i) { return findings[i].grade; });
    return order;
}

using Go = std::function<void(const check::Finding&)>;

void addRemedy(QTreeWidget& list, QTreeWidgetItem& item, const check::Finding& finding, const Go& go) {
    const std::optional<remedies::Remedy> remedy = remedies::of(workspace::book(), finding);
    if (!remedy) return;
    auto* const press = new QPushButton(QString::fromStdString(remedy->label));
    press->setAccessibleName(press->text() + ": " + item.text(2));
    // Pressing changes the list, and with it the button: the change waits until the press is over.
    QObject::connect(
        press, &QPushButton::clicked, &list,
        [finding, go] {
            const std::optional<remedies::Remedy> now = remedies::of(workspace::book(), finding);
            if (!now) return;
            workspace::change(now->label, [&](book::Book& book) { now->mend(book); });
            if (finding.row == 0) go(finding);  // what was added stands on its page
        },
        Qt::QueuedConnection);
    list.setItemWidget(&item, 3, press);
}

/// What the list shows; a place gets other words when what it names is renamed.
using Shown = std::pair<std::vector<check::Finding>, QStringList>;

QStringList placesNow() {
    QStringList places;
    for (const check::Finding& finding : workspace::findings()) places << contents::wordsFor(finding);
    return places;
}

QString counted(int count, const QString& what) {
    return QString("%1 %2%3").arg(count).arg(what, count == 1 ? "" : "s");
}

void fill(QTreeWidget& list, QLabel& head, const Go& go) {
    const std::vector<check::Finding>& findings = workspace::findings();
    const bool had = list.isAncestorOf(QApplication::focusWidget()) || list.hasFocus();
    const int at = list.indexOfTopLevelItem(list.currentItem());
    const int above = list.verticalScrollBar()->value();
    int errors = 0;
    int warnings = 0;
    list.clear();
    for (const std::size_t i : worstFirst(findings)) {
        const check::Finding& finding = findings[i];
        errors += finding.grade == check::Grade::Error ? 1 : 0;
        warnings += finding.grade == check::Grade::Warning ? 1 : 0;
        auto* const item = new QTreeWidgetItem(
            &list, {gradeOf(finding), contents::wordsFor(finding), QString::fromStdString(finding.text)});
        item->setData(0, Qt::UserRole, static_cast<int>(i));
        item->setToolTip(1, placeOf(finding));
        item->setToolTip(2, item->text(2));
        if (finding.grade == check::Grade::Error) item->setForeground(0, look::colours().alarm);
        addRemedy(list, *item, finding, go);
    }
    head.setText(findings.empty()
                     ? "Nothing was found: the study can be played."
                     : counted(errors, "error") + ", " + counted(warnings, "warning") + ", " +
                           counted(static_cast<int>(findings.size()) - errors - warnings, "note"));
    // The focus goes on from where it was, and not to whatever stands next in the window.
    if (at >= 0 && had) list.setCurrentItem(list.topLevelItem(std::min(at, list.topLevelItemCount() - 1)));
    list.verticalScrollBar()->setValue(above);
    if (had) list.setFocus();
}

}  // namespace

Panel make(const std::function<void(const check::Finding&)>& go) {
    auto* const whole = new QWidget;
    auto* const column = new QVBoxLayout(whole);
    auto* const head = new QLabel;
    auto* const list = new QTreeWidget;
    list->setHeaderLabels({"Grade", "Where", "What", "Remedy"});
    list->setRootIsDecorated(false);
    list->setAccessibleName("Findings");
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(2, QHeaderView::Stretch);
    list->setColumnWidth(1, 220);
    list->setColumnWidth(3, 190);
    column->setContentsMargins(8, 4, 8, 8);
    column->addWidget(head);
    column->addWidget(list);
    const auto chosen = [=](QTreeWidgetItem* item, int) {
        const auto at = static_cast<std::size_t>(item->data(0, Qt::UserRole).toInt());
        if (at < workspace::findings().size()) go(check::Finding(workspace::findings()[at]));
    };
    QObject::connect(list, &QTreeWidget::itemClicked, list, chosen);
    QObject::connect(list, &QTreeWidget::itemActivated, list, chosen);
    const auto shown = std::make_shared<std::optional<Shown>>();
    return {whole, [=] {
                Shown now{workspace::findings(), placesNow()};
                if (*shown == now) return;
                *shown = std::move(now);
                fill(*list, *head, go);
            }};
}

}  // namespace findingsPanel
