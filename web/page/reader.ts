import { prepareZXingModule, type ReaderOptions, type ReadResult, readBarcodes } from "zxing-wasm/reader";
import bytes from "zxing-wasm/reader/zxing_reader.wasm";
import type { Corners } from "./geometry.js";

/** A QR code in a picture: its payload, or why it cannot be read. */
export interface ReadCode {
    readonly payload?: Uint8Array;
    readonly problem?: string;
    readonly corners: Corners;
}

// The reader comes with the page. By itself it would fetch its WebAssembly from another server.
// Its types take the file for an address; the build puts in the bytes.
const wasm = bytes as unknown as Uint8Array<ArrayBuffer>;
prepareZXingModule({ overrides: { wasmBinary: wasm.buffer } });

const options: ReaderOptions = {
    formats: ["QRCode"],
    textMode: "Plain",
    // The reader takes bytes of an undeclared character set for these, which keeps each of them.
    characterSet: "ISO8859_1",
    returnErrors: true,
    tryHarder: true,
};

// The bytes of the code. If it declares their character set, or has its own signs for Japanese, the text in UTF-8.
function payloadOf(code: ReadResult): Uint8Array {
    const latin = Array.from(code.bytes, (byte) => String.fromCharCode(byte)).join("");
    return !code.hasECI && code.text === latin ? code.bytes : new TextEncoder().encode(code.text);
}

function read(code: ReadResult): ReadCode {
    const { topLeft, topRight, bottomRight, bottomLeft } = code.position;
    const corners = [topLeft, topRight, bottomRight, bottomLeft];
    if (!code.isValid) {
        return { corners, problem: "more of it is blurred, damaged or hidden than can be corrected" };
    }
    if (code.sequenceSize >= 0) {
        return { corners, problem: "it holds one part of a text that is split over several codes" };
    }
    return { corners, payload: payloadOf(code) };
}

/** Whether a result is a code: an error in something that only looks like one is no news. */
function isCode(code: ReadResult): boolean {
    return code.isValid || code.error.startsWith("ChecksumError");
}

/** Reads the QR codes in pixels, in one look. */
export async function readCodes(pixels: ImageData): Promise<ReadCode[]> {
    const codes = await readBarcodes(pixels, options);
    return codes.filter(isCode).map(read);
}
