#include "studio/optionsPage.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QVBoxLayout>
#include <map>
#include <memory>
#include <vector>

#include "forms/frmOptions.h"
#include "store/layer/schema.h"
#include "store/record/Options.h"
#include "studio/captions.h"
#include "studio/clockFace.h"
#include "studio/fields.h"
#include "studio/lanes.h"
#include "studio/workspace.h"
#include "study/bookScenarios.h"

namespace optionsPage {

namespace {

constexpr const char* table = "tblAppDefault";

struct Building {
    std::function<std::string()> scenario;
    std::map<const Control*, QGroupBox*> groups = {};
    std::vector<std::pair<std::string, fields::Field>> fields = {};  ///< by column
};

const schema::Column& columnOf(const std::string& name) {
    for (const schema::Column& column : schema::find(table)->columns) {
        if (column.name == name) return column;
    }
    return schema::find(table)->columns.front();
}

fields::Words wordsFor(const std::string& column) {
    return fields::wordsOf(table, column, captions::of(table, column));
}

fields::Where cellOf(const std::function<std::string()>& scenario, const std::string& column) {
    return [=]() -> std::optional<book::Place> {
        const std::optional<int> row = book::rowOf(workspace::book(), table, "Setting", scenario());
        if (!row) return {};
        return book::Place{table, *row, column};
    };
}

QGroupBox* groupOf(Building& building, const Control& frame, QWidget& parent) {
    QGroupBox*& group = building.groups[&frame];
    if (group == nullptr) {
        group = new QGroupBox(QString::fromStdString(frame.caption), &parent);
        auto* const rows = new QFormLayout(group);
        rows->setContentsMargins(10, 28, 10, 12);
        rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    }
    return group;
}

/// Caption, field and, below, the sentence of help.
void place(Building& building, QGroupBox& group, const std::string& column, const fields::Words& words,
           const fields::Field& field, bool captioned) {
    auto* const rows = qobject_cast<QFormLayout*>(group.layout());
    auto* const help = new QLabel(words.help);
    help->setWordWrap(true);
    help->setProperty("role", "help");
    if (captioned) {
        if (qobject_cast<QLineEdit*>(field.widget) != nullptr) field.widget->setMaximumWidth(76);
        auto* const caption = new QLabel(words.name);
        caption->setBuddy(field.widget);
        rows->addRow(caption, field.widget);
    } else {
        rows->addRow(field.widget);
    }
    rows->addRow(help);
    building.fields.emplace_back(column, field);
}

void addFlags(Building& building, QWidget& parent) {
    for (const FlagColumn& flag : flagColumns()) {
        const Control& box = (Options.*flag.flag).box;
        const fields::Words words = wordsFor(flag.column);
        place(building, *groupOf(building, *box.parent, parent), flag.column, words,
              fields::tick(cellOf(building.scenario, flag.column), words), false);
    }
}

void addTexts(Building& building, QWidget& parent) {
    for (const TextColumn& text : textColumns()) {
        const Control& box = (Options.*text.field).box;
        const fields::Words words = wordsFor(text.column);
        place(building, *groupOf(building, *box.parent, parent), text.column, words,
              fields::line(cellOf(building.scenario, text.column), words), true);
    }
}

void addTime(Building& building, QWidget& parent) {
    QGroupBox& group = *groupOf(building, frmOptions.fraTime, parent);
    for (const char* meter : {"Time", "SimRate"}) {
        const fields::Words words = wordsFor(meter);
        const schema::Column& column = columnOf(meter);
        place(building, group, meter, words,
              fields::slider(cellOf(building.scenario, meter), words, *column.least, *column.most), true);
    }
    for (const char* column : {"StartHour", "StartMin"}) {
        const fields::Words words = wordsFor(column);
        place(building, group, column, words, fields::line(cellOf(building.scenario, column), words), true);
    }
}

/// One column for what the dialog has as two boxes that exclude each other.
void addProperty(Building& building, QWidget& parent) {
    QGroupBox& group = *groupOf(building, frmOptions.fraExperimentDepth, parent);
    fields::Words words = wordsFor("TreatmentProperty");
    words.help = QString(
                     "%1: the first prescription ends the patient, whether it helps or not. %2: treatments "
                     "can harm.")
                     .arg(QString::fromStdString(frmOptions.chkOneTreatment.caption),
                          QString::fromStdString(frmOptions.chkRisk.caption));
    place(building, group, "TreatmentProperty", words,
          fields::named(cellOf(building.scenario, "TreatmentProperty"), words,
                        {{"1", QString::fromStdString(frmOptions.chkOneTreatment.caption)},
                         {"0", "Neither"},
                         {"-1", QString::fromStdString(frmOptions.chkRisk.caption)}}),
          true);
}

void addTests(Building& building, QWidget& parent) {
    QGroupBox& group = *groupOf(building, frmOptions.fraPatients, parent);
    const fields::Words words = wordsFor("TestLengthSetting");
    place(building, group, "TestLengthSetting", words,
          fields::choice(cellOf(building.scenario, "TestLengthSetting"), words,
                         [] {
                             QStringList lists;
                             for (const std::string& list : bookScenarios::testLists(workspace::book()))
                                 lists << QString::fromStdString(list);
                             return lists;
                         }),
          true);
}

}  // namespace

Page make(const std::function<std::string()>& scenario) {
    if (frmOptions.form.name.empty()) designFrmOptions();
    const auto building = std::make_shared<Building>(Building{scenario});
    auto* const inside = new QWidget;
    addTime(*building, *inside);
    addTexts(*building, *inside);
    addFlags(*building, *inside);
    addProperty(*building, *inside);
    addTests(*building, *inside);
    const clockFace::Face clock = clockFace::make();
    auto* const grid = new QGridLayout(inside);
    std::vector<QWidget*> columns;
    const auto columnOfGroups = [&](const std::vector<const Control*>& frames, QWidget* last) {
        columns.push_back(new QWidget);
        auto* const column = new QVBoxLayout(columns.back());
        column->setContentsMargins(0, 0, 0, 0);
        for (const Control* frame : frames) column->addWidget(building->groups[frame]);
        if (last != nullptr) column->insertWidget(1, last);
        column->addStretch();
    };
    FrmOptions& f = frmOptions;
    columnOfGroups({&f.fraTime, &f.fraPatients}, clock.widget);
    columnOfGroups({&f.fraScoring, &f.fraExperimentDepth}, nullptr);
    columnOfGroups({&f.fraDiagnosis, &f.Frame1, &f.fraTables}, nullptr);
    QScrollArea* const area = lanes::scrolled(inside);
    lanes::lay(*area, *grid, columns, true);
    const auto refresh = [=] {
        for (const auto& [column, field] : building->fields) field.refresh();
        clock.show(scenario());
    };
    const auto show = [=](const check::Finding& finding) {
        if (finding.table != table) return false;
        for (const auto& [column, field] : building->fields) {
            const std::optional<book::Place> place = field.where();
            if (!place || place->row != finding.row - 1 || !check::sameName(column, finding.column)) continue;
            area->ensureWidgetVisible(field.widget);
            field.widget->setFocus();
            return true;
        }
        return false;
    };
    return {area, refresh, show};
}

}  // namespace optionsPage
