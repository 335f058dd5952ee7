import { bytesOf, isText, type Origin, type Payload, textOf } from "./payload.js";
import { piecesOf } from "./visible.js";

/** A browser needs seconds to lay out a megabyte, so the field has no more UTF-16 units than these. */
const mostInField = 8192;

/** The field with the text of a code. It calls `explain` as somebody types. */
export class TextInput {
    private origin: Origin = "text";

    constructor(
        private readonly field: HTMLTextAreaElement,
        private readonly note: HTMLElement,
        private readonly explain: (payload: Payload) => void,
    ) {
        field.addEventListener("input", () => this.typed());
        field.addEventListener("paste", () => {
            if (this.isAllSelected()) {
                this.origin = "text";
            }
        });
    }

    /** Shows a payload that was not typed. */
    show({ bytes, origin }: Payload): void {
        this.origin = origin;
        const text = textOf(bytes);
        this.field.value = text.slice(0, mostInField);
        this.note.textContent = noteOn(bytes, text.length > mostInField);
    }

    /**
     * Takes a text that replaces the whole one, if the field would change it: a field makes line feeds of other line
     * ends, and is slow with long texts. Also one for which there is no field. Whether it took it.
     */
    take(text: string, target?: EventTarget | null): boolean {
        const isForField = target === this.field;
        const isChanged = /\r/.test(text) || text.length > mostInField;
        if (text === "" || (isForField && !(isChanged && this.isAllSelected()))) {
            return false;
        }
        const payload: Payload = { bytes: bytesOf(text), origin: "text" };
        this.show(payload);
        this.explain(payload);
        return true;
    }

    private isAllSelected(): boolean {
        const { selectionStart, selectionEnd, value } = this.field;
        return selectionStart === 0 && selectionEnd === value.length;
    }

    // A text that came by a link stays one while it is edited.
    private typed(): void {
        if (this.field.value === "" || this.origin === "picture") {
            this.origin = "text";
        }
        const bytes = bytesOf(this.field.value);
        this.note.textContent = noteOn(bytes, false);
        this.explain({ bytes, origin: this.origin });
    }
}

function noteOn(bytes: Uint8Array, isCut: boolean): string {
    if (isCut) {
        return "Only the beginning of the text is in this field; all of it is explained.";
    }
    if (!isText(bytes)) {
        return "Some bytes of the code are no text. They are lost when you edit it here.";
    }
    const isAllVisible = piecesOf(textOf(bytes)).every(({ isName }) => !isName);
    return isAllVisible ? "" : "The text has characters that cannot be seen here. The answer shows them as numbers.";
}
