# bash completion for quillary
_quillary() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local common='-o --output --encoding -h --help'
  local page='--fragment --raw --header --plain --trace'
  local properties='--links --clean-rtf --clean-html --xhtml-output --do-debug
    --html-title --html-colour --generator --convert-images --image-folder --image-format --image-name
    --use-span-tags --use-font-tags --table-borders'
  local words=
  COMPREPLY=()
  case $previous in
    --encoding) words='ascii utf-8 windows-1252' ;;
    --links | --clean-html | --xhtml-output | --do-debug | --convert-images | --use-span-tags | --use-font-tags)
      words='yes no' ;;
    --clean-rtf) words='yes nono' ;;
    --image-format) words='png jpeg' ;;
    --table-borders) words='1 0' ;;
    --image-folder) mapfile -t COMPREPLY < <(compgen -d -- "$current"); return ;;
    --html-title | --html-colour | --generator | --image-name) return ;;
  esac
  if [ -z "$words" ]; then
    if [ "$COMP_CWORD" -eq 1 ]; then
      words='to-html to-text to-rtf explain --help --version'
    elif [[ $current == -* ]]; then
      case ${COMP_WORDS[1]} in
        to-html) words="$common $page $properties" ;;
        to-text) words=$common ;;
        to-rtf) words='-o --output -h --help --raw-input --trace --fetch --image-folder --table-borders' ;;
        explain) words="-h --help --json $properties" ;;
      esac
    else
      mapfile -t COMPREPLY < <(compgen -f -- "$current")
      return
    fi
  fi
  mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}
complete -o filenames -F _quillary quillary
