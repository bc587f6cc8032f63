# What Plenair needs on Debian 12, and how it gets there. Sourced by run and test.
# shellcheck shell=bash disable=SC2034  # the lists are for those who source this

build_packages=(build-essential cmake ninja-build libgtest-dev libgmock-dev libbenchmark-dev)
qt_packages=(qt6-base-dev qt6-svg-dev libx11-dev)
desktop_packages=(fonts-liberation fonts-dejavu-core x11-utils)
check_packages=(clang libclang-rt-14-dev clang-format poppler-utils)
real_desktop_packages=(libxtst-dev libxcb1-dev xvfb openbox xfwm4 metacity mutter x11-xserver-utils weston qt6-wayland imagemagick dbus-daemon at-spi2-core python3-pyatspi)
names_packages=(clang clang-tidy)
package_packages=(dpkg-dev file lintian desktop-file-utils appstream shared-mime-info)
tour_packages=(xvfb openbox gnumeric xclip xdotool imagemagick poppler-utils)

install_log=build/install.log
lists_are_fresh=false

# Prints those of the given packages that are not installed, one a line.
MissingPackages() {
    local installed package
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true)
    for package; do
        grep -qxF "installed $package" <<<"$installed" || printf '%s\n' "$package"
    done
}

# apt-get as root, asking nothing, its chatter in the log. Fails where apt-get fails, or where nobody here is root.
AptGet() {
    local as_root=()
    if ((EUID != 0)); then
        if ! command -v sudo >/dev/null; then
            echo "Installing needs root, and there is no sudo here." >&2
            return 1
        fi
        as_root=(sudo)
    fi
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive NEEDRESTART_MODE=a \
        apt-get -qq -y -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0 \
        -o Dpkg::Options::=--force-confdef -o Dpkg::Options::=--force-confold \
        "$@" </dev/null >>"$install_log" 2>&1
}

# Installs those of the given packages that are missing. When all are there, the package manager isn't asked.
InstallPackages() {
    if ! command -v dpkg-query >/dev/null; then
        echo "This is no Debian machine; these, or what stands for them, must be here: $*"
        return 0
    fi
    local missing
    mapfile -t missing < <(MissingPackages "$@")
    if ((${#missing[@]} == 0)); then
        return 0
    fi
    echo "Installing ${missing[*]} (a few minutes the first time) ..."
    mkdir -p "$(dirname "$install_log")"
    if ! $lists_are_fresh; then
        # An old list may still do; the install tells.
        AptGet update || true
        lists_are_fresh=true
    fi
    if ! AptGet install --no-install-recommends "${missing[@]}"; then
        echo "Could not install ${missing[*]}; the whole story is in $install_log, and it ends:" >&2
        tail -n 5 "$install_log" >&2
        return 1
    fi
}
