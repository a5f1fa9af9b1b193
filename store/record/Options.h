// The option values of the run, under the names of the columns of tblAppDefault. Their one home are the
// controls of frmOptions; Options is how everything else reads and writes them. A reader asks at the moment
// of use and never keeps a copy, so a change in the dialog counts at once.
#pragma once

#include <span>
#include <string>

#include "forms/control.h"

/// A tick box: on only when its value is 1.
struct OptionFlag {
    Control& box;
    explicit operator bool() const { return isTicked(box); }
    void set(bool on) const { setValue(box, on ? 1 : 0); }
};

/// A scroll bar; a value outside its range faults with Invalid property value.
struct OptionRange {
    Control& bar;
    [[nodiscard]] Int16 value() const { return bar.value; }
    void set(Int16 value) const { setValue(bar, value); }
};

/// A text box that holds a number as it was typed.
struct OptionText {
    Control& box;
    [[nodiscard]] const std::string& text() const { return box.text; }
    /// The leading number, 0 if there is none; never faults.
    [[nodiscard]] double number() const;
    void set(const std::string& text) const { setText(box, text); }
};

struct OptionsRecord {
    OptionRange Time;     ///< real minutes per patient, 1 to 30
    OptionRange SimRate;  ///< simulated hours per real minute, 1 to 20
    OptionText StartHour, StartMin;
    OptionText InitScore;  ///< also carries the running score from trial to trial
    OptionText TestBuffer, BeliefBuffer;
    OptionText TestCost, MaxBeliefCost, HealAward;
    OptionFlag CyclePatients, ShowOptions;
    OptionFlag DiagnoseAfterTests, TimeStopDiagnosis, DiagnoseAllDiseases, YokeBeliefMeters, Normalize,
        InitToBaseRates;
    OptionFlag ViewBaseRates, ViewSymptomDisease, ViewTreatmentDisease;
    OptionFlag DoTreatments, OneTreatment, Risk;
    OptionFlag FeedbackSymptomsP, FeedbackTestsResults, FeedbackDiseaseP;
    OptionFlag UseNormalizeScore, ShowNormalize, BestTreatment;
};

extern const OptionsRecord Options;

/// A yes/no column of tblAppDefault and the flag that it switches on.
struct FlagColumn {
    const char* column;
    OptionFlag OptionsRecord::*flag;
};

/// A column that is taken over as text, and the field that holds it.
struct TextColumn {
    const char* column;
    OptionText OptionsRecord::*field;
};

/// In the order in which they are loaded.
std::span<const FlagColumn> flagColumns();
std::span<const TextColumn> textColumns();
