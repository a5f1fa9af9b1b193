#include "forms/frmDiagnosis.h"

FrmDiagnosis frmDiagnosis;

namespace {

void designRow(int i) {
    FrmDiagnosis& f = frmDiagnosis;
    constexpr std::array<int, 4> startValues{100, 50, 33, 25};
    constexpr std::array<const char*, 4> startTexts{"1.00", "0.50", "0.33", "0.25"};
    const auto row = static_cast<std::size_t>(i);

    design::place({&f.form}, NAMED_AT(f, fraHypothesis, i), Kind::Frame,
                  {1680, 120 + 1080 * static_cast<float>(i), 4095, 975}, "Hypothesis")
        .visible = i == 0;
    const design::Container frame{&f.fraHypothesis[i]};
    design::label(frame, NAMED_AT(f, lblSelect, i), {120, 240, 1935, 255}, "Select");
    design::place(frame, NAMED_AT(f, cboHypothesis, i), Kind::ComboBox, {120, 480, 1455, 315}, "Unknown")
        .look.fontSize = 180;
    design::label(frame, NAMED_AT(f, lblBeliefMeter, i), {1680, 240, 975, 255}, "Belief Meter").visible =
        false;
    Control& meter =
        design::scrollBar(frame, NAMED_AT(f, hsbBelief, i), {1680, 480, 1695, 255}, 1, 100, startValues[row]);
    meter.visible = false;
    meter.largeChange = 5;
    Control& belief = design::label(frame, NAMED_AT(f, lblBelief, i), {3480, 480, 495, 255}, startTexts[row]);
    belief.visible = false;
    belief.look = {210, true};
}

}  // namespace

void designFrmDiagnosis() {
    FrmDiagnosis& f = frmDiagnosis;
    design::form(f.form, "frmDiagnosis", "Diagnosis", 5895, 5295);
    const design::Container form{&f.form};
    design::label(form, NAMED(f, lblError), {120, 240, 1455, 855}).look.alarming = true;
    for (int i = 0; i < 4; ++i) {
        designRow(i);
        if (i == 3) break;
        design::button(form, NAMED_AT(f, cmdAdd, i), {120, 1320 + 1080 * static_cast<float>(i), 1455, 855},
                       "Add Hypothesis")
            .visible = i == 0;
    }
    Control& cancel =
        design::button(form, NAMED(f, cmdCancel), {120, 4560, 1935, 615}, "Cancel, discard changes");
    cancel.visible = false;
    cancel.enabled = false;
    design::button(form, NAMED(f, cmdTests), {2160, 4560, 1335, 615}, "Return to Tests").enabled = false;
    Control& diagnose =
        design::button(form, NAMED(f, cmdDiagnose), {3600, 4560, 2175, 615}, "Go to Treatment");
    diagnose.enabled = false;
    diagnose.look = {.fontSize = 240, .bold = true, .primary = true};

    f.DiagnosisCount = 0;
    f.FirstTime = false;
    f.isLoading = false;
    f.isLoaded = false;
    f.savedCount = 0;
    f.savedNames = {};
    f.savedBeliefs = {};
    design::finish(f.form);
}
