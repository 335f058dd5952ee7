#!/usr/bin/env bash
source "$(dirname "$0")/common.sh"

while read -r name text; do
    qrencode -o "$name.png" "${text:-$name}"
    pngtopnm "$name.png" > "$name.pnm"
done << END
plain $accepted
other $rejected
foreign $foreign
latin $(printf '0g411111111111111111\xE924581231M42IN53356')
END
qrencode -S -v 1 -o split.png 0g411111111111111111a24581231M42IN53356

# A photo, light on a screen, ink on nothing, two codes of different size, and sheets
pamscale 2.7 plain.pnm 2> /dev/null | pnmrotate -background white 23 | pnmtojpeg -quality 60 > photo.jpg
pnminvert plain.pnm > dark.pnm
pnmtopng dark.pnm > dark.png
pamfunc -multiplier=0 plain.pnm > black.pnm
pnmtopng -alpha=dark.pnm black.pnm > clear.png 2> /dev/null
pnmpad -white -right 60 plain.pnm | pnmcat -white -leftright - other.pnm 2> /dev/null | pnmtopng > two.png 2> /dev/null
# sheet SIDE: SIDE times SIDE codes, each with its number
sheet() {
    local i rows=()
    for ((i = 1; i <= $1 * $1; ++i)); do
        qrencode -s 2 -o - "sticker $(printf %02d "$i"), $foreign" | pngtopnm > "code$i"
        ((i % $1)) || { eval "pnmcat -leftright code{$((i - $1 + 1))..$i}" > "row$i" && rows+=("row$i"); }
    done
    pnmcat -topbottom "${rows[@]}"
}
sheet 4 | pnmtopng > sheet4.png
sheet 6 | pnmrotate -background white 3 | pnmtojpeg > sheet6.jpg

# Every format, from one picture
pgmtoppm black-white plain.pnm > p6
pnmtopnm -plain p6 > p3
pnmtopnm -plain plain.pnm > p2
pgmtopbm -threshold plain.pnm > p4
pnmtopnm -plain p4 > p1
pnmtojpeg plain.pnm > jpg
ppmtogif p6 > gif 2> /dev/null
ppmtobmp p6 > bmp 2> /dev/null
cwebp -quiet plain.png -o webp
webpmux -frame webp +9 -frame webp +9 -o animation 2> /dev/null
cp jpg heic.jpg
heif-enc -o heic heic.jpg > /dev/null

# A code with something over its middle, and one beside it that is good
pbmmake -black 120 120 | pnmpaste - 70 70 plain.pnm > spoilt.pnm
pnmcat -leftright spoilt.pnm plain.pnm > spoilt-and-good.pnm

# A page full of the squares that mark the corners of codes
echo P1 9 9 {000000000,011111110,010000010,010111010,010111010,010111010,010000010,011111110,000000000} |
    pnmtile 540 540 | pamenlarge 3 | pnmtopng > marks.png
replay pictures
