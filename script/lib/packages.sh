# Debian packages by purpose. To be sourced. shellcheck shell=bash disable=SC2034

# For building and running the program.
packages_build=(
    ccache
    cmake
    g++
    git
    libplist-dev
    qt6-svg-dev
    libxcb-randr0-dev
    libxcb-res0-dev
    libxcb-shape0-dev
    libxcb-shm0-dev
    libxcb-xfixes0-dev
    libxcb-xinput-dev
    libxcb1-dev
    libglib2.0-dev
    libwayland-dev
    ninja-build
    nlohmann-json3-dev
    pkg-config
    plasma-wayland-protocols
    qt6-base-dev
    qt6-base-private-dev
    qt6-wayland
    wayland-protocols
)

# The layer shell's description is a package of its own in Debian 13, and part of another one in Debian 12.
# Without either, the program is built for X11 only.
if apt-cache show wlr-protocols > /dev/null 2>&1; then
    packages_build+=(wlr-protocols)
else
    packages_build+=(librust-wayland-protocols-dev)
fi

# For testing it. Clang's sanitizers are a package of their own, unlike GCC's.
packages_test=(
    clang-19
    clang-format-19
    clang-tidy-19
    desktop-file-utils
    libbenchmark-dev
    libclang-rt-19-dev
    libgtest-dev
    libpng-dev
    libxcb-xtest0-dev
    lintian
    llvm-19
)

# The virtual desktop of the tests and the tour.
packages_desktop=(
    at-spi2-core
    dbus
    fonts-dejavu-core
    kwin-wayland
    openbox
    picom
    sway
    tint2
    xfwm4
    xvfb
)

# The programs of the comparison; tint2 is one of them too.
packages_comparison=(
    cairo-dock
    lxqt-panel
    lxqt-qtplugin
    plank
    polybar
    xfce4-panel
)

# For the tour and the screenshots in the documents.
packages_tour=(
    mousepad
    optipng
    papirus-icon-theme
    pcmanfm
    x11vnc
    xterm
)

# Only for script/mutate and script/soak --valgrind.
packages_mutate=(
    python3
)
packages_valgrind=(
    valgrind
)

# For script/managers: window managers, and an X server with several outputs.
packages_managers=(
    awesome
    bspwm
    i3-wm
    icewm
    kwin-x11
    marco
    mate-settings-daemon-common
    mutter
    xserver-xorg-core
    xserver-xorg-video-dummy
)
