#!/usr/bin/env bash
source "$(dirname "$0")/common.sh"

replay usage

# Help fits a screen, and the manual page and the completions name the same options.
for command in '' parse explain codes; do
    korvoqr $command --help > help
    awk 'length > 80 || NR > 24 { exit 1 }' help
    for option in $(grep -oE '(^| |,)--[a-z]+' help | tr -d ' ,' | sort -u); do
        for page in korvoqr.1.in completion/korvoqr.bash completion/_korvoqr; do
            sed '/^\.EX/,$d; s/\\-/-/g' "$root/tools/korvoqr/$page" | grep -wF -e "$option" > found
        done
    done
done
# What bash offers for the last word of a line
source "$root/tools/korvoqr/completion/korvoqr.bash"
while IFS=: read -r line wanted; do
    IFS=, read -ra COMP_WORDS <<< "$line"
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    _korvoqr
    [[ ${COMPREPLY[*]} == "$wanted" ]]
done << 'END'
korvoqr,-:--help --version
korvoqr,p:parse
korvoqr,parse,--format,json:json jsonl
korvoqr,explain,--format,=,j:json
korvoqr,parse,--i:--input --image
korvoqr,parse,-i,hel:help
korvoqr,parse,--image,help,hel:help
korvoqr,parse,--image,help,--tr:--trim
korvoqr,explain,<,hel:help
korvoqr,parse,--summary,=,:json
korvoqr,codes,4:4 40 41 42 43 44 45 46 48
korvoqr,codes,crcI:crcInvalidValue
END
