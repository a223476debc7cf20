# SPDX-License-Identifier: Apache-2.0
# Completion of texttool for bash.

# Files whose names end as the pattern says, and folders.
_texttool_files() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(
        compgen -d -- "$2"
        shopt -s nocasematch extglob
        compgen -f -- "$2" | while IFS= read -r file; do
            # shellcheck disable=SC2053
            [[ -d $file || $file != $1 ]] || printf '%s\n' "$file"
        done
    )
}

_texttool() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    case $before in
    -WebArchivePath) _texttool_files '*.webarchive' "$word" ;;
    -HTMLPath) _texttool_files '*.@(htm|html|xhtml)' "$word" ;;
    -PDFPath) _texttool_files '*.pdf' "$word" ;;
    -WordPath) _texttool_files '*.@(doc|dot)' "$word" ;;
    -WordXPath) _texttool_files '*.@(docx|docm|dotx|dotm)' "$word" ;;
    -ODTPath) _texttool_files '*.@(odt|ott|fodt)' "$word" ;;
    -RTFPath) _texttool_files '*.rtf' "$word" ;;
    -RTFDPath) _texttool_files '' "$word" ;;
    -EMLPath) _texttool_files '*.eml' "$word" ;;
    -QTPath | -ImagePath | -SpotlightPath) _texttool_files '*' "$word" ;;
    -SkipBody | -DisableSandbox | -ErrorShortLogging | -ZORAppSandbox) mapfile -t COMPREPLY < <(compgen -W 'YES NO' -- "$word") ;;
    *)
        mapfile -t COMPREPLY < <(compgen -W '-WebArchivePath -HTMLPath -PDFPath -WordPath -WordXPath -ODTPath -RTFPath
            -RTFDPath -QTPath -ImagePath -SpotlightPath -EMLPath -SkipBody -DisableSandbox -ErrorShortLogging
            -ZORAppSandbox' -- "$word")
        ;;
    esac
}

complete -F _texttool texttool
