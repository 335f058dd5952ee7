import { Answer } from "./answer.js";
import { Camera, hasCamera } from "./camera.js";
import { copy } from "./clipboard.js";
import { Codes } from "./codes.js";
import { find } from "./dom.js";
import { TextInput } from "./input.js";
import { version } from "./library.js";
import { fragmentOf, payloadIn } from "./link.js";
import { bytesOf, type Payload } from "./payload.js";
import { longestStrip } from "./strip.js";

/** A refused code that can be mended: a wrong length in the merchant's name. */
const example: Payload = {
    bytes: bytesOf("000201021041234567845204581253033565406250.005802IN5911KORVO CAFE6006MUMBAI6304232E"),
    origin: "text",
};

const done = find("done", HTMLElement);
const announce = (text: string): void => {
    done.textContent = text;
};
const answer = new Answer(announce);
const text = new TextInput(find("text", HTMLTextAreaElement), find("text-note", HTMLElement), (payload) => {
    codes.unchoose();
    show(payload);
});
const codes = new Codes(find("pictures", HTMLElement), (payload) => {
    text.show(payload);
    show(payload);
});
const camera = new Camera(find("video", HTMLVideoElement));
let current: Payload | undefined;

function show(payload: Payload): void {
    current = payload.bytes.length === 0 ? undefined : payload;
    camera.stop();
    announce("");
    forgetLink(payload);
    if (current === undefined) {
        answer.clear();
    } else {
        explain(current);
    }
}

function explain(payload: Payload): void {
    try {
        answer.show(payload);
    } catch (error) {
        if (!(error instanceof RangeError)) {
            throw error;
        }
        answer.clear("There is not enough memory to explain this text.");
    }
}

// The address keeps the payload of a link while it is shown, and no longer.
function forgetLink({ origin }: Payload): void {
    if (origin !== "link" && location.hash !== "") {
        history.replaceState(null, "", location.pathname + location.search);
    }
}

function clear(): void {
    ++readings;
    codes.clear();
    const nothing: Payload = { bytes: new Uint8Array(), origin: "text" };
    text.show(nothing);
    show(nothing);
}

function showLink(): void {
    const bytes = payloadIn(location.hash);
    if (bytes === null) {
        clear();
        answer.clear("The link is damaged: the text in it cannot be read.");
    } else if (bytes !== undefined) {
        const payload: Payload = { bytes, origin: "link" };
        codes.clear();
        text.show(payload);
        show(payload);
    }
}

function aboutLink(): string {
    return location.protocol === "file:"
        ? "The link is copied. It only works on this device, because this page is a file on it."
        : "The link is copied. It holds the text after its #, which browsers do not send to servers.";
}

async function copyLink(): Promise<void> {
    if (current === undefined) {
        announce("There is no text to link to.");
    } else if (current.bytes.length > longestStrip) {
        announce("The text is too long for a link.");
    } else {
        const isCopied = await copy(location.href.replace(/#.*/, "") + "#" + fragmentOf(current.bytes));
        announce(isCopied ? aboutLink() : "This browser does not let the page copy a link.");
    }
}

let readings = 0;

async function showPictures(files: readonly File[]): Promise<void> {
    const reading = ++readings;
    announce(files.length === 1 ? "Reading the picture…" : `Reading ${files.length} pictures…`);
    // The reader is large, and is only unpacked when there is a picture.
    const { readPicture } = await import("./pictures.js");
    const pictures = [];
    for (const file of files) {
        pictures.push(await readPicture(file.name || "the picture", file));
    }
    if (reading !== readings) {
        return; // there are newer pictures
    }
    codes.show(pictures);
    announce("");
    if (codes.isEmpty) {
        const nothing: Payload = { bytes: new Uint8Array(), origin: "picture" };
        text.show(nothing);
        show(nothing);
        answer.clear(
            pictures.length === 1
                ? "No QR code was read in this picture. A sharper one, straight from the front, may help."
                : "No QR code was read in these pictures. Sharper ones, straight from the front, may help.",
        );
    }
    answer.bringIntoView();
}

async function useCamera(): Promise<void> {
    const viewfinder = find("viewfinder", HTMLElement);
    viewfinder.hidden = false;
    announce("Hold the code in front of the camera.");
    try {
        const code = await camera.look();
        announce("");
        if (code?.payload !== undefined) {
            const payload: Payload = { bytes: code.payload, origin: "picture" };
            codes.clear();
            text.show(payload);
            show(payload);
            answer.bringIntoView();
        }
    } catch {
        announce("The camera cannot be used: there is none, or this page may not use it.");
    } finally {
        viewfinder.hidden = true;
    }
}

function listen(id: string, act: () => void): void {
    find(id, HTMLButtonElement).addEventListener("click", act);
}

function listenToButtons(): void {
    const files = find("files", HTMLInputElement);
    listen("choose", () => files.click());
    files.addEventListener("change", () => {
        void showPictures(Array.from(files.files ?? []));
        files.value = "";
    });
    listen("camera", () => void useCamera());
    listen("stop", () => camera.stop());
    listen("clear", clear);
    listen("link", () => void copyLink());
    listen("example", () => {
        codes.clear();
        text.show(example);
        show(example);
    });
}

function listenToDrops(): void {
    const drop = find("drop", HTMLElement);
    document.addEventListener("dragover", (event) => {
        event.preventDefault();
        drop.classList.add("over");
    });
    document.addEventListener("dragleave", () => drop.classList.remove("over"));
    document.addEventListener("drop", (event) => {
        event.preventDefault();
        drop.classList.remove("over");
        take(event.dataTransfer);
    });
    document.addEventListener("paste", (event) => {
        if (take(event.clipboardData, event.target)) {
            event.preventDefault();
        }
    });
}

// Takes pictures, or a text that the text field would not take as it is. Whether it took something. A spreadsheet puts a
// picture of its cells beside their text.
function take(data: DataTransfer | null, target?: EventTarget | null): boolean {
    const files = Array.from(data?.files ?? []);
    const isText = ["text/plain", "text/html"].every((type) => data?.types.includes(type));
    if (files.length > 0 && !isText) {
        void showPictures(files);
        return true;
    }
    return text.take(data?.getData("text/plain") ?? "", target);
}

listenToButtons();
listenToDrops();
window.addEventListener("hashchange", showLink);
find("version", HTMLElement).textContent = `KorvoQRParser ${version}.`;
void hasCamera().then((isThere) => find("camera", HTMLElement).classList.toggle("absent", !isThere));
showLink();
// The browser compiles what is used for the first time. Nobody has to wait for that after a paste.
setTimeout(() => answer.prepare(example));
