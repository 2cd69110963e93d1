# Windows programs under Wine, in a prefix of their own below build/ that is made anew for
# a test run and never shared with the person's own.

wine_prefix="$PWD/build/wine"

# Wine needs a page at 0x7ffe0000 and its loader begins at 0x7d000000. The system puts a
# program's heap at a random place up to 1 GiB above it, so one start in some thousands
# finds the page taken and ends without a word. Where addresses can be kept in place, they are.
in_place=()
if setarch --addr-no-randomize true 2>/dev/null; then in_place=(setarch --addr-no-randomize); fi

# What a command is led by to run with that prefix, without a display (message boxes have
# nowhere to appear) and with the code page that files are written in.
in_wine=("${in_place[@]}" env -u DISPLAY -u WAYLAND_DISPLAY LC_ALL=C.UTF-8 "WINEPREFIX=$wine_prefix" WINEDEBUG=-all
  "WINEDLLOVERRIDES=mscoree=;mshtml=;winemenubuilder.exe=")

# Makes the prefix anew.
new_wine_prefix() {
  end_wine
  rm -rf "$wine_prefix"
  mkdir -p "$(dirname "$wine_prefix")"
  logged wine-prefix "${in_wine[@]}" timeout 300 wineboot --init && "${in_wine[@]}" wineserver --wait
}

# Ends every program in the prefix.
end_wine() {
  [[ -d "$wine_prefix" ]] || return 0
  "${in_wine[@]}" wineserver --kill || true
  "${in_wine[@]}" wineserver --wait || true
}

# The Windows name of a path of this machine.
windows_path() { printf 'Z:%s' "$(realpath -m "$1" | tr / '\\')"; }
