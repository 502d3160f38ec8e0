# Sourced by ./run, ./test, .ci/run and others: installs from Debian, by name, what is missing.
# shellcheck shell=bash
# shellcheck disable=SC2034  # whoever sources this uses some of the lists
build_packages=(g++ cmake ninja-build pkg-config qtbase5-dev libqt5svg5-dev libfreexl-dev
                libzip-dev libicu-dev fonts-noto-cjk qttranslations5-l10n)
test_packages=(clang libgtest-dev librapidcheck-dev libvalijson-dev binutils dpkg-dev file
               at-spi2-core dbus gir1.2-atspi-2.0 python3-gi python3-jsonschema xvfb)
qt6_packages=(qt6-base-dev qt6-svg-dev qt6-translations-l10n)
lint_packages=(clang-format clang-tidy cppcheck shellcheck pyflakes3)
bench_packages=(libbenchmark-dev libxdamage-dev libxtst-dev)
tools_packages=(gcovr python3)
fuzz_packages=(libclang-rt-14-dev)

# Qt takes file names in the locale's encoding, and the installation's names are Chinese.
[ "$(locale charmap 2>/dev/null)" = UTF-8 ] || export LC_ALL=C.UTF-8

# need PACKAGE...: makes sure that the packages are installed, or says what to do and ends. Outside
# Debian it only says what must be there, and goes on where a build could start.
need() {
    local missing=() package as_root=() log
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        echo "This is not a Debian system. What these Debian packages hold must be installed:" \
            "$@" >&2
        command -v cmake >/dev/null && command -v ninja >/dev/null && return 0
        exit 1
    fi
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
            missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing from Debian: ${missing[*]}" >&2
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Not root and no sudo. As root: apt-get install ${missing[*]}" >&2
            exit 1
        fi
        as_root=(sudo)
    fi
    log=$(mktemp)
    if ! { "${as_root[@]}" apt-get update -qq &&
           "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
               apt-get install -y -qq --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
        tail -n 20 "$log" >&2
        echo "Could not install: ${missing[*]}" >&2
        exit 1
    fi
    rm -f "$log"
}

# build PRESET [TARGET...]: configures and builds; shows the whole output only on failure.
build() {
    local preset=$1 log
    shift
    log=build/$preset.log
    mkdir -p build
    echo "Building ($preset) …" >&2
    if ! { cmake --preset "$preset" &&
           cmake --build --preset "$preset" ${1:+--target "$@"}; } >"$log" 2>&1; then
        grep -nE 'error|FAILED|CMake Error' "$log" | head -n 40 >&2 || true
        tail -n 40 "$log" >&2
        echo "The build failed; all of it is in $log." >&2
        exit 1
    fi
}
