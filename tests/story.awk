# Reads tests/openings and a story, and makes of it in the folder `out`: a script N.tvx for each run of the
# program, what it shall print (N.wanted), how it shall end (N.how: status, and what standard error says), and
# the tables of its store. A line that ends in a backslash goes on in the next.
#
#   @setting NAME COLUMN=V ...   a scenario like Plain with these columns; `bare`: without rows elsewhere
#   @table FILE [HEADER]         empties a table;  @row FILE CELLS [*7] adds a row to it
#   @start [ends | fault N | fails REASON]
#                                starts the program once more on the same store. Its last command may end it:
#                                in good order, with a run-time fault, or as what cannot be done.
#   > TEXT                       what the line before prints; a last * stands for any rest
# Other lines are commands of the script language, openings and checks, with " | " between them:
#   CONTROL... = TEXT            captions, texts, values, items, or .PROPERTY;  FIELD... = TEXT  of the state
#   CONTROL... shown             or hidden, enabled, disabled, focused
#   box = TEXT                   what the message box says; box.title
#   refused COMMAND              cannot be done
# T. D. O. L. N. are frmTavix, frmDiagnosis, frmOptions, frmLogin, frmNewSubject; {TEXT*N} is N times TEXT.

function stop(reason) { print FILENAME ":" FNR ": " reason > "/dev/stderr"; broken = 1; exit 1 }

# ---- Runs. The last command may end the program: it is played behind a mark, and no other mark follows.

function emit(line) {
    if (!run) begin("")
    if (held != "") print held > script
    held = line "  # " FNR
}

function expectLine(text) { print text > wanted }

function finish() {
    if (!run) return
    if (ends) { print mark > script; expectLine("Login") }
    print held "\n" mark > script
    if (!ends) expectLine("Login")
    held = ""; close(script); close(wanted)
}

function begin(how) {
    finish()
    run = sprintf("%02d", run + 1)
    script = out "/" run ".tvx"; wanted = out "/" run ".wanted"
    printf "" > wanted
    ends = how != ""
    sub(/^$|^ends$/, "0", how); sub(/^fails/, "1", how)
    if (sub(/^fault /, "3 Run-time error '", how)) how = how "'"
    print how > (out "/" run ".how")
}

# ---- Tables

function tableOf(name) { return out "/tables/" name ".csv" }

# The rows of Plain once more under another name.
function setting(text,    word, n, i, k, changes, files, file, line, head, cell, rows) {
    for (n = split(text, word, " "); n > 1; --n) { split(word[n] "=", cell, "="); changes[cell[1]] = cell[2] }
    n = split("tblAppDefault tblBaseRates tblDiseaseSymptom tblTreatments", files, " ")
    for (i = 1; i <= ("bare" in changes ? 1 : n); ++i) {
        file = tableOf(files[i]); rows = ""
        getline line < file; split(line, head, ",")
        while ((getline line < file) > 0) if (sub(/^Plain,/, word[1] ",", line)) {
            n = split(line, cell, ",")
            rows = rows word[1]
            for (k = 2; k <= n; ++k)
                rows = rows "," (i == 1 && head[k] in changes ? changes[head[k]] : cell[k])
            rows = rows "\n"
        }
        n = 4; close(file); printf "%s", rows >> file; close(file)
    }
}

function renew(name, head,    file) {
    file = tableOf(name)
    if (head == "") getline head < file
    close(file); print head > file; close(file)
}

function addRow(name, row,    times) {
    for (times = sub(/ \*7$/, "", row) ? 7 : 1; times > 0; --times) print row >> tableOf(name)
    close(tableOf(name))
}

# ---- Commands

function control(name) { return name ~ /^[TDOLN](\.|$)/ ? form[substr(name, 1, 1)] substr(name, 2) : name }

