// Draws the report on simulated subjects. All arithmetic is done: #data holds the figures of each policy in
// each scenario, and what is shown of one scenario stands side by side for its policies.
const view = {scenario: 0};
const chosenText = () => data.scenarios[view.scenario] || "";
const inView = () => data.plays.filter(p => p.scenario === view.scenario);
const policy = play => data.policies[play.policy];
const colour = play => `policy p${play.policy % 6}`;
const percent = value => value === null || value === undefined ? "" : `${number(100 * value)}%`;

// Which line is whose, above a plot.
function legend(parent, plays) {
    const line = element(parent, "p", undefined, "legend");
    for (const play of plays) {
        const key = element(line, "span");
        const svg = d3.select(key).append("svg").attr("viewBox", "0 0 34 10").attr("aria-hidden", "true");
        svg.append("path").attr("class", colour(play)).attr("d", "M1,5H33");
        svg.append("circle").attr("class", colour(play)).attr("cx", 17).attr("cy", 5).attr("r", 3.5);
        key.append(policy(play));
    }
}

function drawSummary() {
    byId("store").textContent = data.store;
    const subjects = d3.sum(data.plays, p => p.subjects), patients = d3.sum(data.plays, p => p.patients);
    const broken = d3.rollups(data.plays.flatMap(p => p.brokenOff), list => d3.sum(list, b => b[1]), b => b[0]);
    byId("summary").textContent = !data.plays.length ? "The store holds no patients." :
        (!data.people ? "All of these subjects are simulated; none is a person. " :
            "The subjects under \u201cpeople\u201d are people; all others are simulated. ") +
        [count(subjects, "subject", "subjects"), count(patients, "patient", "patients"),
            ...broken.map(([cause, n]) => `${n} of the sessions broken off (${cause})`)].join(" \u00b7 ");
}

function drawWarnings() {
    if (data.warnings === null) return byId("warnings").remove();
    element(byId("warnings"), "h2", "Warnings");
    if (!data.warnings.length) return nothing(byId("warnings"), "None: each scenario can be won and can end.");
    const list = element(byId("warnings"), "ul");
    for (const text of data.warnings) element(list, "li", text);
}

const changeText = change => !change ? "" : `${number(change[0], 1)}` +
    (change[1] === null ? "" : ` \u00b1 ${number(change[1], 1)}`);

function drawOutcomes() {
    element(byId("outcomes"), "h2", "Scenarios and policies");
    element(byId("outcomes"), "p", "Life: simulated minutes until a patient's end, whatever it was. Change: of the " +
        "score with a patient, with its standard error over subjects. Belief and chance: of the hidden disease, at " +
        "the end of patients with a diagnosis, where the scenario shows the chance.");
    table(byId("outcomes"), "Scenarios and policies", [["Scenario"], ["Policy"], ["Subjects", true],
        ["Patients", true], ["Dead", true], ["Saved", true], ["Life, quartiles", true], ["Mean", true],
        ["Score at start", true], ["at end, median", true], ["Change", true], ["Tests", true], ["Belief", true],
        ["Chance", true]],
    data.plays.map(p => [data.scenarios[p.scenario], policy(p), number(p.subjects), number(p.patients),
        share(d3.sum(p.ends.filter(e => e[0] === "Dead"), e => e[1]), p.patients), share(p.saved, p.finished),
        p.life ? p.life.marks.slice(1, 4).map(m => number(m)).join(" \u00b7 ") : "",
        p.life ? number(p.meanLife, 1) : "", number(p.startScore), p.score ? number(p.score.marks[2]) : "",
        changeText(p.change), number(p.tests, 1), p.distance === null ? "" : number(p.belief, 2),
        p.distance === null ? "" : number(p.meanChance, 2)]));
}
