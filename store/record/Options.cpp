#include "store/record/Options.h"

#include <array>

#include "forms/frmOptions.h"
#include "platform/numberText.h"

double OptionText::number() const { return numberText::toNumber(box.text); }

const OptionsRecord Options{
    .Time = {frmOptions.hsbLength},
    .SimRate = {frmOptions.hsbRate},
    .StartHour = {frmOptions.txtTime.items[0]},
    .StartMin = {frmOptions.txtTime.items[1]},
    .InitScore = {frmOptions.txtInitScore},
    .TestBuffer = {frmOptions.txtTestBuffer},
    .BeliefBuffer = {frmOptions.txtBeliefBuffer},
    .TestCost = {frmOptions.txtTestCost},
    .MaxBeliefCost = {frmOptions.txtBeliefCost},
    .HealAward = {frmOptions.txtHealAward},
    .CyclePatients = {frmOptions.chkCycle},
    .ShowOptions = {frmOptions.chkOptionsFrequency},
    .DiagnoseAfterTests = {frmOptions.chkForce},
    .TimeStopDiagnosis = {frmOptions.chkStopTime},
    .DiagnoseAllDiseases = {frmOptions.chkDiagnoseAll},
    .YokeBeliefMeters = {frmOptions.chkYoke},
    .Normalize = {frmOptions.chkNormalize},
    .InitToBaseRates = {frmOptions.chkInitToBaseRates},
    .ViewBaseRates = {frmOptions.chkBaseRates},
    .ViewSymptomDisease = {frmOptions.chkSVD},
    .ViewTreatmentDisease = {frmOptions.chkTreatmentTable},
    .DoTreatments = {frmOptions.chkTreatments},
    .OneTreatment = {frmOptions.chkOneTreatment},
    .Risk = {frmOptions.chkRisk},
    .FeedbackSymptomsP = {frmOptions.chkFeedbackSymptom},
    .FeedbackTestsResults = {frmOptions.chkFeedbackTests},
    .FeedbackDiseaseP = {frmOptions.chkDiseaseProbability},
    .UseNormalizeScore = {frmOptions.chkUseNormalize},
    .ShowNormalize = {frmOptions.chkShowNormalize},
    .BestTreatment = {frmOptions.chkBestTreatment},
};

std::span<const TextColumn> textColumns() {
    static constexpr std::array columns{
        TextColumn{"InitScore", &OptionsRecord::InitScore},
        TextColumn{"TestBuffer", &OptionsRecord::TestBuffer},
        TextColumn{"BeliefBuffer", &OptionsRecord::BeliefBuffer},
        TextColumn{"TestCost", &OptionsRecord::TestCost},
        TextColumn{"MaxBeliefCost", &OptionsRecord::MaxBeliefCost},
        TextColumn{"HealAward", &OptionsRecord::HealAward},
    };
    return columns;
}

std::span<const FlagColumn> flagColumns() {
    static constexpr std::array columns{
        FlagColumn{"CyclePatients", &OptionsRecord::CyclePatients},
        FlagColumn{"ShowOptions", &OptionsRecord::ShowOptions},
        FlagColumn{"DiagnoseAfterTests", &OptionsRecord::DiagnoseAfterTests},
        FlagColumn{"TimeStopDiagnosis", &OptionsRecord::TimeStopDiagnosis},
        FlagColumn{"DiagnoseAllDiseases", &OptionsRecord::DiagnoseAllDiseases},
        FlagColumn{"YokeBeliefMeters", &OptionsRecord::YokeBeliefMeters},
        FlagColumn{"Normalize", &OptionsRecord::Normalize},
        FlagColumn{"InitToBaseRates", &OptionsRecord::InitToBaseRates},
        FlagColumn{"ViewBaseRates", &OptionsRecord::ViewBaseRates},
        FlagColumn{"ViewSymptomDisease", &OptionsRecord::ViewSymptomDisease},
        FlagColumn{"ViewTreatmentDisease", &OptionsRecord::ViewTreatmentDisease},
        FlagColumn{"DoTreatments", &OptionsRecord::DoTreatments},
        FlagColumn{"FeedbackSymptomsP", &OptionsRecord::FeedbackSymptomsP},
        FlagColumn{"FeedbackTestsResults", &OptionsRecord::FeedbackTestsResults},
        FlagColumn{"FeedbackDiseaseP", &OptionsRecord::FeedbackDiseaseP},
        FlagColumn{"UseNormalizeScore", &OptionsRecord::UseNormalizeScore},
        FlagColumn{"ShowNormalize", &OptionsRecord::ShowNormalize},
        FlagColumn{"BestTreatment", &OptionsRecord::BestTreatment},
    };
    return columns;
}
