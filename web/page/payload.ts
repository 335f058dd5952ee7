export { encoded as bytesOf } from "../module/text.js";

/** Where a payload came from. The picture of a mended code is not drawn for one that came by a link. */
export type Origin = "text" | "picture" | "link";

/** A payload as it is explained: any bytes, UTF-8 or not. */
export interface Payload {
    readonly bytes: Uint8Array;
    readonly origin: Origin;
}

/** The text of bytes; U+FFFD replaces those that are not UTF-8. */
export function textOf(bytes: Uint8Array): string {
    return new TextDecoder("utf-8", { ignoreBOM: true }).decode(bytes);
}

/** Whether bytes are UTF-8. */
export function isText(bytes: Uint8Array): boolean {
    try {
        new TextDecoder("utf-8", { fatal: true }).decode(bytes);
        return true;
    } catch {
        return false;
    }
}
