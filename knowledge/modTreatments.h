// Treatments: what the subject can prescribe, with the chances to help and to hurt by disease; the list on
// the main screen; and a prescription with its two draws.
#pragma once

namespace modTreatments {

/// The treatments of the chosen scenario and the combo box. An empty selection leaves them as they were.
void loadTreatments();

/// Fills lstTreatments: a header, then one line a treatment. Line k + 1 is treatment k. A disease word of
/// more than 11 characters faults with Invalid procedure call.
void displayTreatments();

/// The treatment with the highest chance to heal the hidden disease, the earliest on a tie.
void chooseBestTreatment();

/// Click of lstTreatments: the selected line goes into the combo box. The header line empties it.
void takeSelectedTreatment();

/// Double click of lstTreatments: takes the line and prescribes it.
void prescribeSelected();

/// Click of cmdPrescribe: draws against the table, records, and with OneTreatment ends the patient.
void prescribe();

}  // namespace modTreatments
