# What a meter refuses is reported and ends nothing, and no focus and no dialog is a trap.
@setting All DiagnoseAllDiseases=yes YokeBeliefMeters=yes Normalize=yes
@setting Score UseNormalizeScore=yes ShowOptions=yes
@setting Force DiagnoseAfterTests=yes YokeBeliefMeters=yes ShowOptions=yes
# a move is undone on the widget too: the same move is refused once more, a step of it is taken
new drag Four 0x10 0 0 0.99x6 | click T.cmdDiagnosis | row 0 Aavo | add 1 Brill | add 2 Corvex
slide D.hsbBelief(0) 75 | slide D.hsbBelief(1) 5 | slide D.hsbBelief(2) 20 | slide D.hsbBelief(0) 95
D.lblError = Error: Step too large, please move in smaller steps | D.hsbBelief(0) = 75 | D.lblBelief(2) = 0.20
slide D.hsbBelief(1) 4 | D.lblError = "" | slide D.hsbBelief(0) 95
D.lblError = Error: Step too large, please move in smaller steps | slide D.hsbBelief(0) 76 | D.lblError = ""
# the reasons of a validation outlive a move
type D.cboHypothesis(2) x | click D.cmdTests | row 2 Corvex | slide D.hsbBelief(0) 75
D.lblError = Error: Invalid disease, please choose from selection
# a cancel succeeds where the rows on their way back would push each other below 1
add 3 Dunnit | slide D.hsbBelief(1) 1 | slide D.hsbBelief(2) 1 | slide D.hsbBelief(0) 97 | click D.cmdTests
savedBeliefs = [97,1,1,1] | click T.cmdDiagnosis | slide D.hsbBelief(0) 1 | slide D.hsbBelief(1) 30
slide D.hsbBelief(2) 30 | slide D.hsbBelief(3) 39 | click D.cmdCancel | D hidden | savedCount = 4
D.hsbBelief(0) = 97 | D.hsbBelief(1) = 1 | D.lblBelief(3) = 0.01
@start
# a commit that cannot rescale writes nothing; the last of all diseases can be saved above the yoked limit
new all All | click T.cmdDiagnosis | slide D.hsbBelief(0) 50 | click D.cmdDiagnose | D shown
D.lblError = Error: Cannot rescale, please make beliefs add up to 1.00 | eventCount = 0
D.lblBelief(0) = 0.50 | slide D.hsbBelief(0) 0 | D.lblError = "" | slide D.hsbBelief(2) 100
click D.cmdTests | click T.cmdDiagnosis | slide D.hsbBelief(2) 10 | click D.cmdCancel | D.hsbBelief(2) = 100
D.hsbBelief(0) = 0
@start
# the score takes such beliefs as they stand; the rows are written when the box tells it, then comes the cause
new late Score | tick O.chkOptionsFrequency | click O.cmdStart | click T.cmdDiagnosis | row 0 Aavo 100
add 1 Brill | click D.cmdTests | draw 0x200 | wait 20000 | T.lblDiseaseNormalized = 1.00 | box.title = Results
sql SELECT Result, Penalty FROM dataTrial WHERE Subject = 'late'
> *
> Dead,41.18
ok Beliefs could not be rescaled and were scored as they stand | ok Patient Anna Bell has died
# at the time limit after it
draw clear | draw 0.99 0 0.99x3 0.5x999 | click T.cmdNextPatient | slide O.hsbRate 1 | slide O.hsbLength 1
type O.txtTime(0) 1 | type O.txtTime(1) 0 | click O.cmdStart | click T.cmdDiagnosis | row 0 Aavo 100
add 1 Brill | click D.cmdTests | wait 60000 | ok Time End
ok Beliefs could not be rescaled and were scored as they stand
@start
# a result that falls due in the last minute opens nothing after the end, and a further test is only asked for
new last Force | slide O.hsbRate 1 | slide O.hsbLength 1 | type O.txtTime(0) 1 | type O.txtTime(1) 0
click O.cmdStart | draw 0.5x999 | wait 30000 | test 0 | wait 30000 | ok Time End | T.lblTestResult(0) = Absent
wait 10 | D hidden | T.tmrForceDiagnosisAfterTest disabled | click T.cmdIssue | trialNumber = 1
# a death under a message that gives the focus afterwards
@start
new kim Plain | click T.cmdRemove | draw 0x200 | wait 20000 | ok Patient Anna Bell has died
ok Please highlight items in Symptoms list to remove | next | diagnose Aavo | click T.cmdPrescribe
draw clear | draw 0x200 | wait 20000 | answer OK | ok Please choose one of the given treatments
