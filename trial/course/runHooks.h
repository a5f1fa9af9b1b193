// What the flow of a run calls on the floors above it, one hook for each. `wiring` sets them all. A hook that
// nobody has set is a fault of the program: what it shows or writes would be missing from the rows without
// a word.
#pragma once

#include <functional>

struct RunHook {
    const char* name;
    std::function<void()> action = {};
};

struct RunHooks {
    RunHook loadOptionsForm{"loadOptionsForm"};          ///< the options dialog is created, with its title
    RunHook prepareForSignIn{"prepareForSignIn"};        ///< the monitor's frame loses its caption
    RunHook showTrialFrames{"showTrialFrames"};          ///< status line, pages and notes come up
    RunHook setupPatientDisplay{"setupPatientDisplay"};  ///< per patient
    RunHook endTrial{"endTrial"};                        ///< freezes, evaluates, shows and records
    RunHook showFeedback{"showFeedback"};  ///< after the evaluation; the row takes what it shows
};

RunHooks& runHooks();

/// Runs a hook. One that is not set faults (Invalid procedure call).
void runHook(const RunHook& hook);
