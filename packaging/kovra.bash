# Completion of kovra, kovra-desktop and kovra-fleet for bash. Options come from the program's own help.
_kovra() {
  local cur prev words cword
  _init_completion || return
  local word subcommand=
  case ${words[0]##*/} in
    kovra-fleet) subcommand=fleet ;;
    kovra-desktop) subcommand=desktop ;;
  esac
  for word in "${words[@]:1:cword-1}"; do
    [[ -n $subcommand ]] && break
    case $word in
      list | check | plot | diff | each) subcommand=$word; break ;;
    esac
  done
  case $prev in
    --language) COMPREPLY=($(compgen -W 'ja en' -- "$cur")); return ;;
    --ground) COMPREPLY=($(compgen -W 'white dark' -- "$cur")); return ;;
    --format)
      local formats='table csv json'
      [[ $subcommand == plot ]] && formats='svg png'
      [[ $subcommand == diff ]] && formats='text json'
      COMPREPLY=($(compgen -W "$formats" -- "$cur"))
      return ;;
    -c | --command | --layer | --tag | --window | --size | --jobs | --workers | --scheduler) return ;;
    -p | --project | --output-dir) _filedir -d; return ;;
    -s | --script | -o | --output | --state | --registry | --list | --report | --resume | --kovra) _filedir; return ;;
  esac
  if [[ $cur == -* ]]; then
    local program="kovra $subcommand"
    [[ $subcommand == fleet || $subcommand == desktop ]] && program=kovra-$subcommand
    COMPREPLY=($(compgen -W "$($program --help 2>/dev/null | grep -o -- '--[a-z-]*')" -- "$cur"))
    return
  fi
  [[ -z $subcommand ]] && COMPREPLY=($(compgen -W 'list check plot diff each' -- "$cur"))
  local IFS=$'\n'
  local found=("${COMPREPLY[@]}")
  _filedir '@(dxf|DXF)'
  COMPREPLY=("${found[@]}" "${COMPREPLY[@]}")
} && complete -F _kovra kovra kovra-desktop kovra-fleet
