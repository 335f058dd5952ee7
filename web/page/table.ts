import { type Child, make, sentence, strange } from "./dom.js";
import type { Element, Explanation, Violation } from "./library.js";
import { nameOf } from "./strip.js";

const headings = ["Tag", "Meaning", "Length", "Value", "Offset"];

function capitalised(text: string): string {
    return text.charAt(0).toUpperCase() + text.slice(1);
}

/** What a violated rule wants, and what was found. */
export function violationText(violation: Violation): HTMLElement {
    const fact = violation.fact === "" ? "" : ` Here: ${violation.fact}.`;
    const code = make("span", { class: "code-name" }, `Code ${violation.code}, ${violation.name}`);
    return make("span", { class: "violation" }, sentence(violation.meaning + fact), " ", code);
}

function noteRow(kind: string, ...children: Child[]): HTMLTableRowElement {
    const cell = make("td", { colspan: String(headings.length - 1) }, ...children);
    return make("tr", { class: kind }, make("td", { class: "sign" }, "✗"), cell);
}

function elementRows(element: Element, around?: Element): HTMLTableRowElement[] {
    const name = nameOf(element, around);
    const button = make("button", { type: "button", class: "row", "data-name": name }, strange(name));
    button.setAttribute("aria-label", `Tag ${name}: show it in the text`);
    const inside = element.elements ?? [];
    const row = make(
        "tr",
        { class: around === undefined ? "" : "inside" },
        make("th", { scope: "row" }, button),
        make("td", {}, element.meaning),
        make("td", { class: "length" }, strange(element.length)),
        make("td", { class: "value" }, inside.length === 0 ? strange(element.value) : ""),
        make("td", { class: "offset" }, String(element.offset)),
    );
    const violations = element.errors.map((violation) => noteRow("broken", violationText(violation)));
    return [row, ...violations, ...inside.flatMap((each) => elementRows(each, element))];
}

/** The elements as a table, each with the rules that it violates, and the fault where the elements end. */
export function tableOf(explanation: Explanation): HTMLTableElement {
    const head = make(
        "tr",
        {},
        ...headings.map((text) => make("th", { scope: "col", class: text.toLowerCase() }, text)),
    );
    const body = make("tbody", {}, ...explanation.elements.flatMap((element) => elementRows(element)));
    if (explanation.fault !== undefined) {
        const { kind, offset, reason } = explanation.fault;
        body.append(noteRow("broken", sentence(`${capitalised(kind)} at offset ${offset}: ${reason}.`)));
    }
    return make("table", {}, make("thead", {}, head), body);
}
