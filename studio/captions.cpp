#include "studio/captions.h"

#include <map>

#include "forms/frmOptions.h"
#include "store/layer/schema.h"
#include "store/record/Options.h"
#include "study/checkStudy.h"

namespace captions {

namespace {

/// The caption that stands left of a box of the options dialog.
std::string captionBeside(const Control& box) {
    for (const Control* control :
         {&frmOptions.lblInitScore, &frmOptions.lblTestBuffer, &frmOptions.lblBeliefBuffer,
          &frmOptions.lblTestCost, &frmOptions.lblBeliefCost, &frmOptions.lblHealAward}) {
        if (control->place.top > box.place.top && control->place.top < box.place.top + box.place.height)
            return control->caption;
    }
    return box.name;
}

/// What the dialog has no caption for that could stand alone has one of ours.
std::map<std::string, std::string> captionsOfOptions() {
    if (frmOptions.form.name.empty()) designFrmOptions();
    std::map<std::string, std::string> all{
        {"Time", frmOptions.lblLengthTitle.caption}, {"SimRate", frmOptions.lblRateTitle.caption},
        {"StartHour", "Starting Time, hour"},        {"StartMin", "Starting Time, minute"},
        {"TreatmentProperty", "Treatments"},         {"TestLengthSetting", "Lengths of the tests"}};
    for (const FlagColumn& flag : flagColumns()) all[flag.column] = (Options.*flag.flag).box.caption;
    for (const TextColumn& text : textColumns()) all[text.column] = captionBeside((Options.*text.field).box);
    return all;
}

}  // namespace

QString of(const std::string& table, const std::string& column) {
    static const std::map<std::string, std::string> options = captionsOfOptions();
    const schema::Table* known = schema::find(table);
    if (const int disease = known == nullptr ? 0 : schema::seriesNumber(*known, column); disease > 0) {
        const char* part = column.ends_with('+') ? " heals" : column.ends_with('-') ? " harms" : "";
        return QString("disease %1%2").arg(disease).arg(part);
    }
    std::string caption = column;
    for (const auto& [its, words] : options) {
        if (table == "tblAppDefault" && check::sameName(its, column)) caption = words;
    }
    if (caption.ends_with(':')) caption.pop_back();
    return QString::fromStdString(caption);
}

QString ofTable(const std::string& table) {
    static const std::map<std::string, QString> words{{"tblAppDefault", "Scenarios"},
                                                      {"tblBaseRates", "Base rates"},
                                                      {"tblDiseaseSymptom", "Symptoms"},
                                                      {"tblTests", "Lengths of tests"},
                                                      {"tblTreatments", "Treatments"}};
    const auto found = words.find(table);
    return found == words.end() ? QString::fromStdString(table) : found->second;
}

const char* nameColumn(const std::string& table) {
    if (table == "tblPatients") return "Name";
    if (table == "tblVocabulary") return "Term";
    if (table == "tblTreatments") return "Type";
    if (table.starts_with("Subject")) return "Subject";
    return table == "tblTests" ? "SETTING" : "Setting";
}

}  // namespace captions
