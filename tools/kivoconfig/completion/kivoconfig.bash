# Lets bash complete the command line of kivoconfig.

# Completes the arguments of the tool in question as the tool's own completion does. $1: the position of "--"
_kivoconfig_arguments() {
    unset -f _kivoconfig_complete_arguments
    source <(kivoconfig completion bash arguments "${COMP_WORDS[2]}" "${@:2}" 2>/dev/null)
    declare -F _kivoconfig_complete_arguments >/dev/null || return
    complete -r arguments # there is no such command
    local line=${COMP_LINE:0:COMP_POINT}
    COMP_LINE="arguments ${line#*[[:space:]]--[[:space:]]}"
    COMP_POINT=${#COMP_LINE}
    COMP_WORDS=(arguments "${COMP_WORDS[@]:$1+1}")
    ((COMP_CWORD -= $1))
    _kivoconfig_complete_arguments
}

_kivoconfig() {
    local typed=${COMP_WORDS[COMP_CWORD]} command=${COMP_WORDS[1]} style=() words i
    if ((COMP_CWORD == 1)); then
        words="$(kivoconfig --help | sed -n '/^Commands:/,/^$/s/^  \([a-z]*\).*/\1/p')"$'\n--help\n--version'
    elif [[ $command == lint && $typed != -* ]]; then
        words="" # names of files
    elif [[ $command == completion ]] && ((COMP_CWORD == 2)); then
        words=$'bash\nzsh'
    elif [[ $command == completion ]] && ((COMP_CWORD == 3)); then
        words="$(compgen -c -- "$typed")"
    else
        for ((i = 2; i < COMP_CWORD; i++)); do
            [[ ${COMP_WORDS[i]} != -- ]] || break
            [[ ${COMP_WORDS[i]} != --gnu ]] || style=(--gnu)
        done
        if ((i < COMP_CWORD)); then
            _kivoconfig_arguments "$i" "${style[@]}"
            return
        elif [[ ${COMP_WORDS[COMP_CWORD - 1]} == --setting ]]; then
            words="$(kivoconfig explain "${COMP_WORDS[2]}" --no-machine 2>/dev/null | sed '/^ /d; / \[/d; s/ = .*//')"
        elif [[ ${COMP_WORDS[COMP_CWORD - 1]} == --config ]]; then
            return
        elif [[ $typed == -* ]]; then
            words="$(kivoconfig "$command" --help 2>/dev/null | grep -o -E -- '--[a-z][a-z-]*' | sort -u)"
        else
            words="$(kivoconfig list 2>/dev/null | sed 's/ .*//')"
        fi
    fi
    COMPREPLY=()
    while IFS= read -r i; do
        [[ -z $i || $i != "$typed"* ]] || COMPREPLY+=("$(printf %q "$i")")
    done <<<"$words"
}
complete -o default -F _kivoconfig kivoconfig
