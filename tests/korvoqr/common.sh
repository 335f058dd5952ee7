# Sourced by the tests of the tool, which run it as a person does. Usage: TEST.sh KORVOQR; stops at the first failure.
set -Eeuo pipefail
trap 'echo "FAILED in line $LINENO: $BASH_COMMAND"' ERR
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
data=$root/tests/data
PATH=$(dirname "$(realpath "$1")"):$PATH
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

export LC_ALL=C.UTF-8 TERM=xterm SHELL=/bin/sh accepted rejected foreign
unset NO_COLOR
accepted=$(< "$data/full.payload")
rejected=${accepted/02104/02105}
foreign=0g411111111111111111é24581231M42IN53356
refusal='{"qrCodeError":{"errorCodes":["1","3","48"],"errorNames":["merchantIdInvalidStartingDigit",'
refusal+='"merchantIdInvalidCheckDigit","crcInvalidValue"]}}'

# terminal COLUMNS COMMAND: runs a shell command on a terminal of that width.
terminal() {
    script -qec "stty cols $1; $2" /dev/null
}

# replay NAME: runs the commands of a session in data/korvoqr, and compares everything that they print; the difference is
# a patch to the session. A session has comments, and commands after "$ ", each with its output, its standard error after
# "! ", its exit status in brackets unless that is 0, and an empty line.
replay() {
    local line status
    while IFS= read -r line <&3; do
        [[ $line != '# '* ]] || echo "$line"
        [[ $line == '$ '* ]] || continue
        status=0
        eval "${line#'$ '}" > output 2> errors < /dev/null 3<&- || status=$?
        printf '%s\n' "$line"
        sed -e 's/\x1B/\\e/g; s/\r$//; s/\r/\\r/g' -e '$a\' output
        sed 's/^/! /' errors
        ((status == 0)) || echo "[$status]"
        echo
    done 3< "$data/korvoqr/$1.session" | diff --text "$data/korvoqr/$1.session" -
}
