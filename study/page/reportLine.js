// The time line of one patient.
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
