// The score from patient to patient, of all subjects or of one.
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
