#!/usr/bin/env python3
"""Mutations of the product code of Tavix, one rule at a time, and what its own tests say to them.

    mutations.py                 all mutations
    mutations.py ID... A+B+C     these; with + a group that is applied at once, and halved when a test fails
    mutations.py --check         only looks whether each old text stands exactly once in its file
    mutations.py --list

Run at the root of a clone of the project with a release build (script/build release); as the code moves, the old texts,
the file names and NEEDS here have to follow (--check). For each: patch, incremental build, ctest
--stop-on-failure, restore. A test whose programs came out byte for byte as in the unmutated build is not run
again. `signature` (one hash over whole sessions) runs only when all other tests passed, so that the report can
tell "killed by a rule's test" from "killed by the hash alone". stationsTests and torture.powerCuts run last and
only where K is set, torture.kills only with --kill.
Results go to results.json in the folder MUTWORK (mutwork in the temporary folder unless set).
"""
import hashlib, json, os, re, subprocess, sys, tempfile, time

TOP = os.getcwd()
WORK = os.environ.get("MUTWORK", os.path.join(tempfile.gettempdir(), "mutwork"))
BIN = TOP + "/build/release/bin"
K = True

M = []
def m(id, file, old, new, rule, kill=False):
    M.append(dict(id=id, floor=file.split("/")[0], file=file, old=old, new=new, rule=rule, kill=kill))