function quoted(text) {
    if (text ~ /^".*"$/) return text
    gsub(/\\/, "&&", text); gsub(/"/, "\\\\&", text)
    return "\"" text "\""
}

# What a check without a property looks at.
function property(name,    kind) {
    kind = name; sub(/^[^.]*\./, "", kind)
    if (kind ~ /\./) return name
    kind = substr(kind, 1, 3)
    return (kind in usual) && name ~ /^frm/ ? name usual[kind] : name
}

function check(targets, text, suffix,    list, i, count, name) {
    count = split(targets, list, " ")
    for (i = 1; i <= count; ++i) {
        name = list[i] == "box" ? "box.text" : control(list[i])
        if (name !~ /^(frm|box\.)/) name = "state " name
        emit("expect " (suffix == "" ? property(name) : name suffix) " " quoted(text))
    }
}

function restFrom(text, k) { while (--k > 0 && sub(/^[^ ]+ ?/, "", text)); return text }

function open(body, rest,    word, count, part, i, k) {
    split(rest, word, " ")
    count = split(body, part, / \| /)
    for (i = 1; i <= count; ++i) {
        if (match(part[i], /\$[0-9]\*/)) {
            k = restFrom(rest, substr(part[i], RSTART + 1, 1))
            if (k != "") part[i] = substr(part[i], 1, RSTART - 1) k
            else if (!sub(/\$[0-9]\*/, "", part[i]) || part[i] ~ / $/) continue
        }
        for (k = 1; k < 4; ++k) gsub("\\$" k, word[k], part[i])
        sub(/\$-1/, word[1] - 1, part[i])
        play(part[i])
    }
}

function commandOf(text,    word, count, i) {
    count = split(text, word, " ")
    i = word[1] == "run" ? 4 : word[1] == "try" ? 3 : 2
    return count < i ? text : substr(text, 1, length(text) - length(restFrom(text, i))) control(word[i]) \
        substr(text, length(text) - length(restFrom(text, i)) + length(word[i]) + 1)
}

function play(text,    verb, last, at) {
    verb = last = text; sub(/ .*/, "", verb); sub(/^.* /, "", last)
    at = index(text, " = ")
    if (verb == "refused") { emit("try " commandOf(restFrom(text, 2))); expectLine("refused: *") }
    else if (verb == "box" && !at || index(verbs, " " verb " ")) emit(commandOf(text))
    else if (verb in opening) open(opening[verb], restFrom(text, 2))
    else if (at) check(substr(text, 1, at - 1), substr(text, at + 3))
    else if (last in state) check(substr(text, 1, length(text) - length(last)), state[last], suffix[last])
    else stop("cannot be read: " text)
}

BEGIN {
    mark = "get frmLogin.caption"
    verbs = " click dblclick type paste key choose slide tick untick mark pick tab answer close wait run " \
            "draw get state sql expect try "
    form["T"] = "frmTavix"; form["D"] = "frmDiagnosis"; form["O"] = "frmOptions"; form["L"] = "frmLogin"
    form["N"] = "frmNewSubject"
    usual["lbl"] = usual["tag"] = usual["cmd"] = usual["fra"] = ".caption"; usual["lst"] = ".items"
    usual["txt"] = usual["cbo"] = usual["box"] = usual["img"] = ".text"
    usual["hsb"] = usual["chk"] = usual["opt"] = usual["tab"] = ".value"
    suffix["shown"] = suffix["hidden"] = ".visible"; suffix["enabled"] = suffix["disabled"] = ".enabled"
    suffix["focused"] = ".focus"
    state["shown"] = state["enabled"] = state["focused"] = "true"
    state["hidden"] = state["disabled"] = "false"
}
{ while (sub(/\\$/, "")) { all = $0; getline; $0 = all $0 } }
/^#/ || /^ *$/ { next }
NR == FNR { opening[$1] = restFrom($0, 2); sub(/^ +/, "", opening[$1]); next }
/^> / { expectLine(substr($0, 3)); next }
/^@start/ { begin(substr($0, 8)); next }
/^@setting / { setting(restFrom($0, 2)); next }
/^@table / { renew($2, restFrom($0, 3)); next }
/^@row / { addRow($2, restFrom($0, 3)); next }
{
    text = $0
    while (match(text, /\{.[^}]*\*[0-9]+\}/)) {
        word = substr(text, RSTART + 1, RLENGTH - 2); after = substr(text, RSTART + RLENGTH); all = ""
        text = substr(text, 1, RSTART - 1)
        at = match(word, /\*[0-9]+$/)
        for (i = substr(word, at + 1); i > 0; --i) all = all substr(word, 1, at - 1)
        text = text all after
    }
    count = split(text, part, / \| /)
    for (i = 1; i <= count; ++i) if (part[i] != "") play(part[i])
}
END { if (!broken) finish() }
