# Completion of norvast_index in bash.

_norvast_index() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local options="" values="" takes_paths=""
  case ${COMP_WORDS[1]} in
    add)
      options="--nominate --exclude --no-exclude --no-gitignore --gitignore --ocr-language --force --dry-run --quiet"
      takes_paths=yes
      ;;
    update) options="--dry-run --quiet" ;;
    watch) options="--quiet" ;;
    nominate)
      options="--metadata --content"
      takes_paths=yes
      ;;
    withdraw | remove) takes_paths=yes ;;
    rules)
      if [[ ${COMP_WORDS[2]} == clear ]] && ((COMP_CWORD > 2)); then
        takes_paths=yes
      else
        options="--json"
        values="clear"
      fi
      ;;
    access | library) values="on off" ;;
    status)
      options="--without-text --json"
      takes_paths=yes
      ;;
    show)
      options="--json"
      takes_paths=yes
      ;;
    audit) options="--last --follow --json" ;;
    client-config) options="--client" ;;
  esac
  if ((COMP_CWORD == 1)); then
    options="--version"
    values="add update watch nominate withdraw remove rules access library status show audit"
    values+=" client-config"
    takes_paths=""
  fi

  COMPREPLY=()
  case $previous in
    --nominate) values="metadata content" ;;
    --client)
      values="claude-code claude-desktop codex cursor gemini-cli lm-studio opencode vscode windsurf zed"
      ;;
    --exclude | --no-exclude | --last) return ;;
    *)
      [[ $current != -* ]] || values="$options --help"
      [[ $current == -* || -z $takes_paths ]] || compopt -o default
      ;;
  esac
  mapfile -t COMPREPLY < <(compgen -W "$values" -- "$current")
}

complete -F _norvast_index norvast_index
