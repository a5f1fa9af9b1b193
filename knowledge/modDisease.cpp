#include "knowledge/modDisease.h"

#include "forms/frmTavix.h"
#include "platform/host.h"
#include "platform/numberText.h"
#include "platform/text.h"
#include "state/TrialState.h"
#include "store/layer/openTable.h"

namespace modDisease {

using text::blanks;

namespace {

constexpr int termWidth = 15;

/// A percent printed behind "0.": 5 gives 0.05, and 100 gives 0.100.
std::string decimalText(Int16 percent) { return "0." + numberText::padded(percent, 2); }

/// False where the engine says that there are rows and counts none. A scenario without any keeps the table
/// that is there.
bool readDiseaseSymptom() {
    TrialState& s = trialState;
    RecordSet rows = openTable(std::string("SELECT * FROM [tblDiseaseSymptom] ") +
                                   "WHERE [tblDiseaseSymptom.Setting]='" + s.settingName + "'",
                               true, "Retrieving Disease vs Symptom Table");
    if (rows.isEOF()) return true;
    s.symptomCount = rows.recordCount();
    if (s.symptomCount == 0) return false;
    s.diseaseSymptom.renew(s.symptomCount);
    for (ProbabilityRow& row : s.diseaseSymptom) {
        row.initVisible = rows.Fields("InitVisible").isTrue();
        row.count = rows.Fields("Count").short16();
        row.percents = modDisease::readPercents(rows, row.count);
        rows.MoveNext();
    }
    s.tableDiseaseCount = s.diseaseSymptom[0].count;
    return true;
}

}  // namespace

const ProbabilityRow& currentBaseRates() { return trialState.baseRates[trialState.settingIndex]; }

Int16 readPercent(RecordSet& row, Int16 disease, const std::string& suffix) {
    return row.Fields("D" + numberText::whole(disease) + suffix).short16();
}

List<Int16> readPercents(RecordSet& row, Int16 count) {
    if (count < 0) raiseFault(FaultNumber::SubscriptOutOfRange, "a Count of " + numberText::whole(count));
    List<Int16> percents;
    for (Int16 j = 1; j <= count; ++j) percents.add(readPercent(row, j));
    return percents;
}

void loadBaseRates() {
    RecordSet rows =
        openTable(std::string("SELECT * FROM [tblBaseRates] ") + "ORDER BY [tblBaseRates.Setting]", true,
                  "Opening base rates");
    if (rows.isEOF()) return;
    trialState.baseRateRows = rows.recordCount();
    trialState.baseRates.renew(trialState.baseRateRows);
    for (ProbabilityRow& row : trialState.baseRates) {
        row.setting = rows.Fields("Setting").text();
        row.count = rows.Fields("Count").short16();
        row.percents = readPercents(rows, row.count);
        rows.MoveNext();
    }
}

void loadDiseaseSymptom() {
    if (readDiseaseSymptom()) return;
    tell("No Disease Symptom Table for setting " + trialState.settingName, "Error");
    endProgram();
}

std::string baseRateText() {
    const List<Int16>& rates = currentBaseRates().percents;
    std::string text = blanks(4) + decimalText(rates[0]);
    for (Int32 i = 1; i < rates.size(); ++i) text += blanks(14) + decimalText(rates[i]);
    return text + blanks(5) + "Base Rates";
}

std::string symptomDiseaseText() {
    std::string header = " ";
    for (const Disease& disease : trialState.diseaseTerms) {
        header += disease.term + blanks(termWidth - text::length(disease.term));
    }
    setCaption(frmTavix.lblSvD, header);

    std::string table;
    for (Int32 i = 0; i < trialState.diseaseSymptom.size(); ++i) {
        const ProbabilityRow& row = trialState.diseaseSymptom[i];
        table += blanks(4) + decimalText(row.percents[0]);
        for (Int16 d = 1; d < row.count; ++d) table += blanks(11) + blanks(3) + decimalText(row.percents[d]);
        table += blanks(5) + trialState.symptomTerms[i].term + "\r\n";
    }
    return table;
}

std::string symptomDiseaseSummary() {
    std::string text = blanks(2);
    for (Int16 j = 0; j < trialState.diseaseCount; ++j) {
        text += text::left(trialState.diseaseTerms[j].term, 1) + blanks(5);
        if (j % 2 == 0) text += " ";
    }
    text += "\r\n";
    for (const ProbabilityRow& row : trialState.diseaseSymptom) {
        for (const Int16 percent : row.percents) text += decimalText(percent) + " ";
        text += "\r\n";
    }
    return text;
}

}  // namespace modDisease
