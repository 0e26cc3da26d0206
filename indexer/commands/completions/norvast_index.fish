# Completion of norvast_index in fish.

complete -c norvast_index -f
complete -c norvast_index -l help -d 'Print what the command takes'
complete -c norvast_index -n __fish_use_subcommand -l version -d 'Print the version'

complete -c norvast_index -n __fish_use_subcommand -a add -d 'Index files and folders from now on'
complete -c norvast_index -n __fish_use_subcommand -a update -d 'Take up what changed in all that was added'
complete -c norvast_index -n __fish_use_subcommand -a watch -d 'Keep up with changes until told to end'
complete -c norvast_index -n __fish_use_subcommand -a nominate -d 'Show files to AI clients, those to come too'
complete -c norvast_index -n __fish_use_subcommand -a withdraw -d 'Show files to AI clients no longer; they stay indexed'
complete -c norvast_index -n __fish_use_subcommand -a remove -d 'Forget files; they stay on disk'
complete -c norvast_index -n __fish_use_subcommand -a rules -d 'Show what was decided, and how many files follow'
complete -c norvast_index -n __fish_use_subcommand -a access -d 'Turn AI access as a whole on or off'
complete -c norvast_index -n __fish_use_subcommand -a library -d 'Let AI clients see metadata and summaries of every indexed file, or not'
complete -c norvast_index -n __fish_use_subcommand -a status -d 'Show counts, switches and where the index lies'
complete -c norvast_index -n __fish_use_subcommand -a show -d 'Show what the index holds of files'
complete -c norvast_index -n __fish_use_subcommand -a audit -d 'Show what AI clients looked at and were refused'
complete -c norvast_index -n __fish_use_subcommand -a client-config -d 'Print what registers norvast_mcp with a client'

complete -c norvast_index -n '__fish_seen_subcommand_from add nominate withdraw remove show' -F
complete -c norvast_index -n '__fish_seen_subcommand_from clear' -F
complete -c norvast_index -n '__fish_seen_subcommand_from status; and __fish_contains_opt without-text' -F

complete -c norvast_index -n '__fish_seen_subcommand_from add' -l nominate -x -a 'metadata content' -d 'Show what is indexed to AI clients'
complete -c norvast_index -n '__fish_seen_subcommand_from add' -l exclude -x -d 'Leave out what matches this pattern'
complete -c norvast_index -n '__fish_seen_subcommand_from add' -l no-exclude -x -d 'Forget such a pattern'
complete -c norvast_index -n '__fish_seen_subcommand_from add' -l no-gitignore -d 'Take in what git ignores'
complete -c norvast_index -n '__fish_seen_subcommand_from add' -l gitignore -d 'Leave out what git ignores'
complete -c norvast_index -n '__fish_seen_subcommand_from add' -l ocr-language -x -d 'Recognise text in pictures in these languages'
complete -c norvast_index -n '__fish_seen_subcommand_from add' -l force -d 'Read unchanged files again, too'
complete -c norvast_index -n '__fish_seen_subcommand_from add' -l dry-run -d 'Say what would be done'
complete -c norvast_index -n '__fish_seen_subcommand_from add' -l quiet -d 'Say nothing unless something fails'
complete -c norvast_index -n '__fish_seen_subcommand_from update' -l dry-run -d 'Say what would be done'
complete -c norvast_index -n '__fish_seen_subcommand_from update' -l quiet -d 'Say nothing unless something fails'
complete -c norvast_index -n '__fish_seen_subcommand_from watch' -l quiet -d 'Say nothing unless something fails'
complete -c norvast_index -n '__fish_seen_subcommand_from nominate' -l metadata -d 'Names, sizes, times and summaries alone'
complete -c norvast_index -n '__fish_seen_subcommand_from nominate' -l content -d 'Their text, too'
complete -c norvast_index -n '__fish_seen_subcommand_from rules' -l json -d 'Print JSON'
complete -c norvast_index -n '__fish_seen_subcommand_from rules; and not __fish_seen_subcommand_from clear' -a clear -d 'Decide nothing about paths any longer'
complete -c norvast_index -n '__fish_seen_subcommand_from access library' -a 'on off'
complete -c norvast_index -n '__fish_seen_subcommand_from status' -l without-text -d 'List the files that have no text'
complete -c norvast_index -n '__fish_seen_subcommand_from status' -l json -d 'Print JSON'
complete -c norvast_index -n '__fish_seen_subcommand_from show' -l json -d 'Print JSON'
complete -c norvast_index -n '__fish_seen_subcommand_from audit' -l last -x -d 'How many events'
complete -c norvast_index -n '__fish_seen_subcommand_from audit' -l follow -d 'Go on with each new event'
complete -c norvast_index -n '__fish_seen_subcommand_from audit' -l json -d 'Print JSON'
complete -c norvast_index -n '__fish_seen_subcommand_from client-config' -l client -x -a 'claude-code claude-desktop codex cursor gemini-cli lm-studio opencode vscode windsurf zed' -d 'In the format of its own file'
