// Patients whom nobody treats, played through the real screens in virtual time: what the benches of trials
// measure.
#pragma once

#include <string>

namespace silentPatients {

constexpr int startHealth = 75;

/// Makes a study in `folder` with the tables and pictures of the sample, which is read in `sample/` of the
/// current folder.
void makeStudy(const std::string& folder);

/// Signs a subject in and plays the first patient. Every patient after it starts at `startHealth`.
void begin(const std::string& folder);

/// Plays so many patients, each from `startTrial` to death.
void play(int count);

}  // namespace silentPatients
