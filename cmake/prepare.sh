# Sourced by ./run, ./test and .ci/run: packages and builds.

# Installs the packages of packages.txt that are missing.
install_packages() {
    local missing=()
    local name
    while read -r name; do
        case "$name" in '' | '#'*) continue ;; esac
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$name" 2>/dev/null)" = installed ] || missing+=("$name")
    done <packages.txt
    [ ${#missing[@]} -eq 0 ] && return

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then as_root=(sudo); fi
    if ! command -v apt-get >/dev/null || { [ ${#as_root[@]} -ne 0 ] && ! command -v sudo >/dev/null; }; then
        echo "Packages are missing, and there is no way here to install them: ${missing[*]}" >&2
        exit 1
    fi
    echo "Installing ${missing[*]}"
    DEBIAN_FRONTEND=noninteractive "${as_root[@]}" sh -c \
        'apt-get update -qq && apt-get install -y -qq --no-install-recommends "$@" >/dev/null' sh "${missing[@]}" ||
        { echo "These packages could not be installed: ${missing[*]}" >&2; exit 1; }
}

# build_preset preset [target...]: configures once, builds what has changed.
build_preset() {
    local preset=$1
    shift
    [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" >/dev/null
    cmake --build "build/$preset" -j2 --target "${@:-all}" -- --quiet
}
