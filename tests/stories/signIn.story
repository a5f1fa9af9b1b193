# The sign-in and the questionnaire: when Ok can be pressed, what is refused, and the rows that the answers
# make. A row without a name, as a hand leaves it in the table, is nobody.
@setting Risk TreatmentProperty=-1
@table SubjectInfo Subject,Major
@row SubjectInfo ,Art
L.cmdOk disabled | L.txtName focused | T.caption = Tavix | T.fraStatus hidden
L.cboType.items = ["Four","Plain","Risk"]
# blanks are no name; the scenario is judged with its letters, but only when it changes itself
type L.txtName "   " | L.cmdOk disabled | L.cboType = Four | type L.txtName "  Kim " | type L.cboType plain
L.cmdOk disabled
key L.txtName 13 | type L.txtName "  Kim  " | L.cmdOk enabled | key L.txtName 13 | N hidden | click L.cmdOk
ok Inappropriate setting.  Please choose from list or update database
settingIndex = -1 | type L.cboType Plain | key L.txtName 13 | L.txtName = "  Kim  " | N.lblLogin = Kim
settingIndex = 1
# cancelled: back to the name, which is selected whole, and the questionnaire comes up afresh
tick N.optMale | N.optFemale = false | type N.txtAge 44 | choose N.boxMajor Art | click N.btnCancel | N hidden
L.txtName focused | L.txtName.selStart = 0 | L.txtName.selLength = 7 | click L.cmdOk | N.txtAge = ""
N.optFemale = true
N.boxMajor = Major | click N.btnBegin | ok Please enter your age
type N.txtAge 12 years | key N.txtAge 13 | ok Please enter a numerical value for age
type N.txtAge -3 | click N.btnBegin | ok Please select one of the listed majors
N.boxMajor focused | type N.boxMajor physics | click N.btnBegin | ok Please select one of the listed majors
type N.boxMajor Physics | tick N.optMale
# typing stops at 250 characters; a longer text that was pasted is cut by the next key, Backspace passes
paste N.txtHistory {é*249}xyz | key N.txtHistory 8 | N.txtHistory = {é*249}xy | key N.txtHistory 33
N.txtHistory = {é*249}x | N.txtHistory.selStart = 250 | paste N.txtAge -3 | paste N.txtAge -3
N.txtAge.selStart = 2 | key N.txtHistory 8 | key N.txtHistory 33
key N.txtHistory 34
N.txtHistory = {é*249}! | paste N.txtHistory {é*249}!! | draw 0.99x9 0 0 0x3 | key N.txtAge 13 | N L hidden
T.lblWelcome = Hello Dr. Kim | T.fraStatus T.tabTavix T.fraSymptoms shown | T.lblHealthBorder = Health Monitor
sql SELECT Subject, Major, Gender, Age, Date, Time, length(History), TestOrder, DiseaseOrder FROM \
SubjectInfo JOIN SubjectSettings USING (Subject)
> *
> Kim,Physics,Male,-3,2026-01-05,09:30:00,250,"Unrest,Pallor,Quiver","Corvex,Aavo,Brill"
@start
# In other letters she is known, also where she is dealt words anew; the number of the trial goes on.
back KIM Risk 0x9 0 0 0x3 | trialNumber = 2
symptomTerms = ["Pallor","Quiver","Rash","Stupor","Tremor","Unrest"]
@start
# Back in the first scenario the words stand as they were dealt, as many as the table has rows.
back kim Plain | trialNumber = 3 | symptomTerms = ["Unrest","Pallor","Quiver"]
@start
new Élise Plain
@start
back élise Plain | trialNumber = 2
@start ends
# An apostrophe ends the text in the first statement that looks for the subject: asked again it fails in the
# same words.
new O'Brien Plain
{box = Error 1: near "Brien": syntax error\r\nStatus was Load Trial and Score\r\nRetry? | answer Yes | \
*2}answer No
@start ends
# Quit with the entries made: nobody is recorded.
type L.txtName max | click L.cmdOk | type N.txtAge 30 | click N.btnCancel
sql SELECT group_concat(Subject) FROM SubjectInfo
> *
> "Kim,Élise,O'Brien"
click L.cmdQuit
