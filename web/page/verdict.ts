import { type Child, make, sentence } from "./dom.js";
import type { Explanation } from "./library.js";

function refusalOf({ fault, errorCodes }: Explanation): string {
    if (fault !== undefined) {
        return "Refused: it cannot be split into elements";
    }
    return `Refused: it breaks ${errorCodes.length === 1 ? "a rule" : `${errorCodes.length} rules`}`;
}

/** Accepted or refused, in one line. */
export function verdictText(explanation: Explanation): string {
    return explanation.accepted ? "Accepted: it keeps every rule" : refusalOf(explanation);
}

/** Accepted or refused, and why, the likeliest first. */
export function verdictOf(explanation: Explanation): Child[] {
    const { accepted, causes, format } = explanation;
    const verdict = make(
        "p",
        { class: `verdict ${accepted ? "accepted" : "refused"}` },
        make("span", { class: "sign", "aria-hidden": "true" }, accepted ? "✓" : "✗"),
        make("strong", {}, verdictText(explanation)),
    );
    if (format !== null) {
        verdict.append(make("span", { class: "format" }, `${format} format`));
    }
    const [likeliest, ...others] = causes;
    const shown: Child[] = [verdict];
    if (likeliest !== undefined) {
        shown.push(make("p", { class: "cause" }, sentence(likeliest)));
    }
    if (others.length > 0) {
        shown.push(make("ul", { class: "causes" }, ...others.map((cause) => make("li", {}, sentence(cause)))));
    }
    return shown;
}
