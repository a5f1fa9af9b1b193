#include "pilot/session.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <stdexcept>
#include <tuple>

#include "forms/frmDiagnosis.h"
#include "forms/frmLogin.h"
#include "forms/frmNewSubject.h"
#include "forms/frmOptions.h"
#include "forms/frmTavix.h"
#include "forms/person.h"
#include "forms/windows.h"
#include "pilot/eyes.h"
#include "pilot/hands.h"
#include "platform/fault.h"
#include "platform/randomSource.h"
#include "screens/wiring.h"
#include "stage/openBoxes.h"
#include "stage/scriptedHost.h"
#include "stage/virtualTime.h"
#include "trial/run/run.h"

namespace session {

namespace {

constexpr std::uint32_t millisecondsInMinute = 60'000;
constexpr int triesBeforeLeast = 3;  // of one diagnosis, until the least that it takes is stated
constexpr int triesBeforeCancel = 6;

/// What is going on with the subject at the desk.
struct Desk {
    const Setup& setup;
    const Subject& subject;
    Hands hands;
    Chance chance;
    Mind mind = {};
    Task task = {};
    int patient = 1;
    std::uint32_t patientSince = 0;
    int prescribed = 0;
    int committed = 0;
    std::optional<std::vector<Belief>> stated = {};  ///< what is to be entered into the diagnosis
    int tries = 0;
    bool wentHome = false;
    bool done = false;
};

Desk* desk = nullptr;  // of the session under way

/// Unwinds out of every wait when the program ends.
struct SessionEnd : std::exception {};

void goHome() { person::close(frmTavix.form); }

void leaveOverdue(Desk& d) {
    const std::uint32_t most = static_cast<std::uint32_t>(d.setup.limit) * millisecondsInMinute;
    if (virtualTime::milliseconds() - d.patientSince <= most) return;
    d.wentHome = true;
    goHome();
}

/// Only the moderator's question at the end of the roster is a reason to say yes: the others ask whether a
/// failure is to be tried once more.
void answerBox(Desk& d) {
    const MessageBox& box = openBoxes::newest()->box;
    const bool roster = box.title == "All Patients Diagnosed";
    const Answer answer = box.buttons == Buttons::Ok ? Answer::Ok : roster ? Answer::Yes : Answer::No;
    hands::read(d.hands, box.text);
    if (windows::boxInFront()) scriptedHost::answerBox(answer);
}

void signIn(Desk& d) {
    hands::type(d.hands, frmLogin.txtName, d.subject.name);
    hands::chooseLine(d.hands, frmLogin.cboType, d.subject.scenario - 1);
    hands::press(d.hands, frmLogin.cmdOk);
}

void answerQuestions(Desk& d) {
    hands::choose(d.hands, frmNewSubject.boxMajor, "Other");
    hands::type(d.hands, frmNewSubject.txtAge, "0");
    hands::type(d.hands, frmNewSubject.txtHistory, "simulated subject: " + d.subject.policy->name);
    hands::press(d.hands, frmNewSubject.btnBegin);
}

/// What may let a subject who waits look up.
auto glance(const Desk& d) {
    return std::tuple(frmTavix.cmdNextPatient.visible, frmTavix.cmdIssue.enabled,
                      frmTavix.fraTreatment.visible, d.committed, d.patient);
}

void wait(const Desk& d, int milliseconds) {
    const auto before = glance(d);
    virtualTime::pass(std::max(milliseconds, 1), [&] { return glance(d) != before; });
}

Act askMind(Desk& d) {
    if (!d.mind) {
        const bool knows = d.subject.policy->knowsTables;
        d.task = eyes::readTask();
        d.mind = d.subject.policy->mindOf(
            {d.task, knows ? eyes::readTables() : Tables{}, d.setup.parameters, d.chance});
    }
    Sight sight = eyes::look();
    sight.patient = d.patient;
    sight.timesPrescribed = d.prescribed;
    sight.millisecondsOnPatient = static_cast<int>(virtualTime::milliseconds() - d.patientSince);
    return d.mind(sight);
}

/// The diagnosis is open: enters what is to be stated. What has been refused again and again gives way to the
/// least that the dialog takes, and that to its Cancel.
void diagnose(Desk& d) {
    if (!d.stated) {
        const Act act = askMind(d);
        if (act.kind == Act::Kind::Diagnose) {
            d.stated = act.beliefs;
        } else if (windows::isUsable(frmDiagnosis.cmdCancel)) {
            return hands::press(d.hands, frmDiagnosis.cmdCancel);
        } else {
            return wait(d, act.milliseconds);
        }
    }
    if (++d.tries > triesBeforeCancel && windows::isUsable(frmDiagnosis.cmdCancel)) {
        hands::press(d.hands, frmDiagnosis.cmdCancel);
    } else if (d.tries > triesBeforeLeast) {
        hands::stateLeast(d.hands, d.task.diseases.front());
    } else {
        hands::stateBeliefs(d.hands, *d.stated, d.task.yoked || d.task.normalized);
    }
    if (frmDiagnosis.form.visible) return;
    ++d.committed;
    d.stated.reset();
    d.tries = 0;
}

void carryOut(Desk& d, const Act& act) {
    switch (act.kind) {
        case Act::Kind::Wait: wait(d, act.milliseconds); break;
        case Act::Kind::Note: hands::note(d.hands, act.text); break;
        case Act::Kind::Issue: hands::issue(d.hands, act.index); break;
        case Act::Kind::Diagnose:
            d.stated = act.beliefs;
            hands::hesitate(d.hands);
            // A diagnosis that was forced meanwhile has taken them down.
            if (d.stated) person::press(frmTavix.cmdDiagnosis);  // comes back when the dialog is closed
            break;
        case Act::Kind::Prescribe:
            hands::prescribe(d.hands, act.index);
            ++d.prescribed;
            break;
    }
}

void goOn(Desk& d) {
    hands::read(d.hands, frmTavix.lblNewScore.caption);
    if (d.patient >= d.setup.trials) {
        d.done = true;
        goHome();
    }
    ++d.patient;
    d.prescribed = 0;
    d.stated.reset();
    d.tries = 0;
    d.patientSince = virtualTime::milliseconds();
    person::press(frmTavix.cmdNextPatient);
}

void act(Desk& d) {
    leaveOverdue(d);
    const Control* front = windows::topModal();
    if (windows::boxInFront()) {
        answerBox(d);
    } else if (front == &frmLogin.form) {
        signIn(d);
    } else if (front == &frmNewSubject.form) {
        answerQuestions(d);
    } else if (front == &frmOptions.form) {
        hands::press(d.hands, frmOptions.cmdStart);
    } else if (front == &frmDiagnosis.form) {
        diagnose(d);
    } else if (windows::isUsable(frmTavix.cmdNextPatient)) {
        goOn(d);
    } else {
        carryOut(d, askMind(d));
    }
}

/// One step of the subject. What the screen refuses is looked at anew.
void step() {
    try {
        act(*desk);
    } catch (const Refused&) {
        if (windows::topModal() != &frmDiagnosis.form) desk->stated.reset();
        hands::hesitate(desk->hands);
    }
}

std::uint64_t numberOf(const std::string& name) {
    std::uint64_t number = 0;
    for (const char c : name) number = number * 31 + static_cast<unsigned char>(c);
    return number;
}

}  // namespace

std::string play(const Setup& setup, const Subject& subject) {
    const auto chanceOf = [&](std::uint64_t use) {
        return chance::of({setup.seed, numberOf(subject.policy->name),
                           static_cast<std::uint64_t>(subject.scenario),
                           static_cast<std::uint64_t>(subject.number), use});
    };
    wiring::wireForms();
    Chance program = chanceOf(0);
    randomSource::fixState(chance::bits(program));
    if (!scriptedHost::begin({setup.folder, setup.now}, {step, {}}))
        throw std::runtime_error("--now: \"" + setup.now + "\" is no date and time (2026-01-05 09:30:00)");
    host() = scriptedHost::make();
    host().endProgram = [](int) { throw SessionEnd{}; };
    Desk here{setup, subject, {setup.times, chanceOf(1)}, chanceOf(2)};
    desk = &here;
    try {
        run::startAtSignIn();
        while (true) step();
    } catch (const SessionEnd&) {
        if (here.wentHome) return left;
        return here.done ? complete : ended;
    } catch (const Fault& fault) {
        return faulted + std::to_string(fault.number) + ": " + fault.text;
    }
}

}  // namespace session
