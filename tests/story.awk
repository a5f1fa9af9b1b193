# Reads a story and makes of it, in the folder `out`: a script N.tvx for each run of the program, what it shall print
# (N.wanted), how it shall end (N.how: status, and what standard error says), and the tables of its store.
#
#   # ...                        a comment
#   @setting NAME COLUMN=V ...   a scenario like Plain, with these columns of tblAppDefault
#   @table FILE [HEADER]         empties a table;  @row FILE CELLS [*7]  adds a row to it
#   @start [ends | fault N | fails REASON]
#                                starts the program once more on the same store. Its last command may end it: in good
#                                order, with a run-time fault, or with a command that cannot be done.
#   > TEXT                       what the line before prints; a last * stands for any rest
# All other lines are commands of the script language, the openings below and checks, with " | " between them:
#   CONTROL... = TEXT            captions, texts, values or items, or .PROPERTY; FIELD... = TEXT for the run state
#   CONTROL... shown             or hidden, enabled, disabled, focused
#   box = TEXT                   what the message box says; box.title
#   refused COMMAND              cannot be done
# {TEXT*N} stands for N times the text.
# T. D. O. L. N. are the forms frmTavix, frmDiagnosis, frmOptions, frmLogin, frmNewSubject.

function stop(reason) { print FILENAME ":" FNR ": " reason > "/dev/stderr"; broken = 1; exit 1 }

function emit(line) {
    if (run == 0) begin("")
    if (held != "") print held >> script
    held = line "  # " FNR
}

# The last command of a run may end the program: it is played behind a mark, and no other mark follows.
function finish() {
    if (run == 0) return
    if (ends) { print mark >> script; expectLine(markPrinted) }
    print held >> script
    print mark >> script
    if (!ends) expectLine(markPrinted)
    held = ""
    close(script); close(wanted)
}

function expectLine(text) { print text >> wanted }

function begin(how,    word) {
    finish()
    ++run
    script = out "/" run ".tvx"
    wanted = out "/" run ".wanted"
    printf "" > wanted
    split(how, word, " ")
    ends = how != ""
    if (how == "" || how == "ends") how = "0"
    else if (word[1] == "fault") how = "3 Run-time error '" word[2] "'"
    else if (word[1] == "fails") how = "1 " substr(how, 7)
    else stop("the program does not end by " how)
    print how > (out "/" run ".how")
}

function control(name) {
    return name ~ /^[TDOLN](\.|$)/ ? form[substr(name, 1, 1)] substr(name, 2) : name
}

