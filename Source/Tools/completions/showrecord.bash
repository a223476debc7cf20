# SPDX-License-Identifier: Apache-2.0
# Completion of showrecord for bash.
_showrecord() {
    local word=${COMP_WORDS[COMP_CWORD]}
    # The shell takes --color=WHEN apart at the sign.
    if [[ $word == '=' || ${COMP_WORDS[COMP_CWORD - 1]} == '=' ]]; then
        mapfile -t COMPREPLY < <(compgen -W 'auto always never' -- "${word#=}")
    elif [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W '--json --text --color= --no-pager --help --version' -- "$word")
        if [[ ${COMPREPLY[*]} == *= ]]; then compopt -o nospace 2>/dev/null; fi
    else
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}

complete -F _showrecord showrecord
