# The options dialog: when it comes up and what it clears before, which keys the start time takes, what is
# refused, which treatment boxes exclude each other, and what the next patient is started with.
@setting Options ShowOptions=yes StartHour=12 StartMin=5
new kim Options
# the scenario asks for it before each patient: the first time takes the request back before it shows
O.caption = Options - Scenario: Options | O.chkOptionsFrequency = 0 | T.tmrClock disabled | O.txtTime(0) = 012
slide O.hsbRate 20 | O.lblRate = 20 | slide O.hsbRate 3 | slide O.hsbLength 1
# one treatment, risk, or neither; on again it is always one treatment
tick O.chkRisk | tick O.chkOneTreatment | O.chkRisk = 0 | tick O.chkRisk | O.chkOneTreatment = 0
untick O.chkTreatments
O.chkRisk O.chkOneTreatment = 0 | O.chkRisk O.chkOneTreatment disabled | tick O.chkTreatments
O.chkRisk O.chkOneTreatment enabled | O.chkRisk = 0 | O.chkOneTreatment = 1
# two digits by typing, in place of what is selected; every other key is dropped, Backspace is not
type O.txtTime(0) 1x27 | O.txtTime(0) = 12 | mark O.txtTime(0) 0 1 | key O.txtTime(0) 48 | O.txtTime(0) = 02
mark O.txtTime(0) 0 1 | key O.txtTime(0) 8 | key O.txtTime(0) 57 | O.txtTime(0) = 92
# the hour is looked at first; no clock is started
type O.txtTime(0) 13 | type O.txtTime(1) 60 | start | ok Invalid Start Time
O.txtTime(0) focused | O.txtTime(0).selLength = 2 | T.tmrClock disabled | key O.txtTime(0) 48
O.txtTime(0) = 0
key O.txtTime(1) 13 | answer OK | O.txtTime(1) focused | O.txtTime(1).selLength = 2
# a paste is dropped like any other key; the hour 0 is 12 on the dial
paste O.txtTime(0) 9 | O.txtTime(0) = 0 | type O.txtTime(1) 58 | type O.txtInitScore 1999.9
tick O.chkOptionsFrequency
key O.txtTime(0) 13 | O hidden | T.lblClock = 12:58 | T.lblScore = 1999 | T.tmrClock.interval = 333
T.tmrHealth.interval = 83 | T.tmrHealthMonitor.interval = 45 | T.lblX(0) = 01:20 | T.lblX(6) = 03:32
# a second patient without a request: the box keeps its tick; 1999 - 33.18 for 0 against 0.42
die | next | O shown | O.chkOptionsFrequency = 1 | O.txtInitScore = 1966 | untick O.chkOptionsFrequency
start
# without the tick the next one starts at once; the key brings the dialog for one time
die | next 0 0 0.995x3 | O hidden | T.lblScore = 1933 | abort | O shown | O.chkOptionsFrequency = 0
