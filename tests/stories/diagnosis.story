# The diagnosis dialog: which names stand, adding and removing, what locks what, where the focus goes, what a
# commit changes on the main screen and in the store, and what a cancel brings back.
@setting All YokeBeliefMeters=yes DiagnoseAllDiseases=yes InitToBaseRates=yes
@setting None DoTreatments=no
@setting Options ShowOptions=yes
# A meter that starts at 1 has changed at the load, so the buttons are there at once.
new rows Plain | patients(0).guess = None | open | T.tabTavix = 1 | D.hsbBelief(0) = 1 | D.cmdTests enabled
D.cmdCancel hidden
FirstTime = true | savedNames = ["Unknown","",""] | commit | D.cboHypothesis(0) focused
D.lblError = Error: Invalid disease, please choose from selection
# names count with their case; the meter comes and goes with them
type D.cboHypothesis(0) aavo | D.hsbBelief(0) hidden | click D.cmdAdd(0) | D.fraHypothesis(1) hidden
# a character replaces the text of a box that has just got the focus, the next one is added
key D.cboHypothesis(0) 65 | key D.cboHypothesis(0) 97 | D.cboHypothesis(0) = Aa
type D.cboHypothesis(0) Aavo | D.hsbBelief(0) D.lblBelief(0) D.lblBeliefMeter(0) shown
# a new row offers what is not named above it, and locks the name above; one without a name goes away again
click D.cmdAdd(0) | D.lblError = "" | D.cmdAdd(0) = Remove Hypothesis | D.cmdAdd(1) D.fraHypothesis(1) shown
D.cboHypothesis(0) disabled | D.cboHypothesis(1).items = ["Brill","Corvex"] | D.cboHypothesis(1) focused
click D.cmdAdd(0) | D.fraHypothesis(1) D.cmdAdd(1) hidden | D.cmdAdd(0) = Add Hypothesis
D.cboHypothesis(0) focused
row 0 Brill | add 1 Corvex | add 2 Aavo | D.cboHypothesis(2).items = ["Aavo"] | D.cmdAdd(0) disabled
type D.cboHypothesis(2) no | commit | D.cboHypothesis(2) focused | diagnosisCount = 0
# removing looks at the rows above only
click D.cmdAdd(1) | D.lblError = "" | D.cmdAdd(0) enabled | D.cboHypothesis(1) focused | add 2 Aavo 20
meter 0 30
meter 1 60 | T.fraHypothesis(0) T.fraTreatment hidden | commit | D hidden | T.tabTavix = 1
T.lblBelief(1) = 0.60
T.fraTreatment T.fraHypothesis(2) shown | T.lblHypothesis(1) = Corvex | T.lblCurrentHypothesis = Corvex 60%
# cancel: three rows come back with names, meters and buttons; the main screen has not moved
click T.cmdChange | D.cmdCancel shown | D.cboHypothesis(2) focused | click D.cmdAdd(1) | D.hsbBelief(2) hidden
row 1 Aavo 5 | meter 0 99 | T.hsbBelief(0) = 30 | cancel | D hidden | D.cboHypothesis(1) = Corvex
D.hsbBelief(0) = 30
D.cboHypothesis(1) D.cmdAdd(0) disabled | D.cboHypothesis(2) D.cmdAdd(1) enabled
D.fraHypothesis(2) D.hsbBelief(2) shown
# a row removed and added again is unnamed and at 1 until the cancel; an uncommitted row goes with it
open | {click D.cmdAdd(1) | *2}D.cboHypothesis(2) = "" | D.hsbBelief(2) = 1 | cancel | D.hsbBelief(2) = 20
D.cboHypothesis(2) = Aavo | open | click D.cmdAdd(1) | click D.cmdDiagnose | T.tabTavix = 2
T.fraHypothesis(2) hidden
click T.cmdChange | add 2 Aavo | cancel | T.tabTavix = 1 | DiagnosisCount = 2 | D.fraHypothesis(2) hidden
D.cmdAdd(1) = Add Hypothesis | D.cboHypothesis(1) enabled
# the next patient begins with a dialog that is not loaded
die | next | T.lblCurrentHypothesis = No Hypothesis Made | T.lblHypothesis(0) = ""
T.fraHypothesis(0) T.fraTreatment hidden
isLoaded = false | open | D.cboHypothesis(0) = Unknown | D.fraHypothesis(1) D.cmdCancel hidden
row 0 Corvex 55 | commit
guessRow = 0
sql SELECT * FROM dataHypotheses
> *
> rows01_001,1,1,3,Brill,30
> rows01_001,1,2,3,Corvex,60
> rows01_001,1,3,3,Aavo,20
> rows01_002,2,1,2,Brill,30
> rows01_002,2,2,2,Corvex,60
> rows02_001,1,1,1,Corvex,55
sql SELECT StateID, H1, H2, H3, ActionNum, Input FROM dataHypothesisState JOIN dataEvents ON DiagnosisID = \
StateID
> *
> rows01_01,30,60,20,1,HypothesisPosition02
> rows01_02,30,60,,2,HypothesisPosition02
> rows02_01,55,,,1,HypothesisPosition01
@start
# Yoked, the meter stands at its design value: nothing can be committed before it is touched. Time goes on
# meanwhile.
new four Four 0x10 0 0 0.99x6 | open | row 0 Aavo | D.lblBelief(0) = 1.00 | D.cmdTests disabled | meter 0 60
FirstTime = false | draw 0.5x16 | wait 1000 | T.lblClock = 01:04 | add 1 Brill 40 | add 2 Corvex
add 3 Dunnit | meter 0 10
meter 2 10 | meter 3 40 | commit | guessRow = 1 | guessBelief = 40 | guessDiseaseIndex = 0
T.lblCurrentHypothesis patients(0).guess = Brill 40%,  Dunnit 40%
@start
# All diseases at once: every row named and locked at the load, 0 is a judgment like any other, and rows at 0
# ahead of the guess leave no trace in its text.
new all All | open | savedBeliefs = [50,30,20] | D.cboHypothesis(1) = Brill
D.cboHypothesis(0) D.cboHypothesis(2) disabled
D.cmdAdd(1) D.cmdCancel hidden | meter 0 0 | meter 1 0 | meter 2 0 | commit
D.lblError = Error: No judgment given
meter 2 60 | commit | D.lblError = "" | T.lblCurrentHypothesis = Corvex 60%
# without base rates and yoking all from 0; the key after the end writes a row of states under the state in
# force
die | draw 0.99 0 0.99x3 | key T.cmdNextPatient 111 | untick O.chkInitToBaseRates | untick O.chkYoke
tick O.chkNormalize | start | open | meter 0 100 | meter 1 1 | commit
sql SELECT * FROM dataHypothesisState WHERE StateID LIKE 'all%'
> *
> all01_00,50,30,20,,,
> all01_01,0,0,60,,,
> all01_01,0,0,60,,,
> all03_00,0,0,0,,,
> all03_01,99,0,0,,,
@start
# Time stands still while the dialog is open: a commit starts it again, a cancel only where all diseases are
# judged.
new stop Options | tick O.chkStopTime | untick O.chkOneTreatment | start | draw 0.5x999 | open | wait 9999
T.tmrClock T.tmrHealth T.tmrHealthMonitor disabled | T.lblClock = 01:00 | commit | T.tmrClock disabled
row 0 Aavo
commit | T.tmrClock T.tmrHealth T.tmrHealthMonitor enabled | open | cancel | wait 60000 | T.tmrClock disabled
click T.cmdChange | click D.cmdDiagnose | wait 250 | T.lblClock = 01:01 | abort | tick O.chkDiagnoseAll | go
open | meter 0 50
commit | open | cancel | T.tmrClock T.tmrHealth T.tmrHealthMonitor enabled
# a commit that ends the patient does not start time
abort | untick O.chkTreatments | go | open | meter 0 50 | commit | answer OK | T.tmrClock disabled
@start
# Without a treatment stage every diagnosis ends the patient, always as a wrong one: the dialog goes, the
# evaluation is made, then the box comes, then the page turns.
new none None | open | D.cmdDiagnose = Finish Diagnosis | row 0 Aavo 100 | click D.cmdDiagnose
D D.cmdCancel hidden
T.cmdNextPatient focused | T.fraFeedback shown | T.tabTavix = 1 | T.tmrHealth.interval = 1
patientSaved = false
patients(0).status = Diagnosed Wrong | wait 1000 | health = 750 | ok Diagnosis was incorrect
T.tabTavix = 2 | T.fraTreatment hidden | D.cmdCancel shown | next | T.tmrHealth.interval = 62
@start
# Looking at the dialog after the trial: beside the main screen, with the beliefs as the score took them,
# nothing to be changed, and buttons that do no more than hide it. The next patient takes it away.
new look Options | tick O.chkShowNormalize | tick O.chkUseNormalize | start | open | row 0 Brill 40
add 1 Aavo 40 | commit
die | click T.cmdViewNorm | D.lblBelief(1) = 0.50 | D.fraHypothesis(0) disabled | D.cmdAdd(0) hidden
tab T.tabTavix 2
commit | D hidden | T.tabTavix = 2 | click T.cmdViewNorm | click D.cmdDiagnose | D hidden
click T.cmdViewNorm | cancel
D hidden | D.hsbBelief(0) = 50 | diagnosisCount = 1 | savedBeliefs = [40,40,0] | click T.cmdViewNorm | next
D hidden
