import { copy } from "./clipboard.js";
import { type Child, make, sentence, strange, strangeBytes } from "./dom.js";
import { type Edit, type Explained, recordOf, type Repair } from "./library.js";
import { payeeOf } from "./payee.js";
import { bytesOf } from "./payload.js";
import { pictureOf } from "./qr.js";

/** Says in the page that something has been done. */
export type Announce = (text: string) => void;

function deleted(text: string): Child[] {
    return text === "" ? [] : [make("del", {}, strange(text))];
}

function inserted(text: string): Child[] {
    return text === "" ? [] : [make("ins", {}, strange(text))];
}

/** The original with what a repair takes out of it and puts into it. */
function differencesOf({ payload }: Explained, repair: Repair): HTMLElement {
    const text = make("p", { class: "differences" });
    let end = 0;
    for (const edit of repair.edits) {
        const kept = strangeBytes(payload.bytes.subarray(end, edit.byteOffset));
        text.append(kept, ...deleted(edit.from), ...inserted(edit.to));
        end = edit.byteOffset + bytesOf(edit.from).length;
    }
    text.append(strangeBytes(payload.bytes.subarray(end)));
    return text;
}

function sentenceOf({ offset, from, to }: Edit): HTMLElement {
    const quoted = (text: string): Child[] => ["“", strange(text), "”"];
    const place = `At offset ${offset}, `;
    if (from === "") {
        return make("li", {}, place, ...quoted(to), " is inserted.");
    }
    if (to === "") {
        return make("li", {}, place, ...quoted(from), " is left out.");
    }
    return make("li", {}, place, ...quoted(from), " becomes ", ...quoted(to), ".");
}

function changesOf(explained: Explained, repair: Repair): Child[] {
    return [
        make("h4", {}, "What is different"),
        differencesOf(explained, repair),
        make("ul", { class: "edits" }, ...repair.edits.map(sentenceOf)),
    ];
}

function copyButton(repair: Repair, announce: Announce): HTMLElement {
    const button = make("button", { type: "button", class: "copy" }, "Copy the mended text");
    button.addEventListener("click", () => {
        void copy(repair.payload).then((isCopied) =>
            announce(isCopied ? "The mended text is copied." : "This browser does not let the page copy a text."),
        );
    });
    return button;
}

function pictureParts(address: string | undefined): Child[] {
    if (address === undefined) {
        return [make("p", { class: "note" }, "No QR code holds as much as this.")];
    }
    return [
        make("img", { src: address, alt: "QR code of the mended text", class: "qr" }),
        make("a", { href: address, download: "mended.png", class: "save" }, "Save the picture"),
    ];
}

// Drawing takes longer than everything else, so the explanation is shown first.
function pictureFor(repair: Repair): HTMLElement {
    const place = make("div", { class: "picture" });
    setTimeout(() => {
        if (place.isConnected) {
            place.replaceChildren(...pictureParts(pictureOf(bytesOf(repair.payload))));
        }
    });
    return place;
}

/** A repair that the checksum vouches for, with all that a person needs to use it. */
function vouched(explained: Explained, repair: Repair, announce: Announce): HTMLElement {
    const record = recordOf(bytesOf(repair.payload));
    const isFromLink = explained.payload.origin === "link";
    const noPicture = "There is no picture, because whoever made the link chose this text.";
    return make(
        "article",
        { class: "repair vouched" },
        make("h3", {}, "Mended; the checksum vouches for it"),
        make(
            "div",
            { class: "offer" },
            isFromLink ? make("p", { class: "note" }, noPicture) : pictureFor(repair),
            make(
                "div",
                { class: "reading" },
                ...(record === null ? [] : [payeeOf(record)]),
                copyButton(repair, announce),
            ),
        ),
        make(
            "p",
            { class: "note" },
            "Compare this with the merchant before anybody pays: a checksum finds accidents, not forgeries.",
        ),
        ...changesOf(explained, repair),
    );
}

/** Any other repair: its differences and its caution, and nothing that could be used. */
function unverified(explained: Explained, repair: Repair): HTMLElement {
    return make(
        "article",
        { class: "repair unverified" },
        make("h3", {}, "Perhaps it was this, but nothing confirms it"),
        make("p", { class: "caution" }, sentence(repair.caution ?? "")),
        ...changesOf(explained, repair),
    );
}

/** All repairs, those that the checksum vouches for first. */
export function repairsOf(explained: Explained, announce: Announce): HTMLElement[] {
    const { repairs, unverified: others } = explained.explanation;
    return [
        ...repairs.map((repair) => vouched(explained, repair, announce)),
        ...others.map((repair) => unverified(explained, repair)),
    ];
}
