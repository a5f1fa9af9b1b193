// Tests: how the subject learns whether one symptom is present. A test runs for simulated minutes and then
// delivers what has stood fixed since the patient was drawn; one at a time, each once per patient.
#pragma once

#include <string>

#include "platform/checkedInteger.h"

namespace modTests {

/// One test per symptom of the model, with its length in the caption of lblTestTime. More than six tests
/// fault with Subscript out of range if their lengths are stored.
void loadTests();

/// Per patient: all tests available, charts empty, the words of the symptoms as captions.
void resetTests();

/// Click of cmdIssue: issues the selected test that is still available.
void issueSelected();

/// Double click of a test: as cmdIssue, if test and button are enabled.
void issueByDoubleClick(Int16 index);

/// Starts test `index` and records it, result included; returns the time of the result.
std::string issueTest(Int16 index);

/// The third act of each clock tick: moves the charts and delivers results that are due.
void checkTests();

/// Timer of tmrTestMessage: the message has been on show for three seconds.
void clearTestMessage();

/// All names, each with a line break behind it.
std::string allTestNames();

}  // namespace modTests
