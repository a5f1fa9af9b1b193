# What a scenario's rows leave, what a subject of an earlier study goes on with, and rows that end the start.
@setting Bad TreatmentProperty=2
@setting Below TreatmentProperty=-2
@setting Late StartHour=13 ShowOptions=0
@setting Long Time=31
@setting O'Hara
@row tblAppDefault Half,std,30,1,9,30,12 points,4,5,,1e1,x,yes,,true,1,no,0,no,,yes,no,,yes,,,yes,false,no,,
@row tblBaseRates Half,2,60,40,77,
@row tblDiseaseSymptom Half,,2,80,10,,
@row tblDiseaseSymptom Half,no,2,30,70,,
@table SubjectInfo Subject,Major,Gender,Age,Date,Time,History
@row SubjectInfo Lea,Art,Female,30,2026-01-02,08:00:00,
@table SubjectSettings Subject,Setting,TestOrder,DiseaseOrder
@row SubjectSettings Lea,Half," Rash ,Quiver, Pallor "," Brill , Aavo "
@row SubjectSettings Lea,Half,"Pallor,Quiver","Aavo,Brill"
@table dataTrial Subject,Setting,Trial,Score
@row dataTrial Lea,Late,9,1234
@row dataTrial Lea,Half,7,1
@row dataTrial max,Late,30,5
# Empty flags stay off, texts are taken as they stand; the rates are reached by the place in the sorted list.
L.cboType.items = ["Bad","Below","Four","Half","Late","Long","O'Hara","Plain"]
new kim Half 0.99 0x5 0.99 0 0 0.595 0.795 0.305
O.hsbLength = 30 | O.txtTime(0) = 9 | T.lblClock = 09:30 | O.txtBeliefCost = 1e1 | O.txtHealAward = x
score = 12
O.chkForce O.chkStopTime O.chkTreatments O.chkOneTreatment O.chkDiseaseProbability = 1
O.chkOptionsFrequency O.chkYoke O.chkInitToBaseRates O.chkSVD O.chkRisk O.chkFeedbackTests = 0
T.lblBaseRates = "    0.60              0.40     Base Rates" | patients(0).disease = Brill | findingsMask = 2
T.txtSvD.text = "    0.80              0.10     Unrest\r\n    0.30              0.70     Quiver\r\n"
@start
# The stored order, and no more words than were stored; the trial that was left open counts, with the score
# before it.
back KIM Half 0 0.6 0.095 0.705 | score = 12 | symptomTerms = ["Unrest","Quiver"]
diseaseTerms = ["Brill","Aavo"]
@start
# Of two stored orders the first, without the blanks around its words; number and score of the highest trial.
back lea Half 0 0 0 0 | diseaseTerms = ["Brill","Aavo"] | symptomTerms = ["Rash","Quiver","Pallor"]
sql SELECT Subject, Trial, TestResults, Disease, Score FROM dataTrial WHERE Setting = 'Half'
> *
> Lea,7,,,1
> kim,1,000010,Brill,12
> KIM,2,10,Aavo,12
> lea,10,011,Brill,1234
@start ends
new ann Bad | box.title = "" | ok Error in TreatmentProperty of options in database file, table tblAppDefault
@start ends
new bea Below | answer OK
@start fault 380
new ben Long 0.5
@start ends
new dan O'Hara | box.title = Problems opening table
box = Error 1: near "Hara": syntax error\r\nStatus was Loading options\r\nRetry?
answer No
@start fault 11
# A start hour of 13 that nobody can correct: no clock is set up, the trial begins with the intervals of the
# design and no score, and its first plot step finds no length.
new late Late | O hidden | T.tmrClock disabled | trialNumber = 0 | ok Invalid Start Time
T.tmrClock.interval = 1000 | T.tmrHealthMonitor.interval = 178 | T.tmrClock enabled | T.lblScore = 0
wait 177
wait 1
