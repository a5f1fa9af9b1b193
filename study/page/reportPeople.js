// The subjects of the scenario, the choice of one, and the beginning of all.
function drawPeople() {
    const section = byId("people");
    const wasOpen = section.querySelector("details") && section.querySelector("details").open;
    section.replaceChildren();
    const details = element(section, "details");
    details.open = Boolean(wasOpen);
    const rows = data.figures.filter(f => f.scenario === view.scenario && f.subject !== null);
    element(element(details, "summary"), "b", `Subjects of ${data.scenarios[view.scenario]} (${rows.length})`);
    table(details, "Subjects", [["Subject"], ["Patients", true], ["Finished", true], ["Saved", true],
        ["Last score", true], ["|Belief \u2212 chance|, mean", true], ["First test, median", true],
        ["First diagnosis, median", true]], rows.map(f => {
        const name = document.createElement("button");
        name.textContent = data.subjects[f.subject];
        name.addEventListener("click", () => { choose(f.subject); byId("score").scrollIntoView(); });
        return [name, number(f.patients), number(f.finished), share(f.saved, f.finished),
            f.score ? number(f.score.marks[2]) : "", number(f.distance, 2), f.test ? seconds(f.test.marks[2]) : "",
            f.diagnosis ? seconds(f.diagnosis.marks[2]) : ""];
    }));
}

// The list of subjects of the scenario, or those with the sought part in their names.
function listSubjects() {
    const part = byId("find").value.trim().toLowerCase();
    const select = byId("subject");
    select.replaceChildren(new Option("all subjects", "", false, view.subject === null));
    for (const f of data.figures) {
        if (f.scenario !== view.scenario || f.subject === null) continue;
        const name = data.subjects[f.subject];
        if (f.subject !== view.subject && part && !name.toLowerCase().includes(part)) continue;
        select.add(new Option(name, f.subject, false, f.subject === view.subject));
    }
}
function draw() {
    const f = figuresOf(view.scenario, view.subject);
    drawScore();
    drawChance(f);
    drawCalibration(f);
    drawEnds(f);
    drawTimes(f);
}
function choose(subject) {
    view.subject = subject;
    if (subject !== null) {
        const own = inView();
        if (own.length && patients[view.patient].subject !== subject) view.patient = own[0].at;
    }
    listSubjects();
    draw();
    drawLine();
}

drawSummary();
if (!patients.length) {
    byId("choice").remove();
    return;
}
view.scenario = patients[data.chosen].scenario;
byId("scenario").replaceChildren(...data.scenarios.map((name, i) => new Option(name, i, false, i === view.scenario)));
byId("scenario").addEventListener("change", event => {
    view.scenario = Number(event.target.value);
    if (view.subject !== null && !figuresOf(view.scenario, view.subject)) view.subject = null;
    choose(view.subject);
    drawPeople();
});
byId("subject").addEventListener("change", event => choose(event.target.value === "" ? null : Number(event.target.value)));
byId("find").addEventListener("input", () => {
    listSubjects();
    const found = [...byId("subject").options].filter(o => o.value !== "");
    if (byId("find").value.trim() && found.length === 1) choose(Number(found[0].value));
});
choose(null);
drawPeople();
