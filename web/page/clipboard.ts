/** Copies a text. Where the page may not use the clipboard, as on a plain http address, the old command does it. */
export async function copy(text: string): Promise<boolean> {
    try {
        await navigator.clipboard.writeText(text);
        return true;
    } catch {
        return copyByCommand(text);
    }
}

function copyByCommand(text: string): boolean {
    const answerWith = (event: ClipboardEvent): void => {
        event.clipboardData?.setData("text/plain", text);
        event.preventDefault();
    };
    document.addEventListener("copy", answerWith, { once: true });
    try {
        return document.execCommand("copy");
    } finally {
        document.removeEventListener("copy", answerWith);
    }
}
