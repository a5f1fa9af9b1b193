// Sign-in and questionnaire: a name check without a password. A new name answers the questionnaire and is
// recorded, a known one goes straight on.
#pragma once

namespace signIn {

/// Ok is enabled while the name is given and the scenario is on the list.
void judgeEntries();

/// A change of the name alone enables Ok by the name alone: a scenario that is not on the list is refused by
/// the press of Ok.
void judgeName();

/// Ok; a new name answers the questionnaire first.
void acceptSignIn();
/// Enter in the name: Ok, where Ok would be enabled by both entries.
void acceptValidEntries();
void quitSignIn();

/// The questionnaire's Begin: judges the answers, and records the subject.
void beginStudy();
void cancelQuestionnaire();

/// The limit is judged before the key acts; a text that is longer already (it was pasted) is cut.
bool keyInHistory(int code);

/// Whether `subjectName` has no row in SubjectInfo, letter case aside.
bool isNewSubject();

/// Adds the row of a new subject from the questionnaire's controls.
void recordSubject();

}  // namespace signIn
