import { canvasOf } from "./canvas.js";
import { type Child, make, sentence, strange } from "./dom.js";
import { boxAround, type Corners, isInside } from "./geometry.js";
import { explained, recordOf } from "./library.js";
import type { Payload } from "./payload.js";
import type { Picture } from "./pictures.js";
import type { ReadCode } from "./reader.js";
import { verdictText } from "./verdict.js";

/** A picture is drawn at most this wide, in pixels of the canvas. */
const widest = 1000;

type State = "accepted" | "refused" | "unreadable";

interface ListedCode {
    readonly number: number;
    readonly state: State;
    readonly corners: Corners;
    readonly payload?: Payload;
    readonly button: HTMLButtonElement;
}

function placeOf(corners: Corners, scale: number): string {
    const { x, y, width, height } = boxAround(corners);
    const pixels = (length: number): number => Math.round(length * scale);
    return `at ${pixels(x)}, ${pixels(y)}; ${pixels(width)} × ${pixels(height)} pixels`;
}

/** A picture with its codes: boxes drawn over it, and a list to choose from. */
class PictureView {
    readonly figure = make("figure", {});
    readonly codes: ListedCode[];
    private readonly scale: number;
    private readonly context: CanvasRenderingContext2D | undefined;

    constructor(
        private readonly picture: Picture,
        choose: (code: ListedCode) => void,
    ) {
        this.scale = Math.min(1, widest / (picture.canvas?.width ?? 1));
        this.codes = picture.codes.map((code, i) => this.listed(code, i + 1));
        for (const code of this.codes) {
            code.button.addEventListener("click", () => choose(code));
        }
        const caption = make("figcaption", {}, strange(picture.name), ": ", ...this.summary());
        this.figure.append(caption);
        if (picture.canvas !== undefined) {
            const [canvas, context] = canvasOf(picture.canvas.width * this.scale, picture.canvas.height * this.scale);
            canvas.setAttribute("role", "img");
            canvas.setAttribute("aria-label", "The picture; its codes are in the list below");
            canvas.addEventListener("click", (event) => this.chooseAt(event, canvas, choose));
            this.context = context;
            this.figure.append(canvas);
        }
        this.figure.append(make("ol", { class: "codes" }, ...this.codes.map(({ button }) => make("li", {}, button))));
        this.draw();
    }

    /** Draws the picture, with the chosen code in thick lines. */
    draw(chosen?: ListedCode): void {
        const { context, picture } = this;
        for (const code of this.codes) {
            if (code === chosen) {
                code.button.setAttribute("aria-current", "true");
            } else {
                code.button.removeAttribute("aria-current");
            }
        }
        if (context === undefined || picture.canvas === undefined) {
            return;
        }
        context.drawImage(picture.canvas, 0, 0, context.canvas.width, context.canvas.height);
        for (const code of this.codes) {
            this.drawBox(context, code, code === chosen);
        }
    }

    private summary(): Child[] {
        const { problem } = this.picture;
        if (problem !== undefined) {
            return [sentence(problem)];
        }
        const counts = (["accepted", "refused", "unreadable"] as const)
            .map((state) => ({ state, count: this.codes.filter((code) => code.state === state).length }))
            .filter(({ count }) => count > 0)
            .map(({ state, count }) => `${count} ${state}`);
        return [counts.length === 0 ? "there is no QR code in this picture" : counts.join(", ")];
    }

    private listed(code: ReadCode, number: number): ListedCode {
        const all = code.payload && explained({ bytes: code.payload, origin: "picture" });
        const state = all === undefined ? "unreadable" : all.explanation.accepted ? "accepted" : "refused";
        const says = all === undefined ? `Unreadable: ${code.problem ?? ""}` : verdictText(all.explanation);
        const why = all && (all.explanation.causes[0] ?? recordOf(all.payload.bytes)?.merchantName);
        const button = make(
            "button",
            { type: "button", class: `code ${state}` },
            make("b", {}, String(number)),
            make("span", {}, says, " "),
            make("span", { class: "why" }, sentence(why ?? ""), " "),
            make("span", { class: "place" }, placeOf(code.corners, this.picture.scale)),
        );
        button.disabled = all === undefined;
        return { number, state, corners: code.corners, button, ...(all && { payload: all.payload }) };
    }

    private drawBox(context: CanvasRenderingContext2D, code: ListedCode, isChosen: boolean): void {
        const colour = { accepted: "#107c41", refused: "#c5221f", unreadable: "#6b6b6b" }[code.state];
        const { x, y } = code.corners[0] ?? { x: 0, y: 0 };
        const size = Math.max(14, context.canvas.width / 40);
        context.lineWidth = (isChosen ? 3 : 1.5) * (size / 14);
        context.strokeStyle = context.fillStyle = colour;
        context.beginPath();
        code.corners.forEach((corner) => context.lineTo(corner.x * this.scale, corner.y * this.scale));
        context.closePath();
        context.stroke();
        context.font = `bold ${size}px sans-serif`;
        const label = String(code.number);
        const width = context.measureText(label).width + size / 2;
        const left = x * this.scale;
        const top = Math.max(0, y * this.scale - size * 1.3);
        context.fillRect(left, top, width, size * 1.3);
        context.fillStyle = "white";
        context.fillText(label, left + size / 4, top + size);
    }

    private chooseAt(event: MouseEvent, canvas: HTMLCanvasElement, choose: (code: ListedCode) => void): void {
        const factor = canvas.width / canvas.clientWidth / this.scale;
        const spot = { x: event.offsetX * factor, y: event.offsetY * factor };
        const code = this.codes.find(({ corners, payload }) => payload !== undefined && isInside(spot, corners));
        if (code !== undefined) {
            choose(code);
        }
    }
}

/** The pictures that were shown, each with its codes. */
export class Codes {
    private views: PictureView[] = [];

    constructor(
        private readonly area: HTMLElement,
        private readonly explain: (payload: Payload) => void,
    ) {}

    /** Lists the codes of pictures, and explains the first one that is refused, or the first. */
    show(pictures: readonly Picture[]): void {
        this.views = pictures.map((picture) => new PictureView(picture, (code) => this.choose(code)));
        this.area.replaceChildren(...this.views.map(({ figure }) => figure));
        const codes = this.views.flatMap((view) => view.codes).filter(({ payload }) => payload !== undefined);
        const first = codes.find(({ state }) => state === "refused") ?? codes[0];
        if (first !== undefined) {
            this.choose(first);
        }
    }

    /** Whether a code in the pictures can be explained. */
    get isEmpty(): boolean {
        return this.views.every(({ codes }) => codes.every(({ payload }) => payload === undefined));
    }

    /** Forgets which code was chosen, because another text is explained. */
    unchoose(): void {
        this.views.forEach((view) => view.draw());
    }

    clear(): void {
        this.show([]);
    }

    private choose(code: ListedCode): void {
        if (code.payload !== undefined) {
            this.explain(code.payload);
            this.views.forEach((view) => view.draw(code));
        }
    }
}
