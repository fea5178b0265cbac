# Sourced by ./run, ./test and ./bench: ensure_packages NAME… installs the Debian packages that are missing.
ensure_packages() {
    local missing=() name
    for name in "$@"; do
        dpkg-query -W -f '${db:Status-Status}' "$name" 2>/dev/null | grep -q '^installed' || missing+=("$name")
    done
    [ ${#missing[@]} -eq 0 ] && return
    echo "Installing ${missing[*]} …"
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get update -qq
    DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

build_packages=(g++ cmake ninja-build ccache pkg-config qtbase5-dev qttools5-dev qttranslations5-l10n libsndfile1-dev libsdl2-dev librtmidi-dev librsvg2-bin)
qt6_packages=(qt6-base-dev qt6-tools-dev qt6-l10n-tools qt6-translations-l10n libgl1-mesa-dev)
bench_packages=(libbenchmark-dev libfluidsynth-dev)

# build PRESET [TARGET…]: configures when needed and builds.
build() {
    local preset=$1
    shift
    [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset" ${@:+--target "$@"}
}
