"""What the trials in this folder share: studies, stations that play while the trial looks on, and the rows
that a station has been told of. A trial is run as NAME BIN [--long] and prints rows for script/torture.
"""
import atexit, contextlib, os, shutil, struct, subprocess, sys, tempfile, threading

BIN = os.path.abspath(sys.argv[1])
LONG = "--long" in sys.argv
TESTS = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
ODD = os.path.join(os.path.dirname(BIN), "tests", "liboddMachine.so")
PASSWORD = "QrVt_*K*_m"
PATIENCE = 120  # seconds for what takes a few on a quiet machine
WORK = tempfile.mkdtemp()
atexit.register(shutil.rmtree, WORK, ignore_errors=True)
os.environ.update(QT_QPA_PLATFORM=f"offscreen:configfile={TESTS}/screen.json", XDG_RUNTIME_DIR=WORK,
                  QT_LOGGING_RULES="qt.qpa.*=false", XDG_CONFIG_HOME=WORK, XDG_DATA_HOME=WORK)
MARK = "get frmNewSubject.caption", "Subject Info"


def row(tried, often, did, lost=0):
    print("ROW", tried, often, did, lost, sep="\t", flush=True)


def expect(what, holds, *seen):
    if not holds:
        print(f"FAILED: {what}: {' '.join(str(each) for each in seen)[:2000]}", file=sys.stderr, flush=True)
        sys.exit(1)


def tool(*command, **more):
    """Status and all that a program prints."""
    done = subprocess.run([BIN + "/" + command[0], *command[1:]], stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, timeout=PATIENCE, **more)
    return done.returncode, done.stdout.decode(errors="replace")


def sql(store, statements, password=PASSWORD):
    """The lines that the engine's own tool prints, columns divided by a bar."""
    script = f".timeout 20000\nPRAGMA key='{password}';\n{statements};\n"
    done = subprocess.run(["sqlcipher", "-bail", store], input=script.encode(), capture_output=True)
    expect(statements, done.returncode == 0, done.stderr)
    return done.stdout.decode(errors="surrogateescape").splitlines()


def study(name, tables=TESTS + "/tables"):
    """A folder with an empty store."""
    folder = f"{WORK}/{name}"
    shutil.rmtree(folder, ignore_errors=True)
    os.makedirs(folder + "/data")
    os.symlink(TESTS + "/Patients", folder + "/Patients")
    fresh = f"{WORK}/{tables.replace('/', '_')}.new"
    if not os.path.exists(fresh):
        done = tool("tavixdb", "create", tables, fresh)
        expect("a store from " + tables, done[0] == 0, done[1])
    shutil.copy(fresh, folder + "/data/TavixData.mdb")
    return folder


def quoted(text):
    """As an argument of a script's command."""
    for plain, written in ("\\", "\\\\"), ('"', '\\"'), ("\n", "\\n"), ("\r", "\\r"):
        text = text.replace(plain, written)
    return f'"{text}"'


def storeOf(folder):
    return folder + "/data/TavixData.mdb"


def signInLines(name, scenario="Plain", known=False, history=""):
    return [f"paste frmLogin.txtName {quoted(name)}", f"choose frmLogin.cboType {quoted(scenario)}",
            "click frmLogin.cmdOk", *([] if known else [
                "type frmNewSubject.txtAge 30", "choose frmNewSubject.boxMajor Art",
                f"paste frmNewSubject.txtHistory {quoted(history)}", "click frmNewSubject.btnBegin"])]


class Machine:
    """What the machine under a program does: bytes that still go to the disk (-1: all), and by how many
    seconds the calendar clock is wrong and the counter of milliseconds has jumped."""

    def __init__(self):
        self.path = tempfile.mkstemp(dir=WORK)[1]
        self.set()

    def set(self, room=-1, wall=0, counter=0):
        with open(self.path, "r+b") as file:
            file.write(struct.pack("<qqq", room, wall, counter))

    def environment(self):
        return dict(os.environ, LD_PRELOAD=ODD, ODD_MACHINE=self.path,
                    ASAN_OPTIONS="verify_asan_link_order=0")


