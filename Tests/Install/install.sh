#!/usr/bin/env bash
# Installs a build as a person would, and builds on it as a developer would.
#
#   install.sh BUILD SOURCE
#
# Everything happens in a temporary folder. Says which step went wrong.
set -euo pipefail
build=$1
source=$2
scratch=$(mktemp --directory)
trap 'rm -rf "$scratch"' EXIT
export XDG_CACHE_HOME=$scratch/cache

fail() {
    echo "install.sh: $*" >&2
    exit 1
}

# A program that is previewed by itself, with an icon that the renderer has drawn.
showsItself() {
    "$1" --output "$scratch/page" "$source/README.md" || fail "$1 makes no page"
    grep --quiet 'Quillmar' "$scratch/page/index.html" || fail "$1 makes a page of something else"
    "$1" --output "$scratch/page" "$source/Examples" || fail "$1 makes no page of a folder"
    [[ $(head --bytes 4 "$scratch/page/asset-0" | tail --bytes 3) == PNG ]] || fail "$1 has no icons"
}

prefix=$scratch/prefix
for component in program development; do
    cmake --install "$build" --prefix "$prefix" --component "$component" >/dev/null
done
showsItself "$prefix/bin/quillmar"
man --warnings --local-file "$prefix/share/man/man1/quillmar.1" 2>&1 >/dev/null | grep . && fail "the manual has faults"
bash -n "$prefix/share/bash-completion/completions/quillmar" || fail "bash cannot read the completion"

# The window, and the role that it takes for a user.
if [[ -x $build/bin/QuillmarViewer ]]; then
    cmake --install "$build" --prefix "$prefix" --component viewer >/dev/null
    desktop-file-validate "$prefix/share/applications/app.quillmar.Viewer.desktop"
    appstreamcli validate --no-net "$prefix/share/metainfo/app.quillmar.Viewer.metainfo.xml" >"$scratch/appstream" ||
        fail "the AppStream data has faults: $(<"$scratch/appstream")"
    XDG_DATA_HOME=$scratch/data "$prefix/bin/quillmar" --install-preview >/dev/null
    grep --quiet "Exec=.*libexec/quillmar/QuillmarViewer.* --service" \
        "$scratch/data/dbus-1/services/org.gnome.NautilusPreviewer.service" || fail "the role names another program"
    XDG_DATA_HOME=$scratch/data "$prefix/bin/quillmar" --uninstall-preview >/dev/null
    [[ ! -e $scratch/data/dbus-1/services/org.gnome.NautilusPreviewer.service ]] || fail "the role is not given back"
fi

# The core in somebody else's program, found by CMake and by pkg-config.
cmake -S "$source/docs/embedding" -B "$scratch/embedding" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$scratch/embedding" >/dev/null
export PKG_CONFIG_PATH
PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name QuickPreviewCore.pc)")
read -ra flags < <(pkg-config --cflags --libs QuickPreviewCore)
"${CXX:-c++}" -std=c++20 "$source/docs/embedding/page.cpp" "${flags[@]}" -o "$scratch/page-by-pkg-config"
for program in "$scratch/embedding/page" "$scratch/page-by-pkg-config"; do
    "$program" "$source/README.md" >"$scratch/page.html" 2>"$scratch/size"
    grep --quiet '<h1' "$scratch/page.html" || fail "$program makes no page"
    grep --quiet '^900 by 900 points$' "$scratch/size" || fail "$program makes a page of another size"
done

# The Debian packages.
(cd "$scratch" && cpack --config "$build/CPackConfig.cmake" >/dev/null)
for package in "$scratch"/*.deb; do dpkg-deb --extract "$package" "$scratch/root"; done
showsItself "$scratch/root/usr/bin/quillmar"
if [[ -x $build/bin/QuillmarViewer ]]; then
    [[ -x $scratch/root/usr/libexec/quillmar/QuillmarViewer ]] || fail "the viewer's package does not hold it"
    depends=$(dpkg-deb --field "$scratch"/quillmar-viewer_*.deb Depends)
    for package in bubblewrap libgtk-4-1 libwebkitgtk-6.0-4 quillmar; do
        [[ $depends == *"$package"* ]] || fail "the viewer's package does not depend on $package: $depends"
    done
fi
depends=$(dpkg-deb --field "$scratch"/quillmar_*.deb Depends)
for library in libc6 libcairo2 libisal2 librsvg2-2; do
    [[ $depends == *"$library"* ]] || fail "the package does not depend on $library: $depends"
done
echo "install.sh: $depends"
