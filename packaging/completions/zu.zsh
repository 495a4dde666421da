#compdef zu
# Completion of zu for zsh.
_zu() {
  local line with_files=0
  local -a found
  for line in "${(@f)$(${words[1]} --complete "${(@)words[2,CURRENT]}" 2>/dev/null)}"; do
    case $line in
      :files) with_files=1 ;;
      ?*) found+=("${${line%%$'\t'*}//:/\\:}:${line#*$'\t'}") ;;
    esac
  done
  (( $#found )) && _describe 'word' found
  (( with_files )) && _files
}
_zu "$@"
