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
$(seq 9)
END
qrencode -S -v 1 -o split.png 0g411111111111111111a24581231M42IN53356

# A photo, light on a screen, ink on nothing, two codes of different size, and nine on a sheet
pamscale 2.7 plain.pnm 2> /dev/null | pnmrotate -background white 23 | pnmtojpeg -quality 60 > photo.jpg
pnminvert plain.pnm > dark.pnm
pnmtopng dark.pnm > dark.png
pamfunc -multiplier=0 plain.pnm > black.pnm
pnmtopng -alpha=dark.pnm black.pnm > clear.png 2> /dev/null
pnmpad -white -right 60 plain.pnm | pnmcat -white -leftright - other.pnm 2> /dev/null | pnmtopng > two.png 2> /dev/null
for i in 1 4 7; do
    pnmcat -leftright $i.pnm $((i + 1)).pnm $((i + 2)).pnm > row$i.pnm
done
pnmcat -topbottom row?.pnm | pnmtopng > sheet.png
replay pictures
