# People without an introduction, files that are missing or no pictures, scenarios that are too small or too
# large.
@setting Bare bare TreatmentProperty=-1
@setting Six bare
@table tblPatients
@row tblPatients Flo Plain,40,no,11,170,75,karl.png,karl.txt
@row tblPatients Ida Short,5,,60,98,75,anna.png,
@row tblPatients No Text,40,yes,71,170,75,karl.png,nowhere.txt
@row tblPatients No Face,40,yes,71,170,75,nowhere.png,anna.txt
@row tblPatients A Letter,40,no,71,170,75,anna.txt,anna.txt
@table tblBaseRates Setting,Count,D1,D2,D3,D4,D5,D6
@row tblBaseRates Bare,2,50,50,,,,
@row tblBaseRates Four,2,50,50,,,,
@row tblBaseRates Plain,2,30,20,,,,
@row tblBaseRates Six,6,20,20,20,20,10,10
@table tblDiseaseSymptom Setting,InitVisible,Count,D1,D2,D3,D4,D5,D6
@row tblDiseaseSymptom Plain,yes,2,0,100,,,,
@row tblDiseaseSymptom Plain,no,2,100,0,,,,
@row tblDiseaseSymptom Six,yes,6,50,50,50,50,50,50
# Percents of 0 and 100 are never and always met, rates that add up to 50 keep the old disease when the draw
# is beyond them. A person without an introduction leaves the text of the last one.
new kim Plain 0x8 0 0.495 0.995 0 | T.lblHeight = 0'11" | diseaseIndex = 1 | findingsMask = 2 | die
next 0.2 0.505 0.995 0 | T.lblPatientName = Ida Short | T.lblGender = Female | T.lblHeight = 5'0"
diseaseIndex = 1
mark T.txtIntro 31 12 | click T.cmdEvidence | T.lstSymptoms = ["01) stairs.\r\nHis"]
@start fault 53
new lea2 Plain 0x8 0.5 0.5 0.5x2
@start fault 53
new lea3 Plain 0x8 0.7 0.5 0.5x2
@start fault 481
new lea5 Plain 0x8 0.9 0.5 0.5x2
@start fault 9
# The first four words are dealt and stored, then the rates run out of words.
new fay Six 0x6 0.99 0.99 0.99 0
@start
# No symptoms and no treatments: the trial runs, with nothing to choose.
new max Bare 0x8 0 0.505 | diseaseIndex = 1 | findingsMask = 0 | T.optTest(0) hidden | click T.cmdIssue
T.lstTreatments = [] | diagnose Aavo | prescribe Aavo | ok Please choose one of the given treatments
sql SELECT DiseaseOrder FROM SubjectSettings WHERE Subject = 'fay'
> *
> "Dunnit,Aavo,Brill,Corvex"
