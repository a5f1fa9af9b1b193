# One test at a time, from issue to result: message and its three seconds, chart, rows, and the diagnosis that
# is forced. A simulated minute is 250 ms.
@setting Options ShowOptions=yes
new kim Plain 0x9 0 0 0.795 0.305 0.105 0.5x90000
# nothing chosen: only a message, for three seconds of real time; a new message begins them anew
click T.cmdIssue | T.lblTestMessage = Please choose one of the available tests first | T.cmdIssue enabled
T.cmdDiagnosis focused | wait 2000 | click T.cmdIssue | wait 2999 | T.tmrTestMessage enabled | wait 1
T.lblTestMessage = ""
T.tmrTestMessage disabled | T.lblClock = 01:20 | eventCount = 0 | test 2 | T.optTest(2) T.cmdIssue disabled
T.lblTestMessage = Rash test issued | T.lblETA(2) = 02:05
sql SELECT * FROM dataGetTests
> *
> kim01_001,1,3,Rash,Absent
# another one is chosen by the double click, not issued
test 0 | T.optTest(0) = true | testCount = 1 | wait 11000 | T.chartETA(2).columns = ["44","1"]
T.lblTestResult(2) = ""
wait 250 | T.lblTestResult(2) = Absent | T.lblTestMessage = Rash test completed, result: Absent
T.cmdIssue enabled
T.lblClock = 02:05 | T.optTest(2) disabled | wait 2999 | T.tmrTestMessage enabled | wait 1
# by the button: the first that is chosen and available; a used test that is still chosen does not count
click T.cmdIssue | T.lblTestMessage = Pallor test issued | wait 7500 | T.lblTestResult(0) = Present
click T.cmdIssue
testCount = 2 | test 1 | T.chartETA(2).columns = ["45","0"]
# no test is left: the button is enabled all the same, the way back to the tests goes at once, and ten
# milliseconds later the diagnosis cannot be cancelled
open | row 0 Aavo | commit | open | D.cmdCancel D.cmdTests shown
run 5100 until T.lblTestResult(1).caption = Absent | D.cmdTests hidden | wait 9 | D.cmdCancel shown | wait 1
D.cmdCancel hidden | T.cmdIssue enabled | click D.cmdDiagnose | wait 100 | D hidden
D.cmdCancel D.cmdTests shown
# the next patient has all tests again; the last result is the first to need the dialog
die | next 0.99 0 0.795 0.305 0.105 0.5x9999 | T.optTest(0) T.optTest(2) T.cmdIssue enabled
T.optTest(1) = false
T.lblETA(0) T.lblTestResult(0) = "" | T.chartETA(2).columns = ["0","45"] | testCount = 0
test 0 | run 7600 until T.cmdIssue.enabled = true | test 1 | run 5100 until T.cmdIssue.enabled = true | test 2
tab T.tabTavix 0 | isLoaded = false | run 11300 until T.cmdIssue.enabled = true | isLoaded = true | D hidden
wait 10
D shown | T.tabTavix = 1 | D.cmdCancel D.cmdTests hidden
sql SELECT EventID, Trial, SimTime, ActionNum, Input, Output, DiagnosisID FROM dataEvents WHERE Action = \
'Testing'
> *
> kim01_001,1,01:20,1,TestPosition3,0,kim01_00
> kim01_002,1,02:17,2,TestPosition1,-1,kim01_00
> kim01_003,1,02:47,3,TestPosition2,0,kim01_00
> kim02_001,2,01:00,1,TestPosition1,-1,kim02_00
> kim02_002,2,01:30,2,TestPosition2,0,kim02_00
> kim02_003,2,01:50,3,TestPosition3,0,kim02_00
@start
# A test that is still out at the end of the patient shows nothing more.
new lea Options | start | test 1 | abort | T.lblTestResult(1) = ""
# each result forces the diagnosis where it is asked for, in stopped time; the way back stays until none is
# left
tick O.chkForce | tick O.chkStopTime | go 0.99 0 0.995x3 0.5x9999 | test 1 | wait 5010 | D D.cmdTests shown
D.cmdCancel hidden | T.tmrClock disabled | wait 2990 | T.lblTestMessage = "" | T.lblClock = 01:20
row 0 Brill
commit | T.tmrClock enabled | D.cmdCancel shown
# over a question: the dialog comes first, then the answer
test 0 | key T.cmdRemove 111 | wait 7510 | D shown | refused answer No | commit | answer No
# a patient who dies under such a dialog takes dialog and box along, and the question is still there
abort | untick O.chkStopTime | go 0 0 0.995x3 0.5x300 0x150 | test 1 | key T.cmdRemove 111 | wait 5010
D shown
run 99999 until T.cmdNextPatient.visible = true | D hidden | ok Patient Anna Bell has died
box.title = Open Options
patients(0).status = Dead | answer No | T.cmdNextPatient shown
