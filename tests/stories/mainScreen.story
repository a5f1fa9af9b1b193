# The main screen from the sign-in to the third patient: what is on show, enabled and written at each phase.
@setting Options ShowOptions=yes StartHour=12 StartMin=5
T.fraScore T.fraFeedback T.cmdNextPatient T.fraDeleteLater T.fraTreatment hidden | T.lblHealthBorder shown
T.lblScore = 2000 | T.lblClock = 01:00 | T.lblHealth = "75.0 " | T.cboTreatment = Choose Treatment...
T.lblX(0) = 15:00 | T.tabTavix.items = ["Patient","Tests","Treatments"] | T.lblMonitorX = Time
new kim Options
# the dialog of the options stands before the first patient: the frames are on show, the patient is not
T.fraStatus T.tabTavix T.fraSymptoms shown | T.caption = Tavix | T.lblPatientName = ""
untick O.chkBaseRates | untick O.chkSVD | untick O.chkTreatmentTable | tick O.chkInitToBaseRates
type O.txtInitScore 1500.7 | type O.txtHealAward 12.5 | type O.txtTestCost 7 | type O.txtBeliefCost 40
click O.cmdStart
T.tabTavix = 0 | T.lblScore = 1500 | T.lblHealthFactor = x 12.5 = | T.lblTestFactor = x -7
T.tagPenaltyCalc = 40 - [40 * (1- diff) ²] | T.tmrClock T.tmrHealth T.tmrHealthMonitor enabled
# neither table: nothing of them is on show, and the large one holds its text
T.lblSvD T.lblBaseRates T.txtSvD T.lblHelpHeader hidden | T.optTest(2) T.lblTestTime(2) T.chartETA(2) shown
# three tests: the slots behind them are hidden whole
T.optTest(3) T.lblTestTime(3) T.chartETA(3) T.lblETA(3) T.lblTestResult(3) T.optTest(5) T.chartETA(5) hidden
# the meters start at the base rates, behind hidden frames
T.hsbBelief(0) = 50 | T.hsbBelief(2) = 20 | T.lblBelief(0) = 50% | T.lblBelief(2) = 20% | T.lblHypothesis(0) = ""
T.fraHypothesis(0) hidden | T.lblCurrentHypothesis = No Hypothesis Made
T.cmdDiagnosis T.cmdChange T.cmdEvidence T.cmdNoteSymptom T.cmdIssue T.cmdPrescribe T.cmdRemove enabled
T.cboTreatment T.lstTreatments enabled | T.cboTreatment = "" | T.lstSymptoms.height = 5130 | T.fraSymptoms.height = 6375
# a sign is measured on request, and asking again changes nothing; no event is recorded
T.lblTemp = "" | dblclick T.lblTemp | T.lblTemp = 36.5 | dblclick T.lblTemp | T.lblTemp = 36.5
dblclick T.lblPulse | T.lblPulse = 76 | dblclick T.lblBP | T.lblBP = 120/80 | T.lblRR = "" | dblclick T.lblRR
T.lblRR = 18 | eventCount = 0 | note heard | T.lstSymptoms = ["01) heard"] | type T.txtReasoning left behind
tab T.tabTavix 2 | test 1 | die
# the end of the patient: the work is frozen, the feedback takes the room of the notes
T.cmdDiagnosis T.cmdChange T.cmdEvidence T.cmdNoteSymptom T.cmdIssue T.cmdPrescribe T.cmdRemove disabled
T.cboTreatment T.lstTreatments T.optTest(0) T.optTest(1) T.tmrClock T.tmrHealth T.tmrHealthMonitor disabled
T.fraFeedback T.fraScore T.cmdNextPatient shown | T.cmdNextPatient focused | T.lstSymptoms.height = 2400
T.fraSymptoms.height = 3615 | T.lblHealth = "0.0 "
# the experimenter's key is the small letter; it makes a row of its own, so that the number jumps by two
key T.cmdNextPatient 79 | O hidden | draw 0.99 0 0.995x3 | key T.cmdNextPatient 111
tick O.chkBaseRates | tick O.chkTreatmentTable | untick O.chkInitToBaseRates | click O.cmdStart
T.caption = Medical Task with Doctor kim on Patient ID #3 | T.tabTavix = 0 | T.fraFeedback T.fraScore T.cmdNextPatient hidden
T.lstSymptoms.height = 5130 | T.fraSymptoms.height = 6375 | T.lstSymptoms = [] | T.txtReasoning = ""
T.lblTemp T.lblPulse T.lblBP T.lblRR = "" | T.optTest(1) = false | T.optTest(1) T.cmdDiagnosis T.cmdRemove enabled
T.lstTreatments T.cmdChange T.cmdPrescribe T.cboTreatment T.cmdEvidence T.cmdNoteSymptom T.cmdIssue enabled
T.lblSvD T.lblBaseRates T.lblHelpHeader shown | T.txtSvD hidden | T.hsbBelief(0) = 0 | T.lblBelief(0) = 00%
T.lblSvD = " Aavo           Brill          Corvex         "
T.lblBaseRates = "    0.50              0.30              0.20     Base Rates"
# the label of health keeps the last value until the first tick; Enter and blank press the button of the next patient
T.lblHealth = "0.0 " | T.tmrHealthMonitor enabled | abort | untick O.chkBaseRates | tick O.chkSVD | go 0 0 0.995x3
T.lblSvD T.txtSvD shown | T.lblBaseRates hidden | die | draw 0.99 0 0.995x3 | key T.cmdNextPatient 13
trialNumber = 5 | die | draw 0 0 0.995x3 | key T.cmdNextPatient 32 | trialNumber = 6
@start ends
close T
@start ends
new max Options | close T
@start ends
# Closed under the box of the time limit, which comes before the evaluation: the trial has no end.
back kim Options | slide O.hsbLength 1 | slide O.hsbRate 1 | type O.txtTime(0) 01 | type O.txtTime(1) 00
click O.cmdStart | draw 0.5x240 | wait 60000 | box = Time End | close T
@start ends
back max Options | trialNumber = 0 | click O.cmdStart | trialNumber = 1 | test 0
sql SELECT Subject, Trial, Result FROM dataTrial WHERE Trial > 5 OR Subject = 'max'
> *
> kim,6,
> kim,7,
> max,1,
close T
