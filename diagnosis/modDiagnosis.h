// The flow of the diagnosis dialog: how it opens, what its buttons do, how a commit changes the trial.
#pragma once

#include "platform/checkedInteger.h"

namespace modDiagnosis {

/// Pages of tabTavix on which a commit ends.
constexpr int testsPage = 1;
constexpr int treatmentsPage = 2;

/// Click of cmdDiagnosis and of cmdChange: with TimeStopDiagnosis time stands still, and the dialog is shown
/// modally.
void makeDiagnosis();

/// Timer of tmrForceDiagnosisAfterTest: opens a dialog that cannot be cancelled. From the end of the trial on
/// it opens nothing: a frozen dialog whose buttons nobody has enabled could not be left.
void forceDiagnosis();

/// Click of cmdTests and of cmdDiagnose: judges the rows, takes the guess, records it, and without
/// treatments ends the trial. `page` is where the main screen ends up. Where the beliefs cannot be rescaled
/// nothing is changed or written, the dialog stays open, and lblError says so.
void commitDiagnosis(Int16 page);

/// Click of cmdCancel: the rows go back to the last commit, always. Time goes on again only in the
/// all-diseases mode; in the ordinary one a time stop lasts until the next commit.
void cancelDiagnosis();

/// Click of cmdViewNorm, after the trial: the dialog beside the main screen, for looking only.
void viewNormalized();

}  // namespace modDiagnosis
