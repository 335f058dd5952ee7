// Tests of the npm module in Node.js. KORVOQR and GENERATE_PAYLOADS are the tool and the generator of payloads.

import assert from "node:assert/strict";
import { execFileSync, spawnSync } from "node:child_process";
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { test } from "node:test";
import { fileURLToPath } from "node:url";
import { runInNewContext } from "node:vm";

const root = fileURLToPath(new URL("../..", import.meta.url));
const korvoqr = process.env.KORVOQR ?? join(root, "build/release/tools/korvoqr/korvoqr");
const generator = process.env.GENERATE_PAYLOADS ?? join(root, "build/release/tests/generate_payloads");

/** @type {WebAssembly.Instance[]} */
const instances = [];
WebAssembly.Instance = class extends WebAssembly.Instance {
    /** @param {[WebAssembly.Module, WebAssembly.Imports?]} args */
    constructor(...args) {
        super(...args);
        instances.push(this);
    }
};
const { alphabeticCurrencyCode, explain, explainJSON, parse, parseJSON, version } = await import("korvoqrparser");

const accepted = "0g411111111111111112hi24581231M42IN53356";
const refused = "000201021041234567845204581253033565802IN5911KORVO CAFE6006MUMBAI63046803";

/** @param {string[]} args @param {Buffer} input */
function lines(args, input) {
    const { status, stdout, stderr } = spawnSync(korvoqr, args, { input, maxBuffer: 1 << 30 });
    assert.ok(status === 0 || status === 1, `${korvoqr} ${args.join(" ")}: ${stderr}`);
    return stdout.toString().trimEnd().split("\n");
}

/** Generated payloads. One in four is spoilt: a byte that is not UTF-8, a cut, or NUL. */
function generatedPayloads() {
    const generated = execFileSync(generator, ["20261122", "10000"], { maxBuffer: 1 << 30 }).toString("latin1");
    return generated
        .split("\0")
        .slice(0, -1)
        .map((text, index) => {
            const place = (index * 7919) % (text.length + 1);
            const spoilt = [`${text.slice(0, place)}\xff${text.slice(place)}`, text.slice(0, place)];
            return Buffer.from(spoilt[index % 8] ?? (index % 8 === 2 ? text.replaceAll("A", "\0") : text), "latin1");
        });
}

const payloads = generatedPayloads();

test("the answers are the tool's, byte for byte", () => {
    assert.equal(payloads.length, 10000);
    assert.ok(payloads.filter((payload) => payload.some((byte) => byte > 127)).length > 5000);
    // The tool takes payloads that end with NUL or with a line feed, so those that hold one are ended by the other.
    const isLine = (/** @type {Buffer} */ payload) => payload.includes(0);
    for (const [end, kept] of /** @type {[string, Buffer[]][]} */ ([
        ["\0", payloads.filter((payload) => !isLine(payload))],
        ["\n", payloads.filter((payload) => isLine(payload) && !payload.includes("\n") && !payload.includes("\r"))],
    ])) {
        const input = Buffer.concat(kept.flatMap((payload) => [payload, Buffer.from(end)]));
        const options = end === "\0" ? ["-0"] : ["-i", "-"];
        assert.ok(kept.length > 500, `${kept.length} payloads`);
        assert.deepEqual(kept.map(parseJSON), lines(["parse", "--format", "jsonl", ...options], input));
        assert.deepEqual(kept.map(explainJSON), lines(["explain", "--format", "json", ...options], input));
    }
});

/** @param {Buffer} payload @param {import("korvoqrparser").Edit[]} edits */
function edited(payload, edits) {
    let at = 0;
    const pieces = edits.flatMap(({ byteOffset, from, to }) => {
        const before = payload.subarray(at, byteOffset);
        at = byteOffset + Buffer.byteLength(from);
        return [before, Buffer.from(to)];
    });
    return Buffer.concat([...pieces, payload.subarray(at)]).toString();
}

/** @param {unknown} explanation */
function withoutByteOffsets(explanation) {
    return JSON.stringify(explanation, (name, value) => (name === "byteOffset" ? undefined : value));
}

