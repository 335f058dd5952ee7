// The licences of what the module and the page contain beside this project's own code, with the texts that they ask for.
// docs/licences.md lists them.

import { readFileSync } from "node:fs";

/** @param {string} path from this folder */
const text = (path) => readFileSync(new URL(path, import.meta.url), "utf8").trim();

/**
 * @param {string} name
 * @param {string} licence
 */
const section = (name, licence) => `${"=".repeat(78)}\n${name}\n${"=".repeat(78)}\n\n${licence}\n`;

/** @param {string} name */
const npmPackage = (name) => {
    const { version } = JSON.parse(text(`node_modules/${name}/package.json`));
    return section(`${name} ${version}, in the page`, text(`node_modules/${name}/LICENSE`));
};

/** Those of the npm module: what Emscripten links into the library. */
export function licencesOfModule() {
    const musl = text("/usr/share/emscripten/system/lib/libc/musl/COPYRIGHT");
    return [
        section(
            "Unicode Character Database, from which the tables of characters are made",
            "Copyright 1991-2022 Unicode, Inc. All rights reserved. Distributed under the Terms of\n" +
                "Use in https://www.unicode.org/copyright.html.",
        ),
        section(
            "Emscripten, in the WebAssembly",
            "Copyright 2010-2022 The Emscripten Authors. Licensed under the MIT license, whose words\n" +
                "are in the next section. Its memory allocator is by Doug Lea, in the public domain.",
        ),
        section("musl, in the WebAssembly", musl),
        section(
            "LLVM's libc++, libc++abi and compiler-rt, in the WebAssembly",
            "Licensed under the Apache License 2.0 with LLVM Exceptions: as parts that a compiler\n" +
                "embeds they may be redistributed without its sections 4(a), 4(b) and 4(d).",
        ),
    ].join("\n");
}

/** Those of the page: the module's, and those of the packages that it bundles. */
export function licencesOfPage() {
    return [
        licencesOfModule(),
        npmPackage("uqr"),
        npmPackage("zxing-wasm"),
        section("ZXing-C++, in the WebAssembly of zxing-wasm", text("/usr/share/common-licenses/Apache-2.0")),
    ].join("\n");
}
