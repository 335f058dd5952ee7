const key = "payload=";

/** The part of a link after `#` that holds a payload. Base64url keeps all bytes, and no program re-encodes it. */
export function fragmentOf(bytes: Uint8Array): string {
    const characters = Array.from(bytes, (byte) => String.fromCharCode(byte)).join("");
    return key + btoa(characters).replaceAll("+", "-").replaceAll("/", "_").replace(/=+$/, "");
}

/** The payload in the part after `#`: undefined if there is none, null if it is damaged. */
export function payloadIn(fragment: string): Uint8Array | null | undefined {
    const text = fragment.replace(/^#/, "");
    if (!text.startsWith(key)) {
        return undefined;
    }
    try {
        const characters = atob(text.slice(key.length).replaceAll("-", "+").replaceAll("_", "/"));
        return Uint8Array.from(characters, (character) => character.charCodeAt(0));
    } catch {
        return null;
    }
}
