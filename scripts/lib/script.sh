# shellcheck shell=bash
# What the project's scripts share. A script that sources it sets `me`, the name that it is called by in the project's
# folder, and has a function `usage` that prints how it is called.

# refuse WHY: ends the script, for it was called wrongly.
refuse() {
  echo "${me:?}: $1" >&2
  usage >&2
  exit 2
}

# answer_help ARGUMENT...: prints the usage and ends the script when one of its arguments asks for it.
answer_help() {
  local argument
  for argument; do
    if [[ $argument == -h || $argument == --help ]]; then
      usage
      exit 0
    fi
  done
}

# take_no_arguments ARGUMENT...: answers help, and refuses anything else.
take_no_arguments() {
  answer_help "$@"
  (($# == 0)) || refuse "takes no arguments, and does not know \"$1\""
}

# log_to FILE: where `logged` writes; empties it.
log_to() {
  log=$1
  mkdir -p "$(dirname "$log")"
  : >"$log"
}

# logged COMMAND...: runs it with its output in the log; when it fails, shows how the log ends and ends the script.
logged() {
  "$@" >>"${log:?}" 2>&1 && return
  tail -n 60 "$log" >&2
  echo "${me:?}: failed: $*; the whole output is in $log" >&2
  exit 1
}