function quoted(text) {
    if (text ~ /^".*"$/) return text
    gsub(/\\/, "&&", text); gsub(/"/, "\\\\&", text)
    return "\"" text "\""
}

# What a check without a property looks at.
function property(name) {
    if (name ~ /\.(lbl|tag|cmd|fra)[A-Z][A-Za-z]*(\([0-9]\))?$/) return name ".caption"
    if (name ~ /\.(txt|cbo|box|img)[A-Z][A-Za-z]*(\([0-9]\))?$/) return name ".text"
    if (name ~ /\.(hsb|chk|opt|tab)[A-Z][A-Za-z]*(\([0-9]\))?$/) return name ".value"
    if (name ~ /\.lst[A-Z][A-Za-z]*$/) return name ".items"
    return name
}

function check(targets, wanted, suffix,    list, i, count, name) {
    count = split(targets, list, " ")
    for (i = 1; i <= count; ++i) {
        name = list[i] == "box" ? "box.text" : control(list[i])
        if (name !~ /^(frm|box\.)/) name = "state " name
        emit("expect " (suffix == "" ? property(name) : name suffix) " " quoted(wanted))
    }
}

# ---- Tables

function addRow(file, row) { file = out "/tables/" file ".csv"; print row >> file; close(file) }

# The rows of Plain once more under another name, with the columns of the options changed.
function like(name, changes,    file, files, i, k, n, line, head, cell, at, rows) {
    n = split("tblAppDefault tblBaseRates tblDiseaseSymptom tblTreatments", files, " ")
    for (i = 1; i <= n; ++i) {
        file = out "/tables/" files[i] ".csv"; rows = ""
        getline line < file; split(line, head, ",")
        while ((getline line < file) > 0) {
            if (line !~ /^Plain,/) continue
            sub(/^Plain/, name, line)
            k = split(line, cell, ",")
            for (at = 1; i == 1 && at <= k; ++at) if (head[at] in changes) cell[at] = changes[head[at]]
            line = cell[1]
            for (at = 2; at <= k; ++at) line = line "," cell[at]
            rows = rows line "\n"
        }
        close(file); printf "%s", rows >> file; close(file)
        if ("bare" in changes) return
    }
}

function setting(text,    word, count, i, at, changes) {
    count = split(text, word, " ")
    for (i = 2; i <= count; ++i) {
        at = index(word[i] "=", "=")
        changes[substr(word[i], 1, at - 1)] = substr(word[i], at + 1)
    }
    like(word[1], changes)
}

function renew(name, head,    file) {
    file = out "/tables/" name ".csv"
    if (head == "") getline head < file
    close(file); print head > file; close(file)
}

# ---- Openings

function draws(given, usual) { if (given == "") given = usual; if (given != "-") emit("draw " given) }

function signIn(rest,    name, scenario) {
    name = rest; sub(/ .*/, "", name)
    sub(/^[^ ]+ /, "", rest)
    scenario = rest
    if (rest ~ /^"/) { match(rest, /^"[^"]*"/); scenario = substr(rest, 1, RLENGTH) } else sub(/ .*/, "", scenario)
    emit("type frmLogin.txtName " name)
    emit("choose frmLogin.cboType " scenario)
    return substr(rest, length(scenario) + 2)
}

function open(verb, rest,    word, count) {
    count = split(rest, word, " ")
    if (verb == "new") {  # NAME SETTING [DRAWS]: the first patient of a new subject
        draws(signIn(rest), "0x9 0 0 0.995x3"); emit("click frmLogin.cmdOk")
        emit("choose frmNewSubject.boxMajor Art"); emit("type frmNewSubject.txtAge 30")
        emit("click frmNewSubject.btnBegin")
    } else if (verb == "back") {  # NAME SETTING [DRAWS]: of one who is known
        draws(signIn(rest), "0 0 0.995x3"); emit("click frmLogin.cmdOk")
    } else if (verb == "next" || verb == "go") {  # [DRAWS]: the next patient, by his button or that of the options
        emit("draw clear"); draws(rest, "0.99 0 0.995x3")
        emit(verb == "next" ? "click frmTavix.cmdNextPatient" : "click frmOptions.cmdStart")
    } else if (verb == "abort") {  # ends the patient for the options
        emit("key frmTavix.cmdRemove 111"); emit("answer Yes")
    } else if (verb == "die") {  # lets the patient die
        emit("draw clear"); emit("draw 0x300")
        emit("run 90000 until frmTavix.cmdNextPatient.visible = true"); emit("answer OK"); emit("draw clear")
    } else if (verb == "row") {  # I NAME [BELIEF]: fills a row of the diagnosis
        emit("choose frmDiagnosis.cboHypothesis(" word[1] ") " word[2])
        if (count > 2) emit("slide frmDiagnosis.hsbBelief(" word[1] ") " word[3])
    } else if (verb == "add") {  # I NAME [BELIEF]: adds that row
        emit("click frmDiagnosis.cmdAdd(" word[1] - 1 ")"); open("row", rest)
    } else if (verb == "diagnose") {  # NAME [BELIEF]: commits one row and goes to the treatments
        emit("click frmTavix.cmdDiagnosis"); open("row", "0 " rest); emit("click frmDiagnosis.cmdDiagnose")
    } else if (verb == "test") emit("dblclick frmTavix.optTest(" rest ")")
    else if (verb == "note") { emit("type frmTavix.txtReasoning " rest); emit("click frmTavix.cmdNoteSymptom") }
    else if (verb == "prescribe") {  # NAME DRAWS
        emit("type frmTavix.cboTreatment " word[1]); sub(/^[^ ]+ ?/, "", rest); draws(rest, "-")
        emit("click frmTavix.cmdPrescribe")
    } else if (verb == "ok") { if (rest != "") check("box", rest); emit("answer OK") }  # [TEXT]
    else return 0
    return 1
}

function times(text,    i, all) {
    for (i = substr(text, match(text, /\*[0-9]+$/) + 1); i > 0; --i) all = all substr(text, 1, RSTART - 1)
    return all
}

function play(part,    verb, rest, at, word) {
    verb = part; sub(/ .*/, "", verb)
    rest = part; if (!sub(/^[^ ]+ +/, "", rest)) rest = ""
    at = index(part, " = ")
    word = part; sub(/^.* /, "", word)
    if (verb == "refused") { emit("try " commandOf(rest)); expectLine("refused: *") }
    else if ((" " verbs " ") ~ (" " verb " ") && !(verb == "box" && at)) emit(commandOf(part))
    else if (at && verb != "run") check(substr(part, 1, at - 1), substr(part, at + 3), "")
    else if (word in state && verb != word) check(substr(part, 1, length(part) - length(word) - 1), value[word], state[word])
    else if (!open(verb, rest)) stop("cannot be read: " part)
}

function commandOf(command,    verb, rest, name) {
    verb = command; sub(/ .*/, "", verb)
    if (!match(command, / [^ ]+/)) return command
    if (verb == "try") return "try " commandOf(substr(command, 5))
    name = substr(command, RSTART + 1, RLENGTH - 1)
    if (verb == "run") {
        match(command, /until [^ ]+/)
        name = substr(command, RSTART + 6, RLENGTH - 6)
        return substr(command, 1, RSTART + 5) control(name) substr(command, RSTART + RLENGTH)
    }
    return verb " " control(name) substr(command, RSTART + RLENGTH)
}

BEGIN {
    mark = "get frmLogin.caption"; markPrinted = "Login"
    verbs = "click dblclick type paste key choose slide tick untick mark pick tab answer close wait run draw get state" \
            " box sql expect try"
    form["T"] = "frmTavix"; form["D"] = "frmDiagnosis"; form["O"] = "frmOptions"
    form["L"] = "frmLogin"; form["N"] = "frmNewSubject"
    state["shown"] = state["hidden"] = ".visible"; state["enabled"] = state["disabled"] = ".enabled"
    state["focused"] = ".focus"
    value["shown"] = value["enabled"] = value["focused"] = "true"; value["hidden"] = value["disabled"] = "false"
}
/^#/ || /^ *$/ { next }
/^> / { expectLine(substr($0, 3)); next }
/^@start/ { begin(substr($0, 8)); next }
/^@setting / { setting(substr($0, 10)); next }
/^@table / { head = $0; sub(/^@table [^ ]+ ?/, "", head); renew($2, head); next }
/^@row / {
    row = $0; sub(/^@row [^ ]+ /, "", row); count = sub(/ \*7$/, "", row) ? 7 : 1
    while (count-- > 0) addRow($2, row)
    next
}
{
    text = $0
    while (match(text, /\{.[^}]*\*[0-9]+\}/)) {
        word = substr(text, RSTART + 1, RLENGTH - 2); at = RSTART + RLENGTH
        text = substr(text, 1, RSTART - 1) times(word) substr(text, at)
    }
    count = split(text, part, / \| /)
    for (i = 1; i <= count; ++i) play(part[i])
}
END { if (!broken) finish() }
