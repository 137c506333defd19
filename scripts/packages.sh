# shellcheck shell=bash
# The Debian 12 packages that Vantrel needs, by purpose. Sourced by scripts/setup; docs/dependencies.md explains why
# each library is needed.

# shellcheck disable=SC2034 # read by scripts/setup
packages_build=(
    cmake
    g++
    git
    libcli11-dev
    libfmt-dev
    libglib2.0-dev
    libical-dev
    libicu-dev
    libsodium-dev
    libxcb-icccm4-dev
    libxcb-keysyms1-dev
    libxcb-randr0-dev
    libxcb-res0-dev
    libxcb-util-dev
    libxcb-xkb-dev
    libxcb-xtest0-dev
    libxcb1-dev
    ninja-build
    nlohmann-json3-dev
    pkg-config
    qt6-base-dev
)

# shellcheck disable=SC2034
packages_run=(
    dbus
    fonts-dejavu-core
    libqt6svg6
    tzdata
)

# shellcheck disable=SC2034
packages_test=(
    appstream
    desktop-file-utils
    featherpad
    fish
    fluxbox
    fonts-inter
    galculator
    gsettings-desktop-schemas
    i3-wm
    kwin-x11
    libbenchmark-dev
    libgmock-dev
    libgtest-dev
    libpng-dev
    librapidcheck-dev
    man-db
    mousepad
    openbox
    trayer
    wmctrl
    x11-utils
    x11-xkb-utils
    x11-xserver-utils
    xdotool
    xfce4-panel
    xfce4-terminal
    xfwm4
    xserver-xorg-core
    xserver-xorg-video-dummy
    xterm
    zsh
)

# shellcheck disable=SC2034
packages_check=(
    clang-19
    clang-format-19
    clang-tidy-19
    libclang-rt-19-dev
    llvm
    python3
    shellcheck
)

# For scripts/mac/build --check. npm provides the linker; any installed npm will do.
# shellcheck disable=SC2034
packages_mac=(
    librsvg2-bin
    llvm-19
    python3-yaml
)
# shellcheck disable=SC2034
command -v npm >/dev/null || packages_mac+=(npm)

# Only for scripts/package.
# shellcheck disable=SC2034
packages_packaging=(
    dpkg-dev
    file
    lintian
    mmdebstrap
)
