// Builds the npm module from build/web/korvoqr.wasm: node module/build.js makes dist/index.js and dist/licences.txt. The
// declarations come from tsc -p module.

import { writeFileSync } from "node:fs";
import { fileURLToPath } from "node:url";
import { build } from "esbuild";
import { licencesOfModule } from "../licences.js";

const folder = fileURLToPath(new URL("..", import.meta.url));
await build({
    absWorkingDir: folder,
    entryPoints: ["module/index.ts"],
    outfile: "dist/index.js",
    bundle: true,
    minify: true,
    format: "esm",
    platform: "neutral",
    target: "es2022",
    // In the script, because a page from a disk cannot fetch a file, and a bundler would have to be told about it.
    loader: { ".wasm": "binary" },
});
writeFileSync(`${folder}/dist/licences.txt`, licencesOfModule());
