import { type Child, find, make } from "./dom.js";
import { explained, explainJSON, type Explained, type Explanation, type QRCodeData, recordOf } from "./library.js";
import { payeeOf } from "./payee.js";
import type { Payload } from "./payload.js";
import { type Announce, repairsOf } from "./repairs.js";
import { tieElementsToRows } from "./selection.js";
import { longestStrip, stripOf } from "./strip.js";
import { tableOf, violationText } from "./table.js";
import { verdictOf } from "./verdict.js";
import { visibleJSON } from "./visible.js";

const byLink =
    "This text came with a link. Whoever made the link chose it, so compare it with the code itself before you trust it.";

function missing({ absent }: Explanation): Child[] {
    if (absent.length === 0) {
        return [];
    }
    const items = absent.map((violation) => make("li", {}, violationText(violation)));
    return [make("h3", {}, "Missing elements"), make("ul", { class: "missing" }, ...items)];
}

function legend(): HTMLElement {
    return make(
        "p",
        { class: "legend note" },
        "Each box is an element: ",
        make("b", { class: "tag" }, "tag"),
        ", ",
        make("span", { class: "length" }, "length"),
        ", ",
        make("span", { class: "value" }, "value"),
        ". Choose one to find it in the table, and the other way round.",
    );
}

function takenApart(all: Explained): Child[] {
    const { explanation, payload } = all;
    if (payload.bytes.length === 0) {
        return [];
    }
    const shown: Child[] = [make("h3", {}, "The text, taken apart")];
    if (explanation.elements.length > 0 && payload.bytes.length <= longestStrip) {
        shown.push(legend());
    }
    shown.push(stripOf(all), ...missing(explanation));
    if (explanation.elements.length > 0 || explanation.fault !== undefined) {
        shown.push(tableOf(explanation));
    }
    return shown;
}

// JSON is made only when somebody wants to see it.
class JSONView {
    private make = (): string => "";

    constructor(private readonly details: HTMLDetailsElement) {
        details.addEventListener("toggle", () => this.fill());
    }

    show(make: (() => string) | null): void {
        this.details.hidden = make === null;
        this.make = make ?? ((): string => "");
        this.fill();
    }

    private fill(): void {
        const pre = this.details.querySelector("pre");
        if (pre !== null) {
            pre.textContent = this.details.open ? this.make() : "";
        }
    }
}

const mostJSON = 100_000;

function readable(value: unknown): string {
    const json = JSON.stringify(value, null, 2);
    return json.length > mostJSON
        ? "This is more than a page can show; korvoqr explain --format json prints it."
        : visibleJSON(json);
}

/** The part of the page that says what a payload is, and what is wrong with it. */
export class Answer {
    private readonly verdict = find("verdict", HTMLElement);
    private readonly explanation = find("explanation", HTMLElement);
    private readonly record = new JSONView(find("record", HTMLDetailsElement));
    private readonly json = new JSONView(find("json", HTMLDetailsElement));

    constructor(private readonly announce: Announce) {
        tieElementsToRows(this.explanation);
        this.clear();
    }

    /** Explains a payload. */
    show(payload: Payload): void {
        const all = explained(payload);
        const record = all.explanation.accepted ? recordOf(payload.bytes) : null;
        this.verdict.replaceChildren(...verdictOf(all.explanation));
        this.explanation.replaceChildren(...this.partsOf(all, record));
        this.record.show(record === null ? null : (): string => readable(record));
        this.json.show((): string => readable(JSON.parse(explainJSON(payload.bytes))));
    }

    /** Makes what is shown about a payload, and throws it away. */
    prepare(payload: Payload): void {
        this.partsOf(explained(payload), null);
    }

    /** Says instead why there is nothing to explain. */
    clear(reason = "There is no code yet."): void {
        this.verdict.replaceChildren(make("p", { class: "verdict none" }, reason));
        this.explanation.replaceChildren();
        this.record.show(null);
        this.json.show(null);
    }

    /** Brings the verdict into view, for somebody who has just shown a picture on a small screen. */
    bringIntoView(): void {
        const isLow = this.verdict.getBoundingClientRect().top > 0.7 * window.innerHeight;
        this.verdict.scrollIntoView({ block: isLow ? "start" : "nearest" });
    }

    private partsOf(all: Explained, record: QRCodeData | null): Child[] {
        return [
            ...(all.payload.origin === "link" ? [make("p", { class: "by-link" }, byLink)] : []),
            ...(record === null ? [] : [payeeOf(record)]),
            ...repairsOf(all, this.announce),
            ...takenApart(all),
        ];
    }
}
