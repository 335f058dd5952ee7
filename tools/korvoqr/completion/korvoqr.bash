# Completion of korvoqr for bash.
_korvoqr() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} words= word option= assigned=
    local input='--input --image --null --max-line --payload-column --key --delimiter --header'
    local run='--line-number --refused-only --jobs --summary --progress --exit-zero --color --help'
    COMPREPLY=()
    # Bash splits "--format=json" into three words.
    [[ $current == = ]] && current= assigned=yes
    [[ $previous == = ]] && previous=${COMP_WORDS[COMP_CWORD - 2]} assigned=yes
    # --image takes all files up to the next option.
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        [[ $word == -* ]] && option=$word
    done
    [[ $option == --image && $current != -* ]] && previous=--image
    case ${COMP_WORDS[1]}:$previous in
    *:'<' | *:'>' | *:'>>' | *:'2>') mapfile -t COMPREPLY < <(compgen -f -- "$current") && return ;;
    parse:--format) words='text json jsonl copy' ;;
    *:--format) words='text json' ;;
    *:--color) words='auto always never' ;;
    *:--delimiter) words='tab ,' ;;
    *:--payload-column | *:--key | *:--max-line) ;;
    *:-i | *:--input | *:--image) mapfile -t COMPREPLY < <(compgen -f -- "$current") && return ;;
    *:-j | *:--jobs) words=$(nproc 2>/dev/null) ;;
    *:korvoqr | *:*/korvoqr) words='parse explain codes --help --version' ;;
    parse:*) words="$input --trim --format --compact --reasons --with-payload $run" ;;
    explain:*) words="$input --format $run" ;;
    codes:*) words="--format --color --help $(korvoqr codes --color=never 2>/dev/null | grep -o '^[0-9]* *[A-Za-z]*')" ;;
    esac
    [[ $previous == --summary && $assigned ]] && words=json  # --summary takes no other value
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}
complete -o filenames -F _korvoqr korvoqr
