#compdef %TOOL%
# Lets zsh complete the command line of %TOOL%; written by "kivoconfig completion".

%FUNCTION%() {
    local line
    local -a candidates
    for line in "${(@f)$(kivoconfig complete %SPEC% -- "${(@Q)words[2,CURRENT-1]}" "${(Q)PREFIX}" 2>/dev/null)}"; do
        case $line in
        ('') ;;
        ($'\tfiles') compset -P '-*='; _files ;;
        ($'\tdirectories') compset -P '-*='; _files -/ ;;
        (*$'\t'*) candidates+=("${${line%%$'\t'*}//:/\\:}:${line#*$'\t'}") ;;
        (*) candidates+=("${line//:/\\:}") ;;
        esac
    done
    (($#candidates)) && _describe 'setting' candidates
}

if [[ $funcstack[1] == _%TOOL% ]]; then
    %FUNCTION% "$@"
else
    compdef %FUNCTION% %TOOL%
fi
