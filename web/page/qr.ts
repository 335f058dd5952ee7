import { encode } from "uqr";

/** The empty modules that a code needs around it. */
const quietZone = 4;
const pixelsOfModule = 8;

function modulesOf(bytes: Uint8Array): boolean[][] | undefined {
    try {
        return encode(Array.from(bytes), { ecc: "M", border: quietZone }).data;
    } catch (error) {
        if (error instanceof RangeError) {
            return undefined;
        }
        throw error;
    }
}

/** A QR code of a payload as the address of a PNG picture; undefined if no code holds as much. */
export function pictureOf(bytes: Uint8Array): string | undefined {
    const modules = modulesOf(bytes);
    const canvas = document.createElement("canvas");
    const context = canvas.getContext("2d");
    if (modules === undefined || context === null) {
        return undefined;
    }
    canvas.width = canvas.height = modules.length * pixelsOfModule;
    context.fillStyle = "white";
    context.fillRect(0, 0, canvas.width, canvas.height);
    context.scale(pixelsOfModule, pixelsOfModule);
    context.fillStyle = "black";
    modules.forEach((row, y) => row.forEach((isDark, x) => isDark && context.fillRect(x, y, 1, 1)));
    return canvas.toDataURL("image/png");
}
