# What the feedback shows under each option, and what a score is made of: texts on show pass on to the next step, a label
# that is switched off keeps its text, for the record and, with the chance of the disease, for the score.
@setting Sums TreatmentProperty=1 ShowOptions=yes
new sum Sums | tick O.chkOptionsFrequency | untick O.chkFeedbackSymptom | untick O.chkFeedbackTests
untick O.chkDiseaseProbability | untick O.chkBestTreatment | type O.txtTestCost 0 | click O.cmdStart
# no chance was ever shown, so the belief is compared with 0: a total miss at the full cost
diagnose Aavo 100 | tab T.tabTavix 2 | prescribe Bexin 0.995 | answer OK
diseaseChanceText = "" | diffText = 1 | penalty = 50 | T.lblNewScore = 1950 | T.lblScoreChange = -50 | T.tabTavix = 2
T.fraFeedback T.fraScore shown | T.lblFinalDiagnosis = Aavo 100% | T.lblAnswer = Aavo | T.lblDiagnosisBelief = 1.00
T.lblDiagChance T.lblDiseaseChance T.tagDiseaseProbability T.lblDiagNormalized T.lblDiseaseNormalized hidden
T.tagNormalized T.cmdViewNorm T.lblBestTreatment T.tagTreatmentHurt T.lblYourHurt T.lblActualHurt hidden
T.lblAllTests T.lblTestResults T.tagTestResults T.lblEndSvD T.lblSymptomology T.tagRemain T.lblEndHealth hidden
T.lblHealthFactor T.lblHealthScore T.tagTestScore T.lblTestCount T.lblTestFactor T.lblTestScore T.lblFirstEqual hidden
T.tagTreatment = Treatment: | T.lblYourTreatment = Bexin | T.lblYourHeal = 0.20 | T.lblActualHeal = 1.00
T.lblBestTreatment T.lblAllTests T.lblActualHurt = ""
# all on, with risk in place of the one treatment: 20 and 40 are rescaled to 33 and 66, 0.66 against 0.42
next | tick O.chkFeedbackSymptom | tick O.chkFeedbackTests | tick O.chkDiseaseProbability | tick O.chkUseNormalize
tick O.chkShowNormalize | tick O.chkBestTreatment | tick O.chkRisk | type O.txtTestCost 2.5 | click O.cmdStart
T.fraFeedback T.fraScore hidden | test 1 | open | row 0 Brill 20 | add 1 Aavo 40 | click D.cmdDiagnose
prescribe Bexin 0.99x2 | draw 0.99x100 | wait 6200 | ok Patient Karl Dorn has recovered
T.lblDiagnosisBelief T.lblDiseaseBelief = 0.40 | T.lblDiagNormalized T.lblDiseaseNormalized = 0.66
T.lblDiagChance T.lblDiseaseChance = 0.42 | T.Line1.height = 960 | T.Line2.top = 2160 | T.lblPrevious = 1950
T.tagNormalized T.lblDiagNormalized T.lblDiseaseNormalized T.lblDiagChance T.cmdViewNorm T.tagTestResults shown
T.tagTreatment = Last Treatment: | T.lblYourTreatment = Bexin | T.lblBestTreatment = Certa | T.lblYourHurt = 0.00
T.lblActualHurt = 1.00 | T.lblBestTreatment T.lblActualHurt T.tagTreatmentHurt T.lblAllTests T.lblTestResults shown
T.lblAllTests = \r\nPallor\r\nQuiver\r\nRash\r\n | T.lblTestResults = \r\nAbsent\r\nAbsent\r\nAbsent\r\n
T.lblEndSvD T.lblSymptomology T.lblEndHealth T.lblHealthScore T.lblTestScore T.lblFirstEqual shown
T.lblHealthFactor = x 100 = | T.lblHealthScore = 10000 | T.lblTestCount = 1 | T.lblTestFactor = x -2.5
T.lblTestScore = -2.5 | T.lblDiff T.lblDiffScore = 0.24 | T.lblPenalty T.lblPenaltyCalc = 21 | T.lblScoreChange = 9976
T.lblNewScore = 11926 | T.lblScore = 1950 | O.txtInitScore = 11926
# a cost that is switched off leaves its last text in the change, a chance no longer shown the one of the penalty; the
# text of the first row that nobody used is scored
next 0 0.9 0.995x3 | untick O.chkDiseaseProbability | untick O.chkShowNormalize | untick O.chkBestTreatment
type O.txtTestCost -5 | click O.cmdStart | T.lblScore = 11926 | test 0 | die | T.lblAnswer = Corvex
T.lblDiseaseChance = 0.42 | beliefText = 0 | normalizedBeliefText = 0.50 | T.lblPenalty = 8 | T.lblScoreChange = -10
T.lblTestScore T.lblHealthScore hidden | T.lblHealthScore = 10000 | T.lblNewScore = 11918 | healthShown = false
# a patient who is ended for the options is charged his tests and nothing else; the sum on show is made of what was left
next | type O.txtTestCost 25 | click O.cmdStart | test 1 | key T.cmdRemove 111 | box.title = Open Options
box = End current patient and bring up options menu? | answer No | patients(1).status = Under Surveillance
T.tmrClock enabled | abort | patients(1).status = Aborted by Options | T.fraScore shown | O.chkOptionsFrequency = 0
T.lblScoreChange = -33 | T.lblNewScore = 11893 | tick O.chkOptionsFrequency | go 0 0 0.995x3
# a patient who ends by himself under the question is evaluated twice
test 0 | key T.cmdRemove 111 | draw 0x200 | run 20000 until T.cmdNextPatient.visible = true | answer OK
box.title = Open Options | answer Yes | patients(0).status = Aborted by Options | T.lblNewScore = 11835
sql SELECT Score, EndHealth, Tests, Guess, GuessBelief, DiseaseBelief, pDisease, pLastHarm, pCorrectHarm, Saved FROM dataTrial
> *
> 1950,75,0,Aavo 100%,1.00,1.00,,,,
> 11926,100,1,Aavo 40%,0.40,0.40,0.42,0.00,1.00,1
> 11918,0,1,Aavo 100%,0.40,0,0.42,0.10,0.50,
> 11893,60,1,Aavo 40%,0.40,0,0.42,0.00,1.00,
> 11835,0,1,Aavo 100%,0.40,0,0.42,0.00,1.00,
@start fault 6
# The award for a saved patient is a 16-bit number.
back sum Sums 0.99 0 0.995x3 | type O.txtHealAward 328 | click O.cmdStart | draw 0.99x100 | wait 6200
@start fault 9
# Four rows in use and none names the true disease, as the last one has no name yet: the score looks for a fifth row.
new four Four 0x10 0 0.95 0.995x6 | open | row 0 Aavo 50 | add 1 Brill | add 2 Corvex | click D.cmdAdd(2)
draw 0x150 | wait 9300
@start fault 9
# All diseases at once: the row of the start takes a meter for each of six symptoms, and the main screen has four.
back four Four | draw 0 0.95 0.995x6 | die | key T.cmdNextPatient 111 | tick O.chkDiagnoseAll | click O.cmdStart
@start
sql SELECT Subject, Trial, Score, Result, EndTime IS NULL AS Open FROM dataTrial WHERE Trial > 5 OR Subject = 'four'
> *
> sum,6,11835,,1
> four,1,2000,,1
> four,2,1951,Dead,0
> four,3,1951,Aborted by Options,0
> four,4,1951,,1
