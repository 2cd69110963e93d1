# demo                     write the machine's time-zone table to a file, read it back, compare, show

build_preset native time_zones halyard_tool
mkdir -p build/native/demo
build/native/examples/time_zones/time_zones /usr/share/zoneinfo/zone1970.tab build/native/demo/time_zones.orm

# The same file as the command-line tool shows it; the demonstration keeps UTF-8 in its texts.
tool=(build/native/bin/halyard --encoding utf-8)
echo
echo '$ halyard info time_zones.orm'
"${tool[@]}" info build/native/demo/time_zones.orm
echo
echo '$ halyard cat --records 2-9 time_zones.orm'
"${tool[@]}" cat --records 2-9 build/native/demo/time_zones.orm
