# What a scenario's row leaves in the options, and what a subject of an earlier study goes on with: empty flags stay off,
# texts are taken as they stand, numbers that no control holds are faults, and a start hour of 13 that nobody can correct.
@setting Twice Time=1 SimRate=20 StartHour=12 StartMin=5 DoTreatments=no TreatmentProperty=1
@setting Twice Time=6 SimRate=7
@setting Bad TreatmentProperty=2
@setting Below TreatmentProperty=-2
@setting Late StartHour=13 InitScore=1500 ShowOptions=0
@setting Full Time=28 SimRate=20
@setting Long Time=31
@setting Slow SimRate=0
@setting O'Hara
@row tblAppDefault Half,std,30,1,9,30,12 points,4,5,,1e1,x,yes,,true,1,no,0,no,,yes,no,,yes,,,yes,false,no,,
@row tblBaseRates Half,2,60,40,77,
@row tblDiseaseSymptom Half,,2,80,10,,
@row tblDiseaseSymptom Half,no,2,30,70,,
@row tblTreatments Half,Ambrol,80,10,,,10,20,,
@table SubjectInfo Subject,Major,Gender,Age,Date,Time,History
@row SubjectInfo Lea,Art,Female,30,2026-01-02,08:00:00,
@table SubjectSettings Subject,Setting,TestOrder,DiseaseOrder
@row SubjectSettings Lea,Half," Rash ,Quiver, Pallor "," Brill , Aavo "
@row SubjectSettings Lea,Half,"Pallor,Quiver","Aavo,Brill"
@table dataTrial Subject,Setting,Trial,Score
@row dataTrial Lea,Twice,9,1234
@row dataTrial Lea,Half,7,1
@row dataTrial max,Twice,30,5
L.cboType.items = ["Bad","Below","Four","Full","Half","Late","Long","O'Hara","Plain","Slow","Twice","Twice"]
new kim Half 0.99 0x5 0.99 0 0 0.595 0.795 0.305
settingIndex = 4 | O.hsbLength = 30 | O.hsbRate = 1 | O.txtTime(0) = 9 | O.txtTime(1) = 30 | T.lblClock = 09:30
O.txtTestBuffer = 4 | O.txtBeliefBuffer = 5 | O.txtTestCost = "" | O.txtBeliefCost = 1e1 | O.txtHealAward = x | score = 12
O.chkCycle O.chkForce O.chkStopTime O.chkBaseRates O.chkTreatments O.chkOneTreatment O.chkDiseaseProbability = 1
O.chkOptionsFrequency O.chkDiagnoseAll O.chkYoke O.chkNormalize O.chkInitToBaseRates O.chkSVD O.chkTreatmentTable = 0
O.chkRisk O.chkFeedbackSymptom O.chkFeedbackTests O.chkUseNormalize O.chkShowNormalize O.chkBestTreatment = 0
# the rates of this scenario, though the table stands in another order; a third column is beyond its two
T.lblBaseRates = "    0.60              0.40     Base Rates" | T.txtSvD hidden
T.lblSvD = " Brill          Aavo           " | T.lblSvD shown | symptomCount = 2 | symptomTermCount = 6
T.txtSvD.text = "    0.80              0.10     Unrest\r\n    0.30              0.70     Quiver\r\n"
patients(0).disease = Brill | findingsMask = 2
sql SELECT TestOrder, DiseaseOrder FROM SubjectSettings WHERE Subject='kim'
> *
> "Unrest,Quiver","Brill,Aavo"
@start
# The stored order, and no more words than were stored; the trial that was left open counts, with the score before it.
back KIM Half 0 0.6 0.095 0.705 | N hidden | trialNumber = 2 | score = 12 | symptomTerms = ["Unrest","Quiver"]
diseaseTerms = ["Brill","Aavo"] | patients(0).disease = Aavo
sql SELECT Trial, TestResults, Disease, Score FROM dataTrial WHERE Subject='kim'
> *
> 1,000010,Brill,12
> 2,10,Aavo,12
@start
# Of two stored orders the first, without the blanks around its words; number and score of the highest trial.
type L.txtName " lea " | choose L.cboType Half | draw 0 0 0 0 | click L.cmdOk | diseaseTerms = ["Brill","Aavo"] | symptomTerms = ["Rash","Quiver","Pallor"]
trialNumber = 10 | T.lblScore = 1234
@start
# Two rows of one name: listed twice, loaded from the first. A minute below ten pads the hour too. One treatment goes with
# no treatment stage, and who is known is dealt words for a scenario that is new to her.
back Lea Twice 0x9 0 0 0 | settingIndex = 10 | O.hsbLength = 1 | O.hsbRate = 20 | T.lblClock = 12:05
O.txtTime(0) = 012 | O.txtTime(1) = 05 | O.chkTreatments O.chkRisk = 0 | O.chkOneTreatment = 1 | trialNumber = 11
sql SELECT TestOrder FROM SubjectSettings WHERE Setting='Twice'
> *
> "Pallor,Quiver,Rash,Stupor,Tremor,Unrest"
@start ends
new ann Bad | box.title = "" | ok Error in TreatmentProperty of options in database file, table tblAppDefault
@start ends
new ann1 Below | ok Error in TreatmentProperty of options in database file, table tblAppDefault
@start fault 380
new ben Long 0.5
@start fault 380
new cat Slow 0.5
@start fault 6
# Twenty hours a minute for 28 minutes are 33600 simulated minutes: more than 16 bits hold.
new ful Full
@start ends
# An apostrophe in the scenario's name ends the text in the statement that loads the options.
new dan O'Hara | box.title = Problems opening table
box = Error 1: near "Hara": syntax error\r\nStatus was Loading options\r\nRetry?
answer No
@start fault 11
# The box comes, no clock is set up, the trial begins with the intervals of the design and no score, and its first plot
# step finds no length.
new late Late | box.title = "" | O hidden | T.tmrClock disabled | trialNumber = 0 | ok Invalid Start Time
T.tmrClock.interval = 1000 | T.tmrHealth.interval = 30 | T.tmrHealthMonitor.interval = 178 | T.tmrClock enabled
T.lblClock = 01:00 | T.lblX(0) = 15:00 | T.lblScore = 0 | O.txtInitScore = 1500 | draw 0x5 | wait 177
T.lblHealth = "72.5 "
sql SELECT Subject, Trial, Score, EndTime IS NULL AS Open FROM dataTrial WHERE Subject NOT IN ('Lea','max','kim')
> *
> late,1,0,1
wait 1
