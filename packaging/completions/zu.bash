# Completion of zu for bash.
_zu() {
  local word _ IFS=$' \t\n'
  COMPREPLY=()
  while IFS=$'\t' read -r word _; do
    if [ "$word" = :files ]; then
      compopt -o default 2>/dev/null
    else
      COMPREPLY+=("$(printf '%q' "$word")")
    fi
  done < <("${COMP_WORDS[0]}" --complete "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null)
}
complete -F _zu zu
