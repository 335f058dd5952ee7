import { make, strangeBytes } from "./dom.js";
import type { Element, Explained } from "./library.js";
import { bytesOf } from "./payload.js";

/** A payload with more bytes is not shown element by element; no QR code holds as much. */
export const longestStrip = 8192;

/** The name of an element in the page: its tag, and the tag around it, as in "62/01". */
export function nameOf(element: Element, around?: Element): string {
    return around === undefined ? element.tag : `${around.tag}/${element.tag}`;
}

const hues = 6;

/** Draws a payload as a strip of elements, with the fault where it is. */
class StripPainter {
    private readonly bytes: Uint8Array;
    private fault: number | undefined;
    private hue = 0;

    constructor(private readonly explained: Explained) {
        this.bytes = explained.payload.bytes;
        const { fault } = explained.explanation;
        this.fault = fault?.byteOffset;
    }

    paint(): HTMLOListElement {
        const strip = make("ol", { class: "strip" });
        const end = this.paintElements(this.explained.explanation.elements, 0, strip);
        this.paintRest(end, this.bytes.length, strip);
        if (this.fault !== undefined) {
            strip.append(make("li", { class: "rest" }, this.mark()));
        }
        return strip;
    }

    // Returns the place after the last element.
    private paintElements(elements: readonly Element[], start: number, strip: HTMLElement, around?: Element): number {
        let end = start;
        for (const element of elements) {
            end = this.paintElement(element, strip, around);
        }
        return end;
    }

    private paintElement(element: Element, strip: HTMLElement, around?: Element): number {
        const tag = element.byteOffset;
        const length = tag + bytesOf(element.tag).length;
        const value = length + bytesOf(element.length).length;
        const end = value + bytesOf(element.value).length;
        const isFaulty = element.errors.length > 0;
        const name = nameOf(element, around);
        const button = make(
            "button",
            {
                type: "button",
                class: `element hue-${this.hue++ % hues}${isFaulty ? " faulty" : ""}`,
                title: `Tag ${name}: ${element.meaning}${isFaulty ? ", breaks a rule" : ""}`,
                "data-name": name,
            },
            this.run("tag", tag, length),
            this.run("length", length, value),
        );
        const item = make("li", {}, button);
        if (element.elements === undefined) {
            button.append(this.run("value", value, end));
        } else {
            const inside = make("ol", { class: "strip inside" });
            this.paintRest(this.paintElements(element.elements, value, inside, element), end, inside);
            item.className = "around";
            item.append(inside);
        }
        strip.append(item);
        return end;
    }

    private paintRest(start: number, end: number, strip: HTMLElement): void {
        if (start < end) {
            strip.append(make("li", { class: "rest" }, this.run("value", start, end)));
        }
    }

    private run(kind: string, start: number, end: number): HTMLElement {
        const piece = (from: number, to: number): HTMLElement => strangeBytes(this.bytes.subarray(from, to));
        const { fault } = this;
        if (fault === undefined || fault < start || fault >= end) {
            return make("span", { class: kind }, piece(start, end));
        }
        return make("span", { class: kind }, piece(start, fault), this.mark(), piece(fault, end));
    }

    private mark(): HTMLElement {
        this.fault = undefined;
        return make("mark", { class: "fault" }, "✗ here");
    }
}

/** The payload as a strip of elements. */
export function stripOf(explained: Explained): HTMLElement {
    if (explained.payload.bytes.length > longestStrip) {
        const kilobytes = Math.ceil(explained.payload.bytes.length / 1024).toLocaleString("en");
        return make(
            "p",
            { class: "note" },
            `The text has ${kilobytes} KB, more than a QR code holds. Only the table shows its elements.`,
        );
    }
    return new StripPainter(explained).paint();
}
