#compdef kivoconfig
# Lets zsh complete the command line of kivoconfig.

_kivoconfig() {
    local command=$words[2]
    if ((CURRENT == 2)); then
        compadd -- ${(f)"$(kivoconfig --help | sed -n '/^Commands:/,/^$/s/^  \([a-z]*\).*/\1/p')"} --help --version
    elif [[ $PREFIX == -* ]]; then
        compadd -- ${(f)"$(kivoconfig $command --help 2>/dev/null | grep -o -E -- '--[a-z][a-z-]*')"}
    elif [[ $command == lint ]]; then
        _files -g '*.crg'
    elif [[ $command == completion ]] && ((CURRENT == 3)); then
        compadd bash zsh
    elif [[ $command == completion ]] && ((CURRENT == 4)); then
        _command_names -e
    else
        compadd -- ${(f)"$(kivoconfig list 2>/dev/null | sed 's/ .*//')"} || _files
    fi
}

_kivoconfig "$@"
