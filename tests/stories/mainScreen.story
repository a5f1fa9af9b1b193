# The main screen from the sign-in to the next patients: what is on show, enabled and written at each phase.
@setting Options ShowOptions=yes
T.fraScore T.fraFeedback T.cmdNextPatient T.fraDeleteLater T.fraTreatment T.tabTavix T.fraSymptoms hidden
T.lblHealth = "75.0 " | T.lblHealthBorder = "" | new kim Options
# the dialog of the options stands before the first patient: the frames are on show, the patient is not
T.fraStatus T.tabTavix T.fraSymptoms shown | T.caption = Tavix | T.lblPatientName = "" | untick O.chkBaseRates
untick O.chkSVD | untick O.chkTreatmentTable | tick O.chkInitToBaseRates | type O.txtInitScore 1500.7 | click O.cmdStart
T.caption = Medical Task with Doctor kim on Patient ID #1 | T.tabTavix = 0 | T.lblScore = 1500
T.tmrClock T.tmrHealth T.tmrHealthMonitor enabled | T.lblSvD T.lblBaseRates T.txtSvD T.lblHelpHeader hidden
# three tests: the slots behind them are hidden whole; the meters start at the base rates
T.optTest(2) T.chartETA(2) shown | T.optTest(3) T.lblTestTime(3) T.chartETA(3) T.lblETA(3) T.lblTestResult(5) hidden
T.hsbBelief(0) = 50 | T.lblBelief(2) = 20% | T.lblCurrentHypothesis = No Hypothesis Made | T.cboTreatment = ""
# a sign is measured on request, and asking again changes nothing; no event is recorded
T.lblTemp = "" | {dblclick T.lblTemp | T.lblTemp = 36.5 | *2}dblclick T.lblPulse | T.lblPulse = 76 | dblclick T.lblBP
T.lblBP = 120/80 | dblclick T.lblRR | T.lblRR = 18 | eventCount = 0 | note heard | type T.txtReasoning left behind
tab T.tabTavix 2 | test 1 | die
# the end of the patient: the work is frozen, the feedback takes the room of the notes
T.cmdDiagnosis T.cmdChange T.cmdEvidence T.cmdNoteSymptom T.cmdIssue T.cmdPrescribe T.cmdRemove T.cboTreatment disabled
T.lstTreatments T.optTest(0) T.tmrClock T.tmrHealth T.tmrHealthMonitor disabled | T.fraFeedback T.cmdNextPatient shown
T.cmdNextPatient focused | T.lstSymptoms.height = 2400 | T.fraSymptoms.height = 3615 | T.lblHealth = "0.0 "
# the experimenter's key is the small letter; it makes a row of its own, so that the number jumps by two
key T.cmdNextPatient 79 | O hidden | draw 0.99 0 0.995x3 | key T.cmdNextPatient 111 | tick O.chkBaseRates
tick O.chkTreatmentTable | untick O.chkInitToBaseRates | click O.cmdStart | T.tabTavix = 0 | trialNumber = 3
T.fraFeedback T.fraScore T.cmdNextPatient hidden | T.lstSymptoms.height = 5130 | T.lstSymptoms = [] | T.optTest(1) = false
T.txtReasoning T.lblTemp T.lblPulse T.lblBP T.lblRR = "" | T.optTest(1) T.cmdDiagnosis T.cmdRemove T.lstTreatments enabled
T.cmdChange T.cmdPrescribe T.cboTreatment T.cmdEvidence T.cmdNoteSymptom T.cmdIssue T.tmrHealthMonitor enabled
T.lblSvD T.lblBaseRates T.lblHelpHeader shown | T.txtSvD hidden | T.hsbBelief(0) = 0 | T.lblBelief(0) = 00%
T.lblHealth = "0.0 " | abort | untick O.chkBaseRates | tick O.chkSVD | go 0 0 0.995x3 | T.lblSvD T.txtSvD shown
T.lblBaseRates hidden | die
# Enter and blank press the button of the next patient
draw 0.99 0 0.995x3 | key T.cmdNextPatient 13 | trialNumber = 5 | die | draw 0 0 0.995x3 | key T.cmdNextPatient 32
trialNumber = 6
@start ends
close T
@start ends
# Closed under the box of the time limit, which comes before the evaluation: the trial has no end.
back kim Options | slide O.hsbLength 1 | slide O.hsbRate 1 | click O.cmdStart | draw 0.5x240 | wait 60000 | box = Time End
close T
@start ends
new max Options | trialNumber = 0 | close T
@start
sql SELECT Subject, Trial, Result FROM dataTrial WHERE Trial > 6 OR Subject = 'max'
> *
> kim,7,
