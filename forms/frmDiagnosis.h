// The diagnosis dialog: four hypothesis rows with their belief meters. Its rows are the live hypotheses,
// there is no other model behind them.
#pragma once

#include "forms/design.h"
#include "platform/list.h"

struct FrmDiagnosis {
    Control form;
    Elements<4> fraHypothesis, lblSelect, cboHypothesis, lblBeliefMeter, hsbBelief, lblBelief;
    Elements<3> cmdAdd;
    Control lblError, cmdCancel, cmdTests, cmdDiagnose;

    Int16 DiagnosisCount;    ///< rows 0 to DiagnosisCount - 1 are the current hypotheses
    bool FirstTime = false;  ///< True from the load to the first change of a belief; nothing reads it
    bool isLoading = false;
    bool isLoaded = false;
    Int16 savedCount;
    List<std::string> savedNames;
    List<Int16> savedBeliefs;
};

extern FrmDiagnosis frmDiagnosis;

/// Also the unloading of the dialog: its state of the last patient is gone.
void designFrmDiagnosis();
