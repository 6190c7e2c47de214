# Completion of lwconfig for fish: everything that is offered comes from the command itself.
complete -c lwconfig -f -a '(lwconfig complete --line (commandline -cp) 2>/dev/null)'
complete -c lwconfig -n '__fish_seen_subcommand_from apply init' -F
