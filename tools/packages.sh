# shellcheck shell=bash disable=SC2034

# Debian packages that building and checking need; sourced by run and test.

# What the programs and their tests are built from, and what plays an evening with them.
build_packages=(
    g++ cmake ninja-build ccache pkg-config python3
    libasio-dev libsodium-dev libsqlite3-dev nlohmann-json3-dev libcli11-dev
    libgtest-dev libgmock-dev libbenchmark-dev
    qt6-base-dev qt6-multimedia-dev qt6-webengine-dev fonts-dejavu-core librsvg2-bin
    xvfb dbus at-spi2-core python3-gi gir1.2-atspi-2.0
)

# What checks the source besides: formatting, clang-tidy, fuzzing.
check_packages=(clang-14 clang-format-14 clang-tidy-14 libclang-rt-14-dev)

# missing_packages PACKAGE…: those of them that are not installed, one a line.
missing_packages() {
    local installed
    # dpkg-query fails as soon as it does not know one name, and still lists the others
    installed=$(dpkg-query --show --showformat '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null |
        awk '$2 == "installed" {print $1}') || true
    local package
    for package in "$@"; do
        grep --quiet --line-regexp --fixed-strings -- "$package" <<<"$installed" || echo "$package"
    done
}

# install_packages PACKAGE…: installs those that are missing. Where none is, root is not asked for and apt not called.
install_packages() {
    if ! command -v dpkg-query >/dev/null; then
        echo "This is no Debian system, so packages are not looked after. Needed are (Debian's names): $*"
        return
    fi
    local missing
    mapfile -t missing < <(missing_packages "$@")
    if ((${#missing[@]} == 0)); then
        echo "Packages: all that are needed are installed."
        return
    fi

    local as_root=()
    if ((EUID != 0)); then
        if ! command -v sudo >/dev/null; then
            echo "Packages are missing, and neither root nor sudo is at hand. As root, say:" >&2
            echo "    apt-get update && apt-get install ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Packages: installing ${missing[*]}"
    "${as_root[@]}" apt-get --quiet update || return
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get --quiet --yes --no-install-recommends install "${missing[@]}"
}
