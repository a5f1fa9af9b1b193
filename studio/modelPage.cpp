#include "studio/modelPage.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "platform/numberText.h"
#include "studio/chances.h"
#include "studio/fields.h"
#include "studio/grid.h"
#include "studio/lanes.h"
#include "studio/rowDeeds.h"
#include "studio/workspace.h"
#include "study/bookScenarios.h"
#include "study/limits.h"

namespace modelPage {

namespace {

using bookScenarios::Parts;
using Scenario = std::function<std::string()>;
using book::Place;

QStringList diseases(const Parts& parts, const QString& suffix = {}) {
    QStringList names;
    for (int j = 0; j < parts.diseases; ++j) names << QString("Disease %1%2").arg(j + 1).arg(suffix);
    return names;
}

void addSeries(std::vector<std::optional<Place>>& line, const Parts& parts, const char* table, int row,
               const char* suffix) {
    for (int j = 0; j < parts.diseases; ++j)
        line.emplace_back(Place{table, row, check::diseaseColumn(j, suffix)});
}

grid::View ratesView(const book::Book& book, const std::string& scenario) {
    const Parts parts = bookScenarios::partsOf(book, scenario);
    grid::View view{
        diseases(parts), {}, {}, std::vector<bool>(static_cast<std::size_t>(parts.diseases), true)};
    if (!parts.rates) return view;
    view.rows << "Base rate, %";
    addSeries(view.places.emplace_back(), parts, "tblBaseRates", *parts.rates, "");
    return view;
}

grid::View symptomsView(const book::Book& book, const std::string& scenario) {
    const Parts parts = bookScenarios::partsOf(book, scenario);
    grid::View view{diseases(parts) << "Visible (no effect)", {}, {}};
    view.shaded.assign(static_cast<std::size_t>(parts.diseases), true);
    view.ticked.assign(static_cast<std::size_t>(parts.diseases) + 1, false);
    view.ticked.back() = true;
    for (const int row : parts.symptoms) {
        view.rows << QString("Symptom %1").arg(view.rows.size() + 1);
        auto& line = view.places.emplace_back();
        addSeries(line, parts, "tblDiseaseSymptom", row, "");
        line.emplace_back(Place{"tblDiseaseSymptom", row, "InitVisible"});
    }
    return view;
}

grid::View treatmentsView(const book::Book& book, const std::string& scenario) {
    const Parts parts = bookScenarios::partsOf(book, scenario);
    grid::View view{QStringList("Name") << diseases(parts, ", heals") << diseases(parts, ", harms"), {}, {}};
    view.shaded.assign(static_cast<std::size_t>(view.columns.size()), true);
    view.shaded.front() = false;
    for (const int row : parts.treatments) {
        view.rows << QString("Treatment %1").arg(view.rows.size() + 1);
        auto& line = view.places.emplace_back();
        line.emplace_back(Place{"tblTreatments", row, "Type"});
        addSeries(line, parts, "tblTreatments", row, "+");
        addSeries(line, parts, "tblTreatments", row, "-");
    }
    return view;
}

QString sumText(const std::string& scenario) {
    const Parts parts = bookScenarios::partsOf(workspace::book(), scenario);
    if (!parts.rates) return "There is no row of base rates.";
    double sum = 0;
    for (int j = 0; j < parts.diseases; ++j)
        sum += numberText::toNumber(
            book::sheetOf(workspace::book(), "tblBaseRates").text(*parts.rates, check::diseaseColumn(j)));
    const QString text = "Sum: " + QString::fromStdString(numberText::general(sum));
    return sum == 100 ? text : text + ". It has to be 100.";
}

QPushButton* button(const QString& text, QHBoxLayout* row, const std::function<void()>& act) {
    auto* const made = new QPushButton(text);
    QObject::connect(made, &QPushButton::clicked, made, act);
    row->addWidget(made);
    return made;
}

void rowButtons(QHBoxLayout* line, const grid::Grid& grid, const char* table, const QString& what,
                const std::function<std::vector<int>()>& rows) {
    const auto act = [=](const QString& verb, int by) {
        const std::string step = (verb + " the " + what).toStdString();
        button(verb, line, [=] {
            rowDeeds::act(grid, table, rows(), step, by);
        })->setAccessibleName(QString::fromStdString(step));
    };
    act("Remove", 0);
    act("Move up", -1);
    act("Move down", 1);
    line->addStretch();
}

QGroupBox* group(const QString& title, const std::vector<QWidget*>& widgets, QHBoxLayout* buttons) {
    auto* const box = new QGroupBox(title);
    auto* const column = new QVBoxLayout(box);
    column->setContentsMargins(12, 28, 12, 12);
    for (QWidget* widget : widgets) column->addWidget(widget);
    if (buttons != nullptr) column->addLayout(buttons);
    return box;
}

QGroupBox* ratesGroup(const Scenario& scenario, const grid::Grid& rates, QLabel* sum) {
    auto* const buttons = new QHBoxLayout;
    button("Add a disease", buttons, [=] {
        fields::tellProblem({});
        workspace::edit("Add a disease", [&](book::Book& book) {
            return bookScenarios::addDisease(book, scenario())
                       ? std::string()
                       : "A scenario has at most " + std::to_string(limits::mostDiseases) + " diseases.";
        });
    });
    button("Remove the disease", buttons, [=] {
        const int disease = rates.table->currentColumn();
        if (disease < 0) return fields::tellProblem("Choose a disease in the base rates first.");
        const std::string problem = workspace::edit("Remove the disease", [&](book::Book& book) {
            return bookScenarios::removeDisease(book, scenario(), disease)
                       ? std::string()
                       : std::string("A scenario keeps at least one disease.");
        });
        fields::tellProblem(QString::fromStdString(problem));
    });
    buttons->addStretch();
    return group("Base rates: how often each disease is drawn", {rates.table, sum}, buttons);
}

QGroupBox* symptomsGroup(const Scenario& scenario, const grid::Grid& symptoms) {
    auto* const buttons = new QHBoxLayout;
    button("Add a symptom", buttons, [=] {
        const std::string problem = workspace::edit("Add a symptom", [&](book::Book& book) {
            return bookScenarios::addSymptom(book, scenario())
                       ? std::string()
                       : "The screen has room for " + std::to_string(limits::mostSymptoms) + " symptoms.";
        });
        fields::tellProblem(QString::fromStdString(problem));
    });
    rowButtons(buttons, symptoms, "tblDiseaseSymptom", "symptom",
               [=] { return bookScenarios::partsOf(workspace::book(), scenario()).symptoms; });
    return group("Symptoms: the chance in percent that each is present with a disease", {symptoms.table},
                 buttons);
}

QGroupBox* treatmentsGroup(const Scenario& scenario, const grid::Grid& treatments) {
    auto* const buttons = new QHBoxLayout;
    button("Add a treatment", buttons, [=] {
        workspace::change("Add a treatment",
                          [&](book::Book& book) { bookScenarios::addTreatment(book, scenario()); });
    });
    rowButtons(buttons, treatments, "tblTreatments", "treatment",
               [=] { return bookScenarios::partsOf(workspace::book(), scenario()).treatments; });
    return group("Treatments: the chance in percent that each heals, or harms, with a disease",
                 {treatments.table}, buttons);
}

}  // namespace

Page make(const Scenario& scenario) {
    const grid::Grid rates =
        grid::make({"Base rates", [=](const book::Book& book) { return ratesView(book, scenario()); }});
    const grid::Grid symptoms = grid::make(
        {"Chances of symptoms", [=](const book::Book& book) { return symptomsView(book, scenario()); },
         [=](book::Book& book) { return bookScenarios::addSymptom(book, scenario()); }});
    const grid::Grid treatments = grid::make(
        {"Chances of treatments", [=](const book::Book& book) { return treatmentsView(book, scenario()); },
         [=](book::Book& book) {
             bookScenarios::addTreatment(book, scenario());
             return true;
         }});
    auto* const sum = new QLabel;
    auto* const inside = new QWidget;
    auto* const column = new QVBoxLayout(inside);
    auto* const dealt = new QLabel(
        "A disease or symptom has no word of its own: which of the words in the list \"Words\" a subject "
        "sees "
        "for it is dealt at random, anew for each subject. Only treatments keep their names.");
    dealt->setWordWrap(true);
    dealt->setProperty("role", "help");
    column->addWidget(dealt);
    column->addWidget(ratesGroup(scenario, rates, sum));
    column->addWidget(symptomsGroup(scenario, symptoms));
    column->addWidget(treatmentsGroup(scenario, treatments));
    const chances::Tables follows = chances::make();
    column->addWidget(group("How far the tests tell the diseases apart", follows.ofTests, nullptr));
    column->addWidget(
        group("The chances that follow for each pattern of findings", follows.ofPatterns, nullptr));
    column->addStretch();
    QScrollArea* const area = lanes::scrolled(inside);
    const auto refresh = [=] {
        for (const grid::Grid& each : {rates, symptoms, treatments}) {
            each.refresh();
            grid::fit(*each.table);
        }
        sum->setText(sumText(scenario()));
        follows.show(scenario());
    };
    const auto show = [=](const check::Finding& finding) {
        return rates.show(finding) || symptoms.show(finding) || treatments.show(finding);
    };
    return {area, refresh, show};
}

}  // namespace modelPage
