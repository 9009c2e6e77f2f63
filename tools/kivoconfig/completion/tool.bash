# Lets bash complete the command line of %TOOL%; written by "kivoconfig completion".

%FUNCTION%() {
    # bash splits words at "=" and ":" too: what no blank separates belongs together.
    local words=() rest=${COMP_LINE:0:COMP_POINT} before i
    for ((i = 0; i <= COMP_CWORD; i++)); do
        before=$rest
        rest=${rest#"${rest%%[![:space:]]*}"}
        if ((i == 0)) || [[ $rest != "$before" ]]; then
            words+=("")
        fi
        if ((i < COMP_CWORD)); then
            words[-1]+=${COMP_WORDS[i]}
            rest=${rest#"${COMP_WORDS[i]}"}
        else
            words[-1]+=$rest
        fi
    done

    # After an open quote, candidates stand as they are: bash keeps the quote, and adds the other one.
    local typed=${words[-1]} quote=
    if [[ $typed == [\"\']* ]]; then
        quote=${typed:0:1}
        words[-1]=${typed:1}
    fi

    # Of the word that is typed, bash replaces only what follows the last split.
    local kept=$typed candidate joined=
    [[ $rest != *[!=:]* ]] || kept=${typed%"$rest"}
    COMPREPLY=()
    while IFS= read -r candidate; do
        case $candidate in
        $'\tfiles' | $'\tdirectories')
            compopt -o filenames
            # The name of a file may follow "--flag=".
            [[ $typed != -*=* ]] || joined=${typed%%=*}=
            [[ $candidate == $'\tfiles' ]] && i=-f || i=-d
            while IFS= read -r candidate; do
                candidate=$joined$candidate
                COMPREPLY+=("${candidate#"$kept"}")
            done < <(compgen "$i" -- "${typed#"$joined"}")
            ;;
        *)
            candidate=${candidate%%$'\t'*}
            if [[ ! $quote ]]; then
                printf -v candidate %q "$candidate"
            elif [[ $candidate == *[\"\'\$\`\\!]* ]]; then
                continue # it would not stay what it is
            fi
            COMPREPLY+=("${candidate#"$kept"}")
            ;;
        esac
    done < <(kivoconfig complete %SPEC% -- "${words[@]:1}" 2>/dev/null)
}
complete -F %FUNCTION% %TOOL%
