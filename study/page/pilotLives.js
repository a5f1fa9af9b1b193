// How long patients lived, and how they ended.
const niceSteps = [1, 2, 5, 10, 15, 30, 60, 120, 240, 480, 960, 1920, 3840];

// The state behind a minute: [minute, patients left, share alive].
function behind(play, minute) {
    let found = [0, play.life ? play.life.n : 0, 1];
    for (const step of play.survival) {
        if (step[0] > minute) break;
        found = step;
    }
    return found;
}

function drawSurvival(plays) {
    const [left, right] = begin("survival", "Survival of patients",
        "Share of patients alive over simulated time, by Kaplan and Meier. Who ends by a treatment, a diagnosis, the " +
        "time limit or recovery is censored: alive for as long as seen, then out of the sum. So the line tells of " +
        "death alone, and rests on few patients where few are left.");
    const used = plays.filter(p => p.survival.length);
    const last = d3.max(used, p => p.survival[p.survival.length - 1][0]) || 1;
    const step = niceSteps.find(s => last / s <= 10) || 7680;
    const times = d3.range(0, last + 1, step);
    if (!used.length) return nothing(left, "No patient has ended yet.");
    legend(left, used);
    const area = plot(left, "Survival of patients", 340);
    const x = d3.scaleLinear([0, last], [area.left, area.right]);
    const y = d3.scaleLinear([0, 1], [area.bottom, area.top]);
    axes(area, x, y, "Simulated minutes since the start of the patient", "Share alive",
        a => a.tickValues(times).tickFormat(d3.format("d")), a => a.ticks(5, "%"));
    for (const p of used)
        tip(area.svg.append("path").attr("class", colour(p)).attr("d", d3.line().x(s => x(s[0])).y(s => y(s[2]))
            .curve(d3.curveStepAfter)([[0, 0, 1], ...p.survival])), policy(p));
    table(right, "Survival of patients", [["Minute", true], ...used.map(p => [policy(p), true])],
        times.map(t => [number(t), ...used.map(p => {
            const [, n, alive] = behind(p, t);
            return n || t <= p.survival[p.survival.length - 1][0] ? `${percent(alive)} (${n})` : "\u2013";
        })]));
    element(right, "p", "Share alive, and in brackets how many patients are still under treatment behind that minute.");
    table(right, "Life of patients", [["Life, minutes"], ...used.map(p => [policy(p), true])],
        [["Shortest", 0], ["Lower quartile", 1], ["Median", 2], ["Upper quartile", 3], ["Longest", 4]]
            .map(([name, i]) => [name, ...used.map(p => number(p.life.marks[i], p.life.marks[i] % 1 ? 1 : 0))])
            .concat([["Mean", ...used.map(p => number(p.meanLife, 1))]]));
}

const causes = {"Dead": "bad", "Saved": "good", "Correct Treatment": "good pale", "Time End": "soft",
    "Wrong Treatment": "second", "Diagnosed Wrong": "first", "Diagnosed Right": "first pale"};

function drawEnds(plays) {
    const wrong = plays.some(p => p.ends.some(e => e[0] === "Diagnosed Wrong"));
    const [left, right] = begin("ends", "Causes of end", "How patients ended, as shares of each policy's patients." +
        (wrong ? " Without treatments every diagnosis ends as \u201cDiagnosed Wrong\u201d, right ones too." : ""));
    const found = [...Object.keys(causes), ...new Set(plays.flatMap(p => p.ends.map(e => e[0])))]
        .filter((cause, i, all) => all.indexOf(cause) === i)
        .filter(cause => plays.some(p => p.ends.some(e => e[0] === cause)));
    const countOf = (p, cause) => d3.sum(p.ends.filter(e => e[0] === cause), e => e[1]);
    const name = cause => cause || "No end written";
    const keys = element(left, "p", undefined, "legend");
    for (const cause of found) {
        const key = element(keys, "span");
        d3.select(key).append("svg").attr("viewBox", "0 0 14 10").attr("aria-hidden", "true").style("width", "14px")
            .append("rect").attr("class", causes[cause] || "empty").attr("width", 14).attr("height", 10);
        key.append(name(cause));
    }
    const area = plot(left, "Causes of end", 56 + 34 * plays.length, 96);
    const x = d3.scaleLinear([0, 1], [area.left, area.right]);
    const y = d3.scaleBand(plays.map(policy), [area.top, area.bottom]).padding(0.25);
    axes(area, x, y, "Share of patients", "", a => a.ticks(5, "%"), a => a.tickSize(0).tickPadding(8));
    for (const p of plays) {
        let from = 0;
        for (const cause of found) {
            const part = countOf(p, cause) / p.patients;
            tip(area.svg.append("rect").attr("class", `${causes[cause] || "empty"} part`).attr("x", x(from))
                .attr("y", y(policy(p))).attr("width", x(part) - x(0)).attr("height", y.bandwidth()),
            `${policy(p)}: ${name(cause)} ${share(countOf(p, cause), p.patients)}`);
            from += part;
        }
    }
    table(right, "Causes of end", [["Cause"], ...plays.map(p => [policy(p), true])],
        found.map(cause => [name(cause), ...plays.map(p => {
            const n = countOf(p, cause);
            return n ? `${share(n, p.patients)} (${n})` : "0";
        })]));
}
