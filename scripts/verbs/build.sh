# build [PRESET]           build a preset of CMakePresets.json (native unless named)

build_preset "${1:-native}"
step "built in build/${1:-native}"
