import { canvasOf } from "./canvas.js";
import type { ReadCode } from "./reader.js";

/** Time between two looks at what the camera sees. */
const pause = 150;

/** Whether there is a camera that a page may ask for. */
export async function hasCamera(): Promise<boolean> {
    // Only an address that begins with https, or a file, may use a camera; elsewhere this is undefined.
    const devices = (navigator as Partial<Navigator>).mediaDevices;
    const all = (await devices?.enumerateDevices().catch(() => [])) ?? [];
    return all.some(({ kind }) => kind === "videoinput");
}

/** Shows what the camera sees and looks for a code in it. */
export class Camera {
    private stream: MediaStream | undefined;
    private turn = 0;

    constructor(private readonly video: HTMLVideoElement) {}

    /** The first code that the camera sees; undefined if the camera is stopped before. Throws if there is none. */
    async look(): Promise<ReadCode | undefined> {
        this.stop();
        const { turn } = this;
        const stream = await navigator.mediaDevices.getUserMedia({
            audio: false,
            video: { facingMode: "environment", width: { ideal: 1280 }, height: { ideal: 720 } },
        });
        this.stream = stream;
        // Somebody may have stopped the camera while the browser asked whether it may be used.
        if (turn !== this.turn) {
            this.stop();
            return undefined;
        }
        this.video.srcObject = stream;
        await this.video.play();
        const { readCodes } = await import("./reader.js");
        while (turn === this.turn) {
            const code = await this.lookOnce(readCodes);
            if (code !== undefined) {
                this.stop();
                return code;
            }
            await new Promise((resolve) => setTimeout(resolve, pause));
        }
        return undefined;
    }

    stop(): void {
        ++this.turn;
        this.stream?.getTracks().forEach((track) => track.stop());
        this.stream = undefined;
        this.video.srcObject = null;
    }

    private async lookOnce(readCodes: (pixels: ImageData) => Promise<ReadCode[]>): Promise<ReadCode | undefined> {
        const { videoWidth, videoHeight } = this.video;
        if (videoWidth === 0) {
            return undefined;
        }
        const [, context] = canvasOf(videoWidth, videoHeight);
        context.drawImage(this.video, 0, 0);
        const codes = await readCodes(context.getImageData(0, 0, videoWidth, videoHeight));
        return codes.find(({ payload }) => payload !== undefined);
    }
}
