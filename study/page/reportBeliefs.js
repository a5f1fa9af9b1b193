// Beliefs beside computed chances and beside what was true.
function drawChance(f) {
    const points = inView().filter(p => p.belief !== null && p.chance !== null);
    const shown = points.length <= 400 ? points : [];
    const [left, right] = begin("chance", "Belief against computed chance",
        "Of each finished patient with a diagnosis: the last belief in the hidden disease beside the computed chance " +
        "of it, both as recorded. Large dots: means in tenths of the chance, larger for more patients" +
        (shown.length ? "; pale dots: single patients." : ".") + " On the dashed line belief equals chance" +
        (f && f.distance !== null ? `; the mean distance from it is ${number(f.distance, 2)}.` : "."));
    if (points.length) {
        const area = square(left, "Belief against computed chance", "Computed chance of the hidden disease",
            "Belief in the hidden disease");
        for (const p of shown)
            tip(area.svg.append("circle").attr("class", "cloud").attr("r", 4).attr("cx", area.x(p.chance))
                .attr("cy", area.y(p.belief)), `${data.subjects[p.subject]}, trial ${p.trial}: chance ` +
                `${number(p.chance, 2)}, belief ${number(p.belief, 2)}`);
        binLine(area, f.chance, "stroke", "first", "");
    } else nothing(left, "No patient with both yet. Scenarios without disease probabilities in their feedback record " +
        "no computed chance.");
    table(right, "Belief against computed chance", [["Computed chance"], ["Patients", true], ["Mean chance", true],
        ["Mean belief", true]], f ? binRows(f.chance) : []);
}

function drawCalibration(f) {
    const [left, right] = begin("calibration", "Calibration",
        "All hypotheses of the last diagnosis of each finished patient: how often a disease believed in so much was " +
        "the hidden one. Below the dashed line the subjects were too sure, above it not sure enough.");
    if (f && f.calibration.some(b => b.n))
        binLine(square(left, "Calibration", "Belief in a hypothesis", "Share of these that were true"),
            f.calibration, "stroke", "first", "");
    else nothing(left, "No finished patient with a diagnosis yet.");
    table(right, "Calibration", [["Belief"], ["Hypotheses", true], ["Mean belief", true], ["Share true", true]],
        f ? binRows(f.calibration) : []);
}
