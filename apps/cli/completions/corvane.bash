# Completion of the corvane command for bash.

# Offers those of the lines $1 that begin with $2, the word as typed so far, quoted for the shell.
_corvane_offer()
{
    local line word=${2//[\\\"\']/}
    while IFS= read -r line; do
        [[ ${line,,} == "${word,,}"* ]] && COMPREPLY+=("$(printf '%q' "$line")")
    done <<<"$1"
}

# Offers folders, and files whose names match the pattern $1.
_corvane_files()
{
    local name word=${2//[\\\"\']/}
    compopt -o filenames 2>/dev/null
    while IFS= read -r name; do
        [[ -d $name || $name == $1 ]] && COMPREPLY+=("$name")
    done < <(compgen -f -- "$word")
}

_corvane()
{
    local commands=$'show\nxml\nscan\nset\nremove\nimport\ngenres\nselftest'
    local change=$'--dry-run\n--keep-mtime\n--json\n--quiet\n--color\n--help'
    local values=$'--title\n--artist\n--album\n--year\n--comment\n--track\n--genre\n--composer\n--original-artist'
    values+=$'\n--copyright\n--url\n--encoded-by\n--lyrics\n--picture'
    local mp3='*.[Mm][Pp]3'
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} command=${COMP_WORDS[1]}
    COMPREPLY=()

    # "--option=value" reaches us as three words where "=" breaks words.
    [[ $word == = ]] && word=
    [[ $before == = ]] && before=${COMP_WORDS[COMP_CWORD-2]}

    if ((COMP_CWORD == 1)); then
        _corvane_offer "$commands"$'\n--help\n--version' "$word"
        return
    fi

    case $before in
        --color) _corvane_offer $'auto\nalways\nnever' "$word"; return ;;
        --format) _corvane_offer $'json\ncsv' "$word"; return ;;
        --tag) _corvane_offer $'v1\nv2\nboth' "$word"; return ;;
        --genre) _corvane_offer "$(corvane genres 2>/dev/null | cut -c6-)" "$word"; return ;;
        -o | --output | --lyrics | --picture) _corvane_files '*' "$word"; return ;;
        -j | --jobs | --title | --artist | --album | --year | --track | --comment) return ;;
        --composer | --original-artist | --copyright | --url | --encoded-by) return ;;
    esac

    if [[ $word == -* ]]; then
        case $command in
            show) _corvane_offer $'--color\n--help' "$word" ;;
            xml) _corvane_offer $'--output\n--help' "$word" ;;
            scan) _corvane_offer $'--format\n--jobs\n--quiet\n--help' "$word" ;;
            set) _corvane_offer "$values"$'\n--tag\n--force\n'"$change" "$word" ;;
            remove) _corvane_offer $'--tag\n'"$change" "$word" ;;
            import) _corvane_offer $'--force\n'"$change" "$word" ;;
            genres) _corvane_offer $'--json\n--help' "$word" ;;
            selftest) _corvane_offer $'--color\n--help' "$word" ;;
        esac
        return
    fi

    case $command in
        help) _corvane_offer "$commands" "$word" ;;
        show | xml | scan | set | remove) _corvane_files "$mp3" "$word" ;;
        import) _corvane_files '*.[MmXx][PpMm][3Ll]' "$word" ;;
        selftest) _corvane_files '' "$word" ;;
    esac
}

complete -F _corvane corvane
