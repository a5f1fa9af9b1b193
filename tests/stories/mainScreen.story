# The main screen from the sign-in to the next patients: what is on show, enabled and written at each phase.
@setting Options ShowOptions=yes
T.fraScore T.cmdNextPatient T.fraDeleteLater T.tabTavix hidden | T.lblHealth = "75.0 " | new kim Options
# the dialog of the options stands before the first patient: the frames are on show, the patient is not
T.fraStatus T.tabTavix T.fraSymptoms shown | T.caption = Tavix | T.lblPatientName = "" | untick O.chkBaseRates
untick O.chkSVD | untick O.chkTreatmentTable | tick O.chkInitToBaseRates | type O.txtInitScore 1500.7 | start
T.caption = Medical Task with Doctor kim on Patient ID #1 | T.tabTavix = 0 | T.lblScore = 1500
T.tmrClock T.tmrHealth T.tmrHealthMonitor enabled | T.lblSvD T.lblBaseRates T.txtSvD T.lblHelpHeader hidden
T.optTest(2) shown | T.optTest(3) T.chartETA(3) hidden | T.hsbBelief(0) = 50 | T.lblBelief(2) = 20%
# a sign is measured on request, and asking again changes nothing; no event is recorded
T.lblTemp = "" | {dblclick T.lblTemp | T.lblTemp = 36.5 | *2}key T.lblPulse 32 | T.lblPulse = 76
dblclick T.lblBP
T.lblBP = 120/80 | key T.lblRR 13 | T.lblRR = 18 | eventCount = 0 | note heard
type T.txtReasoning left behind
tab T.tabTavix 2 | test 1 | die
# the end of the patient: the work is frozen, the feedback takes the room of the notes
T.cmdDiagnosis T.cmdChange T.cmdEvidence T.cmdNoteSymptom disabled
T.cmdIssue T.cmdPrescribe T.cmdRemove T.cboTreatment disabled
T.lstTreatments T.optTest(0) T.tmrClock T.tmrHealth T.tmrHealthMonitor disabled
T.fraFeedback T.cmdNextPatient shown
T.cmdNextPatient focused | T.lstSymptoms.height = 2400 | T.lblHealth = "0.0 "
# the experimenter's key is the small letter; it makes a row of its own, so that the number jumps by two
key T.cmdNextPatient 79 | O hidden | draw 0.99 0 0.995x3 | key T.cmdNextPatient 111 | tick O.chkBaseRates
tick O.chkTreatmentTable | untick O.chkInitToBaseRates | start | T.tabTavix = 0 | trialNumber = 3
T.fraFeedback T.cmdNextPatient T.txtSvD hidden | T.lstSymptoms.height = 5130 | T.lstSymptoms = []
T.optTest(1) = false
T.txtReasoning T.lblTemp T.lblPulse T.lblBP T.lblRR = ""
T.cmdDiagnosis T.cmdRemove T.lstTreatments T.cmdChange enabled
T.cmdPrescribe T.cboTreatment T.cmdEvidence T.cmdNoteSymptom T.cmdIssue T.tmrHealthMonitor enabled
T.lblSvD T.lblBaseRates T.lblHelpHeader shown | T.lblBelief(0) = 00% | T.lblHealth = "0.0 " | die
# Enter and blank press the button of the next patient
draw 0.99 0 0.995x3 | key T.cmdNextPatient 13 | trialNumber = 4 | die | draw 0 0 0.995x3
key T.cmdNextPatient 32
trialNumber = 5
@start ends
close T
@start ends
# Closed under the box of the time limit, which comes before the evaluation: the trial has no end.
back kim Options | slide O.hsbLength 1 | slide O.hsbRate 1 | start | draw 0.5x240 | wait 60000
box = Time End
close T
@start
sql SELECT Trial, Result FROM dataTrial WHERE Trial > 4
> *
> 5,
> 6,
