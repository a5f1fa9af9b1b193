# Notes from the introduction and in own words: what is refused and in which words, where the keys stop, how
# removal numbers anew and marks one row of equal notes, letter case aside.
new note Plain 0x9 0.99 0 0.995x3
mark T.txtIntro 4 1 | click T.cmdEvidence | ok Please highlight background text you wish to note
T.txtIntro focused | type T.txtReasoning "   " | key T.txtReasoning 13
ok Please type in comments/reasoning text you wish to note
T.txtReasoning focused | T.txtReasoning = "   " | evidenceCount noteSymptomCount eventCount = 0
# 99 characters are taken and 100 are not; blanks at the ends do not count, and a note may run over the end of
# a line
mark T.txtIntro 43 101 | click T.cmdEvidence | box.title = Text highlighted is too long
ok Length: 100  Max: 100\r\nPlease add in parts.
T.txtIntro focused | mark T.txtIntro 43 100 | click T.cmdEvidence | mark T.txtIntro 31 12 | key T.txtIntro 65
click T.cmdEvidence | evidenceCount = 2
# keys stop at 50 characters, of whatever alphabet; a paste does not, and after it only Backspace acts
type T.txtReasoning {ééé *12}é | key T.txtReasoning 228 | key T.txtReasoning 101 | key T.txtReasoning 13
T.txtReasoning = {ééé *12}éä | click T.cmdNoteSymptom | noteSymptomCount = 1 | T.txtReasoning = ""
paste T.txtReasoning " {yyyy *12}!" | key T.txtReasoning 13 | key T.txtReasoning 8
T.txtReasoning = " {yyyy *12}"
click T.cmdNoteSymptom | type T.txtReasoning {zzz *12}z | key T.txtReasoning 13 | noteSymptomCount = 3
click T.cmdRemove
ok Please highlight items in Symptoms list to remove
T.cmdRemove focused | removeCount = 0
# lines 1 and 3 and the last two go in one press; what is left is numbered anew
pick T.lstSymptoms 0 2 3 4 | click T.cmdRemove | T.txtIntro focused | removeCount = 4
symptomNotes(0) = stairs.\r\nHis
T.lstSymptoms = ["01) stairs.\r\nHis"] | T.lstSymptoms.selected = [] | note Tired | note tired
pick T.lstSymptoms 2
click T.cmdRemove
# the notes of the next patient are no business of this one's rows
die | next 0 0 0.995x3 | T.lstSymptoms = [] | symptomNoteCount noteSymptomCount evidenceCount removeCount = 0
note Tired | note x% [y] a_b*? "q" \ | pick T.lstSymptoms 1 | click T.cmdRemove
sql SELECT EventID, length(ListItem), FromIntro, Deleted, Deleted IS NULL AS Held FROM dataGetSymptoms
> *
> note01_001,99,6,6,0
> note01_002,12,6,,1
> note01_003,50,,6,0
> note01_004,59,,6,0
> note01_005,49,,6,0
> note01_010,5,,6,0
> note01_011,5,,,1
> note02_001,5,,,1
> note02_002,18,,6,0
sql SELECT Action, ActionNum, substr(Input, 1, 4), Output FROM dataEvents WHERE EventID > 'note01_010'
> *
> AddSymptom,5,tire,0
> RemoveSymptom,5,tire,0
> AddSymptom,1,Tire,0
> AddSymptom,2,x% [,0
> RemoveSymptom,1,x% [,0
@start ends
# An apostrophe ends the text in the statement that marks the row: the line before is marked, the one behind
# is never reached, and the question stands while the patient dies.
new eve Plain | note fever | note can't | note cough | pick T.lstSymptoms 0 1 2 | click T.cmdRemove
removeCount = 2
T.lstSymptoms = ["02) can't","03) cough"] | draw 0x200 | run 20000 until T.cmdNextPatient.visible = true
answer OK
{box.title = Problems opening table | answer Yes | *2}box.title = Problems opening table
sql SELECT Input, Deleted FROM dataEvents JOIN dataGetSymptoms USING (EventID) WHERE Subject = 'eve'
> *
> fever,6
> can't,
> cough,
answer No
