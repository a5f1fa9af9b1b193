# What a meter refuses is reported and ends nothing, and no focus and no dialog is a trap.
@setting All DiagnoseAllDiseases=yes YokeBeliefMeters=yes Normalize=yes
@setting Score UseNormalizeScore=yes ShowOptions=yes SimRate=1 Time=1
@setting Force DiagnoseAfterTests=yes YokeBeliefMeters=yes SimRate=1 Time=1
# a move is undone on the widget too: the same move is refused once more, a step of it is taken
new drag Four 0x10 0 0 0.99x6 | open | row 0 Aavo 75 | add 1 Brill 5 | add 2 Corvex 20
{meter 0 95 | D.lblError = Error: Step too large, please move in smaller steps | D.hsbBelief(0) = 75 | *2}
D.lblBelief(2) = 0.20 | meter 1 4 | D.lblError = "" | meter 0 76 | D.hsbBelief(0) = 76
# the reasons of a validation outlive a move
type D.cboHypothesis(2) x | commit | row 2 Corvex | meter 0 75
D.lblError = Error: Invalid disease, please choose from selection
# a cancel succeeds where the rows on their way back would push each other below 1
add 3 Dunnit | meter 1 1 | meter 2 1 | meter 0 97 | commit
savedBeliefs = [97,1,1,1] | open | meter 0 1 | meter 1 30 | meter 2 30
meter 3 39 | cancel | D hidden | D.hsbBelief(0) = 97 | D.hsbBelief(1) = 1 | D.lblBelief(3) = 0.01
@start
# a commit that cannot rescale writes nothing; the last of all diseases can be saved above the yoked limit
new all All | open | meter 0 50 | click D.cmdDiagnose | D shown | D.lblBelief(0) = 0.50 | eventCount = 0
D.lblError = Error: Cannot rescale, please make beliefs add up to 1.00 | meter 0 0 | D.lblError = ""
meter 2 100 | commit | open | meter 2 10 | cancel | D.hsbBelief(2) = 100
@start
# the score takes such beliefs as they stand; the rows are written when the box tells it, then comes the cause
new late Score | tick O.chkOptionsFrequency | start | open | row 0 Aavo 100 | add 1 Brill | commit
draw 0x200 | wait 40000 | T.lblDiseaseNormalized = 1.00 | box.title = Results
sql SELECT Result, Penalty FROM dataTrial WHERE Subject = 'late'
> *
> Dead,41.18
ok Beliefs could not be rescaled and were scored as they stand | ok Patient Anna Bell has died
# at the time limit after it
next 0.99 0 0.99x3 0.5x999 | start | open | row 0 Aavo 100 | add 1 Brill | commit | wait 60000 | ok Time End
ok Beliefs could not be rescaled and were scored as they stand
@start
# a result that falls due in the last minute opens nothing after the end, and a further test is only asked for
new last Force 0x9 0 0 0.99x3 0.5x999 | wait 30000 | test 0 | wait 30000 | ok Time End
T.lblTestResult(0) = Absent | wait 10
D hidden | T.tmrForceDiagnosisAfterTest disabled | click T.cmdIssue
# a death under a message that gives the focus afterwards
@start
new kim Plain | click T.cmdRemove | draw 0x200 | wait 20000 | ok Patient Anna Bell has died
ok Please highlight items in Symptoms list to remove | next | diagnose Aavo | click T.cmdPrescribe
draw clear | draw 0x200 | wait 20000 | answer OK | ok Please choose one of the given treatments
