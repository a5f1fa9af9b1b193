# Two people, no cycling: who comes next is drawn until somebody untreated comes up, fifty times at most; when
# all are through, the moderator is asked.
@setting Moderated CyclePatients=no
new kim Moderated 0x9 0.495 0 0.5x3 | patients(0).status = Under Surveillance | patients(1).status = Untreated
# 75.0 points fall by 5 tenths a tick of 62 ms: dead at the 150th
draw 0x149 | wait 9299 | draw 0.01 | wait 1 | box.title = Results | ok Patient Anna Bell has died
patients(0).status = Dead
# fifty draws that hit the dead: no new case, the labels and the number of the trial stay, the trial runs
next 0x50 | box.title = "" | ok Could not retrieve patient info | patientsSeen trialNumber = 1
patients(0).status = Dead
health = 750 | T.cmdIssue enabled | die
# the fiftieth draw finds the other one
next 0x49 0.5 0 0.5x3 | patientsSeen trialNumber = 2 | T.lblPatientName = Karl Dorn | T.lblAge = 61
T.lblGender = Male
T.lblHeight = 5'10" | T.lblWeight = 180 lbs | T.imgPatient = karl.png
mark T.txtIntro 4 5 | diagnose Brill | die
# all are through: asked only now; the guess of the last cycle stays
next 0.99 0.995 0.5x3 | patientsSeen = 2
box
> {"title":"All Patients Diagnosed","text":"Please alert moderator to click Yes to cycle again or No to \
quit","buttons":["Yes",*
answer Yes | patientsSeen = 1 | patients(0).status = Untreated | patients(1).guess = Brill 1%
T.txtIntro.selLength = 0
@start ends
# Back the next day: the number of the trial goes on. No ends the program with no further row.
back KIM Moderated 0 0 0.5x3 | die | next 0.99 0 0.5x3 | die | next
sql SELECT Trial, PatientID, TestResults, Disease, Result FROM dataTrial
> *
> 1,1,000100,Aavo,Dead
> 1,1,000100,Aavo,
> 2,2,000100,Aavo,Dead
> 3,2,000001,Corvex,
> 4,1,100,Aavo,Dead
> 5,2,100,Aavo,Dead
answer No