class Station:
    """A headless session on one folder, a command at a time."""

    def __init__(self, folder, program="tavix-headless", arguments=(), **more):
        self.told = []  # rows whose operation has returned: table and identifier
        self.errors = tempfile.TemporaryFile()
        self.process = subprocess.Popen([f"{BIN}/{program}", "--folder", folder, *arguments],
                                        stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=self.errors, **more)
        atexit.register(self.process.kill)
        self.watch = threading.Timer(PATIENCE, self.process.kill)  # what hangs does not end by itself
        self.watch.daemon = True
        self.watch.start()

    def say(self, *commands):
        """What the commands print; None when the program has ended under them."""
        try:
            self.process.stdin.write("\n".join([*commands, MARK[0], ""]).encode(errors="surrogateescape"))
            self.process.stdin.flush()
        except BrokenPipeError:
            return None
        lines = []
        for line in self.process.stdout:
            lines.append(line.decode(errors="surrogateescape").rstrip("\n"))
            if lines[-1] == MARK[1]:
                return lines[:-1]
        return None

    def box(self):
        told = self.say("box")
        return None if told in (None, ["none"]) else told[0]

    def end(self):
        """The status and what it said last."""
        with contextlib.suppress(BrokenPipeError):
            self.process.stdin.close()
        status = self.process.wait(PATIENCE)
        self.watch.cancel()
        self.errors.seek(0)
        said = self.errors.read().decode(errors="replace").splitlines()
        noise = "This plugin does not support", "OpenType support missing"  # of the toolkit
        return status, "\n".join(line for line in said if not line.strip().startswith(noise))

    def signIn(self, name, scenario="Plain", known=False, history=""):
        return self.say(*signInLines(name, scenario, known, history))

    def act(self, table, *commands):
        """One act that writes an event and a row in this table. True when it has returned, with no box."""
        told = self.say(*commands, "box", "state trialKey", "state eventCount")
        if told is None or told[-3] != "none":
            return False
        self.told.append((table, f"{told[-2].rstrip('_')}_{int(told[-1]):03}"))
        return True

    def note(self, text):
        return self.act("dataGetSymptoms", f"paste frmTavix.txtReasoning {quoted(text)}",
                        "click frmTavix.cmdNoteSymptom")

    def patient(self, notes=3):
        """Acts of each kind on the patient, to the end; False where one of them did not return."""
        return (all(self.note(f"note {number}") for number in range(notes)) and
                self.act("dataGetTests", "draw clear", "draw 0.4x200000", "dblclick frmTavix.optTest(0)") and
                self.act("dataHypotheses", "click frmTavix.cmdDiagnosis",
                         "choose frmDiagnosis.cboHypothesis(0) Brill", "click frmDiagnosis.cmdTests") and
                self.act("dataTreatments", "type frmTavix.cboTreatment Bexin", "click frmTavix.cmdPrescribe")
                and
                self.finish())

    def finish(self):
        """Waits for the end, and goes on to the next patient."""
        told = self.say("draw clear", "run 1200000 until frmTavix.cmdNextPatient.visible = true", "answer OK",
                        "box", "state trialNumber", "state subjectName")
        if told is None or told[-3] != "none":
            return False
        self.told.append(("dataTrial", f"{told[-1]}:{told[-2]}"))
        told = self.say("click frmTavix.cmdNextPatient", "box")
        return told is not None and told[-1] == "none"


def read(path):
    with open(path, "rb") as file:
        return file.read()


def ends(station, wanted=0, text=""):
    """The station ends with this status and says this, or nothing."""
    status, said = station.end()
    expect("its end", status == wanted and (text in said if text else said == ""), status, said)


def lost(store, *stations):
    """Rows that an operation has returned from and that are not in the store."""
    tables = "dataGetSymptoms", "dataGetTests", "dataHypotheses", "dataTreatments"
    kept = {tuple(line.split("|", 1)) for table in tables for line in sql(
        store, f"SELECT DISTINCT '{table}', EventID FROM {table} JOIN dataEvents USING (EventID)")}
    kept |= {("dataTrial", line) for line in sql(
        store, "SELECT Subject || ':' || Trial FROM dataTrial WHERE EndTime IS NOT NULL")}
    return len({each for station in stations for each in station.told} - kept)


def isWhole(store):
    return sql(store, "PRAGMA integrity_check") == ["ok"]