test("byte offsets are where elements, faults and changes are", () => {
    const seen = { elements: 0, faults: 0, repairs: 0 };
    for (const payload of payloads) {
        const explanation = explain(payload);
        for (const element of explanation.elements.flatMap((outer) => [outer, ...(outer.elements ?? [])])) {
            const text = payload.toString("utf8", element.byteOffset);
            assert.ok(text.startsWith(element.tag + element.length + element.value), `${payload}`);
            seen.elements += 1;
        }
        if (explanation.fault && !explanation.visible) {
            assert.ok(payload.toString("utf8", explanation.fault.byteOffset).startsWith(explanation.fault.after));
            seen.faults += 1;
        }
        if (!explanation.visible) {
            for (const repair of [...explanation.repairs, ...explanation.unverified]) {
                assert.equal(edited(payload, repair.edits), repair.payload);
                seen.repairs += 1;
            }
        }
        const line = JSON.parse(explainJSON(payload));
        if (explanation.visible && explanation.fault) {
            assert.equal(explanation.fault.byteOffset, line.fault.byteOffset ?? explanation.fault.byteOffset);
        }
        assert.deepEqual(withoutByteOffsets(explanation), withoutByteOffsets(line));
    }
    assert.ok(Math.min(...Object.values(seen)) > 1000, JSON.stringify(seen));
});

test("a string is read as its UTF-8", () => {
    for (const text of [accepted, refused, "", "\0", "\ufeff0002", "0103क्षि2 ", "a😀b"]) {
        assert.equal(explainJSON(text), explainJSON(Buffer.from(text)), text);
    }
    for (const [text, bytes] of /** @type {[string, number[]][]} */ ([
        ["a\ud83d", [0x61, 0xed, 0xa0, 0xbd]],
        ["\ude00\ud83db", [0xed, 0xb8, 0x80, 0xed, 0xa0, 0xbd, 0x62]],
        ["\ud83d\ud83d\ude00", [0xed, 0xa0, 0xbd, 0xf0, 0x9f, 0x98, 0x80]],
    ])) {
        assert.equal(explainJSON(text), explainJSON(Uint8Array.from(bytes)), JSON.stringify(text));
        assert.deepEqual(parse(text).qrCodeError?.errorCodes, ["0"]);
    }
    const elsewhere = runInNewContext(`Uint8Array.from(${JSON.stringify([...Buffer.from(accepted)])})`);
    assert.ok(!(elsewhere instanceof Uint8Array) && parse(elsewhere).qrCodeData);
    for (const value of [undefined, null, 12, ["0002"], new ArrayBuffer(2)]) {
        assert.throws(() => parse(/** @type {any} */ (value)), new TypeError("A payload is a string or a Uint8Array."));
    }
});

test("currencies, the version, and the members of a record", () => {
    assert.deepEqual(["356", "840", "000", "35", "", "INR"].map(alphabeticCurrencyCode), ["INR", "USD", ...Array(4)]);
    const manifest = JSON.parse(readFileSync(join(root, "web/package.json"), "utf8"));
    assert.equal(version, manifest.version);
    const declared = readFileSync(join(root, "web/module/record.ts"), "utf8").matchAll(/^ {4}(\w+): (\w+)/gm);
    const { qrCodeData } = parse(accepted);
    assert.deepEqual(
        Object.entries(qrCodeData ?? {}).map(([name, value]) => [name, typeof value === "boolean"]),
        [...declared].map(([, name, type]) => [name, type === "boolean"]),
    );
});

/** An accepted payload of more than a kilobyte, so that a copy that is not freed shows. */
function longPayload() {
    const dropped = [...Array(12).keys()].map((at) => `${16 + at}99${"x".repeat(99)}`).join("");
    const start = `000201021041234567845204581253033565802IN5910KORVO CAFE6006MUMBAI${dropped}6304`;
    return start + explain(`${start}0000`).checksum?.computed;
}

test("100,000 calls leave nothing behind", () => {
    const long = longPayload();
    assert.ok(long.length > 1000 && parse(long).qrCodeData);
    const memory = /** @type {WebAssembly.Memory} */ (instances.at(-1)?.exports.memory);
    const before = [instances.length, memory.buffer.byteLength];
    for (let call = 0; call < 49500; call += 1) {
        parseJSON(long);
        explainJSON(long);
    }
    for (let call = 0; call < 500; call += 1) {
        parse(refused);
        explain(refused);
    }
    assert.deepEqual([instances.length, memory.buffer.byteLength], before);
});

