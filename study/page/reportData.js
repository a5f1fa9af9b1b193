// Draws the report. All arithmetic is done: #data holds the figures, this chooses what is shown of them.
const fields = ["subject", "scenario", "trial", "place", "start", "state", "result", "disease", "saved", "score",
    "duration", "health", "belief", "chance", "test", "diagnosis", "events"];
const states = ["finished", "aborted", "no end was written", "repeated"];
const actions = ["Note", "Note removed", "Test", "Diagnosis", "Treatment"];
const finished = 0, open = 2, repeated = 3;
const word = place => data.words[place];
const patients = data.patients.map((row, at) => {
    const patient = {at};
    fields.forEach((name, i) => { patient[name] = row[i]; });
    for (const name of ["start", "result", "disease"]) patient[name] = word(patient[name]);
    return patient;
});
const bySubject = d3.group(patients, p => p.subject);
const figuresOf = (scenario, subject) =>
    data.figures.find(f => f.scenario === scenario && f.subject === subject);

const view = {scenario: 0, subject: null, patient: data.chosen, lineSubject: null};
const chosenText = () => data.scenarios[view.scenario] + " \u00b7 " +
    (view.subject === null ? "all subjects" : data.subjects[view.subject]);
const inView = () => (view.subject === null ? patients : bySubject.get(view.subject) || [])
    .filter(p => p.scenario === view.scenario);

function drawSummary() {
    byId("store").textContent = data.store;
    const ends = [0, 0, 0, 0];
    let last = "";
    for (const p of patients) {
        ends[p.state] += 1;
        if (p.start > last) last = p.start;
    }
    byId("summary").textContent = !patients.length ? "No patient has been treated yet." :
        [count(data.subjects.length, "subject", "subjects") + (!data.simulated ? "" :
            data.simulated < data.subjects.length ? `, of whom ${data.simulated} are simulated` :
                ", all of them simulated and none a person"), `${count(ends[0], "patient", "patients")} finished`,
            `${ends[1]} aborted by the experimenter's key`, `${ends[2]} without an end`,
            ...(ends[3] ? [`${count(ends[3], "row", "rows")} of repeated cases, left out of the figures`] : []),
            `last patient began ${last}`].join(" \u00b7 ");
    const rows = data.scenarios.map((name, i) => {
        const f = figuresOf(i, null);
        const people = data.figures.filter(g => g.scenario === i && g.subject !== null && g.patients).length;
        return [name, number(people), number(f.patients), number(f.finished), share(f.saved, f.finished),
            f.score ? number(f.score.marks[2]) : "", number(f.distance, 2),
            f.test ? seconds(f.test.marks[2]) : "", f.diagnosis ? seconds(f.diagnosis.marks[2]) : ""];
    });
    table(byId("scenarios"), "Scenarios", [["Scenario"], ["Subjects", true], ["Patients", true],
        ["Finished", true], ["Saved", true], ["Last score, median", true], ["|Belief \u2212 chance|, mean", true],
        ["First test, median", true], ["First diagnosis, median", true]], rows);
}
