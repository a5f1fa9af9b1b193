// The spine: the one sequence from the start of the program to its end, and the flow of one trial. A trial
// is one patient, from startTrial to the press of cmdNextPatient that leads to the next.
#pragma once

namespace run {

/// Splash, sign-in, loading, first patient. Returns when the first trial is running.
void startApplication();

/// The same without the splash: where nobody looks its counting would be most of a short session's work.
void startAtSignIn();

/// The next patient: the Click of cmdNextPatient.
void startTrial();

/// Stops the timers, freezes the controls, evaluates, shows the feedback and, if `record`, completes the row
/// of the trial with what it shows. The cause has set the patient's status before. The clock moves one more
/// simulated minute here. Last, a box tells of beliefs that could not be rescaled for the score.
void endTrial(bool record);

/// Key "o" on cmdRemove: asks, ends the current patient and brings the options dialog up once.
void abortForOptionsDuringTrial();

/// Key "o" on cmdNextPatient: a further row of the trial table for the finished patient, then the dialog.
void abortForOptionsAfterTrial();

/// The main screen is closed: ends the program with no question and no record.
[[noreturn]] void closeApplication();

/// Puts everything that a run leaves behind back to its start: forms with their handlers and watchers, what
/// is modal, the hooks, the host, queued draws, run state and evaluation texts. The key of the store may
/// stay.
void reset();

}  // namespace run
