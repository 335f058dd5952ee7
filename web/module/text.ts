const encoder = new TextEncoder();
const decoder = new TextDecoder();
const loneSurrogate = /(\p{Surrogate})/u;

/** The three bytes that UTF-8 would use for half a character. They are not valid UTF-8, so the parser refuses them. */
function bytesOfSurrogate(unit: number): Uint8Array {
    return Uint8Array.of(0xe0 | (unit >> 12), 0x80 | ((unit >> 6) & 0x3f), 0x80 | (unit & 0x3f));
}

function joined(parts: readonly Uint8Array[]): Uint8Array {
    const bytes = new Uint8Array(parts.reduce((size, part) => size + part.length, 0));
    let size = 0;
    for (const part of parts) {
        bytes.set(part, size);
        size += part.length;
    }
    return bytes;
}

/**
 * The text in UTF-8. A surrogate without its other half is kept: TextEncoder alone would replace it with another
 * character, and the parser would answer a text that nobody gave it.
 */
export function encoded(text: string): Uint8Array {
    if (!loneSurrogate.test(text)) {
        return encoder.encode(text);
    }
    const parts = text.split(loneSurrogate);
    return joined(
        parts.map((part, at) => (at % 2 === 0 ? encoder.encode(part) : bytesOfSurrogate(part.charCodeAt(0)))),
    );
}

/** A text of the library that is not a payload's: JSON, a name. Neither begins with a byte order mark. */
export function decoded(bytes: Uint8Array): string {
    return decoder.decode(bytes);
}
