import { explain, type Explanation, parse, type QRCodeData } from "../module/index.js";
import type { Payload } from "./payload.js";

export { alphabeticCurrencyCode, explainJSON, version } from "../module/index.js";
export type { Edit, Element, Explanation, QRCodeData, Repair, Violation } from "../module/index.js";

/** A payload and all that is known about it. */
export interface Explained {
    readonly payload: Payload;
    readonly explanation: Explanation;
}

export function explained(payload: Payload): Explained {
    return { payload, explanation: explain(payload.bytes) };
}

/** The record of a payload; null if it is refused. */
export function recordOf(bytes: Uint8Array): QRCodeData | null {
    return parse(bytes).qrCodeData ?? null;
}
