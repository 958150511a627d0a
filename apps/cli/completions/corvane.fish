# Completion of the corvane command for fish.

set -l commands show xml scan set remove import genres selftest help

complete -c corvane -f
complete -c corvane -s h -l help -d 'Print help and exit'
complete -c corvane -n "not __fish_seen_subcommand_from $commands" -l version -d 'Print the version and exit'

complete -c corvane -n "not __fish_seen_subcommand_from $commands" -a show -d 'Show everything that is known about files'
complete -c corvane -n "not __fish_seen_subcommand_from $commands" -a xml -d 'Write the XML document of a file'
complete -c corvane -n "not __fish_seen_subcommand_from $commands" -a scan -d 'List the MP3 files below folders'
complete -c corvane -n "not __fish_seen_subcommand_from $commands" -a set -d 'Set values of the tags of files'
complete -c corvane -n "not __fish_seen_subcommand_from $commands" -a remove -d 'Remove the tags of files'
complete -c corvane -n "not __fish_seen_subcommand_from $commands" -a import -d 'Fill the ID3v1 tag from a document'
complete -c corvane -n "not __fish_seen_subcommand_from $commands" -a genres -d 'List genre numbers and names'
complete -c corvane -n "not __fish_seen_subcommand_from $commands" -a selftest -d 'Write, read and compare a tag'
complete -c corvane -n "__fish_seen_subcommand_from help" -a 'show xml scan set remove import genres selftest'

complete -c corvane -n "__fish_seen_subcommand_from show xml scan set remove import" -F
complete -c corvane -n "__fish_seen_subcommand_from selftest" -a '(__fish_complete_directories)'

complete -c corvane -n "__fish_seen_subcommand_from show set remove import selftest" -l color -x -a 'auto always never' -d 'Use colours'
complete -c corvane -n "__fish_seen_subcommand_from xml" -s o -l output -r -F -d 'Write to this file'
complete -c corvane -n "__fish_seen_subcommand_from scan" -l format -x -a 'json csv' -d 'Form of the lines'
complete -c corvane -n "__fish_seen_subcommand_from scan" -s j -l jobs -x -d 'Files at the same time'
complete -c corvane -n "__fish_seen_subcommand_from scan" -s q -l quiet -d 'No progress bar'
complete -c corvane -n "__fish_seen_subcommand_from genres" -l json -d 'One JSON object a line'

complete -c corvane -n "__fish_seen_subcommand_from set remove import" -s n -l dry-run -d 'Only tell what would change'
complete -c corvane -n "__fish_seen_subcommand_from set remove import" -l keep-mtime -d 'Keep the time of modification'
complete -c corvane -n "__fish_seen_subcommand_from set remove import" -l json -d 'Report in JSON'
complete -c corvane -n "__fish_seen_subcommand_from set remove import" -s q -l quiet -d 'Report only failures and warnings'
complete -c corvane -n "__fish_seen_subcommand_from set remove" -l tag -x -a 'v1 v2 both' -d 'Which tags'
complete -c corvane -n "__fish_seen_subcommand_from set import" -l force -d 'Tag a file that is not MPEG audio too'

complete -c corvane -n "__fish_seen_subcommand_from set" -l title -x -d 'Title'
complete -c corvane -n "__fish_seen_subcommand_from set" -l artist -x -d 'Artist'
complete -c corvane -n "__fish_seen_subcommand_from set" -l album -x -d 'Album'
complete -c corvane -n "__fish_seen_subcommand_from set" -l year -x -d 'Year'
complete -c corvane -n "__fish_seen_subcommand_from set" -l comment -x -d 'Comment'
complete -c corvane -n "__fish_seen_subcommand_from set" -l track -x -d 'Track number'
complete -c corvane -n "__fish_seen_subcommand_from set" -l genre -x -a '(corvane genres 2>/dev/null | string sub -s 6)' -d 'Genre'
complete -c corvane -n "__fish_seen_subcommand_from set" -l composer -x -d 'Composer'
complete -c corvane -n "__fish_seen_subcommand_from set" -l original-artist -x -d 'Original artist'
complete -c corvane -n "__fish_seen_subcommand_from set" -l copyright -x -d 'Copyright'
complete -c corvane -n "__fish_seen_subcommand_from set" -l url -x -d 'Web address'
complete -c corvane -n "__fish_seen_subcommand_from set" -l encoded-by -x -d 'Encoder'
complete -c corvane -n "__fish_seen_subcommand_from set" -l lyrics -r -F -d 'Lyrics from a text file'
complete -c corvane -n "__fish_seen_subcommand_from set" -l picture -r -F -d 'Front cover'
