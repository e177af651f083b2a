#!/usr/bin/env bash
# Cross-builds Kavrin for 64-bit Windows with MinGW-w64 into build-win/ and packs
# dist/Kavrin-<version>-win64.zip: kavrin.exe, kavrin-cli.exe, the Qt and MinGW runtime DLLs,
# the platform plugin, the help files and LIESMICH.txt (unzip and run, nothing to install).
# Needs the Debian packages of scripts/setup.sh --windows, the native build in build/ (for the
# tools that write the help PDF and the icon) and ../shared/windows/kavrin-mingw-sysroot.tar.xz
# (Qt, pugixml and GoogleTest built for Windows), unpacked once into build-win-sysroot/.
#   scripts/build-windows.sh [extra targets...]
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
archive=${KAVRIN_WIN_SYSROOT:-$root/../shared/windows/kavrin-mingw-sysroot.tar.xz}
sysroot=$root/build-win-sysroot
qt=$sysroot/qt6-mingw

if [ ! -f "$sysroot/.unpacked" ] || [ "$archive" -nt "$sysroot/.unpacked" ]; then
    rm -rf "$sysroot"
    mkdir -p "$sysroot"
    tar xJf "$archive" -C "$sysroot"
    touch "$sysroot/.unpacked"
fi

# The two build-time tools run natively.
if [ ! -f build/CMakeCache.txt ]; then
    cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKAVRIN_WITH_GUI=ON >/dev/null
fi
cmake --build build -j "$(nproc)" --target kavrin-htmltopdf kavrin-writeicon kavrin-cli

cmake -S . -B build-win -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_TOOLCHAIN_FILE="$qt/lib/cmake/Qt6/qt.toolchain.cmake" \
    -DKAVRIN_BENCH=OFF -DKAVRIN_WITH_GUI=ON \
    -DKAVRIN_HOST_TOOLS_DIR="$root/build/src/app" >/dev/null
targets=(kavrin kavrin-cli test_core test_document test_nodes test_plan test_edit test_cli)
cmake --build build-win -j "$(nproc)" --target "${targets[@]}" "$@"

# The package: the programs, what they load at run time, and the help files.
version=$(sed -n 's/^project(Kavrin VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
name=Kavrin-$version-win64
stage=build-win/dist/$name
rm -rf "$stage"
mkdir -p "$stage/platforms" "$stage/styles" dist
cp build-win/src/app/kavrin.exe build-win/src/kavrin-cli.exe "$stage/"
for dll in Qt6Core Qt6Gui Qt6Widgets Qt6Network; do
    cp "$qt/bin/$dll.dll" "$stage/"
done
cp "$qt/plugins/platforms/qwindows.dll" "$stage/platforms/"
[ -f "$qt/plugins/styles/qwindowsvistastyle.dll" ] && cp "$qt/plugins/styles/qwindowsvistastyle.dll" "$stage/styles/"
rmdir "$stage/styles" 2>/dev/null || true
for dll in /usr/lib/gcc/x86_64-w64-mingw32/12-posix/libstdc++-6.dll \
           /usr/lib/gcc/x86_64-w64-mingw32/12-posix/libgcc_s_seh-1.dll \
           /usr/x86_64-w64-mingw32/lib/libwinpthread-1.dll; do
    cp "$dll" "$stage/"
done
cp build-win/src/app/KurzAnleitung.pdf build-win/src/app/KurzAnleitung.html "$stage/"
cp examples/Demo.anl3 "$stage/"
# Notepad and other Windows editors expect CRLF line ends.
sed 's/$/\r/' docs/WasIsNeu.txt >"$stage/WasIsNeu.txt"
sed "s/@VERSION@/$version/; s/\$/\r/" data/windows/LIESMICH.txt >"$stage/LIESMICH.txt"

rm -f "dist/$name.zip"
(cd build-win/dist && cmake -E tar cf "$root/dist/$name.zip" --format=zip "$name")
echo "dist/$name.zip ($(du -k "dist/$name.zip" | cut -f1) KiB)"