test("large payloads get an answer, and their memory is given back", () => {
    const megabyte = 1 << 20;
    const before = instances.length;
    assert.deepEqual(parse("0".repeat(megabyte)).qrCodeError?.errorCodes, ["0"]);
    assert.equal(explain("漢".repeat(megabyte)).causes[0], "The text has 3145728 bytes, more than any QR code holds.");
    assert.equal(instances.length, before);
    assert.deepEqual(parse(new Uint8Array(100 * megabyte)).qrCodeError?.errorCodes, ["0"]);
    assert.equal(explain("0".repeat(100 * megabyte)).payload.length, 100 * megabyte);
    // Its JSON, six characters for each, is longer than a string of this engine can be.
    assert.throws(() => explain("\x01".repeat(100 * megabyte)), { name: "RangeError" });
    const huge = new Uint8Array(4000 * megabyte);
    assert.throws(() => parse(huge), { name: "RangeError" });
    assert.ok(parse(accepted).qrCodeData);
    assert.equal(instances.length, before + 4);
});

test("without memory the functions throw, and the next call works", () => {
    const causes = new Set();
    for (let rest = 1 << 16; rest >= 8; rest >>= 1) {
        assert.ok(parse(accepted).qrCodeData);
        const malloc = /** @type {(size: number) => number} */ (instances.at(-1)?.exports.malloc);
        for (let size = 1 << 30; size >= rest; size >>= 1) {
            while (malloc(size) !== 0);
        }
        try {
            assert.ok(explain(refused).repairs.length > 0);
        } catch (error) {
            assert.ok(error instanceof RangeError, `${error}`);
            causes.add(error.cause instanceof WebAssembly.RuntimeError ? "trap" : "null");
        }
    }
    assert.deepEqual([...causes].sort(), ["null", "trap"]);
});

test("the packed module works in an empty project, and its README is right", () => {
    const folder = mkdtempSync(join(tmpdir(), "korvoqr-"));
    const inFolder = (/** @type {string} */ file, /** @type {string[]} */ ...args) =>
        spawnSync(file, args, { cwd: folder, encoding: "utf8" });
    try {
        const packed = execFileSync("npm", ["pack", "--ignore-scripts", "--json", "--pack-destination", folder], {
            cwd: join(root, "web"),
            encoding: "utf8",
        });
        const [{ filename, files }] = JSON.parse(packed);
        assert.deepEqual(files.map((/** @type {{path: string}} */ { path }) => path).sort(), [
            "README.md",
            "dist/explanation.d.ts",
            "dist/index.d.ts",
            "dist/index.js",
            "dist/licences.txt",
            "dist/record.d.ts",
            "package.json",
        ]);
        const readme = readFileSync(join(root, "web/README.md"), "utf8");
        const [, example = ""] = readme.match(/^```js\n(.*?)^```/ms) ?? [];
        const [, command = "", output] = readme.match(/^```console\n\$ (.*?)\n(.*?)^```/ms) ?? [];
        writeFileSync(join(folder, "package.json"), '{"type": "module"}');
        writeFileSync(join(folder, "pay.js"), example);
        const installed = inFolder("npm", "install", "--offline", "--no-audit", "--no-fund", `./${filename}`);
        assert.equal(installed.status, 0, installed.stderr);
        assert.equal(inFolder("sh", "-c", command).stdout, output);
        assert.match(
            inFolder("node", "pay.js", accepted).stdout,
            /^Pay any amount INR to hi, account 4111111111111111\n$/,
        );
        // The declarations alone: the project has no types of Node.js.
        writeFileSync(
            join(folder, "types.ts"),
            'import { explain } from "korvoqrparser";\nexport const x: string = explain("").causes[0]!;\n',
        );
        const compiler = join(root, "web/node_modules/typescript/bin/tsc");
        const checked = inFolder(
            "node",
            compiler,
            "--noEmit",
            "--strict",
            "--target",
            "es2022",
            "--module",
            "nodenext",
            "types.ts",
        );
        assert.equal(checked.status, 0, checked.stdout);
    } finally {
        rmSync(folder, { recursive: true });
    }
});
