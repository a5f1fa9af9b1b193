// How the score moved from patient to patient, and how beliefs stood to chances and to what was true.
function drawScore(plays) {
    const [left, right] = begin("score", "Score over patients",
        "Line: median of the score after each subject's first, second, ... patient; band: the middle half of the " +
        `subjects. A new subject starts at ${number(plays[0].startScore)}.`);
    const used = plays.filter(p => p.scores.length);
    if (!used.length) return nothing(left, "No patient has ended with a score yet.");
    legend(left, used);
    const values = used.flatMap(p => p.scores.flatMap(s => [s[2], s[4]])).concat(plays[0].startScore);
    const digits = d3.max(values, v => number(Math.round(v)).length);
    const area = plot(left, "Score over patients", 360, 36 + 8 * digits);
    const most = d3.max(used, p => p.scores[p.scores.length - 1][0]);
    const x = d3.scaleLinear([0, most], [area.left + 8, area.right]);
    const y = d3.scaleLinear(d3.extent(values), [area.bottom, area.top]).nice();
    axes(area, x, y, "Patient of the subject", "Score",
        a => a.ticks(Math.min(most, 12)).tickFormat(d => Number.isInteger(d) ? d : ""), a => a.ticks(6));
    for (const p of used) {
        const line = [[0, p.subjects, p.startScore, p.startScore, p.startScore], ...p.scores];
        area.svg.append("path").attr("class", `${colour(p)} area`).attr("d", d3.area().x(s => x(s[0]))
            .y0(s => y(s[2])).y1(s => y(s[4]))(line));
    }
    for (const p of used) {
        const line = [[0, p.subjects, p.startScore, p.startScore, p.startScore], ...p.scores];
        tip(area.svg.append("path").attr("class", colour(p)).attr("d", d3.line().x(s => x(s[0]))
            .y(s => y(s[3]))(line)), policy(p));
    }
    const places = [...new Set(used.flatMap(p => p.scores.map(s => s[0])))].sort(d3.ascending);
    table(right, "Score over patients", [["Patient", true], ...used.map(p => [policy(p), true])],
        places.map(place => [number(place), ...used.map(p => {
            const found = p.scores.find(s => s[0] === place);
            return found ? number(found[3]) : "";
        })]));
    element(right, "p", "Medians of the score. Below: quartiles at the end of the subjects, and the change of the " +
        "score with a patient, with its standard error.");
    table(right, "Score at the end", [["Policy"], ["Lower", true], ["Median", true], ["Upper", true],
        ["Change", true]], used.map(p => [policy(p), ...[1, 2, 3].map(i => p.score ? number(p.score.marks[i]) : ""),
        changeText(p.change)]));
}

function drawBins(plays, id, title, text, titleX, titleY, key, empty) {
    const [left, right] = begin(id, title, text);
    const used = plays.filter(p => p[key].some(b => b.n));
    if (!used.length) return nothing(left, empty);
    legend(left, used);
    const area = square(left, title, titleX, titleY);
    for (const p of used) binLine(area, p[key], colour(p), colour(p), `${policy(p)}: `);
    table(right, title, [[titleX], ...used.map(p => [policy(p), true])],
        d3.range(10).map(i => [interval(i), ...used.map(p => p[key][i].n ?
            `${number(p[key][i].y, 2)} (${p[key][i].n})` : "\u2013")]));
    return right;
}

function drawBeliefs(plays) {
    const chances = drawBins(plays, "chance", "Belief against computed chance",
        "Of each finished patient with a diagnosis: the last belief in the hidden disease beside the computed chance " +
        "of it, both as recorded, as means in tenths of the chance. On the dashed line belief equals chance.",
        "Computed chance", "Belief in the hidden disease", "chance",
        "No patient with both. A policy that states no diagnosis has no beliefs, and scenarios without disease " +
        "probabilities in their feedback record no computed chance.");
    if (chances) {
        const far = plays.filter(p => p.distance !== null);
        element(chances, "p", "Mean belief, and in brackets how many patients. Mean distance of belief and chance: " +
            far.map(p => `${policy(p)} ${number(p.distance, 2)}`).join(", ") + ".");
    }
    const calibration = drawBins(plays, "calibration", "Calibration",
        "All hypotheses of the last diagnosis of each finished patient: how often a disease believed in so much was " +
        "the hidden one. Below the dashed line the subjects were too sure, above it not sure enough.",
        "Belief", "Share of these that were true", "calibration", "No finished patient with a diagnosis.");
    if (calibration) {
        const off = plays.filter(p => p.miscalibration !== null);
        element(calibration, "p", "Share that was true, and in brackets how many hypotheses. Mean distance of belief " +
            "and share: " + off.map(p => `${policy(p)} ${number(p.miscalibration, 2)}`).join(", ") + ".");
    }
}

function draw() {
    const plays = inView();
    drawSurvival(plays);
    drawEnds(plays);
    drawScore(plays);
    drawBeliefs(plays);
}

drawSummary();
drawWarnings();
if (!data.plays.length) {
    byId("choice").remove();
    byId("outcomes").remove();
    return;
}
drawOutcomes();
byId("scenario").replaceChildren(...data.scenarios.map((name, i) => new Option(name, i, false, i === view.scenario)));
byId("scenario").addEventListener("change", event => {
    view.scenario = Number(event.target.value);
    draw();
});
draw();
