# Debian packages by purpose; README.md gives the reason for each. Sourced, not run.

build_packages=(
    g++ cmake ninja-build ccache pkgconf
    qt6-base-dev qt6-declarative-dev qt6-declarative-dev-tools qt6-svg-dev libgl1-mesa-dev libvulkan-dev
    libxcb1-dev libxcb-keysyms1-dev libxcb-xinput-dev libxcb-shape0-dev libxcb-randr0-dev libxkbcommon-dev
    libsqlite3-dev libhowardhinnant-date-dev libutf8proc-dev rapidjson-dev libsystemd-dev
)

run_packages=(
    qml6-module-qtqml qml6-module-qtqml-models qml6-module-qtqml-workerscript
    qml6-module-qtquick qml6-module-qtquick-window qml6-module-qtquick-controls
    qml6-module-qtquick-templates qml6-module-qtquick-layouts qml6-module-qtquick-shapes
    libqt6svg6 libgl1-mesa-dri tzdata
    fonts-inter fonts-quicksand fonts-jetbrains-mono fonts-symbola
)

# A display without a screen, and what drives a program on it as a person would.
drive_packages=(
    xvfb openbox xdotool x11-utils x11-xserver-utils imagemagick
    dbus-daemon at-spi2-core python3 python3-gi gir1.2-atspi-2.0
)

test_packages=(
    libgtest-dev librapidcheck-dev libbenchmark-dev qml6-module-qttest
    xterm xfwm4 wmctrl picom dunst sqlite3 util-linux procps clang-format
)

# What only tools/bench needs.
bench_packages=(python3-xlib)

sanitizer_packages=(clang-19 libclang-rt-19-dev)
