# The suites of Windows. Both builds of the component are made; the 64-bit one is
# registered in a Wine prefix of its own and used there by compiled programs and scripts.
# Its registration, files and message boxes have suites of their own. Wine runs 64-bit
# programs only, so the 32-bit build is looked at but not run.

windows_programs=build/win64/tests
windows_targets=(halyard halyard_conformance_tests halyard_server_tests halyard_message_tests halyard_exchange
  halyard_tool "${differential_programs[@]}")

# The tests of the command-line tool whose subject is the tool and not the shell, the
# terminal or the limits that this system sets. Sixty thousand definitions take a minute
# where each is found in the registry.
windows_tool_tests='Arguments.*:Chosen.*:Info.*:Cat.*:Defs.*:Doctor.*:Recover.*:Merge.*:Filter.*:Convert.*:Import.*:Export.*:-*Pipe*:Merge.RefusesWhenIdsRunOut'
windows_bad_input='*BadInput.EmptyFile*:*BadInput.ForeignFile*:*BadInput.CutFile*:*BadInput.Directory*:*BadInput.MissingFile*'
windows_bad_input+=':*BadInput.RandomBytesBehind*:*BadInput.HostileCounts*'

# Lines of a suite's output that a person wants to see.
show_lines() {
  grep -aE "$2" "$(result_file "$1" log)" | tr -d '\r' | sed 's/^/    /' || true
}

registered_suites() {
  if ! register_component; then
    broken_suite "win64 registration"
    return
  fi
  gtest_suite "win64 conformance" "${in_wine[@]}" wine "$windows_programs/halyard_conformance_tests.exe"
  show_lines "win64 conformance" 'lock count'
  counting_suite "win64 scripts" "${in_wine[@]}" tests/scripts/run.sh
  if build_preset native halyard_exchange halyard_tool_tests "${differential_programs[@]}"; then
    gtest_suite "win64 tool" "${in_wine[@]}" env "HALYARD_TOOL=wine $PWD/build/win64/bin/halyard.exe" \
      build/native/tests/tools/halyard_tool_tests "--gtest_filter=$windows_bad_input:$windows_tool_tests"
    counting_suite "files of both platforms" "${in_wine[@]}" tests/exchange/run.sh \
      build/native/tests/exchange/halyard_exchange "$windows_programs/exchange/halyard_exchange.exe"
    differential_suite
    hostile_differential_suite
  else
    broken_suite "files of both platforms"
  fi
  unregister_component || broken_suite "win64 unregistration"
}

server_suites() {
  local dlls=("HALYARD_DLL=$(windows_path build/win64/halyard.dll)"
    "HALYARD_DLL_X86=$(windows_path build/win32/halyard.dll)")
  gtest_suite "win64 server" "${in_wine[@]}" env "${dlls[@]}" wine "$windows_programs/server/halyard_server_tests.exe"
  show_lines "win64 server" '(exports|imports|size):'
  gtest_suite "win64 messages without a display" "${in_wine[@]}" env "${dlls[@]}" \
    wine "$windows_programs/server/halyard_message_tests.exe" --gtest_filter='*WithoutADisplay*'
  # Programs of one session share its display, or the lack of it.
  end_wine
  gtest_suite "win64 messages on a display" "${in_wine[@]}" env "${dlls[@]}" xvfb-run --auto-servernum \
    wine "$windows_programs/server/halyard_message_tests.exe" --gtest_filter='*OnADisplay*'
  end_wine
}

need windows-run
if build_preset win32 halyard && build_preset win64 "${windows_targets[@]}"; then
  step "make a Wine prefix"
  if new_wine_prefix; then
    registered_suites
    server_suites
  else
    broken_suite "Wine prefix"
  fi
else
  broken_suite "windows build"
fi
