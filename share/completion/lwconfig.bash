# Completion of lwconfig for bash: everything that is offered comes from the command itself.
_lwconfig() {
  local candidate
  COMPREPLY=()
  while IFS= read -r candidate; do
    COMPREPLY+=("$candidate")
  done < <("$1" complete --shell bash --line "${COMP_LINE:0:COMP_POINT}" 2>/dev/null)
  # Brackets and blanks are quoted as file names are; what ends in one of [(.= goes on, without a blank.
  compopt -o filenames 2>/dev/null
  [[ ${#COMPREPLY[@]} -eq 1 && ${COMPREPLY[0]} == *[.=\[\(] ]] && compopt -o nospace 2>/dev/null
  return 0
}
complete -o default -F _lwconfig lwconfig
