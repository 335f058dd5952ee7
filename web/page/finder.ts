import { canvasOf } from "./canvas.js";
import { type Box, boxAround, collide, type Corners, inReadingOrder, isSquare, overlap } from "./geometry.js";
import { type ReadCode, readCodes } from "./reader.js";
import { sharpened, softened } from "./treatments.js";

/** A way to look at a part of a picture. Small modules need a larger picture, noise a softer one, blur a sharper one. */
interface Look {
    readonly scale: number;
    readonly treat?: (pixels: ImageData) => void;
}

const plain: Look = { scale: 1 };
const enlarged: Look = { scale: 2 };
const looks: readonly Look[] = [plain, enlarged, { scale: 1, treat: softened }, { scale: 2, treat: sharpened }];

/** Any look but the plain one is at no more pixels than these. */
const manyPixels = 2e6;
/** Ends the search, because what has been found is worth more than a page that hangs. */
const mostMilliseconds = 6000;

class CodeFinder {
    private readonly codes: ReadCode[] = [];
    private unreadable: ReadCode[] = [];
    private readonly deadline = performance.now() + mostMilliseconds;
    private lastRest = 0;

    /** Codes that have been read are painted over in the canvas. */
    constructor(
        private readonly canvas: HTMLCanvasElement,
        private readonly context: CanvasRenderingContext2D,
    ) {}

    async find(): Promise<ReadCode[]> {
        await this.searchInAllWays({ x: 0, y: 0, width: this.canvas.width, height: this.canvas.height });
        for (const { corners } of this.unreadable.slice()) {
            await this.searchInAllWays(this.around(corners));
        }
        // Where there are several codes, there may be more.
        if (this.codes.length !== 1 || this.unreadable.length > 0) {
            await this.searchTiles();
        }
        return inReadingOrder([...this.codes, ...this.certainlyUnreadable()]);
    }

    // The marks of several codes together can look like a code with errors. Only a square beside all codes counts.
    private certainlyUnreadable(): ReadCode[] {
        const size = ({ corners }: ReadCode): number => boxAround(corners).width;
        const isTaken = (code: ReadCode, others: readonly ReadCode[]): boolean =>
            others.some(({ corners }) => collide(corners, code.corners));
        const certain: ReadCode[] = [];
        for (const code of this.unreadable.slice().sort((left, right) => size(left) - size(right))) {
            if (isSquare(code.corners) && !isTaken(code, this.codes) && !isTaken(code, certain)) {
                certain.push(code);
            }
        }
        return certain;
    }

    // Looks at an area in one way after the other, until one finds something.
    private async searchInAllWays(area: Box): Promise<void> {
        for (const look of looks) {
            if (await this.search(area, look)) {
                return;
            }
        }
    }

    // Looks at an area in one way, until that finds nothing new. Whether it found something.
    private async search(area: Box, look: Look): Promise<boolean> {
        let isNew = false;
        while (performance.now() < this.deadline && (await this.lookAt(area, look))) {
            isNew = true;
        }
        return isNew;
    }

    // A look at the whole picture misses most of many codes, because it does not know which marks belong together. So
    // the search goes on in smaller tiles, which overlap by half, until two sizes have brought nothing new.
    private async searchTiles(): Promise<void> {
        let failures = 0;
        for (const tiles of [2, 3, 5, 7]) {
            const before = this.codes.length;
            for (const tile of this.tilesOf(tiles)) {
                await this.search(tile, plain);
                await this.search(tile, enlarged);
            }
            failures = this.codes.length > before ? 0 : failures + 1;
            if (failures === 2) {
                return;
            }
        }
    }

    private tilesOf(count: number): Box[] {
        const width = Math.floor((2 * this.canvas.width) / (count + 1));
        const height = Math.floor((2 * this.canvas.height) / (count + 1));
        return Array.from({ length: count * count }, (_, i) => ({
            x: Math.floor(((i % count) * width) / 2),
            y: Math.floor((Math.floor(i / count) * height) / 2),
            width,
            height,
        }));
    }

    private around(corners: Corners): Box {
        const box = boxAround(corners);
        const margin = Math.round((box.width + box.height) / 8);
        const x = Math.max(0, box.x - margin);
        const y = Math.max(0, box.y - margin);
        return {
            x,
            y,
            width: Math.min(this.canvas.width - x, box.width + 2 * margin),
            height: Math.min(this.canvas.height - y, box.height + 2 * margin),
        };
    }

    private async lookAt(area: Box, look: Look): Promise<boolean> {
        const leastSide = 21;
        if (area.width < leastSide || area.height < leastSide) {
            return false;
        }
        await this.letThePageAct();
        const { pixels, scale } = this.viewOf(area, look);
        look.treat?.(pixels);
        let isNew = false;
        for (const code of await readCodes(pixels)) {
            const corners = code.corners.map(({ x, y }) => ({ x: x / scale + area.x, y: y / scale + area.y }));
            isNew = this.take({ ...code, corners }) || isNew;
        }
        return isNew;
    }

    private async letThePageAct(): Promise<void> {
        const longestWait = 50;
        if (performance.now() - this.lastRest > longestWait) {
            await new Promise((resolve) => setTimeout(resolve));
            this.lastRest = performance.now();
        }
    }

    private viewOf(area: Box, look: Look): { pixels: ImageData; scale: number } {
        if (look === plain) {
            return { pixels: this.context.getImageData(area.x, area.y, area.width, area.height), scale: 1 };
        }
        const scale = Math.min(look.scale, Math.sqrt(manyPixels / (area.width * area.height)));
        const [view, context] = canvasOf(area.width * scale, area.height * scale);
        context.drawImage(this.canvas, area.x, area.y, area.width, area.height, 0, 0, view.width, view.height);
        return { pixels: context.getImageData(0, 0, view.width, view.height), scale };
    }

    // Whether a code is new. One that cannot be read is remembered, until another look reads it.
    private take(code: ReadCode): boolean {
        const isSame = (other: ReadCode): boolean => overlap(other.corners, code.corners);
        if (this.codes.some(isSame)) {
            return false;
        }
        const isRead = code.payload !== undefined;
        if (!isRead && this.unreadable.some(isSame)) {
            return false;
        }
        this.unreadable = this.unreadable.filter((other) => !isSame(other));
        if (!isRead) {
            this.unreadable.push(code);
            return false;
        }
        this.codes.push(code);
        this.paintOver(code.corners);
        return true;
    }

    // Paints a code white, so that the next look finds those beside it.
    private paintOver(corners: Corners): void {
        this.context.fillStyle = "white";
        this.context.beginPath();
        corners.forEach(({ x, y }) => this.context.lineTo(x, y));
        this.context.fill();
    }
}

/** Finds the QR codes in a picture, in reading order. Codes are painted over in the canvas. */
export async function findCodes(canvas: HTMLCanvasElement, context: CanvasRenderingContext2D): Promise<ReadCode[]> {
    return new CodeFinder(canvas, context).find();
}
