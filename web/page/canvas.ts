/** A canvas whose pixels are read often. */
export function canvasOf(width: number, height: number): [HTMLCanvasElement, CanvasRenderingContext2D] {
    const canvas = document.createElement("canvas");
    canvas.width = Math.max(1, Math.round(width));
    canvas.height = Math.max(1, Math.round(height));
    const context = canvas.getContext("2d", { willReadFrequently: true });
    if (context === null) {
        throw new Error("this browser has no memory for the picture");
    }
    context.imageSmoothingQuality = "high";
    return [canvas, context];
}
