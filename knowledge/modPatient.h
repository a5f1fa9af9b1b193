// The roster: simulated people with a face, a description and a starting health, read once. Who comes next
// is drawn among those not yet treated in this cycle.
#pragma once

#include <string>

namespace modPatient {

/// Reads the roster, and the last trial number and score of the subject.
void loadPatients();

/// Chooses and shows the next person and draws the case. At the end of the roster the moderator is asked
/// (unless CyclePatients is on); any answer but Yes ends the program. After 50 misses it gives up and the
/// old case stays. An empty roster, or a picture or introduction that cannot be read, is a fault.
void nextPatient();

/// The whole text of a file in the folder of patients, each line ending in a carriage return and a line feed.
std::string readIntroFile(const std::string& name);

}  // namespace modPatient
