#compdef kivoconfig
# Lets zsh complete the command line of kivoconfig.

_kivoconfig() {
    local command=$words[2]
    local -i separator=$words[(i)--]
    if ((CURRENT == 2)); then
        compadd -- ${(f)"$(kivoconfig --help | sed -n '/^Commands:/,/^$/s/^  \([a-z]*\).*/\1/p')"} --help --version
    elif ((separator < CURRENT)); then # the arguments of the tool in question: as the tool's own completion does it
        unset -f _kivoconfig_complete_arguments 2>/dev/null
        source <(kivoconfig completion zsh arguments $words[3] ${(M)words[1,separator]:#--gnu} 2>/dev/null)
        (($+functions[_kivoconfig_complete_arguments])) || return 1
        compdef -d arguments # there is no such command
        words=(arguments "${(@)words[separator+1,-1]}")
        ((CURRENT -= separator - 1))
        _kivoconfig_complete_arguments
    elif [[ $words[CURRENT-1] == --setting ]]; then
        compadd -- ${(f)"$(kivoconfig explain $words[3] --no-machine 2>/dev/null | sed '/^ /d; / \[/d; s/ = .*//')"}
    elif [[ $words[CURRENT-1] == --config ]]; then
        _files
    elif [[ $PREFIX == -* ]]; then
        compadd -- ${(uf)"$(kivoconfig $command --help 2>/dev/null | grep -o -E -- '--[a-z][a-z-]*')"}
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
