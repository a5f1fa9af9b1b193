#include "knowledge/termOrders.h"

#include <algorithm>
#include <cmath>

#include "forms/frmLogin.h"
#include "knowledge/modDisease.h"
#include "platform/host.h"
#include "platform/randomSource.h"
#include "platform/text.h"
#include "state/TrialState.h"
#include "store/layer/openTable.h"

namespace termOrders {

namespace {

constexpr int mostDiseases = 4;

/// Words of one type in the order of the table, at most `limit` of them; an empty list if there are none.
List<std::string> readTerms(const std::string& type, const std::string& status, Int16 limit) {
    RecordSet rows =
        openTable(std::string("SELECT * FROM [tblVocabulary] ") + "WHERE [tblVocabulary.Type]='" + type + "'",
                  true, status);
    const Int16 count = std::min(limit, rows.recordCount());
    List<std::string> terms;
    for (Int16 i; i < count; ++i, rows.MoveNext()) terms.add(rows.Fields("Term").text());
    return terms;
}

template <class Term>
List<std::string> wordsOf(const List<Term>& terms) {
    List<std::string> words;
    for (const Term& term : terms) words.add(term.term);
    return words;
}

template <class Term>
void putWords(const List<std::string>& words, List<Term>& terms, Int16& count) {
    terms.renew(words.size());
    for (Int32 i = 0; i < words.size(); ++i) terms[i].term = words[i];
    count = words.size();
}

template <class Term>
void deal(List<Term>& terms, Int16& count) {
    List<std::string> words = wordsOf(terms);
    shuffleTerms(words);
    putWords(words, terms, count);
}

/// The first `count` words with a comma between them.
template <class Term>
std::string joined(const List<Term>& terms, Int16 count) {
    std::string list = terms[0].term;
    for (Int16 i = 1; i < count; ++i) list += "," + terms[i].term;
    return list;
}

/// False if the subject has none in this scenario.
bool readTermOrders() {
    TrialState& s = trialState;
    RecordSet orders = openTable(std::string("SELECT DiseaseOrder, TestOrder ") + "FROM [SubjectSettings] " +
                                     "WHERE [Subject]='" + s.subjectName + "' " + "AND [Setting]='" +
                                     frmLogin.cboType.text + "'",
                                 true, "Restoring symptom and disease terms");
    if (orders.isEOF()) return false;
    putWords(termOrders::parseTermList(orders.Fields("DiseaseOrder").text()), s.diseaseTerms, s.diseaseCount);
    putWords(termOrders::parseTermList(orders.Fields("TestOrder").text()), s.symptomTerms,
             s.symptomTermCount);
    return true;
}

}  // namespace

void loadVocabulary() {
    TrialState& s = trialState;
    const Int16 limit = std::min<Int16>(modDisease::currentBaseRates().count, mostDiseases);
    const List<std::string> diseases =
        readTerms("Disease", "Retrieving diseases from vocabulary table", limit);
    if (!diseases.empty()) putWords(diseases, s.diseaseTerms, s.diseaseCount);
    const List<std::string> symptoms = readTerms("Symptom", "Retrieving symptoms from vocabulary table",
                                                 std::numeric_limits<std::int16_t>::max());
    if (!symptoms.empty()) putWords(symptoms, s.symptomTerms, s.symptomTermCount);
    deal(s.symptomTerms, s.symptomTermCount);
    deal(s.diseaseTerms, s.diseaseCount);
    recordTermOrders();
}

void shuffleTerms(List<std::string>& terms) {
    const Int32 count = terms.size();
    for (Int32 i = 0; i < count; ++i) {
        randomSource::reseed(host().milliseconds());
        const auto r = static_cast<float>(randomSource::draw());
        const Int32 j = floor32(r * static_cast<float>((count - i).toInt())) + i;
        std::swap(terms[i], terms[j]);
    }
}

void recordTermOrders() {
    RecordSet orders = openTable("SubjectSettings", false, "Recording symptom and disease terminology");
    orders.AddNew();
    orders.Fields("Subject") = trialState.subjectName;
    orders.Fields("Setting") = frmLogin.cboType.text;
    orders.Fields("TestOrder") = joined(trialState.symptomTerms, trialState.symptomCount);
    orders.Fields("DiseaseOrder") = joined(trialState.diseaseTerms, trialState.diseaseCount);
    orders.Update();
}

void restoreTermOrders() {
    if (!readTermOrders()) loadVocabulary();
}

List<std::string> parseTermList(const std::string& listText) {
    List<std::string> terms;
    std::size_t from = 0;
    for (std::size_t comma = listText.find(','); comma != std::string::npos;
         comma = listText.find(',', from)) {
        terms.add(text::trim(listText.substr(from, comma - from)));
        from = comma + 1;
    }
    const std::string last = listText.substr(from);
    terms.add(from == 0 ? last : text::trim(last));
    return terms;
}

}  // namespace termOrders
