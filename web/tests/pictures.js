// Makes the pictures of the page's tests, with qrencode and Netpbm.

import { execFileSync } from "node:child_process";
import { mkdtempSync, rmSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";

export const folder = mkdtempSync(join(tmpdir(), "pictures-"));
process.on("exit", () => rmSync(folder, { recursive: true }));

/**
 * Runs a script in the folder of the pictures, and returns the path of the file that it makes.
 * @param {string} file
 * @param {string} script
 * @param {...string} texts its arguments
 */
function made(file, script, ...texts) {
    const command = ["-euo", "pipefail", "-c", script, "pictures", ...texts];
    execFileSync("bash", command, { cwd: folder, stdio: ["ignore", "ignore", "ignore"] });
    return join(folder, file);
}

/**
 * Codes of the texts in rows of as many.
 * @param {string} file
 * @param {number} columns
 * @param {...string} texts
 */
export function codes(file, columns, ...texts) {
    const script = `
        file=$1 columns=$2 rows=() row=(); shift 2
        while (($#)); do
            qrencode -s 4 -o - "$1" | pngtopnm > "code$#"; row+=("code$#"); shift
            (($# % columns)) || { pnmcat -white -leftright "\${row[@]}" > "row$#"; rows+=("row$#") row=(); }
        done
        pnmcat -white -topbottom "\${rows[@]}" | pnmtopng > "$file"`;
    return made(file, script, file, String(columns), ...texts);
}

/**
 * The same, small and turned.
 * @param {number} columns
 * @param {...string} texts
 */
export function turned(columns, ...texts) {
    const flat = codes("flat.png", columns, ...texts);
    return made(
        "turned.jpg",
        `pngtopnm "$1" | pamscale 0.45 | pnmrotate -background=white 3 | pnmtojpeg > turned.jpg`,
        flat,
    );
}

/**
 * A code on a wall, in dim light, seen from the side, by a hand that shook.
 * @param {string} text
 */
export function photograph(text) {
    const script = `
        qrencode -s 9 -o - "$1" | pngtopnm | pnmpad -white -left 150 -right 190 -top 120 -bottom 90 |
            pgmtoppm black-white | ppmtopgm | pamfunc -multiplier=0.5 | pamfunc -adder=50 > wall
        read -r width height < <(sed -n 2p wall)
        pamperspective 50 0 $((width - 1)) 40 0 $((height - 1)) $((width - 70)) $((height - 40)) wall |
            pnmsmooth -width=5 -height=5 > side
        pgmnoise -randomseed=1 $(sed -n 2p side) | pamfunc -multiplier=0.25 > noise
        pamarith -add side noise | pnmtojpeg -quality=45 > photograph.jpg`;
    return made("photograph.jpg", script, text);
}

/** A code with bytes of Latin-1, which it does not declare. */
export function latin() {
    return made("latin.png", `printf '0g411111111111111111\\xE924581231M42IN53356' | qrencode -8 -o latin.png`);
}

/** A code with the signs that codes have for Japanese. */
export function japanese() {
    return made("japanese.png", `printf '\\x93\\x5F\\x88\\xC0' | qrencode -k -o japanese.png`);
}

/** White modules on nothing, as for a dark screen. */
export function light() {
    const script = `
        qrencode -s 4 -o - 'light on nothing' | pngtopnm > code
        pamfunc -multiplier=0 code | pnminvert > white; pnminvert code > alpha; pnmtopng -alpha=alpha white > light.png`;
    return made("light.png", script);
}

/** A picture without a code. */
export function empty() {
    return made("empty.png", "pgmnoise -randomseed=1 300 300 | pnmtopng > empty.png");
}

/** One of several codes that hold a text together. */
export function split() {
    return made("split-01.png", "qrencode -S -v 1 -o split.png 0g411111111111111111a24581231M42IN53356");
}

/** A code with something over most of it. */
export function hidden() {
    const script = `
        qrencode -s 4 -o - 0g411111111111111112hi24581231M42IN53356 | pngtopnm | pamtopnm > code
        pbmmake -black 50 50 | pnmpaste - 50 50 code | pnmtopng > hidden.png`;
    return made("hidden.png", script);
}

/**
 * A film of a code in which nothing moves, for the camera that a browser can pretend to have.
 * @param {string} text
 */
export function film(text) {
    const script = `
        qrencode -s 6 -o - "$1" | pngtopnm | pnmpad -white -width=640 -height=480 | pgmtoppm black-white | ppmtopgm > grey
        { printf 'YUV4MPEG2 W640 H480 F10:1 Ip A1:1 C420jpeg\\nFRAME\\n'; tail -c $((640 * 480)) grey
          head -c $((640 * 240)) /dev/zero | tr '\\0' '\\200'; } > film.y4m`;
    return made("film.y4m", script, text);
}
