# Lets bash complete the command line of kivoconfig.

_kivoconfig() {
    local typed=${COMP_WORDS[COMP_CWORD]} command=${COMP_WORDS[1]} words
    if ((COMP_CWORD == 1)); then
        words="$(kivoconfig --help | sed -n '/^Commands:/,/^$/s/^  \([a-z]*\).*/\1/p') --help --version"
    elif [[ $typed == -* ]]; then
        words="$(kivoconfig "$command" --help 2>/dev/null | grep -o -E -- '--[a-z][a-z-]*')"
    elif [[ $command == lint ]]; then
        words="" # names of files
    elif [[ $command == completion ]] && ((COMP_CWORD == 2)); then
        words="bash zsh"
    elif [[ $command == completion ]] && ((COMP_CWORD == 3)); then
        words="$(compgen -c -- "$typed")"
    else
        words="$(kivoconfig list 2>/dev/null | sed 's/ .*//')"
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$typed")
}
complete -o default -F _kivoconfig kivoconfig
