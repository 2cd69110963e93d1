# format [--check]         put every C++ file into the project's form, or name those that are not

need format
arguments=(-i)
[[ "${1:-}" == --check ]] && arguments=(--dry-run --Werror)
git ls-files --cached --others --exclude-standard '*.h' '*.cpp' | xargs -d '\n' clang-format "${arguments[@]}"
