// Blurs one row or column of greys: each becomes the mean of itself, twice, and its neighbours.
function blurLines(greys: Float32Array, count: number, length: number, lineStep: number, step: number): void {
    for (let line = 0; line < count; ++line) {
        const start = line * lineStep;
        let before = greys[start] ?? 0;
        for (let i = 0; i < length; ++i) {
            const at = start + i * step;
            const grey = greys[at] ?? 0;
            const after = i + 1 < length ? (greys[at + step] ?? 0) : grey;
            greys[at] = (before + 2 * grey + after) / 4;
            before = grey;
        }
    }
}

function greysOf({ data }: ImageData): Float32Array {
    const greys = new Float32Array(data.length / 4);
    for (let i = 0; i < greys.length; ++i) {
        greys[i] = 0.299 * (data[4 * i] ?? 0) + 0.587 * (data[4 * i + 1] ?? 0) + 0.114 * (data[4 * i + 2] ?? 0);
    }
    return greys;
}

function blur(greys: Float32Array, width: number, height: number, times: number): void {
    for (let i = 0; i < times; ++i) {
        blurLines(greys, height, width, width, 1);
        blurLines(greys, width, height, 1, width);
    }
}

function store(pixels: ImageData, grey: (i: number) => number): void {
    for (let i = 0; i < pixels.data.length / 4; ++i) {
        pixels.data.fill(grey(i), 4 * i, 4 * i + 3);
    }
}

/** Takes noise out of a picture. */
export function softened(pixels: ImageData): void {
    const greys = greysOf(pixels);
    blur(greys, pixels.width, pixels.height, 2);
    store(pixels, (i) => greys[i] ?? 0);
}

/** Takes blur out of a picture: what a blurred copy lacks is added. */
export function sharpened(pixels: ImageData): void {
    const strength = 2;
    const greys = greysOf(pixels);
    const blurred = greys.slice();
    blur(blurred, pixels.width, pixels.height, 8);
    store(pixels, (i) => (greys[i] ?? 0) + strength * ((greys[i] ?? 0) - (blurred[i] ?? 0)));
}
