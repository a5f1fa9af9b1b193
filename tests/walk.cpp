// A walk: presses anything anywhere, in any order, in legal and in refused ways, and looks at what has
// changed after each act. It plays itself on the records of the headless program and writes down the script
// of what it did, for the desktop's twin. The same seed walks the same way.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <deque>
#include <fstream>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "forms/frmDiagnosis.h"
#include "forms/frmLogin.h"
#include "forms/frmTavix.h"
#include "forms/windows.h"
#include "headless/player.h"
#include "stage/openBoxes.h"

namespace {

using Texts = std::vector<std::string>;

std::minstd_rand numbers;
std::deque<std::string> ahead;  ///< lines that come before the next choice
std::set<std::string> changed;  ///< since the last look

std::size_t any(std::size_t count) { return numbers() % count; }
bool onceIn(std::size_t times) { return any(times) == 0; }

template <class Items>
auto anyOf(const Items& items) {
    return *std::next(std::begin(items), static_cast<std::ptrdiff_t>(any(std::size(items))));
}

std::string quoted(const std::string& text) { return '"' + text + '"'; }

std::string anyText() {
    static const Texts texts{
        "",    "tired", "fièvre à 39", "7",     "0.5",       "12",  "59",
        "-1e", " x  ",  "60 %",        "a\\nb", "Treatment", "%_*", "a note of \\\"more\\\" words"};
    return quoted(anyOf(texts));
}

/// One of the things that a person can try on this kind of control.
std::string actOn(const Control& control) {
    static const std::map<Kind, Texts> acts{
        {Kind::Button, {"click {0}", "click {0}", "click {0}", "key {0} 13", "key {0} 32", "key {0} 111"}},
        {Kind::TextBox,
         {"type {0} {1}", "paste {0} {1}", "mark {0} {2} {3}", "key {0} 8", "key {0} 13", "key {0} 50",
          "key {0} 252"}},
        {Kind::ComboBox, {"choose {0} {4}", "choose {0} {4}", "choose {0} {4}", "type {0} {1}", "key {0} 8"}},
        {Kind::ListBox, {"dblclick {0}", "pick {0} {5}", "pick {0} {5} {6}"}},
        {Kind::ScrollBar, {"slide {0} {7}"}},
        {Kind::TickBox, {"tick {0}", "untick {0}", "click {0}"}},
        {Kind::OptionButton, {"dblclick {0}", "click {0}"}},
        {Kind::TabControl, {"tab {0} {8}"}},
        {Kind::Label, {"dblclick {0}", "click {0}"}}};
    const auto found = acts.find(control.kind);
    if (found == acts.end()) return "click " + fullName(control);
    const std::size_t lines = control.items.size() + (onceIn(20) ? 1 : 0);
    const int range = control.max.toInt() - control.min.toInt();
    return fmt::format(fmt::runtime(anyOf(found->second)), fullName(control), anyText(), any(60), any(110),
                       quoted(lines == 0 || control.items.empty() ? "none" : anyOf(control.items)),
                       any(lines + 1) / 2, any(lines + 1),
                       control.min.toInt() + static_cast<int>(any(static_cast<std::size_t>(range + 2))),
                       any(3));
}

/// A few acts that lead on, one after the other.
void habit() {
    static const std::vector<Texts> habits{
        {"choose frmDiagnosis.cboHypothesis(0) {0}", "click frmDiagnosis.cmdDiagnose"},
        {"click frmTavix.cmdDiagnosis", "choose frmDiagnosis.cboHypothesis(0) {0}",
         "click frmDiagnosis.cmdAdd(0)"},
        {"choose frmTavix.cboTreatment {1}", "click frmTavix.cmdPrescribe"},
        {"mark frmTavix.txtIntro 10 40", "click frmTavix.cmdEvidence"},
        {"type frmTavix.txtReasoning cough", "key frmTavix.txtReasoning 13"}};
    const auto itemOf = [](const Control& list) {
        return quoted(list.items.empty() ? "none" : anyOf(list.items));
    };
    const std::string disease = itemOf(frmDiagnosis.cboHypothesis[0]);
    const std::string treatment = itemOf(frmTavix.cboTreatment);
    for (const std::string& act : anyOf(habits))
        ahead.push_back("try " + fmt::format(fmt::runtime(act), disease, treatment));
}

std::string timePasses() {
    if (onceIn(4)) return "draw " + anyOf(Texts{"0x250", "0.99x250", "0.5x400", "clear", "0.3x60 0.7x60"});
    return "wait " + std::to_string(onceIn(5) ? any(40000) : any(1500));
}

/// The answer No to these would end the program.
std::string answer() {
    const MessageBox& box = openBoxes::newest()->box;
    const bool last = box.title == "All Patients Diagnosed" || box.title == "Problems opening table";
    return "answer " + (last ? "Yes" : anyOf(openBoxes::buttonsOf(box)));
}

std::string nextAct() {
    if (windows::boxInFront() && !onceIn(4)) return answer();
    if (onceIn(4)) return timePasses();
    std::vector<const Control*> able;
    std::vector<const Control*> others;
    for (const Control* control : allControls()) {
        if (control == &frmLogin.cmdQuit || control->kind == Kind::Timer || control->kind == Kind::Line)
            continue;
        const bool idle = control->kind == Kind::Label && !control->on.doubleClick;
        (windows::refusal(*control).empty() && !idle ? able : others).push_back(control);
    }
    return actOn(*anyOf(able.empty() || onceIn(12) ? others : able));
}

void note(const Control& control, Property property) {
    static const std::map<Property, std::string> names{
        {Property::Box, "height"},        {Property::Visible, "visible"}, {Property::Enabled, "enabled"},
        {Property::Caption, "caption"},   {Property::Text, "text"},       {Property::Selection, "selStart"},
        {Property::Items, "items"},       {Property::Value, "value"},     {Property::Range, "max"},
        {Property::Interval, "interval"}, {Property::Columns, "columns"}, {Property::Focus, "focus"},
        {Property::Design, "visible"}};
    std::string name = names.at(property);
    if (name == "selStart" && control.kind == Kind::ComboBox) return;
    if (name == "selStart" && control.kind == Kind::ListBox) name = "selected";
    changed.insert(fullName(control) + "." + name);
}

/// Asks for some of what has changed, and for a field of the run.
void look() {
    static const Texts fields{
        "score",        "health",      "eventCount", "diagnosisStateId", "patients(0).status",
        "monitorIndex", "guessRow",    "penalty",    "scoreChangeText",  "patientSaved",
        "harmed",       "savedBeliefs"};
    for (std::size_t i = 0; i < std::min<std::size_t>(changed.size(), 6); ++i)
        ahead.push_back("get " + anyOf(changed));
    changed.clear();
    if (onceIn(3)) ahead.push_back("state " + anyOf(fields));
}

/// The scenarios take turns with the seeds.
void openSession(std::uint64_t seed) {
    watchControls(note);
    const Texts& scenarios = frmLogin.cboType.items;
    ahead = {"type frmLogin.txtName " + anyOf(Texts{"ada", "bob"}),
             "choose frmLogin.cboType " + quoted(scenarios[seed % scenarios.size()]),
             "click frmLogin.cmdOk",
             "try type frmNewSubject.txtAge 30",
             "try choose frmNewSubject.boxMajor Art",
             "try click frmNewSubject.btnBegin"};
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app{"Walks through Tavix."};
    scriptedHost::Start start{".", "2026-01-05 09:30:00"};
    std::uint64_t seed = 1;
    int actions = 300;
    std::string scriptFile;
    app.add_option("--folder", start.folder);
    app.add_option("--seed", seed);
    app.add_option("--actions", actions);
    app.add_option("--script", scriptFile, "what was played, for another program");
    CLI11_PARSE(app, argc, argv);

    numbers.seed(static_cast<unsigned>(seed));
    std::ofstream script(scriptFile);
    bool begun = false;
    const auto nextLine = [&]() -> std::optional<std::string> {
        if (!begun) openSession(seed);
        begun = true;
        if (ahead.empty()) look();
        if (ahead.empty() && onceIn(10)) habit();
        if (ahead.empty()) ahead.push_back("try " + nextAct());
        const std::string line = ahead.front();
        ahead.pop_front();
        if (line.starts_with("try") && --actions < 0) return std::nullopt;
        script << line << '\n';
        return line;
    };
    return player::playSession(nextLine, start, seed);
}
