import { canvasOf } from "./canvas.js";
import { findCodes } from "./finder.js";
import type { ReadCode } from "./reader.js";

/** A larger picture is made smaller; no code needs so many pixels, and no phone has a larger canvas. */
const mostPixels = 16e6;

/** A picture and the codes in it, or why it cannot be read. Places are in pixels of the picture itself. */
export interface Picture {
    readonly name: string;
    readonly canvas?: HTMLCanvasElement;
    /** Pixels of the picture for one of the canvas. */
    readonly scale: number;
    readonly codes: readonly ReadCode[];
    readonly problem?: string;
}

type Drawable = ImageBitmap | HTMLImageElement;

// Only an image element draws vector pictures.
async function imageOf(file: Blob): Promise<HTMLImageElement> {
    const image = new Image();
    const address = URL.createObjectURL(file);
    try {
        image.src = address;
        await image.decode();
        return image;
    } finally {
        URL.revokeObjectURL(address);
    }
}

async function drawableOf(file: Blob): Promise<Drawable> {
    try {
        return await createImageBitmap(file);
    } catch {
        return await imageOf(file);
    }
}

function hasHoles(pixels: ImageData): boolean {
    for (let i = 3; i < pixels.data.length; i += 4) {
        if (pixels.data[i] !== 255) {
            return true;
        }
    }
    return false;
}

function isEmpty(codes: readonly ReadCode[]): boolean {
    return codes.every(({ payload }) => payload === undefined);
}

// Draws a picture as it looks on paper, or on a dark screen if it has holes and there is nothing on paper.
async function read(name: string, drawable: Drawable): Promise<Picture> {
    const width = drawable.width || 1000;
    const height = drawable.height || 1000;
    const scale = Math.sqrt(Math.min(1, mostPixels / (width * height)));
    const [canvas, context] = canvasOf(width * scale, height * scale);
    const drawOn = (ground: string): void => {
        context.fillStyle = ground;
        context.fillRect(0, 0, canvas.width, canvas.height);
        context.drawImage(drawable, 0, 0, canvas.width, canvas.height);
    };
    context.drawImage(drawable, 0, 0, canvas.width, canvas.height);
    const grounds = hasHoles(context.getImageData(0, 0, canvas.width, canvas.height)) ? ["white", "black"] : ["white"];
    let codes: ReadCode[] = [];
    for (const ground of grounds) {
        if (isEmpty(codes)) {
            drawOn(ground);
            codes = await findCodes(canvas, context);
            drawOn(ground);
        }
    }
    return { name, canvas, scale: 1 / scale, codes };
}

/** Reads a file that should be a picture. */
export async function readPicture(name: string, file: Blob): Promise<Picture> {
    let drawable: Drawable;
    try {
        drawable = await drawableOf(file);
    } catch {
        return { name, scale: 1, codes: [], problem: "this is not a picture that the browser can show" };
    }
    try {
        return await read(name, drawable);
    } catch (error) {
        return { name, scale: 1, codes: [], problem: error instanceof Error ? error.message : String(error) };
    }
}
