#!/usr/bin/env bash
# Installs the library, shared and static, and has a stranger's program built and run against it in every way that the README
# names, and the same with the Debian packages and the ZIP: package.sh WORK_DIRECTORY. Prints "ok: ..." or "not ok: ..." for each.
# Windows is tried when its compiler is there.
set -u
[ $# -eq 1 ] || { echo "usage: package.sh WORK_DIRECTORY"; exit 2; }
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=../../scripts/common.sh
. "$here/../../scripts/common.sh"
rm -rf "$1/installed" "$1/users" "$1/packages"
mkdir -p "$1"
work=$(cd "$1" && pwd)
status=0

# attempt WHAT COMMAND...
attempt() {
    local what=$1
    shift
    if "$@"; then
        echo "ok: $what"
    else
        echo "not ok: $what"
        status=1
        return 1
    fi
}

# settings PRESET SHARED: what a preset would set, for the library and for its users.
settings() {
    common=(-G Ninja -DCMAKE_BUILD_TYPE=Release)
    # The presets' compiler, by the same name, and their options: what they compiled comes from the cache.
    command -v ccache >/dev/null && common+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    if [ "$1" = linux ]; then common+=(-DCMAKE_CXX_COMPILER=g++); else common+=(--toolchain "$ROOT/cmake/mingw-w64.cmake"); fi
    library=("${common[@]}" -DBUILD_SHARED_LIBS="$2" -DMLCORE_WERROR="$MLCORE_WERROR" -DMLCORE_TESTS=OFF -DMLCORE_EXAMPLES=OFF)
}

install_library() {
    cmake --fresh -S "$ROOT" -B "$work/$name" "${library[@]}" &&
        cmake --build "$work/$name" --parallel "$JOBS" &&
        cmake --install "$work/$name" --prefix "$work/installed/$name" &&
        # The tree moves once, so that nothing in it may know where it was.
        mv "$work/installed/$name" "$work/installed/$name-moved"
}

# works PROGRAM
works() {
    local runner=()
    [[ $1 == *.exe ]] && runner=("$ROOT/cmake/run-with-wine.sh")
    WINEPATH="Z:$prefix/bin" "${runner[@]}" "$1" >"$work/printed" && tr -d '\r' <"$work/printed" | diff "$here/expected.txt" -
}

# The README shows the program that is built here.
shown() { awk '/^```cpp$/ { inside = 1; next } /^```$/ { inside = 0 } inside' "$ROOT/README.md" | diff "$here/main.cpp" -; }

# with_cmake FOLDER ARGUMENT...
with_cmake() {
    local build=$work/users/$1
    shift
    cmake -S "$here" -B "$build" "${common[@]}" "$@" && cmake --build "$build" --parallel "$JOBS" || return 1
    if [ -f "$build/stranger.exe" ]; then works "$build/stranger.exe"; else works "$build/stranger"; fi
}

# with_pkg_config [MODULE]
with_pkg_config() {
    local module=${1:-MLCore} program=$work/users/$name-pkg-config flags libraries how=()
    [ "$shared" = ON ] || how=(--static)
    export PKG_CONFIG_PATH
    PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name MLCore.pc)")
    flags=$(pkg-config --cflags --libs "${how[@]}" "$module") || return 1
    echo "pkg-config: $flags"
    libraries=$(pkg-config --variable=libdir "$module")
    # shellcheck disable=SC2086
    g++ -std=c++20 "$here/main.cpp" -o "$program" $flags "-Wl,-rpath,$libraries" && works "$program"
}

# A program linked to the static library holds all of it, and with it every class that registers itself.
holds_everything() {
    local archive missing
    archive=$(find "$prefix" -name libMLCore.a)
    nm --defined-only "$archive" 2>/dev/null | awk '$2 == "T" { print $3 }' | sort -u >"$work/defined"
    nm --defined-only "$1" | awk '{ print $3 }' | sort -u >"$work/held"
    missing=$(comm -23 "$work/defined" "$work/held")
    if [ ! -s "$work/defined" ] || [ -n "$missing" ]; then
        echo "left out by the linker: $missing"
        return 1
    fi
}

# links_kind PROGRAM: the shared library is asked for at run time when it was linked, and only then.
links_kind() {
    local wanted=0
    [ "$shared" = ON ] && wanted=1
    [ "$(readelf -d "$1" | grep -c 'NEEDED.*\[libMLCore\.so\.1\]')" -eq $wanted ]
}

