#include "tests/busySession.h"

#include <sstream>

std::string busySession(const std::string& subject, int patients) {
    std::ostringstream script;
    script << "type frmLogin.txtName " << subject << "\nchoose frmLogin.cboType Plain\nclick frmLogin.cmdOk\n"
           << "type frmNewSubject.txtAge 30\nchoose frmNewSubject.boxMajor Other\nclick "
              "frmNewSubject.btnBegin\n";
    for (int patient = 0; patient < patients; ++patient) {
        script << "state trialNumber\ndraw clear\ndraw 0.4x200000\n";
        for (int action = 0; action < 5; ++action) {
            script << "type frmTavix.txtReasoning \"note " << action << "\"\nclick frmTavix.cmdNoteSymptom\n"
                   << "state eventCount\n";
        }
        script << "dblclick frmTavix.optTest(0)\nstate eventCount\n"
               << "click frmTavix.cmdDiagnosis\nchoose frmDiagnosis.cboHypothesis(0) Brill\n"
               << "click frmDiagnosis.cmdDiagnose\nstate eventCount\n"
               << "draw clear\nrun 1200000 until frmTavix.cmdNextPatient.visible = true\nanswer OK\nstate "
                  "score\n"
               << "click frmTavix.cmdNextPatient\n";
    }
    return script.str();
}
