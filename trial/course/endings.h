// The causes that end a patient, as one table: the status word, whether the patient counts as saved, the box
// and where it stands in the order of work. A module that meets a cause says only which one it is.
#pragma once

enum class EndCause {
    Death,
    Recovery,
    TimeLimit,
    HelpfulTreatment,
    UselessTreatment,
    RightDiagnosis,
    WrongDiagnosis,
    AbortedByOptions
};

namespace endings {

/// The status of a patient whom the experimenter broke off: it is scored by its tests alone.
inline constexpr const char* aborted = "Aborted by Options";

/// Ends the trial of the current patient: status, `patientSaved`, the run's endTrial and the box titled
/// "Results". At the time limit the box comes before the evaluation, otherwise after it.
void endPatient(EndCause cause);

}  // namespace endings
