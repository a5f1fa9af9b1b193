#include "studio/scenarioPage.h"

#include <QInputDialog>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <vector>

#include "platform/text.h"
#include "studio/fields.h"
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

/// Asks for a name that no other scenario has; empty if the person gives up.
std::string askName(QWidget* parent, const QString& title, const std::string& offered,
                    const std::string& own) {
    std::string name = offered;
    while (true) {
        bool taken = false;
        const QString typed = QInputDialog::getText(parent, title, "Name of the scenario:", QLineEdit::Normal,
                                                    QString::fromStdString(name), &taken);
        name = text::trim(typed.toStdString());
        if (!taken || name.empty()) return {};
        const bool other = !check::sameName(name, own) &&
                           book::rowOf(workspace::book(), "tblAppDefault", "Setting", name).has_value();
        if (!other) return name;
        fields::tellProblem("There is a scenario of that name already.");
    }
}

void rename(QWidget* parent, const std::string& scenario, const Follow& follow) {
    const std::string name = askName(parent, "Rename the scenario", scenario, scenario);
    if (name.empty() || name == scenario) return;
    workspace::change("Rename the scenario",
                      [&](book::Book& book) { bookScenarios::rename(book, scenario, name); });
    follow(name);
}

void copy(QWidget* parent, const std::string& scenario, const Follow& follow) {
    const std::string free = bookScenarios::freeName(workspace::book(), scenario + " copy");
    const std::string name = askName(parent, "Copy the scenario", free, {});
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
    auto* const name = new QLabel;
    auto* const tabs = new QTabWidget;
    const std::vector<std::pair<QString, Page>> pages{{"Options", optionsPage::make(scenario)},
                                                      {"Model", modelPage::make(scenario)},
                                                      {"On screen", screensPage::make(scenario)},
                                                      {"What it will be like", pilotPage::make(scenario)}};
    head->addWidget(name);
    head->addStretch();
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
        name->setText("<h2>" + QString::fromStdString(scenario()).toHtmlEscaped() + "</h2>");
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
