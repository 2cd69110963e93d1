# What a person reads: one line a step on standard output, remarks on standard error.

step() { printf -- '- %s\n' "$*"; }
complain() { printf 'run: %s\n' "$*" >&2; }

# need_count WHAT TEXT: ends the run unless the text is a whole number from 1 on.
need_count() {
  [[ "$2" =~ ^[1-9][0-9]{0,8}$ ]] && return
  complain "$1 is a whole number from 1 on, not '$2'"
  exit 2
}
