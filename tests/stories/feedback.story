# What the feedback shows under each option, and what a score is made of: texts on show pass on to the next
# step, a label that is switched off keeps its text, for the record and, with the chance of the disease, for
# the score.
@setting Sums TreatmentProperty=1 ShowOptions=yes
new sum Sums | tick O.chkOptionsFrequency | untick O.chkFeedbackSymptom | untick O.chkFeedbackTests
untick O.chkDiseaseProbability | untick O.chkBestTreatment | type O.txtTestCost 0 | start
# no chance was ever shown, so the belief is compared with 0: a total miss at the full cost
diagnose Aavo 100 | prescribe Bexin 0.995 | answer OK | diseaseChanceText = "" | T.lblNewScore = 1950
T.lblScoreChange = -50 | T.tabTavix = 2 | T.lblFinalDiagnosis = Aavo 100% | T.lblAnswer = Aavo
T.lblYourTreatment = Bexin
T.lblDiseaseChance T.tagDiseaseProbability T.lblDiseaseNormalized hidden
T.cmdViewNorm T.lblBestTreatment T.lblActualHurt hidden
T.lblAllTests T.lblTestResults T.lblEndSvD T.lblSymptomology hidden
T.lblEndHealth T.lblHealthScore T.lblTestScore hidden
T.lblYourHeal = 0.20 | T.lblActualHeal = 1.00
# all on, with risk in place of the one treatment: 20 and 40 are rescaled to 33 and 66, 0.66 against 0.42
next | tick O.chkFeedbackSymptom | tick O.chkFeedbackTests | tick O.chkDiseaseProbability
tick O.chkUseNormalize
tick O.chkShowNormalize | tick O.chkBestTreatment | tick O.chkRisk | type O.txtTestCost 2.5 | start
T.fraFeedback hidden
test 1 | open | row 0 Brill 20 | add 1 Aavo 40 | click D.cmdDiagnose | prescribe Bexin 0.99x2 | draw 0.99x100
wait 6200
answer OK | T.lblDiseaseBelief = 0.40 | T.lblDiagNormalized T.lblDiseaseNormalized = 0.66
T.lblDiseaseChance = 0.42
T.Line1.height = 960 | T.Line2.top = 2160 | T.lblPrevious = 1950 | T.tagTreatment = Last Treatment:
T.lblBestTreatment = Certa
T.lblYourHurt = 0.00 | T.lblActualHurt = 1.00
T.tagNormalized T.cmdViewNorm T.lblBestTreatment T.lblActualHurt shown
T.lblAllTests T.lblTestResults T.lblEndSvD T.lblSymptomology shown
T.lblEndHealth T.lblHealthScore T.lblTestScore shown
T.lblAllTests = \r\nPallor\r\nQuiver\r\nRash\r\n | T.lblTestResults = \r\nAbsent\r\nAbsent\r\nAbsent\r\n
T.lblHealthFactor = x 100 = | T.lblHealthScore = 10000 | T.lblTestCount = 1 | T.lblTestFactor = x -2.5
T.lblTestScore = -2.5
T.lblDiff = 0.24 | T.lblPenalty T.lblPenaltyCalc = 21 | T.lblScoreChange = 9976 | T.lblNewScore = 11926
T.lblScore = 1950
# a cost that is switched off leaves its last text in the change, a chance no longer shown the one of the
# penalty; the text of the first row that nobody used is scored
next 0 0.9 0.995x3 | untick O.chkDiseaseProbability | untick O.chkShowNormalize | type O.txtTestCost -5
start
T.lblScore = 11926 | test 0 | die | T.lblAnswer = Corvex | T.lblDiseaseChance = 0.42
normalizedBeliefText = 0.50
T.lblScoreChange = -10 | T.lblTestScore T.lblHealthScore hidden | T.lblHealthScore = 10000
T.lblNewScore = 11918
# a patient who is ended for the options is charged his tests and nothing else; the sum on show is made of
# what was left
next | type O.txtTestCost 25 | start | test 1 | key T.cmdRemove 111 | box.title = Open Options
box = End current patient and bring up options menu? | answer No | patients(1).status = Under Surveillance
T.tmrClock enabled | abort | patients(1).status = Aborted by Options | T.fraScore shown
O.chkOptionsFrequency = 0
T.lblScoreChange = -33 | T.lblNewScore = 11893 | go 0 0 0.995x3
# a patient who ends by himself under the question is evaluated twice
test 0 | key T.cmdRemove 111 | draw 0x200 | run 20000 until T.cmdNextPatient.visible = true | answer OK
answer Yes
patients(0).status = Aborted by Options | T.lblNewScore = 11835
sql SELECT Score, EndHealth, Tests, Guess, GuessBelief, DiseaseBelief, pDisease, pLastHarm, pCorrectHarm, \
Saved FROM dataTrial
> *
> 1950,75,0,Aavo 100%,1.00,1.00,,,,
> 11926,100,1,Aavo 40%,0.40,0.40,0.42,0.00,1.00,1
> 11918,0,1,Aavo 100%,0.40,0,0.42,0.10,0.50,
> 11893,60,1,Aavo 40%,0.40,0,0.42,0.00,1.00,
> 11835,0,1,Aavo 100%,0.40,0,0.42,0.00,1.00,
@start fault 9
# Four rows in use and none names the true disease, as the last one has no name yet: the score looks for a
# fifth row.
new four Four 0x10 0 0.95 0.995x6 | open | row 0 Aavo 50 | add 1 Brill | add 2 Corvex | click D.cmdAdd(2)
draw 0x150 | wait 9300
@start fault 9
# All diseases at once: the row of the start takes a meter for each of six symptoms, and the main screen has
# four.
back four Four | draw 0 0.95 0.995x6 | die | key T.cmdNextPatient 111 | tick O.chkDiagnoseAll | start
@start
sql SELECT Trial, Score, Result FROM dataTrial WHERE Subject = 'four'
> *
> 1,2000,
> 2,1951,Dead
> 3,1951,Aborted by Options
> 4,1951,
