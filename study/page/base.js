// What the pages share: numbers, tables, plots. Each page brings the data, and chosenText() for its headings.
const data = JSON.parse(document.getElementById("data").textContent);

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

// The square plots of probabilities: axes and the diagonal. The lines of bins come into it.
function square(parent, label, titleX, titleY) {
    const area = plot(parent, label, 400);
    const side = area.bottom - area.top;
    area.right = area.left + side;
    area.svg.attr("viewBox", `0 0 ${area.right + 16} 400`).style("max-width", `${area.right + 60}px`);
    area.x = d3.scaleLinear([0, 1], [area.left, area.right]);
    area.y = d3.scaleLinear([0, 1], [area.bottom, area.top]);
    axes(area, area.x, area.y, titleX, titleY, a => a.ticks(10), a => a.ticks(10));
    area.svg.append("line").attr("class", "even").attr("x1", area.x(0)).attr("y1", area.y(0)).attr("x2", area.x(1))
        .attr("y2", area.y(1));
    return area;
}
// A line over the bins of a probability, whose dots grow with the count.
function binLine({svg, x, y}, bins, line, dot, name) {
    const used = bins.filter(b => b.n);
    const radius = d3.scaleSqrt([0, d3.max(used, b => b.n)], [2.5, 10]);
    svg.append("path").attr("class", line).attr("d", d3.line().x(b => x(b.x)).y(b => y(b.y))(used));
    for (const b of used)
        tip(svg.append("circle").attr("class", dot).attr("r", radius(b.n)).attr("cx", x(b.x)).attr("cy", y(b.y)),
            `${name}${number(b.x, 2)} / ${number(b.y, 2)}, n = ${b.n}`);
}
const interval = i => i === 9 ? "0.90 to 1.00" : `${number(i / 10, 2)} to ${number(i / 10 + 0.09, 2)}`;
const binRows = bins => bins.map((b, i) => [interval(i), number(b.n), b.n ? number(b.x, 2) : "",
    b.n ? number(b.y, 2) : ""]);
