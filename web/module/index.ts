/**
 * Reads the text of a merchant-presented payment QR code, and says why one is refused.
 *
 *     import { explain, parse } from "korvoqrparser";
 *
 *     const { qrCodeData } = parse(scanned);
 *     if (qrCodeData) {
 *         pay(qrCodeData.korvoMerchantPAN, qrCodeData.transactionAmount);
 *     } else {
 *         show(explain(scanned).causes[0]);
 *     }
 *
 * A payload is the text as it was scanned, nothing trimmed: a string, or bytes that should be UTF-8. Every payload gets
 * an answer, in time linear in its size. A string with half a character (a surrogate without its other half) and bytes
 * that are not UTF-8 are refused with the code 0. Nothing is kept between calls, and nothing has to be freed.
 *
 * The functions throw only if memory runs out, or a string becomes longer than the engine allows: a RangeError, and
 * later calls work. That can happen above some ten megabytes.
 */
import type { Explanation } from "./explanation.js";
import { withLibrary } from "./library.js";
import { withByteOffsets } from "./places.js";
import type { QRCodeData } from "./record.js";
import { encoded } from "./text.js";

export type { Checksum, Edit, Element, Explanation, Fault, Repair, Violation } from "./explanation.js";
export type { QRCodeData } from "./record.js";

/** The text of a scanned QR code. */
export type Payload = string | Uint8Array;

/** The codes of the rules that a payload violates, in the order in which the rules ran. */
export interface QRCodeError {
    /** Numbers as text, such as "48". */
    errorCodes: string[];
    /** The published names of the same codes, such as "crcInvalidValue". */
    errorNames: string[];
}

/** The answer to a payload: a record or an error, never both. */
export type ParserResponse =
    { qrCodeData: QRCodeData; qrCodeError?: never } | { qrCodeError: QRCodeError; qrCodeData?: never };

/** The version of the library, such as "1.1.0". */
export const version: string = withLibrary((library) => library.version);

/** Parses one payload. */
export function parse(payload: Payload): ParserResponse {
    return JSON.parse(parseJSON(payload)) as ParserResponse;
}

/** Explains one payload: its elements, the rules that they violate, the likely causes, and repairs. */
export function explain(payload: Payload): Explanation {
    return explained(payload, (json, byteOffset) => withByteOffsets(JSON.parse(json) as Explanation, byteOffset));
}

/** The answer of `parse` as one line of JSON, as `korvoqr parse --format jsonl` prints it. */
export function parseJSON(payload: Payload): string {
    const bytes = bytesOf(payload);
    return withLibrary((library) => library.parse(bytes));
}

/**
 * The explanation as one line of JSON, as `korvoqr explain --format json` prints it. It has no byte offsets, except that
 * of a fault that is bytes that are not UTF-8.
 */
export function explainJSON(payload: Payload): string {
    return explained(payload, (json) => json);
}

/** The letters of a currency: "INR" for "356", a record's currencyCode. Undefined if the rules refuse the number. */
export function alphabeticCurrencyCode(numericCode: string): string | undefined {
    return withLibrary((library) => library.alphabeticCurrencyCode(encoded(numericCode)));
}

function explained<T>(payload: Payload, use: (json: string, byteOffset: (offset: number) => number) => T): T {
    const bytes = bytesOf(payload);
    return withLibrary((library) => library.explain(bytes, use));
}

function bytesOf(payload: Payload): Uint8Array {
    if (typeof payload === "string") {
        return encoded(payload);
    }
    // Not instanceof: the array may come from another frame, or from a test's own world.
    if (Object.prototype.toString.call(payload) !== "[object Uint8Array]") {
        throw new TypeError("A payload is a string or a Uint8Array.");
    }
    return payload;
}
