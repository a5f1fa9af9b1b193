// The eyes of a simulated subject: what stands on the screen, read from the controls, and what the
// instructions and the tables of the scenario say. Of the patient's disease and findings nothing is read.
#pragma once

#include "pilot/policy.h"

namespace eyes {

/// What stands on the screen now. The numbers that the subject keeps itself are left at 0.
Sight look();

/// What the instructions tell, once options and words are loaded.
Task readTask();

/// The statistics of the scenario in the words of this subject.
Tables readTables();

}  // namespace eyes
