// Two sessions in one process leave the same rows as two processes: a run leaves nothing behind for the next.
#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "headless/player.h"
#include "headless/sqlText.h"
#include "store/layer/schema.h"
#include "tests/temporaryStudy.h"

namespace {

/// A new subject's script up to the first patient.
std::string signedIn(const std::string& name, const std::string& scenario) {
    return "type frmLogin.txtName " + name + "\nchoose frmLogin.cboType " + scenario +
           "\nclick frmLogin.cmdOk\ntype frmNewSubject.txtAge 30\n"
           "choose frmNewSubject.boxMajor Art\nclick frmNewSubject.btnBegin\n";
}

std::string allRows(const std::string& folder) {
    host().programFolder = [folder] { return folder; };
    std::string all;
    for (const schema::Table& table : schema::tables())
        all += sqlText::rows("SELECT * FROM " + std::string(table.name));
    return all;
}

TEST(Sessions, OneLeavesNothingForTheNext) {
    // The first ends in the worst place: after a patient who died, the box of the time limit stands over an
    // open dialog, in a tick of the clock, under a wait for more, and draws are left. The second is aborted
    // in a scenario without chances, so that its row would show what the first has left.
    const std::string scripts[] = {
        signedIn("kim", "Plain") +
            "draw 0x150\nwait 10000\nanswer OK\nclick frmTavix.cmdNextPatient\ndraw 0.5x9000\n"
            "dblclick frmTavix.optTest(0)\nclick frmTavix.cmdDiagnosis\n"
            "run 300000 until frmTavix.lblClock.caption = never\nexpect box.text \"Time End\"\n",
        signedIn("lea", "Four") +
            "dblclick frmTavix.optTest(1)\nrun 60000 until frmTavix.cmdIssue.enabled = true\n"
            "key frmTavix.cmdRemove 111\nanswer Yes\nclick frmOptions.cmdStart\nwait 9000\n"
            "type frmTavix.txtReasoning tired\nclick frmTavix.cmdNoteSymptom\n"};
    const TemporaryStudy one;
    const TemporaryStudy each;
    for (const TemporaryStudy* study : {&one, &each})
        study->change("UPDATE tblAppDefault SET FeedbackDiseaseP = 0 WHERE Setting = 'Four'");
    for (const std::string& script : scripts) {
        std::istringstream lines(script);
        EXPECT_EQ(player::playSession(player::linesOf(lines), {one.folder, "2026-01-05 09:30:00"}, 7), 0);
        writeFile(each.folder + "/script", script);
        const std::string program = TAVIX_BIN "/tavix-headless --seed 7 --folder ";
        EXPECT_EQ(std::system((program + each.folder + " " + each.folder + "/script").c_str()), 0);
    }
    EXPECT_EQ(allRows(one.folder), allRows(each.folder));
}

}  // namespace
