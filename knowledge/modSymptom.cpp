#include "knowledge/modSymptom.h"

#include "forms/frmTavix.h"
#include "forms/keys.h"
#include "forms/windows.h"
#include "platform/host.h"
#include "platform/numberText.h"
#include "platform/text.h"
#include "state/TrialState.h"
#include "store/layer/openTable.h"
#include "store/record/modAppRecord.h"

namespace modSymptom {

namespace {

constexpr int mostNotes = 100;
constexpr int evidenceLimit = 100;  // the message names it as the maximum; the last length taken is one less
constexpr int reasoningLimit = 50;
constexpr int prefixLength = 4;  // "07) "; a fifth character from the hundredth note on is not allowed for
constexpr int storedFlag = 6;    // any number but 0 marks

std::string numbered(int position, const std::string& note) {
    return numberText::padded(position, 2) + ") " + note;
}

std::string noteOf(int line) {
    return text::mid(frmTavix.lstSymptoms.items.at(static_cast<std::size_t>(line)), prefixLength);
}

int lineCount() { return static_cast<int>(frmTavix.lstSymptoms.items.size()); }

void recordSymptomNote(const std::string& note, bool fromIntro) {
    const Int16 number = fromIntro ? trialState.evidenceCount : trialState.noteSymptomCount;
    const std::string eventId = modAppRecord::recordEvent("AddSymptom", number, note, false);
    RecordSet notes = openTable("dataGetSymptoms", false, "Recording Add Symptom " + note);
    notes.AddNew();
    notes.Fields("EventID") = eventId;
    notes.Fields("ListItem") = note;
    if (fromIntro) notes.Fields("FromIntro") = storedFlag;
    notes.Update();
}

void markDeleted(const std::string& note) {
    RecordSet notes =
        openTable(std::string("SELECT * FROM [dataGetSymptoms] ") + "WHERE [dataGetSymptoms.EventID] Like '" +
                      modAppRecord::trialStem() + "*' AND NOT [dataGetSymptoms.Deleted] " +
                      "AND [dataGetSymptoms.ListItem]='" + note + "'",
                  false, "Removing symptom from tables");
    if (!notes.isEOF()) {
        notes.Edit();
        notes.Fields("Deleted") = storedFlag;
        notes.Update();
    }
}

}  // namespace

void resetSymptomNotes() {
    trialState.symptomNoteCount = 0;
    trialState.symptomNotes.renew(mostNotes);
}

void noteEvidence() {
    const std::string note = text::trim(selectedText(frmTavix.txtIntro));
    const int length = text::length(note);
    if (length == 0) {
        tell("Please highlight background text you wish to note");
    } else if (length < evidenceLimit) {
        ++trialState.evidenceCount;
        addSymptomNote(note, true);
    } else {
        tell("Length: " + numberText::whole(length) + "  Max: 100\r\nPlease add in parts.",
             "Text highlighted is too long");
    }
    windows::setFocus(frmTavix.txtIntro);
}

void noteReasoning() {
    const std::string note = text::trim(frmTavix.txtReasoning.text);
    if (note.empty()) {
        tell("Please type in comments/reasoning text you wish to note");
    } else {
        ++trialState.noteSymptomCount;
        addSymptomNote(note, false);
        setText(frmTavix.txtReasoning, {});
    }
    windows::setFocus(frmTavix.txtReasoning);
}

bool keyInReasoning(int code) {
    if (text::length(frmTavix.txtReasoning.text) >= reasoningLimit && code != keys::backspace) return false;
    if (code != keys::enter) return true;
    noteReasoning();
    return false;
}

void addSymptomNote(const std::string& note, bool fromIntro) {
    if (lineCount() >= mostNotes) {
        tell("Cannot add more than 100 items.  Please delete some first");
        return;
    }
    addItem(frmTavix.lstSymptoms, numbered(lineCount() + 1, note));
    recordSymptomNote(note, fromIntro);
    trialState.symptomNotes[trialState.symptomNoteCount] = note;
    ++trialState.symptomNoteCount;
}

void removeSelectedNotes() {
    Control& list = frmTavix.lstSymptoms;
    int removed = 0;
    for (int i = 0; i < lineCount();) {
        if (!isSelected(list, i)) {
            ++i;
            continue;
        }
        ++trialState.removeCount;
        removeSymptomNote(i);
        removeItem(list, i);
        ++removed;
    }
    for (int i = 0; i < lineCount(); ++i) setItem(list, i, numbered(i + 1, noteOf(i)));
    if (removed > 0) {
        windows::setFocus(frmTavix.txtIntro);
    } else {
        tell("Please highlight items in Symptoms list to remove");
        windows::setFocus(frmTavix.cmdRemove);
    }
}

void removeSymptomNote(int index) {
    TrialState& s = trialState;
    const std::string note = noteOf(index);
    for (Int16 i = index; i < s.symptomNoteCount - 1; ++i) s.symptomNotes[i] = s.symptomNotes[i + 1];
    --s.symptomNoteCount;
    markDeleted(note);
    modAppRecord::recordEvent("RemoveSymptom", s.removeCount, note, false);
}

}  // namespace modSymptom
