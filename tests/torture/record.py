"""What the trials of the record share: studies, sessions that write every kind of row, and, in one place, what has
to hold of a record at any moment at which a program or the power may stop."""
import os, subprocess

TESTS = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))

# How many rows of each kind there are.
COUNTS = {
    "trials": "FROM dataTrial", "ends": "FROM dataTrial WHERE Result IS NOT NULL", "events": "FROM dataEvents",
    "notes": "FROM dataGetSymptoms", "removals": "FROM dataGetSymptoms WHERE Deleted IS NOT NULL",
    "tests": "FROM dataGetTests", "hypotheses": "FROM dataHypotheses", "states": "FROM dataHypothesisState",
    "treatments": "FROM dataTreatments", "subjects": "FROM SubjectInfo", "orders": "FROM SubjectSettings",
}
# The acts of a patient in tests/study, in their order: each an event, and what it leaves besides.
ACTS = [["notes"], ["notes"], ["notes"], ["removals"], ["tests"], ["hypotheses", "states"], ["treatments"]]
DETAILS = " UNION ".join("SELECT EventID FROM " + table for table in
                         ("dataGetSymptoms", "dataGetTests", "dataHypotheses", "dataTreatments"))
# Of these there is never a row. Only the last event may lack what is written after it.
NEVER = {
    "a gap in the trials": "dataTrial GROUP BY Subject HAVING count(*) <> max(Trial) "
                           "OR count(DISTINCT Trial) <> count(*)",
    "a gap in the events": "dataEvents GROUP BY Subject, Trial HAVING count(*) <> max(0 + substr(EventID, -3)) "
                           "OR count(DISTINCT EventID) <> count(*)",
    "a trial without subject": "dataTrial WHERE Subject NOT IN (SELECT Subject FROM SubjectInfo) "
                               "OR Subject NOT IN (SELECT Subject FROM SubjectSettings)",
    "an event without trial": "dataEvents e WHERE NOT EXISTS (SELECT 1 FROM dataTrial t "
                              "WHERE t.Subject = e.Subject AND t.Trial = e.Trial)",
    "a detail without event": f"({DETAILS}) WHERE EventID NOT IN (SELECT EventID FROM dataEvents)",
    "an event without detail": f"dataEvents WHERE Action <> 'RemoveSymptom' AND EventID NOT IN ({DETAILS}) "
                               "AND rowid <> (SELECT max(rowid) FROM dataEvents)",
    "an event without state": "dataEvents WHERE DiagnosisID NOT LIKE '%00' AND DiagnosisID NOT IN "
                              "(SELECT StateID FROM dataHypothesisState) "
                              "AND rowid <> (SELECT max(rowid) FROM dataEvents)",
    "a state without event": "dataHypothesisState WHERE StateID NOT IN (SELECT DiagnosisID FROM dataEvents)",
    "a removal untold": "(SELECT (SELECT count(*) FROM dataGetSymptoms WHERE Deleted IS NOT NULL) - (SELECT count(*) "
                        "FROM dataEvents WHERE Action = 'RemoveSymptom') AS more) WHERE more NOT IN (0, 1)",
}
LOOK = "SELECT " + ", ".join([f"(SELECT count(*) {rows}) AS {name}" for name, rows in COUNTS.items()] +
                             [f"EXISTS (SELECT 1 FROM {rows}) AS \"{name}\"" for name, rows in NEVER.items()] +
                             [f"(SELECT {column} FROM dataTrial WHERE Subject = 'kim' ORDER BY Trial DESC LIMIT 1) "
                              f"AS {column}" for column in ("Trial", "Score")])


def fromShell(binaries, commands):
    """What commands of tests/study print."""
    return subprocess.run(["bash", "-c", f'set -e; source "$0" "$1"; {commands}', TESTS + "/study", binaries],
                          stdout=subprocess.PIPE, check=True, text=True).stdout


def told(said):
    """How many rows of each kind a session has been told of, by what it printed, and the last score."""
    counts = dict.fromkeys(COUNTS, 0)
    score = None
    for place, line in enumerate(said[:said.rfind("\n") + 1].split("\n")[:-1]):
        act = place % (len(ACTS) + 2)
        for kind in (["trials"], *(["events", *details] for details in ACTS), ["ends"])[act]:
            counts[kind] += 1
        counts["subjects"] = counts["orders"] = 1
        score = line if act > len(ACTS) else score
    return counts, score


class Player:
    """The program on a folder, command by command."""

    def __init__(self, binaries, folder):
        self.program = subprocess.Popen([binaries + "/tavix-headless", "--folder", folder], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)

    def hear(self, *commands):
        """The last command's answer, or the report of the program's end."""
        try:
            print(*commands, sep="\n", file=self.program.stdin, flush=True)
        except BrokenPipeError:
            pass
        return self.program.stdout.readline().rstrip("\n")

    def row(self, statement):
        names = self.hear("try sql " + statement)
        if names.startswith("refused") or not names:
            return {"refused": names or "the program has ended"}
        return dict(zip((name.strip('"') for name in names.split(",")), self.hear().split(",")))

    def end(self):
        self.program.communicate()
        return self.program.returncode


def look(player, counts, score):
    """What is wrong with the record, given what a session has been told; how many of these rows are missing; and
    what there is."""
    sound = player.row("PRAGMA integrity_check(1)")  # the first fault will do
    found = player.row(LOOK) if sound == {"integrity_check": "ok"} else {}
    if "events" not in found:
        return [str(found or sound)], sum(counts.values()), {}
    wrong = [name for name in NEVER if found[name] == "1"]
    lost = sum(max(0, counts[kind] - int(found[kind])) for kind in COUNTS)
    if score is not None and int(found["ends"]) == counts["ends"] and found["Score"] != score:
        wrong.append(f"the score is {found['Score']} and not {score}")
    return wrong, lost, found


def goesOn(player, found):
    """Kim signs in once more: what is wrong with where the program goes on, and with a note that is then written."""
    known = player.row("SELECT count(*) AS n FROM SubjectInfo WHERE Subject = 'kim'")["n"] == "1"
    player.hear("type frmLogin.txtName KIM", "choose frmLogin.cboType Plain", "click frmLogin.cmdOk",
                *([] if known else ["type frmNewSubject.txtAge 30", "choose frmNewSubject.boxMajor Art",
                                    "click frmNewSubject.btnBegin"]),
                "type frmTavix.txtReasoning later", "click frmTavix.cmdNoteSymptom", "state eventCount")
    at = player.hear("state trialNumber"), player.hear("get frmTavix.lblScore.caption")
    due = str(int(found["Trial"] or 0) + 1), found["Score"] or "2000"
    after = player.row(LOOK)
    status = player.end()
    good = at == due and int(after.get("events", 0)) == int(found["events"]) + 1 and status == 0
    return [] if good else [f"goes on at {at} and not {due}, status {status}: {after}"]
