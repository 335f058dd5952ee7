/** A piece of a text from a stranger: characters that are shown as they are, or the name of one that is not. */
export interface Piece {
    readonly text: string;
    readonly isName: boolean;
}

/** A text with more UTF-16 units is cut before it is shown: a browser needs seconds to lay out a megabyte. */
export const mostShown = 4000;

// A person does not see these, or takes them for a blank, or they turn the text around.
const invisible = /[\p{C}\p{Z}\p{Default_Ignorable_Code_Point}]/u;
const joinable = /[\p{L}\p{M}\p{Extended_Pictographic}\u{FE0F}\p{Emoji_Modifier}]/u;
const emoji = /[\p{Emoji}\p{Extended_Pictographic}]/u;
const joiners = "\u200C\u200D";
const emojiVariation = "\uFE0F";

// Joiners shape letters and combine emoji. Anywhere else they hide something.
function isInvisible(character: string, before: string, after: string): boolean {
    if (character === " ") {
        return false;
    }
    if (joiners.includes(character)) {
        return !joinable.test(before) || !joinable.test(after);
    }
    if (character === emojiVariation) {
        return !emoji.test(before);
    }
    return invisible.test(character);
}

function nameOf(character: string): string {
    const number = character.codePointAt(0) ?? 0;
    return "U+" + number.toString(16).toUpperCase().padStart(4, "0");
}

function append(pieces: Piece[], text: string, isName: boolean): void {
    const last = pieces[pieces.length - 1];
    if (last !== undefined && !last.isName && !isName) {
        pieces[pieces.length - 1] = { text: last.text + text, isName };
    } else {
        pieces.push({ text, isName });
    }
}

/** The pieces of a text. Controls, direction marks and other invisible characters become names such as U+202E. */
export function piecesOf(text: string): Piece[] {
    const characters = Array.from(text);
    const pieces: Piece[] = [];
    characters.forEach((character, i) => {
        const isName = isInvisible(character, characters[i - 1] ?? "", characters[i + 1] ?? "");
        append(pieces, isName ? nameOf(character) : character, isName);
    });
    return pieces;
}

// The text of the longest beginning that is UTF-8.
function readableBeginning(bytes: Uint8Array): { text: string; size: number } {
    const text = new TextDecoder("utf-8", { ignoreBOM: true }).decode(bytes);
    let size = 0;
    let units = 0;
    for (const character of text) {
        const encoded = new TextEncoder().encode(character);
        if (encoded.some((byte, i) => byte !== bytes[size + i])) {
            break;
        }
        size += encoded.length;
        units += character.length;
    }
    return { text: text.slice(0, units), size };
}

/** The same of bytes. Those that are not UTF-8 become names such as \xE9. */
export function piecesOfBytes(bytes: Uint8Array): Piece[] {
    const pieces: Piece[] = [];
    for (let rest = bytes; rest.length > 0;) {
        const { text, size } = readableBeginning(rest);
        pieces.push(...piecesOf(text));
        const malformed = rest[size];
        if (malformed !== undefined) {
            pieces.push({ text: "\\x" + malformed.toString(16).toUpperCase().padStart(2, "0"), isName: true });
        }
        rest = rest.subarray(size + 1);
    }
    return pieces;
}

/** JSON with invisible characters as its own escapes, so that it stays the same JSON. */
export function visibleJSON(json: string): string {
    return Array.from(json, (character) =>
        character === "\n" || !invisible.test(character) || character === " "
            ? character
            : Array.from({ length: character.length }, (_, i) => escapedUnit(character.charCodeAt(i))).join(""),
    ).join("");
}

function escapedUnit(unit: number): string {
    return "\\u" + unit.toString(16).toUpperCase().padStart(4, "0");
}
