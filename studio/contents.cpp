#include "studio/contents.h"

#include <QSignalBlocker>
#include <QTreeWidgetItemIterator>
#include <algorithm>
#include <optional>

#include "store/layer/schema.h"
#include "studio/captions.h"
#include "studio/safely.h"
#include "studio/workspace.h"
#include "study/bookScenarios.h"
#include "study/readStore.h"

namespace contents {

namespace {

struct Tree {
    QTreeWidget* widget;
    Entry chosen;
    std::vector<std::string> scenarios;  ///< as the tree lists them
    std::vector<std::string> lists;      ///< of lengths of tests
};

Tree tree;

bool same(const Entry& a, const Entry& b) { return a.kind == b.kind && check::sameName(a.name, b.name); }

void add(QTreeWidgetItem* parent, const QString& text, const Entry& entry) {
    auto* const item =
        parent == nullptr ? new QTreeWidgetItem(tree.widget, {text}) : new QTreeWidgetItem(parent, {text});
    item->setData(0, Qt::UserRole, static_cast<int>(entry.kind));
    item->setData(0, Qt::UserRole + 1, QString::fromStdString(entry.name));
}

std::optional<Entry> entryOf(const QTreeWidgetItem* item) {
    if (item == nullptr || !item->data(0, Qt::UserRole).isValid()) return {};
    return Entry{static_cast<Kind>(item->data(0, Qt::UserRole).toInt()),
                 item->data(0, Qt::UserRole + 1).toString().toStdString()};
}

QTreeWidgetItem* heading(const QString& text) {
    auto* const item = new QTreeWidgetItem(tree.widget, {text});
    item->setFlags(Qt::ItemIsEnabled);
    return item;
}

void markChosen() {
    for (QTreeWidgetItemIterator item(tree.widget); *item != nullptr; ++item) {
        const std::optional<Entry> its = entryOf(*item);
        if (!its || !same(*its, tree.chosen)) continue;
        tree.widget->setCurrentItem(*item);
        return;
    }
}

/// What has not changed stays, with what is folded up and how far it is scrolled.
void fill() {
    const QSignalBlocker quiet(tree.widget);
    if (!workspace::isOpen()) return tree.widget->clear();
    const std::vector<std::string> names = bookScenarios::namesOf(workspace::book());
    const std::vector<std::string> lists = bookScenarios::testLists(workspace::book());
    const bool filled = tree.widget->topLevelItemCount() > 0;
    if (filled && names == tree.scenarios && lists == tree.lists) return markChosen();
    tree.scenarios = names;
    tree.lists = lists;
    tree.widget->clear();
    QTreeWidgetItem* const scenarios = heading("Scenarios");
    for (const std::string& name : names)
        add(scenarios, QString::fromStdString(name), {Kind::Scenario, name});
    add(nullptr, "Patients", {Kind::Patients});
    add(nullptr, "Words", {Kind::Words});
    QTreeWidgetItem* const tests = heading("Lengths of tests");
    for (const std::string& list : lists) add(tests, QString::fromStdString(list), {Kind::Tests, list});
    add(nullptr, "Results", {Kind::Results});
    if (tree.chosen.kind == Kind::Table)
        add(nullptr, "Table " + QString::fromStdString(tree.chosen.name), tree.chosen);
    tree.widget->expandAll();
    markChosen();
}

/// A scenario or list that is gone gives way to what stands in its place now: the same one, where only its
/// name was changed by an undo.
void mendChoice() {
    if (!workspace::isOpen()) return;
    const auto isChosen = [](const std::string& name) { return check::sameName(name, tree.chosen.name); };
    const bool isList = tree.chosen.kind == Kind::Tests;
    const bool isScenario = tree.chosen.kind == Kind::Scenario;
    const std::vector<std::string> now =
        isList ? bookScenarios::testLists(workspace::book()) : bookScenarios::namesOf(workspace::book());
    const bool lost = (isList || isScenario) && std::ranges::none_of(now, isChosen);
    if (!lost && tree.chosen.kind != Kind::Start) return;
    const std::vector<std::string>& before = isList ? tree.lists : tree.scenarios;
    const auto was = std::ranges::find_if(before, isChosen);
    const auto at = was == before.end() ? 0 : static_cast<std::size_t>(was - before.begin());
    if (now.empty())
        tree.chosen = {Kind::Words};
    else
        tree.chosen = {isList ? Kind::Tests : Kind::Scenario, now[std::min(at, now.size() - 1)]};
}

/// Whether the table has a page of its own: those that are configured, which alone can be changed.
bool isConfigured(const std::string& table) {
    const schema::Table* known = schema::find(table);
    return known != nullptr && known->isConfiguration();
}

std::string cellOf(const check::Finding& finding, const char* column) {
    if (finding.row == 0) return {};
    return book::sheetOf(workspace::book(), finding.table).text(finding.row - 1, column);
}

QString entryWords(const check::Finding& finding) {
    const Entry place = placesOf(finding).front();
    switch (place.kind) {
        case Kind::Scenario:
        case Kind::Tests: return QString::fromStdString(place.name);
        case Kind::Patients: return "Patients";
        case Kind::Words: return "Words";
        case Kind::Start:
        case Kind::Table:
        case Kind::Results: break;
    }
    return captions::ofTable(finding.table);
}

/// Which row of its scenario, list or page it is: by its name, or by its number there.
QString rowWords(const check::Finding& finding) {
    if (finding.table == "tblBaseRates") return "base rates";
    if (finding.row == 0 || finding.table == "tblAppDefault") return {};
    const bool symptoms = finding.table == "tblDiseaseSymptom";
    const char* const column = captions::nameColumn(finding.table);
    const std::string name = cellOf(finding, column);
    if (finding.table == "tblVocabulary" && name.empty())
        return QString("%1 in row %2").arg(QString::fromStdString(cellOf(finding, "Type"))).arg(finding.row);
    if (!symptoms && finding.table != "tblTests")
        return name.empty() ? QString("row %1").arg(finding.row) : QString::fromStdString(name);
    const std::vector<int> rows = book::rowsOf(workspace::book(), finding.table, column, name);
    const auto before = std::ranges::count_if(rows, [&](int row) { return row < finding.row; });
    return QString(symptoms ? "symptom %1" : "length %1").arg(before);
}

}  // namespace

QTreeWidget* make(const std::function<void()>& heard) {
    tree.widget = new QTreeWidget;
    tree.widget->setHeaderHidden(true);
    tree.widget->setAccessibleName("What the study consists of");
    QObject::connect(tree.widget, &QTreeWidget::currentItemChanged, tree.widget,
                     safely([heard](QTreeWidgetItem* item, QTreeWidgetItem*) {
                         const std::optional<Entry> entry = entryOf(item);
                         if (!entry) return;
                         tree.chosen = *entry;
                         heard();
                     }));
    // A press beside the entries would take the mark away, and leave the page.
    QObject::connect(tree.widget, &QTreeWidget::itemSelectionChanged, tree.widget, [] {
        if (tree.widget->selectedItems().isEmpty() && tree.widget->currentItem() != nullptr)
            tree.widget->currentItem()->setSelected(true);
    });
    // A heading is no page: a press on it leaves what is chosen.
    QObject::connect(tree.widget, &QTreeWidget::itemClicked, tree.widget, [] { markChosen(); });
    return tree.widget;
}

void refresh() {
    mendChoice();
    fill();
    tree.widget->setVisible(workspace::isOpen());
}

const Entry& chosen() { return tree.chosen; }
void choose(const Entry& entry) { tree.chosen = entry; }

std::vector<Entry> placesOf(const check::Finding& finding) {
    if (!isConfigured(finding.table)) return {{Kind::Results}};
    std::vector<Entry> places;
    if (finding.table == "tblVocabulary") places.push_back({Kind::Words});
    if (finding.table == "tblPatients") places.push_back({Kind::Patients});
    if (finding.row > 0) {
        if (finding.table == "tblTests") places.push_back({Kind::Tests, cellOf(finding, "SETTING")});
        const std::string scenario = cellOf(finding, "Setting");
        if (finding.table != "tblTests" && !scenario.empty()) places.push_back({Kind::Scenario, scenario});
    }
    if (finding.row > 0 || places.empty()) places.push_back({Kind::Table, finding.table});
    return places;
}

QString wordsFor(const check::Finding& finding) {
    QStringList parts;
    const QString row = rowWords(finding);
    const QString column = captions::of(finding.table, finding.column);
    if (!row.isEmpty()) parts << row;
    const bool named = finding.column == captions::nameColumn(finding.table) &&
                       (finding.row == 0 || !cellOf(finding, captions::nameColumn(finding.table)).empty());
    if (!column.isEmpty() && !named) parts << column;
    return parts.isEmpty() ? entryWords(finding) : entryWords(finding) + ": " + parts.join(", ");
}

}  // namespace contents