# ---- platform
m('P01', 'platform/checkedInteger.cpp', 'return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;', 'return below + 1.0;', 'halves go to the even neighbour')
m('P03', 'platform/numberText.cpp', ">= '5'", "> '5'", 'two decimals: halves away from zero')
m('P05', 'platform/numberText.cpp', '    if (shown == 0) shown = dial::hours;\n', '', 'hour 0 reads 12 on the dial')
m('P07', 'platform/pictures.cpp', 'if (start.starts_with(kind.signature)) return kind.read(file);', 'if (start.starts_with(kind.signature)) return true;', 'a picture is decoded to its end')
m('P09', 'platform/fault.cpp', "Run-time error '{}':\\n{}", "Run-time error '{}': {}", 'the report of a fault has a line break')
m('P11', 'platform/text.cpp', 'u_foldCase(letter, U_FOLD_CASE_DEFAULT)', 'letter', 'accented letters have two cases')
m('P12', 'platform/files.cpp', '    static_cast<void>(synchronize(folder));\n    std::filesystem::rename', '    std::filesystem::rename', 'a journal that is gone does not come back beside a new store', K)
m('P13', 'platform/list.h', 'index < 0 || index >= size()', 'index < 0 || index > size()', 'index out of range is a fault')
m('P15', 'platform/privacy.cpp', 'std::min<rlim_t>(core.rlim_max, 1)', 'core.rlim_max', 'a crash leaves no core file')
m('P17', 'platform/privacy.cpp', '    ::umask(::umask(S_IRWXO) | S_IRWXO);\n', '', 'new files are not for everybody')
# ---- forms
m('F02', 'forms/control.cpp', '    control.selected.erase(control.selected.begin() + index);\n', '    control.selected.pop_back();\n', 'a removed line takes its selection with it')
m('F04', 'forms/windows.cpp', 'void hide(Control& form) {\n    std::erase(modals(), &form);\n', 'void hide(Control& form) {\n', 'a hidden modal form is modal no more, at once')
m('F06', 'forms/windows.cpp', '    if (form.active != nullptr && isUsable(*form.active)) return takeFocus(*form.active);\n', '', 'a form comes up with the focus on its last active control')
m('F08', 'forms/frmDiagnosis.cpp', '.look.alarming = true;', '.look.alarming = false;', 'the reason of a refusal is in the alarm colour')
m('F11', 'forms/frmTavix.cpp', '    intro.readOnly = true;\n', '', 'the subject cannot write in the introduction')
m('F13', 'forms/frmTavix.cpp', '    help.look.clips = true;  // its caption grows with each patient\n', '', 'the growing header is clipped, not shrunk')
m('F15', 'forms/frmTavix.cpp', 'lblMonitorX), {7860, 3570, 600, 210}, "Time")', 'lblMonitorX), {7860, 3570, 600, 210}, "Tine")', 'a caption')
m('F17', 'forms/design.cpp', '    control.on = std::move(kept);\n', '', 'unloading keeps the handlers')
# ---- state
m('S01', 'state/TrialState.h', '    Int16 findingsMask;', '    Int32 findingsMask;', 'fifteen symptoms are the limit (16 bits)')
m('S03', 'state/TrialState.h', '    Int32 elapsedMinutes;', '    Int16 elapsedMinutes;', 'elapsed minutes have 32 bits')
# ---- store
m('T02', 'store/layer/engine.cpp', 'access == Access::Read ? "PRAGMA query_only = ON" : "PRAGMA synchronous = EXTRA"', 'access == Access::Read ? "PRAGMA synchronous = EXTRA" : "PRAGMA synchronous = EXTRA"', 'a reading connection cannot write')
m('T03', 'store/layer/engine.cpp', '"PRAGMA synchronous = EXTRA"', '"PRAGMA synchronous = FULL"', 'a commit survives a cut of the power', K)
m('T04', 'store/layer/engine.cpp', '    require(sqlite3_create_collation(database->handle, "NOCASE", SQLITE_UTF8, nullptr, compareTexts));\n', '    static_cast<void>(compareTexts);\n', "the store's texts compare without accents' case")
m('T06', 'store/layer/engine.cpp', '        execute(database, "BEGIN EXCLUSIVE");', '        execute(database, "BEGIN");', 'a writable set takes the file at once', K)
m('T08', 'store/layer/openTable.cpp', 'readOnly ? engine::Access::Read : engine::Access::Write', 'engine::Access::Write', 'a snapshot is opened for reading')
m('T10', 'store/layer/engine.cpp', '    execute(database, "COMMIT");\n    execute(database, "BEGIN EXCLUSIVE");\n', '', 'Update is on the disk when it returns', K)
m('T11', 'store/layer/engine.cpp', '    delete connection;\n', '', 'what a connection held goes with it')
m('T13', 'store/layer/engine.cpp', '    execute(*database, "PRAGMA temp_store = MEMORY");\n', '    execute(*database, "PRAGMA temp_store = FILE");\n', 'what the engine sets aside is no file')
m('T12', 'store/layer/recordSet.cpp', 'return !isNull() && number() != 0.0;', 'return !isNull() && number() == 1.0;', '-1 is true')
m('T14', 'store/layer/keyDerivation.cpp', 'known[{password, salt}]', 'known[{password, Salt{}}]', 'a key belongs to its salt')
m('T16', 'store/layer/schema.cpp', '{{"H", "", "belief of the row in percent", 6, true}}', '{{"H", "", "belief of the row in percent", 4, true}}', 'six columns of beliefs')
m('T18', 'store/record/Options.cpp', 'FlagColumn{"ViewBaseRates", &OptionsRecord::ViewBaseRates}', 'FlagColumn{"ViewBaseRates", &OptionsRecord::ViewSymptomDisease}', 'each column its own flag')
m('T20', 'store/layer/dialect.cpp', "if (c == '%' || c == '_' || c == '\\\\') result += '\\\\';", "if (c == '%' || c == '\\\\') result += '\\\\';", 'an underscore stands for itself')
# ---- trial
m('R02', 'trial/run/evaluation.cpp', 'Options.UseNormalizeScore && !Options.Normalize', 'static_cast<bool>(Options.UseNormalizeScore)', 'beliefs that the commits normalise are not normalised again at the end')
m('R04', 'trial/run/evaluation.cpp', '    chargeTests();\n    sumUp();\n', '    if (trialState.patients[trialState.currentPatient].status != endings::aborted) chargeTests();\n    sumUp();\n', "an aborted patient's tests are charged")
m('R06', 'trial/run/evaluation.cpp', 'round16(toNumber(e.testScoreText) - toNumber(e.penaltyCalcText))', 'round16(toNumber(e.testScoreText) - trialState.penalty)', 'the change on show uses the whole penalty')
m('R08', 'store/loading/modAppLoad.cpp', '+ "ORDER BY [tblAppDefault.Setting]"', '+ ""', 'the sign-in list is sorted (its place indexes the rates)')
m('R10', 'store/loading/modAppLoad.cpp', 'value != 1 && value != 0 && value != -1', 'value > 1', 'a TreatmentProperty below -1 ends the program')
m('R12', 'store/record/modAppRecord.cpp', 'for (Int16 i = 0; i < trialState.symptomCount; ++i) {\n        state.Fields', 'for (Int16 i = 0; i < trialState.diseaseCount; ++i) {\n        state.Fields', 'as many first beliefs as symptoms')
m('R14', 'store/record/modAppRecord.cpp', '    trial.Fields("EndTime") = host().timeOfDay();\n', '', 'the end has its time')
m('R16', 'trial/course/modClock.cpp', '    windows::setFocus(box);\n', '    static_cast<void>(windows::setFocus);\n', 'a refused start time has the focus')
m('R18', 'trial/course/modClock.cpp', '        if (s.endPasses < 1) {', '        if (s.endPasses <= 1) {', 'the end is let go by as often as the plan passes twelve')
m('R20', 'trial/course/modHealth.cpp', '    tellPlotWatchers(-1);\n', '', "the former patient's trace goes from the screen")
m('R22', 'trial/course/modHealth.cpp', '    randomSource::reseed(host().milliseconds());\n', '', 'every draw is preceded by a reseed')
m('R24', 'trial/course/modHealth.cpp', '{panel().left, y, panel().left, y, false}', '{panel().left, y, segment.x2, segment.y2, segment.visible}', "the former patient's segments are taken back")
m('R26', 'trial/run/run.cpp', '    s.evidenceCount = 0;\n', '', 'evidence notes are counted anew for each patient')
m('R28', 'trial/run/run.cpp', '    s.patientSaved = false;\n', '', 'saved is taken back for the next patient')
m('R30', 'trial/run/run.cpp', '    windows::setFocus(frmTavix.cmdNextPatient);\n', '', 'the focus is on Next Patient at the end')
m('R32', 'trial/run/run.cpp', '    modSymptom::resetSymptomNotes();\n', '', 'the notes are forgotten for the next patient')
# ---- knowledge
m('K01', 'knowledge/modDisease.cpp', '+ "ORDER BY [tblBaseRates.Setting]"', '+ ""', 'the rates are sorted as the sign-in list is')
m('K03', 'knowledge/caseDraw.cpp', '    s.findingsMask = 0;\n', '', 'the findings of the former patient go')
m('K05', 'knowledge/modPatient.cpp', 'constexpr int mostTries = 50;', 'constexpr int mostTries = 5;', 'fifty tries for an untreated person')
m('K07', 'knowledge/modPatient.cpp', '+ "ORDER BY Trial DESC"', '+ ""', 'a subject resumes after the last trial')
m('K09', 'platform/text.cpp', 'starts_with("\\r\\n") ? 2 : 1', 'starts_with("\\r\\n") ? 1 : 1', 'a carriage return and a line feed are one line end')
m('K11', 'knowledge/modSymptom.cpp', 'constexpr int evidenceLimit = 100;', 'constexpr int evidenceLimit = 101;', '99 characters are the longest evidence')
m('K13', 'knowledge/modSymptom.cpp', '    windows::setFocus(frmTavix.txtReasoning);\n', '', 'the focus goes to the comment after Take Down Note')
m('K15', 'knowledge/modSymptom.cpp', '    markDeleted(note);\n    modAppRecord::recordEvent("RemoveSymptom"', '    static_cast<void>(markDeleted);\n    modAppRecord::recordEvent("RemoveSymptom"', 'a removed note is marked')
m('K17', 'knowledge/modTests.cpp', '    setEnabled(frmTavix.tmrTestMessage, false);\n    setEnabled(frmTavix.tmrTestMessage, true);\n', '    setEnabled(frmTavix.tmrTestMessage, true);\n', "the message's three seconds begin anew")
m('K19', 'knowledge/modTests.cpp', 'trialState.clockHour == 1 && trialState.clockMinute == 0)', 'trialState.clockHour == 1)', "past twelve ends at one o'clock sharp")
m('K21', 'knowledge/modTests.cpp', '    windows::setFocus(frmTavix.cmdDiagnosis);\n', '', 'the focus goes to Make Diagnosis after a test')
m('K23', 'knowledge/modTreatments.cpp', '        tell("Please check database file", "Problems reading from treatment table");\n', '', 'a treatment that was not recorded is said')
m('K25', 'knowledge/modTreatments.cpp', '    if (line < 0) return;\n', '    if (line <= 0) return;\n', "the header's line empties the choice")
m('K27', 'knowledge/termOrders.cpp', 'constexpr int mostDiseases = 4;', 'constexpr int mostDiseases = 5;', 'four diseases at most')
m('K29', 'knowledge/modTests.cpp', '    while (test.etaMinute >= dial::minutesInHour) {', '    while (test.etaMinute > dial::minutesInHour) {', 'sixty minutes are an hour')
m('K31', 'knowledge/modTreatments.cpp', '    } catch (const Fault&) {\n', '    } catch (const std::nullptr_t&) {\n', 'a treatment that cannot be recorded does not end the run')
# ---- diagnosis
m('D02', 'diagnosis/modDiagnosis.cpp', '    const Guess guess = takeGuess();\n    focusLastName();\n', '    const Guess guess = takeGuess();\n', 'the dialog comes back with the focus on the last name')
m('D04', 'diagnosis/modDiagnosis.cpp', '        if (Options.DiagnoseAllDiseases) enableTime(true);\n', '        enableTime(true);\n', 'a cancel starts time again only with all diseases')
m('D06', 'diagnosis/modDiagnosis.cpp', '    setInterval(frmTavix.tmrHealth, 1);\n', '', 'a final diagnosis sets the health timer to 1 ms')
m('D08', 'diagnosis/modDiagnosis.cpp', 'Options.TimeStopDiagnosis && !trialHasEnded()', 'Options.TimeStopDiagnosis', 'a final diagnosis does not start time again')
m('D10', 'diagnosis/modHypotheses.cpp', 'for (Int16 k = 0; k < last; ++k) {', 'for (Int16 k = 0; k <= last; ++k) {', 'the focus goes to the earlier of two equal names')
m('D12', 'diagnosis/modHypotheses.cpp', '    limitMeters(f.DiagnosisCount + 1);', '    limitMeters(f.DiagnosisCount);', "the removed row's limit moves too")
m('D14', 'diagnosis/diagnosisRecord.cpp', '    ++trialState.diagnosisCount;\n    trialState.diagnosisStateId = modAppRecord::stateId();\n', '    trialState.diagnosisStateId = modAppRecord::stateId();\n    ++trialState.diagnosisCount;\n', 'a state has the number of its diagnosis')
# ---- screens
m('N01', 'screens/modAppDisplay.cpp', '        setCaption(f.lblTestResult[i], {});\n', '', "the former patient's results go")
m('N03', 'forms/keys.h', '        if (code == options) action();\n        return true;\n', '        if (code == options) action();\n        return false;\n', 'every other key passes (Enter on Next Patient)')
m('N05', 'screens/signIn.cpp', '        windows::setFocus(frmNewSubject.boxMajor);\n', '', 'the focus goes to the major that is none')
m('N07', 'screens/wiring.cpp', '    f.txtAge.on.key = keys::onEnter(signIn::beginStudy);\n', '', 'Enter in the age begins')
m('N09', 'screens/signIn.cpp', '    designFrmNewSubject();\n', '', 'the questionnaire begins empty each time')
m('N11', 'screens/signIn.cpp', 'if (text::length(history.text) < historyLimit || code == keys::backspace) return true;', 'if (text::length(history.text) <= historyLimit || code == keys::backspace) return true;', 'the 251st character is not taken')
m('N13', 'screens/feedback.cpp', 'trialState.treatments[trialState.lastTreatmentIndex];', 'trialState.treatments[patient().bestTreatment];', "your treatment's chances are those of the last one")
m('N15', 'screens/modAppDisplay.cpp', '    setEnabled(f.tmrHealthMonitor, true);\n', '', 'the monitor runs for the next patient')
m('N17', 'screens/mainScreen.cpp', '    modHealth::plotHealthHour();\n', '', 'each full hour is plotted')
# ---- knowledge
m('N19', 'knowledge/modTreatments.cpp', '        tell("Please choose one of the given treatments");\n        windows::setFocus', '        tell("Please choose one of the given treatments");\n        if (frmTavix.cboTreatment.text.empty()) endProgram();\n        windows::setFocus', 'a refused prescription does not end the program (status 0)')
# ---- qt
m('Q02', 'qt/boxes.cpp', '    widget->setTextFormat(Qt::PlainText);\n', '', "a box shows a note's < and & as they are")
m('Q04', 'qt/edge.cpp', '        stopped = true;\n        end(', '        end(', 'after a fault nothing runs any more')
m('Q06', 'forms/person.cpp', 'case Kind::Button: return code == keys::enter || code == keys::space;', 'case Kind::Button: return code == keys::space;', 'Enter presses a button')
m('Q08', 'qt/faceMeter.cpp', '    bar->setPageStep(control.largeChange);\n', '', 'Page Up and Down move a meter by its large step')
m('Q10', 'forms/person.cpp', 'control.on.doubleClick && (code == keys::enter || code == keys::space);', 'control.on.doubleClick && code == keys::enter;', 'the space bar measures a vital sign')
m('Q12', 'forms/lineBreaks.cpp', 'at += isBreak ? breakLength : text::', 'at += isBreak ? 1 : text::', 'a line break counts as two')
m('Q14', 'qt/formWindow.cpp', 'std::min(wanted, scaleThatFits(form, screen.size() * dialogShare))', '(static_cast<void>(dialogShare), wanted)', 'a dialog fits the screen')
m('Q16', 'qt/mirror.cpp', '        case Property::Enabled: face.widget->setEnabled(control.enabled); break;\n', '        case Property::Enabled: break;\n', 'what is disabled cannot be pressed')
m('Q18', 'qt/mirror.cpp', '    if (property == Property::Caption) face.widget->setAccessibleName(names::accessibleName(control));\n', '', 'a screen reader hears the new value')
m('Q20', 'qt/mirror.cpp', '    edge::connect(qApp, &QApplication::focusChanged, takeFocus);\n', '    static_cast<void>(takeFocus);\n', "the person's focus is the record's")
m('Q22', 'qt/radioSpeech.cpp', '        state.checked = button().isChecked();\n', '', 'a screen reader hears which test is chosen')
m('Q24', 'qt/desktopTheme.cpp', 'return *scheme == preferDark;', 'return *scheme != preferDark;', "the desktop's dark setting is followed")
m('Q26', 'qt/main.cpp', '    realTimers::build();\n', '', 'the clock of the desktop program runs')
m('Q28', 'qt/main.cpp', '(std::uint64_t{chance()} << 32U) | chance()', '1', 'each run draws other patients')
m('Q30', 'qt/look.cpp', '.disabledText = QColor(0x62, 0x6C, 0x76)', '.disabledText = QColor(0x92, 0x9C, 0xA6)', 'disabled text can be read')
m('Q32', 'qt/look.cpp', 'QLabel[role="error"] { color: @alarm; }\n', '', 'an error is in the alarm colour')
m('Q36', 'qt/facesPlain.cpp', '    hookKeys(&label, control);\n', '', 'a vital sign is measured by key too')
# ---- headless
m('H01', 'headless/commands.cpp', '    if (sameValue(actual, line.lastOf(count)) || sameValue(actual, line.arguments[count - 1])) return;\n', '    if (line.arguments.size() >= count) return;\n', 'an expectation that does not hold fails the script')
m('H03', 'headless/player.cpp', 'constexpr int failedStatus = 1;', 'constexpr int failedStatus = 0;', 'a failed script ends with status 1')
m('H05', 'stage/virtualTime.cpp', 'if (!timer.on.timer || slots[at].running) return;', 'if (!timer.on.timer) return;', 'a tick under its own box is lost')
m('H07', 'headless/commands.cpp', '    if (!windows::boxInFront()) throw Refused{"the message box stands behind " + windows::topModal()->form};\n', '', 'a box behind a dialog cannot be answered')
m('H09', 'stage/scriptedHost.cpp', '    host.checkPicture = pictures::check;\n', '    host.loadPicture = [](const std::string&) {};\n', 'pictures are checked without a screen too')
# ---- tools
m('L01', 'study/fieldValue.cpp', 'for (const char* yes : {"yes", "true", "1", "-1"}) {', 'for (const char* yes : {"yes", "1", "-1"}) {', 'true is a yes')
m('L03', 'tools/told.cpp', 'return problems.empty() ? 0 : 1;', 'return 0;', "tavixdb's status says that it failed")
m('L05', 'study/createStore.cpp', 'fs::weakly_canonical(fs::absolute(file, failed), failed);', 'fs::absolute(file, failed);', 'a link stays a link')
m('L07', 'study/readTables.cpp', '        if (line.find(\'\\0\') != std::string_view::npos)\n            return sheet.complain(number, "holds a zero byte; save the file as UTF-8 text");\n', '', 'a file with zero bytes is refused')
m('L09', 'study/readTables.cpp', 'fileIsUtf8.value_or(isUtf8) != isUtf8', 'fileIsUtf8.value_or(false) && !isUtf8', 'a mixture of encodings is refused')
m('L11', 'study/fieldValue.cpp', 'for (const char* no : {"no", "false", "0"}) {', 'for (const char* no : {"no", "false"}) {', '0 is a no')
m('L13', 'study/createStore.cpp', 'if (!force) return refused(', 'if (force && !force) return refused(', 'nothing is replaced unasked')
m('L15', 'study/csv.cpp', 'return text.empty() || text.front()', 'return text.front()', 'an empty text is no empty value')
m('L17', 'study/keptTables.cpp', 'one.date > moment', 'one.date < moment', 'a moment finds the tables of its time')
m('L19', 'study/openSessions.cpp', 'moment(-youngMinutes)', 'moment(-2 * youngMinutes)', 'only young rows are a session')
m('L21', 'study/updateStore.cpp', 'if (!wish.dryRun) engine', 'engine', 'a dry run changes nothing')
# ---- pilot
m('R01', 'pilot/pilotRun.cpp', 'engine::execute(database, "ROLLBACK");', 'engine::execute(database, "COMMIT");', 'each simulated subject finds the store empty')
m('R03', 'pilot/pilotRun.cpp', 'all() * (shard - 1) / run.shards', '(all() / run.shards) * (shard - 1)', 'shards leave nobody out')
m('R05', 'pilot/session.cpp', 'randomSource::fixState(chance::bits(program));', 'static_cast<void>(chance::bits(program));', "a subject's chance is its own")
m('R07', 'study/mergeStores.cpp', 'if (simulated::isMark(name)) continue;', '', 'what tells of simulated subjects is no configuration')
# ---- check, export, merge, report
m('L23', 'study/checkRates.cpp', 'if (sum == whole100) return;', 'if (sum >= whole100) return;', 'rates above 100 are told')
m('L25', 'study/checkRates.cpp', 'count > mostDiseases && options.isTrue', 'count > mostSymptoms && options.isTrue', 'five symptoms are too many where all diseases are judged at once')
m('L27', 'study/checkOptions.cpp', 'const bool testsFit = perTest * tests <= most16;', 'const bool testsFit = perTest <= most16;', 'the cost of all tests fits 16 bits')
m('L29', 'study/tidyTrials.cpp', 'return large * 60 + small;', 'return large * 60 - small;', 'minutes and seconds add up')
m('L31', 'study/tidyTrials.cpp', '    if (hidden && other) return {};\n', '', 'a tie of the highest beliefs is neither right nor wrong')
m('L33', 'study/tidyTrials.cpp', 'digits.substr(digits.size() - words->symptoms.size())', 'digits.substr(0, words->symptoms.size())', 'the last digits are the findings of the words')
m('L35', 'study/mergeStores.cpp', 'other->second == owner) continue;', 'other->second != owner) continue;', 'two subjects with one identifier are refused')
m('L37', 'study/mergeStores.cpp', 'if (source.added.contains(owners[i]))', 'if (!owners[i].empty())', 'a subject that stands there already is not added again')
m('L39', 'study/mergeStores.cpp', '    differences(own, target.configuration);\n', '', 'a table that only the source has is a difference')
m('L41', 'study/figures.cpp', '(place - std::floor(place))', '(std::ceil(place) - place)', 'a quartile lies nearer to the nearer value')
m('L45', 'study/figures.cpp', 'each.disease == patient->disease ? 1 : 0', 'each.disease == patient->disease ? 0 : 1', 'beliefs are held against the hidden disease')
m('T22', 'store/layer/rowLookup.cpp', '        if (longer.size() > mostSpellings) return {};\n', '        if (longer.size() > 1) longer.resize(1);\n', 'every spelling of a name is looked up')
m('T24', 'store/layer/rowLookup.cpp', '!condition->beginning, mostRows', 'true, mostRows', 'the rows of a beginning are more than those that are no longer')
m('R09', 'pilot/inference.cpp', 'all > 0 && tables.baseRates[j] > 0 ? ', 'all > 0 && tables.baseRates[j] >= 0 ? ', 'a disease that nobody has has no computed chance')
m('R11', 'pilot/foresight.cpp', 'double sum = -std::max(at.task.testCost, 0.0);', 'double sum = 0.0;', 'a test is worth its cost or not issued')
m('R13', 'pilot/deliberate.cpp', 'task.yoked && count > 1 ? whole + 1 - count : whole;', 'whole;', 'stated beliefs keep within yoked meters')
m('R15', 'pilot/prospects.h', 'test->fall > testCost', 'test->fall > 0', 'a test pays by more than its cost')

