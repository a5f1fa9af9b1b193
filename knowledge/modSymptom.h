// Symptom notes: the subject's numbered list on the current patient, from text highlighted in the
// introduction or in own words. They move neither simulation nor score; every addition and removal is
// recorded at once, and a removal marks the stored row and deletes nothing.
#pragma once

#include <string>

namespace modSymptom {

/// Per patient: the mirror of the list is emptied.
void resetSymptomNotes();

/// Click of cmdEvidence: notes what is highlighted in the introduction, 1 to 99 characters of it.
void noteEvidence();

/// Click of cmdNoteSymptom: notes the subject's own words.
void noteReasoning();

/// A key in txtReasoning, judged before it acts; false swallows it. Fifty characters are the limit, Enter
/// takes the note down, and at the limit Enter is swallowed with the rest.
bool keyInReasoning(int code);

/// Adds a line and its rows; a full list of 100 is refused with a box.
void addSymptomNote(const std::string& note, bool fromIntro);

/// Click of cmdRemove: removes the selected lines and numbers the rest anew.
void removeSelectedNotes();

/// Marks the stored row of one line. Of several equal notes exactly one is marked.
void removeSymptomNote(int index);

}  // namespace modSymptom
