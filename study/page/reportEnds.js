// How patients ended, and when subjects acted first.
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
