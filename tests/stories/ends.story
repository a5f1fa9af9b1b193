# How patients end: the rows that the endings leave, and ends that meet each other.
@setting Right DoTreatments=no ShowOptions=yes SimRate=1 Time=1
@setting Sums TreatmentProperty=1 ShowOptions=yes CyclePatients=no SimRate=1 Time=1
@table tblVocabulary
@row tblVocabulary Disease,Aavo
@row tblVocabulary Disease,Brill
@row tblVocabulary Disease,Brill 50%
@row tblVocabulary Symptom,Pallor
@row tblVocabulary Symptom,Müdigkeit
@row tblVocabulary Symptom,Rash
# A word that reads like a guess makes the one diagnosis that is right.
new right Right 0x6 0 0.9 0.995 0.2 0.2 | start | draw 0.5x8 | wait 2000 | mark T.txtIntro 43 12
click T.cmdEvidence | note no fever | pick T.lstSymptoms 0 | click T.cmdRemove | test 1 | open | row 0 Aavo 20
add 1 Brill 50
commit | box.title = Results | patientSaved = true | guessDiseaseIndex = 2 | ok Diagnosis was correct
# at the time limit the box comes before the evaluation
next 0.99 0 0.995x3 0.5x240 | wait 60000 | T.fraFeedback hidden | T.lblClock = 02:00 | ok Time End
T.fraFeedback shown | T.lblClock = 02:01 | elapsedMinutes = 61
sql SELECT * FROM dataTrial
> *
> right,Right,2026-01-05,09:30:00,1,1,011,Brill 50%,9436,09:30:02,00:03,0:02,75,1,1,0,Brill 50%,0.50,0,0.53,\
0.53,,*
> right,Right,2026-01-05,09:30:02,2,2,000,Aavo,9403,09:31:02,01:01,1:00,60,0,0,0,None,0.50,0,0.18,0.42,,*
sql SELECT LastTreatment, CorrectTreatment, pLastHeal, pCorrectHeal, pLastHarm, Penalty, Result, Saved FROM \
dataTrial
> *
> ,Certa,0.05,0.80,,38.955,Diagnosed Right,1
> ,Certa,0.80,1.00,,33.18,Time End,
sql SELECT * FROM dataEvents
> *
> right01_001,right,1,2026-01-05,09:30:02,01:02,75.0 ,AddSymptom,1,hands shake,0,right01_00
> right01_002,right,1,2026-01-05,09:30:02,01:02,75.0 ,AddSymptom,1,no fever,0,right01_00
> right01_003,right,1,2026-01-05,09:30:02,01:02,75.0 ,RemoveSymptom,1,hands shake,0,right01_00
> right01_004,right,1,2026-01-05,09:30:02,01:02,75.0 ,Testing,1,TestPosition2,-1,right01_00
> right01_005,right,1,2026-01-05,09:30:02,01:02,75.0 ,Diagnose,1,HypothesisPosition02,0,right01_01
# A patient who dies, recovers or runs out of time under the open dialog: it goes, frozen, and what stood on
# its meters uncommitted is what the score takes as the belief.
next 0 0 0.995x3 0x150 | open | row 0 Brill 20 | add 1 Aavo 70 | wait 37499 | D shown | wait 1 | D hidden
D.fraHypothesis(3) disabled | D.cmdAdd(0) hidden | T.lblFinalDiagnosis = Brill 50% | T.lblDiseaseBelief = 0.70
ok Patient Anna Bell has died | next 0.99 0 0.995x3 0.99x150 | open | D.fraHypothesis(0) enabled | wait 25000
D hidden
ok Patient Karl Dorn has recovered | T.lblHealth = "100.0 " | patientSaved = true | next 0 0 0.995x3 0.5x240
open
row 0 Aavo 45 | wait 60000 | D shown | T.cmdNextPatient hidden | ok Time End | D hidden
sql SELECT Trial, Diagnoses, Guess, DiseaseBelief, Result, Saved FROM dataTrial WHERE Trial > 2
> *
> 3,0,Brill 50%,0.70,Dead,
> 4,0,None,0,Saved,1
> 5,0,Brill 50%,0.45,Time End,
@start
# Every end moves the clock one more minute. Where that is the end time itself, the time limit comes inside
# the other end: its word stands, its box comes first, and the patient is evaluated and recorded twice.
new kim Sums 0x6 0 0 0.995x3 | start | test 0 | draw 0.5x237 | wait 59100 | T.lblClock = 01:59
key T.cmdRemove 79 | refused answer No | abort | T.fraFeedback hidden | ok Time End | O shown
T.lblClock = 02:01
simTimeText = 01:01 | score = 1884 | go 0.99 0 0.995x3 0.5x118 0x120 | wait 59500 | health = 0 | ok Time End
box = Patient Karl Dorn has died | patients(1).status = Time End | score = 1818 | T.lblHealth = "0.5 "
answer OK
# The clock of the next patient runs while the moderator is asked: its minutes are forgotten, its time of day
# is not. At the end time there it ends the last patient once more.
next 0 0 0.995x3 | T.lblClock = 01:00 | T.tmrHealth disabled | wait 5000 | T.lblClock = 01:05
elapsedMinutes = 66
wait 55000 | ok Time End | box.title = All Patients Diagnosed | T.tmrClock disabled | answer Yes
T.lblPatientName = Anna Bell
T.cmdNextPatient hidden | elapsedMinutes = 0 | T.lblClock = 02:01 | wait 1000 | T.lblClock = 02:02
elapsedMinutes = 1