NEEDS = {  # programs that a test runs
    "platformTests": ["platformTests"], "formsTests": ["formsTests"], "storeTests": ["storeTests"],
    "logicTests": ["logicTests"], "mindTests": ["mindTests"], "pilotTests": ["pilotTests", "tavix-pilot", "tavixdb"], "toolsTests": ["toolsTests", "tavixdb"],
    "studyTests": ["studyTests", "tavixdb"], "studioTests": ["studioTests"], "analyst": ["tavix-headless", "tavixdb"],
    "qtTests": ["qtTests", "tavix-twin", "tavixdb"], "torture.kills": ["tavix-headless", "tavixdb"],
    "torture.powerCuts": ["tavix-headless", "tavixdb"],
    "stationsTests": ["tavix-headless", "tavix-twin", "tavixdb"],
    "desktop": ["tavix", "tavixdb"],
    "signature": ["walk", "tavix-headless", "tavixdb"],
    "torture.randomPlay": ["walk", "tavix-headless", "tavix-twin", "tavixdb"], "script.": ["tavix-headless", "tavix-twin", "tavixdb"],
    "instrument": ["tavix-headless", "tavix-twin", "tavixdb"],
    "security": ["tavix-headless", "tavix-twin", "tavixdb"], "torture.soak": ["tavix-headless", "tavix-twin", "tavixdb"],
}
TARGETS = ["tavix", "tavixdb"] + sorted({p for ps in NEEDS.values() for p in ps} - {"tavixdb"})

