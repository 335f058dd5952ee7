import { mostShown, type Piece, piecesOf, piecesOfBytes } from "./visible.js";

/** What an element is made of. A string becomes text, never markup. */
export type Child = Node | string;

/** Makes an element. */
export function make<Name extends keyof HTMLElementTagNameMap>(
    name: Name,
    attributes: Readonly<Record<string, string>>,
    ...children: Child[]
): HTMLElementTagNameMap[Name] {
    const element = document.createElement(name);
    for (const [attribute, value] of Object.entries(attributes)) {
        element.setAttribute(attribute, value);
    }
    element.append(...children);
    return element;
}

/** The element of the page with this identifier. */
export function find<Type extends HTMLElement>(id: string, type: new () => Type): Type {
    const element = document.getElementById(id);
    if (!(element instanceof type)) {
        throw new Error(`the page has no ${type.name} with the identifier ${id}`);
    }
    return element;
}

function nodesOf(pieces: readonly Piece[], asText: (text: string) => Child[]): Child[] {
    return pieces.flatMap(({ text, isName }) => (isName ? [make("span", { class: "invisible" }, text)] : asText(text)));
}

// Letters that are written from right to left, with the marks and blanks between them.
const letter = "[\\u0590-\\u08FF\\uFB1D-\\uFDFF\\uFE70-\\uFEFC\\u{10800}-\\u{10FFF}\\u{1E800}-\\u{1EFFF}]";
const rightToLeft = new RegExp(`(${letter}(?:[\\p{M} ]*${letter})*\\p{M}*)`, "u");

// Isolates them, so that a tag or a length after them stays after them.
function inReadingOrder(text: string): Child[] {
    return text.split(rightToLeft).map((part, i) => (i % 2 === 0 ? part : make("bdi", {}, part)));
}

function cutNote(size: number): HTMLElement {
    const kilobytes = Math.ceil(size / 1024).toLocaleString("en");
    return make("span", { class: "cut" }, `… cut here; ${kilobytes} KB are not shown`);
}

// A cut must not go through a character, or its halves would be shown as something that is not in the text.
function cutText(text: string): string {
    const isPair = /[\uD800-\uDBFF]/.test(text.charAt(mostShown - 1));
    return text.slice(0, isPair ? mostShown - 1 : mostShown);
}

function cutBytes(bytes: Uint8Array): Uint8Array {
    const isContinuation = (at: number): boolean => ((bytes[at] ?? 0) & 0xc0) === 0x80;
    let end = mostShown;
    while (isContinuation(end) && end > mostShown - 3) {
        --end;
    }
    return bytes.subarray(0, end);
}

/** Text from a stranger: nothing in it is markup, turns the text around it, or hides. */
export function strange(text: string): HTMLElement {
    const shown = cutText(text);
    const element = make("bdi", {}, ...nodesOf(piecesOf(shown), (part) => [part]));
    if (shown.length < text.length) {
        element.append(cutNote(text.length - shown.length));
    }
    return element;
}

/** The same of bytes of a payload, which need not be UTF-8. The characters are in the order of the payload. */
export function strangeBytes(bytes: Uint8Array): HTMLElement {
    const shown = cutBytes(bytes);
    const element = make("span", { class: "bytes", dir: "ltr" }, ...nodesOf(piecesOfBytes(shown), inReadingOrder));
    if (shown.length < bytes.length) {
        element.append(cutNote(bytes.length - shown.length));
    }
    return element;
}

/** A sentence of the library. It quotes texts from a stranger. */
export function sentence(text: string): HTMLElement {
    return make("span", { class: "sentence" }, strange(text));
}
