# demo                     write the machine's time-zone table to a file, read it back, compare, show

build_preset native time_zones
mkdir -p build/native/demo
build/native/examples/time_zones/time_zones /usr/share/zoneinfo/zone1970.tab build/native/demo/time_zones.orm
