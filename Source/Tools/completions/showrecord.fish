# SPDX-License-Identifier: Apache-2.0
# Completion of showrecord for fish.
complete -c showrecord -l json -d 'print the record as JSON'
complete -c showrecord -l text -d 'print only the text'
complete -c showrecord -l color -x -a 'auto always never' -d 'colours for people'
complete -c showrecord -l no-pager -d 'what is longer than the terminal goes there all the same'
complete -c showrecord -l help -d 'print how it is used'
complete -c showrecord -l version -d 'print the version'
