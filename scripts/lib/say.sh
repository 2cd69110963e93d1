# What a person reads: one line a step on standard output, remarks on standard error.

step() { printf -- '- %s\n' "$*"; }
complain() { printf 'run: %s\n' "$*" >&2; }
