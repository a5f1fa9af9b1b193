// What the flow of a run calls on the screens' floor above it. A hook that nobody has set has no effect, so
// the whole flow runs without screens too.
#pragma once

#include <functional>

struct RunHooks {
    std::function<void()> loadOptionsForm;      ///< the options dialog is created, with its title
    std::function<void()> prepareForSignIn;     ///< the monitor's frame loses its caption
    std::function<void()> showTrialFrames;      ///< status line, pages and notes come up
    std::function<void()> setupPatientDisplay;  ///< per patient
    std::function<void()> showFeedback;         ///< after the evaluation
};

RunHooks& runHooks();

/// Runs a hook if it is set.
void runHook(const std::function<void()>& hook);
