# Prescriptions: what is refused, what a draw for help or harm leaves, and what the end records of them: the
# text that stands in the box beside the chances of the last treatment, prescribed to whomever.
@setting Risk TreatmentProperty=-1
@setting One TreatmentProperty=1
new kim Plain | T.fraTreatment hidden | diagnose Aavo | T.fraTreatment shown
# names count with their case; a refused one draws nothing
dblclick T.lstTreatments | box.title = "" | ok Please choose one of the given treatments
T.cboTreatment focused | prescribe ambrol | answer OK
# a click on a line takes the treatment over, on the header line it empties the box
pick T.lstTreatments 2 | T.cboTreatment = Bexin | pick T.lstTreatments 0 | T.cboTreatment = ""
click T.cmdPrescribe
answer OK | treatmentCount = 0
# a double click prescribes the line; the button takes the text. A hit is one step of the trend at the next
# tick, none of health; a miss leaves the signal, so that the record calls it a hit
draw 0.805 | pick T.lstTreatments 1 | dblclick T.lstTreatments | T.cboTreatment = Ambrol | healPending = false
prescribe Ambrol 0.795 | prescribe Ambrol 0.995 | healPending = true | draw 0.5 | wait 62
healPending = false
healthTrend = -4 | health = 750
sql SELECT EventID, Health, ActionNum, Input, Output, DiagnosisID FROM dataEvents WHERE Action = 'Prescribe'
> *
> kim01_002,75.0 ,1,Ambrol,0,kim01_01
> kim01_003,75.0 ,2,Ambrol,-1,kim01_01
> kim01_004,75.0 ,3,Ambrol,-1,kim01_01
@start
# With risk two independent draws; harm takes twenty points off at once, and the next health step judges what
# is left.
new lea Risk | diagnose Aavo | prescribe Ambrol 0.805 0.095 | health = 550 | monitorIndex = 2
T.lblHealth = "75.0 "
prescribe Ambrol 0.795 0.105 0.5 | wait 62 | T.lblHealth = "55.0 "
{prescribe Certa 0.995x2 | *3}health = -50
T.cmdPrescribe enabled | draw 0.5 | wait 62 | health = 0 | ok Patient Anna Bell has died
# the second disease, nothing chosen and nobody treated: the chances of the last prescription against it
next 0.99 0.505 0.995x3 | T.cboTreatment = "" | die
T.lblHelpHeader = Probabilities:{  "+" = chance to help,    "-" = chance of hurt*2}
# without risk the old harm stands in the record, and is not drawn; Bexin prescribed, Ambrol only chosen
draw 0 0 0.995x3 | key T.cmdNextPatient 111 | untick O.chkRisk | start | diagnose Aavo
prescribe Bexin 0.995 | health = 750 | choose T.cboTreatment Ambrol | die
sql SELECT * FROM dataTreatments WHERE EventID > 'kim01_003'
> *
> kim01_004,3,Ambrol,80,1,10,
> lea01_002,1,Ambrol,80,,10,1
> lea01_003,2,Ambrol,80,1,10,
> lea01_004,3,Certa,100,1,100,1
> lea01_005,4,Certa,100,1,100,1
> lea01_006,5,Certa,100,1,100,1
> lea04_002,1,Bexin,20,,0,1
sql SELECT Treatments, LastTreatment, CorrectTreatment, pLastHeal, pCorrectHeal, pLastHarm, pCorrectHarm \
FROM dataTrial
> *
> *
> 5,Certa,Certa,1.00,1.00,1.00,1.00
> 0,,Bexin,0.00,0.70,0.00,0.05
> 0,,Bexin,0.00,0.70,0.00,0.05
> 1,Ambrol,Certa,0.20,1.00,,
@start
# One treatment: the first prescription ends the patient, with a box behind the evaluation. A signal of an
# ended patient does not reach the next one.
new max One | diagnose Aavo | prescribe Ambrol 0.795 | T.fraFeedback shown | patientSaved = true
ok Helpful Treatment Prescribed
next | healPending patientSaved = false | diagnose Aavo | prescribe Ambrol 0.805
ok Uneffective Treatment Prescribed
sql SELECT Treatments, Result, Saved FROM dataTrial WHERE Subject='max'
> *
> 1,Correct Treatment,1
> 1,Wrong Treatment,
