#include "screens/signIn.h"

#include <array>

#include "forms/frmLogin.h"
#include "forms/frmNewSubject.h"
#include "forms/keys.h"
#include "forms/windows.h"
#include "platform/host.h"
#include "platform/numberText.h"
#include "platform/text.h"
#include "state/TrialState.h"
#include "store/layer/openTable.h"

namespace signIn {

namespace {

constexpr int historyLimit = 250;
constexpr const char* noMajor = "Major";

constexpr std::array majors{"Architecture",
                            "Art",
                            "Biological Sciences",
                            "Chemical Engineering",
                            "Chemistry",
                            "Civil & Environmental Engineering",
                            "Computer Science",
                            "Design",
                            "Drama",
                            "Economics",
                            "Electrical & Computer Engineering",
                            "Engineering & Public Policy",
                            "English",
                            "History",
                            "Industrial Management",
                            "Materials Science & Engineering",
                            "Mathematical Sciences",
                            "Mechanical Engineering",
                            "Music",
                            "Modern Languages",
                            "Philosophy",
                            "Physics",
                            "Psychology",
                            "Social & Decision Sciences",
                            "Statistics",
                            "Other"};

std::string typedName() { return text::trim(frmLogin.txtName.text); }

bool listed(const Control& comboBox) { return findItem(comboBox, comboBox.text) >= 0; }

bool entriesValid() { return listed(frmLogin.cboType) && !typedName().empty(); }

/// The scenario by its position in the list, -1 for a text that is not on it.
void takeSetting() {
    trialState.settingIndex = findItem(frmLogin.cboType, frmLogin.cboType.text);
    if (trialState.settingIndex >= 0) trialState.settingName = frmLogin.cboType.text;
}

void loadQuestionnaire() {
    designFrmNewSubject();
    setText(frmNewSubject.boxMajor, noMajor);
    for (const char* major : majors) addItem(frmNewSubject.boxMajor, major);
    setCaption(frmNewSubject.lblLogin, trialState.subjectName);
    frmNewSubject.Cleared = false;
}

}  // namespace

void judgeEntries() { setEnabled(frmLogin.cmdOk, entriesValid()); }

void judgeName() { setEnabled(frmLogin.cmdOk, !typedName().empty()); }

void acceptSignIn() {
    if (typedName().empty()) return;
    trialState.subjectName = typedName();
    takeSetting();
    if (trialState.settingIndex < 0) {
        tell("Inappropriate setting.  Please choose from list or update database");
        return;
    }
    if (isNewSubject()) {
        loadQuestionnaire();
        windows::showModal(frmNewSubject.form);
        if (!frmNewSubject.Cleared) {
            windows::setFocus(frmLogin.txtName);
            selectAll(frmLogin.txtName);
            return;
        }
        frmLogin.IsNew = true;
    } else {
        frmLogin.IsNew = false;
    }
    windows::hide(frmLogin.form);
}

void acceptValidEntries() {
    if (entriesValid()) acceptSignIn();
}

void quitSignIn() {
    frmLogin.QuitMe = true;
    windows::hide(frmLogin.form);
}

void beginStudy() {
    if (frmNewSubject.txtAge.text.empty()) {
        tell("Please enter your age");
    } else if (!numberText::isNumeric(frmNewSubject.txtAge.text)) {
        tell("Please enter a numerical value for age");
    } else if (frmNewSubject.boxMajor.text == noMajor || !listed(frmNewSubject.boxMajor)) {
        tell("Please select one of the listed majors");
        windows::setFocus(frmNewSubject.boxMajor);
    } else {
        frmNewSubject.Cleared = true;
        recordSubject();
        windows::hide(frmNewSubject.form);
    }
}

void cancelQuestionnaire() { windows::hide(frmNewSubject.form); }

bool keyInHistory(int code) {
    Control& history = frmNewSubject.txtHistory;
    if (text::length(history.text) < historyLimit || code == keys::backspace) return true;
    setText(history, text::left(history.text, historyLimit));
    select(history, historyLimit, 0);
    return false;
}

bool isNewSubject() {
    RecordSet subjects = openTable("SubjectInfo", true, "New User Check");
    const std::string wanted = text::folded(trialState.subjectName);
    bool known = false;
    for (; !subjects.isEOF() && !known; subjects.MoveNext()) {
        const Field name = subjects.Fields("Subject");  // empty where somebody has edited the table by hand
        known = !name.isNull() && text::folded(name.text()) == wanted;
    }
    return !known;
}

void recordSubject() {
    RecordSet subjects = openTable("SubjectInfo", false, "Recording subject");
    subjects.AddNew();
    subjects.Fields("Subject") = trialState.subjectName;
    subjects.Fields("Major") = frmNewSubject.boxMajor.text;
    subjects.Fields("Gender") = frmNewSubject.optFemale.value != 0 ? "Female" : "Male";
    subjects.Fields("Age") = frmNewSubject.txtAge.text;
    subjects.Fields("Date") = host().today();
    subjects.Fields("Time") = host().timeOfDay();
    subjects.Fields("History") = text::left(frmNewSubject.txtHistory.text, historyLimit);
    subjects.Update();
}

}  // namespace signIn
