# package                  make the zip of the Windows component: both DLLs and all that goes with them

need package
build_preset win64 halyard halyard_tool || exit 1
build_preset win32 halyard || exit 1

version="$(sed -n 's/^project(halyard VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)"
name="halyard-$version-windows"
folder="build/package/$name"
rm -rf build/package
mkdir -p "$folder/idl" "$folder/examples"
for build in x64:win64 x86:win32; do
  target="$folder/${build%%:*}" source="build/${build##*:}"
  mkdir "$target"
  cp "$source"/halyard.{dll,tlb,manifest} "$source/libhalyard.dll.a" "$target"
  step "${build%%:*}: halyard.dll has $(stat -c %s "$target/halyard.dll") bytes"
done
cp build/win64/bin/halyard.exe "$folder/x64"
cp -r include LICENSE "$folder"
cp server/halyard.idl "$folder/idl"
cp -r docs "$folder"
cp -r examples/scripts "$folder/examples"
cp server/INSTALL.md "$folder"
(cd build/package && zip --quiet --recurse-paths "$name.zip" "$name")
step "made build/package/$name.zip"
