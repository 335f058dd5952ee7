// Builds the page: node page/build.js FOLDER makes FOLDER/site, static files for any server, and FOLDER/korvoqr.html,
// the same in one file, which also works from a disk.

import { createHash } from "node:crypto";
import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { build } from "esbuild";
import { licencesOfPage } from "../licences.js";

const source = dirname(fileURLToPath(import.meta.url));

/** @param {string} file */
async function bundled(file) {
    const { outputFiles } = await build({
        entryPoints: [join(source, file)],
        bundle: true,
        minify: true,
        write: false,
        format: "esm",
        target: ["chrome109", "firefox115", "safari16.4"],
        loader: { ".wasm": "binary" },
        legalComments: "inline",
        outdir: "unused",
    });
    return outputFiles.map(({ text }) => text).join("");
}

/**
 * @param {string} text
 * @param {string} from
 * @param {string} to
 */
function replaced(text, from, to) {
    if (text.split(from).length !== 2) {
        throw new Error(`the page must have ${from} exactly once`);
    }
    return text.replace(from, () => to);
}

/**
 * The browser runs nothing but the script and the style of these digests.
 * @param {string} text
 */
function sourceOf(text) {
    return `'sha256-${createHash("sha256").update(text).digest("base64")}'`;
}

/**
 * @param {string} html
 * @param {string} script
 * @param {string} style
 */
function selfContained(html, script, style) {
    let page = replaced(html, '<link rel="stylesheet" href="page.css" />', `<style>${style}</style>`);
    page = replaced(page, "script-src 'self'", `script-src ${sourceOf(script)}`);
    page = replaced(page, "style-src 'self'", `style-src ${sourceOf(style)}`);
    page = replaced(page, '<script type="module" src="page.js"></script>', `<script type="module">${script}</script>`);
    return `${page}<!--\n${licencesOfPage()}-->\n`;
}

const folder = process.argv[2];
if (folder === undefined || process.argv.length > 3) {
    console.error("page/build.js: type node page/build.js FOLDER");
    process.exit(2);
}
const html = readFileSync(join(source, "index.html"), "utf8");
const [script, style] = await Promise.all([bundled("main.ts"), bundled("style.css")]);
mkdirSync(join(folder, "site"), { recursive: true });
writeFileSync(join(folder, "site/index.html"), html);
writeFileSync(join(folder, "site/page.js"), script);
writeFileSync(join(folder, "site/page.css"), style);
writeFileSync(join(folder, "site/licences.txt"), licencesOfPage());
writeFileSync(join(folder, "korvoqr.html"), selfContained(html, script, style));
