// A walk: presses anything anywhere, in any order, in legal and in refused ways, and looks at what has
// changed after each act and at what must hold (tests/walkRules). It plays itself on the records of the
// headless program and writes down the script of what it did, for the desktop's twin. The same seed walks the
// same way. A wide walk also types odd texts, closes windows, lets hours pass and signs in as several people.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <deque>
#include <fstream>
#include <iostream>
#include <map>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "forms/frmDiagnosis.h"
#include "forms/frmLogin.h"
#include "forms/frmTavix.h"
#include "forms/windows.h"
#include "headless/player.h"
#include "stage/openBoxes.h"
#include "tests/walkRules.h"

namespace {

using Texts = std::vector<std::string>;

std::minstd_rand numbers;
std::deque<std::string> ahead;  ///< lines that come before the next choice
std::set<std::string> changed;  ///< since the last look
bool wide = false;

std::size_t any(std::size_t count) { return numbers() % count; }
bool onceIn(std::size_t times) { return any(times) == 0; }

template <class Items>
auto anyOf(const Items& items) {
    return *std::next(std::begin(items), static_cast<std::ptrdiff_t>(any(std::size(items))));
}

std::string quoted(const std::string& text) { return '"' + text + '"'; }
std::string itemOf(const Control& list) { return quoted(list.items.empty() ? "none" : anyOf(list.items)); }

/// One of the things that a person can try on this kind of control.
std::string actOn(const Control& control) {
    static const std::map<Kind, Texts> acts{
        {Kind::Button, {"click {0}", "click {0}", "click {0}", "key {0} 13", "key {0} 32", "key {0} 111"}},
        {Kind::TextBox,
         {"type {0} {1}", "paste {0} {1}", "mark {0} {3} {2}", "key {0} 8", "key {0} 13", "key {0} 50",
          "key {0} 252"}},
        {Kind::ComboBox, {"choose {0} {4}", "choose {0} {4}", "choose {0} {4}", "type {0} {1}", "key {0} 8"}},
        {Kind::ListBox, {"dblclick {0}", "pick {0} {5}", "pick {0} {5} {6}"}},
        {Kind::ScrollBar, {"slide {0} {7}"}},
        {Kind::TickBox, {"tick {0}", "untick {0}", "click {0}"}},
        {Kind::OptionButton, {"dblclick {0}", "click {0}"}},
        {Kind::TabControl, {"tab {0} {8}"}},
        {Kind::Label, {"dblclick {0}"}}};
    static const Texts texts{"",    "tired", "fièvre à 39", "7",     "0.5",       "59",
                             "-1e", " x ",   "60 %",        "a\\nb", "\\\"_*\\\""};
    const auto found = acts.find(control.kind);
    if (found == acts.end()) return "click " + fullName(control);
    const std::size_t lines = control.items.size() + 1;
    const auto values = static_cast<std::size_t>(control.max.toInt() - control.min.toInt()) + 2;
    return fmt::format(fmt::runtime(anyOf(found->second)), fullName(control), quoted(anyOf(texts)), any(110),
                       any(60), itemOf(control), any(lines) / 2, any(lines),
                       control.min.toInt() + static_cast<int>(any(values)), any(3));
}

void plan(const Texts& acts) {
    for (const std::string& act : acts) ahead.push_back("try " + act);
}

/// A few acts that lead on, one after the other.
Texts habit() {
    const std::string name = "choose frmDiagnosis.cboHypothesis(0) " + itemOf(frmDiagnosis.cboHypothesis[0]);
    return anyOf(std::vector<Texts>{
        {name, "click frmDiagnosis.cmdDiagnose"},
        {"click frmTavix.cmdDiagnosis", name, "click frmDiagnosis.cmdAdd(0)"},
        {"choose frmTavix.cboTreatment " + itemOf(frmTavix.cboTreatment), "click frmTavix.cmdPrescribe"},
        {"mark frmTavix.txtIntro 10 40", "click frmTavix.cmdEvidence"},
        {"type frmTavix.txtReasoning cough", "key frmTavix.txtReasoning 13"}});
}

std::string anyName() {
    return anyOf(Texts{"ada", "ada", "bob", "bob", "Zoë K", "\"  ada \"", "BOB", "\"\"", "o'neil"});
}

Texts signIn(const std::string& name, const std::string& scenario) {
    return {"type frmLogin.txtName " + name,
            "choose frmLogin.cboType " + scenario,
            "click frmLogin.cmdOk",
            "type frmNewSubject.txtAge 30",
            "choose frmNewSubject.boxMajor Art",
            "click frmNewSubject.btnBegin"};
}

/// As many notes as make the list full in a few goes; none of them lets time pass.
Texts manyNotes() {
    Texts acts{"tab frmTavix.tabTavix 0"};
    for (std::size_t i = any(40); i > 0; --i) {
        acts.push_back("paste frmTavix.txtReasoning \"note " + std::to_string(any(30)) + "\"");
        acts.push_back("click frmTavix.cmdNoteSymptom");
    }
    return acts;
}

Texts allRows() {
    Texts acts{"click frmTavix.cmdDiagnosis"};
    for (int i = 0; i < 3; ++i) {
        const std::string row = "(" + std::to_string(i) + ")";
        acts.push_back("type frmDiagnosis.cboHypothesis" + row + " " + itemOf(frmDiagnosis.cboHypothesis[0]));
        acts.push_back("slide frmDiagnosis.hsbBelief" + row + " " + std::to_string(any(101)));
        acts.push_back("click frmDiagnosis.cmdAdd" + row);
    }
    acts.push_back("click frmDiagnosis.cmdDiagnose");
    return acts;
}

/// What goes further than a subject does. Most of it leads on, so it comes in several acts.
Texts wideActs() {
    static const Texts odd{"it's", "o'\\\"; --", "1e10",        "-99999", "юж 日本 🩺",
                           "100",  "13",         "999999999999"};
    const auto signsIn = [] { return signIn(anyName(), itemOf(frmLogin.cboType)); };
    if (frmLogin.form.visible && !onceIn(3)) return signsIn();
    switch (any(10)) {
        case 0: return {"close " + anyOf(Texts{"frmDiagnosis", "frmOptions", "frmNewSubject", "frmSplash"})};
        case 1: return {onceIn(8) ? "close " + anyOf(Texts{"frmTavix", "frmLogin"}) : "wait 1"};
        case 2: return {"wait " + std::to_string(any(600'000))};
        case 3: return {"draw clear", "draw 0.99x4000", "wait 60000"};
        case 4: return manyNotes();
        case 5: return allRows();
        case 6: return {"key " + anyOf(Texts{"frmTavix.cmdRemove", "frmTavix.cmdNextPatient"}) + " 111"};
        case 7: return {"click frmTavix.cmdDiagnosis", "wait " + std::to_string(any(100'000))};
        case 8: {
            const Control& control = *anyOf(allControls());
            const bool holds = control.kind == Kind::TextBox || control.kind == Kind::ComboBox;
            return {(holds ? "paste " + fullName(control) + " " : "type frmOptions.txtInitScore ") +
                    quoted(anyOf(odd))};
        }
        default: return {"click frmOptions.cmdStart", "click frmTavix.cmdNextPatient"};
    }
}

/// Time passes, boxes are answered, and the rest is anything. The answer No to two boxes ends the program.
std::string nextAct() {
    if (windows::boxInFront() && !onceIn(4)) {
        const MessageBox& box = openBoxes::newest()->box;
        const bool last = box.title == "All Patients Diagnosed" || box.title == "Problems opening table";
        const bool stays = last && !(wide && onceIn(3));
        return "answer " + (stays ? "Yes" : anyOf(openBoxes::buttonsOf(box)));
    }
    if (onceIn(16)) return "draw " + anyOf(Texts{"0x250", "0.99x250", "0.5x400", "clear", "0.3x60 0.7x60"});
    if (onceIn(5)) return "wait " + std::to_string(onceIn(5) ? any(40000) : any(1500));
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
    walkRules::note(control, property);
    if (property == Property::Press) return;
    static const std::map<Property, std::string> names{
        {Property::Place, "height"},    {Property::Visible, "visible"}, {Property::Enabled, "enabled"},
        {Property::Caption, "caption"}, {Property::Text, "text"},       {Property::Selection, "selStart"},
        {Property::Items, "items"},     {Property::Value, "value"},     {Property::Range, "max"},
        {Property::Design, "visible"},  {Property::Focus, "focus"},     {Property::Interval, "interval"},
        {Property::Columns, "columns"}};
    const auto name = names.find(property);
    // Not as an exception: it would end the walk as a fault of the program does.
    if (name == names.end()) std::abort();
    const bool list = control.kind == Kind::ListBox && property == Property::Selection;
    changed.insert(fullName(control) + "." + (list ? "selected" : name->second));
}

/// Asks for some of what has changed, and for a field of the run.
void look() {
    static const Texts fields{
        "score",        "health",      "eventCount", "diagnosisStateId", "patients(0).status",
        "monitorIndex", "guessRow",    "penalty",    "scoreChangeText",  "patientSaved",
        "harmed",       "savedBeliefs"};
    for (std::size_t i = 0; i < std::min<std::size_t>(changed.size(), 6); ++i)
        ahead.push_back("try get " + anyOf(changed));
    changed.clear();
    if (onceIn(3)) ahead.push_back((wide ? "try state " : "state ") + anyOf(fields));
}

/// Looks at the whole design, and signs in. The scenarios take turns with the seeds.
void openSession(std::uint64_t seed) {
    watchControls(note);
    for (const Control* control : allControls()) {
        for (const char* property :
             {"caption", "text", "left", "top", "width", "height", "visible", "enabled", "max"})
            ahead.push_back(fmt::format("try get {}.{}", fullName(*control), property));
    }
    const Texts& scenarios = frmLogin.cboType.items;
    const std::string name = wide && onceIn(3) ? anyName() : anyOf(Texts{"ada", "bob"});
    plan(signIn(name, quoted(scenarios[seed % scenarios.size()])));
}

/// What was played, and what came of it.
struct Walked {
    std::ofstream script;
    std::string act;  ///< the last one
    int acts = 0;
} walked;

[[noreturn]] void fail(const std::string& reason) {
    std::cout.flush();
    walked.script.flush();
    std::fprintf(stderr, "after %d acts, the last of them \"%s\": %s\n", walked.acts, walked.act.c_str(),
                 reason.c_str());
    std::_Exit(4);
}

std::string give(const std::string& line) {
    walked.script << line << '\n';
    const bool looks = line.starts_with("try get ") || line.starts_with("try state ");
    if (line.starts_with("try ") && !looks) {
        walked.act = line;
        ++walked.acts;
    }
    return line;
}

/// Looks at all that must hold, if there was an act since the last look.
void judge() {
    static int judged = 0;
    if (judged == walked.acts) return;
    judged = walked.acts;
    const std::string wrong = walkRules::broken();
    if (!wrong.empty()) fail(wrong);
}

std::optional<std::string> nextLine(std::uint64_t seed, int& choices) {
    static bool begun = false;
    if (!begun) {
        walkRules::begin();
        openSession(seed);
    }
    begun = true;
    judge();
    if (ahead.empty()) look();
    if (ahead.empty() && onceIn(10)) plan(habit());
    if (ahead.empty() && --choices < 0) {
        walked.act.clear();
        return std::nullopt;
    }
    if (ahead.empty()) plan(wide && onceIn(12) ? wideActs() : Texts{nextAct()});
    const std::string line = ahead.front();
    ahead.pop_front();
    return give(line);
}

/// Judges the end; a line for the tally: acts, and the name of the end.
std::string endOf(const std::string& report) {
    const std::string end = walkRules::endName(walked.act, report);
    if (end.empty()) fail("an end that nobody knows: " + report);
    const std::string wrong = walkRules::brokenRows();
    if (!wrong.empty()) fail(wrong);
    return std::to_string(walked.acts) + "\t" + end + "\n";
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app{"Walks through Tavix."};
    scriptedHost::Start start{".", "2026-01-05 09:30:00"};
    std::uint64_t seed = 1;
    int actions = 300;
    std::string scriptFile;
    std::string tallyFile;
    app.add_option("--folder", start.folder);
    app.add_option("--seed", seed);
    app.add_option("--actions", actions);
    app.add_option("--script", scriptFile, "what was played, for another program");
    app.add_option("--tally", tallyFile, "a line is added: how many acts, and how it ended");
    app.add_flag("--wide", wide);
    CLI11_PARSE(app, argc, argv);

    numbers.seed(static_cast<unsigned>(seed));
    walked.script.open(scriptFile);
    std::ostringstream report;
    std::streambuf* const errors = std::cerr.rdbuf(report.rdbuf());
    const int status = player::playSession([&] { return nextLine(seed, actions); }, start, seed);
    std::cerr.rdbuf(errors);
    std::cerr << report.str();
    const std::string line = endOf(report.str());
    std::ofstream(tallyFile, std::ios::app) << line;
    return status;
}
