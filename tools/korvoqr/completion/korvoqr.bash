# Completion of korvoqr for bash.
_korvoqr() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} words=
    COMPREPLY=()
    # Bash splits "--format=json" into three words.
    [[ $current == = ]] && current=
    [[ $previous == = ]] && previous=${COMP_WORDS[COMP_CWORD - 2]}
    case ${COMP_WORDS[1]}:$previous in
    parse:--format) words='text json jsonl' ;;
    *:--format) words='text json' ;;
    *:--color) words='auto always never' ;;
    *:-i | *:--input | *:--image) mapfile -t COMPREPLY < <(compgen -f -- "$current") && return ;;
    *:-j | *:--jobs) words=$(nproc 2>/dev/null) ;;
    *:korvoqr | *:*/korvoqr) words='parse explain codes --help --version' ;;
    parse:*) words='--input --image --null --format --jobs --summary --progress --color --help' ;;
    explain:*) words='--input --image --null --format --color --help' ;;
    codes:*) words="--format --color --help $(korvoqr codes --color=never 2>/dev/null | grep -o '^[0-9]*')" ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}
complete -o filenames -F _korvoqr korvoqr