def hashes():
    return {p: hashlib.sha256(open(BIN + "/" + p, "rb").read()).hexdigest() for p in TARGETS}

def build():
    r = subprocess.run(["nice", "-n", "10", "ninja", "-C", TOP + "/build/release"] + TARGETS, capture_output=True, text=True)
    return r.returncode == 0, r.stdout[-3000:] + r.stderr[-1000:]

def ctest(pattern, timeout=100):
    t = time.time()
    r = subprocess.run(["nice", "-n", "10", "ctest", "--preset", "release", "-j" + os.environ.get("JOBS", "2"), "--stop-on-failure", "--timeout", str(timeout),
                        "-R", pattern], cwd=TOP, capture_output=True, text=True)
    failed = re.findall(r"Test\s+#\d+: (\S+) \.*\s*\*\*\*(\S+(?: \S+)?)", r.stdout)
    return failed, r.stdout, time.time() - t

def first_lines(out):
    keep = [l for l in out.splitlines() if re.search(r"FAILED|Failure|: error|expected \"|^[<>] |says|line \d+:|wanted", l)]
    return keep[:6]

def run(xs, base):
    """Applies all of xs at once (one, or a group of unrelated ones), and says what the tests say."""
    before = {}
    for x in xs:
        path = TOP + "/" + x["file"]
        text = open(path, encoding="utf-8").read()
        before.setdefault(path, text)
        if text.count(x["old"]) != 1:
            for p, b in before.items(): open(p, "w", encoding="utf-8").write(b)
            return dict(result="old text of %s stands %d times" % (x["id"], text.count(x["old"])))
        open(path, "w", encoding="utf-8").write(text.replace(x["old"], x["new"]))
    t = time.time()
    try:
        ok, log = build()
        if not ok:
            return dict(result="did not compile", detail=[l for l in log.splitlines() if "error:" in l][:3])
        built = time.time() - t
        now = hashes()
        changed = {p for p in TARGETS if now[p] != base[p]}
        tests = [n for n, ps in NEEDS.items() if changed & set(ps)]
        res = dict(changed=sorted(changed), built=round(built, 1))
        if len(xs) > 1: res["group"] = [x["id"] for x in xs]
        if not changed:
            return dict(res, result="no program changed")
        kill = any(x["kill"] for x in xs) or "--kill" in sys.argv
        late = ["qtTests"] if changed & {"logicTests", "formsTests"} and not any(x["floor"] == "forms" for x in xs) else []
        slow = ["stationsTests", "torture.powerCuts", "torture.kills"]  # many whole sessions: only where K is set, and with --kill
        rest = [n for n in tests if n not in ["signature"] + slow + late]
        order = [rest, late if "qtTests" in tests else [], ["signature"] if "signature" in tests else [],
                 [n for n in slow[:2] if kill and n in tests],
                 ["torture.kills"] if "--kill" in sys.argv and "torture.kills" in tests else []]
        res["ran"] = [n for o in order for n in o]
        for names in order:
            if not names: continue
            pattern = "^(" + "|".join(re.escape(n) + (".*" if n.endswith(".") else "") for n in names) + ")$"
            failed, out, took = ctest(pattern, 600 if "torture.kills" in names else 100)
            if failed:
                kind = "timeout" if any("Timeout" in f[1] for f in failed) else "killed"
                return dict(res, result=kind, by=[f[0] for f in failed], detail=first_lines(out), took=round(time.time() - t, 1))
        return dict(res, result="survived", took=round(time.time() - t, 1))
    finally:
        for p, b in before.items(): open(p, "w", encoding="utf-8").write(b)