# A link of an installed page leads to another one.
pages_linked() {
    local folder page target dead=0
    folder=$(find "$prefix" -name README.md -printf '%h\n') && [ -n "$folder" ] || return 1
    while IFS=: read -r page target; do
        [ -f "$(dirname "$page")/$target" ] || { echo "$page: a dead link: $target"; dead=1; }
    done < <(grep -roE --include='*.md' '\]\([^):#]+' "$folder" | sed 's/](//')
    return $dead
}

# Every header that is in the tree is installed, and nothing else.
headers_installed() {
    diff <(cd "$ROOT" && find MLCore -name '*.h' | sort) <(cd "$prefix/include" && find MLCore -type f | sort)
}

make_debian() {
    (
        cd "$ROOT" &&
            cmake --fresh --preset debian -B "$work/debian" -DMLCORE_WERROR="$MLCORE_WERROR" &&
            cmake --build "$work/debian" --parallel "$JOBS" --target package &&
            mkdir -p "$work/packages/debian" && mv "$work"/debian/*.deb "$work/packages"
    ) || return 1
    # As apt would install the pair, below a prefix of ours.
    local package
    for package in libmlcore1 libmlcore-dev; do
        dpkg-deb -x "$work/packages/$package"_*.deb "$work/packages/debian" || return 1
    done
}

make_zip() {
    cmake --build "$work/windows-shared" --target package &&
        mkdir -p "$work/packages/zip" &&
        (cd "$work/packages/zip" && cmake -E tar xf "$work"/windows-shared/MLCore-*.zip && mv MLCore-*/* . && rmdir MLCore-*)
}

lint() {
    lintian --allow-root --fail-on error "$work"/packages/*.deb
}

presets=(linux)
command -v x86_64-w64-mingw32-g++-posix >/dev/null && presets+=(windows)
mkdir -p "$work/users"
attempt "the README's program" shown
for preset in "${presets[@]}"; do
    for shared in ON OFF; do
        kind=static
        [ $shared = ON ] && kind=shared
        name=$preset-$kind
        settings "$preset" $shared
        prefix=$work/installed/$name-moved
        attempt "$name: install" install_library || continue
        attempt "$name: headers" headers_installed
        attempt "$name: pages" pages_linked
        attempt "$name: find_package" with_cmake "$name-found" "-DCMAKE_PREFIX_PATH=$prefix" "-DCMAKE_FIND_ROOT_PATH=$prefix"
        [ "$preset" = linux ] || continue
        attempt "$name: pkg-config" with_pkg_config
        if [ $shared = OFF ]; then
            attempt "$name: whole with find_package" holds_everything "$work/users/$name-found/stranger"
            attempt "$name: whole with pkg-config" holds_everything "$work/users/$name-pkg-config"
        fi
        attempt "$name: add_subdirectory" with_cmake "$name-embedded" -DMLCORE_SOURCE="$ROOT" -DBUILD_SHARED_LIBS=$shared -DMLCORE_WERROR="$MLCORE_WERROR"
        [ $shared = ON ] || attempt "$name: whole with add_subdirectory" holds_everything "$work/users/$name-embedded/stranger"
    done
done

# The packages, used as installations are; debian holds both kinds.
if command -v dpkg-deb >/dev/null; then
    settings linux ON
    prefix=$work/packages/debian/usr
    if attempt "debian: packages" make_debian; then
        attempt "debian: headers" headers_installed
        attempt "debian: pages" pages_linked
        for shared in ON OFF; do
            name=debian-shared target=MLCore::MLCore module=MLCore
            [ $shared = ON ] || name=debian-static target=MLCore::static module=MLCore-static
            attempt "$name: find_package" with_cmake "$name-found" "-DCMAKE_PREFIX_PATH=$prefix" "-DMLCORE_TARGET=$target"
            attempt "$name: links the kind asked for" links_kind "$work/users/$name-found/stranger"
            attempt "$name: pkg-config" with_pkg_config "$module"
            attempt "$name: pkg-config links the kind asked for" links_kind "$work/users/$name-pkg-config"
        done
        attempt "debian-static: whole" holds_everything "$work/users/debian-static-found/stranger"
        command -v lintian >/dev/null && attempt "debian: lintian" lint
    fi
fi
if [[ " ${presets[*]} " == *" windows "* ]]; then
    settings windows ON
    prefix=$work/packages/zip
    attempt "zip: package" make_zip &&
        attempt "zip: headers" headers_installed &&
        attempt "zip: pages" pages_linked &&
        attempt "zip: find_package" with_cmake zip-found "-DCMAKE_PREFIX_PATH=$prefix" "-DCMAKE_FIND_ROOT_PATH=$prefix"
fi
exit $status
