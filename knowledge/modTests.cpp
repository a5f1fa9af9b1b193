#include "knowledge/modTests.h"

#include "diagnosis/modHypotheses.h"
#include "forms/frmDiagnosis.h"
#include "forms/frmTavix.h"
#include "forms/windows.h"
#include "platform/dial.h"
#include "platform/numberText.h"
#include "state/TrialState.h"
#include "store/layer/openTable.h"
#include "store/record/Options.h"
#include "store/record/modAppRecord.h"

namespace modTests {

using numberText::toNumber;
using numberText::whole;

namespace {

enum ChartColumn { minutesGone = 0, minutesLeft = 1 };

double lengthOf(Int16 index) { return toNumber(frmTavix.lblTestTime[index].caption); }

/// The message's three seconds begin anew.
void say(const std::string& message) {
    setCaption(frmTavix.lblTestMessage, message);
    setEnabled(frmTavix.tmrTestMessage, false);
    setEnabled(frmTavix.tmrTestMessage, true);
}

/// First test that is selected and still available; -1 if there is none.
Int16 selectedTest() {
    for (Int16 i = 0; i < trialState.testTypeCount; ++i) {
        const Control& option = frmTavix.optTest[i];
        if (option.enabled && option.value != 0) return i;
    }
    return -1;
}

void recordIssuedTest(const std::string& eventId, Int16 index) {
    ++trialState.testCount;
    RecordSet tests =
        openTable("dataGetTests", false,
                  "Recording issued test #" + whole(trialState.testCount) + " at position " + whole(index));
    tests.AddNew();
    tests.Fields("EventID") = eventId;
    tests.Fields("Number") = trialState.testCount;
    tests.Fields("Position") = index + 1;
    tests.Fields("Test") = frmTavix.optTest[index].caption;
    tests.Fields("Result") = trialState.tests[index].result;
    tests.Update();
}

void moveChart(Control& chart) {
    const auto moved = [&chart](ChartColumn column, double by) {
        return numberText::general(toNumber(chart.columns[column]) + by);
    };
    setColumn(chart, minutesGone, moved(minutesGone, 1));
    setColumn(chart, minutesLeft, moved(minutesLeft, -1));
}

/// Hour and minute are compared apart and not as one time: the clock moves a minute a tick and meets the
/// exact minute.
bool isDue(const Test& test) {
    return test.issued && !test.completed && !test.pastTwelve && test.etaMinute <= trialState.clockMinute &&
           test.etaHour <= trialState.clockHour;
}

/// No test is left, or each result asks for a diagnosis.
void forceDiagnosis() {
    const bool allIssued = trialState.testCount == trialState.testTypeCount;
    if (!allIssued && !Options.DiagnoseAfterTests) return;
    if (allIssued) {
        modHypotheses::ensureLoaded();
        setVisible(frmDiagnosis.cmdTests, false);
    }
    setEnabled(frmTavix.tmrForceDiagnosisAfterTest, true);
}

void deliver(Int16 index) {
    Test& test = trialState.tests[index];
    test.completed = true;
    setCaption(frmTavix.lblTestResult[index], test.result);
    setEnabled(frmTavix.cmdIssue, true);
    say(frmTavix.optTest[index].caption + " test completed, result: " + test.result);
    forceDiagnosis();
}

}  // namespace

void loadTests() {
    TrialState& s = trialState;
    s.testTypeCount = s.symptomCount;
    s.tests.renew(s.testTypeCount);
    RecordSet rows = openTable("SELECT * FROM tblTests WHERE SETTING='" + s.testLengthSetting + "';", true,
                               "Loading test times");
    for (Int16 i = 0; i < s.testTypeCount && !rows.isEOF(); ++i) {
        setCaption(frmTavix.lblTestTime[i], rows.Fields("Length").text());
        rows.MoveNext();
    }
}

void resetTests() {
    for (Int16 i = 0; i < trialState.testTypeCount; ++i) {
        Test& test = trialState.tests[i];
        Control& option = frmTavix.optTest[i];
        test.name = option.caption;
        test.issued = false;
        test.pastTwelve = false;
        test.completed = false;
        setColumn(frmTavix.chartETA[i], minutesGone, "0");
        setColumn(frmTavix.chartETA[i], minutesLeft, numberText::general(lengthOf(i)));
        setCaption(option, trialState.symptomTerms[i].term);
        setEnabled(option, true);
    }
}

void issueSelected() {
    const Int16 index = selectedTest();
    if (index < 0) {
        say("Please choose one of the available tests first");
    } else {
        setEnabled(frmTavix.optTest[index], false);
        setCaption(frmTavix.lblETA[index], issueTest(index));
        setEnabled(frmTavix.cmdIssue, false);
        say(frmTavix.optTest[index].caption + " test issued");
    }
    windows::setFocus(frmTavix.cmdDiagnosis);
}

void issueByDoubleClick(Int16 index) {
    if (frmTavix.optTest[index].enabled && frmTavix.cmdIssue.enabled) issueSelected();
}

std::string issueTest(Int16 index) {
    TrialState& s = trialState;
    Test& test = s.tests[index];
    const Int16 length = round16(lengthOf(index));
    test.issued = true;
    test.startHour = s.clockHour;
    test.etaHour = s.clockHour;
    test.startMinute = s.clockMinute;
    test.etaMinute = s.clockMinute + length;
    test.result = s.symptomFindings[index].result;
    while (test.etaMinute >= dial::minutesInHour) {
        ++test.etaHour;
        if (test.etaHour > dial::hours) {
            test.etaHour = 1;
            test.pastTwelve = true;
        }
        test.etaMinute -= dial::minutesInHour;
    }
    const std::string eventId = modAppRecord::recordEvent(
        "Testing", s.testCount + 1, "TestPosition" + whole(index + 1), test.result == "Present");
    recordIssuedTest(eventId, index);
    return numberText::clockText(test.etaHour, test.etaMinute);
}

void checkTests() {
    for (Int16 i = 0; i < trialState.testTypeCount; ++i) {
        Test& test = trialState.tests[i];
        if (test.issued && !test.completed) moveChart(frmTavix.chartETA[i]);
        if (test.pastTwelve && trialState.clockHour == 1 && trialState.clockMinute == 0)
            test.pastTwelve = false;
        if (isDue(test)) deliver(i);
    }
}

void clearTestMessage() {
    setCaption(frmTavix.lblTestMessage, {});
    setEnabled(frmTavix.tmrTestMessage, false);
}

std::string allTestNames() {
    std::string names;
    for (Int16 i = 0; i < trialState.testTypeCount; ++i) names += frmTavix.optTest[i].caption + "\r\n";
    return names;
}

}  // namespace modTests