def group(xs, base, note):
    """Group testing for those that are expected to survive: all at once, and halves when something fails."""
    r = run(xs, base)
    if len(xs) == 1 or r["result"] in ("survived", "no program changed"):
        for x in xs: note(x, r)
        return
    print(time.strftime("%H:%M:%S"), "group", " ".join(x["id"] for x in xs), r["result"], r.get("by", ""), flush=True)
    half = len(xs) // 2
    group(xs[:half], base, note)
    group(xs[half:], base, note)

def main():
    global M
    M = [x for x in M if x]
    if "--help" in sys.argv: return print(__doc__)
    if "--list" in sys.argv:
        for x in M: print(x["id"], x["file"], "-", x["rule"])
        return
    if "--check" in sys.argv:
        for x in M:
            n = open(TOP + "/" + x["file"], encoding="utf-8").read().count(x["old"])
            if n != 1: print(x["id"], x["file"], "stands", n, "times:", repr(x["old"][:90]))
        print(len(M), "mutations")
        return
    os.makedirs(WORK, exist_ok=True)
    wanted = [a for a in sys.argv[1:] if not a.startswith("-")]
    store = WORK + "/results.json"
    results = json.load(open(store)) if os.path.exists(store) else {}
    basefile = WORK + "/base.json"
    if os.path.exists(basefile):
        base = json.load(open(basefile))
    else:
        ok, log = build()
        assert ok, log
        base = hashes()
        json.dump(base, open(basefile, "w"))
    byId = {x["id"]: x for x in M}
    def note(x, r):
        results[x["id"]] = r
        json.dump(results, open(store, "w"), indent=1)
        print(time.strftime("%H:%M:%S"), x["id"], x["file"], "|", x["rule"], "|", r["result"], r.get("by", ""), r.get("took", ""), (r.get("detail") or [""])[0][:140], flush=True)
    for word in wanted or [x["id"] for x in M]:  # "A+B+C" is a group
        xs = [byId[i] for i in word.split("+") if i not in results or "--again" in sys.argv]
        if os.path.exists(WORK + "/stop"): break
        if xs: group(xs, base, note)

if __name__ == "__main__":
    main()
