# The script language itself: what cannot be done is said with its line and its reason, and ends the script
# with status 1.
new kim Plain
refused wait -1
refused nothing
refused click T.cmdPrescribe
refused slide T.tabTavix 1
refused answer OK
try get T.fraScore.caption
> Score
expect T.lblClock.caption 01:00
@start fails line 4: expected "Logon", found "Login"
L.caption = Login | get L.caption
> Login
L.caption = Logon
@start fails line 2: frmTavix.cmdNextPatient.visible is "false" and not "true" after 100 ms
run 100 until T.cmdNextPatient.visible = true
@start ends
close T
