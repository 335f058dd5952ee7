// Opens the page in Chromium, and watches what it does.

import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { createServer } from "node:http";
import { join } from "node:path";
import { fileURLToPath, pathToFileURL } from "node:url";
import { chromium } from "playwright-core";

/** @typedef {import("playwright-core").Page} Page */

const built = fileURLToPath(new URL("../../build/web/", import.meta.url));
const types = new Map([
    ["html", "text/html"],
    ["css", "text/css"],
    ["js", "text/javascript"],
]);

const server = createServer((request, response) => {
    const name = request.url === "/" ? "index.html" : (request.url ?? "").slice(1);
    const type = types.get(name.split(".").pop() ?? "");
    if (["index.html", "page.css", "page.js"].includes(name) && type !== undefined) {
        response.setHeader("content-type", type).end(readFileSync(join(built, "site", name)));
    } else {
        response.writeHead(404).end();
    }
});
await new Promise((resolve) => server.listen(0, "127.0.0.1", () => resolve(undefined)));
const address = server.address();
assert.ok(address !== null && typeof address === "object");

/** The page on a server. */
export const site = `http://127.0.0.1:${address.port}/`;
/** The same in one file. */
export const file = pathToFileURL(join(built, "korvoqr.html")).href;

/** @param {string[]} args */
export function launched(args = []) {
    const quiet = ["--disable-gpu", "--disable-quic", "--disable-background-networking", "--disable-component-update"];
    return chromium.launch({
        executablePath: "/usr/bin/chromium",
        args: ["--no-sandbox", "--no-first-run", "--disable-sync", ...quiet, ...args],
    });
}

const browser = await launched();

export async function close() {
    await browser.close();
    server.close();
}

/**
 * Opens the page, lets `use` use it, and checks that it has asked for nothing but itself and that nothing has gone wrong.
 * @param {{ url?: string, browser?: import("playwright-core").Browser } &
 *     import("playwright-core").BrowserContextOptions} options
 * @param {(page: Page) => Promise<void>} use
 */
export async function withPage({ url = site, browser: other = browser, ...options }, use) {
    const permissions = url.startsWith("http") ? ["clipboard-read", "clipboard-write"] : [];
    const context = await other.newContext({ permissions, ...options });
    /** @type {string[]} */
    const seen = [];
    const own = [site, `${site}page.css`, `${site}page.js`, file];
    context.on("request", (request) => {
        const asked = request.url().replace(/#.*/, "");
        seen.push(...(own.includes(asked) || /^(data|blob):/.test(asked) ? [] : [asked]));
    });
    await context.exposeBinding("report", (_, text) => void seen.push(text));
    await context.addInitScript(
        `addEventListener("securitypolicyviolation", ({ violatedDirective, blockedURI }) =>
            report(violatedDirective + " " + blockedURI));
        globalThis.alert = (text) => report("alert " + text);`,
    );
    const page = await context.newPage();
    page.on("pageerror", (error) => void seen.push(String(error.stack)));
    page.on("console", (message) => void (message.type() === "error" && seen.push(message.text())));
    await page.goto(url);
    await use(page);
    await context.close();
    assert.deepEqual(seen, []);
}

/**
 * Pastes a text or files like a person: by the keyboard, from the clipboard.
 * @param {Page} page
 * @param {string} text
 */
export async function paste(page, text) {
    await page.evaluate((copied) => navigator.clipboard.writeText(copied), text);
    await page.focus("#text");
    await page.keyboard.press("Control+A");
    await page.keyboard.press("Control+V");
}

/**
 * Drops files on the page, or pastes them into it.
 * @param {Page} page
 * @param {"drop" | "paste"} how
 * @param {{ name: string, base64: string }[]} files
 */
export async function give(page, how, files) {
    await page.evaluate(([kind, all]) => {
        const data = new DataTransfer();
        for (const { name, base64 } of all) {
            data.items.add(new File([Uint8Array.from(atob(base64), (c) => c.charCodeAt(0))], name));
        }
        const common = { bubbles: true, cancelable: true };
        document.body.dispatchEvent(
            kind === "drop"
                ? new DragEvent("drop", { ...common, dataTransfer: data })
                : new ClipboardEvent("paste", { ...common, clipboardData: data }),
        );
    }, /** @type {const} */ ([how, files]));
    await isRead(page);
}

/**
 * Chooses files, and waits until they have been read.
 * @param {Page} page
 * @param {...string} files
 */
export async function choose(page, ...files) {
    await page.setInputFiles("#files", files);
    await isRead(page);
}

/** @param {Page} page */
async function isRead(page) {
    await page.waitForFunction(() => !document.getElementById("done")?.textContent?.startsWith("Reading"));
}
