#include "trial/course/endings.h"

#include <string>

#include "platform/host.h"
#include "state/TrialState.h"
#include "trial/course/runHooks.h"

namespace endings {

namespace {

enum class BoxTime { None, Before, After };

struct Ending {
    const char* status;
    bool saved;
    const char* boxBegins;
    bool namesPatient;
    const char* boxEnds;
    BoxTime boxTime;
};

const Ending& endingOf(EndCause cause) {
    static constexpr Ending table[] = {
        {"Dead", false, "Patient ", true, " has died", BoxTime::After},
        {"Saved", true, "Patient ", true, " has recovered", BoxTime::After},
        {"Time End", false, "Time End", false, "", BoxTime::Before},
        {"Correct Treatment", true, "Helpful Treatment Prescribed", false, "", BoxTime::After},
        {"Wrong Treatment", false, "Uneffective Treatment Prescribed", false, "", BoxTime::After},
        {"Diagnosed Right", true, "Diagnosis was correct", false, "", BoxTime::After},
        {"Diagnosed Wrong", false, "Diagnosis was incorrect", false, "", BoxTime::After},
        {aborted, false, "", false, "", BoxTime::None},
    };
    return table[static_cast<std::size_t>(cause)];
}

}  // namespace

void endPatient(EndCause cause) {
    const Ending& ending = endingOf(cause);
    Patient& patient = trialState.patients[trialState.currentPatient];
    const std::string box =
        ending.boxBegins + (ending.namesPatient ? patient.name : std::string()) + ending.boxEnds;

    if (ending.saved) trialState.patientSaved = true;
    patient.status = ending.status;
    if (ending.boxTime == BoxTime::Before) tell(box, "Results");
    runHook(runHooks().endTrial);
    if (ending.boxTime == BoxTime::After) tell(box, "Results");
}

}  // namespace endings
