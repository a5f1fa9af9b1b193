#include "state/TrialEvaluation.h"
#include "state/TrialState.h"

TrialState trialState;
TrialEvaluation trialEvaluation;
