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
    # The ZIP holds the example.
    local examples=OFF
    [ "$1 $2" = "windows ON" ] && examples=ON
    library=("${common[@]}" -DBUILD_SHARED_LIBS="$2" -DMLCORE_WERROR="$MLCORE_WERROR" -DMLCORE_TESTS=OFF
        -DMLCORE_EXAMPLES="$examples")
}

# configured_bare ARGUMENT...: configures, without tests; refused ARGUMENT...: does not configure.
configured_bare() {
    cmake --fresh -S "$ROOT" -B "$work/bare" "${common[@]}" "$@" && ! grep -q '_tests' "$work/bare/build.ninja"
}
refused() { ! cmake --fresh -S "$ROOT" -B "$work/bare" "${common[@]}" "$@"; }

install_library() {
    cmake --fresh -S "$ROOT" -B "$work/$name" "${library[@]}" &&
        cmake --build "$work/$name" --parallel "$JOBS" &&
        cmake --install "$work/$name" --prefix "$work/installed/$name" &&
        # The tree moves once, so that nothing in it may know where it was.
        mv "$work/installed/$name" "$work/installed/$name-moved"
}

# ran PROGRAM: its output is in $work/printed.
ran() {
    local runner=()
    [[ $1 == *.exe ]] && runner=("$ROOT/cmake/run-with-wine.sh")
    WINEPATH="Z:$prefix/bin" "${runner[@]}" "$1" >"$work/out" && tr -d '\r' <"$work/out" >"$work/printed"
}
works() { ran "$1" && diff "$here/expected.txt" "$work/printed"; }

# The README shows the program that is built here.
shown() { awk '/^```cpp$/ { inside = 1; next } /^```$/ { inside = 0 } inside' "$ROOT/README.md" | diff "$here/main.cpp" -; }

# with_cmake FOLDER ARGUMENT...
with_cmake() {
    local build=$work/users/$1
    shift
    cmake -S "$here" -B "$build" "${common[@]}" "$@" && cmake --build "$build" --parallel "$JOBS" || return 1
    if [ -f "$build/stranger.exe" ]; then works "$build/stranger.exe"; else works "$build/stranger"; fi
}

# with_pkg_config [MODULE]: a static library links with and without --static.
with_pkg_config() {
    local module=${1:-MLCore} program=$work/users/$name-pkg-config flags libraries how ways=("")
    [ "$shared" = ON ] || ways+=(--static)
    export PKG_CONFIG_PATH
    PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name MLCore.pc)")
    libraries=$(pkg-config --variable=libdir "$module")
    for how in "${ways[@]}"; do
        # shellcheck disable=SC2086
        flags=$(pkg-config --cflags --libs $how "$module") || return 1
        echo "pkg-config $how: $flags"
        # shellcheck disable=SC2086
        g++ -std=c++20 "$here/main.cpp" -o "$program" $flags "-Wl,-rpath,$libraries" && works "$program" || return 1
    done
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
    [ "$(readelf -d "$1" | grep -c 'NEEDED.*\[libMLCore\.so\.1\]')" -eq "$wanted" ]
}

# A link of an installed page leads to another one.
pages_linked() {
    local folder page target dead=0
    folder=$(find "$prefix/share/doc" -mindepth 2 -maxdepth 2 -name README.md -printf '%h\n') && [ -n "$folder" ] || return 1
    while IFS=: read -r page target; do
        [ -f "$(dirname "$page")/$target" ] || { echo "$page: a dead link: $target"; dead=1; }
    done < <(grep -roE --include='*.md' '\]\([^):#]+[)#]' "$folder" | sed 's/](//; s/.$//')
    return "$dead"
}

# The public headers are installed, and of the others those that a public one includes, as the compiler sees it.
headers_installed() {
    local compiler=g++
    [[ $name == windows-* || $name == zip ]] && compiler=x86_64-w64-mingw32-g++-posix
    (cd "$prefix/include" && find MLCore -type f | sort) >"$work/headers"
    grep -E '^MLCore/([^/]+/)?[^/]+$' "$work/headers" >"$work/public_headers"
    diff <(cd "$ROOT" && find MLCore -maxdepth 2 -name '*.h' | sort) "$work/public_headers" || return 1
    sed 's/.*/#include <&>/' "$work/public_headers" >"$work/headers.cpp"
    "$compiler" -std=c++20 "-I$prefix/include" -MM "$work/headers.cpp" >"$work/included" &&
        diff <(tr -s ' \\' '\n' <"$work/included" | sed -n "s|^$prefix/include/||p" | sort -u) "$work/headers"
}

# An installed example for each page, and one of them prints what its page says.
examples_work() {
    local folder build=$work/users/$name-examples program=$work/users/$name-examples/dates
    folder=$(find "$prefix" -path '*/examples/CMakeLists.txt' -printf '%h\n') && [ -n "$folder" ] || return 1
    diff <(cd "$ROOT" && printf '%s\n' README.md docs/guide/*.md | sed 's|.*/||; s|md$|cpp|' | sort) \
        <(cd "$folder" && printf '%s\n' *.cpp | sort) || return 1
    cmake -S "$folder" -B "$build" "${common[@]}" "$@" && cmake --build "$build" --target dates || return 1
    [ -f "$program" ] || program+=.exe
    ran "$program" && awk '/^```text$/ { inside = 1; next } /^```$/ { inside = 0 } inside' "$ROOT/docs/guide/dates.md" | diff "$work/printed" -
}

# Unpacked, the example runs with what is in the ZIP.
zip_runs() {
    local examples=$prefix/share/doc/MLCore/examples
    diff -r "$ROOT/examples/orders" "$examples/orders" && [ -f "$prefix/share/doc/MLCore/NOTICE.txt" ] || return 1
    RUNTIME=own "$ROOT/cmake/run-with-wine.sh" "$prefix/bin/orders.exe" "$examples/data/orders.csv" \
        --calendar bank --from 2016-03-15 --to 30/06/2016 --late 3 2>&1 | tr -d '\r' |
        diff "$ROOT/examples/expected/orders.bank.txt" -
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
settings linux ON
attempt "BUILD_TESTING=OFF" configured_bare -DBUILD_TESTING=OFF
attempt "no GoogleTest" configured_bare -DMLCORE_GOOGLETEST="$work/none"
attempt "no GoogleTest, but the tests wanted" refused -DMLCORE_GOOGLETEST="$work/none" -DMLCORE_TESTS=ON
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
        name=debian
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
        name=debian
        attempt "debian: examples" examples_work "-DCMAKE_PREFIX_PATH=$prefix"
        attempt "debian-static: whole" holds_everything "$work/users/debian-static-found/stranger"
        command -v lintian >/dev/null && attempt "debian: lintian" lint
    fi
fi
if [[ " ${presets[*]} " == *" windows "* ]]; then
    settings windows ON
    prefix=$work/packages/zip
    name=zip
    attempt "zip: package" make_zip &&
        attempt "zip: headers" headers_installed &&
        attempt "zip: pages" pages_linked &&
        attempt "zip: runs as it is" zip_runs &&
        attempt "zip: examples" examples_work "-DCMAKE_PREFIX_PATH=$prefix" "-DCMAKE_FIND_ROOT_PATH=$prefix" &&
        attempt "zip: find_package" with_cmake zip-found "-DCMAKE_PREFIX_PATH=$prefix" "-DCMAKE_FIND_ROOT_PATH=$prefix"
fi
exit $status
