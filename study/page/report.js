"use strict";
// Draws the report. All arithmetic is done: #data holds the figures, this chooses what is shown of them.
(() => {
const data = JSON.parse(document.getElementById("data").textContent);
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

const byId = id => document.getElementById(id);
const number = (value, digits = 0) =>
    value === null || value === undefined ? "" : value.toFixed(digits).replace("-", "\u2212");
const seconds = value => value === null || value === undefined ? "" :
    `${Math.floor(Math.round(value) / 60)}:${String(Math.round(value) % 60).padStart(2, "0")}`;
const share = (part, whole) => !whole ? "" :
    part && 200 * part < whole ? "<1%" : `${Math.round(100 * part / whole)}%`;
const count = (n, one, many) => `${n} ${n === 1 ? one : many}`;

function element(parent, tag, text, className) {
    const made = parent.appendChild(document.createElement(tag));
    if (text !== undefined) made.textContent = text;
    if (className) made.className = className;
    return made;
}

// A table: heads are [text, isNumber]; a cell is a text, or an element.
function table(parent, caption, heads, rows, mark) {
    const box = element(parent, "div", undefined, "scroll");
    box.tabIndex = 0;
    box.setAttribute("role", "region");
    box.setAttribute("aria-label", caption);
    const made = element(box, "table");
    const head = element(element(made, "thead"), "tr");
    for (const [text, right] of heads) {
        const cell = element(head, "th", text, right ? "n" : "");
        cell.scope = "col";
    }
    const body = element(made, "tbody");
    for (const row of rows) {
        const line = element(body, "tr", undefined, mark && mark(row) ? "on" : "");
        row.forEach((cell, i) => {
            const td = element(line, "td", typeof cell === "object" ? undefined : cell, heads[i][1] ? "n" : "");
            if (typeof cell === "object") td.appendChild(cell);
        });
    }
    if (!rows.length) element(body, "td", "No rows").colSpan = heads.length;
    return made;
}

// Heading, explanation, and the two columns for plot and table.
function begin(id, title, text) {
    const section = byId(id);
    section.replaceChildren();
    const heading = element(section, "h2", title);
    element(heading, "small", chosenText());
    element(section, "p", text);
    const pair = element(section, "div", undefined, "pair");
    return [element(pair, "div"), element(pair, "div")];
}

const width = 640;
function plot(parent, label, height, left = 56) {
    const svg = d3.select(parent).append("svg").attr("viewBox", `0 0 ${width} ${height}`)
        .attr("role", "img").attr("aria-label", label);
    return {svg, left, right: width - 16, top: 12, bottom: height - 42};
}
function axes(area, x, y, titleX, titleY, ticksX, ticksY) {
    const {svg, left, right, top, bottom} = area;
    svg.append("g").attr("transform", `translate(0,${bottom})`).call(ticksX(d3.axisBottom(x)));
    svg.append("g").attr("transform", `translate(${left},0)`).call(ticksY(d3.axisLeft(y)));
    svg.append("text").attr("class", "title").attr("x", (left + right) / 2).attr("y", bottom + 36)
        .attr("text-anchor", "middle").text(titleX);
    svg.append("text").attr("class", "title").attr("transform", `translate(12,${(top + bottom) / 2}) rotate(-90)`)
        .attr("text-anchor", "middle").text(titleY);
}
const tip = (mark, text) => mark.append("title").text(text);
function nothing(parent, text) { element(parent, "p", text); }

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
        [count(data.subjects.length, "subject", "subjects"), `${count(ends[0], "patient", "patients")} finished`,
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

function drawScore() {
    const own = inView().filter(p => p.state !== repeated && p.state !== open && p.score !== null);
    const spreads = view.subject === null ? figuresOf(view.scenario, null).scores : [];
    const [left, right] = begin("score", "Score over patients", view.subject === null ?
        "Line: median of the score after each subject's first, second, ... patient of the scenario; band: the " +
        "middle half of the subjects" + (spreads.length && spreads[0].n <= 30 ? "; thin lines: single subjects." : ".") :
        "The score after each patient. Patients without an end leave a gap.");
    const list = view.subject === null ? spreads.map((s, i) => ({...s, place: i + 1})).filter(s => s.n) : own;
    const values = view.subject === null ? list.flatMap(s => [s.marks[1], s.marks[3]]) : own.map(p => p.score);
    const few = view.subject === null && list.length && list[0].n <= 30;
    if (!list.length) {
        nothing(left, "No patient has ended with a score yet.");
    } else {
        const all = few ? values.concat(own.map(p => p.score)) : values;
        const digits = d3.max(all, v => number(Math.round(v)).length);
        const area = plot(left, "Score over patients", 320, 36 + 8 * digits);
        const most = d3.max(list, p => p.place);
        const x = d3.scaleLinear([1, Math.max(2, most)], [area.left + 12, area.right]);
        const y = d3.scaleLinear(d3.extent(all), [area.bottom, area.top]).nice();
        axes(area, x, y, "Patient of the subject in this scenario", "Score",
            a => a.ticks(Math.min(most, 12)).tickFormat(d => Number.isInteger(d) ? d : ""), a => a.ticks(6));
        if (view.subject === null) {
            area.svg.append("path").attr("class", "band").attr("d", d3.area().x(s => x(s.place))
                .y0(s => y(s.marks[1])).y1(s => y(s.marks[3]))(list));
            if (few) {
                const lines = new Map();
                for (const p of own) lines.set(p.subject, (lines.get(p.subject) || []).concat(p));
                for (const [subject, line] of lines)
                    tip(area.svg.append("path").attr("class", "thin").attr("d", d3.line().x(p => x(p.place))
                        .y(p => y(p.score))(line)), data.subjects[subject]);
            }
        }
        const middle = s => s.marks ? s.marks[2] : s.score;
        const line = [];
        for (const s of list) {
            if (line.length && s.place > line[line.length - 1].place + 1) line.push({gap: true, place: s.place});
            line.push(s);
        }
        area.svg.append("path").attr("class", "stroke").attr("d", d3.line().defined(s => !s.gap)
            .x(s => x(s.place)).y(s => y(middle(s)))(line));
        for (const s of list)
            tip(area.svg.append("circle").attr("class", "first").attr("r", 3.5).attr("cx", x(s.place))
                .attr("cy", y(middle(s))), `Patient ${s.place}: ${number(middle(s))}`);
    }
    if (view.subject === null)
        table(right, "Score over patients", [["Patient", true], ["Subjects", true], ["Lower quartile", true],
            ["Median", true], ["Upper quartile", true]], list.map(s =>
            [number(s.place), number(s.n), number(s.marks[1]), number(s.marks[2]), number(s.marks[3])]));
    else
        table(right, "Score over patients", [["Patient", true], ["Trial", true], ["Score", true], ["End"],
            ["Hidden disease"]], inView().map(p => [p.state === repeated ? "" : number(p.place), number(p.trial),
            p.state === open ? "" : number(p.score), p.state === repeated || !p.result ? states[p.state] : p.result,
            p.disease]));
}

// The square plots of probabilities; radius by the count of a bin.
function square(parent, label, titleX, titleY, bins, points) {
    const area = plot(parent, label, 400);
    const side = area.bottom - area.top;
    area.right = area.left + side;
    area.svg.attr("viewBox", `0 0 ${area.right + 16} 400`).style("max-width", `${area.right + 60}px`);
    const x = d3.scaleLinear([0, 1], [area.left, area.right]);
    const y = d3.scaleLinear([0, 1], [area.bottom, area.top]);
    axes(area, x, y, titleX, titleY, a => a.ticks(10), a => a.ticks(10));
    area.svg.append("line").attr("class", "even").attr("x1", x(0)).attr("y1", y(0)).attr("x2", x(1)).attr("y2", y(1));
    for (const p of points)
        tip(area.svg.append("circle").attr("class", "cloud").attr("r", 4).attr("cx", x(p.chance))
            .attr("cy", y(p.belief)), `${data.subjects[p.subject]}, trial ${p.trial}: chance ${number(p.chance, 2)}, ` +
            `belief ${number(p.belief, 2)}`);
    const used = bins.filter(b => b.n);
    const radius = d3.scaleSqrt([0, d3.max(used, b => b.n)], [2.5, 10]);
    area.svg.append("path").attr("class", "stroke").attr("d", d3.line().x(b => x(b.x)).y(b => y(b.y))(used));
    for (const b of used)
        tip(area.svg.append("circle").attr("class", "first").attr("r", radius(b.n)).attr("cx", x(b.x))
            .attr("cy", y(b.y)), `${number(b.x, 2)} / ${number(b.y, 2)}, n = ${b.n}`);
}
const interval = i => i === 9 ? "0.90 to 1.00" : `${number(i / 10, 2)} to ${number(i / 10 + 0.09, 2)}`;
const binRows = bins => bins.map((b, i) => [interval(i), number(b.n), b.n ? number(b.x, 2) : "",
    b.n ? number(b.y, 2) : ""]);

function drawChance(f) {
    const points = inView().filter(p => p.belief !== null && p.chance !== null);
    const shown = points.length <= 400 ? points : [];
    const [left, right] = begin("chance", "Belief against computed chance",
        "Of each finished patient with a diagnosis: the last belief in the hidden disease beside the computed chance " +
        "of it, both as recorded. Large dots: means in tenths of the chance, larger for more patients" +
        (shown.length ? "; pale dots: single patients." : ".") + " On the dashed line belief equals chance" +
        (f && f.distance !== null ? `; the mean distance from it is ${number(f.distance, 2)}.` : "."));
    if (points.length)
        square(left, "Belief against computed chance", "Computed chance of the hidden disease",
            "Belief in the hidden disease", f.chance, shown);
    else nothing(left, "No patient with both yet. Scenarios without disease probabilities in their feedback record " +
        "no computed chance.");
    table(right, "Belief against computed chance", [["Computed chance"], ["Patients", true], ["Mean chance", true],
        ["Mean belief", true]], f ? binRows(f.chance) : []);
}

function drawCalibration(f) {
    const [left, right] = begin("calibration", "Calibration",
        "All hypotheses of the last diagnosis of each finished patient: how often a disease believed in so much was " +
        "the hidden one. Below the dashed line the subjects were too sure, above it not sure enough.");
    if (f && f.calibration.some(b => b.n))
        square(left, "Calibration", "Belief in a hypothesis", "Share of these that were true", f.calibration, []);
    else nothing(left, "No finished patient with a diagnosis yet.");
    table(right, "Calibration", [["Belief"], ["Hypotheses", true], ["Mean belief", true], ["Share true", true]],
        f ? binRows(f.calibration) : []);
}

function drawEnds(f) {
    const ends = (f ? f.ends : []).map(([cause, n]) => ({cause: cause || "No end written", n}))
        .sort((a, b) => b.n - a.n || d3.ascending(a.cause, b.cause));
    const total = f ? f.patients : 0;
    const wrong = ends.some(e => e.cause === "Diagnosed Wrong");
    const [left, right] = begin("ends", "Causes of end", `How ${count(total, "patient", "patients")} ended.` +
        (wrong ? " Without treatments every diagnosis ends as \u201cDiagnosed Wrong\u201d, right ones too." : ""));
    if (ends.length) {
        const area = plot(left, "Causes of end", 56 + 34 * ends.length, 150);
        area.right -= 70;
        const x = d3.scaleLinear([0, d3.max(ends, e => e.n)], [area.left, area.right]).nice();
        const y = d3.scaleBand(ends.map(e => e.cause), [area.top, area.bottom]).padding(0.25);
        axes(area, x, y, "Patients", "", a => a.ticks(6).tickFormat(d => Number.isInteger(d) ? d : ""),
            a => a.tickSize(0).tickPadding(8));
        for (const e of ends) {
            area.svg.append("rect").attr("class", "first").attr("x", x(0)).attr("y", y(e.cause))
                .attr("width", x(e.n) - x(0)).attr("height", y.bandwidth());
            area.svg.append("text").attr("x", x(e.n) + 6).attr("y", y(e.cause) + y.bandwidth() / 2)
                .attr("dy", "0.35em").text(`${e.n} (${share(e.n, total)})`);
        }
    } else nothing(left, "No patients.");
    table(right, "Causes of end", [["Cause"], ["Patients", true], ["Share", true]],
        ends.map(e => [e.cause, number(e.n), share(e.n, total)]));
}

function drawTimes(f) {
    const [left, right] = begin("times", "Time to first test and first diagnosis",
        "Real time since the start of finished patients, minutes:seconds. Box: quartiles with the median; line: " +
        "shortest to longest.");
    const rows = [["First test", f && f.test], ["First diagnosis", f && f.diagnosis]];
    const used = rows.filter(r => r[1]);
    if (used.length) {
        const area = plot(left, "Time to first test and first diagnosis", 190, 110);
        const x = d3.scaleLinear([0, d3.max(used, r => r[1].marks[4]) || 1], [area.left, area.right]);
        const y = d3.scaleBand(rows.map(r => r[0]), [area.top, area.bottom]).padding(0.4);
        const step = [1, 2, 5, 10, 15, 30, 60, 120, 300, 600, 1800, 3600].find(s => x.domain()[1] / s <= 9) || 7200;
        axes(area, x, y, "Real time since the start of the patient", "",
            a => a.tickValues(d3.range(0, x.domain()[1] + 0.1, step)).tickFormat(seconds),
            a => a.tickSize(0).tickPadding(8));
        for (const [name, spread] of used) {
            const m = spread.marks.map(x), middle = y(name) + y.bandwidth() / 2;
            area.svg.append("line").attr("class", "stroke").attr("x1", m[0]).attr("x2", m[4])
                .attr("y1", middle).attr("y2", middle);
            tip(area.svg.append("rect").attr("class", "box").attr("x", m[1]).attr("width", Math.max(1, m[3] - m[1]))
                .attr("y", y(name)).attr("height", y.bandwidth()), `${name}: ${spread.marks.map(seconds).join(", ")}`);
            area.svg.append("line").attr("class", "stroke").attr("x1", m[2]).attr("x2", m[2])
                .attr("y1", y(name)).attr("y2", y(name) + y.bandwidth());
        }
    } else nothing(left, "No finished patient with a test or a diagnosis yet.");
    const marks = ["Least", "Lower quartile", "Median", "Upper quartile", "Most"];
    table(right, "Time to first test and first diagnosis", [["Patients"], ["First test", true],
        ["First diagnosis", true]], [
        ["with one", ...rows.map(([, spread]) => number(spread ? spread.n : 0))],
        ["without", ...rows.map(([, spread]) => number((f ? f.finished : 0) - (spread ? spread.n : 0)))],
        ...marks.map((name, i) => [name, ...rows.map(([, spread]) => spread ? seconds(spread.marks[i]) : "")])]);
}

const beliefText = list => {
    const parts = [];
    for (let i = 0; i + 1 < list.length; i += 2) parts.push(`${word(list[i])} ${list[i + 1]}%`);
    return parts.join(", ");
};
function eventText([, , , action, what, outcome, harm, beliefs]) {
    if (action === 2) return `${word(what)}: ${outcome ? "present" : "absent"}`;
    if (action === 3) return beliefs ? beliefText(beliefs) : "";
    if (action === 4) return `${word(what)}${outcome ? ", helped" : ", did not help"}${harm ? ", did harm" : ""}`;
    return word(what);
}

function drawLine() {
    const section = byId("line");
    section.replaceChildren();
    element(section, "h2", "Time line of one patient");
    const p = patients[view.patient];
    if (!p) return nothing(section, "No patients.");
    const choose = element(section, "div", undefined, "choose");
    const label = (text, items, value, change) => {
        const made = element(choose, "label", text + " ");
        const select = element(made, "select");
        for (const [id, name] of items) select.add(new Option(name, id, false, id === value));
        select.addEventListener("change", () => { change(Number(select.value)); drawLine(); });
    };
    label("Subject", data.subjects.map((name, i) => [i, name]), p.subject,
        subject => { view.patient = bySubject.get(subject)[0].at; });
    label("Patient", bySubject.get(p.subject).map(q =>
        [q.at, `trial ${q.trial} \u00b7 ${data.scenarios[q.scenario]} \u00b7 ${q.result || states[q.state]}`]), p.at,
        at => { view.patient = at; });
    const end = p.state !== repeated ? p.result || states[p.state] : (p.result || "none") +
        " (this row repeats another, or its case came twice: the end may be another patient's)";
    element(section, "p", `${data.subjects[p.subject]}, trial ${p.trial}, ${data.scenarios[p.scenario]}, began ` +
        `${p.start}. Hidden disease: ${p.disease}. End: ${end}` + (p.duration === null ? "." :
        ` after ${seconds(p.duration)}, health ${number(p.health, 1)}.`) +
        (p.chance === null ? "" : ` Belief in it ${number(p.belief, 2)}, computed chance ${number(p.chance, 2)}.`));
    const pair = element(section, "div", undefined, "pair");
    const left = element(pair, "div"), right = element(pair, "div");
    const last = d3.max(p.events, e => e[0]) || 0;
    const whole = Math.max(last, p.duration || 0, 1);
    const area = plot(left, "Time line", 420, 84);
    const x = d3.scaleLinear([0, whole], [area.left + 8, area.right - 8]);
    const y = d3.scaleLinear([0, 100], [230, area.top]);
    const step = [1, 2, 5, 10, 15, 30, 60, 120, 300, 600, 1800, 3600].find(s => whole / s <= 9) || 7200;
    const lanes = d3.scalePoint(["Notes", "Tests", "Diagnoses", "Treatments"], [262, area.bottom - 22]);
    area.svg.append("g").attr("transform", `translate(0,${area.bottom})`)
        .call(d3.axisBottom(x).tickValues(d3.range(0, whole + 0.1, step)).tickFormat(seconds));
    area.svg.append("g").attr("transform", `translate(${area.left},0)`).call(d3.axisLeft(y).ticks(5));
    area.svg.append("text").attr("class", "title").attr("x", (area.left + area.right) / 2).attr("y", area.bottom + 36)
        .attr("text-anchor", "middle").text("Real time since the start of the patient");
    area.svg.append("text").attr("class", "title").attr("transform", "translate(40,121) rotate(-90)")
        .attr("text-anchor", "middle").text("Health");
    for (const name of lanes.domain()) {
        area.svg.append("line").attr("class", "stem").attr("x1", area.left).attr("x2", area.right)
            .attr("y1", lanes(name)).attr("y2", lanes(name));
        area.svg.append("text").attr("class", "title").attr("x", area.left - 8).attr("y", lanes(name))
            .attr("dy", "0.35em").attr("text-anchor", "end").text(name);
    }
    const health = p.events.filter(e => e[2] !== null).map(e => [e[0], e[2]]);
    if (p.health !== null && p.duration !== null && p.state !== repeated) health.push([p.duration, p.health]);
    area.svg.append("path").attr("class", "stroke").attr("d", d3.line().x(h => x(h[0])).y(h => y(h[1]))(health));
    for (const h of health)
        area.svg.append("circle").attr("class", "first").attr("r", 2.5).attr("cx", x(h[0])).attr("cy", y(h[1]));
    const lane = ["Notes", "Notes", "Tests", "Diagnoses", "Treatments"];
    const shapes = [d3.symbolCircle, d3.symbolCross, d3.symbolSquare, d3.symbolDiamond, d3.symbolTriangle];
    p.events.forEach((e, i) => {
        const colour = e[3] === 4 ? (e[6] ? "bad" : e[5] ? "good" : "hollow") :
            e[3] === 2 ? (e[5] ? "second" : "hollow") : e[3] < 2 ? "soft" : "first";
        tip(area.svg.append("path").attr("class", colour).attr("d", d3.symbol().type(shapes[e[3]]).size(90)())
            .attr("transform", `translate(${x(e[0])},${lanes(lane[e[3]])})`),
            `${i + 1}. ${seconds(e[0])} ${actions[e[3]]} ${eventText(e)}`);
    });
    element(left, "p", "Line: health at each act and at the end. Tests: filled when present. Treatments: green " +
        "when they helped, red when they did harm, hollow when neither.");
    const rows = p.events.map(e => [seconds(e[0]), word(e[1]), number(e[2], 1), actions[e[3]], eventText(e)]);
    if (p.duration !== null && p.state !== repeated)
        rows.push([seconds(p.duration), "", number(p.health, 1), "End", p.result]);
    table(right, "Time line", [["Time", true], ["Clock"], ["Health", true], ["Act"], ["What"]], rows);
}

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
})();
