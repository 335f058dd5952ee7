#!/usr/bin/env bash
source "$(dirname "$0")/common.sh"

printf '%s\n\n%s\r\n%s' "$rejected" "$rejected" "$rejected" > lines
printf '%s\n' "$foreign" "$rejected" "$foreign" > foreign
printf '0g4111111111111111%b\0' '13a\nb24581231M42IN53356' '11b24581231M42IN53356' > texts
replay parse
