#include "studio/scenarioPage.h"

#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <vector>

#include "studio/askName.h"
#include "studio/givenText.h"
#include "studio/modelPage.h"
#include "studio/optionsPage.h"
#include "studio/pilotPage.h"
#include "studio/play.h"
#include "studio/safely.h"
#include "studio/screensPage.h"
#include "studio/workspace.h"
#include "study/bookScenarios.h"

namespace scenarioPage {

namespace {

using Follow = std::function<void(const std::string&)>;

bool isTaken(const std::string& name) {
    return book::rowOf(workspace::book(), "tblAppDefault", "Setting", name).has_value();
}

void rename(QWidget* parent, const std::string& scenario, const Follow& follow) {
    const std::string name =
        askName::ask(parent, {"Rename the scenario", "Name of the scenario:", scenario, scenario}, isTaken);
    if (name.empty() || name == scenario) return;
    workspace::change("Rename the scenario",
                      [&](book::Book& book) { bookScenarios::rename(book, scenario, name); });
    follow(name);
}

void copy(QWidget* parent, const std::string& scenario, const Follow& follow) {
    const std::string free = bookScenarios::freeName(workspace::book(), scenario + " copy");
    const std::string name =
        askName::ask(parent, {"Copy the scenario", "Name of the scenario:", free}, isTaken);
    if (name.empty()) return;
    workspace::change("Copy the scenario",
                      [&](book::Book& book) { bookScenarios::copy(book, scenario, name); });
    follow(name);
}

void remove(const std::string& scenario, const Follow& follow) {
    workspace::change("Remove the scenario",
                      [&](book::Book& book) { bookScenarios::remove(book, scenario); });
    const std::vector<std::string> left = bookScenarios::namesOf(workspace::book());
    follow(left.empty() ? std::string() : left.front());
}

}  // namespace

Page make(const std::function<std::string()>& scenario, const Follow& follow) {
    auto* const whole = new QWidget;
    auto* const column = new QVBoxLayout(whole);
    auto* const head = new QHBoxLayout;
    QLabel* const name = givenText::title();
    auto* const tabs = new QTabWidget;
    const std::vector<std::pair<QString, Page>> pages{{"Options", optionsPage::make(scenario)},
                                                      {"Model", modelPage::make(scenario)},
                                                      {"On screen", screensPage::make(scenario)},
                                                      {"What it will be like", pilotPage::make(scenario)}};
    head->addWidget(name, 1);
    const auto button = [&](const QString& caption, const std::function<void()>& act) {
        auto* const made = new QPushButton(caption);
        QObject::connect(made, &QPushButton::clicked, made, act);
        head->addWidget(made);
        return made;
    };
    button("Play", safely([=] { play::start(scenario()); }))
        ->setToolTip("Starts the program on a copy, in this scenario (F5). What it writes is thrown away.");
    button("Rename…", [=] { rename(whole, scenario(), follow); });
    button("Copy…", [=] { copy(whole, scenario(), follow); });
    button("Remove", [=] { remove(scenario(), follow); });
    column->addLayout(head);
    for (const auto& [caption, page] : pages) tabs->addTab(page.widget, caption);
    column->addWidget(tabs, 1);
    const auto refresh = [=] {
        givenText::setTitle(*name, scenario());
        pages[static_cast<std::size_t>(tabs->currentIndex())].second.refresh();
    };
    QObject::connect(tabs, &QTabWidget::currentChanged, whole, refresh);
    const auto show = [=](const check::Finding& finding) {
        for (std::size_t i = 0; i < pages.size(); ++i) {
            pages[i].second.refresh();
            if (!pages[i].second.show(finding)) continue;
            tabs->setCurrentIndex(static_cast<int>(i));
            return pages[i].second.show(finding);
        }
        return false;
    };
    return {whole, refresh, show};
}

}  // namespace scenarioPage
