# shellcheck shell=bash
# The Debian 12 packages that Vantrel needs, in sets by purpose. Sourced by scripts/setup; docs/dependencies.md
# explains why each library is needed.

# For compiling the programs.
# shellcheck disable=SC2034 # read by scripts/setup
packages_build=(
    cmake
    g++
    gettext
    libcli11-dev
    libfmt-dev
    libglib2.0-dev
    libical-dev
    libicu-dev
    libsodium-dev
    libxcb-composite0-dev
    libxcb-damage0-dev
    libxcb-icccm4-dev
    libxcb-randr0-dev
    libxcb-res0-dev
    libxcb-shm0-dev
    libxcb-xkb-dev
    libxcb1-dev
    libxkbcommon-x11-dev
    ninja-build
    nlohmann-json3-dev
    pkg-config
    qt6-base-dev
)

# shellcheck disable=SC2034
packages_run=(
    dbus
    libqt6svg6
    tzdata
)

# For the demo on a private desk, beside the above.
# shellcheck disable=SC2034
packages_demo=(
    featherpad
    fonts-dejavu-core
    galculator
    gsettings-desktop-schemas
    libpng-dev
    mousepad
    openbox
    x11-xkb-utils
    xserver-xorg-core
    xserver-xorg-video-dummy
    xterm
)

# For compiling and running the tests and benchmarks; clang compiles the macOS adapter.
# shellcheck disable=SC2034
packages_test=(
    appstream
    at-spi2-core
    clang-19
    desktop-file-utils
    fish
    fluxbox
    fonts-inter
    gir1.2-atspi-2.0
    i3-wm
    kwin-x11
    libbenchmark-dev
    libclang-rt-19-dev
    libgmock-dev
    libgtest-dev
    librapidcheck-dev
    man-db
    python3-gi
    tint2
    trayer
    wmctrl
    x11-utils
    x11-xserver-utils
    xdotool
    xfce4-panel
    xfce4-terminal
    xfwm4
    zsh
)

# shellcheck disable=SC2034
packages_check=(
    clang-format-19
    clang-tidy-19
    gettext
    git
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
