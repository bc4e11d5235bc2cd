# Shared by the scripts in this folder: where the tree is, and how packages get installed.
# Sourced, not run.

set -euo pipefail

zel_root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"

say() { printf '== %s\n' "$*"; }

# install_packages GROUP...: installs what is missing of the groups named, with apt.
install_packages() {
    local missing=() name group wanted
    while read -r name group; do
        case "$name" in ''|'#'*) continue ;; esac
        for wanted in "$@"; do
            if [ "$group" = "$wanted" ] &&
               [ "$(dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null)" != installed ]; then
                missing+=("$name")
            fi
        done
    done < "$zel_root/scripts/packages.list"
    if [ "${#missing[@]}" -eq 0 ]; then
        return 0
    fi
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        as_root=(sudo)
    fi
    say "installing with apt: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# build PRESET [TARGET...]: configures and builds; the tree lands in build/PRESET.
build() {
    local preset="$1"
    shift
    say "configuring and building the preset '$preset'"
    cmake --preset "$preset" -S "$zel_root" > "/tmp/zel-configure-$$.log" 2>&1 ||
        { cat "/tmp/zel-configure-$$.log"; rm -f "/tmp/zel-configure-$$.log"; return 1; }
    rm -f "/tmp/zel-configure-$$.log"
    if [ "$#" -gt 0 ]; then
        cmake --build "$zel_root/build/$preset" --target "$@"
    else
        cmake --build "$zel_root/build/$preset"
    fi
}
