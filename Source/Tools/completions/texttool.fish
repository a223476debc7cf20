# SPDX-License-Identifier: Apache-2.0
# Completion of texttool for fish.

# Files whose names end as one of the words says, and folders.
function __texttool_files
    complete -C "__fish_command_without_completions "(commandline -ct) |
        string match -ier -- '(/|[.]('(string join '|' $argv)'))(\t.*)?$'
end

complete -c texttool -f
complete -c texttool -o WebArchivePath -x -a '(__texttool_files webarchive)' -d 'a web archive'
complete -c texttool -o HTMLPath -x -a '(__texttool_files htm html xhtml)' -d 'a page in HTML'
complete -c texttool -o PDFPath -x -a '(__texttool_files pdf)' -d 'a PDF document'
complete -c texttool -o WordPath -x -a '(__texttool_files doc dot)' -d 'a binary Word document'
complete -c texttool -o WordXPath -x -a '(__texttool_files docx docm dotx dotm)' -d 'an Office Open XML document'
complete -c texttool -o ODTPath -x -a '(__texttool_files odt ott fodt)' -d 'an OpenDocument text'
complete -c texttool -o RTFPath -x -a '(__texttool_files rtf)' -d 'a document in RTF'
complete -c texttool -o RTFDPath -x -a '(__fish_complete_directories)' -d 'an RTFD package'
complete -c texttool -o EMLPath -x -a '(__texttool_files eml)' -d 'a mail message'
complete -c texttool -o QTPath -r -F -d 'a sound or film'
complete -c texttool -o ImagePath -r -F -d 'an image'
complete -c texttool -o SpotlightPath -r -F -d 'a file of any kind'
complete -c texttool -o SkipBody -x -a 'YES NO' -d 'no pages, no wait for more than the title'
complete -c texttool -o DisableSandbox -x -a 'YES NO' -d 'do not shut the process in'
complete -c texttool -o ErrorShortLogging -x -a 'YES NO' -d 'log the short form of errors too'
complete -c texttool -o ZORAppSandbox -x -a 'YES NO' -d 'the program runs in a sandbox'
